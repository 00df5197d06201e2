#include "NetzFixture.h"

namespace qvm::test {
namespace {

class Adapter_Test_Test : public NetzTest {
protected:
    std::uint8_t Weg(std::initializer_list<std::string_view> texts) {
        run.NetAdapter = 0xAD;
        Adapter_Test(run, texts);
        return run.NetAdapter;
    }
};

TEST_F(Adapter_Test_Test, addresses_from_3E00001_to_3F00000_are_network_adapters) {
    EXPECT_EQ(Weg({"/3/224/0/1"}), 0xAD);
    EXPECT_EQ(Weg({"3/240/0/0"}), 0xAD);
    EXPECT_EQ(Weg({"/3/224/0/0"}), 0xDD);
    EXPECT_EQ(Weg({"/3/240/0/1"}), 0xDD);
    EXPECT_EQ(Weg({"/0/0/0/0"}), 0xDD);
    EXPECT_EQ(Weg({"/255/255/255/255"}), 0xDD);
}

TEST_F(Adapter_Test_Test, only_the_first_four_numbers_count) {
    EXPECT_EQ(Weg({"/3/225/7/9/1/2/3/4"}), 0xAD);
    EXPECT_EQ(Adapter_Nummer(" /3/225/7/9/ "), 0x03E10709U);
}

TEST_F(Adapter_Test_Test, a_text_without_four_decimal_bytes_says_nothing) {
    for (const std::string_view text :
         {"", "/", "/3/224/0", "/3/224/0/", "/3/224//1", "//3/224/0/1", "/3/224/0/256", "/3/224/0/1x", "/3/-1/0/1",
          "/3/+1/0/1", "3.224.0.1", "PROGSTATION 1", "/3/224/0/99999999999999999999"}) {
        EXPECT_EQ(Adapter_Nummer(text), std::nullopt) << text;
        EXPECT_EQ(Weg({text}), 0xDD) << text;
    }
}

TEST_F(Adapter_Test_Test, the_first_text_with_the_form_decides) {
    EXPECT_EQ(Weg({"PROGSTATION 1", "/3/224/0/1", "/1/2/3/4"}), 0xAD);
    EXPECT_EQ(Weg({"/1/2/3/4", "/3/224/0/1"}), 0xDD);
}

TEST_F(Adapter_Test_Test, a_row_without_any_does_not_take_the_route_of_the_row_before) {
    EXPECT_EQ(Weg({}), 0xDD);
}

TEST(Datensatz_Statuszeile_Test, names_the_catalogue_line_of_each_status) {
    EXPECT_EQ(Datensatz_Statuszeile(0), 259);
    EXPECT_EQ(Datensatz_Statuszeile(92), 254);
    EXPECT_EQ(Datensatz_Statuszeile(93), 255);
    EXPECT_EQ(Datensatz_Statuszeile(94), 256);
    EXPECT_EQ(Datensatz_Statuszeile(95), 257);
    EXPECT_EQ(Datensatz_Statuszeile(13), 258);
}

} // namespace
} // namespace qvm::test
