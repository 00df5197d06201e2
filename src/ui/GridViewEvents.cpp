// Mouse, keyboard and the other events of the grid's view.

#include "GridView.h"
#include "Keys.h"

#include <QKeyEvent>

namespace qvm::ui {

void GridView::click(const QModelIndex& index) {
    if (index.isValid() && onClick) {
        onClick(index.row() + 1, index.column());
    }
}

void GridView::keyPressEvent(QKeyEvent* event) {
    const int code = keyCode(*event);
    const bool combined = event->modifiers().testAnyFlags(Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    const bool press =
        !combined && (code == Key::Enter || event->key() == Qt::Key_Space || event->key() == Qt::Key_Select);
    const bool typed = code != 0 && code != Key::Tab && code != Key::Escape;
    if (press && onClick) {
        click(currentIndex());
    } else if (typed && onKey) {
        onKey(code);
    } else if (code == Key::Escape || code >= ' ' || event->key() == Qt::Key_Space) {
        // Neither an editor nor a search by letters: the window may want it.
        event->ignore();
    } else {
        QTableView::keyPressEvent(event);
    }
}

void GridView::mousePressEvent(QMouseEvent* event) {
    pressed_ = indexAt(event->position().toPoint());
    QTableView::mousePressEvent(event);
}

void GridView::mouseReleaseEvent(QMouseEvent* event) {
    QTableView::mouseReleaseEvent(event);
    released(*event, indexAt(event->position().toPoint()));
}

void GridView::released(const QMouseEvent& event, const QModelIndex& index) {
    const bool same = index.isValid() && pressed_ == index;
    pressed_ = QModelIndex();
    if (event.button() == Qt::LeftButton && same) {
        click(index);
    }
}

bool GridView::eventFilter(QObject* watched, QEvent* event) {
    if (watched == frozen_->viewport() && isEnabled()) {
        trackMouse(frozen_->viewport(), event);
        if (event->type() == QEvent::MouseButtonPress) {
            setFocus(Qt::MouseFocusReason);
            pressed_ = frozen_->indexAt(static_cast<QMouseEvent*>(event)->position().toPoint());
        } else if (event->type() == QEvent::MouseButtonRelease) {
            const auto* mouse = static_cast<QMouseEvent*>(event);
            released(*mouse, frozen_->indexAt(mouse->position().toPoint()));
        }
    }
    return QTableView::eventFilter(watched, event);
}

void GridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    if (current.isValid()) {
        grid().Row = current.row() + 1;
        grid().Column = current.column();
    }
    frozen_->viewport()->update();
    viewport()->update();
}

void GridView::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    stretchColumns();
    placeFrozen();
}

void GridView::scrollContentsBy(int dx, int dy) {
    QTableView::scrollContentsBy(dx, dy);
    placeFrozen();
}

void GridView::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        fitColumns();
    }
}

void GridView::focusInEvent(QFocusEvent* event) {
    QTableView::focusInEvent(event);
    frozen_->viewport()->update();
}

void GridView::focusOutEvent(QFocusEvent* event) {
    QTableView::focusOutEvent(event);
    frozen_->viewport()->update();
}

void GridView::showEvent(QShowEvent* event) {
    fitColumns();
    QTableView::showEvent(event);
}

void GridView::trackMouse(QWidget* on, QEvent* event) {
    if (event->type() == QEvent::MouseMove) {
        mouse_ = viewport()->mapFrom(this, on->mapTo(this, static_cast<QMouseEvent*>(event)->position().toPoint()));
    } else if (event->type() == QEvent::Leave) {
        mouse_.reset();
    }
}

bool GridView::viewportEvent(QEvent* event) {
    trackMouse(viewport(), event);
    return QTableView::viewportEvent(event);
}

} // namespace qvm::ui
