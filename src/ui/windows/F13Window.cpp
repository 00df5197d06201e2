#include "F13Window.h"

#include "ElidedLabel.h"
#include "GridFilterBar.h"
#include "GridView.h"
#include "Pictures.h"
#include "Text.h"
#include "TextEdge.h"
#include "Worttafel.h"

#include <QPushButton>
#include <QShortcut>
#include <QToolBar>
#include <QVBoxLayout>

namespace qvm::ui {
namespace {

constexpr int RowFontSize = 12;
constexpr int FrozenColumns = 2; ///< number and name

QKeySequence repeatKey() {
    return {Qt::CTRL | Qt::Key_R};
}

} // namespace

F13Window::F13Window(F13& f13, QWidget* main)
    : WindowBase(f13, QStringLiteral("F13"), Stand::InPlaceOfMain, main), f13_(f13) {
    QToolBar* bar = addToolBar();
    for (ToolButton& button : f13.Toolbar1) {
        addToolButton(button, bar, [this](std::string_view key) { f13_.Toolbar1_ButtonClick(key); });
    }
    makeFilterBar();
    makeGrid();
    setLeastSize(480, 320);
    grid_->setFocus();
    finish([this] { f13_.Toolbar1_ButtonClick(u8"Zurück"_w); });
}

F13Window::~F13Window() {
    f13_.Maus_Zelle = {};
}

void F13Window::setWords() {
    const std::string& language = f13_.kern.Config.Sprache;
    grid_->setAccessibleName(word(Word::Locks, language));
    bar_->setWords(word(Word::FilterLocks, language), language);
    again_->setToolTip(word(Word::MarkUnfinishedTip, language).arg(repeatKey().toString(QKeySequence::NativeText)));
    GridModel& model = grid_->gridModel();
    model.setPictureText(F13Column::Status, ChannelPicture::Image7, word(Word::ChannelPending, language));
    model.setPictureText(F13Column::Status, ChannelPicture::Image8, word(Word::ChannelSettled, language));
}

void F13Window::makeGrid() {
    grid_ = new GridView(f13_.FGK13, this);
    nameWidget(grid_, QStringLiteral("F13.FGK13"));
    GridModel& model = grid_->gridModel();
    model.setBaseFontSize(RowFontSize);
    model.setPictures(PictureSet::Channel);
    model.setActionIcon(F13Column::Program, QStringLiteral("program"));
    model.setActionIcon(F13Column::History, QStringLiteral("history"));
    model.setActionIcon(F13Column::Code, QStringLiteral("code"));
    model.setCheckColumn(F13Column::Mark);
    model.setAlignment(F13Column::Number, Qt::AlignRight | Qt::AlignVCenter);
    model.setAlignment(F13Column::Status, Qt::AlignCenter);
    grid_->setColumns({650, 3500, 2000, 0, 0, 0, 0, 0, 0, 1300, 1300, 1320, 1300, 0, 0, 600});
    grid_->setFrozenColumns(FrozenColumns);
    grid_->setBlocks(f13_.Auswahl);
    grid_->setFilter(f13_.Filter);
    grid_->onClick = [this](int row, int column) { f13_.FGK13_Click(row, column); };
    grid_->onKey = [this](int key) { f13_.FGK13_KeyPress(key); };
    grid_->onSpace = [this] { f13_.Auswahl_Markieren(); };
    f13_.Maus_Zelle = [this](int& row, int& column) {
        if (!grid_->cellUnderMouse(row, column)) {
            row = column = -1;
        }
        return true;
    };
    bar_->leadTo(grid_);
    content()->addWidget(grid_, 1);
}

void F13Window::makeFilterBar() {
    bar_ = new GridFilterBar(f13_.Filter, QStringLiteral("F13.FGK13"), this);
    auto* marks = new ElidedLabel(this);
    marks->setObjectName(QStringLiteral("F13.Markenzahl"));
    marks->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    watch(f13_.Markenzahl.Text, marks, [this, marks] { marks->setFullText(toQt(f13_.Markenzahl.Text())); });
    again_ = new QPushButton(this);
    bind(f13_.Command1, again_, QStringLiteral("F13.Command1"), [this] { f13_.Command1_Click(); });
    // The button's own shortcut goes whenever its text changes.
    auto* shortcut = new QShortcut(repeatKey(), this);
    connect(shortcut, &QShortcut::activated, again_, [this] {
        if (again_->isVisible()) {
            again_->click();
        }
    });
    bar_->addWidget(marks, 1);
    bar_->addWidget(again_);
    content()->addWidget(bar_);
}

} // namespace qvm::ui
