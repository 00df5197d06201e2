#include "F6Fixture.h"

namespace qvm::test {
namespace {

std::string Padded(std::string_view text, std::size_t width) {
    std::string out(text);
    out.resize(width, ' ');
    return out;
}

} // namespace

std::vector<std::uint8_t> F6_Fixture::NameReply(std::string_view name) {
    std::vector<std::uint8_t> frame{0x02, 0x1C, 0x6D, 0, 0, 0, 0, 0};
    for (const char c : Padded(name, 20)) {
        frame.push_back(static_cast<std::uint8_t>(c));
    }
    frame.resize(0x1C + 2, 0);
    unsigned sum = 0;
    for (std::size_t n = 0; n <= 0x1C; ++n) {
        sum = (sum << 1U | sum >> 7U) & 0xFFU; // doubling with end-around carry
        sum += frame[n];
        sum = sum > 255 ? sum - 255 : sum;
    }
    frame.push_back(static_cast<std::uint8_t>(sum));
    return frame;
}

void F6_Fixture::SetUp() {
    Config("SET", 3, 5);
    world.AdapterPortNumbers = {5, 7};
    world.Disk.Files[List] =
        Record("/10/20/30/40", "PROGSTATION 1", "5") + Record("/1/2/3/4", "PROGSTATION Keller", "9");
    world.OnWrite = [this](std::span<const std::uint8_t> bytes) { Answer_Name(bytes); };
    Start();
    AddAdapter("/10/20/30/40", "PROGSTATION 1", "7");
}

std::string F6_Fixture::Record(std::string_view address, std::string_view name, std::string_view port) {
    return Padded(address, 16) + Padded(name, 20) + Padded(port, 2) + std::string(10, ' ') + std::string(17, '\0');
}

void F6_Fixture::Open() {
    back = programm->kern.Windows.BackToMain.Listen([this] { ++returned; });
    Adapters().Port_Eingerichtet = [this] { ++prepared; };
    programm->link.PortNummer = 5;
    Adapters().F6_Laden();
}

void F6_Fixture::Rename(int row, std::string_view name) {
    Adapters().FGK6_Click(row, F6Column::Name);
    ASSERT_TRUE(Adapters().Text3.Visible);
    Adapters().Text3_Change(name);
    Adapters().Text3_KeyPress(Key::Enter);
}

void F6_Fixture::Answer_Name(std::span<const std::uint8_t> bytes) {
    if (bytes.size() < 25 || bytes[2] != 0x6D) {
        return;
    }
    Names.emplace_back(bytes.begin() + 3, bytes.begin() + 25);
    NamePorts.push_back(world.PortNumber);
    if (StoredName) {
        std::vector<std::uint8_t> wire = NameReply(*StoredName);
        wire.insert(wire.end(), BehindReply.begin(), BehindReply.end());
        world.At(100, [this, wire] {
            for (const std::uint8_t byte : wire) {
                Empfang_Byte(programm->link, byte);
            }
        });
    }
}

} // namespace qvm::test
