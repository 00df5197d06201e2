#pragma once

#include "GebaeudeFenster.h"
#include "WindowBase.h"

class QGroupBox;

namespace qvm::ui {

class GridView;

/// The devices of the virtual building, and what can be done with them.
class BuildingWindow : public WindowBase {
    Q_OBJECT

public:
    explicit BuildingWindow(GebaeudeFenster& model);

    void setWords() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void makeGrid();
    QLayout* makeDeviceRow();
    QGroupBox* makeDoor();
    QGroupBox* makeDesk();
    QLayout* makeAdapterRow();
    QPushButton* button(Button& model, const char* name, std::function<void()> onClick);

    GebaeudeFenster& model_;
    GridView* grid_ = nullptr;
    QWidget* code_ = nullptr;
    QWidget* clock_ = nullptr;
    QWidget* things_ = nullptr;
    QWidget* adapters_ = nullptr;
};

} // namespace qvm::ui
