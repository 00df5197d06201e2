#include "F42Window.h"

#include "GridMenu.h"
#include "GridView.h"
#include "KeyEdit.h"
#include "ListenTimeBox.h"
#include "Mnemonics.h"
#include "OverlayEditor.h"
#include "OverlayList.h"
#include "StatusLine.h"
#include "TextEdge.h"
#include "TimeBox.h"
#include "WeekPicture.h"

#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QToolBar>
#include <QVBoxLayout>

#include <string>

namespace qvm::ui {
namespace {

/// All rows of a small grid stay in sight.
int wholeHeight(const GridView& grid) {
    return grid.horizontalHeader()->sizeHint().height() + grid.verticalHeader()->length() + 2 * grid.frameWidth();
}

} // namespace

F42Window::F42Window(F42& f42, QWidget* main)
    : WindowBase(f42, QStringLiteral("F42"), Stand::InPlaceOfMain, main), f42_(f42) {
    makeToolBar();
    content()->addWidget(newHeading(f42_.Label1, QStringLiteral("F42.Label1"), this));
    content()->addWidget(makeTimes());
    makeOffsets();
    makeEditors();
    makeMenu();
    // Side by side, as a small screen is wide rather than high.
    auto* left = new QVBoxLayout;
    left->addWidget(offsets_);

    auto* both = new QHBoxLayout;
    both->addLayout(left, 3);
    both->addWidget(makeSlots(), 4);
    week_ = new WeekPicture(f42_.Woche, QStringLiteral("F42.Woche"), this);
    week_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored); // on a small screen it gives way
    left->addWidget(week_, 1);
    setTabOrder(findChild<QComboBox*>(QStringLiteral("F42.Combo1")), week_);
    setTabOrder(week_, slots_);
    content()->addLayout(both, 1);
    content()->addLayout(makeStatusLine());
    setLeastSize(820, 380);
    setFirst(offsets_);
    finish([this] { f42_.F42_Schliessen(); });
}

F42Window::~F42Window() {
    f42_.Menue_Zeigen = {};
}

void F42Window::setWords() {
    offsets_->setAccessibleName(toQt(f42_.Label1.Text()));
    slots_->setAccessibleName(toQt(f42_.Label7.Text()));
    findChild<QComboBox*>(QStringLiteral("F42.Combo1"))->setAccessibleName(toQt(f42_.Label6.Text()));
    findChild<KeyEdit*>(QStringLiteral("F42.Text1"))->setAccessibleName(toQt(f42_.Label2.Text()));
    findChild<KeyEdit*>(QStringLiteral("F42.Text2"))->setAccessibleName(toQt(f42_.Label3.Text()));
    week_->setAccessibleName(toQt(Wort(f42_.kern, Word::WeekPicture)));
    offsets_->fitColumns();
    slots_->fitColumns();
}

void F42Window::makeToolBar() {
    QToolBar* bar = addToolBar();
    for (ToolButton& model : f42_.Toolbar1) {
        addToolButton(model, bar, [this](std::string_view key) { f42_.Toolbar1_ButtonClick(key); });
    }
}

QWidget* F42Window::makeTimes() {
    QGroupBox* group = captionedFrame(f42_.Frame1, QStringLiteral("F42.Frame1"), this);
    auto* row = new QHBoxLayout(group);
    const auto name = [](const char* control) { return QStringLiteral("F42.") + QLatin1String(control); };
    addTimeBox(*row, group, {f42_.Label2, f42_.Text1, f42_.Label4}, {name("Label2"), name("Text1"), name("Label4")},
               [this](int key) { f42_.Text1_KeyPress(key); });
    row->addSpacing(24);
    addTimeBox(*row, group, {f42_.Label3, f42_.Text2, f42_.Label5}, {name("Label3"), name("Text2"), name("Label5")},
               [this](int key) { f42_.Text2_KeyPress(key); });
    row->addStretch();
    return group;
}

void F42Window::makeOffsets() {
    offsets_ = new GridView(f42_.FGK42, this);
    nameWidget(offsets_, QStringLiteral("F42.FGK42"));
    offsets_->gridModel().setAlignment(OffsetColumn::Number, Qt::AlignRight | Qt::AlignVCenter);
    offsets_->setColumns(columnWidths(f42_.FGK42, F42::Breite), OffsetColumn::Name);
    offsets_->setFixedHeight(wholeHeight(*offsets_));
    offsets_->setBlocks(f42_.Auswahl);
    offsets_->onKey = [this](int key) { f42_.FGK42_KeyPress(key); };
    offsets_->takesAnyText = [](int column) { return column == OffsetColumn::Name; };
    offsets_->onMenuKey = [this] { f42_.FGK42_Kontext(); };
    offsets_->onDoubleClick = [this](int row, int column) { f42_.FGK42_DblClick(row, column); };
    offsets_->onMouseUp = [this](MouseButton button, int row, int column) { f42_.FGK42_MouseUp(button, row, column); };
    offsets_->mayWrite = [this](int row, int column) { return f42_.FGK42_Beschreibbar(row, column); };
    offsets_->onWrite = [this](int row, int column, const std::string& text) {
        f42_.FGK42_Eintragen(row, column, text);
    };
}

