#include "FensterFixture.h"

namespace qvm::test {

FensterFixture::FensterFixture() {
    // Each catalogue line says its own number, so that a test names words and messages by number.
    std::string words;
    for (int line = 1; line <= 300; ++line) {
        words += "L" + std::to_string(line) + "\r\n";
    }
    world.Disk.Files["/q/QVM_Deutsch.DAT"] = words;
    Config("RESET", 3, 5);
}

void FensterFixture::Config(std::string_view mode, int channel, int port) {
    channel_ = channel;
    world.Disk.Files["/q/DAT/EST7CSB29A.I_1"] =
        "Deutsch\r\n1\r\nUSB-Port" + std::to_string(port) + "\r\n" + std::to_string(channel) + "\r\n";
    world.Disk.Files["/q/DAT/CHEUSB25C.I_2"] = std::string(mode) + "\r\n";
}

void FensterFixture::SettledLock(int number, std::string_view name, std::string_view serial,
                                 std::string_view switches) {
    files.Lock(number, name, serial, switches);
    files.Channel(number, std::to_string(channel_), std::to_string(channel_), "0");
}

void FensterFixture::Start() {
    programm = std::make_unique<Programm>(world.World, "/q");
    ASSERT_EQ(Programm_Start(*programm, true), StartResult::Started);
}

void FensterFixture::Begin() {
    if (!programm) {
        Start();
    }
    programm->Transfer->F13.F13_FormLaden();
    programm->Transfer->F13.Timer1.Stop();
    programm->Transfer->F13.Timer2.Stop();
}

void FensterFixture::AddAdapter(std::string_view address, std::string_view name, std::string_view port) {
    AdapterSatz adapter;
    adapter.Adresse = address;
    adapter.Name = name;
    adapter.Port = port;
    programm->Adapter.Saetze.push_back(adapter);
}

void FensterFixture::Expect(int line, Answer answer) {
    world.Answers.push_back({.Text = "L" + std::to_string(line), .Reply = answer});
}

void FensterFixture::Type(std::string_view keys) {
    for (const char key : keys) {
        programm->Transfer->F11.Text1_KeyPress(static_cast<unsigned char>(key));
    }
}

void FensterFixture::OpenStart(int row) {
    Expect(63, Answer::No);
    Click(row, F13Column::Program);
    ASSERT_TRUE(programm->Transfer->F11.Fenster.Visible);
}

void FensterFixture::StartRun(int row) {
    OpenStart(row);
    Type("123456");
    programm->Transfer->F11.OK_Click();
}

std::vector<int> FensterFixture::SentCodes() const {
    std::vector<int> codes;
    const auto& bytes = world.Written;
    // A frame ends at its length plus two bytes and one more for each stuffed 0x02 behind the length.
    for (std::size_t at = 0; at + 2 < bytes.size();) {
        codes.push_back(bytes[at + 2]);
        std::size_t left = std::size_t{bytes[at + 1]};
        for (at += 2; left > 0 && at < bytes.size(); --left) {
            at += bytes[at] == 0x02 ? 2 : 1;
        }
    }
    return codes;
}

} // namespace qvm::test
