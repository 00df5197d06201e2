#include "F60Window.h"

#include "ElidedLabel.h"
#include "GridMenu.h"
#include "GridView.h"
#include "KeyEdit.h"
#include "ListenTimeBox.h"
#include "Mnemonics.h"
#include "MonthView.h"
#include "StatusLine.h"
#include "TextEdge.h"
#include "TimeBox.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QToolBar>
#include <QVBoxLayout>

#include <string>

namespace qvm::ui {
namespace {

constexpr int LeastGridWidth = 430; // else the marks are out of sight
constexpr int LeastSideWidth = 300, LeastSideHeight = 150;

/// What stands beside the doors and above the keys: on a small screen it scrolls.
class SideRoom : public QScrollArea {
public:
    SideRoom(QLayout* contents, QWidget* parent) : QScrollArea(parent) {
        auto* side = new QWidget;
        side->setLayout(contents);
        contents->setContentsMargins(0, 0, 0, 0);
        setWidget(side);
        setWidgetResizable(true);
        setFrameShape(NoFrame);
        setFocusPolicy(Qt::NoFocus);
    }

    QSize sizeHint() const override { return widget()->sizeHint(); }
    QSize minimumSizeHint() const override { return {LeastSideWidth, LeastSideHeight}; }
};

QString ofF60(const char* control) {
    return QStringLiteral("F60.") + QLatin1String(control);
}

} // namespace

F60Window::F60Window(F60& model, QWidget* main)
    : WindowBase(model, QStringLiteral("F60"), Stand::InPlaceOfMain, main), f60_(model) {
    makeToolBar();
    content()->addWidget(newHeading(f60_.Label1, ofF60("Label1"), this));
    auto* body = new QHBoxLayout;
    body->setSpacing(16);
    body->addLayout(makeDoors(), 1);
    makeMenu();
    auto* side = new QVBoxLayout;
    side->addWidget(new SideRoom(makeSide(), this), 1);
    side->addLayout(makeKeys());
    body->addLayout(side);
    content()->addLayout(body, 1);
    content()->addLayout(makeStatusLine());
    setLeastSize(LeastGridWidth + LeastSideWidth, 400);
    setFirst(doors_);
    finish([this] { f60_.Schliessen(); });
}

F60Window::~F60Window() {
    f60_.Menue_Zeigen = {};
}

void F60Window::setWords() {
    doors_->setAccessibleName(toQt(f60_.Label1.Text()));
    for (MonthView* month : months_) {
        month->setLanguage(f60_.kern.Config.Sprache);
    }
    months_[0]->setCaption(toQt(f60_.Label6.Text()));
    months_[1]->setCaption(toQt(f60_.Label7.Text()));
    findChild<KeyEdit*>(ofF60("Text1"))->setAccessibleName(toQt(f60_.Label2.Text()));
    findChild<KeyEdit*>(ofF60("Text2"))->setAccessibleName(toQt(f60_.Label3.Text()));
    findChild<KeyEdit*>(ofF60("Text3"))->setAccessibleName(toQt(f60_.Command1.Text()));
    findChild<QComboBox*>(ofF60("List1"))->setAccessibleName(toQt(f60_.Label8.Text()));
    doors_->fitColumns();
}

void F60Window::makeToolBar() {
    QToolBar* bar = addToolBar();
    for (ToolButton& model : f60_.Toolbar1) {
        addToolButton(model, bar, [this](std::string_view key) { f60_.Toolbar1_ButtonClick(key); });
    }
}

QLayout* F60Window::makeDoors() {
    auto* text = new KeyEdit(f60_.Text3, ofF60("Text3"), this);
    text->onText = [this](const std::string& typed) { f60_.Text3_Change(typed); };
    text->onKey = [this](int key) { f60_.Text3_KeyPress(key); };
    auto* search = new QPushButton(this);
    bind(f60_.Command1, search, ofF60("Command1"), [this] { f60_.Command1_Click(); });
    auto* line = new QHBoxLayout;
    line->addWidget(text, 1);
    line->addWidget(search);
    doors_ = new GridView(f60_.FGK60, this);
    nameWidget(doors_, ofF60("FGK60"));
    doors_->gridModel().setAlignment(CardColumn::Number, Qt::AlignRight | Qt::AlignVCenter);
    doors_->gridModel().setAlignment(CardColumn::Mark, Qt::AlignCenter);
    doors_->gridModel().setTip(CardColumn::Mark, [this](int row) { return toQt(f60_.Tip(row, CardColumn::Mark)); });
    doors_->setColumns(columnWidths(f60_.FGK60, F60::Breite), CardColumn::Name);
    doors_->setMinimumWidth(LeastGridWidth);
    doors_->setBlocks(f60_.Auswahl);
    // A click on a mark goes on by one however soon it follows another: no double click takes it away.
    doors_->onMouseUp = [this](MouseButton button, int row, int column) {
        if (button == MouseButton::Left) {
            f60_.FGK60_Click(row, column);
        } else if (button == MouseButton::Right) {
            f60_.FGK60_Kontext(row, column);
        }
    };
    doors_->onMenuKey = [this] { f60_.FGK60_Kontext(f60_.FGK60.Row, f60_.FGK60.Column); };
    doors_->onKey = [this](int key) { f60_.FGK60_KeyPress(key); };
    doors_->onSpace = [this] { f60_.FGK60_KeyPress(' '); };
    auto* lines = new QVBoxLayout;
    lines->addLayout(line);
    lines->addWidget(doors_, 1);
    return lines;
}

void F60Window::makeMenu() {
    menu_ = new QMenu(this);
    menu_->setObjectName(ofF60("M_FGK60"));
    addUndoEntries(
        menu_, this, QStringLiteral("F60.F60"), f60_.Rueckgaengig, f60_.Wiederholen, [this] { f60_.Undo_Click(); },
        [this] { f60_.Redo_Click(); });
    uniqueMnemonics(menu_);
    f60_.Menue_Zeigen = [this] { popUpAtCell(*menu_, *doors_); };
}

QLayout* F60Window::makeSide() {
    auto* side = new QVBoxLayout;
    side->addWidget(makeTimes());
    side->addWidget(makeStay());
    side->addLayout(makeGroup());
    side->addStretch();
    return side;
}

QWidget* F60Window::makeTimes() {
    QGroupBox* group = captionedFrame(f60_.Frame1, ofF60("Frame1"), this);
    auto* row = new QHBoxLayout(group);
    addTimeBox(*row, group, {f60_.Label2, f60_.Text1, f60_.Label4}, {ofF60("Label2"), ofF60("Text1"), ofF60("Label4")},
               [this](int key) { f60_.Text1_KeyPress(key); });
    row->addSpacing(16);
    addTimeBox(*row, group, {f60_.Label3, f60_.Text2, f60_.Label5}, {ofF60("Label3"), ofF60("Text2"), ofF60("Label5")},
               [this](int key) { f60_.Text2_KeyPress(key); });
    row->addStretch();
    return group;
}

MonthView* F60Window::addMonth(QGridLayout* grid, QWidget* parent, int column) {
    const bool in = column == 0;
    auto* caption = new QLabel(parent);
    bind(in ? f60_.Label6 : f60_.Label7, caption, ofF60(in ? "Label6" : "Label7"));
    auto* day = new QLabel(parent);
    bind(in ? f60_.Label10 : f60_.Label11, day, ofF60(in ? "Label10" : "Label11"));
    auto* head = new QHBoxLayout;
    head->addWidget(caption);
    head->addWidget(day);
    head->addStretch();
    grid->addLayout(head, 0, column);
    auto* month = new MonthView(ofF60(in ? "MV1" : "MV2"), parent);
    month->setFirstDay({.Year = 2000, .Month = 1, .Day = 1});
    month->setLastDay({.Year = 2099, .Month = 12, .Day = 31});
    Observed<Datum>& shown = in ? f60_.CheckIn : f60_.CheckOut;
    watch<Datum>(shown, month, [month, &shown] { month->setDay(shown); });
    grid->addWidget(month, 1, column);
    return month;
}

QWidget* F60Window::makeStay() {
    QGroupBox* group = captionedFrame(f60_.Frame2, ofF60("Frame2"), this);
    auto* grid = new QGridLayout(group);
    months_[0] = addMonth(grid, group, 0);
    months_[1] = addMonth(grid, group, 1);
    auto* stay = new ElidedLabel(group);
    bind(f60_.Aufenthalt, stay, ofF60("Aufenthalt"));
    grid->addWidget(stay, 2, 0, 1, 2);
    return group;
}

QLayout* F60Window::makeGroup() {
    auto* caption = new QLabel(this);
    bind(f60_.Label8, caption, ofF60("Label8"));
    auto* groups = new QComboBox(this);
    bind(f60_.List1, groups, ofF60("List1"), [this](int index) { f60_.List1_Waehlen(index); });
    caption->setBuddy(groups);
    auto* next = new QPushButton(this);
    bind(f60_.Command3, next, ofF60("Command3"), [this] { f60_.Command3_Click(); });
    for (QWidget* widget :
         {static_cast<QWidget*>(caption), static_cast<QWidget*>(groups), static_cast<QWidget*>(next)}) {
        keepRoom(widget);
    }
    auto* row = new QHBoxLayout;
    row->addWidget(caption);
    row->addWidget(groups);
    row->addWidget(next);
    row->addStretch();
    return row;
}

QLayout* F60Window::makeKeys() {
    auto* busy = new QLabel(this);
    bind(f60_.Label12, busy, ofF60("Label12"));
    keepRoom(busy);
    auto* read = new QPushButton(this);
    bind(f60_.Command4, read, ofF60("Command4"), [this] { f60_.Command4_Click(); });
    auto* write = new QPushButton(this);
    bind(f60_.Command2, write, ofF60("Command2"), [this] { f60_.Command2_Click(); });
    // A day that was picked is what is written next.
    months_[0]->onPick = [this, write](const Datum& day) {
        f60_.MV1_Waehlen(day);
        write->setFocus();
    };
    months_[1]->onPick = [this, write](const Datum& day) {
        f60_.MV2_Waehlen(day);
        write->setFocus();
    };
    auto* row = new QHBoxLayout;
    row->addWidget(busy, 1);
    row->addWidget(read);
    row->addWidget(write);
    return row;
}

QLayout* F60Window::makeStatusLine() {
    auto* line = new StatusLine(this);
    line->addShort(f60_.Markiert, ofF60("Markiert"));
    line->addLong(f60_.Mangel, ofF60("Mangel"));
    line->addShort(f60_.Hinweis, ofF60("Hinweis"));
    return line;
}

} // namespace qvm::ui
