#include "DispatcherFixture.h"
#include "SeriellesProtokoll.h"

#include <gmock/gmock.h>

namespace qvm::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Antwort_Verteilen_Refusal : DispatcherFixture {
    void Refuse(std::uint8_t reason) { Reply(0x69, {reason}); }
};

TEST_F(Antwort_Verteilen_Refusal, a_refused_erase_of_a_unit_is_repeated) {
    link.Lauf.Chain.UnitModus = 0xFD;
    TelDatenStart_Senden(link, 0);
    Refuse(0x64);
    EXPECT_EQ(Step, Schritt_Unit_Datenstart_Wiederholen);
}

TEST_F(Antwort_Verteilen_Refusal, a_unit_that_is_being_opened_is_tried_on_the_next_channel_until_all_twelve_are_used) {
    link.Lauf.Chain.UnitModus = 0xFA;
    link.Lauf.Chain.UnitTry = 0x38;
    TelKanalLesen_Senden(link, 1);
    link.Lauf.Chain.EintragFertig = 11;
    Refuse(0x64);
    EXPECT_EQ(Step, Schritt_Unit_Naechster_Kanal);
    link.Lauf.Chain.EintragFertig = 12;
    Refuse(0x64);
    EXPECT_EQ(Step, Schritt_Unit_Fehlgeschlagen);
}

TEST_F(Antwort_Verteilen_Refusal, any_other_refusal_in_a_unit_session_ends_it) {
    link.Lauf.Chain.UnitModus = 0xFD;
    TelUnitOeffnen_Senden(link, {});
    Refuse(0x65);
    EXPECT_EQ(Step, Schritt_Unit_Fehlgeschlagen);
}

TEST_F(Antwort_Verteilen_Refusal, a_refused_sign_of_life_changes_nothing) {
    TelLebenszeichen_Senden(link);
    for (const int reason : {0x64, 0x65, 0x67}) {
        Refuse(static_cast<std::uint8_t>(reason));
        EXPECT_EQ(Step, Ohne_Wirkung);
        EXPECT_THAT(Sent(), IsEmpty());
        EXPECT_FALSE(link.Lauf.Chain.AnswerSeen);
    }
}

TEST_F(Antwort_Verteilen_Refusal, an_empty_channel_of_a_scan_is_counted_and_the_scan_goes_on) {
    link.Lauf.Chain.SuchMarke = 0xAD;
    Refuse(0x64);
    EXPECT_EQ(Step, Zum_Fenster<&WindowHooks::Unit_Kanal_Leer>);
    link.Lauf.Chain.SuchMarke = 0;
    link.Lauf.Chain.SuchLauf = 1;
    Refuse(0x64);
    EXPECT_EQ(Step, Zum_Fenster<&WindowHooks::Suchlauf_Schritt>);
}

TEST_F(Antwort_Verteilen_Refusal, no_contact_goes_to_the_search_the_unit_or_the_end) {
    Refuse(0x64);
    EXPECT_EQ(Step, Schritt_Kein_Kontakt);
    link.Lauf.Chain.LaufZiel = "UNIT";
    Refuse(0x64);
    EXPECT_EQ(Step, Schritt_Unit_Kein_Kontakt);
    link.Lauf.Chain.LaufZiel = "F20";
    Refuse(0x64);
    EXPECT_EQ(Step, Schritt_Kanal_Weiter);
    link.Lauf.Chain.LaufZiel.clear();
    link.Lauf.Chain.KanalSuche = 1;
    Refuse(0x64);
    EXPECT_EQ(Step, Schritt_Kanal_Weiter);
    EXPECT_THAT(Sent(), ElementsAre(0x04)) << "on the next channel";
    EXPECT_EQ(link.TargetChannel, 2);
}

TEST_F(Antwort_Verteilen_Refusal, of_a_units_login_ends_it_but_for_no_contact_with_channels_left) {
    link.Lauf.Chain.LaufZiel = "F20";
    for (const int reason : {0x65, 0x66, 0x67, 0x6A}) {
        Refuse(static_cast<std::uint8_t>(reason));
        EXPECT_EQ(Step, Schritt_Unit_Login_Abgelehnt) << reason;
    }
    for (const int reason : {0x68, 0x69, 0x00, 0x6B}) {
        Refuse(static_cast<std::uint8_t>(reason));
        EXPECT_EQ(Step, Ohne_Wirkung) << reason;
    }
    link.Lauf.Chain.KanalIndex = 11;
    Refuse(0x64);
    EXPECT_EQ(Step, Schritt_Kanal_Weiter);
    Refuse(0x64);
    EXPECT_EQ(Step, Schritt_Unit_Login_Abgelehnt);
}

