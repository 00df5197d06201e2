// The search of the adapter window.

#include "AdapterScan.h"
#include "AutoRegister.h"
#include "F6Fixture.h"
#include "Pictures.h"

#include <cstring>

namespace qvm::test {
namespace {

/// Ports 5 and 7 answer as adapters with names of their own.
struct F6_Suche : F6_Fixture {
    std::function<void()> during;
    std::map<int, std::string> AdapterNames; ///< by port, those of another name than PROGSTATION

    void SetUp() override {
        F6_Fixture::SetUp();
        programm->Adapter.PortListe = {5, 7};
        world.OnWrite = [this](std::span<const std::uint8_t> bytes) {
            if (during) {
                during();
            }
            if (bytes[2] == 0x68) {
                world.Deliver({0x02, 0x0F, 0x68, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x23, 0x00, 0xF4}, 10);
            } else if (bytes[2] == 0x6C) {
                const auto name = AdapterNames.find(world.PortNumber);
                world.Deliver(Record(world.PortNumber, name == AdapterNames.end() ? "PROGSTATION" : name->second), 10);
            }
        };
    }
    static std::vector<std::uint8_t> Record(int port, std::string name) {
        name.resize(20, ' ');
        std::vector<std::uint8_t> frame{0x02, 0x2E, 0x6C, 10, 20, 30, static_cast<std::uint8_t>(port), 0};
        for (const char c : name) {
            frame.push_back(static_cast<std::uint8_t>(c));
        }
        frame.resize(0x2E + 2, 0);
        unsigned sum = 0;
        for (std::size_t n = 0; n <= 0x2E; ++n) {
            sum = (sum << 1U | sum >> 7U) & 0xFFU;
            sum += frame[n];
            sum = sum > 255 ? sum - 255 : sum;
        }
        frame.push_back(static_cast<std::uint8_t>(sum));
        return frame;
    }
};

TEST_F(F6_Suche, fills_the_rows_with_what_was_found_and_forgets_the_rest) {
    Open();
    Adapters().Command1_Click();
    EXPECT_EQ(Cell(0, F6Column::Name), "L186");
    EXPECT_EQ(Cell(1, F6Column::Number), "1");
    EXPECT_EQ(Cell(1, F6Column::Address), "/10/20/30/5");
    EXPECT_EQ(Cell(1, F6Column::Name), "PROGSTATION");
    EXPECT_EQ(Cell(1, F6Column::Port), "5");
    EXPECT_EQ(Picture(1), AdapterPicture::Present);
    EXPECT_EQ(Cell(2, F6Column::Address), "/10/20/30/7");
    EXPECT_EQ(Cell(2, F6Column::Port), "7");
    EXPECT_EQ(Cell(3, F6Column::Address), "");
    EXPECT_EQ(Picture(3), AdapterPicture::None);
    EXPECT_EQ(world.HourglassDepth, 0);
    EXPECT_TRUE(Adapters().Fenster.Enabled);
    Expect(60, Answer::Yes);
    GoBack();
    EXPECT_EQ(world.Disk.Files[List].substr(0, 38), "/10/20/30/5     PROGSTATION         5 ");
}

TEST_F(F6_Suche, finds_an_adapter_of_any_name_also_again_and_leaves_it_out_of_runs) {
    AdapterNames[5] = "Keller";
    Open();
    for (int time = 1; time <= 2; ++time) {
        Adapters().Command1_Click();
        EXPECT_EQ(Cell(1, F6Column::Name), "PROGSTATION") << time;
        EXPECT_EQ(Picture(1), AdapterPicture::Present);
        EXPECT_EQ(Cell(2, F6Column::Address), "/10/20/30/5");
        EXPECT_EQ(Cell(2, F6Column::Name), "Keller");
        EXPECT_EQ(Cell(2, F6Column::Port), "5");
        EXPECT_EQ(Cell(2, F6Column::State), "nicht verwendbar");
        EXPECT_EQ(Picture(2), AdapterPicture::Unusable);
        EXPECT_EQ(Cell(3, F6Column::Address), "");
        // As after any search for runs.
        EXPECT_EQ(programm->Adapter.Saetze.size(), 1U);
        EXPECT_EQ(programm->Adapter.ProgStationPort, 7);
        EXPECT_THAT(programm->Adapter.PortListe, ElementsAre(7));
    }
    Expect(60, Answer::Yes);
    GoBack();
    EXPECT_EQ(world.Disk.Files[List].substr(65, 38), "/10/20/30/5     Keller              5 ");
}

TEST_F(F6_Suche, finds_one_whose_port_an_earlier_search_has_given_up) {
    AdapterNames = {{5, "A"}, {7, "B"}};
    Adapter_Suchen(programm->link, programm->Adapter);
    ASSERT_THAT(programm->Adapter.PortListe, IsEmpty());
    Open();
    Adapters().Command1_Click();
    EXPECT_EQ(Cell(1, F6Column::Name), "A");
    EXPECT_EQ(Cell(2, F6Column::Name), "B");
    EXPECT_EQ(programm->Adapter.ProgStationPort, KeinPort);
}

TEST_F(F6_Suche, one_that_was_named_back_is_found_by_the_search_for_runs) {
    AdapterNames[5] = "Keller";
    AdapterNames[7] = "Dach";
    Open();
    Adapters().Command1_Click();
    ASSERT_EQ(Cell(1, F6Column::Name), "Keller");
    const auto search = world.OnWrite;
    world.OnWrite = [this, search](std::span<const std::uint8_t> bytes) {
        if (bytes[2] == 0x6D) {
            const auto* name = reinterpret_cast<const char*>(bytes.data()) + 3;
            AdapterNames[world.PortNumber] = std::string(name, ::strnlen(name, 20));
            world.Deliver(NameReply(AdapterNames[world.PortNumber]), 10);
        } else {
            search(bytes);
        }
    };
    Expect(189);
    Rename(1, "PROGSTATION Keller");
    ASSERT_EQ(AdapterNames[5], "PROGSTATION Keller");
    Expect(60, Answer::Yes);
    GoBack();
    EXPECT_TRUE(Adapter_Suchen(programm->link, programm->Adapter));
    EXPECT_EQ(programm->Adapter.ProgStationPort, 5);
    ASSERT_EQ(programm->Adapter.Saetze.size(), 1U);
    EXPECT_EQ(programm->Adapter.Saetze[0].Name, "PROGSTATION Keller");
}

TEST_F(F6_Suche, a_port_change_while_it_runs_puts_the_rows_back_and_is_no_change) {
    Open();
    during = [this] { Port_Einrichten(programm->link, programm->Adapter); };
    Adapters().Command1_Click();
    EXPECT_EQ(Cell(1, F6Column::Address), "/10/20/30/40");
    EXPECT_EQ(Cell(1, F6Column::Name), "PROGSTATION 1");
    EXPECT_EQ(Picture(1), AdapterPicture::Absent);
    EXPECT_EQ(Cell(2, F6Column::Address), "/1/2/3/4");
    EXPECT_EQ(Cell(2, F6Column::Port), "9");
    GoBack(); // asks nothing
    EXPECT_EQ(returned, 1);
    EXPECT_EQ(world.Disk.Files[List].substr(0, 12), "/10/20/30/40");
}

TEST_F(F6_Suche, finding_the_same_again_is_no_change) {
    world.Disk.Files[List] =
        F6_Fixture::Record("/10/20/30/5", "PROGSTATION", "5") + F6_Fixture::Record("/10/20/30/7", "PROGSTATION", "7");
    Open();
    Adapters().Command1_Click();
    GoBack();
    EXPECT_EQ(returned, 1);
}

TEST_F(F6_Suche, keys_do_nothing_while_it_runs) {
    Open();
    during = [this] {
        EXPECT_FALSE(Adapters().Fenster.Enabled);
        EXPECT_GT(world.HourglassDepth, 0);
        Adapters().Command1_Click();
        Adapters().Check1_Click(false);
        Adapters().Combo1_Click(9);
        Adapters().FGK6_Click(1, F6Column::Name);
        GoBack();
        Press("Speichern");
    };
    Adapters().Command1_Click();
    EXPECT_TRUE(Adapters().Fenster.Visible);
    EXPECT_TRUE(Adapters().Check1.Checked);
    EXPECT_FALSE(Adapters().Text3.Visible);
    EXPECT_EQ(returned, 0);
    EXPECT_EQ(prepared, 0);
    EXPECT_EQ(Cell(2, F6Column::Port), "7");
}

TEST_F(F6_Suche, more_than_18_adapters_fill_18_rows) {
    for (int n = 8; n <= 26; ++n) {
        world.AdapterPortNumbers.push_back(n);
    }
    Open();
    Adapters().Command1_Click();
    EXPECT_EQ(programm->Adapter.Saetze.size(), 21U);
    EXPECT_EQ(Cell(18, F6Column::Port), "23"); // 5, then 7, 8, 9 and so on from row 2
    EXPECT_EQ(Cell(19, F6Column::Address), "");
}

} // namespace
} // namespace qvm::test
