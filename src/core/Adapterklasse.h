#pragma once

#include <string_view>

namespace qvm {

/// The eleven characters that a name begins with tell what an adapter is for.
inline constexpr std::string_view ProgrammingClass = "PROGSTATION", EnrolmentClass = "ENROLLMENT1";

/// A name of one of the two classes; an adapter of any other name is of no use to a run.
constexpr bool Adaptername_Brauchbar(std::string_view name) {
    return name.starts_with(ProgrammingClass) || name.starts_with(EnrolmentClass);
}

} // namespace qvm
