#pragma once

#include <string>

namespace qvm {

/// What may be done without a judgement. Nothing of it touches what a file holds.
struct DoctorFix {
    enum class Kind {
        None,
        Permissions,   ///< gives the owner Path's permission bits More, takes Less away from others
        MakeDirectory, ///< makes the directory Path
        ShortLatency,  ///< sets the latency timer at Path to 1 ms
    };

    Kind What = Kind::None;
    std::string Path{}; ///< behind the program's directory; of ShortLatency the whole path
    unsigned More = 0, Less = 0;

    bool operator==(const DoctorFix&) const = default;
};

} // namespace qvm
