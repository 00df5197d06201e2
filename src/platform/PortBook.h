#pragma once

#include "Platform.h"

#include <cstdint>
#include <map>
#include <vector>

namespace qvm {

/// What stands behind a port number. Two are equal as long as nothing was unplugged, put in or linked anew.
struct PortIdentity {
    std::uint64_t Device = 0; ///< the device's number
    std::uint64_t Node = 0;   ///< the file that names it; made anew with each plugging
    std::uint64_t Link = 0;   ///< the link that leads there, 0: none
    std::int64_t LinkTime = 0;

    bool operator==(const PortIdentity&) const = default;
};

/// Port numbers with something behind them.
using PortsThere = std::map<int, PortIdentity>;

/// Knows what was there at the last look, and so what has changed since.
class PortBook {
public:
    explicit PortBook(PortsThere there) : there_(std::move(there)) {}

    /// Takes down what is there now. Gives at most one removal and one arrival, in that order: a number that stands for
    /// something else now is both.
    std::vector<PortChange> Look(PortsThere now);

private:
    PortsThere there_;
};

} // namespace qvm
