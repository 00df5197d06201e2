#pragma once

#include <string>
#include <string_view>

/// What becomes of a text that is typed into a box with a rule for its characters.
namespace qvm {

/// The key is a character that a text can hold.
bool Ist_Zeichen(int key);

/// A filter that lets every character through.
int Jedes_Zeichen(int key);

/// The characters of the text that the filter lets through, as it leaves them. `filter`: one of Filter.h, which gives 0
/// for what is swallowed.
std::string Gefiltert(std::string_view text, int (*filter)(int key));

/// Where the caret stands when `kept` became of `text`, to which the operator has changed `before`. What is behind the
/// change is behind the caret still.
int Einfuegestelle(std::string_view before, std::string_view text, std::string_view kept);

} // namespace qvm
