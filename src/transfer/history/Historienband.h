#pragma once

#include "HistorieLesen.h"
#include "Kern.h"

#include <string>
#include <vector>

namespace qvm {

/// What a line of a history does to the bands that the view colours its rows with.
enum class BandMark {
    None,
    Turns,  ///< opens a band, or closes the one that is open
    OneRow, ///< stands out itself
};

/// The event texts that make bands. A file keeps the words of the language in which it was read from the lock, so those
/// of every language beside the program count, behind the words in use.
class Bandtexte {
public:
    /// Reads the language files; one that is missing or cannot be read adds nothing.
    explicit Bandtexte(const Kern& kern);

    /// Only an event makes a band: the text of a state or of the lock's line means something else. Blanks behind the
    /// event's text do not count.
    BandMark Marke(const HistoryLine& line) const;

private:
    struct Eintrag {
        std::string Text;
        BandMark Mark;
    };

    void Aufnehmen(const std::string& text, BandMark mark);

    std::vector<Eintrag> entries_; ///< the first that bears a text decides
};

} // namespace qvm
