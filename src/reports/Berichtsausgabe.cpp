#include "Berichtsausgabe.h"

#include "Kern.h"
#include "Pdf.h"
#include "Text.h"
#include "Words.h"

#include <new>
#include <optional>
#include <string>

namespace qvm {
namespace {

constexpr std::string_view AusgabeTitle = "INFO";

std::optional<std::string> Pdf_Versuchen(const Report& report) {
    try {
        return Pdf_Text(Seiten_Setzen(report));
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
}

} // namespace

void Bericht_Sichern(const Kern& kern, const Report& report) {
    const auto path = kern.Welt.SaveFile({.Title = report.Title, .Filter = "PDF (*.pdf)|*.pdf|", .Directory = {}});
    if (!path) {
        return;
    }
    const std::optional<std::string> bytes = Pdf_Versuchen(report);
    if (!bytes) {
        kern.Meldung(Wort(kern, Word::ReportNoMemory), Buttons::Ok, Icon::Exclamation, AusgabeTitle);
        return;
    }
    const bool written = kern.Welt.Files.Replace(*path, *bytes);
    kern.Meldung(Wort(kern, written ? Word::ReportSaved : Word::ReportNotSaved, {AusUtf8(*path)}), Buttons::Ok,
                 written ? Icon::Information : Icon::Exclamation, AusgabeTitle);
}

void Bericht_Drucken(const Kern& kern, const Report& report) {
    if (kern.Welt.PrintPages && kern.Welt.PrintPages(Seiten_Setzen(report)) == PrintResult::Failed) {
        kern.Meldung(Wort(kern, Word::ReportNotPrinted), Buttons::Ok, Icon::Exclamation, AusgabeTitle);
    }
}

} // namespace qvm
