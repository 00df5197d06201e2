#include "F5Window.h"

#include "ElidedLabel.h"
#include "GridMenu.h"
#include "GridView.h"
#include "Mnemonics.h"
#include "OverlayEditor.h"
#include "OverlayList.h"
#include "Pictures.h"
#include "ReportMenu.h"
#include "StatusLine.h"
#include "TextEdge.h"
#include "Theme.h"

#include <QAction>
#include <QHBoxLayout>
#include <QMenu>
#include <QMenuBar>
#include <QScrollBar>
#include <QVBoxLayout>

#include <functional>

namespace qvm::ui {
namespace {

constexpr int HeadingRows = 2; ///< names of the locks, upright, and headings

} // namespace

F5Window::F5Window(F5& f5, F5Schluessel& keys, F5Finger& fingers, QWidget* main)
    : WindowBase(f5, QStringLiteral("F5"), Stand::OverMain, main), f5_(f5), keys_(keys), fingers_(fingers) {
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    makeMenuBar();
    makeToolBar();
    content()->addWidget(newHeading(f5.Label1, QStringLiteral("F5.Label1"), this));
    makeGrid();
    makeEditors();
    makeMenus();
    addGrid(grid_, makeStatusLine());
    setLeastSize(560, 380);
    finish([this] { f5_.F5_Schliessen(); });
}

F5Window::~F5Window() {
    f5_.Menue_Zeigen = {};
    f5_.Maus_Zelle = {};
}

void F5Window::setWords() {
    grid_->setAccessibleName(toQt(f5_.Label1.Text()));
    grid_->setUprightHeight(f5_.Kopfhoehe());
    for (const int picture :
         {FingerPicture::None, FingerPicture::Standard, FingerPicture::Premium, FingerPicture::Off}) {
        grid_->gridModel().setPictureText(UserColumn::Finger, picture, toQt(f5_.Fingertext(picture)));
    }
}

void F5Window::makeMenuBar() {
    QMenuBar* bar = addMenuBar();
    QMenu* extras = addMenu(bar, f5_.F5_Extras, QStringLiteral("F5.F5_Extras"));
    QMenu* marking = addMenu(extras, f5_.F5_Markierung, QStringLiteral("F5.F5_Markierung"));
    addMenuEntry(marking, f5_.F5_M5ON, QStringLiteral("F5.F5_M5ON"), [this] { f5_.F5_M5ON_Click(); });
    addMenuEntry(marking, f5_.F5_M5_OFF, QStringLiteral("F5.F5_M5_OFF"), [this] { f5_.F5_M5_OFF_Click(); });
    addMenuEntry(extras, f5_.F5_Sort, QStringLiteral("F5.F5_Sort"), [this] { f5_.F5_Sort_Click(); });
    addMenuEntry(extras, f5_.F5_Search, QStringLiteral("F5.F5_Search"), [this] {
        f5_.F5_Search_Click();
    })->setShortcut(Qt::CTRL | Qt::Key_F);
    addMenuEntry(extras, f5_.F5_Import, QStringLiteral("F5.F5_Import"), [this] { f5_.F5_Import_Click(); });
    addReports(extras, f5_.Berichte, QStringLiteral("F5"),
               [this](ReportKind kind, ReportWay way) { f5_.F5_Bericht_Click(kind, way); });
    addUndoEntries(
        extras, this, QStringLiteral("F5.F5"), f5_.F5_Undo, f5_.F5_Redo, [this] { f5_.F5_Undo_Click(); },
        [this] { f5_.F5_Redo_Click(); });
    uniqueMnemonics(bar);
    uniqueMnemonics(extras);
    uniqueMnemonics(marking);
}

void F5Window::makeToolBar() {
    addTableButtons(addToolBar(), f5_.Toolbar1, [this](std::string_view key) { f5_.Toolbar1_ButtonClick(key); });
}

void F5Window::makeGrid() {
    grid_ = new GridView(f5_.FGK4, this, HeadingRows);
    nameWidget(grid_, QStringLiteral("F5.FGK4"));
    makeColumns();
    grid_->setBlocks(f5_.Auswahl);
    grid_->takesTab = true;
    grid_->onKey = [this](int key) { f5_.FGK4_KeyPress(key); };
    grid_->takesAnyText = [](int column) { return column == UserColumn::KeyLabel; };
    grid_->onMenuKey = [this] { f5_.FGK4_Kontext(); };
    grid_->mayWrite = [this](int row, int column) { return f5_.Beschreibbar(row, column); };
    grid_->onWrite = [this](int row, int column, const std::string& text) { f5_.FGK4_Eintragen(row, column, text); };
    grid_->onDoubleClick = [this](int row, int column) { f5_.FGK4_DblClick(row, column); };
    grid_->onMouseUp = [this](MouseButton button, int row, int column) { f5_.FGK4_MouseUp(button, row, column); };
    QScrollBar* across = grid_->horizontalScrollBar();
    connect(across, &QScrollBar::valueChanged, this, [this](int value) {
        if (value > 0) {
            f5_.FGK4_Scroll();
        }
    });
    watch(f5_.FixedCols, grid_, [this, across] {
        grid_->setFrozenColumns(f5_.FixedCols);
        // A name that is no longer held in sight would lie beside the window.
        if (f5_.FixedCols <= UserColumn::Name) {
            across->setValue(0);
        }
    });
    f5_.Maus_Zelle = [this](int& row, int& column) { return grid_->cellUnderMouse(row, column); };
}

void F5Window::makeColumns() {
    GridModel& model = grid_->gridModel();
    for (int column = 0; column < f5_.FGK4.Columns(); ++column) {
        if (UserGrid::IsLock(column)) {
            model.setAlignment(column, Qt::AlignCenter);
            model.setTip(column, [this, column](int row) { return toQt(f5_.Tip(row, column)); });
        }
    }
    model.setPictures(PictureSet::Finger);
    model.setAlignment(UserColumn::Number, Qt::AlignRight | Qt::AlignVCenter);
    model.setAlignment(UserColumn::Right, Qt::AlignCenter);
    model.setAlignment(UserColumn::Finger, Qt::AlignCenter);
    model.setTip(UserColumn::KeyId, [this](int row) { return toQt(f5_.Tip(row, UserColumn::KeyId)); });
    grid_->setColumns(columnWidths(f5_.FGK4, F5::Breite));
}

void F5Window::makeEditors() {
    addEditor(f5_.Text1, "F5.Text1");
    addEditor(f5_.Text2, "F5.Text2");
    addEditor(f5_.Text7, "F5.Text7");
    addList(f5_.List1, "F5.List1");
    addList(f5_.List2, "F5.List2");
}

void F5Window::addEditor(TextBox& model, const char* name) {
    auto* editor = new OverlayEditor(model, *grid_, QLatin1String(name));
    editor->onText = [this](const std::string& text) { f5_.Editor_Change(text); };
    editor->onKey = [this](int key) { f5_.Editor_KeyPress(key); };
    editor->onLostFocus = [this] { f5_.Editor_LostFocus(); };
}

void F5Window::addList(ListBox& model, const char* name) {
    auto* list = new OverlayList(model, *grid_, QLatin1String(name));
    list->onChoose = [this](int) { f5_.Editor_KeyPress(Key::Enter); };
    list->onCancel = [this] { f5_.Editor_KeyPress(Key::Escape); };
    list->onLostFocus = [this] { f5_.Editor_LostFocus(); };
    list->above = [this] { return F5::Listenhub(f5_.OpenColumn, grid_->topRow()) > 0; };
}

QMenu* F5Window::newMenu(const char* name) {
    auto* menu = new QMenu(this);
    menu->setObjectName(QLatin1String(name));
    return menu;
}

void F5Window::makeMenus() {
    rowMenu_ = newMenu("F5.M_FGK4");
    addMenuEntry(rowMenu_, f5_.F5_Loeschen, QStringLiteral("F5.F5_Loeschen"), [this] { f5_.F5_Loeschen_Click(); });
    uniqueMnemonics(rowMenu_);
    makeKeyMenu();
    makeFingerMenu();
    f5_.Menue_Zeigen = [this](F5Menu which) { popUp(which); };
}

void F5Window::makeKeyMenu() {
    keyMenu_ = newMenu("F5.F5_E_Key");
    const auto add = [](QMenu* menu, MenuEntry& entry, const char* name, std::function<void()> onClick) {
        addMenuEntry(menu, entry, QLatin1String(name), std::move(onClick));
    };
    QMenu* learn = addMenu(keyMenu_, f5_.key_anlernen, QStringLiteral("F5.key_anlernen"));
    add(learn, f5_.Save_Ekey, "F5.Save_Ekey", [this] { keys_.Save_Ekey_Click(); });
    add(learn, f5_.Save_RFID, "F5.Save_RFID", [this] { keys_.Save_RFID_Click(); });
    add(keyMenu_, f5_.Key_loeschen, "F5.Key_loeschen", [this] { f5_.Key_loeschen_Click(); });
    add(keyMenu_, f5_.key_ausschneiden, "F5.key_ausschneiden", [this] { keys_.key_ausschneiden_Click(); });
    add(keyMenu_, f5_.key_einfuegen, "F5.key_einfuegen", [this] { keys_.key_einfuegen_Click(); });
    QMenu* search = addMenu(keyMenu_, f5_.key_suchen, QStringLiteral("F5.key_suchen"));
    add(search, f5_.Search_Ekey, "F5.Search_Ekey", [this] { keys_.Search_Ekey_Click(); });
    add(search, f5_.Search_RFID, "F5.Search_RFID", [this] { keys_.Search_RFID_Click(); });
    add(keyMenu_, f5_.key_synchron, "F5.key_synchron", [this] { keys_.key_synchron_Click(); });
    for (QMenu* menu : {keyMenu_, learn, search}) {
        uniqueMnemonics(menu);
    }
}

void F5Window::makeFingerMenu() {
    fingerMenu_ = newMenu("F5.F5_Fingerscan");
    const auto add = [this](MenuEntry& entry, const char* name, std::function<void()> onClick) {
        addMenuEntry(fingerMenu_, entry, QLatin1String(name), std::move(onClick));
    };
    add(f5_.FS_anerlen, "F5.FS_anerlen", [this] { fingers_.FS_anerlen_Click(); });
    add(f5_.FS_loeschen, "F5.FS_loeschen", [this] { fingers_.FS_loeschen_Click(); });
    add(f5_.F5_FSpremium, "F5.F5_FSpremium", [this] { fingers_.F5_FSpremium_Click(); });
    add(f5_.F5_FSstandard, "F5.F5_FSstandard", [this] { fingers_.F5_FSstandard_Click(); });
    uniqueMnemonics(fingerMenu_);
}

QLayout* F5Window::makeStatusLine() {
    auto* line = new StatusLine(this);
    line->addShort(f5_.Benutzerzahl, QStringLiteral("F5.Benutzerzahl"));
    line->addShort(f5_.Benutzermarken, QStringLiteral("F5.Benutzermarken"));
    line->addShort(f5_.Schlossmarken, QStringLiteral("F5.Schlossmarken"));
    line->addLong(f5_.Hinweis, QStringLiteral("F5.Hinweis"))->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return line;
}

void F5Window::popUp(F5Menu which) {
    QMenu* menu = which == F5Menu::M_FGK4 ? rowMenu_ : which == F5Menu::F5_E_Key ? keyMenu_ : fingerMenu_;
    popUpAtCell(*menu, *grid_);
}

} // namespace qvm::ui
