#include "F13Window.h"

#include "GridView.h"
#include "Text.h"
#include "Worttafel.h"

#include <QToolBar>
#include <QVBoxLayout>

namespace qvm::ui {
namespace {

constexpr int RowFontSize = 12;
constexpr int FrozenColumns = 2; ///< number and name

} // namespace

F13Window::F13Window(F13& f13, QWidget* parent)
    : WindowBase(f13.Fenster, QStringLiteral("F13"), Qt::Window, parent), f13_(f13) {
    QToolBar* bar = addToolBar();
    for (ToolButton& button : f13.Toolbar1) {
        addToolButton(button, bar, [this](std::string_view key) { f13_.Toolbar1_ButtonClick(key); });
    }
    makeGrid();
    const auto back = [this] { f13_.Toolbar1_ButtonClick(u8"Zurück"_w); };
    setMinimumSize(480, 320);
    grid_->setFocus();
    finish({.onClose = back, .onEscape = back});
}

F13Window::~F13Window() {
    f13_.Maus_Zelle = {};
}

void F13Window::setWords() {
    const std::string& language = f13_.kern.Config.Sprache;
    grid_->setAccessibleName(word(Word::Locks, language));
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
    model.setActionIcon(F13Column::Mark, QString());
    model.setAlignment(F13Column::Number, Qt::AlignRight | Qt::AlignVCenter);
    model.setAlignment(F13Column::Status, Qt::AlignCenter);
    grid_->setColumns({650, 3500, 2000, 0, 0, 0, 0, 0, 0, 1300, 1300, 1320, 1300, 0, 0, 600}, F13Column::Name);
    grid_->setFrozenColumns(FrozenColumns);
    grid_->onClick = [this](int row, int column) { f13_.FGK13_Click(row, column); };
    f13_.Maus_Zelle = [this](int& row, int& column) {
        if (!grid_->cellUnderMouse(row, column)) {
            row = column = -1;
        }
        return true;
    };
    content()->addWidget(grid_);
}

} // namespace qvm::ui
