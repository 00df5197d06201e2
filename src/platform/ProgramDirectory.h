#pragma once

#include <string>

namespace qvm {

/// Where the program's directory may be. UTF-8; empty: there is none.
struct ProgramPlaces {
    std::string Named{};       ///< on the command line
    std::string Environment{}; ///< QVM_DIR
    std::string Executable{};  ///< the folder of the executable
    std::string UserData{};    ///< the user's folder for the data of programs
};

/// Those of this process, whose QCoreApplication exists.
ProgramPlaces ProgramPlaces_Here(const std::string& named);

struct ProgramDirectory {
    std::string Path;    ///< with a trailing separator
    bool OfUser = false; ///< in UserData: made at the first start
};

/// The directory in which the data files and histories of both programs lie: the one that is named, else that of
/// QVM_DIR, else the executable's when the folder DAT lies there, else `qvm7702` in the user's data folder. Makes
/// nothing.
ProgramDirectory ProgramDirectory_Choose(const ProgramPlaces& places);

/// Makes the directory of the user, with those above it, for him alone (mode 0700). One that is there stays as it is,
/// and one that was named is never made. Empty when there was nothing to make or it is made, else why not, in the
/// system's words.
std::string ProgramDirectory_Make(const ProgramDirectory& directory);

/// Where what comes with the program lies, language files and manuals, with a trailing separator: the `share/qvm7702`
/// beside the executable's folder when there is one, else that folder itself.
std::string ProgramFiles_Of(const std::string& executableFolder);

} // namespace qvm
