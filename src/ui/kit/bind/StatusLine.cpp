#include "StatusLine.h"

#include "Bind.h"
#include "ElidedLabel.h"

namespace qvm::ui {

StatusLine::StatusLine(QWidget* window) : window_(window) {
    setSpacing(18);
}

ElidedLabel* StatusLine::addShort(Label& model, const QString& name) {
    ElidedLabel* label = add(model, name, 0);
    label->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    return label;
}

ElidedLabel* StatusLine::addLong(Label& model, const QString& name) {
    return add(model, name, 1);
}

ElidedLabel* StatusLine::add(Label& model, const QString& name, int stretch) {
    auto* label = new ElidedLabel(window_);
    bind(model, label, name);
    addWidget(label, stretch);
    return label;
}

} // namespace qvm::ui
