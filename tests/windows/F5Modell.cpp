#include "F5Modell.h"

#include <algorithm>
#include <vector>

namespace qvm::test {
namespace {

constexpr int NoFinger = 501, StandardFinger = 502, PremiumFinger = 503;

/// For sorting: small letters, umlauts without their dots.
std::string Folded(const std::string& name) {
    std::string out;
    for (const char c : name) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte == 0xC4 || byte == 0xE4) {
            out += 'a';
        } else {
            out += c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
        }
    }
    return out;
}

bool NoName(const PlainUser& user) {
    return user.Name.empty() || user.Name == "ZZZZZZZZZZ";
}

void SetName(PlainUser& user, const std::string& name) {
    user.Name = name;
    if (!name.empty()) {
        user.Group = user.Group.empty() ? "-" : user.Group;
        user.Right = user.Right.empty() ? "1" : user.Right;
        user.Picture = user.Finger.empty() ? NoFinger : StandardFinger;
    }
}

} // namespace

PlainTable::PlainTable() {
    PlainUser empty;
    empty.Group = "-";
    rows_.fill(std::make_shared<const PlainUser>(empty));
}

bool PlainTable::Same(const PlainTable& other, int row) const {
    const auto n = static_cast<std::size_t>(row);
    return rows_[n] == other.rows_[n] || *rows_[n] == *other.rows_[n];
}

bool PlainTable::operator==(const PlainTable& other) const {
    for (int row = 2; row <= 251; ++row) {
        if (!Same(other, row)) {
            return false;
        }
    }
    return true;
}

template <class Change>
void PlainTable::Replace(int row, Change change) {
    PlainUser user = At(row);
    change(user);
    if (!(user == At(row))) {
        rows_[static_cast<std::size_t>(row)] = std::make_shared<const PlainUser>(std::move(user));
    }
}

bool PlainTable::Taken(int row, std::string PlainUser::*part, const std::string& text) const {
    for (int other = 2; other <= 251; ++other) {
        if (other != row && At(other).*part == text) {
            return true;
        }
    }
    return false;
}

bool PlainTable::ConfirmName(int row, const std::string& name) {
    if (!name.empty() && Taken(row, &PlainUser::Name, name)) {
        return true;
    }
    LeaveName(row, name);
    return false;
}

void PlainTable::LeaveName(int row, const std::string& name) {
    Replace(row, [&](PlainUser& user) { SetName(user, name); });
}

bool PlainTable::ConfirmCode(int row, const std::string& text) {
    if (Taken(row, &PlainUser::Code, text)) {
        return true;
    }
    LeaveCode(row, text);
    return false;
}

void PlainTable::LeaveCode(int row, const std::string& text) {
    Replace(row, [&](PlainUser& user) { user.Code = text.size() < 6 ? "" : text; });
}

bool PlainTable::ConfirmLabel(int row, const std::string& text) {
    if (Taken(row, &PlainUser::Label, text)) {
        return true;
    }
    SetLabel(row, text);
    return false;
}

void PlainTable::SetLabel(int row, const std::string& text) {
    Replace(row, [&](PlainUser& user) { user.Label = text; });
}

void PlainTable::SetRight(int row, const std::string& right) {
    Replace(row, [&](PlainUser& user) { user.Right = right; });
}

void PlainTable::SetKey(int row, const std::string& key, const std::string& data) {
    Replace(row, [&](PlainUser& user) {
        user.Key = key;
        user.KeyData = data;
    });
}

void PlainTable::SetFinger(int row, const std::string& finger) {
    Replace(row, [&](PlainUser& user) {
        user.Finger = finger;
        user.Picture = StandardFinger;
    });
}

void PlainTable::ClassFinger(int row, bool premium) {
    Replace(row, [&](PlainUser& user) {
        if (user.Finger.empty()) {
            return;
        }
        const std::string digits = user.Finger.starts_with("PR") ? user.Finger.substr(2) : user.Finger;
        user.Finger = premium ? "PR" + digits : digits;
        user.Picture = premium ? PremiumFinger : StandardFinger;
    });
}

void PlainTable::RemoveFinger(int row) {
    Replace(row, [](PlainUser& user) {
        user.Label.clear();
        user.Finger.clear();
        user.Picture = NoFinger;
        std::replace(user.Marks.begin() + 1, user.Marks.begin() + 195, 'F', ' ');
    });
}

