#pragma once

#include <array>
#include <string_view>

/// The manual: a PDF for each language, which opens at the chapter that belongs to a window.
namespace qvm {

struct Kern;

struct HandbuchKapitel {
    std::string_view Window;
    std::string_view Destination; ///< in the PDF; named in docs/manual
};

/// Where the manual opens for each window.
inline constexpr std::array<HandbuchKapitel, 27> HandbuchKapitelListe{{
    {"F1", "files"},         {"F3", "holidays"},
    {"F4", "switch-clocks"}, {"F41", "switch-clocks"},
    {"F42", "guest-times"},  {"F5", "people"},
    {"F51", "fingers"},      {"F6", "adapters"},
    {"F60", "guest-cards"},  {"F7", "history"},
    {"F8", "history"},       {"F9", "programming"},
    {"F91", "lists"},        {"F92", "lists"},
    {"F10", "holidays"},     {"F11", "programming"},
    {"F12", "locks"},        {"F13", "programming"},
    {"F14", "channels"},     {"F15", "first-steps"},
    {"F16", "people"},       {"F17", "change-code"},
    {"F18", "channels"},     {"F19", "serial-numbers"},
    {"F20", "units"},        {"Gebaeude", "virtual-building"},
    {"Pc", "check-this-pc"},
}};

/// The destination for a window, "F5" for one; empty, which is the first page, for one that has none.
std::string_view Handbuch_Kapitel(std::string_view window);

/// Opens the manual of the language in use, the German one for any other. `destination`: a chapter's; empty: the first
/// page. Tells the operator when the manual is missing, and where it was looked for, or when nothing opens it.
void Handbuch_Oeffnen(const Kern& kern, std::string_view destination);

} // namespace qvm
