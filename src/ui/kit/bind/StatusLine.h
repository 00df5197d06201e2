#pragma once

#include "Controls.h"

#include <QHBoxLayout>
#include <QString>

namespace qvm::ui {

class ElidedLabel;

/// The line of texts at the foot of a window. Where there is too little room they end in "...".
class StatusLine : public QHBoxLayout {
public:
    /// `window`: of which the texts are part.
    explicit StatusLine(QWidget* window);

    /// A text that takes as much room as it needs.
    ElidedLabel* addShort(Label& model, const QString& name);
    /// A text that shares what room is left.
    ElidedLabel* addLong(Label& model, const QString& name);

private:
    ElidedLabel* add(Label& model, const QString& name, int stretch);

    QWidget* window_;
};

} // namespace qvm::ui
