#include "NetzFixture.h"

#include "Frame.h"
#include "NetzRahmen.h"
#include "Stelle.h"
#include "Text.h"

#include <fstream>
#include <sstream>

namespace qvm::test {
namespace {

std::uint8_t Byte(int value) {
    return static_cast<std::uint8_t>(value % 256);
}

ProgSlot Codebenutzer(std::string name, std::string code, std::array<std::uint8_t, 3> bits, std::string right) {
    ProgSlot slot;
    slot.Name = std::move(name);
    slot.CodeDigits = std::move(code);
    slot.TimerBits = bits;
    slot.Funktion = std::move(right);
    return slot;
}

} // namespace

Bytes Hex(std::string_view text) {
    std::istringstream in{std::string(text)};
    Bytes bytes;
    for (std::string word; in >> word;) {
        const auto value = static_cast<std::uint8_t>(HexWert(word.substr(0, 2)));
        const std::size_t count = word.size() > 3 ? std::stoul(word.substr(3)) : 1;
        bytes.insert(bytes.end(), count, value);
    }
    return bytes;
}

std::string HexZeile(const Bytes& bytes, std::size_t first, std::size_t count) {
    std::string text;
    for (std::size_t n = first; n < bytes.size() && n - first < count; ++n) {
        text += (text.empty() ? "" : " ") + HexText(bytes[n], 2);
    }
    return text;
}

Bytes Golden(const std::string& name) {
    std::ifstream file(QVM_SOURCE_DIR "/tests/network/golden.txt");
    std::string text;
    bool here = false;
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with('[')) {
            here = line == "[" + name + "]";
        } else if (here) {
            text += line + " ";
        }
    }
    return Hex(text);
}

std::vector<ProgSlot> Jede_Art() {
    const std::string data = "1:2:3:4:5:6:7:8:9:10:11:12:13:14:15:16";
    std::vector<ProgSlot> slots;
    slots.push_back(Codebenutzer("Anna", "1234567890", {0x81, 0x42, 0x24}, "1"));
    slots.push_back(Codebenutzer("Bert Plain", "42", {}, "ADMI"));
    slots.back().TransponderA = "17:34:51:68";
    slots.back().TransponderB = data;
    slots.push_back(Codebenutzer("Carl Long", "777", {0xFF, 1, 2}, "0"));
    slots.back().TransponderA = "#7-ID#201:202:203:204:205:206:207:208:209:210:211";
    slots.back().TransponderB = data;
    slots.push_back(Codebenutzer("Dora_0263_FP    ", "EEEEEE", {8, 2, 4}, "1/2"));
    slots.back().Kind = SlotKind::Finger;
    slots.back().FingerNumber = 263;
    slots.back().PrFlag = 1;
    slots.back().Template = {120, 0};
    for (int n = 2; n < 120; ++n) {
        slots.back().Template.push_back(Byte(7 * n + 3));
    }
    slots.push_back(Codebenutzer("Emil_0009_FP    ", "EEEEEE", {}, "FS+"));
    slots.back().Kind = SlotKind::Finger;
    slots.back().FingerNumber = 9;
    return slots;
}

NetzTest::NetzTest() {
    kern.AppPath = "/qvm/";
    kern.Config.RadioChannel = "5";
    pc.World.encryptData = [](std::span<std::uint8_t, 16>, std::span<const std::uint8_t, 16>) {};
    pc.OnWrite = [this](std::span<const std::uint8_t> bytes) { Taken(bytes); };
    link.PortNummer = 3;
    link.TxBuffer.fill(0x5A);
    Werte_Setzen();
    run.LockName = "Tor";
    run.SerialText = "01.50.0C.10";
    for (int n = 0; n < 16; ++n) {
        run.TransferKey[At(n)] = Byte(0xA0 + n);
    }
    run.Ansicht = {
        .Status =
            [this](int line, int second) {
                Log.push_back("status " + Ziffern(line) + (second != 0 ? "+" + Ziffern(second) : ""));
            },
        .Blinken = [this](bool on) { Log.emplace_back(on ? "blink" : "steady"); },
        .Balken =
            [this](int maximum, int value, bool visible) {
                EXPECT_EQ(maximum, 38);
                Bars.push_back(visible ? value : -1);
            },
        .Zeile_Markieren = [this](std::string_view mark,
                                  int line) { Log.push_back("mark " + std::string(mark) + " " + Ziffern(line)); },
        .Zeile_Melden = [this](std::string_view mark,
                               const std::string& text) { Log.push_back("mark " + std::string(mark) + " " + text); },
        .Naechste_Zeile = [this](std::string_view step) { Log.push_back("next " + std::string(step)); },
        .Programmieren_Planen = [this] { Log.emplace_back("program"); },
        .Stillstand =
            [this](NetStandstill why) {
                Log.emplace_back(why == NetStandstill::NoPort     ? "no port"
                                 : why == NetStandstill::PortLost ? "port lost"
                                 : why == NetStandstill::TooLong  ? "too long"
                                                                  : "silence");
            },
        .Weiter = {},
        .Frist = [this](int minutes) { Limits.push_back(minutes); },
    };
}

