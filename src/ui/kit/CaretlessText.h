#pragma once

#include <QAccessible>

namespace qvm::ui {

/// The text of something that has neither a caret nor a selection of its own, as a screen reader asks for it and gives
/// it another one.
class CaretlessText : public QAccessibleTextInterface, public QAccessibleEditableTextInterface {
public:
    void selection(int /*index*/, int* start, int* end) const override { *start = *end = 0; }
    int selectionCount() const override { return 0; }
    void addSelection(int /*start*/, int /*end*/) override {}
    void removeSelection(int /*index*/) override {}
    void setSelection(int /*index*/, int /*start*/, int /*end*/) override {}
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int /*position*/) override {}
    /// An end below 0 is that of the text.
    QString text(int start, int end) const override;
    int characterCount() const override { return static_cast<int>(content().size()); }
    QRect characterRect(int /*offset*/) const override { return textRect(); }
    int offsetAtPoint(const QPoint& /*point*/) const override { return 0; }
    void scrollToSubstring(int /*start*/, int /*end*/) override {}
    QString attributes(int offset, int* start, int* end) const override;
    void deleteText(int start, int end) override { replaceText(start, end, {}); }
    void insertText(int offset, const QString& text) override { replaceText(offset, offset, text); }
    void replaceText(int start, int end, const QString& text) override;

protected:
    /// The whole text.
    virtual QString content() const = 0;
    /// Where it is on the screen.
    virtual QRect textRect() const = 0;
    /// It is to be this one. What comes of that must wait until the call is over, as it may open a box.
    virtual void takeText(const QString& whole) = 0;
};

} // namespace qvm::ui