void F42Window::makeEditors() {
    auto* name = new OverlayEditor(f42_.Text4, *offsets_, QStringLiteral("F42.Text4"));
    name->onText = [this](const std::string& text) { f42_.Text4_Change(text); };
    name->onKey = [this](int key) { f42_.Text4_KeyPress(key); };
    name->onLostFocus = [this] { f42_.Editor_LostFocus(); };
    auto* time = new OverlayEditor(f42_.Text3, *offsets_, QStringLiteral("F42.Text3"));
    time->onKey = [this](int key) { f42_.Text3_KeyPress(key); };
    time->holdsTime = true;
    time->onLostFocus = [this] { f42_.Editor_LostFocus(); };
    auto* bases = new OverlayList(f42_.List1, *offsets_, QStringLiteral("F42.List1"));
    bases->onChoose = [this](int entry) { f42_.List1_Waehlen(entry); };
    bases->onCancel = [this] { f42_.List1_Abbrechen(); };
}

void F42Window::makeMenu() {
    menu_ = new QMenu(this);
    menu_->setObjectName(QStringLiteral("F42.M_FGK42"));
    addMenuEntry(menu_, f42_.F42Loeschen, QStringLiteral("F42.F42Loeschen"), [this] { f42_.F42Loeschen_Click(); });
    addUndoEntries(
        menu_, this, QStringLiteral("F42.F42"), f42_.Rueckgaengig, f42_.Wiederholen, [this] { f42_.Undo_Click(); },
        [this] { f42_.Redo_Click(); });
    uniqueMnemonics(menu_);
    f42_.Menue_Zeigen = [this] { popUpAtCell(*menu_, *offsets_); };
}

QWidget* F42Window::makeSlots() {
    QGroupBox* group = captionedFrame(f42_.Frame2, QStringLiteral("F42.Frame2"), this);
    auto* caption = new QLabel(group);
    bind(f42_.Label6, caption, QStringLiteral("F42.Label6"));
    auto* mode = new QComboBox(group);
    bind(f42_.Combo1, mode, QStringLiteral("F42.Combo1"), [this](int entry) { f42_.Combo1_Click(entry); });
    caption->setBuddy(mode);
    auto* head = new QHBoxLayout;
    head->addWidget(caption);
    head->addWidget(mode);
    head->addStretch();
    auto* title = new QLabel(group);
    bind(f42_.Label7, title, QStringLiteral("F42.Label7"));
    slots_ = new GridView(f42_.FGK42B, group);
    nameWidget(slots_, QStringLiteral("F42.FGK42B"));
    slots_->gridModel().setAlignment(GuestSlotColumn::Number, Qt::AlignRight | Qt::AlignVCenter);
    slots_->gridModel().setAlignment(GuestSlotColumn::Selection, Qt::AlignCenter);
    slots_->setColumns(columnWidths(f42_.FGK42B, F42::BreiteB), GuestSlotColumn::Day);
    // A click counts however soon it follows another: no double click takes it away.
    slots_->onMouseUp = [this](MouseButton button, int row, int column) {
        if (button == MouseButton::Left) {
            f42_.FGK42B_Click(row, column);
        }
    };
    slots_->onSpace = [this] { f42_.FGK42B_Click(f42_.FGK42B.Row, f42_.FGK42B.Column); };
    slots_->onKey = [this](int key) {
        if (key == Key::Enter) {
            f42_.FGK42B_Click(f42_.FGK42B.Row, f42_.FGK42B.Column);
        }
    };
    auto* lines = new QVBoxLayout(group);
    lines->addLayout(head);
    lines->addWidget(title);
    lines->addWidget(slots_, 1);
    return group;
}

QLayout* F42Window::makeStatusLine() {
    auto* line = new StatusLine(this);
    line->addLong(f42_.Mangel, QStringLiteral("F42.Mangel"));
    line->addShort(f42_.Hinweis, QStringLiteral("F42.Hinweis"));
    return line;
}

} // namespace qvm::ui
