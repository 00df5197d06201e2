#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>

namespace qvm::test {

/// A user as the rules see him, without a grid.
struct PlainUser {
    std::string Name{}, Group{}, Right{}, Code{}, Label{}, Key{}, KeyData{}, Finger{};
    int Picture = 0;
    std::array<char, 201> Marks{}; ///< by lock; 0: none

    bool operator==(const PlainUser&) const = default;
};

/// The rules of the user table, written anew and plainly, to hold the window against. Rows as in the grid, 2 to 251.
/// What a routine gives is whether a message comes; the table then stays as it was.
class PlainTable {
public:
    PlainTable();

    const PlainUser& At(int row) const { return *rows_[static_cast<std::size_t>(row)]; }
    /// The row holds the same user as that of the other table.
    bool Same(const PlainTable& other, int row) const;
    bool operator==(const PlainTable& other) const;

    bool ConfirmName(int row, const std::string& name);
    void LeaveName(int row, const std::string& name);
    /// `text` has none or six characters.
    bool ConfirmCode(int row, const std::string& text);
    void LeaveCode(int row, const std::string& text);
    bool ConfirmLabel(int row, const std::string& text);
    void SetLabel(int row, const std::string& text);
    void SetRight(int row, const std::string& right);
    void SetKey(int row, const std::string& key, const std::string& data);
    void SetFinger(int row, const std::string& finger);
    /// The class is a prefix of the finger's name; of nobody's finger it is none.
    void ClassFinger(int row, bool premium);
    /// With its slot and its marks, of which a blank stays, up to lock 194.
    void RemoveFinger(int row);
    /// The first row with this key; 0: none.
    int KeyRow(const std::string& key) const;
    bool HasFinger(const std::string& finger) const;
    bool HasLabel(const std::string& label) const;
    /// Locks whose number is a multiple of three, and those above 12 but for 199 and 200, have no name.
    static bool Named(int lock) { return (lock <= 12 || lock >= 199) && lock % 3 != 0; }
    void StepMarks(int top, int firstLock, int bottom, int lastLock);
    void ClearCodes(int top, int bottom);
    void ClearLabels(int top, int bottom);
    void ClearKeys(int top, int bottom);
    void ClearMarks(int top, int bottom, int lock);
    /// The users of the rows, and the finger of `menuRow`; then sorts.
    void DeleteUsers(int top, int bottom, int menuRow);
    void Sort();
    void Clear();

private:
    template <class Change>
    void Replace(int row, Change change);
    bool Taken(int row, std::string PlainUser::*part, const std::string& text) const;

    std::array<std::shared_ptr<const PlainUser>, 252> rows_;
};

/// A user's record of the radio channels, as far as the window goes.
struct PlainChannel {
    std::string Old{}, Target{}, Change{};

    /// Of a lock on channel 1 that is to be told; without a target an empty record, but for what is new in it.
    std::string Record() const;
};

/// The channels of all users, which an undo leaves as they are, and the colours that tell of them. Rows 2 to 251; the
/// channel of a row is that of its number.
class PlainChannels {
public:
    std::array<bool, 252> Red{}; ///< by row: the key is still to be told its channel

    PlainChannel& Of(int row) { return records_[static_cast<std::size_t>(row) - 1]; }
    /// The key of the row has been told its channel.
    void Confirm(int row);
    /// The row has the key of a user who had this channel. A transponder has none that it could be told.
    void Paste(int row, const PlainChannel& cut, bool transponder);
    void Recolour(const PlainTable& table);

private:
    std::array<PlainChannel, 251> records_;
};

} // namespace qvm::test
