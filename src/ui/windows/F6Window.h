#pragma once

#include "F6.h"
#include "WindowBase.h"

class QComboBox;
class QLabel;
class QToolButton;

namespace qvm::ui {

class GridView;
class OverlayEditor;

/// The port and the adapters with their names.
class F6Window : public WindowBase {
    Q_OBJECT

public:
    F6Window(F6& model, QWidget* main);

    void setWords() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void makeToolBar();
    QLayout* makePortRow();
    void makeGrid();
    QLayout* makeBottomRow();
    void pressKey(std::string_view key);

    F6& f6_;
    QLabel* caption_ = nullptr;
    QComboBox* ports_ = nullptr;
    GridView* grid_ = nullptr;
    OverlayEditor* editor_ = nullptr;
    QToolButton* devices_ = nullptr;
};

} // namespace qvm::ui
