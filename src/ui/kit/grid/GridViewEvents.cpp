// Mouse, keyboard and the other events of the grid's view.

#include "GridAccess.h"
#include "GridView.h"
#include "Keys.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>

#include <utility>

namespace qvm::ui {
namespace {

bool movesCell(int key) {
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_Left || key == Qt::Key_Right ||
           key == Qt::Key_PageUp || key == Qt::Key_PageDown || key == Qt::Key_Home || key == Qt::Key_End;
}

} // namespace

void GridView::click(const QModelIndex& index) {
    // The current cell may be one that the filter hides: what nobody sees is not pressed.
    if (index.isValid() && !isRowHidden(index.row()) && onClick) {
        onClick(model_->gridRow(index.row()), index.column());
    }
}

bool GridView::goTo(int row, int column) {
    const QModelIndex index = model_->cellIndex(row, column);
    if (!isEnabled() || !index.isValid() || isRowHidden(index.row()) || isColumnHidden(column)) {
        return false;
    }
    setFocus(Qt::OtherFocusReason); // whatever editor is open loses it
    moving(false, [&] { setCurrentIndex(index); });
    return true;
}

void GridView::press(int row, int column) {
    if (!goTo(row, column)) {
        return;
    }
    mouseUp(Qt::LeftButton, row, column);
    click(model_->cellIndex(row, column));
    if (onChoose) {
        onChoose(row, column);
    }
}

void GridView::mouseUp(Qt::MouseButton button, int row, int column) {
    if (onMouseUp && (button == Qt::LeftButton || button == Qt::RightButton)) {
        clicked_ = {row, column};
        onMouseUp(button == Qt::LeftButton ? MouseButton::Left : MouseButton::Right, row, column);
        clicked_.reset();
    }
}

void GridView::showMenu(int row, int column) {
    if (onMenuKey && goTo(row, column)) {
        onMenuKey();
    }
}

void GridView::write(int row, int column, const std::string& text) {
    if (onWrite && mayWrite && mayWrite(row, column) && goTo(row, column)) {
        onWrite(row, column, text);
    }
}

void GridView::keyPressEvent(QKeyEvent* event) {
    if (editKey(event)) {
        return;
    }
    const int code = keyCode(*event);
    const bool combined = event->modifiers().testAnyFlags(Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    const bool press =
        !combined && (code == Key::Enter || event->key() == Qt::Key_Space || event->key() == Qt::Key_Select);
    const bool typed = code != 0 && code != Key::Tab && code != Key::Escape;
    if (onMenuKey && event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) {
        onMenuKey();
    } else if (!combined && event->key() == Qt::Key_Space && onSpace) {
        onSpace();
    } else if (press && onClick) {
        click(currentIndex());
    } else if (typed && onKey) {
        onKey(code);
    } else if (code == Key::Escape || code >= ' ' || event->key() == Qt::Key_Space) {
        // Neither an editor nor a search by letters: the window may want it.
        event->ignore();
    } else if (selection_ != nullptr && movesCell(event->key())) {
        moving(event->modifiers().testFlag(Qt::ShiftModifier), [&] { QTableView::keyPressEvent(event); });
    } else {
        QTableView::keyPressEvent(event);
    }
}

bool GridView::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && takesAnyText && takesAnyText(currentIndex().column()) &&
        keyCode(static_cast<QKeyEvent&>(*event)) > ' ') {
        event->accept();
        return true;
    }
    return QTableView::event(event);
}

void GridView::mousePressEvent(QMouseEvent* event) {
    const QModelIndex index = indexAt(event->position().toPoint());
    pressed_ = index;
    dragged_ = twice_ = false;
    if (pressMoves(*event, index)) {
        moving(event->modifiers().testFlag(Qt::ShiftModifier), [&] { QTableView::mousePressEvent(event); });
    }
}

void GridView::mouseMoveEvent(QMouseEvent* event) {
    if (selection_ != nullptr && event->buttons() == Qt::LeftButton && pressed_.isValid()) {
        dragTo(event->position().toPoint());
    } else {
        QTableView::mouseMoveEvent(event);
    }
}

void GridView::mouseReleaseEvent(QMouseEvent* event) {
    QTableView::mouseReleaseEvent(event);
    released(*event, indexAt(event->position().toPoint()));
}

