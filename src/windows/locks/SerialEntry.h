#pragma once

#include "Controls.h"
#include "Hook.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace qvm {

/// A serial number that is typed into four boxes, Text3 to Text6, of two hexadecimal digits each. They lie over a cell
/// while Visible. A box is emptied when it is entered.
class SerialEntry {
public:
    static constexpr std::size_t Count = 4, Digits = 2;

    SerialEntry();

    std::array<TextBox, Count> Boxes;
    Observed<bool> Visible{false};

    Hook<void()> Abgebrochen; ///< the window closes the boxes, and the cell keeps its text
    /// The window takes Serie() over and closes the boxes. `confirmed`: by a key, and not by a click elsewhere.
    Hook<void(bool confirmed)> Fertig;

    /// Opens the boxes, all empty, with the first one entered. A key that is a digit is typed into it.
    void Oeffnen(int key);
    /// Empties and closes them.
    void Schliessen();

    /// The box was entered by a click.
    void Betreten(std::size_t box);
    /// The text of a box as the view holds it; what is no digit is left out. Behind the second digit the next box is
    /// entered.
    void Getippt(std::size_t box, std::string_view text);
    /// A whole number, typed one character after the other into the boxes, which have just been opened; a point enters
    /// the next box.
    void Eintippen(std::string_view text);
    /// Tab and Return enter the next box, and confirm in the last one; Escape cancels.
    void Taste(std::size_t box, int key);
    /// A click elsewhere: what was typed is taken over, and nothing where nothing was.
    void Verlassen();

    /// Nothing was typed.
    bool Leer() const;
    /// All digits were typed.
    bool Vollstaendig() const;
    /// The four texts joined by points; empty when nothing was typed.
    std::string Serie() const;

private:
    std::size_t entered_ = 0;
    std::array<std::string, Count> typed_;
};

} // namespace qvm