void NetzTest::Werte_Setzen() {
    RunState& lauf = link.Lauf;
    lauf.Order.LockAddress = {0x01, 0x50, 0x0C, 0x10};
    lauf.Order.AdminCode = {0x12, 0x3A, 0x45};
    lauf.Values.LockMode = 0x14;
    lauf.Values.FlagCalendar = 1;
    lauf.Values.PriorityCode = 3;
    lauf.Order.EraseOption = 1;
    lauf.List.RunRow = lauf.List.RunRows = 1;
    daten.SignalFlag = "1";
    daten.UnitMode = "3";
    daten.AlwaysOn = "1";
    daten.ListenSeconds = 0x1234;
    daten.Units[0] = {.UnitPresent = true, .Type = '1', .UnitNo = "", .Name = "", .Serial = {0x01, 0x60, 0x12, 0x34}};
    daten.Units[1] = {.UnitPresent = true, .Type = '2', .UnitNo = "", .Name = "", .Serial = {0x02, 0x02, 0x02, 0x02}};
    daten.Units[2] = {.UnitPresent = true, .Type = '1', .UnitNo = "", .Name = "", .Serial = {0x01, 0x60, 0x12, 0x35}};
    daten.Units[3] = {.UnitPresent = false, .Type = '1', .UnitNo = "", .Name = "", .Serial = {0x01, 0x60, 0x12, 0x36}};
    daten.Units[4] = {.UnitPresent = true, .Type = '2', .UnitNo = "", .Name = "", .Serial = {0x01, 0x6F, 0x00, 0x01}};
    for (int n = 0; n < 11; ++n) {
        daten.TimerTableA[At(n)] = {Byte(1 + n), 7, Byte(2 * n), 18, 30};
    }
    for (int n = 0; n < 6; ++n) {
        daten.TimerTableB[At(n)] = {6, Byte(20 + n % 4), Byte(n), 23, 59};
    }
    for (int n = 0; n < 22; ++n) {
        daten.HolidayTableA[At(n)] = {Byte(1 + n), 12, 26, Byte(2 + n), 12, 26};
        daten.HolidayTableB[At(n)] = {Byte(1 + n), 1, 99, Byte(2 + n), 1, 99};
    }
}

void NetzTest::Benutzer(int count) {
    for (int n = 1; n <= count; ++n) {
        daten.Slots.push_back(
            Codebenutzer("USER" + Ziffern(n, 3), Ziffern(123450 + n, 6), {Byte(n), 0x55, 0xAA}, "1/3"));
    }
}

void NetzTest::Fingerbenutzer(int total) {
    ProgSlot slot = Codebenutzer("Finger", "EEEEEE", {}, "1");
    slot.FingerNumber = 263;
    slot.PrFlag = 1;
    slot.Template = {Byte(total - 3), Byte((total - 3) / 256)};
    for (int n = 2; n < total - 3; ++n) {
        slot.Template.push_back(Byte(5 * n + 1));
    }
    daten.Slots.push_back(slot);
}

void NetzTest::Taken(std::span<const std::uint8_t> bytes) {
    if (bytes.size() == 1 && bytes[0] == StartByte) {
        Lines.emplace_back();
    }
    ASSERT_FALSE(Lines.empty());
    Lines.back().insert(Lines.back().end(), bytes.begin(), bytes.end());
    if (bytes.size() == 1) {
        return;
    }
    Bytes frame;
    const Bytes& line = Lines.back();
    for (std::size_t n = 0; n < line.size(); ++n) {
        frame.push_back(line[n]);
        if (frame.size() > 2 && line[n] == 0x02) {
            ++n;
            ASSERT_TRUE(n < line.size() && line[n] == 0) << "0x02 without its 0x00";
        }
    }
    Sent.push_back(frame);
    SentAt.push_back(pc.Elapsed());
    if (Geraet) {
        Geraet(frame);
    }
}

Bytes NetzTest::Antwort(std::uint8_t code, std::uint8_t block, const Bytes& payload) {
    return test::NetReplyWire(code, block, payload);
}

void NetzTest::ReplyOf(std::uint8_t code, const Address& lock) {
    pc.Deliver(test::NetReplyWire(code, 1, {}, lock), 20);
}

void NetzTest::Gutes_Geraet() {
    Geraet = [this](const Bytes& frame) {
        switch (frame[27]) {
        case 0x14: {
            const int users = daten.Slots.size() > 9 ? static_cast<int>(daten.Slots.size()) - 9 : 0;
            Reply(frame[1] == 1 + (users + 18) / 19 ? 0x15 : 0x14, frame[1]);
            break;
        }
        case 0x16:
            Reply(frame[1] == frame[3] ? 0x17 : 0x16, frame[1]);
            break;
        case 0x1E:
            Reply(0x1F);
            Reply(0x20, 1, 9000);
            break;
        default:
            break;
        }
    };
}

std::string NetzTest::Codes() const {
    std::string text;
    for (const Bytes& frame : Sent) {
        text += (text.empty() ? "" : " ") + HexText(frame.at(27), 2);
    }
    return text;
}

std::string NetzTest::Ereignisse() const {
    std::string text;
    for (const std::string& entry : Log) {
        text += (text.empty() ? "" : ", ") + entry;
    }
    return text;
}

} // namespace qvm::test
