#pragma once

#include <QLabel>

namespace qvm::ui {

/// A text of as many lines as it needs at the width that it gets; its window grows with it where there is no room.
class WrappingLabel : public QLabel {
public:
    /// `lines`: so many always have their room, so that nothing moves when a text of that length comes.
    WrappingLabel(int lines, QWidget* parent);

    QSize sizeHint() const override { return minimumSizeHint(); }
    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    int lines_;
};

} // namespace qvm::ui
