#pragma once

#include "FileStore.h"

#include <map>
#include <optional>
#include <string>

namespace qvm {

/// The files of an installation as the virtual building sees them: what it writes is kept in memory and goes with this
/// object. Nothing is ever written to the disk, whatever the path.
class Gebaeudedateien {
public:
    enum class Beginn {
        Kopie, ///< with the files of the installation, which must not change meanwhile
        Leer,  ///< with none
    };

    /// @param disk the files of the real world, read alone
    /// @param directory the program's, with a trailing separator; its DAT and HIST are the installation
    Gebaeudedateien(FileStore disk, std::string directory, Beginn begin);
    Gebaeudedateien(const Gebaeudedateien&) = delete;
    Gebaeudedateien& operator=(const Gebaeudedateien&) = delete;

    /// The record of functions over this object, which must outlive it. Other paths than those of the installation can
    /// be read; a write there is refused.
    FileStore Store();

private:
    bool Innen(const std::string& path) const;
    bool Vorhanden(const std::string& path) const;
    ReadStatus Lesen(const std::string& path, std::string& bytes);
    bool Schreiben(const std::string& path, std::optional<std::string> bytes);
    /// Lets `change` work on what the file holds, nothing for one that is missing.
    template <class Change>
    bool Aendern(const std::string& path, const Change& change);
    std::vector<std::string> Namen(const std::string& path) const;

    FileStore disk_;
    std::string directory_;
    Beginn begin_;
    std::map<std::string, std::optional<std::string>> changed_; ///< without a value: removed
};

} // namespace qvm
