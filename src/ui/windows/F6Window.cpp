#include "F6Window.h"

#include "GridView.h"
#include "OverlayEditor.h"
#include "Pictures.h"
#include "TextEdge.h"
#include "Theme.h"
#include "Worttafel.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace qvm::ui {
namespace {

constexpr int MinimumWidth = 640, MinimumHeight = 420, FirstWidth = 720, FirstHeight = 520;

} // namespace

F6Window::F6Window(F6& model, QWidget* main)
    : WindowBase(model, QStringLiteral("F6"), Stand::OverMain, main), f6_(model) {
    makeToolBar();
    auto* check = new QCheckBox(this);
    bind(f6_.Check1, check, QStringLiteral("F6.Check1"), [this](bool on) {
        f6_.Check1_Click(on);
        setWords();
    });
    content()->addWidget(check);
    content()->addLayout(makePortRow());
    makeGrid();
    content()->addWidget(grid_, 1);
    content()->addStretch();
    content()->addLayout(makeBottomRow());
    setLeastSize(MinimumWidth, MinimumHeight);
    resize(FirstWidth, FirstHeight);
    finish([this] { pressKey(f6_.Toolbar1[0].Key); });
}

void F6Window::makeToolBar() {
    QToolBar* bar = addToolBar();
    for (ToolButton& button : f6_.Toolbar1) {
        addToolButton(button, bar, [this](std::string_view key) { pressKey(key); });
    }
}

void F6Window::pressKey(std::string_view key) {
    // A click on the tool bar leaves the focus in the editor: what stands there counts all the same.
    if (f6_.Text3.Visible) {
        f6_.Text3_LostFocus();
    }
    f6_.Toolbar1_ButtonClick(key);
}

QLayout* F6Window::makePortRow() {
    caption_ = new QLabel(this);
    ports_ = new QComboBox(this);
    bind(f6_.Combo1, ports_, QStringLiteral("F6.Combo1"), [this](int index) { f6_.Combo1_Click(index); });
    ports_->setMaxVisibleItems(16);
    auto* row = new QHBoxLayout;
    row->addWidget(caption_);
    row->addWidget(ports_);
    row->addStretch();
    return row;
}

void F6Window::makeGrid() {
    grid_ = new GridView(f6_.FGK6, this);
    nameWidget(grid_, QStringLiteral("F6.FGK6"));
    grid_->gridModel().setPictures(PictureSet::Adapter);
    grid_->gridModel().setAlignment(F6Column::Number, Qt::AlignRight | Qt::AlignVCenter);
    grid_->gridModel().setAlignment(F6Column::State, Qt::AlignCenter);
    grid_->gridModel().setTip(F6Column::State, [this](int row) {
        const bool unusable = f6_.FGK6.At(row, F6Column::State).Picture == AdapterPicture::Unusable;
        return unusable ? word(Word::AdapterUnusableTip, f6_.kern.Config.Sprache) : QString();
    });
    grid_->setColumns({800, 2500, 3500, 1500, 2800}, F6Column::Name);
    grid_->onClick = [this](int row, int column) { f6_.FGK6_Click(row, column); };
    grid_->onKey = [this](int key) { f6_.FGK6_KeyPress(key); };
    grid_->takesAnyText = [](int column) { return column == F6Column::Name; };
    editor_ = new OverlayEditor(f6_.Text3, *grid_, QStringLiteral("F6.Text3"));
    editor_->onKey = [this](int key) { f6_.Text3_KeyPress(key); };
    editor_->onText = [this](const std::string& text) { f6_.Text3_Change(text); };
    editor_->onLostFocus = [this] { f6_.Text3_LostFocus(); };
}

QLayout* F6Window::makeBottomRow() {
    auto* search = new QPushButton(this);
    bind(f6_.Command1, search, QStringLiteral("F6.Command1"), [this] {
        f6_.Command1_Click();
        grid_->fitColumns();
    });
    search->setIcon(ownIcon(QStringLiteral("search")));
    devices_ = new QToolButton(this);
    auto* action = new QAction(devices_);
    bind(f6_.F6_MSGM, action, QStringLiteral("F6.F6_MSGM.Action"), [this] { f6_.F6_MSGM_Click(); });
    nameWidget(devices_, QStringLiteral("F6.F6_MSGM"));
    devices_->setDefaultAction(action);
    devices_->setToolButtonStyle(Qt::ToolButtonTextOnly);
    devices_->setFocusPolicy(Qt::TabFocus);
    auto* row = new QHBoxLayout;
    row->addWidget(search);
    row->addStretch();
    row->addWidget(devices_);
    return row;
}

void F6Window::setWords() {
    const std::string& language = f6_.kern.Config.Sprache;
    const QString port = toQt(f6_.kern.Zeile(Line::Port));
    caption_->setText(port);
    caption_->setVisible(f6_.Combo1.Visible);
    ports_->setAccessibleName(port);
    grid_->gridModel().setPictureText(F6Column::State, AdapterPicture::Present, word(Word::AdapterPresent, language));
    grid_->gridModel().setPictureText(F6Column::State, AdapterPicture::Absent, word(Word::AdapterAbsent, language));
    grid_->setAccessibleName(toQt(f6_.FGK6.Text(0, F6Column::Name)));
    devices_->setVisible(!f6_.F6_MSGM.Text().empty());
}

void F6Window::showEvent(QShowEvent* event) {
    WindowBase::showEvent(event);
    grid_->fitColumns();
}

} // namespace qvm::ui
