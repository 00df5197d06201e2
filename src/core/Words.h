#pragma once

#include "Kern.h"

#include <WordList.h>
#include <initializer_list>
#include <string>
#include <string_view>

/// The program's own words, which the language files do not hold: lang/words.tsv, compiled in. Word names them.
namespace qvm {

/// In code page 1252. `language`: as the configuration names it; German for any other.
std::string_view Wort(Word which, std::string_view language);

/// In the language in use.
std::string Wort(const Kern& kern, Word which);

/// The same with its places filled: "%1" gets the first of `places`, up to "%9". A place without a text becomes empty,
/// and a "%1" inside a filled-in text stays as it is.
std::string Wort(const Kern& kern, Word which, std::initializer_list<std::string_view> places);

/// `pattern` with its places filled in the same way.
std::string Ausfuellen(std::string_view pattern, std::initializer_list<std::string_view> places);

/// A text that the system shows in German whatever the language: as it is, and in another language followed by its
/// translation behind `separator`.
std::string Fester_Text(const Kern& kern, Word which, std::string_view separator = "\r\n");

/// Title of a window that bears none of its own: the system's title and what the window is for.
std::string Fenstertitel(std::string_view purpose);

} // namespace qvm
