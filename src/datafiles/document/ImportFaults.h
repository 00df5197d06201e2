#pragma once

#include "Finding.h"

#include <cstddef>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {

/// So many faults of a document are told in words; the others are counted.
inline constexpr std::size_t MostImportFaults = 100;

/// The faults of a document, in the order in which they stand there. A document of millions of faults takes no more
/// room than one of a hundred.
struct ImportFaults {
    std::vector<Finding> Told;
    std::size_t More = 0; ///< faults besides

    bool Empty() const { return Told.empty(); }

    /// `text` gives the sentence; it is not asked once enough is told.
    template <class Text>
    void Add(std::string_view table, int record, std::string_view field, const Text& text) {
        if (Told.size() >= MostImportFaults) {
            ++More;
            return;
        }
        Told.push_back({.Table = std::string(table),
                        .Record = record,
                        .Field = std::string(field),
                        .Text = text(),
                        .Kind = FindingKind::Document});
    }

    /// Takes over the faults of a record whose number was not known yet when they were found.
    void Take(ImportFaults& pending, int record) {
        for (Finding& fault : pending.Told) {
            Add(fault.Table, record, fault.Field, [&fault] { return std::move(fault.Text); });
        }
        More += pending.More;
        pending = {};
    }
};

} // namespace qvm
