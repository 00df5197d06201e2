#include "F12Window.h"

#include "ElidedLabel.h"
#include "GridMenu.h"
#include "GridView.h"
#include "Mnemonics.h"
#include "OverlayBoxes.h"
#include "OverlayEditor.h"
#include "OverlayList.h"
#include "Pictures.h"
#include "ReportMenu.h"
#include "StatusLine.h"
#include "TextEdge.h"
#include "Theme.h"

#include <QHBoxLayout>
#include <QMenu>
#include <QMenuBar>
#include <QVBoxLayout>

namespace qvm::ui {

F12Window::F12Window(F12& f12, QWidget* main)
    : WindowBase(f12, QStringLiteral("F12"), Stand::InPlaceOfMain, main), f12_(f12) {
    makeMenuBar();
    makeToolBar();
    content()->addWidget(newHeading(f12.Label1, QStringLiteral("F12.Label1"), this));
    makeGrid();
    makeEditors();
    makeMenus();
    addGrid(grid_, makeStatusLine());
    setLeastSize(560, 380);
    finish([this] { f12_.F12_Schliessen(); });
}

F12Window::~F12Window() {
    f12_.Menue_Zeigen = {};
    f12_.Maus_Zelle = {};
}

void F12Window::setWords() {
    grid_->setAccessibleName(toQt(f12_.Label1.Text()));
    GridModel& model = grid_->gridModel();
    for (int column = LockColumn::FirstSwitch; column <= LockColumn::Emi; ++column) {
        for (const int picture : {LockPicture::On, LockPicture::Off, LockPicture::NotApplicable}) {
            model.setPictureText(column, picture, toQt(f12_.Bildtext(picture)));
        }
    }
    grid_->setColumns(columnWidths(f12_.FGK12, [this](int column) { return f12_.Breite(column); }));
}

void F12Window::makeMenuBar() {
    QMenuBar* bar = addMenuBar();
    QMenu* extras = addMenu(bar, f12_.F12_Extras, QStringLiteral("F12.F12_Extras"));
    addMenuEntry(extras, f12_.F12_COURon, QStringLiteral("F12.F12_COURon"), [this] { f12_.F12_COURon_Click(); });
    addMenuEntry(extras, f12_.F12_COURoff, QStringLiteral("F12.F12_COURoff"), [this] { f12_.F12_COURoff_Click(); });
    addMenuEntry(extras, f12_.F12_Import, QStringLiteral("F12.F12_Import"), [this] { f12_.F12_Import_Click(); });
    addReports(extras, f12_.Berichte, QStringLiteral("F12"),
               [this](ReportKind kind, ReportWay way) { f12_.F12_Bericht_Click(kind, way); });
    addUndoEntries(
        extras, this, QStringLiteral("F12.F12"), f12_.F12_Undo, f12_.F12_Redo, [this] { f12_.F12_Undo_Click(); },
        [this] { f12_.F12_Redo_Click(); });
    uniqueMnemonics(bar);
    uniqueMnemonics(extras);
}

void F12Window::makeToolBar() {
    addTableButtons(addToolBar(), f12_.Toolbar1, [this](std::string_view key) { f12_.Toolbar1_ButtonClick(key); });
}

void F12Window::makeGrid() {
    grid_ = new GridView(f12_.FGK12, this);
    nameWidget(grid_, QStringLiteral("F12.FGK12"));
    makeColumns();
    grid_->setFrozenColumns(1);
    grid_->setBlocks(f12_.Auswahl);
    grid_->takesTab = true;
    grid_->onKey = [this](int key) { f12_.FGK12_KeyPress(key); };
    grid_->onMenuKey = [this] { f12_.FGK12_Kontext(); };
    grid_->onDoubleClick = [this](int row, int column) { f12_.FGK12_DblClick(row, column); };
    grid_->onMouseUp = [this](MouseButton button, int row, int column) { f12_.FGK12_MouseUp(button, row, column); };
    grid_->mayWrite = [this](int row, int column) { return f12_.Beschreibbar(row, column); };
    grid_->onWrite = [this](int row, int column, const std::string& text) { f12_.FGK12_Eintragen(row, column, text); };
    f12_.Maus_Zelle = [this](int& row, int& column) { return grid_->cellUnderMouse(row, column); };
}

void F12Window::makeColumns() {
    GridModel& model = grid_->gridModel();
    model.setPictures(PictureSet::Lock);
    for (int column = 0; column <= LockColumn::UnitType; ++column) {
        model.setTip(column, [this, column](int row) { return toQt(f12_.Tip(row, column)); });
        if (column >= LockColumn::FirstSwitch) {
            model.setAlignment(column, Qt::AlignCenter);
        }
    }
    model.setAlignment(LockColumn::Number, Qt::AlignRight | Qt::AlignVCenter);
}

void F12Window::makeEditors() {
    auto* name = new OverlayEditor(f12_.Text1, *grid_, QStringLiteral("F12.Text1"));
    name->onText = [this](const std::string& text) { f12_.Text1_Change(text); };
    name->onKey = [this](int key) { f12_.Editor_KeyPress(key); };
    name->onLostFocus = [this] { f12_.Editor_LostFocus(); };
    auto* serial = new OverlayBoxes(f12_.Serie.Boxes, f12_.Serie.Visible, *grid_,
                                    {QStringLiteral("F12.Text3"), QStringLiteral("F12.Text4"),
                                     QStringLiteral("F12.Text5"), QStringLiteral("F12.Text6")});
    serial->onText = [this](std::size_t box, const std::string& text) { f12_.Serie_Change(box, text); };
    serial->onKey = [this](std::size_t box, int key) { f12_.Serie_KeyPress(box, key); };
    serial->onEntered = [this](std::size_t box) { f12_.Serie.Betreten(box); };
    serial->onLostFocus = [this] { f12_.Serie_LostFocus(); };
    addList(f12_.List1, "F12.List1");
    addList(f12_.List2, "F12.List2");
    addList(f12_.List3, "F12.List3");
    addList(f12_.List4, "F12.List4");
    addList(f12_.List5, "F12.List5");
}

void F12Window::addList(ListBox& model, const char* name) {
    auto* list = new OverlayList(model, *grid_, QLatin1String(name));
    list->onChoose = [this](int) { f12_.Editor_KeyPress(Key::Enter); };
    list->onCancel = [this] { f12_.Editor_KeyPress(Key::Escape); };
    list->onLostFocus = [this] { f12_.Editor_LostFocus(); };
}

void F12Window::makeMenus() {
    const auto add = [](QMenu* menu, MenuEntry& entry, const char* name, std::function<void()> onClick) {
        addMenuEntry(menu, entry, QLatin1String(name), std::move(onClick));
    };
    rowMenu_ = new QMenu(this);
    rowMenu_->setObjectName(QStringLiteral("F12.F12_del"));
    add(rowMenu_, f12_.F12_delete, "F12.F12_delete", [this] { f12_.F12_delete_Click(); });
    serialMenu_ = new QMenu(this);
    serialMenu_->setObjectName(QStringLiteral("F12.FGK12_AN"));
    add(serialMenu_, f12_.SNA_save, "F12.SNA_save", [this] { f12_.SNA_save_Click(); });
    add(serialMenu_, f12_.SNA_Input, "F12.SNA_Input", [this] { f12_.SNA_Input_Click(); });
    add(serialMenu_, f12_.SNA_Function, "F12.SNA_Function", [this] { f12_.SNA_Function_Click(); });
    uniqueMnemonics(rowMenu_);
    uniqueMnemonics(serialMenu_);
    f12_.Menue_Zeigen = [this](F12Menu which) { popUp(which); };
}

void F12Window::popUp(F12Menu which) {
    popUpAtCell(*(which == F12Menu::F12_del ? rowMenu_ : serialMenu_), *grid_);
}

QLayout* F12Window::makeStatusLine() {
    auto* line = new StatusLine(this);
    line->addShort(f12_.Schlosszahl, QStringLiteral("F12.Schlosszahl"));
    line->addLong(f12_.Doppelt, QStringLiteral("F12.Doppelt"));
    line->addLong(f12_.Hinweis, QStringLiteral("F12.Hinweis"))->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return line;
}

} // namespace qvm::ui