void GridView::released(const QMouseEvent& event, const QModelIndex& index) {
    const bool same = index.isValid() && pressed_ == index && !dragged_;
    const bool block = selection_ != nullptr && event.modifiers().testFlag(Qt::ShiftModifier);
    const bool twice = std::exchange(twice_, false);
    pressed_ = QModelIndex();
    if (!same || block) {
        return;
    }
    const int row = model_->gridRow(index.row());
    const int column = index.column();
    mouseUp(event.button(), row, column);
    if (event.button() == Qt::LeftButton) {
        click(index);
        if (twice && onDoubleClick) {
            onDoubleClick(row, column);
        }
        if (twice && onChoose) {
            onChoose(row, column);
        }
    }
}

// The second press of a double click is a press as the first one; what a double click does waits for its release. Where
// a click starts something, two quick ones start it once, but a check box is clicked twice.
void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
    const QModelIndex index = indexAt(event->position().toPoint());
    const bool check = index.isValid() && model_->isCheck(model_->gridRow(index.row()), index.column());
    if (!onMouseUp && !onChoose && !check) {
        QTableView::mouseDoubleClickEvent(event);
        return;
    }
    mousePressEvent(event);
    twice_ = true;
}

void GridView::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() == QContextMenuEvent::Keyboard && onMenuKey) {
        onMenuKey();
    } else {
        QTableView::contextMenuEvent(event);
    }
}

bool GridView::focusNextPrevChild(bool next) {
    if (next && takesTab && onKey && hasFocus()) {
        onKey(Key::Tab);
        return true;
    }
    return QTableView::focusNextPrevChild(next);
}

// The first cell of a row is behind the heading, where the keys would stay.
QModelIndex GridView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    const QModelIndex next = QTableView::moveCursor(action, modifiers);
    const int first = selection_ == nullptr ? 0 : selection_->HeadingColumns();
    return next.isValid() && next.column() < first ? next.siblingAtColumn(first) : next;
}

bool GridView::eventFilter(QObject* watched, QEvent* event) {
    if (watched == horizontalHeader()->viewport()) {
        if (event->type() == QEvent::MouseMove) {
            onHeading_ = static_cast<QMouseEvent*>(event)->position().toPoint();
        } else if (event->type() == QEvent::Leave) {
            onHeading_.reset();
        }
    }
    if (watched == frozen_->viewport() && isEnabled()) {
        trackMouse(frozen_->viewport(), event);
        const bool mouse = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseMove ||
                           event->type() == QEvent::MouseButtonRelease ||
                           (event->type() == QEvent::MouseButtonDblClick && onMouseUp);
        if (mouse && frozenMouse(*static_cast<QMouseEvent*>(event))) {
            return true;
        }
    }
    return QTableView::eventFilter(watched, event);
}

bool GridView::frozenMouse(const QMouseEvent& event) {
    const QModelIndex index = frozen_->indexAt(event.position().toPoint());
    if (event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonDblClick) {
        setFocus(Qt::MouseFocusReason);
        pressed_ = index;
        dragged_ = false;
        twice_ = event.type() == QEvent::MouseButtonDblClick;
        if (selection_ != nullptr && index.isValid() && pressMoves(event, index)) {
            moving(event.modifiers().testFlag(Qt::ShiftModifier), [&] { setCurrentIndex(index); });
        }
        return selection_ != nullptr;
    }
    if (event.type() == QEvent::MouseButtonRelease) {
        released(event, index);
        return false;
    }
    if (selection_ == nullptr || event.buttons() != Qt::LeftButton || !pressed_.isValid()) {
        return false;
    }
    dragTo(viewport()->mapFromGlobal(event.globalPosition().toPoint()));
    return true;
}

// A table view would tell the screen reader of cells in a count that takes in the hidden columns.

void GridView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QAbstractItemView::selectionChanged(selected, deselected); // NOLINT(bugprone-parent-virtual-call)
    tellCurrentCell(this, true);
}

void GridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QAbstractItemView::currentChanged(current, previous); // NOLINT(bugprone-parent-virtual-call)
    tellCurrentCell(this, false);
    const int row = model_->gridRow(current.row());
    if (current.isValid() && selection_ == nullptr) {
        grid().Row = row;
        grid().Column = current.column();
    } else if (current.isValid() && !following_) {
        extending_ ? selection_->Extend(row, current.column()) : selection_->Go(row, current.column());
    }
    updateRow(previous.row());
    updateRow(current.row());
}

void GridView::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    stretchColumns();
    placeFrozen();
}

void GridView::scrollContentsBy(int dx, int dy) {
    QTableView::scrollContentsBy(dx, dy);
    placeFrozen();
    findHoverRow();
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
    } else {
        return;
    }
    findHoverRow();
}

bool GridView::viewportEvent(QEvent* event) {
    trackMouse(viewport(), event);
    return QTableView::viewportEvent(event);
}

} // namespace qvm::ui
