#include "Protokoll.h"

#include "LinkFixture.h"

#include <gmock/gmock.h>
#include <string>
#include <vector>

namespace qvm {
namespace {

using test::Hex;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;
using Way = TraceFrame::Direction;

Mitschnitt Frame(Way way, std::string_view text) {
    Mitschnitt frame;
    frame.Way = way;
    frame.Bytes = Hex(text);
    return frame;
}

/// The value of a field for people; "-" when the telegram has no such field.
std::string Wert(const DecodedTelegram& telegram, std::string_view name) {
    for (const DecodedField& field : telegram.Fields) {
        if (field.Name == name) {
            return field.Text;
        }
    }
    return "-";
}

constexpr std::string_view Login = "02 14 04 11 22 33 44 11 00 33 88 01 00 00 12 3A 45 EE 07 AA 55 FD";
constexpr std::string_view UserData = "02 17 0E 11 22 33 44 11 00 33 88 01 00 00 01 02 12 34 A5 EE EE 80 0C 00 4E";

TEST(Dekodieren_Test, names_a_telegram_and_its_fields) {
    const DecodedTelegram telegram = Dekodieren(Frame(Way::Sent, Login));
    EXPECT_EQ(telegram.Name, "TelVerbinden");
    EXPECT_EQ(telegram.Code, 0x04);
    EXPECT_EQ(Wert(telegram, "address"), "11 22 33 44");
    EXPECT_EQ(Wert(telegram, "device class"), "17");
    EXPECT_EQ(Wert(telegram, "mode"), "0");
    EXPECT_EQ(Wert(telegram, "radio channel"), "7");
    EXPECT_EQ(Wert(telegram, "filler"), "EE");
    EXPECT_TRUE(telegram.Remarks.empty());
}

TEST(Dekodieren_Test, hides_the_administrator_code_and_its_bytes) {
    const DecodedTelegram telegram = Dekodieren(Frame(Way::Sent, Login));
    ASSERT_EQ(telegram.Fields.size(), 8U);
    EXPECT_EQ(telegram.Fields[3].Name, "administrator code");
    EXPECT_EQ(telegram.Fields[3].Text, "hidden");
    EXPECT_TRUE(telegram.Fields[3].Bytes.empty());
}

TEST(Dekodieren_Test, shows_codes_as_digits_when_asked_to) {
    EXPECT_EQ(Wert(Dekodieren(Frame(Way::Sent, Login), Geheimnis::Zeigen), "administrator code"), "123045");
    EXPECT_EQ(Wert(Dekodieren(Frame(Way::Sent, UserData), Geheimnis::Zeigen), "user code"), "123405----");
}

TEST(Dekodieren_Test, takes_numbers_of_two_bytes_high_byte_first) {
    EXPECT_EQ(Wert(Dekodieren(Frame(Way::Sent, UserData)), "user slot"), "258");
}

TEST(Dekodieren_Test, shows_texts_without_the_zeros_behind_and_other_bytes_than_ascii_in_hexadecimal) {
    const DecodedTelegram telegram = Dekodieren(Frame(
        Way::Sent, "02 1D 0B 11 22 33 44 11 00 33 88 01 00 00 4D 81 6C 20 22 7C 00 00 00 00 00 00 00 00 00 00 A1"));
    EXPECT_EQ(Wert(telegram, "user name"), R"("M\x81l \x22\x7C")");
}

TEST(Dekodieren_Test, shows_rows_apart) {
    const DecodedTelegram telegram = Dekodieren(Frame(
        Way::Sent, "02 37 21 11 22 33 44 11 00 33 88 01 00 00 00 30 01 63 31 01 63 31 01 63 32 01 63 32 01 63 33 01 "
                   "63 33 01 63 34 01 63 34 01 63 35 01 63 35 01 63 36 01 63 36 01 63 37 01 5F"));
    EXPECT_EQ(Wert(telegram, "rows"), "30 01 63 31 01 63 / 31 01 63 32 01 63 / 32 01 63 33 01 63 / 33 01 63 34 01 63 / "
                                      "34 01 63 35 01 63 / 35 01 63 36 01 63 / 36 01 63 37 01");
}

struct Form {
    std::string_view Bytes;
    std::string_view Name;
};
void PrintTo(const Form& form, std::ostream* out) {
    *out << form.Name;
}

class Formen : public ::testing::TestWithParam<Form> {};

TEST_P(Formen, are_told_apart_by_their_length_or_their_constant_bytes) {
    const DecodedTelegram telegram = Dekodieren(Frame(Way::Sent, GetParam().Bytes));
    EXPECT_EQ(telegram.Name, GetParam().Name);
    EXPECT_TRUE(telegram.Remarks.empty());
}

INSTANTIATE_TEST_SUITE_P(
    Codes, Formen,
    ::testing::Values(
        Form{"02 12 04 11 22 33 44 11 00 33 88 01 00 00 12 3A 45 EE 07 D0", "TelVerbindenKurz"},
        Form{"02 0E 67 11 22 33 44 11 00 33 88 01 00 00 05 F8", "TelEKeyLesenAlt"},
        Form{"02 0F 67 11 22 33 44 11 00 33 88 01 00 00 05 64 96", "TelEKeyLesen"},
        Form{"02 0E 6F 03 01 11 22 33 44 00 00 00 00 00 00 44", "TelAdapterZiel"},
        Form{"02 2C 6F 11 22 33 44 11 00 33 88 01 00 00 01 00 04 00 00 01 05 03 1A 0E 1E 09 03 1A 0B 00 25 6B "
             "41 42 43 44 45 46 47 48 50 51 52 53 09 13",
             "TelKarteSchreiben"},
        Form{"02 2C 6F 11 22 33 44 11 00 33 88 01 00 00 03 01 04 00 00 01 05 03 1A 0E 1E 09 03 1A 0B 00 25 6B "
             "41 42 43 44 45 46 47 48 50 51 52 53 09 B3",
             "TelKarteFolge"},
        Form{"02 14 6F 11 22 33 44 11 00 33 88 01 00 00 00 03 07 08 09 0A 0B A1", "TelKarteFolge"},
        Form{"02 1D 43 11 22 33 44 C3 00 33 88 01 00 00 01 02 03 01 02 01 02 03 04 05 06 07 08 09 0A 00 EF",
             "TelIdDaten2"}));

TEST(Dekodieren_Test, finds_the_fields_behind_the_rows_of_a_short_card_telegram) {
    const DecodedTelegram telegram = Dekodieren(Frame(
        Way::Sent, "02 2C 6F 11 22 33 44 11 00 33 88 01 00 00 01 00 04 00 00 01 05 03 1A 0E 1E 09 03 1A 0B 00 25 6B "
                   "41 42 43 44 45 46 47 48 50 51 52 53 09 13"));
    EXPECT_EQ(Wert(telegram, "entries"), "50 51 52 53");
    EXPECT_EQ(telegram.Fields.back().Name, "mode");
    EXPECT_EQ(telegram.Fields.back().Text, "9");
    EXPECT_EQ(Wert(telegram, "room code"), "9579");
}

TEST(Dekodieren_Test, takes_a_reply_by_its_own_layout) {
    const DecodedTelegram reply = Dekodieren(
        Frame(Way::Received,
              "02 22 17 00 00 00 00 00 00 00 00 00 00 00 05 03 1A 0A 1E 45 76 61 00 00 00 00 00 00 00 00 00 00 "
              "00 00 00 31 D2"));
    EXPECT_EQ(reply.Name, "RpHistorieSatz");
    EXPECT_EQ(Wert(reply, "day"), "5");
    EXPECT_EQ(Wert(reply, "minute"), "30");
    EXPECT_EQ(Wert(reply, "name"), "\"Eva\"");
    EXPECT_EQ(Wert(reply, "event"), "49");
    EXPECT_EQ(Wert(reply, "address"), "-");
    EXPECT_TRUE(reply.Remarks.empty());
}

TEST(Dekodieren_Test, leaves_out_fields_that_a_short_reply_does_not_have) {
    const DecodedTelegram reply = Dekodieren(Frame(Way::Received, "02 09 04 C1 C2 C3 C4 D1 D2 D3 D4 FA"));
    EXPECT_EQ(reply.Name, "RpVerbunden");
    EXPECT_EQ(Wert(reply, "serial"), "D1 D2 D3 D4");
    EXPECT_EQ(Wert(reply, "status"), "-");
}

TEST(Dekodieren_Test, calls_an_unknown_code_unknown) {
    const DecodedTelegram telegram = Dekodieren(Frame(Way::Received, "02 03 E9 01 55 F0"));
    EXPECT_EQ(telegram.Name, "unknown");
    EXPECT_EQ(telegram.Code, 0xE9);
    EXPECT_TRUE(telegram.Fields.empty());
    EXPECT_TRUE(telegram.Remarks.empty());
}

TEST(Dekodieren_Test, calls_a_known_code_of_a_foreign_length_unknown) {
    EXPECT_EQ(Dekodieren(Frame(Way::Sent, "02 0E 05 11 22 33 44 11 00 33 88 01 00 00 00 CD")).Name, "unknown");
}

TEST(Dekodieren_Test, remarks_a_wrong_checksum) {
    std::string frame(Login);
    frame[frame.size() - 1] = frame[frame.size() - 1] == '0' ? '1' : '0';
    EXPECT_THAT(Dekodieren(Frame(Way::Sent, frame)).Remarks, ElementsAre("wrong checksum"));
}

TEST(Dekodieren_Test, remarks_a_size_that_differs_from_the_length_byte) {
    EXPECT_THAT(Dekodieren(Frame(Way::Sent, "02 0D 05 11 22")).Remarks,
                ElementsAre("the length byte calls for 15 bytes, there are 5"));
    EXPECT_THAT(Dekodieren(Frame(Way::Received, "02 03 05 11 22 33 44")).Remarks,
                ElementsAre("the length byte calls for 6 bytes, there are 7"));
}

TEST(Dekodieren_Test, remarks_why_a_frame_was_dropped) {
    Mitschnitt frame = Frame(Way::Dropped, "02 03 05 11 22 99");
    frame.Result = RxResult::BadChecksum;
    EXPECT_THAT(Dekodieren(frame).Remarks, ElementsAre("dropped, wrong checksum"));
    frame.Result = RxResult::BadStuffing;
    EXPECT_THAT(Dekodieren(frame).Remarks, ElementsAre("dropped, broken stuffing"));
    frame.Result = RxResult::TooLong;
    EXPECT_THAT(Dekodieren(frame).Remarks, ElementsAre("dropped, too long"));
}

TEST(Dekodieren_Test, takes_bytes_that_are_no_telegram) {
    EXPECT_EQ(Dekodieren(Frame(Way::Sent, "")).Name, "unknown");
    EXPECT_THAT(Dekodieren(Frame(Way::Received, "02 FF")).Remarks, ElementsAre("too short for a telegram"));
}

TEST(Protokoll_Zeile_Test, has_direction_bytes_and_meaning) {
    EXPECT_EQ(Protokoll_Zeile(Frame(Way::Sent, "02 0D 05 11 22 33 44 11 00 33 88 01 00 00 D6")),
              std::string("> ") + "02 0D 05 11 22 33 44 11 00 33 88 01 00 00 D6" +
                  " | TelTrennen: address 11 22 33 44, device class 17, mode 0");
    EXPECT_EQ(Protokoll_Zeile(Frame(Way::Received, "02 02 69 64 75")),
              std::string("< ") + "02 02 69 64 75" + " | RpAblehnung: reason 100");
}

TEST(Protokoll_Zeile_Test, leaves_constant_bytes_out_unless_they_differ) {
    const std::string right = Protokoll_Zeile(Frame(Way::Sent, Login));
    EXPECT_THAT(right, Not(HasSubstr("filler")));
    const std::string wrong =
        Protokoll_Zeile(Frame(Way::Sent, "02 14 04 11 22 33 44 11 00 33 88 01 00 00 12 3A 45 EF 07 AA 55 06"));
    EXPECT_THAT(wrong, HasSubstr("filler EF"));
}

TEST(Protokoll_Zeile_Test, of_a_dropped_frame_shows_length_and_code_as_a_damaged_code_may_stand_before_a_secret) {
    // An E-Key's reply (0x81) whose code has lost a bit.
    Mitschnitt frame = Frame(Way::Dropped, "02 07 01 91 92 93 94 95 96 00");
    frame.Result = RxResult::BadChecksum;
    EXPECT_EQ(Protokoll_Zeile(frame), "< 02 07 01 ** ** ** ** ** ** ** | unknown [dropped, wrong checksum]");
    frame = Frame(Way::Dropped, "02 03 05 11 22 99");
    frame.Result = RxResult::BadStuffing;
    EXPECT_EQ(Protokoll_Zeile(frame), "< 02 03 05 ** ** ** | RpQuittung [dropped, broken stuffing]");
    EXPECT_EQ(Protokoll_Zeile(frame, Geheimnis::Zeigen), "< 02 03 05 11 22 99 | RpQuittung [dropped, broken stuffing]");
}

class Verborgen : public ::testing::TestWithParam<Form> {};

/// The secret bytes of each frame are 9x, and no other byte is.
TEST_P(Verborgen, no_line_holds_a_byte_of_a_secret_or_the_checksum_over_it) {
    const Way way = GetParam().Name[0] == 'R' ? Way::Received : Way::Sent;
    const Mitschnitt frame = Frame(way, GetParam().Bytes);
    const std::string line = Protokoll_Zeile(frame);
    EXPECT_THAT(line, HasSubstr(GetParam().Name));
    const std::size_t text = line.find(" | ");
    EXPECT_EQ(line.substr(0, text).find(" 9"), std::string::npos) << line;
    EXPECT_EQ(line.find("91 92", text), std::string::npos) << line;
    EXPECT_THAT(line, HasSubstr(" ** | ")) << "the checksum";
    EXPECT_NE(Protokoll_Zeile(frame, Geheimnis::Zeigen).find(" 9"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(
    Codes, Verborgen,
    ::testing::Values(
        Form{"02 14 04 11 22 33 44 11 00 33 88 01 00 00 91 92 93 EE 07 AA 55 CD", "TelVerbinden"},
        Form{"02 12 04 11 22 33 44 11 00 33 88 01 00 00 91 92 93 EE 07 C4", "TelVerbindenKurz"},
        Form{"02 14 FE 11 22 33 44 11 00 33 88 01 00 00 91 92 93 EE EE AA 55 59", "TelUnitVerbinden"},
        Form{"02 19 12 11 22 33 44 11 00 33 88 01 00 00 33 33 91 92 93 EE EE 94 95 96 EE EE 9C", "TelCodeAendern"},
        Form{"02 17 0E 11 22 33 44 11 00 33 88 01 00 00 01 01 91 92 93 94 95 80 0C 00 F1", "TelBenutzerDaten"},
        Form{"02 17 0E 11 22 33 44 11 00 33 88 01 00 00 01 01 91 92 93 94 95 80 0C 00 00 F1", "RpQuittung"},
        Form{"02 19 12 11 22 33 44 11 00 33 88 01 00 00 04 33 91 92 93 EE EE 94 95 96 EE EE 00 23", "RpCodeErgebnis"},
        Form{"02 2B 0E 11 22 33 44 11 00 33 88 01 00 00 01 01 90 91 92 93 94 80 0C 01 90 91 92 93 94 95 96 97 "
             "98 99 9A 9B 9C 9D 9E 9F 90 91 92 93 72",
             "TelBenutzerDatenLang"},
        Form{"02 3C 40 11 22 33 44 11 00 33 88 01 00 00 01 07 44 6F 72 61 00 00 00 00 00 00 00 00 00 00 00 00 "
             "90 91 92 93 94 95 96 97 98 99 9A 9B 9C 9D 9E 9F 90 91 92 93 94 95 96 97 98 99 9A 9B 0C 40",
             "TelBenutzerVorlage"},
        Form{"02 20 43 11 22 33 44 11 00 33 88 01 00 00 01 01 03 90 91 92 93 94 95 96 97 98 99 9A 9B 9C 9D 9E "
             "9F C8",
             "TelIdDaten1"},
        Form{"02 1D 43 11 22 33 44 11 00 33 88 01 00 00 01 02 03 01 02 90 91 92 93 94 95 96 97 98 99 9A 3B",
             "TelIdDaten2"},
        Form{"02 1D 48 11 22 33 44 11 00 33 88 01 00 00 90 91 92 93 94 95 96 97 98 99 9A 9B 9C 9D 9E 9F E1",
             "TelUnitSchluessel"},
        Form{"02 37 4A 11 22 33 44 11 00 33 88 01 00 00 01 00 05 00 01 00 01 01 07 90 91 92 93 94 95 96 97 98 "
             "99 9A 9B 9C 9D 9E 9F 90 91 92 93 94 95 96 97 98 99 9A 9B 9C 9D 9E 9F 90 9D",
             "TelUnitBlock"},
        Form{"02 1D 48 11 22 33 44 11 00 33 88 01 00 00 90 91 92 93 94 95 96 97 98 99 9A 9B 9C 9D 9E 9F 00 E1",
             "RpQuittung"},
        Form{"02 2E 6C 11 22 33 44 00 50 52 4F 47 53 54 41 54 49 4F 4E 20 20 20 20 20 20 20 20 20 00 00 90 91 "
             "92 93 94 95 96 97 98 99 9A 9B 9C 9D 9E 9F 00 00 B9",
             "RpAdapterDaten"},
        Form{"02 07 72 00 90 91 92 93 00 94", "RpKarteStart"},
        Form{"02 21 81 00 00 00 00 00 00 00 00 00 00 00 90 91 92 93 94 95 96 97 98 99 9A 9B 9C 9D 9E 9F 90 91 "
             "92 93 00 68",
             "RpEKey"},
        Form{"02 0D A2 01 08 90 91 92 93 94 95 96 97 98 00 C2", "RpFingerDaten"},
        Form{"02 06 A2 02 40 90 91 92 2F", "RpFingerDaten"},
        Form{"02 1D A3 05 90 91 92 93 94 95 96 97 98 99 9A 9B 9C 9D 9E 9F 90 91 92 93 94 95 96 97 98 99 00 AD",
             "RpFingerKennung"}));

TEST(Protokoll_Zeile_Test, hides_everything_behind_the_header_of_a_telegram_that_no_layout_explains) {
    // A login with a length that no login has.
    const std::string line =
        Protokoll_Zeile(Frame(Way::Sent, "02 13 04 11 22 33 44 11 00 33 88 01 00 00 91 92 93 EE 07 AA 38"));
    EXPECT_EQ(line, "> 02 13 04 11 22 33 44 11 00 33 88 01 00 00 ** ** ** ** ** ** ** | unknown");
}

TEST(Protokoll_Zeile_Test, shows_the_status_of_a_login_reply_and_hides_where_an_echo_would_have_the_code) {
    const Mitschnitt frame =
        Frame(Way::Received, "02 14 04 C1 C2 C3 C4 D1 D2 D3 D4 01 00 00 04 98 99 EE 07 AA 55 00 71");
    const std::string line = Protokoll_Zeile(frame);
    EXPECT_THAT(line, HasSubstr("< 02 14 04 C1 C2 C3 C4 D1 D2 D3 D4 01 00 00 04 ** ** EE 07 AA 55 00 ** | "));
    EXPECT_THAT(line, HasSubstr("status 4"));
}

TEST(Protokoll_Zeile_Test, hides_everything_behind_the_header_of_a_reply_that_no_layout_explains) {
    const Mitschnitt frame = Frame(Way::Received, "02 0F E9 C1 C2 C3 C4 D1 D2 D3 D4 01 00 00 91 92 00 5D");
    EXPECT_EQ(Protokoll_Zeile(frame), "< 02 0F E9 C1 C2 C3 C4 D1 D2 D3 D4 01 00 00 ** ** ** ** | unknown");
}

TEST(Festhalten_Test, keeps_a_frame_of_the_trace_hook) {
    const std::vector<std::uint8_t> bytes = Hex("02 03 05 11 22 99");
    const Mitschnitt frame = Festhalten({.Way = Way::Dropped, .Bytes = bytes, .Result = RxResult::BadChecksum});
    EXPECT_EQ(frame.Way, Way::Dropped);
    EXPECT_EQ(frame.Bytes, bytes);
    EXPECT_EQ(frame.Result, RxResult::BadChecksum);
}

} // namespace
} // namespace qvm
