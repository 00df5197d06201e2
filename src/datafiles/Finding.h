#pragma once

#include "FileStore.h"

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>

namespace qvm {

/// Something wrong in a data file or in a document, named by table, record and field.
struct Finding {
    std::string Table{};     ///< name of the record, or the name of a line file; empty: the document as a whole
    int Record = 0;          ///< record or line number from 1; 0: the table as a whole
    std::string Field{};     ///< empty: the record as a whole
    std::string Text{};      ///< what is wrong, a sentence without its full stop, UTF-8
    std::string_view Kind{}; ///< one of the kinds below

    bool operator==(const Finding&) const = default;
};

namespace FindingKind {
inline constexpr std::string_view Damaged = "damaged", Dangling = "dangling", Range = "range", Doubled = "doubled",
                                  Gap = "gap", Document = "document";
}

/// A file of the table that is there and could not be read, with the reason.
Finding Befund_Unlesbar(std::string_view table, std::string_view file, FileFault fault);

/// "UserRecord, record 3, UserCode: text".
std::string Befund_Text(const Finding& finding);
nlohmann::ordered_json Befund_Json(const Finding& finding);

} // namespace qvm
