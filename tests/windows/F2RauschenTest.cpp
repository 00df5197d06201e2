// Good frames that nobody asked for, while the main window stands idle.

#include "AntwortRahmen.h"
#include "F2Fixture.h"

#include <map>
#include <random>

namespace qvm::test {
namespace {

struct F2_Rauschen : F2Fixture {
    /// All that an operator would notice.
    struct Picture {
        std::map<std::string, std::string> Files;
        std::vector<std::uint8_t> Sent;
        Colour Light;
        int Connected, Version;
        std::string Line, Connections, Scans;
        std::vector<bool> Windows;
        std::vector<std::string> Adapters;
        bool operator==(const Picture&) const = default;
    };

    Picture Now() {
        Picture picture{.Files = world.Disk.Files,
                        .Sent = world.Written,
                        .Light = Light(),
                        .Connected = Main().Verbunden,
                        .Version = Main().AdapterVersion,
                        .Line = Line(),
                        .Connections = Main().Label3.Text,
                        .Scans = Main().Label6.Text,
                        .Windows = {},
                        .Adapters = {}};
        for (const Window* window :
             {&Main().Fenster, &programm->Main->F6.Fenster, &programm->Transfer->F9.Fenster,
              &programm->Transfer->F11.Fenster, &programm->Transfer->F13.Fenster, &programm->Main->F14.Fenster,
              &programm->Transfer->F18.Fenster, &programm->Transfer->F91.Fenster}) {
            picture.Windows.push_back(window->Visible);
            picture.Windows.push_back(window->Enabled);
        }
        for (const AdapterSatz& adapter : programm->Adapter.Saetze) {
            picture.Adapters.push_back(adapter.Adresse + adapter.Name + adapter.Port);
        }
        return picture;
    }

    /// Frames of every code, of many lengths, with what a device might say and with anything else. All of them come
    /// before the next search.
    void Noise() {
        world.Shown.clear();
        const Picture before = Now();
        const std::int64_t start = world.Elapsed();
        std::mt19937 random(7702);
        for (int code = 0; code < 256; ++code) {
            for (const int length : {2, 3, 0x0D, 0x0F, 0x22, 0x2E, 0x40}) {
                std::vector<std::uint8_t> payload(static_cast<std::size_t>(length - 1));
                for (std::uint8_t& byte : payload) {
                    byte = static_cast<std::uint8_t>(random());
                }
                if (length == 3) { // the reasons of a refusal
                    payload[0] = static_cast<std::uint8_t>(0x64 + code % 7);
                } else if (length >= 0x0D) { // the good status of a login or a code change
                    payload[11] = static_cast<std::uint8_t>(code % 6);
                }
                world.Deliver(ReplyWire(static_cast<std::uint8_t>(code), static_cast<std::uint8_t>(length), payload));
                world.RunFor(1);
                ASSERT_TRUE(Now() == before) << "code " << code << ", length " << length;
            }
        }
        for (int reason = 0; reason < 256; ++reason) {
            world.Deliver(ReplyWire(0x69, 2, {static_cast<std::uint8_t>(reason)}));
            world.RunFor(1);
            ASSERT_TRUE(Now() == before) << "reason " << reason;
        }
        EXPECT_LT(world.Elapsed() - start, 5000);
        EXPECT_THAT(world.Shown, IsEmpty());
    }
};

TEST_F(F2_Rauschen, opens_no_box_and_changes_nothing_while_no_adapter_was_found) {
    AdapterAnswers = false;
    Open();
    ASSERT_TRUE(ScanEnds());
    ASSERT_EQ(Light(), Lampe::Gelb);
    Noise();
}

TEST_F(F2_Rauschen, opens_no_box_and_changes_nothing_beside_an_adapter) {
    Connect();
    Noise();
}

TEST_F(F2_Rauschen, opens_no_box_and_changes_nothing_behind_a_run) {
    SettledLock(1, "Tor");
    Connect();
    Begin();
    StartRun();
    ASSERT_NE(Lauf().Chain.Phase, RunPhase::None);
    Lauf_Aufgeben(programm->Run, RunOutcome::Cancelled);
    ASSERT_EQ(Lauf().Chain.Phase, RunPhase::None);
    Port_Oeffnen(programm->link, 5);
    Noise();
}

TEST_F(F2_Rauschen, the_first_identification_that_a_search_waits_for_turns_the_light_green) {
    AdapterAnswers = false;
    Open();
    world.Deliver(Identification);
    world.RunFor(100);
    EXPECT_EQ(Light(), Lampe::Gelb);
    EXPECT_EQ(Main().Verbunden, 0);
    EXPECT_FALSE(Main().Label7.Visible);
    InNextScan([this] { world.Deliver(Identification); });
    ASSERT_TRUE(ScanEnds());
    EXPECT_EQ(Light(), Lampe::Gruen);
}

} // namespace
} // namespace qvm::test
