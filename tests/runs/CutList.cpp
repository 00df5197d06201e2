#include "CutList.h"

#include "Stelle.h"

#include <algorithm>

namespace qvm::test {
namespace {

constexpr int NetLock = 2;

const char* NameOf(int lock) {
    return lock == 1 ? "Tor" : lock == NetLock ? "Keller" : "Dach";
}

} // namespace

CutList::CutList() {
    AddLock(1, "Tor", "00.0A.10.01", " XXX ").History = {Event(4, 0x02), Event(3, 0x15), Event(2, 0x01)};
    AddLock(2, "Keller", "00.0A.10.02", " XXX ");
    AddLock(3, "Dach", "00.0A.10.03", " XXX ").History = {Event(1, 0x0A)};
    files.User(1, {.Name = "Anna", .Marks = {{1, 'X'}, {2, 'X'}, {3, 'X'}}});
}

CutList::Pieces CutList::Complete(int lock) {
    switch (lock) {
    case 1:
        return {"00.0A.10.01\r\n"
                "Anna            \t04.03.2026\t09:15\tE-Key\r\n",
                "Anna            \t03.03.2026\t09:15\tFingerscan\r\n"
                "\t\t\tL13\r\n",
                "Anna            \t02.03.2026\t09:15\tL15\r\n"};
    case NetLock:
        return {"Keller  /  SNA : 00.0A.10.02\r\n"
                "Anna            \t28.02.2026\t09:15\tL17\r\n"
                "\t\t\tL14\r\n",
                "Anna            \t27.02.2026\t09:15\tGuest card\r\n"};
    default:
        return {"00.0A.10.03\r\n"
                "Anna            \t01.03.2026\t09:15\tTransponder\r\n"};
    }
}

std::string CutList::Beginning(const Pieces& pieces, int count) {
    std::string text;
    for (int n = 0; n < count; ++n) {
        text += pieces[At(n)];
    }
    return text;
}

int CutList::Kept(int lock) const {
    const auto asked = Asked.find(lock);
    return asked == Asked.end() ? 0 : std::min(asked->second - 1, static_cast<int>(Complete(lock).size()));
}

std::string CutList::HistoryOf(int lock, const std::map<std::string, std::string>& disk) {
    std::string newest;
    for (const auto& [path, bytes] : disk) {
        if (path.starts_with("/q/HIST/") && path.ends_with(std::string("_") + NameOf(lock) + ".HST")) {
            newest = bytes;
        }
    }
    return newest;
}

std::map<std::string, std::string> CutList::DataOf(const std::map<std::string, std::string>& disk) {
    std::map<std::string, std::string> data;
    std::copy_if(disk.begin(), disk.end(), std::inserter(data, data.end()),
                 [](const auto& file) { return file.first.starts_with("/q/DAT/"); });
    return data;
}

void CutList::Watch() {
    NetAdapter = [this](const Bytes& frame) { PlayNetAdapter(frame); };
    const auto deliver = world.OnWrite;
    world.OnWrite = [this, deliver](std::span<const std::uint8_t> bytes) {
        if (world.PortNumber == 1) {
            if (bytes[2] == 0x17) {
                ++Asked[bytes[6]];
            }
            Rufen(OnTelegram);
        }
        deliver(bytes);
    };
}

void CutList::PlayNetAdapter(const Bytes& frame) {
    const bool asks = frame[27] == 0x0A || frame[27] == 0x0C;
    // The clear telegram behind the last block stands for one more question.
    Asked[NetLock] += asks || (frame[27] == 0x14 && frame[1] == 1) ? 1 : 0;
    Rufen(OnTelegram);
    if (PullNetAt == static_cast<int>(NetFrames.size()) - 1) {
        world.At(PullAfterMs, [this] {
            world.PortThere = [](int port) { return port != 2; };
            world.PortOpen = world.PortOpen && world.PortNumber != 2;
        });
        if (PullAfterMs == 0) {
            return;
        }
    }
    const HistoryLine first = Event(28, 0x24), second = Event(27, 0x0B);
    Bytes records(first.begin(), first.end());
    records[1] = 2;
    records.insert(records.end(), second.begin(), second.end());
    records[23] = 2;
    switch (frame[27]) {
    case 0x0A:
        // The second record is cut by the end of the block.
        NetReply(0x0B);
        NetReply(0x0C, 1, Bytes(records.begin(), records.begin() + 30), 3000);
        break;
    case 0x0C:
        NetReply(0x0D, 2, Bytes(records.begin() + 30, records.end()));
        break;
    case 0x14:
        NetReply(0x15, frame[1]);
        break;
    case 0x1E:
        NetReply(0x1F);
        NetReply(0x20, 1, {}, 5000);
        break;
    default:
        ADD_FAILURE() << "no telegram of this run: " << int{frame[27]};
        break;
    }
}

void CutList::StartList(Answer delayed) {
    if (system) {
        devices = system->World();
        devices.Faults.clear();
    }
    Asked.clear();
    NetFrames.clear();
    BeginList({NetLock});
    Watch();
    Prog({1, 2, 3}, Answer::Yes, delayed);
}

void CutList::EndList() {
    for (int rows = 0; rows < 4; ++rows) {
        // Longer than the longest wait for a telegram, shorter than an hour of listening.
        if (FinishList(60000)) {
            return;
        }
        programm->Transfer->F91.Zeile_Aufgeben();
    }
    ADD_FAILURE() << "the list never ended";
}

void CutList::PlugIn() {
    world.PortCanOpen = true;
    world.PortThere = {};
    system->Plug();
    system->World().Faults.clear();
    PullNetAt = -1;
}

void CutList::ExpectNextListWorks() {
    OnTelegram = {};
    programm->Transfer->F91.Command1_Click();
    programm->Transfer->F13.F13_FormLaden();
    programm->Transfer->F13.Timer1.Stop();
    programm->Transfer->F13.Timer2.Stop();
    Mark();
    world.RunFor(1000); // a history file is named by the second
    Prog({1, 2, 3}, Answer::Yes);
    EndList();
    EXPECT_THAT(AllRows(), ElementsAre(Programmed, Programmed, Programmed));
    for (const int lock : {1, 2, 3}) {
        const Pieces pieces = Complete(lock);
        EXPECT_EQ(HistoryOf(lock, world.Disk.Files), Beginning(pieces, static_cast<int>(pieces.size())));
    }
    EXPECT_TRUE(Lock("00.0A.10.01").DataComplete);
    EXPECT_TRUE(Lock("00.0A.10.03").DataComplete);
    EXPECT_EQ(Lock("00.0A.10.01").Users.size(), 1U);
}

void CutList::Mark() {
    Grid& grid = programm->Transfer->F13.FGK13;
    for (const int row : {1, 2, 3}) {
        grid.SetText(row, F13Column::AdapterId, row == NetLock ? "/3/224/0/1" : "/10/20/30/40");
    }
}

} // namespace qvm::test
