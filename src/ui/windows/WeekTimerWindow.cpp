#include "WeekTimerWindow.h"

#include "GridMenu.h"
#include "GridView.h"
#include "Mnemonics.h"
#include "OverlayChecks.h"
#include "OverlayEditor.h"
#include "OverlayList.h"
#include "StatusLine.h"
#include "TextEdge.h"
#include "WeekPicture.h"

#include <QAction>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QToolBar>
#include <QVBoxLayout>

namespace qvm::ui {
namespace {

/// From this row below the top one on, a list opens upwards.
constexpr int UpwardsFrom = 9;
constexpr int LeastInfoRows = 2; ///< on a small screen

bool farDown(const GridView& grid) {
    return grid.grid().Row - grid.topRow() >= UpwardsFrom;
}

/// Room for the heading and so many rows.
int heightOfRows(const GridView& grid, int rows) {
    return grid.horizontalHeader()->sizeHint().height() + rows * grid.verticalHeader()->defaultSectionSize() +
           2 * grid.frameWidth();
}

} // namespace

WeekTimerWindow::WeekTimerWindow(WeekTimer& timer, QWidget* main)
    : WindowBase(timer, toQt(std::string(timer.Traits.Window)), Stand::InPlaceOfMain, main), timer_(timer) {
    makeToolBar();
    auto* grids = new QHBoxLayout;
    grids->setSpacing(18);
    grids->addLayout(makeSlots(), 1);
    grids->addLayout(makeGroups(), 1);
    content()->addLayout(grids); // both parts begin with the room that they ask for, and share what is left
    makeSlotEditors();
    makeGroupEditors();
    makeMenus();
    content()->addLayout(makeInfo());
    content()->addLayout(makeStatusLine());
    timer_.Maus = [this] { return groups_->pointer(); };
    timer_.Tastatur_Da = [this] { return groups_->hasFocus() || info_->hasFocus() || week_->hasFocus(); };
    setLeastSize(860, 430);
    setFirst(slots_);
    finish({.onClose = [this] { timer_.Verbergen(); }, .onEscape = [this] { timer_.Schliessen(); }});
}

WeekTimerWindow::~WeekTimerWindow() {
    timer_.Menue_Zeigen = {};
    timer_.Maus = {};
    timer_.Tastatur_Da = {};
}

QString WeekTimerWindow::named(std::string_view control) const {
    return toQt(std::string(timer_.Traits.Window) + "." + std::string(control));
}

void WeekTimerWindow::setWords() {
    slots_->setAccessibleName(toQt(timer_.Label1.Text()));
    groups_->setAccessibleName(toQt(timer_.Label3.Text()));
    info_->setAccessibleName(toQt(timer_.Label1.Text()));
    week_->setAccessibleName(toQt(Wort(timer_.kern, Word::WeekPicture)));
    chosen_->setToolTip(toQt(Wort(timer_.kern, Word::SlotListHelp)));
    for (GridView* grid : {slots_, groups_, info_}) {
        grid->fitColumns();
    }
}

void WeekTimerWindow::makeToolBar() {
    QToolBar* bar = addToolBar();
    for (ToolButton& model : timer_.Toolbar1) {
        addToolButton(model, bar, [this](std::string_view key) { timer_.Toolbar1_ButtonClick(key); });
    }
}

QLayout* WeekTimerWindow::makeSlots() {
    auto* column = new QVBoxLayout;
    column->addWidget(newHeading(timer_.Label1, named("Label1"), this));
    slots_ = new GridView(timer_.FGK1, this);
    nameWidget(slots_, named("FGK1"));
    slots_->gridModel().setAlignment(SlotColumn::Number, Qt::AlignRight | Qt::AlignVCenter);
    slots_->setColumns(columnWidths(timer_.FGK1, WeekTimer::SlotBreite), SlotColumn::Day);
    slots_->setBlocks(timer_.SlotAuswahl);
    slots_->onKey = [this](int key) { timer_.FGK1_KeyPress(key); };
    slots_->onMenuKey = [this] { timer_.FGK1_Kontext(); };
    slots_->onDoubleClick = [this](int row, int cell) { timer_.FGK1_DblClick(row, cell); };
    slots_->onMouseUp = [this](MouseButton button, int row, int cell) { timer_.FGK1_MouseUp(button, row, cell); };
    slots_->mayWrite = [this](int row, int cell) { return timer_.FGK1_Beschreibbar(row, cell); };
    slots_->onWrite = [this](int row, int cell, const std::string& text) { timer_.FGK1_Eintragen(row, cell, text); };
    column->addWidget(slots_, 1);
    return column;
}

QLayout* WeekTimerWindow::makeGroups() {
    auto* column = new QVBoxLayout;
    column->addWidget(newHeading(timer_.Label3, named("Label3"), this));
    groups_ = new GridView(timer_.FGK3, this);
    nameWidget(groups_, named("FGK3"));
    groups_->gridModel().setAlignment(GroupColumn::Number, Qt::AlignRight | Qt::AlignVCenter);
    groups_->gridModel().setAlignment(GroupColumn::SlotCount, Qt::AlignCenter);
    groups_->setColumns(columnWidths(timer_.FGK3, WeekTimer::GruppenBreite), GroupColumn::Name);
    groups_->setBlocks(timer_.GruppenAuswahl);
    groups_->onKey = [this](int key) { timer_.FGK3_KeyPress(key); };
    groups_->takesAnyText = [](int cell) { return cell == GroupColumn::Name; };
    groups_->onMenuKey = [this] { timer_.FGK3_Kontext(); };
    groups_->onDoubleClick = [this](int row, int cell) { timer_.FGK3_DblClick(row, cell); };
    groups_->onMouseUp = [this](MouseButton button, int row, int cell) { timer_.FGK3_MouseUp(button, row, cell); };
    groups_->mayWrite = [this](int row, int cell) { return timer_.FGK3_Beschreibbar(row, cell); };
    groups_->onWrite = [this](int row, int cell, const std::string& text) { timer_.FGK3_Eintragen(row, cell, text); };
    column->addWidget(groups_, 1);
    return column;
}

void WeekTimerWindow::makeSlotEditors() {
    auto* days = new OverlayList(timer_.List1, *slots_, named("List1"));
    days->above = [this] { return farDown(*slots_); };
    days->onChoose = [this](int entry) { timer_.List1_Waehlen(entry); };
    days->onCancel = [this] { timer_.Listen_Schliessen(); };
    auto* time = new OverlayEditor(timer_.Text1, *slots_, named("Text1"));
    time->holdsTime = true;
    time->onKey = [this](int key) { timer_.Text1_KeyPress(key); };
    time->onLostFocus = [this] { timer_.Text1_Uebernehmen(); };
}

void WeekTimerWindow::makeGroupEditors() {
    auto* name = new OverlayEditor(timer_.Text2, *groups_, named("Text2"));
    name->onText = [this](const std::string& text) { timer_.Text2_Change(text); };
    name->onKey = [this](int key) { timer_.Text2_KeyPress(key); };
    name->onLostFocus = [this] { timer_.Text2_Uebernehmen(); };
    chosen_ = new OverlayChecks(timer_.List2, *groups_, named("List2"));
    chosen_->above = [this] { return farDown(*groups_); };
    chosen_->onCheck = [this](int entry, bool checked) { timer_.List2_Schalten(entry, checked); };
    chosen_->onAccept = [this] { timer_.List2_Uebernehmen(); };
    chosen_->onCancel = [this] { timer_.Listen_Schliessen(); };
}

/// Keeps its room while it is hidden. The heading of the name stands over both.
QLayout* WeekTimerWindow::makeInfo() {
    auto* lines = new QVBoxLayout;
    auto* name = new QLabel(this);
    bind(timer_.Info.Name, name, named("Label2"));
    QFont face = name->font();
    face.setBold(true);
    name->setFont(face);
    keepRoom(name);
    lines->addWidget(name);
    auto* line = new QHBoxLayout;
    line->setSpacing(18);
    info_ = new GridView(timer_.Info.FGK3i, this);
    nameWidget(info_, named("FGK3i"));
    info_->gridModel().setAlignment(SlotColumn::Number, Qt::AlignRight | Qt::AlignVCenter);
    info_->setColumns(columnWidths(timer_.FGK1, WeekTimer::SlotBreite), SlotColumn::Day);
    info_->setMinimumHeight(heightOfRows(*info_, LeastInfoRows));
    info_->setMaximumHeight(heightOfRows(*info_, timer_.Traits.InfoRows));
    keepRoom(info_);
    line->addWidget(info_, 1);
    week_ = new WeekPicture(timer_.Woche, named("Woche"), this);
    keepRoom(week_);
    line->addWidget(week_, 1);
    lines->addLayout(line);
    return lines;
}

void WeekTimerWindow::makeMenus() {
    slotMenu_ = new QMenu(this);
    slotMenu_->setObjectName(named("FGK1_Menue"));
    QAction* undo = addMenuEntry(slotMenu_, timer_.Rueckgaengig, named("Undo"), [this] { timer_.Undo_Click(); });
    QAction* redo = addMenuEntry(slotMenu_, timer_.Wiederholen, named("Redo"), [this] { timer_.Redo_Click(); });
    undo->setShortcut(Qt::CTRL | Qt::Key_Z);
    redo->setShortcut(Qt::CTRL | Qt::Key_Y);
    addActions({undo, redo}); // the menu is not part of a bar, which would tell the window of their keys
    groupMenu_ = new QMenu(this);
    groupMenu_->setObjectName(named(timer_.Traits.Menu));
    addMenuEntry(groupMenu_, timer_.Loeschen, named(timer_.Traits.DeleteEntry), [this] { timer_.Loeschen_Click(); });
    groupMenu_->addSeparator();
    groupMenu_->addActions({undo, redo});
    uniqueMnemonics(slotMenu_);
    uniqueMnemonics(groupMenu_);
    timer_.Menue_Zeigen = [this](WeekTimer::Menu which) {
        which == WeekTimer::Menu::Slots ? popUpAtCell(*slotMenu_, *slots_) : popUpAtCell(*groupMenu_, *groups_);
    };
}

QLayout* WeekTimerWindow::makeStatusLine() {
    auto* line = new StatusLine(this);
    line->addShort(timer_.Belegung, named("Belegung"));
    line->addLong(timer_.Verwendung, named("Verwendung"));
    line->addShort(timer_.Hinweis, named("Hinweis"));
    return line;
}

} // namespace qvm::ui
