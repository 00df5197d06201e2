#pragma once

#include "F19.h"
#include "ListenTimeBox.h"
#include "WindowBase.h"

#include <optional>

namespace qvm::ui {

class GridView;

/// F19 on the screen: what a scan found with its signals as bars, the unit that is chosen, and how it is to listen.
class F19Window : public WindowBase {
    Q_OBJECT

public:
    F19Window(F19& f19, QWidget* owner);

    void setWords() override;

private:
    void makeGrid();
    QLayout* makeChosen();
    void makeBottom();

    F19& f19_;
    GridView* grid_ = nullptr;
    std::optional<ListenTimeBox<F19>> times_; ///< from the constructor on, which makes it in its turn
};

} // namespace qvm::ui
