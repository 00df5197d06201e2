#include "OverlayBoxes.h"

#include "Bind.h"
#include "KeyEdit.h"

#include <QApplication>
#include <QHBoxLayout>

namespace qvm::ui {

OverlayBoxes::OverlayBoxes(std::span<TextBox> boxes, Observed<bool>& visible, GridView& view, const QStringList& names)
    : QFrame(&view), visible_(visible), view_(view) {
    // A line around each box: the frames of a style can hardly be seen on some grounds.
    constexpr int line = 1;
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Highlight);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(line, line, line, line);
    row->setSpacing(line);
    for (std::size_t n = 0; n < boxes.size(); ++n) {
        addBox(boxes[n], n, names[static_cast<int>(n)]);
        row->addWidget(boxes_.back());
    }
    connect(&view, &GridView::cellsMoved, this, &OverlayBoxes::place);
    watch(visible, this, [this] { showBoxes(); });
}

OverlayBoxes::~OverlayBoxes() = default;

void OverlayBoxes::addBox(TextBox& model, std::size_t number, const QString& name) {
    auto* box = new KeyEdit(model, name, this);
    box->takesTab = box->takesEscape = true;
    box->setAlignment(Qt::AlignCenter);
    box->setMinimumWidth(1); // a narrow cell has narrow boxes
    box->onText = [this, number](const std::string& text) {
        if (onText) {
            onText(number, text);
        }
    };
    box->onKey = [this, number](int key) {
        if (onKey) {
            onKey(number, key);
        }
    };
    box->onEntered = [this, number, box] {
        setFocusProxy(box); // so that the grid gets the keyboard back from whichever box has it
        if (visible_ && onEntered) {
            onEntered(number);
        }
    };
    box->onLostFocus = [this] { left(); };
    boxes_.push_back(box);
}

void OverlayBoxes::left() {
    const QWidget* now = QApplication::focusWidget();
    if (visible_ && onLostFocus && (now == nullptr || !isAncestorOf(now))) {
        onLostFocus();
    }
}

void OverlayBoxes::showBoxes() {
    if (visible_) {
        setFocusProxy(boxes_.front());
        for (std::size_t n = 0; n < boxes_.size(); ++n) {
            const QString heading =
                view_.gridModel().headerData(view_.grid().Column, Qt::Horizontal, Qt::AccessibleTextRole).toString();
            boxes_[n]->setAccessibleName(QStringLiteral("%1 %2").arg(heading).arg(n + 1));
        }
    }
    view_.showOver(this, visible_, [this] { place(); });
}

void OverlayBoxes::place() {
    const QRect cell = view_.cellRect(view_.grid().Row, view_.grid().Column);
    // Scrolled out of sight they stay where they are and keep what has been typed.
    if (visible_ && !cell.isEmpty()) {
        setGeometry(cell);
    }
}

} // namespace qvm::ui
