#include "F16Window.h"

#include "KeyEdit.h"
#include "TextEdge.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace qvm::ui {
namespace {

constexpr int SearchWidth = 260;

} // namespace

F16Window::F16Window(F16& f16, QWidget* users)
    : WindowBase(f16, QStringLiteral("F16"), Stand::Centred, users), f16_(f16) {
    content()->setContentsMargins(20, 18, 20, 16);
    content()->setSpacing(14);
    makeOptions();
    makeSearch();
    content()->addStretch();
    finish([this] { f16_.Command2_Click(); });
}

void F16Window::makeOptions() {
    auto* row = new QHBoxLayout;
    row->setSpacing(18);
    for (std::size_t n = 0; n < f16_.Option.size(); ++n) {
        auto* option = new QRadioButton(this);
        bindOption(f16_.Option[n], option, QStringLiteral("F16.Option%1").arg(n + 1),
                   [this, n] { f16_.Option_Click(static_cast<int>(n)); });
        row->addWidget(option);
    }
    row->addStretch();
    content()->addLayout(row);
}

void F16Window::makeSearch() {
    auto* text = new KeyEdit(f16_.Text1, QStringLiteral("F16.Text1"), this);
    text->onText = [](const std::string&) {};
    text->onKey = [this](int key) { f16_.Text1_KeyPress(key); };
    text->takesEscape = true;
    text->setMinimumWidth(SearchWidth);
    auto* search = new QPushButton(this);
    bind(f16_.Command1, search, QStringLiteral("F16.Command1"), [this] { f16_.Command1_Click(); });
    // What the box is for is told by the button.
    watch(f16_.Command1.Text, search, [this, text, search] {
        search->setText(captionOf(f16_.Command1.Text()));
        search->setAccessibleName(toQt(f16_.Command1.Text()));
        text->setAccessibleName(search->accessibleName());
    });
    auto* back = new QPushButton(this);
    bind(f16_.Command2, back, QStringLiteral("F16.Command2"), [this] { f16_.Command2_Click(); });
    setDefaultButton(search);
    content()->addWidget(text);
    content()->addLayout(buttonRow({search, back}));
}

} // namespace qvm::ui