TEST_F(Antwort_Verteilen_Refusal, of_a_units_session_ends_it_for_any_reason_that_means_something) {
    link.Lauf.Chain.LaufZiel = "F22";
    for (const int reason : {0x64, 0x65, 0x66, 0x67, 0x6A}) {
        Refuse(static_cast<std::uint8_t>(reason));
        EXPECT_EQ(Step, Schritt_Unit_Code_Abgelehnt) << reason;
    }
    for (const int reason : {0x00, 0x63, 0x68, 0x69, 0x6B, 0xFF}) {
        link.AnswerDue = 0x28;
        Refuse(static_cast<std::uint8_t>(reason));
        EXPECT_EQ(Step, Ohne_Wirkung) << reason;
        EXPECT_EQ(link.AnswerDue, 0x28) << reason;
    }
}

TEST_F(Antwort_Verteilen_Refusal, reasons_65_66_and_6a_have_their_own_ends) {
    Refuse(0x65);
    EXPECT_EQ(Step, Schritt_Abgelehnt);
    Refuse(0x66);
    EXPECT_EQ(Step, Schritt_Key_Abgelehnt);
    Refuse(0x6A);
    EXPECT_EQ(Step, Schritt_Karte_Abgelehnt);
    EXPECT_THAT(Sent(), IsEmpty());
}

TEST_F(Antwort_Verteilen_Refusal, reasons_68_69_unknown_ones_and_none_do_nothing) {
    for (const int reason : {0x68, 0x69, 0x00, 0x63, 0x6B, 0xFF}) {
        Refuse(static_cast<std::uint8_t>(reason));
        EXPECT_EQ(Step, Ohne_Wirkung) << reason;
        EXPECT_THAT(Sent(), IsEmpty()) << reason;
    }
    Reply(0x69);
    EXPECT_EQ(Step, Ohne_Wirkung);
}

TEST_F(Antwort_Verteilen_Refusal, without_a_run_one_that_no_device_owes_is_noise) {
    link.Lauf.Chain.Phase = RunPhase::None;
    const auto expectNoise = [this] {
        for (const int reason : {0x64, 0x65, 0x66, 0x67, 0x68, 0x69, 0x6A}) {
            Refuse(static_cast<std::uint8_t>(reason));
            EXPECT_EQ(Step, nullptr) << reason;
            EXPECT_THAT(Sent(), IsEmpty()) << reason;
        }
    };
    expectNoise();
    TelEKeyLesen_Senden(link, 0, 0, false);
    Refuse(0x66);
    EXPECT_EQ(Step, Schritt_Leser_Abgelehnt);
    expectNoise();
    TelEKeyLesen_Senden(link, 0, 0, false);
    Reply(0x81, std::vector<std::uint8_t>(32));
    expectNoise();
    TelCodeAendern_Senden(link, {}, {});
    Refuse(0x64);
    EXPECT_EQ(Step, Schritt_Kein_Kontakt);
    TelKarteStart_Senden(link);
    TelAdapterDaten_Senden(link);
    expectNoise();
    link.Lauf.Chain.CodeChangePending = 0xFF;
    Refuse(0x65);
    EXPECT_EQ(Step, Schritt_Abgelehnt);
}

TEST_F(Antwort_Verteilen_Refusal, a_busy_lock_is_asked_39_times_to_disconnect_and_then_given_up) {
    int ends = 0;
    run.Ansicht.Fertig = [&ends](int) { ++ends; };
    for (int n = 1; n <= 39; ++n) {
        run.Timer7.Start(2000);
        Refuse(0x67);
        ASSERT_THAT(Sent(), ElementsAre(0x05)) << n;
        ASSERT_FALSE(run.Timer7.Running()) << "the polling";
        ASSERT_EQ(ends, 0) << n;
    }
    Refuse(0x67);
    EXPECT_THAT(Sent(), IsEmpty());
    EXPECT_EQ(ends, 1);
}

} // namespace
} // namespace qvm::test