int PlainTable::KeyRow(const std::string& key) const {
    for (int row = 2; row <= 251; ++row) {
        if (At(row).Key == key) {
            return row;
        }
    }
    return 0;
}

bool PlainTable::HasFinger(const std::string& finger) const {
    return Taken(0, &PlainUser::Finger, finger);
}

bool PlainTable::HasLabel(const std::string& label) const {
    return Taken(0, &PlainUser::Label, label);
}

void PlainTable::StepMarks(int top, int firstLock, int bottom, int lastLock) {
    for (int row = top; row <= bottom; ++row) {
        Replace(row, [&](PlainUser& user) {
            for (int lock = firstLock; lock <= lastLock; ++lock) {
                char& mark = user.Marks[static_cast<std::size_t>(lock)];
                if (Named(lock) && !user.Name.empty()) {
                    mark = mark == 0 || mark == ' ' ? 'X' : mark == 'X' && !user.Finger.empty() ? 'F' : '\0';
                }
            }
        });
    }
}

void PlainTable::ClearCodes(int top, int bottom) {
    for (int row = top; row <= bottom; ++row) {
        Replace(row, [](PlainUser& user) { user.Code.clear(); });
    }
}

void PlainTable::ClearLabels(int top, int bottom) {
    for (int row = top; row <= bottom; ++row) {
        Replace(row, [](PlainUser& user) { user.Label.clear(); });
    }
}

void PlainTable::ClearKeys(int top, int bottom) {
    for (int row = top; row <= bottom; ++row) {
        Replace(row, [](PlainUser& user) { user.Key.clear(); });
    }
}

void PlainTable::ClearMarks(int top, int bottom, int lock) {
    for (int row = top; row <= bottom; ++row) {
        Replace(row, [&](PlainUser& user) { user.Marks[static_cast<std::size_t>(lock)] = 0; });
    }
}

void PlainTable::DeleteUsers(int top, int bottom, int menuRow) {
    for (int row = 2; row <= 251; ++row) {
        const bool selected = row >= top && row <= bottom;
        Replace(row, [&](PlainUser& user) {
            if (selected) {
                PlainUser rest;
                rest.KeyData = user.KeyData;
                rest.Marks[200] = user.Marks[200];
                user = rest;
            }
            if (selected || row == menuRow) {
                user.Finger.clear();
                user.Picture = NoFinger;
            }
        });
    }
    Sort();
}

void PlainTable::Sort() {
    std::vector<std::pair<std::string, std::shared_ptr<const PlainUser>>> named;
    std::vector<std::shared_ptr<const PlainUser>> empty;
    for (int row = 2; row <= 251; ++row) {
        const auto& user = rows_[static_cast<std::size_t>(row)];
        if (NoName(*user)) {
            empty.push_back(user);
        } else {
            named.emplace_back(Folded(user->Name), user);
        }
    }
    std::stable_sort(named.begin(), named.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    std::size_t row = 2;
    for (const auto& [name, user] : named) {
        rows_[row++] = user;
    }
    for (const auto& user : empty) {
        rows_[row] = user;
        Replace(static_cast<int>(row++), [](PlainUser& nameless) { nameless.Name.clear(); });
    }
}

void PlainTable::Clear() {
    PlainUser empty;
    empty.Picture = NoFinger;
    for (int row = 2; row <= 251; ++row) {
        Replace(row, [&](PlainUser& user) { user = empty; });
    }
}

std::string PlainChannel::Record() const {
    const std::string lock = Target.empty() ? "" : "1";
    std::string record;
    for (const std::string& field : {lock, Old, Target, lock, Change}) {
        record += field + std::string(3 - field.size(), ' ');
    }
    return record;
}

void PlainChannels::Confirm(int row) {
    Of(row).Old = Of(row).Target;
    Of(row).Change = "0";
    Red[static_cast<std::size_t>(row)] = false;
}

void PlainChannels::Paste(int row, const PlainChannel& cut, bool transponder) {
    Of(row).Old = cut.Target;
    Of(row).Change = cut.Change;
    Red[static_cast<std::size_t>(row)] = cut.Change != "0" && !transponder;
}

void PlainChannels::Recolour(const PlainTable& table) {
    for (int row = 2; row <= 251; ++row) {
        const PlainChannel& channel = Of(row);
        const bool late = !channel.Target.empty() && (channel.Old.empty() ? "1" : channel.Old) != channel.Target;
        Red[static_cast<std::size_t>(row)] = late && !table.At(row).Key.starts_with('#');
    }
}

} // namespace qvm::test
