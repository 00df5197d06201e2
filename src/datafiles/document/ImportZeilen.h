#pragma once

#include "ImportFaults.h"
#include "Tables.h"

#include <cstddef>
#include <nlohmann/json_fwd.hpp>
#include <string>

namespace qvm {

/// Makes a file of lines out of a document's lines as they come.
class ImportZeilen {
public:
    /// `faults` must outlive the object.
    ImportZeilen(const LineFile& entry, ImportFaults& faults) : entry_(&entry), faults_(&faults) {}

    /// The next line. Those behind the last that is read are counted and not kept.
    void Zeile(const nlohmann::json& value);
    /// Call it at the end of the list.
    void Beenden();

    const std::string& Bytes() const { return bytes_; }

private:
    const LineFile* entry_;
    ImportFaults* faults_;
    std::size_t count_ = 0;
    bool good_ = true;
    std::string bytes_;
};

} // namespace qvm
