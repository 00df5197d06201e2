#pragma once

#include <QColor>
#include <QObject>

#include <functional>

class QLabel;

namespace qvm::ui {

/// The colour of a label's text, mixed from the palette that the label stands on, and anew whenever that changes. Lives
/// as a child of its label.
class LabelInk : public QObject {
    Q_OBJECT

public:
    /// `ink`: gives the colour for the palette's text and the label's ground.
    LabelInk(QLabel* label, std::function<QColor(const QColor& text, const QColor& ground)> ink);

    /// Mixes anew.
    void show();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QLabel* label_;
    std::function<QColor(const QColor&, const QColor&)> ink_;
    bool showing_ = false;
};

/// Lets the label stand back behind others, as a caption does.
void makeWeak(QLabel* label);

} // namespace qvm::ui
