#pragma once

#include <QLabel>

namespace qvm::ui {

/// A line of text that takes the width it gets, with "..." where it does not fit; the whole text then is its tool tip.
/// It never asks for more room, so that nothing around it moves; where its policy lets it (Maximum for one) it takes as
/// much as the whole text needs.
class ElidedLabel : public QLabel {
public:
    explicit ElidedLabel(QWidget* parent = nullptr);

    void setFullText(const QString& text);
    /// A tool tip of its own, whether the text fits or not; empty: none.
    void setTip(const QString& tip);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void fit();

    QString text_;
    QString tip_;
};

} // namespace qvm::ui
