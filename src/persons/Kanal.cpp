#include "Kanal.h"

#include "Kern.h"
#include "Record.h"
#include "Text.h"
#include "UserRecords.h"
#include "UserTable.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

namespace qvm {

namespace {

constexpr int Channels = 12;
/// Records that a change of the system's channel writes in any case.
constexpr int ScheduledRecords = 201;

std::string Vorgabe(const std::string& text, std::string_view whenBlank) {
    return text.empty() ? std::string(whenBlank) : text;
}

/// The record as it stands, but with fields that hold a 0x00, as in a gap of the file, padded with blanks.
std::string Satz(const RecordFile& channels, int n) {
    std::string record = channels.Record(n);
    for (const RecordField& field : channels.Layout().Fields) {
        if (Feld_Roh(record, field).find('\0') != std::string::npos) {
            Feld_Schreiben(record, field, Feld_Lesen(record, field));
        }
    }
    return record;
}

/// Reads record n, lets `change` work on it and writes it in place.
template <class Change>
bool Satz_Aendern(const Kern& kern, int n, Change change) {
    RecordFile channels(ChannelRecord::Record);
    if (channels.Laden(kern.Welt.Files, kern.DatPfad()) == ReadStatus::Error) {
        return false;
    }
    std::string record = Satz(channels, n);
    change(record);
    return Satz_Schreiben(kern.Welt.Files, kern.DatPfad(), ChannelRecord::Record, n, record);
}

bool Ist_Schloss(int lock) {
    return lock >= 1 && lock <= UserGrid::Locks;
}

bool Ist_Benutzerzeile(int row) {
    return row >= UserGrid::FirstRow && row <= UserGrid::LastRow;
}

/// A blank channel becomes 1; the flag says whether it differs from the target.
void Kanal_Vormerken(std::string& record, const RecordField& channelField, const RecordField& flagField, int target) {
    const std::string channel = Vorgabe(Feld_Lesen(record, channelField), "1");
    Feld_Schreiben(record, channelField, channel);
    Feld_Schreiben(record, flagField, Zahlwert(channel) == target ? "0" : "1");
}

/// A stored channel as a number; what is blank or no channel, 1 to 12, gives `otherwise`.
int Kanalnummer(const std::string& text, int otherwise) {
    const int channel = Zahlwert(text);
    return channel >= 1 && channel <= Channels ? channel : otherwise;
}

} // namespace

KanalStand Kanal_Stand(const Kern& kern, int lock) {
    RecordFile channels(ChannelRecord::Record);
    channels.Laden(kern.Welt.Files, kern.DatPfad()); // what cannot be read is blank
    const int n = Ist_Schloss(lock) ? lock : 0;
    return {.Channel = Kanalnummer(channels.Text(n, ChannelRecord::LockChannel), 1),
            .Target = Kanalnummer(channels.Text(n, ChannelRecord::TargetChannel), kern.Config.Funkkanal()),
            .ChangePending = Zahlwert(Vorgabe(channels.Text(n, ChannelRecord::LockChange), "1")) == 1};
}

bool Kanal_Ausgefuehrt(const Kern& kern, int lock) {
    return Ist_Schloss(lock) && Satz_Aendern(kern, lock, [&](std::string& record) {
               const std::string channel = Ziffern(kern.Config.Funkkanal());
               Feld_Schreiben(record, ChannelRecord::LockChannel, channel);
               Feld_Schreiben(record, ChannelRecord::TargetChannel, channel);
               Feld_Schreiben(record, ChannelRecord::LockChange, "0");
           });
}

bool Kanal_Offen(const Kern& kern, int lock) {
    return Ist_Schloss(lock) && Satz_Aendern(kern, lock, [](std::string& record) {
               Feld_Schreiben(record, ChannelRecord::LockChange, "1");
           });
}

bool Kanal_Gefunden(const Kern& kern, int lock, int channel) {
    return Ist_Schloss(lock) && channel >= 1 && channel <= Channels &&
           Satz_Aendern(kern, lock, [&](std::string& record) {
               const int target = Zahlwert(Feld_Lesen(record, ChannelRecord::TargetChannel));
               Feld_Schreiben(record, ChannelRecord::LockChannel, Ziffern(channel));
               Feld_Schreiben(record, ChannelRecord::LockChange, channel == target ? "0" : "1");
           });
}

bool Key_Kanal_Bestaetigen(const Kern& kern, Grid& users, int row) {
    const bool written =
        Ist_Benutzerzeile(row) && Satz_Aendern(kern, row - 1, [](std::string& record) {
            Feld_Schreiben(record, ChannelRecord::Ekeychange, "0");
            Feld_Schreiben(record, ChannelRecord::EKold, Feld_Lesen(record, ChannelRecord::TargetChannel));
        });
    if (written) {
        users.SetForeColor(row, UserColumn::KeyId, UserLook::KeyInStep);
    }
    return written;
}

std::optional<KeyKanal> Key_Kanal_Lesen(const Kern& kern, int row) {
    if (!Ist_Benutzerzeile(row)) {
        return KeyKanal{};
    }
    RecordFile channels(ChannelRecord::Record);
    if (channels.Laden(kern.Welt.Files, kern.DatPfad()) == ReadStatus::Error) {
        return {};
    }
    return KeyKanal{.Change = std::string(Trim(channels.Text(row - 1, ChannelRecord::Ekeychange))),
                    .Target = std::string(Trim(channels.Text(row - 1, ChannelRecord::TargetChannel)))};
}

bool Key_Kanal_Einfuegen(const Kern& kern, Grid& users, int row, const KeyKanal& channel) {
    const bool written = Ist_Benutzerzeile(row) && Satz_Aendern(kern, row - 1, [&](std::string& record) {
                             Feld_Schreiben(record, ChannelRecord::Ekeychange, channel.Change);
                             Feld_Schreiben(record, ChannelRecord::EKold, channel.Target);
                         });
    if (written) {
        const bool transponder = LTrim(users.Text(row, UserColumn::KeyId)).starts_with('#');
        const bool inStep = transponder || channel.Change == "0";
        users.SetForeColor(row, UserColumn::KeyId, inStep ? UserLook::KeyInStep : UserLook::KeyOutOfStep);
    }
    return written;
}

bool Kanal_Umstellen(const Kern& kern, int channel) {
    RecordFile channels(ChannelRecord::Record);
    if (channel < 1 || channel > Channels || channels.Laden(kern.Welt.Files, kern.DatPfad()) == ReadStatus::Error) {
        return false;
    }
    const int last = std::clamp(channels.Count(), ScheduledRecords, UserGrid::Users);
    for (int n = 1; n <= last; ++n) {
        std::string record = Satz(channels, n);
        Feld_Schreiben(record, ChannelRecord::TargetChannel, Ziffern(channel));
        Kanal_Vormerken(record, ChannelRecord::LockChannel, ChannelRecord::LockChange, channel);
        Kanal_Vormerken(record, ChannelRecord::EKold, ChannelRecord::Ekeychange, channel);
        channels.SetRecord(n, record);
    }
    return channels.Speichern(kern.Welt.Files, kern.DatPfad());
}

} // namespace qvm
