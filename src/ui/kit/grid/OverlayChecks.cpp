#include "OverlayChecks.h"

#include "Bind.h"
#include "OverlayList.h"
#include "TextEdge.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QSignalBlocker>

#include <cstddef>

namespace qvm::ui {

OverlayChecks::OverlayChecks(CheckList& model, GridView& view, const QString& name)
    : QListWidget(&view), model_(model), view_(view) {
    nameWidget(this, name);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setUniformItemSizes(true);
    setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
    watch(model.Entries, this, [this] { showEntries(); });
    watch(model.Current, this, [this] { setCurrentRow(model_.Current); });
    watch(model.Visible, this, [this] { view_.showOver(this, model_.Visible, [this] { place(); }); });
    connect(this, &QListWidget::currentRowChanged, this, [this](int row) { model_.Current = row; });
    connect(this, &QListWidget::itemChanged, this, [this](QListWidgetItem* item) { checked(row(item)); });
    connect(this, &QListWidget::itemClicked, this, [this] {
        if (!toggled_ && onAccept) {
            onAccept();
        }
    });
    connect(&view, &GridView::cellsMoved, this, &OverlayChecks::place);
}

void OverlayChecks::showEntries() {
    const QSignalBlocker quiet(this);
    const auto& entries = model_.Entries();
    while (count() > static_cast<int>(entries.size())) {
        delete takeItem(count() - 1);
    }
    while (count() < static_cast<int>(entries.size())) {
        addItem(QString());
    }
    for (int n = 0; n < count(); ++n) {
        const CheckList::Entry& entry = entries[static_cast<std::size_t>(n)];
        item(n)->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item(n)->setText(toQt(entry.Text));
        item(n)->setCheckState(entry.Checked ? Qt::Checked : Qt::Unchecked);
    }
    setCurrentRow(model_.Current);
    place();
}

void OverlayChecks::place() {
    if (model_.Visible) {
        layUnderCell(*this, view_, above && above());
    }
}

void OverlayChecks::checked(int index) {
    toggled_ = true;
    if (onCheck) {
        onCheck(index, item(index)->checkState() == Qt::Checked);
    }
    showEntries(); // the model may have refused it
}

bool OverlayChecks::focusNextPrevChild(bool /*next*/) {
    if (onAccept) {
        onAccept();
    }
    return true;
}

void OverlayChecks::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && onCancel) {
        onCancel();
    } else if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && onAccept) {
        onAccept();
    } else {
        QListWidget::keyPressEvent(event);
    }
}

void OverlayChecks::mousePressEvent(QMouseEvent* event) {
    toggled_ = false;
    QListWidget::mousePressEvent(event);
}

void OverlayChecks::focusOutEvent(QFocusEvent* event) {
    QListWidget::focusOutEvent(event);
    if (event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason && model_.Visible &&
        onCancel) {
        onCancel();
    }
}

} // namespace qvm::ui
