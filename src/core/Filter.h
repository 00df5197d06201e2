#pragma once

#include "Controls.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace qvm {

/// The digit that a character stands for on a telephone keypad: digits stay; A to C give 2, D to F 3, G to I 4, J to L
/// 5, M to O 6, P to S 7, T to V 8, W to Z 9, upper and lower case alike; "+", ",", "-", "." give 1; ":", ";", "_" and
/// all else give 0. Backspace, escape and delete stay.
char F13_ASCII_FILTER(char character);

/// The digit that a key of an administrator code stands for, by the rule above: "0" to "9", letters, and the
/// marks + , - . : ; and _. Any other key is none, -1.
int Code_Ziffer(int key);

/// Keystroke filter of every time in the program, over a text box that always holds "hh:mm".
enum class ZeitTaste { Verschluckt, Geschrieben, Bestaetigt, Abgebrochen };
/// One key press. Changes text and caret of the box as far as the key is allowed to.
ZeitTaste Zeit_Taste(TextBox& box, int key);
/// Text and caret with which the box opens over a cell when a key is typed on it: a digit d gives d (at most 2) and
/// "0:00" with the caret behind it; any other key counts as 0.
void Zeit_Oeffnen(TextBox& box, int key);
/// Hours above 23 become 23, with the caret on the minutes. Run after every change of the text.
void Zeit_Geaendert(TextBox& box);

/// Characters of a user's or a lock's name: backspace, blank and delete pass, digits, letters and the German umlauts
/// and sharp s pass; everything else, escape, tab and enter too, gives 0 (swallowed): the box handles those three
/// first.
int Name_Filter(int key);

/// Characters of a user's code, after the keypad of a lock: backspace, escape and delete, digits and "A" to "Z" pass,
/// "a" to "z" become upper case, ":", ";" and "_" become "0", "+", ",", "-" and "." become "1"; everything else gives 0
/// (swallowed). Letters stay: F13_ASCII_FILTER turns them into digits when the code goes to a lock.
int F5_ASCII_FILTER(int key);

/// Characters that a serial number box takes: backspace, escape and delete pass, "0" to "9", "A" to "F" pass, "a" to
/// "f" become upper case; everything else gives 0 (swallowed).
int SN_ASCII_FILTER(int key);
/// The same rule, for the serial boxes of a lock's units.
int ASCII_FILTER_F20(int key);

} // namespace qvm
