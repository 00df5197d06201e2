#include "CheckStand.h"
#include "LockRecords.h"
#include "Tables.h"
#include "Text.h"

#include <algorithm>
#include <set>

namespace qvm {

namespace {

/// Line n (from 1) without blanks around it; empty when the file is shorter.
std::string Dateizeile(const std::vector<std::string>& lines, std::size_t number) {
    return number <= lines.size() ? std::string(Trim(lines[number - 1])) : std::string();
}

void Einstellungswerte_Pruefen(CheckStand& stand, const std::vector<std::string>& lines) {
    constexpr std::string_view file = "EST7CSB29A.I_1";
    if (const std::string language = Dateizeile(lines, 1);
        !Leer_Oder(language, {"Deutsch", "English", "Francais", "Nederlands"})) {
        stand.Melden(FindingKind::Dangling, file, 1, "Sprache", "there is no language " + Zitat(language));
    }
    const std::string portName = lines.size() < 3 ? "" : lines[2];
    const std::string_view port = Trim(Mid(portName, 9));
    const int number = Dezimalzahl(port).value_or(0);
    if (!port.empty() && (number < 1 || number > 16)) {
        stand.Melden(FindingKind::Range, file, 3, "PortName", Zitat(port) + " is not a port from 1 to 16");
    }
    const std::string channelText = Dateizeile(lines, 4);
    const int channel = Dezimalzahl(channelText).value_or(0);
    if (!channelText.empty() && (channel < 1 || channel > 12)) {
        stand.Melden(FindingKind::Range, file, 4, "RadioChannel",
                     Zitat(channelText) + " is not a channel from 1 to 12");
    }
}

void Offsetzeiten_Pruefen(CheckStand& stand, const std::vector<std::string>& lines) {
    for (const int number : {2, 3}) {
        const std::string text = Dateizeile(lines, static_cast<std::size_t>(number));
        if (!text.empty() && !Uhrzeit_Minuten(text)) {
            stand.Melden(FindingKind::Range, "OFSTSETUPDT.FST", number, "", Zitat(text) + " is not a time");
        }
    }
}

void Auswahl_Pruefen(CheckStand& stand, const std::vector<std::string>& lines) {
    constexpr std::string_view file = "ASWTIMQVMLCK.FSN";
    if (const std::string mode = Dateizeile(lines, 2); mode != "HOTEL" && mode != "OBJEKT") {
        stand.Melden(FindingKind::Range, file, 2, "", "there is no mode " + Zitat(mode) + "; it counts as OBJEKT");
    }
    for (int number = 3; number <= 10; ++number) {
        if (const std::string mark = Dateizeile(lines, static_cast<std::size_t>(number)); mark != "X" && mark != "0") {
            stand.Melden(FindingKind::Range, file, number, "", "a slot is marked \"X\" or \"0\", not " + Zitat(mark));
        }
    }
    if (Dateizeile(lines, 11) != "ENDE") {
        stand.Melden(FindingKind::Damaged, file, 11, "", "does not end with \"ENDE\"");
    }
}

void Objektgruppe_Pruefen(CheckStand& stand, const std::vector<std::string>& lines) {
    constexpr std::string_view file = "ObJNR09DAT.OBN";
    const std::optional<int> group = Dezimalzahl(Dateizeile(lines, 2));
    if (!group || *group > 254) {
        stand.Melden(FindingKind::Range, file, 2, "", Zitat(Dateizeile(lines, 2)) + " is not a group from 0 to 254");
    } else if (Dezimalzahl(Dateizeile(lines, 3)) != *group + 1) {
        stand.Melden(FindingKind::Damaged, file, 3, "", "is not the group's number plus 1");
    }
}

void Dauertueren_Pruefen(CheckStand& stand, const std::vector<std::string>& lines) {
    constexpr std::string_view file = "PERMSELECT.RFS";
    std::set<std::string> serials;
    for (int lock = 1; lock <= stand.Letzter(LockRecord::Record); ++lock) {
        serials.insert(Seriennummer(stand, LockRecord::Record, lock, LockRecord::Sn1, LockRecord::Sn2, LockRecord::Sn3,
                                    LockRecord::Sn4)
                           .Text);
    }
    DoubledTexts seen;
    for (std::size_t number = 2; number <= lines.size(); ++number) {
        const std::string serial = Dateizeile(lines, number);
        if (serial == "ENDE") {
            return;
        }
        const int line = static_cast<int>(number);
        if (!serials.contains(serial)) {
            stand.Melden(FindingKind::Dangling, file, line, "", "no lock has the serial " + Zitat(serial));
        }
        if (const auto first = seen.Sehen(serial, line)) {
            stand.Melden(FindingKind::Doubled, file, line, "",
                         Zitat(serial) + " stands in line " + std::to_string(*first) + ", too");
        }
    }
    stand.Melden(FindingKind::Damaged, file, 0, "", "does not end with \"ENDE\"");
}

} // namespace

void Konfiguration_Pruefen(CheckStand& stand) {
    if (const auto lines = stand.Zeilen("EST7CSB29A.I_1")) {
        Einstellungswerte_Pruefen(stand, *lines);
    }
    if (const auto lines = stand.Zeilen("CHEUSB25C.I_2")) {
        if (const std::string mode = Dateizeile(*lines, 1); !Leer_Oder(mode, {"SET", "RESET"})) {
            stand.Melden(FindingKind::Range, "CHEUSB25C.I_2", 1, "PortAutomatik",
                         Zitat(mode) + " is neither SET nor RESET");
        }
    }
}

void Gastkarten_Pruefen(CheckStand& stand) {
    if (const auto lines = stand.Zeilen("OFSTSETUPDT.FST")) {
        Offsetzeiten_Pruefen(stand, *lines);
    }
    if (const auto lines = stand.Zeilen("ASWTIMQVMLCK.FSN")) {
        Auswahl_Pruefen(stand, *lines);
    }
    if (const auto lines = stand.Zeilen("ObJNR09DAT.OBN")) {
        Objektgruppe_Pruefen(stand, *lines);
    }
    if (const auto lines = stand.Zeilen("PERMSELECT.RFS")) {
        Dauertueren_Pruefen(stand, *lines);
    }
}

} // namespace qvm
