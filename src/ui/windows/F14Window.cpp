#include "F14Window.h"

#include "TextEdge.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolBar>
#include <QVBoxLayout>

namespace qvm::ui {
namespace {

constexpr int NarrowestWidth = 420, ChannelWidth = 180;

} // namespace

F14Window::F14Window(F14& model, QWidget* main)
    : WindowBase(model, QStringLiteral("F14"), Stand::OverMain, main), f14_(model), caption_(new QLabel(this)),
      channels_(new QComboBox(this)) {
    QToolBar* bar = addToolBar();
    for (ToolButton& button : f14_.Toolbar1) {
        addToolButton(button, bar, [this](std::string_view key) { f14_.Toolbar1_ButtonClick(key); });
    }
    channels_->setMinimumWidth(ChannelWidth);
    bind(f14_.Combo1, channels_, QStringLiteral("F14.Combo1"), [this](int index) { f14_.Combo1_Click(index); });
    // All twelve channels at once.
    channels_->setMaxVisibleItems(12);
    auto* row = new QHBoxLayout;
    row->setSpacing(12);
    row->addWidget(caption_);
    row->addWidget(channels_);
    row->addStretch();
    content()->setContentsMargins(24, 24, 24, 24);
    content()->addLayout(row);
    content()->addStretch();
    setLeastSize(NarrowestWidth);
    setFirst(channels_);
    finish([this] { f14_.Toolbar1_ButtonClick(f14_.Toolbar1[0].Key); }, false);
}

void F14Window::setWords() {
    const QString channel = toQt(f14_.kern.Zeile(Line::RadioChannel));
    caption_->setText(channel);
    channels_->setAccessibleName(channel);
}

} // namespace qvm::ui
