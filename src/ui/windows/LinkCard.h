#pragma once

#include "F2.h"

#include <QFrame>

class QLabel;

namespace qvm::ui {

class LabelDrawing;

/// The main window's card of the link: light, state in words, adapter, and in whole sentences why the port is not open.
/// Without a reason the card is lower.
class LinkCard : public QFrame {
    Q_OBJECT

public:
    LinkCard(F2& model, QWidget* parent);

    /// Light and state anew, in the language in use.
    void showLight();
    /// The reason anew; the light's tool tip has it, too.
    void showReason();
    /// How high the card is with a reason of the usual length.
    int fullHeight() const;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void makeReason();
    void fitReason();

    F2& f2_;
    QLabel* lamp_;
    LabelDrawing* light_ = nullptr;
    QLabel* state_;
    QLabel* reason_;
};

} // namespace qvm::ui
