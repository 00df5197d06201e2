#include "WindowBase.h"

#include "Geometry.h"
#include "Handbuch.h"
#include "QuestionKey.h"
#include "TextEdge.h"
#include "Theme.h"
#include "WindowAccess.h"

#include <QAction>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QToolBar>
#include <QVBoxLayout>
#include <QWindow>

#include <algorithm>

namespace qvm::ui {
namespace {

constexpr int ToolIconSize = 32;

} // namespace

void keepRoom(QWidget* widget) {
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
}

QLabel* newHeading(Label& model, const QString& name, QWidget* parent) {
    auto* widget = new QLabel(parent);
    bind(model, widget, name);
    QFont bold = widget->font();
    bold.setBold(true);
    widget->setFont(bold);
    watch(model.Text, widget, [&model, widget] {
        widget->setText(toQt(model.Text()));
        widget->setAccessibleName(widget->text());
        widget->setVisible(!model.Text().empty());
    });
    return widget;
}

WindowBase::WindowBase(Kern& kern, Window& model, const QString& name, Stand stand, QWidget* owner)
    : QWidget(stand == Stand::InPlaceOfMain ? nullptr : owner, stand == Stand::InPlaceOfMain ? Qt::Window : Qt::Dialog),
      model_(model), stand_(stand), owner_(owner), outer_(new QVBoxLayout(this)), content_(new QVBoxLayout),
      words_(kern.Windows.WordsChanged.Listen([this] { setWords(); })) {
    describeWindows();
    setObjectName(name);
    setWindowIcon(programIcon());
    // A shortcut goes before the grids, in which any key may begin an entry.
    auto* help = new QShortcut(Qt::Key_F1, this);
    manual_ = [&kern, name] { Handbuch_Oeffnen(kern, Handbuch_Kapitel(name.toStdString())); };
    connect(help, &QShortcut::activated, this, manual_);
    addQuestionKey(this, manual_);
    outer_->setContentsMargins(0, 0, 0, 0);
    outer_->setSpacing(0);
    outer_->addLayout(content_);
    content_->setContentsMargins(12, 12, 12, 12);
    content_->setSpacing(10);
}

QToolBar* WindowBase::addToolBar() {
    auto* bar = new QToolBar(this);
    bar->setObjectName(objectName() + QStringLiteral(".Toolbar1"));
    bar->setIconSize(QSize(ToolIconSize, ToolIconSize));
    bar->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    outer_->insertWidget(0, bar);
    return bar;
}

QMenuBar* WindowBase::addMenuBar() {
    auto* bar = new QMenuBar(this);
    bar->setObjectName(objectName() + QStringLiteral(".Menu"));
    outer_->setMenuBar(bar);
    menus_ = bar;
    return bar;
}

QLayout* WindowBase::buttonRow(std::initializer_list<QWidget*> buttons) {
    auto* row = new QHBoxLayout;
    row->addStretch();
    for (QWidget* button : buttons) {
        row->addWidget(button);
    }
    return row;
}

void WindowBase::setDefaultButton(QPushButton* button) {
    default_ = button;
    button->setDefault(true);
    button->installEventFilter(this);
}

bool WindowBase::eventFilter(QObject* watched, QEvent* event) {
    // The control that had the keyboard may just have been disabled, as the cancel button at the end of a run.
    if (watched == default_ && event->type() == QEvent::EnabledChange && default_->isEnabled() &&
        (focusWidget() == nullptr || !focusWidget()->isEnabled())) {
        default_->setFocus(Qt::OtherFocusReason);
    }
    return QWidget::eventFilter(watched, event);
}

void WindowBase::setLeastSize(int width, int height) {
    least_ = QSize(width, height);
    keepLeastSize();
}

void WindowBase::keepLeastSize() {
    // A size that is set keeps the layout from setting its own, which larger letters or a longer text may need.
    if (least_.isValid()) {
        setMinimumSize(least_.expandedTo(outer_->totalMinimumSize()));
    }
}

void WindowBase::placeBy(const QWidget& owner) {
    const QRect room = screen()->availableGeometry();
    const QSize size = frameGeometry().size();
    if (&owner == beside_) {
        move(beside(owner.frameGeometry(), size, owner.screen()->availableGeometry()));
    } else if (stand_ == Stand::Centred && owner.isVisible()) {
        QRect middle(QPoint(), size);
        middle.moveCenter(owner.frameGeometry().center());
        move(withinRoom(middle.topLeft(), size, room));
    } else if ((stand_ == Stand::InPlaceOfMain || stand_ == Stand::OverMain) && !isMaximized()) {
        move(withinRoom(framePlace(&owner), size, room));
    }
}

QWidget* WindowBase::presentOwner() const {
    if (beside_ != nullptr && beside_->isVisible()) {
        return beside_;
    }
    if (owner_ == nullptr || !owner_->isVisible()) {
        const auto open = std::find_if(others_.begin(), others_.end(), [](const QWidget* w) { return w->isVisible(); });
        if (open != others_.end()) {
            return *open;
        }
    }
    return owner_;
}

void WindowBase::place() {
    const QWidget* owner = presentOwner();
    if (owner != nullptr) {
        placeBy(*owner);
    }
    if ((beside_ != nullptr || !others_.empty()) && windowHandle() != nullptr) {
        windowHandle()->setTransientParent(owner != nullptr ? owner->windowHandle() : nullptr);
    }
}

bool WindowBase::event(QEvent* event) {
    if (event->type() == QEvent::Show && !event->spontaneous()) {
        place();
    }
    const bool handled = QWidget::event(event);
    if (event->type() == QEvent::LayoutRequest) {
        keepLeastSize();
    }
    return handled;
}

void WindowBase::finish(WindowHandlers handlers, bool remember) {
    if (menus_ != nullptr) {
        QAction* manual = menus_->addAction(QStringLiteral("?"), this, [this] { manual_(); });
        manual->setObjectName(objectName() + QStringLiteral(".Hilfe"));
    }
    setWords();
    bind(model_, this, objectName(), std::move(handlers), remember);
}

void WindowBase::finish(const std::function<void()>& leave, bool remember) {
    finish({.onClose = leave, .onEscape = leave}, remember);
}

void WindowBase::addGrid(QWidget* grid, QLayout* foot) {
    content_->addWidget(grid, 1);
    content_->addLayout(foot);
    setFirst(grid);
}

void WindowBase::showEvent(QShowEvent* event) {
    setWords();
    keepLeastSize();
    QWidget::showEvent(event);
    if (first_ != nullptr && !event->spontaneous()) {
        first_->setFocus(Qt::OtherFocusReason);
    }
}

void WindowBase::keyPressEvent(QKeyEvent* event) {
    const bool press = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!press) {
        QWidget::keyPressEvent(event);
        return;
    }
    // Outside a QDialog a focused button does not hear Return by itself.
    auto* focused = qobject_cast<QPushButton*>(focusWidget());
    QPushButton* button = focused != nullptr ? focused : default_;
    if (button != nullptr && button->isEnabled() && button->isVisible()) {
        button->click();
    }
}

} // namespace qvm::ui
