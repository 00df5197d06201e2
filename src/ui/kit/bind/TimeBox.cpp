#include "TimeBox.h"

#include "Bind.h"
#include "KeyEdit.h"

#include <QHBoxLayout>
#include <QLabel>

#include <utility>

namespace qvm::ui {

void addTimeBox(QHBoxLayout& row, QWidget* parent, const TimeBoxParts& parts, const std::array<QString, 3>& names,
                std::function<void(int key)> onKey) {
    constexpr int Frame = 24; // around the five characters
    auto* caption = new QLabel(parent);
    bind(parts.Caption, caption, names[0]);
    auto* edit = new KeyEdit(parts.Time, names[1], parent);
    edit->onKey = std::move(onKey);
    edit->holdsTime = true;
    edit->setFixedWidth(edit->fontMetrics().horizontalAdvance(QStringLiteral("00:00")) + Frame);
    caption->setBuddy(edit);
    auto* form = new QLabel(parent);
    bind(parts.Form, form, names[2]);
    for (QWidget* widget : {static_cast<QWidget*>(caption), static_cast<QWidget*>(edit), static_cast<QWidget*>(form)}) {
        row.addWidget(widget);
    }
}

} // namespace qvm::ui
