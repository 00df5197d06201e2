#include "F15Window.h"

#include "TextEdge.h"
#include "TextSlots.h"

#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace qvm::ui {
namespace {

constexpr int ListWidth = 300, RowHeight = 30;

} // namespace

F15Window::F15Window(F15& model, QWidget* owner)
    : WindowBase(model, QStringLiteral("F15"), Stand::Centred, owner), f15_(model), list_(new QListWidget(this)) {
    setWindowModality(Qt::WindowModal);
    list_->setStyleSheet(QStringLiteral("QListWidget::item { min-height: %1px; }").arg(RowHeight));
    list_->setMinimumWidth(ListWidth);
    list_->setFixedHeight(RowHeight * static_cast<int>(SprachNamen.size()) + 2 * list_->frameWidth());
    list_->setUniformItemSizes(true);
    bind(f15_.Sprachen, list_, QStringLiteral("F15.Sprachen"), [this](int index) { f15_.Sprachen_Click(index); });
    connect(list_, &QListWidget::itemDoubleClicked, this, [this] { f15_.OK_Click(); });
    content()->addWidget(list_, 1);

    auto* ok = new QPushButton(this);
    bind(f15_.OK, ok, QStringLiteral("F15.OK"), [this] { f15_.OK_Click(); });
    auto* cancel = new QPushButton(this);
    bind(f15_.Cancel, cancel, QStringLiteral("F15.Cancel"), [this] { f15_.Cancel_Click(); });
    setDefaultButton(ok);
    content()->addLayout(buttonRow({ok, cancel}));
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    setFirst(list_);
    finish([this] { f15_.Cancel_Click(); }, false);
}

void F15Window::setWords() {
    list_->setAccessibleName(toQt(f15_.kern.Zeile(Line::Language)));
}

} // namespace qvm::ui
