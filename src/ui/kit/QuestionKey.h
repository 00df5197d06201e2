#pragma once

#include <functional>

class QWidget;

namespace qvm::ui {

/// The key "?" does this in the window, unless the control that has the keyboard takes it as text: lines of text do,
/// and cells of a grid where GridView::takesAnyText says so.
void addQuestionKey(QWidget* window, const std::function<void()>& open);

} // namespace qvm::ui
