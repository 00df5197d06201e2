#pragma once

#include "LockResult.h"

#include <cstdint>
#include <functional>
#include <string>

namespace qvm {

/// The operator at the windows of a run: opens the lock grid, answers questions, fills the start dialog, and wants the
/// end at Ctrl-C. While it lives the message boxes are its own; behind it grid and port are closed.
class Bedienung {
public:
    /// `shown`: gets each message that wants nothing but an OK, UTF-8.
    Bedienung(Programm& program, const LaufAuftrag& order, std::function<void(const std::string&)> shown);
    ~Bedienung();
    Bedienung(const Bedienung&) = delete;
    Bedienung& operator=(const Bedienung&) = delete;

    /// How a question with a third way out is answered. Until it is set: whether the history is wanted first.
    std::function<bool()> Ja;

    /// Fills the start dialog and begins. False when it has not opened.
    bool Starten();

    /// Whether Ctrl-C was pressed since the last look.
    bool Unterbrochen();
    /// It was pressed at least once: no further lock.
    bool Will_Ende() const { return interrupts_ > 0; }
    /// What the operator is told of it.
    std::string_view Abbruch_Text() const;

    /// From now on the answer to the cancel of this run is waited for.
    void Abbruch_Beginnen();
    bool Bricht_Ab() const { return cancelling_; }
    /// The answer has not come in time, or the operator does not want to wait for it.
    bool Abbruch_Ueberfaellig();
    /// The run is over, the next one has no cancel yet.
    void Abbruch_Vorbei() { cancelling_ = false; }

private:
    Answer Antworten(const Message& message) const;

    Programm& program_;
    const LaufAuftrag& order_;
    std::function<void(const std::string&)> shown_;
    std::function<Answer(const Message&)> shownBefore_;
    int interrupts_ = 0;
    bool again_ = false; ///< Ctrl-C came a second time
    bool cancelling_ = false;
    std::int64_t cancelSince_ = 0;
};

} // namespace qvm
