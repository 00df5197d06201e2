#pragma once

#include "F2.h"

#include <QFrame>
#include <QToolButton>

#include <cstddef>
#include <functional>

class QGridLayout;

namespace qvm::ui {

/// A text that can be pressed: flush left, cut with "..." where it does not fit. It never asks for more room.
class FactButton : public QToolButton {
    Q_OBJECT

public:
    explicit FactButton(QWidget* parent);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// The main window's facts: each with its caption and, where it leads to a window, as something to be pressed.
class OverviewCard : public QWidget {
    Q_OBJECT

public:
    OverviewCard(F2& model, QWidget* parent);

private:
    void addFact(QGridLayout* grid, int row, int column, F2::Angabe which, const char* name);

    F2& f2_;
};

} // namespace qvm::ui
