#include "F8Window.h"

#include "TextEdge.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace qvm::ui {
namespace {

constexpr int TextWidth = 260;

} // namespace

F8Window::F8Window(F8& f8, QWidget* owner) : WindowBase(f8, QStringLiteral("F8"), Stand::Dialog, owner), f8_(f8) {
    content()->setContentsMargins(20, 18, 20, 16);
    content()->setSpacing(14);
    makeOptions();
    auto* contains = new QCheckBox(this);
    bind(f8_.Enthaelt, contains, QStringLiteral("F8.Enthaelt"), [this](bool on) { f8_.Enthaelt_Click(on); });
    content()->addWidget(contains);
    makeSearch();
    content()->addStretch();
    finish([this] { f8_.F8_Schliessen(); });
}

void F8Window::makeOptions() {
    auto* row = new QHBoxLayout;
    row->setSpacing(18);
    for (std::size_t n = 0; n < f8_.Option.size(); ++n) {
        auto* option = new QRadioButton(this);
        bindOption(f8_.Option[n], option, QStringLiteral("F8.Option%1").arg(n + 1),
                   [this, n] { f8_.Option_Click(static_cast<int>(n)); });
        row->addWidget(option);
    }
    row->addStretch();
    content()->addLayout(row);
}

void F8Window::makeSearch() {
    auto* text = new QLineEdit(this);
    bind(f8_.Text1, text, QStringLiteral("F8.Text1"));
    text->setMinimumWidth(TextWidth);
    auto* search = new QPushButton(this);
    bind(f8_.Command1, search, QStringLiteral("F8.Command1"), [this] { f8_.Command1_Click(); });
    // What the box is for is told by the button beside it.
    watch(f8_.Command1.Text, search, [this, text, search] {
        search->setText(captionOf(f8_.Command1.Text()));
        search->setAccessibleName(toQt(f8_.Command1.Text()));
        text->setAccessibleName(search->accessibleName());
    });
    setDefaultButton(search);
    auto* row = new QHBoxLayout;
    row->addWidget(text, 1);
    row->addWidget(search);
    content()->addLayout(row);
}

} // namespace qvm::ui
