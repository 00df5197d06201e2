#pragma once

#include <string>
#include <string_view>

/// Texts as a search compares them: small and capital letters are one, and so are a letter with and without its accent.
/// An umlaut is found by its base letter and by its two-letter spelling: "Tur" and "Tuer" both find "Tür".
namespace qvm {

/// `wanted` stands somewhere in the text. An empty one stands everywhere.
bool Text_Enthaelt(std::string_view text, std::string_view wanted);

/// The text begins with `wanted`. Every text begins with an empty one.
bool Text_Beginnt(std::string_view text, std::string_view wanted);

/// The text by which a list is sorted: small letters, each without its accent; an umlaut as its base letter.
std::string Sortierform(std::string_view text);

} // namespace qvm
