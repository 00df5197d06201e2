#include "CsvAusgabe.h"

#include <string>
#include <utility>

namespace qvm {

void Csv_Ausgeben(const Kern& kern, std::string_view title, std::string_view kind, std::string_view text,
                  std::string directory) {
    const auto path = kern.Welt.SaveFile({.Title = std::string(title),
                                          .Filter = std::string(kind) + "(*.CSV)|*.CSV|",
                                          .Directory = std::move(directory),
                                          .Appends = true});
    const bool written = path && kern.Welt.Files.Append(*path, text);
    kern.Meldung(written ? "CSV Print OK!" : "CSV Print ERROR!", Buttons::Ok,
                 written ? Icon::Information : Icon::Exclamation, "INFO");
}

} // namespace qvm
