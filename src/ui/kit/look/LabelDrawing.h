#pragma once

#include <QObject>
#include <QPixmap>

#include <functional>

class QIcon;
class QLabel;

namespace qvm::ui {

/// What stands on a label as a picture: drawn at once, and anew whenever the palette or the label's device pixel ratio
/// changes. Lives as a child of its label.
class LabelDrawing : public QObject {
    Q_OBJECT

public:
    /// `draw`: gives the picture for a device pixel ratio.
    LabelDrawing(QLabel* label, std::function<QPixmap(qreal ratio)> draw);
    /// An icon, `size` in device independent pixels.
    LabelDrawing(QLabel* label, const QIcon& icon, int size);

    /// Draws anew.
    void show();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QLabel* label_;
    std::function<QPixmap(qreal)> draw_;
    qreal ratio_ = 0;
};

} // namespace qvm::ui
