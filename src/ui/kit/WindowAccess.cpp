#include "WindowAccess.h"

#include "CaretlessText.h"
#include "MonthView.h"
#include "TextEdge.h"
#include "WindowBase.h"

#include <QAccessibleWidget>
#include <QMainWindow>
#include <QMenu>

namespace qvm::ui {
namespace {

/// A month on a page is a group of controls, one that pops up a dialog of its own. Its day is a text, which may be
/// given another one: the toolkit's cells of days can be selected, but not picked.
class MonthAccess : public QAccessibleWidget, public CaretlessText {
public:
    explicit MonthAccess(QWidget* month) : QAccessibleWidget(month) {}

    QAccessible::Role role() const override {
        return widget()->isWindow() ? QAccessible::Dialog : QAccessible::Grouping;
    }
    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(widget()->parentWidget());
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        switch (type) {
        case QAccessible::TextInterface:
            return static_cast<QAccessibleTextInterface*>(this);
        case QAccessible::EditableTextInterface:
            return static_cast<QAccessibleEditableTextInterface*>(this);
        default:
            return QAccessibleWidget::interface_cast(type);
        }
    }

    using CaretlessText::text;
    using QAccessibleWidget::text;

private:
    MonthView& month() const { return *static_cast<MonthView*>(widget()); }
    QString content() const override { return toQt(Datum_Text(month().day())); }
    QRect textRect() const override { return rect(); }
    void takeText(const QString& whole) override {
        QMetaObject::invokeMethod(
            &month(), [month = &month(), whole] { month->pickText(fromQt(whole)); }, Qt::QueuedConnection);
    }
};

/// What is open over a window belongs to it, as the toolkit tells of no popup by itself.
class WindowAccess : public QAccessibleWidget {
public:
    explicit WindowAccess(QWidget* window)
        : QAccessibleWidget(window, window->windowType() == Qt::Dialog ? QAccessible::Dialog : QAccessible::Window) {}

    int childCount() const override { return QAccessibleWidget::childCount() + static_cast<int>(popups().size()); }
    QAccessibleInterface* child(int index) const override {
        const int own = QAccessibleWidget::childCount();
        const QList<QWidget*> open = popups();
        return index < own || index >= own + open.size() ? QAccessibleWidget::child(index)
                                                         : QAccessible::queryAccessibleInterface(open[index - own]);
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        const int own = QAccessibleWidget::childCount();
        const auto at = popups().indexOf(qobject_cast<QWidget*>(child == nullptr ? nullptr : child->object()));
        return at < 0 ? QAccessibleWidget::indexOfChild(child) : own + static_cast<int>(at);
    }

private:
    QList<QWidget*> popups() const {
        QList<QWidget*> open;
        for (QWidget* child : widget()->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
            const bool popup = qobject_cast<MonthView*>(child) != nullptr || qobject_cast<QMenu*>(child) != nullptr;
            if (popup && child->isWindow() && child->isVisible()) {
                open += child;
            }
        }
        return open;
    }
};

QAccessibleInterface* windowInterface(const QString& className, QObject* object) {
    if (className == QLatin1String(WindowBase::staticMetaObject.className()) ||
        className == QLatin1String(QMainWindow::staticMetaObject.className())) {
        return new WindowAccess(static_cast<QWidget*>(object));
    }
    if (className == QLatin1String(MonthView::staticMetaObject.className())) {
        return new MonthAccess(static_cast<QWidget*>(object));
    }
    return nullptr;
}

} // namespace

void describeWindows() {
    QAccessible::installFactory(windowInterface);
}

void tellPopup(QWidget* popup, bool comes) {
    QAccessibleEvent event(popup, comes ? QAccessible::ObjectCreated : QAccessible::ObjectDestroyed);
    QAccessible::updateAccessibility(&event);
}

} // namespace qvm::ui
