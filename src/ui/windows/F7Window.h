#pragma once

#include "F7.h"
#include "WindowBase.h"

class QPlainTextEdit;

namespace qvm::ui {

class GridView;

/// F7 on the screen: tool bar, history grid, the hits of the last search, status bar. Besides the keys of the tool bar:
/// Ctrl+O opens a file, Ctrl+F searches, F3 and Shift+F3 go from hit to hit, Ctrl+C copies the selected rows.
class F7Window : public WindowBase {
    Q_OBJECT

public:
    explicit F7Window(F7& f7, QWidget* main = nullptr);
    ~F7Window() override;

    void setWords() override;

private:
    void makeGrid();
    void makeHits();
    void makeStatus();
    void makeShortcuts();
    /// The cell becomes the current one, and the grid gets the keyboard.
    void showCell(int row, int column);
    void copyRows();

    F7& f7_;
    GridView* grid_ = nullptr;
    QPlainTextEdit* hits_ = nullptr;
};

} // namespace qvm::ui
