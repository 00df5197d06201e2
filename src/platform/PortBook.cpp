#include "PortBook.h"

#include <algorithm>
#include <utility>

namespace qvm {

namespace {

/// True when `first` has something that `second` lacks.
bool Lacks(const PortsThere& second, const PortsThere& first) {
    return std::any_of(first.begin(), first.end(), [&second](const auto& port) {
        const auto found = second.find(port.first);
        return found == second.end() || found->second != port.second;
    });
}

} // namespace

std::vector<PortChange> PortBook::Look(PortsThere now) {
    std::vector<PortChange> changes;
    if (Lacks(now, there_)) {
        changes.push_back(PortChange::Removed);
    }
    if (Lacks(there_, now)) {
        changes.push_back(PortChange::Arrived);
    }
    there_ = std::move(now);
    return changes;
}

} // namespace qvm
