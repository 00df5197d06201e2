#pragma once

#include "Grid.h"

#include <optional>
#include <string>

namespace qvm {

struct Kern;

/// Radio channels of locks and E-Keys, RFCHANDIF12.RFX. Record r serves lock r and the E-Key of user r. Every change
/// takes effect on the disk at once. A missing file reads as blanks. A routine gives false when the number is out of
/// range or the file could not be read or written; the file is then as it was.

/// What a run asks about a lock.
struct KanalStand {
    int Channel = 1;           ///< on which the lock was last programmed; 1 when blank or no channel
    int Target = 1;            ///< to which the system is set; RadioChannel when blank or no channel
    bool ChangePending = true; ///< the lock must still change channel; true when blank

    bool operator==(const KanalStand&) const = default;
};

/// State of lock 1 to 200; that of a blank record for other numbers and on a file error.
KanalStand Kanal_Stand(const Kern& kern, int lock);

/// The lock was programmed: lock channel and target channel become RadioChannel, no change pending.
bool Kanal_Ausgefuehrt(const Kern& kern, int lock);

/// The lock must still change channel. Touches nothing but the flag.
bool Kanal_Offen(const Kern& kern, int lock);

/// A search has found the lock on this channel, 1 to 12: it becomes the lock channel, and a change is pending where the
/// target is another one, or blank. Touches nothing else.
bool Kanal_Gefunden(const Kern& kern, int lock, int channel);

/// The E-Key of the user in this row (2 to 251) of the user table now has the target channel: EKold takes it, no change
/// pending, the key's cell becomes black. A blank target goes over as it is.
bool Key_Kanal_Bestaetigen(const Kern& kern, Grid& users, int row);

/// What of a user's channel record goes along with a key that is cut out of the user's row: both as they stand,
/// trimmed.
struct KeyKanal {
    std::string Change; ///< "0": the key listens on the target channel
    std::string Target;

    bool operator==(const KeyKanal&) const = default;
};
/// Blank texts for other rows than 2 to 251. Nothing when the file cannot be read.
std::optional<KeyKanal> Key_Kanal_Lesen(const Kern& kern, int row);
/// A key that brings this along was pasted into the row: its flag, and its target as EKold. The key's cell becomes
/// black where the flag is "0", and red otherwise; that of a transponder, which has no channel, black.
bool Key_Kanal_Einfuegen(const Kern& kern, Grid& users, int row, const KeyKanal& channel);

/// The system was set to a new channel, 1 to 12: the target of records 1 to 201, and of further ones up to 250 that the
/// file holds. Blank channels become 1; a change is pending where a channel differs from the target.
bool Kanal_Umstellen(const Kern& kern, int channel);

} // namespace qvm
