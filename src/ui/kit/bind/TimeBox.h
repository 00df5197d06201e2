#pragma once

#include "Controls.h"

#include <QString>

#include <array>
#include <functional>

class QHBoxLayout;
class QWidget;

namespace qvm::ui {

/// The models of a time of day that stands by itself: what is before it, the time, and its form behind it.
struct TimeBoxParts {
    Label& Caption;
    TextBox& Time;
    Label& Form;
};

/// Adds the three to the row. `names`: of the three in this order. Keys go to the handler, as in KeyEdit.
void addTimeBox(QHBoxLayout& row, QWidget* parent, const TimeBoxParts& parts, const std::array<QString, 3>& names,
                std::function<void(int key)> onKey);

} // namespace qvm::ui
