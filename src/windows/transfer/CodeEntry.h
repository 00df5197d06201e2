#pragma once

#include "Controls.h"
#include "RunState.h"
#include "Secret.h"

namespace qvm {

/// What is typed into a box for an administrator code: the digits in memory that is overwritten, and a "*" for each of
/// them on the screen. The caret stays at the end.
class CodeEntry {
public:
    static constexpr int Length = 6;

    explicit CodeEntry(TextBox& box) : box_(box) {}

    /// One key: a character gives the digit that it stands for on a telephone keypad, backspace takes the last one
    /// back. A key that stands for no digit, and a seventh digit, change nothing; false then.
    bool Taste(int key);
    void Leeren();
    int Stellen() const { return count_; }
    bool Vollstaendig() const { return count_ == Length; }
    /// As a telegram carries it; a digit that is missing counts as 0.
    AdminCodeBytes Gepackt() const;
    bool Gleicht(const CodeEntry& other) const { return count_ == other.count_ && digits_ == other.digits_; }

private:
    TextBox& box_;
    Secret<Length> digits_;
    int count_ = 0;
};

} // namespace qvm
