#include "HolidayWindow.h"

#include "ElidedLabel.h"
#include "GridMenu.h"
#include "GridView.h"
#include "Mnemonics.h"
#include "OverlayList.h"
#include "OverlayMonth.h"
#include "StatusLine.h"
#include "TextEdge.h"
#include "Theme.h"
#include "YearStrip.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <functional>
#include <string>
#include <utility>

namespace qvm::ui {
namespace {

QString calendarWindowName(const HolidayCalendar& calendar) {
    return toQt(std::string(calendar.Traits.Window));
}

} // namespace

HolidayWindow::HolidayWindow(HolidayCalendar& calendar, QWidget* main)
    : WindowBase(calendar, calendarWindowName(calendar), Stand::InPlaceOfMain, main), calendar_(calendar),
      name_(calendarWindowName(calendar)) {
    makeToolBar();
    content()->addWidget(newHeading(calendar_.Label1, named("Label1"), this));
    makeGrid();
    makeEditors();
    makeMenu();
    content()->addWidget(grid_, 1);
    content()->addLayout(makeYear());
    content()->addLayout(makeStatusLine());
    setLeastSize(560, 430);
    setFirst(grid_);
    finish([this] { calendar_.Schliessen(); });
}

HolidayWindow::~HolidayWindow() {
    calendar_.Menue_Zeigen = {};
    calendar_.Tage_Geaendert = {};
}

QString HolidayWindow::named(const char* control) const {
    return name_ + QLatin1Char('.') + QLatin1String(control);
}

QString HolidayWindow::numbered(const char* control) const {
    return named(control) + name_.mid(1);
}

void HolidayWindow::setWords() {
    grid_->setAccessibleName(toQt(calendar_.Label1.Text()));
    strip_->setAccessibleName(toQt(calendar_.Label1.Text()));
    month_->setLanguage(calendar_.kern.Config.Sprache);
    grid_->fitColumns();
}

void HolidayWindow::makeToolBar() {
    QToolBar* bar = addToolBar();
    for (ToolButton& model : calendar_.Toolbar1) {
        addToolButton(model, bar, [this](std::string_view key) { calendar_.Toolbar1_ButtonClick(key); });
    }
}

void HolidayWindow::makeGrid() {
    grid_ = new GridView(calendar_.FGK, this);
    nameWidget(grid_, numbered("FGK"));
    grid_->gridModel().setAlignment(CalendarColumn::Number, Qt::AlignRight | Qt::AlignVCenter);
    grid_->gridModel().setTip(CalendarColumn::Kind,
                              [this](int row) { return toQt(calendar_.Tip(row, CalendarColumn::Kind)); });
    grid_->setColumns(columnWidths(calendar_.FGK, HolidayCalendar::Breite), CalendarColumn::Kind);
    grid_->setBlocks(calendar_.Auswahl);
    grid_->onKey = [this](int key) { calendar_.FGK_KeyPress(key); };
    grid_->onMenuKey = [this] { calendar_.FGK_Kontext(); };
    grid_->onDoubleClick = [this](int row, int column) { calendar_.FGK_DblClick(row, column); };
    grid_->onMouseUp = [this](MouseButton button, int row, int column) { calendar_.FGK_MouseUp(button, row, column); };
    grid_->mayWrite = [this](int row, int column) { return calendar_.FGK_Beschreibbar(row, column); };
    grid_->onWrite = [this](int row, int column, const std::string& text) {
        calendar_.FGK_Eintragen(row, column, text);
    };
}

void HolidayWindow::makeEditors() {
    month_ = new OverlayMonth(calendar_.MV.Visible, *grid_, numbered("MV"));
    month_->dayOf = [this] { return calendar_.MV.Day; };
    month_->entriesOf = [this](const Datum& day) { return calendar_.Eintraege(day); };
    month_->noteOf = [this](const Datum& day) { return calendar_.Tagestext(day); };
    month_->onPick = [this](const Datum& day) { calendar_.MV_Waehlen(day); };
    month_->onCancel = [this] { calendar_.Editor_Schliessen(); };
    // List1 and List10.
    auto* list = new OverlayList(calendar_.List, *grid_,
                                 named(calendar_.Traits.Block == KalenderBlock::Einzel ? "List1" : "List10"));
    list->onChoose = [this](int entry) { calendar_.List_Waehlen(entry); };
    list->onCancel = [this] { calendar_.Editor_Schliessen(); };
}

void HolidayWindow::makeMenu() {
    menu_ = new QMenu(this);
    menu_->setObjectName(numbered("M_FGK"));
    addMenuEntry(menu_, calendar_.Loeschen, named("") + name_ + QStringLiteral("_Loeschen"),
                 [this] { calendar_.Loeschen_Click(); });
    menu_->addSeparator();
    QAction* undo = addMenuEntry(menu_, calendar_.Rueckgaengig, named("Undo"), [this] { calendar_.Undo_Click(); });
    QAction* redo = addMenuEntry(menu_, calendar_.Wiederholen, named("Redo"), [this] { calendar_.Redo_Click(); });
    undo->setShortcut(Qt::CTRL | Qt::Key_Z);
    redo->setShortcut(Qt::CTRL | Qt::Key_Y);
    addActions({undo, redo}); // the menu is not part of a bar, which would tell the window of their keys
    uniqueMnemonics(menu_);
    calendar_.Menue_Zeigen = [this] { popUpAtCell(*menu_, *grid_); };
}

QLayout* HolidayWindow::makeYear() {
    const auto step = [this](Button& model, const char* name, const char* icon, std::function<void()> onClick) {
        auto* button = new QToolButton(this);
        ui::bind(model, button, named(name), std::move(onClick));
        button->setToolButtonStyle(Qt::ToolButtonIconOnly);
        button->setIcon(ownIcon(QLatin1String(icon), QPalette::ButtonText));
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::StrongFocus);
        pressByReturn(button);
        return button;
    };
    auto* head = new QHBoxLayout;
    head->addWidget(
        step(calendar_.FrueheresJahr, "FrueheresJahr", "previous", [this] { calendar_.FrueheresJahr_Click(); }));
    auto* year = new QLabel(this);
    bind(calendar_.Jahreszahl, year, named("Jahreszahl"));
    head->addWidget(year);
    head->addWidget(
        step(calendar_.SpaeteresJahr, "SpaeteresJahr", "next", [this] { calendar_.SpaeteresJahr_Click(); }));
    auto* days = new ElidedLabel(this);
    bind(calendar_.Jahrestage, days, named("Jahrestage"));
    head->addWidget(days, 1);
    strip_ = new YearStrip(calendar_, this);
    nameWidget(strip_, named("Jahr"));
    calendar_.Tage_Geaendert = [this] {
        strip_->setAccessibleDescription(toQt(calendar_.Jahreszahl.Text() + ": " + calendar_.Jahrestage.Text()));
        strip_->update();
    };
    auto* lines = new QVBoxLayout;
    lines->setSpacing(2);
    lines->addLayout(head);
    lines->addWidget(strip_);
    return lines;
}

QLayout* HolidayWindow::makeStatusLine() {
    auto* line = new StatusLine(this);
    line->addShort(calendar_.Belegung, named("Belegung"));
    line->addLong(calendar_.Mangel, named("Mangel"));
    line->addShort(calendar_.Hinweis, named("Hinweis"));
    return line;
}

} // namespace qvm::ui
