#include "ListenFixture.h"

#include "NetzRahmen.h"

#include <algorithm>

namespace qvm::test {
namespace {

constexpr std::string_view DirectId = "/10/20/30/40", NetId = "/3/224/0/1";

} // namespace

HistoryLine ListenFixture::Event(int day, std::uint8_t event) {
    HistoryLine line{};
    line[0] = static_cast<std::uint8_t>(day);
    line[1] = 3;
    line[2] = 26;
    line[3] = 9;
    line[4] = 15;
    const std::string name = "Anna";
    std::copy(name.begin(), name.end(), line.begin() + 5);
    line[21] = event;
    return line;
}

void ListenFixture::BeginList(const std::vector<int>& network) {
    Begin();
    Grid& grid = programm->Transfer->F13.FGK13;
    if (!network.empty()) {
        world.Disk.Files["/q/DAT/CHEUSB25C.I_2"] = "SET       \r\n";
        programm->kern.Config.PortAutomatik = "SET";
        AdapterSatz direct;
        direct.Adresse = DirectId;
        direct.Name = "PROGSTATION 1";
        direct.Port = "1";
        AdapterSatz net = direct;
        net.Adresse = NetId;
        net.Name = "PROGSTATION N";
        net.Port = "2";
        programm->Adapter.Saetze = {direct, net};
        for (int row = 1; row < grid.Rows(); ++row) {
            const bool through = std::find(network.begin(), network.end(), row) != network.end();
            grid.SetText(row, F13Column::AdapterId, through ? NetId : DirectId);
        }
    }
    const auto serial = world.OnWrite;
    world.OnWrite = [this, serial](std::span<const std::uint8_t> bytes) {
        if (world.PortNumber == 2) {
            NetTaken(bytes);
        } else {
            serial(bytes);
        }
    };
}

void ListenFixture::Prog(const std::vector<int>& locks, Answer history, Answer delayed, std::string_view code) {
    for (const int lock : locks) {
        programm->Transfer->F13.FGK13.SetText(lock, F13Column::Mark, "X");
    }
    world.Answers.push_front({.Text = "L269", .Reply = delayed});
    world.Answers.push_front({.Text = "L63", .Reply = history});
    programm->Transfer->F13.Toolbar1_ButtonClick("Prog.");
    TypeCode(code);
}

void ListenFixture::SaveHistory(const std::vector<int>& locks) {
    for (const int lock : locks) {
        programm->Transfer->F13.FGK13.SetText(lock, F13Column::Mark, "X");
    }
    world.Answers.push_front({.Text = "L269", .Reply = Answer::No});
    programm->Transfer->F13.Toolbar1_ButtonClick("SaveHistory");
    TypeCode("123456");
}

bool ListenFixture::FinishList(std::int64_t limitMs) {
    const bool ended = world.RunUntil([this] { return !programm->Transfer->F91.Laeuft(); }, limitMs);
    world.RunFor(100);
    return ended;
}

ListenFixture::Row ListenFixture::RowAt(int row) const {
    const Grid& list = programm->Transfer->F91.FGK91;
    return {list.Text(row, F91Column::Mark), list.Text(row, F91Column::StateText)};
}

std::vector<ListenFixture::Row> ListenFixture::AllRows() const {
    std::vector<Row> rows;
    for (int row = 1; row < programm->Transfer->F91.FGK91.Rows(); ++row) {
        rows.push_back(RowAt(row));
    }
    return rows;
}

void ListenFixture::ExpectNothingLeft() {
    world.Answers.push_back({.Text = "Programmierung abgeschlosse"});
}

void ListenFixture::NetTaken(std::span<const std::uint8_t> bytes) {
    if (bytes.size() == 1) {
        netLine_.assign(bytes.begin(), bytes.end());
        return;
    }
    netLine_.insert(netLine_.end(), bytes.begin(), bytes.end());
    const Bytes frame = NetUnstuffed(netLine_);
    NetFrames.push_back(frame);
    if (NetAdapter) {
        NetAdapter(frame);
    }
}

void ListenFixture::NetReply(std::uint8_t code, std::uint8_t block, const Bytes& payload, int delayMs) {
    world.Deliver(NetReplyWire(code, block, payload), delayMs);
}

void ListenFixture::GoodNetAdapter() {
    NetAdapter = [this](const Bytes& frame) {
        switch (frame[27]) {
        case 0x14:
            NetReply(frame[1] == frame[3] ? 0x15 : 0x14, frame[1]);
            break;
        case 0x1E:
            NetReply(0x1F);
            NetReply(0x20, 1, {}, 5000);
            break;
        default:
            break;
        }
    };
}

} // namespace qvm::test
