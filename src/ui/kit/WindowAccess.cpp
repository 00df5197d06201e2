#include "WindowAccess.h"

#include "MonthView.h"
#include "WindowBase.h"

#include <QAccessibleWidget>

namespace qvm::ui {
namespace {

/// A month on a page is a group of controls, one that pops up a dialog of its own.
class MonthAccess : public QAccessibleWidget {
public:
    explicit MonthAccess(QWidget* month) : QAccessibleWidget(month) {}

    QAccessible::Role role() const override {
        return widget()->isWindow() ? QAccessible::Dialog : QAccessible::Grouping;
    }
    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(widget()->parentWidget());
    }
};

class WindowAccess : public QAccessibleWidget {
public:
    explicit WindowAccess(QWidget* window)
        : QAccessibleWidget(window, window->windowType() == Qt::Dialog ? QAccessible::Dialog : QAccessible::Window) {}

    int childCount() const override { return QAccessibleWidget::childCount() + static_cast<int>(popups().size()); }
    QAccessibleInterface* child(int index) const override {
        const int own = QAccessibleWidget::childCount();
        const QList<MonthView*> open = popups();
        return index < own || index >= own + open.size() ? QAccessibleWidget::child(index)
                                                         : QAccessible::queryAccessibleInterface(open[index - own]);
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        const int own = QAccessibleWidget::childCount();
        const auto at = popups().indexOf(qobject_cast<MonthView*>(child == nullptr ? nullptr : child->object()));
        return at < 0 ? QAccessibleWidget::indexOfChild(child) : own + static_cast<int>(at);
    }

private:
    QList<MonthView*> popups() const {
        QList<MonthView*> open;
        for (MonthView* month : widget()->findChildren<MonthView*>(QString(), Qt::FindDirectChildrenOnly)) {
            if (month->isWindow() && month->isVisible()) {
                open += month;
            }
        }
        return open;
    }
};

QAccessibleInterface* windowInterface(const QString& className, QObject* object) {
    if (className == QLatin1String(WindowBase::staticMetaObject.className())) {
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
