#include "Historie.h"

#include "Schlosszeile.h"
#include "Seriennummer.h"
#include "Steuerzeichen.h"
#include "Text.h"
#include "Words.h"
#include "Zeit.h"

#include <array>

namespace qvm {
namespace {

constexpr std::size_t NameAt = 5, NameWidth = 16, EventAt = 21;
constexpr int FirstRecordByte = 14; // of a reply 0x17
constexpr int FirstSerialByte = 7;

constexpr std::uint8_t LowNibble = 0x0F, HighNibble = 0xF0;

std::string Seriennummer(const Link& link) {
    return Serie_Text({link.RxByte(FirstSerialByte), link.RxByte(FirstSerialByte + 1), link.RxByte(FirstSerialByte + 2),
                       link.RxByte(FirstSerialByte + 3)});
}

HistoryRecord Aus_Empfang(const Link& link) {
    std::array<std::uint8_t, HistoryRecordLength> bytes{};
    for (int n = 0; n < HistoryRecordLength; ++n) {
        bytes[static_cast<std::size_t>(n)] = link.RxByte(FirstRecordByte + n);
    }
    return Historie_Zerlegen(link.kern.Welt, bytes);
}

std::optional<std::string> Datum_Des_Satzes(const HistoryRecord& record) {
    return Uhr_Textdatum(record.Day, record.Month, Jahr_Text(record.Year));
}

/// A record older than the cut-off is the last one wanted. Without a cut-off it is today.
void Grenze_Pruefen(const Kern& kern, RunState& lauf, const std::optional<std::string>& date) {
    if (!Datum_Lesen(lauf.Order.HistoryCutoff)) {
        lauf.Order.HistoryCutoff = Datum_Text(Heute(kern.Welt.Now()));
    }
    if (date && *Datum_Lesen(*date) < *Datum_Lesen(lauf.Order.HistoryCutoff)) {
        lauf.Chain.HistoryStop = 0xFF;
    }
}

/// The run's file is named with its first record, again with each until one could be written.
void Dateiname_Bilden(Link& link, std::string_view lockName) {
    RunState& lauf = link.Lauf;
    const Kern& kern = link.kern;
    lauf.Chain.HistoryStateShown = 0;
    lauf.Chain.HistoryFileName = kern.HistPfad() + Historie_Dateiname(kern.Welt.Now(), lockName);
}

std::string Satzzeile(const Kern& kern, const HistoryRecord& record, const std::optional<std::string>& date) {
    return record.Name + "\t" + date.value_or("") + "\t" + Ziffern(record.Hour, 2) + ":" + Ziffern(record.Minute, 2) +
           "\t" + Ereignis_Text(kern, record.Event);
}

void Zustand_Zeigen(RunState& lauf, std::uint8_t event, const std::string& state, const ZustandAnzeige& show) {
    if (state.empty() || lauf.Chain.HistoryStateShown != 0) {
        return;
    }
    lauf.Chain.HistoryStateShown = 1;
    show(event & HighNibble, state);
}

/// What a device means by a date that does not exist is not known. Its record is kept, without the date.
void Datum_Melden(const Kern& kern, const HistoryRecord& record, std::string_view about) {
    Meldung_Zu(kern, std::string(about),
               kern.Zeile(Line::InvalidDate) + " " + Ziffern(record.Day, 2) + "." + Ziffern(record.Month, 2) + "." +
                   Jahr_Text(record.Year));
}

} // namespace

HistoryRecord Historie_Zerlegen(const Platform& platform, std::span<const std::uint8_t, HistoryRecordLength> bytes) {
    std::string name;
    for (const std::uint8_t byte : bytes.subspan(NameAt, NameWidth)) {
        name += byte < 0x20 ? ' ' : static_cast<char>(byte);
    }
    return {.Day = bytes[0],
            .Month = bytes[1],
            .Year = bytes[2],
            .Hour = bytes[3],
            .Minute = bytes[4],
            .Name = platform.OemToChar(name),
            .Event = bytes[EventAt]};
}

std::string Ereignis_Text(const Kern& kern, std::uint8_t event) {
    switch (event & LowNibble) {
    case 1:
        return kern.Zeile(Line::EventCode);
    case 2:
        return "E-Key";
    case 3:
        return kern.Zeile(Line::EventOpen);
    case 4:
        return kern.Zeile(Line::Event4);
    case 5:
        return "Fingerscan";
    case 6:
        return kern.Zeile(Line::Event6);
    case 7:
        return kern.Zeile(Line::Event7);
    case 8:
        return kern.Zeile(Line::Event8);
    case 9:
        return kern.Zeile(Line::Event9);
    case 10:
        return "Transponder";
    case 11:
        return "Guest card";
    default:
        return {};
    }
}

std::string Zustand_Text(const Kern& kern, std::uint8_t event) {
    switch (event & HighNibble) {
    case 0x10:
        return kern.Zeile(Line::StateLevel1);
    case 0x20:
        return kern.Zeile(Line::StateLevel2);
    case 0x30:
        return kern.Zeile(Line::StateLevel3);
    case 0x40:
        return kern.Zeile(Line::StateLevel4);
    case 0x50:
        return kern.Zeile(Line::StateLevel5);
    default:
        return {};
    }
}

std::string Jahr_Text(int year) {
    return (year < 10 ? "200" : "20") + Ziffern(year);
}

std::optional<std::string> Uhr_Textdatum(int day, int month, const std::string& year) {
    const Datum date{.Year = Zahlwert(year), .Month = month, .Day = day};
    return Datum_Gueltig(date) ? std::optional(Datum_Text(date)) : std::nullopt;
}

std::string Historie_Dateiname(const DateTime& now, std::string_view lockName) {
    std::string lock = Steuerzeichen_Ersetzen(lockName, '_', '_');
    for (char& character : lock) {
        constexpr std::string_view Forbidden = "/\\:*?\"<>|";
        if (Forbidden.find(character) != std::string_view::npos) {
            character = '_';
        }
    }
    return "H_" + Ziffern(now.Year, 4) + Ziffern(now.Month, 2) + Ziffern(now.Day, 2) + "_" + Ziffern(now.Hour, 2) +
           Ziffern(now.Minute, 2) + Ziffern(now.Second, 2) + "_" + lock + ".HST";
}

std::string Historie_Verlust_Text(const Kern& kern, HistoryLoss why) {
    switch (why) {
    case HistoryLoss::Unwritten:
        return kern.Zeile(Line::HistoryNotSaved);
    case HistoryLoss::Broken:
        return Wort(kern, Word::HistoryBroken);
    case HistoryLoss::Endless:
        return Wort(kern, Word::HistoryEndless, {Ziffern(MostHistoryRecords)});
    case HistoryLoss::None:
        break;
    }
    return {};
}

bool Datei_Zeile_Anhaengen(const FileStore& files, const std::string& path, std::string_view text) {
    return files.Append(path, std::string(text) + "\r\n");
}

bool Historie_Schreiben(Link& link, const HistoryRecord& record, std::string_view lockName,
                        std::string_view firstLine) {
    const Kern& kern = link.kern;
    RunState& lauf = link.Lauf;
    std::string lines;
    if (lauf.Chain.HistoryFileOpen == 0) {
        Dateiname_Bilden(link, lockName);
        lines = std::string(firstLine) + "\r\n";
    }
    lines += Satzzeile(kern, record, Datum_Des_Satzes(record));
    if (const std::string state = Zustand_Text(kern, record.Event); !state.empty()) {
        lines += "\r\n\t\t\t" + state;
    }
    // In one piece: a full disk or the end of the program leaves a record with its state, or none of it.
    if (!Datei_Zeile_Anhaengen(kern.Welt.Files, lauf.Chain.HistoryFileName, lines)) {
        return false;
    }
    lauf.Chain.HistoryFileOpen = 1;
    return true;
}

bool Historie_Sichern(Link& link) {
    RunState& lauf = link.Lauf;
    if (lauf.Chain.HistoryFileOpen == 0 || link.kern.Welt.Files.Flush(lauf.Chain.HistoryFileName)) {
        return true;
    }
    if (lauf.Chain.HistoryLost == HistoryLoss::None) {
        lauf.Chain.HistoryLost = HistoryLoss::Unwritten;
    }
    return false;
}

bool Historie_Eintrag(Link& link, std::string_view lockName, const ZustandAnzeige& show, std::string_view about) {
    // Everything is taken out of the buffer first: a message box lets further frames in.
    const HistoryRecord record = Aus_Empfang(link);
    const std::string serial = Seriennummer(link);
    const Kern& kern = link.kern;
    const auto date = Datum_Des_Satzes(record);
    const std::string state = Zustand_Text(kern, record.Event);

    Grenze_Pruefen(kern, link.Lauf, date);
    const bool written = Historie_Schreiben(link, record, lockName, serial);
    if (written) {
        Zustand_Zeigen(link.Lauf, record.Event, state, show);
    }
    // One box a run is enough, and a list goes on without any.
    if (!date && !link.Lauf.Chain.HistoryDateTold && link.Lauf.List.RunRows == 0) {
        link.Lauf.Chain.HistoryDateTold = true;
        Datum_Melden(kern, record, about);
    }
    return written;
}

} // namespace qvm
