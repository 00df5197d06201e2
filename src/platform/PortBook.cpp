#include "PortBook.h"

#include <algorithm>
#include <utility>

namespace qvm {

namespace {

/// True when `first` has something that `second` lacks.
bool HasMore(const PortsThere& first, const PortsThere& second) {
    return std::any_of(first.begin(), first.end(), [&second](const auto& port) {
        const auto found = second.find(port.first);
        return found == second.end() || found->second != port.second;
    });
}

} // namespace

std::vector<PortChange> PortBook::Look(PortsThere now) {
    std::vector<PortChange> changes;
    if (HasMore(there_, now)) {
        changes.push_back(PortChange::Removed);
    }
    if (HasMore(now, there_)) {
        changes.push_back(PortChange::Arrived);
    }
    there_ = std::move(now);
    return changes;
}

} // namespace qvm
