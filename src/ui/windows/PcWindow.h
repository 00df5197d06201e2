#pragma once

#include "PcFenster.h"
#include "WindowBase.h"

namespace qvm::ui {

class GridView;

/// Whether the PC is fit for the program, line by line.
class PcWindow : public WindowBase {
    Q_OBJECT

public:
    PcWindow(PcFenster& model, QWidget* main);

    void setWords() override;

private:
    void copyReport();

    PcFenster& model_;
    GridView* grid_ = nullptr;
};

} // namespace qvm::ui
