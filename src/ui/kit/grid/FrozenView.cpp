#include "FrozenView.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace qvm::ui {
namespace {

/// What a screen reader passes over: invisible, without a name, without cells.
class Unheard : public QAccessibleWidget {
public:
    explicit Unheard(QWidget* widget) : QAccessibleWidget(widget, QAccessible::NoRole) {}

    int childCount() const override { return 0; }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    QString text(QAccessible::Text /*kind*/) const override { return {}; }
    QAccessible::State state() const override {
        QAccessible::State state;
        state.invisible = true;
        return state;
    }
};

QAccessibleInterface* unheard(const QString& className, QObject* object) {
    return className == QLatin1String(FrozenView::staticMetaObject.className())
               ? new Unheard(static_cast<QWidget*>(object))
               : nullptr;
}

} // namespace

FrozenView::FrozenView(QWidget* parent) : QTableView(parent) {
    QAccessible::installFactory(unheard);
}

// A table view tells the screen reader of both, focus or not: the operator would hear each cell twice.

void FrozenView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QAbstractItemView::currentChanged(current, previous); // NOLINT(bugprone-parent-virtual-call)
}

void FrozenView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QAbstractItemView::selectionChanged(selected, deselected); // NOLINT(bugprone-parent-virtual-call)
}

} // namespace qvm::ui
