#include "F18Window.h"

#include "Mnemonics.h"
#include "Worttafel.h"
#include "WrappingLabel.h"

#include <QHBoxLayout>
#include <QProgressBar>
#include <QPushButton>

namespace qvm::ui {

F18Window::F18Window(F18& f18, QWidget* owner, QWidget* list)
    : WindowBase(f18, QStringLiteral("F18"), Stand::Centred, owner), f18_(f18), bar_(new QProgressBar(this)) {
    setBeside(list);
    content()->setContentsMargins(20, 18, 20, 16);
    auto* text = new WrappingLabel(2, this); // so long is what it says of an adapter that is gone
    bind(f18.Text, text, QStringLiteral("F18.Text"));
    bind(f18.Balken, bar_, QStringLiteral("F18.Balken"));
    bar_->setTextVisible(false);
    auto* cancel = new QPushButton(this);
    const auto end = [&f18] { f18.Command1_Click(); };
    bind(f18.Command1, cancel, QStringLiteral("F18.Command1"), end);
    // As in the progress window: the key that began the run must not end the search.
    cancel->setFocusPolicy(Qt::NoFocus);
    firstLetterMnemonic(f18.Command1, cancel);
    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(cancel);
    content()->addWidget(newHeading(f18.Schloss, QStringLiteral("F18.Schloss"), this));
    content()->addWidget(text);
    content()->addWidget(bar_);
    content()->addSpacing(6);
    content()->addLayout(row);
    setLeastSize(380);
    finish(end);
}

void F18Window::setWords() {
    bar_->setAccessibleName(word(Word::ChannelSearch, f18_.kern.Config.Sprache));
}

} // namespace qvm::ui
