#include "PortFault.h"

#include "Inhalt.h"
#include "Kern.h"
#include "TextSlots.h"
#include "VirtualPlatform.h"

#include <gtest/gtest.h>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {
namespace {

using Kind = PortFault::Kind;

TEST(PortFault_English_, names_device_and_detail_and_says_what_to_do) {
    EXPECT_EQ(PortFault_English({.What = Kind::NotThere, .Device = "/dev/ttyUSB0"}),
              "/dev/ttyUSB0 is not there. Is the adapter plugged in?");
    EXPECT_EQ(PortFault_English({.What = Kind::NoRight, .Device = "/dev/ttyUSB0", .Detail = "dialout"}),
              "No right to use /dev/ttyUSB0. It belongs to the group dialout: run \"sudo usermod -aG dialout $USER\", "
              "then log out and in again.");
    EXPECT_EQ(PortFault_English({.What = Kind::Held, .Device = "/dev/ttyUSB0", .Detail = "minicom (812)"}),
              "/dev/ttyUSB0 is in use by minicom (812). Close that program and try again.");
    EXPECT_EQ(PortFault_English({.What = Kind::HeldByService, .Device = "/dev/ttyUSB0", .Detail = "brltty"}),
              "/dev/ttyUSB0 is being tried out by the system service brltty, which lets go of it after some seconds. "
              "Then try again.");
    EXPECT_EQ(PortFault_English({.What = Kind::Broken, .Device = "/dev/pts/4"}),
              "The connection to /dev/pts/4 is broken: the adapter was unplugged or switched off.");
    EXPECT_EQ(PortFault_English({.What = Kind::NoSuchNumber, .Device = "300"}), "There is no port 300.");
    EXPECT_EQ(PortFault_English({.What = Kind::NotSerial, .Device = "/dev/null"}),
              "/dev/null is no serial port that works.");
    EXPECT_EQ(PortFault_English({.What = Kind::Other, .Device = "/dev/ttyS0", .Detail = "Too many open files"}),
              "/dev/ttyS0 cannot be opened: Too many open files.");
}

TEST(PortFault_English_, has_a_sentence_for_a_group_or_a_holder_that_is_not_known) {
    EXPECT_EQ(PortFault_English({.What = Kind::NoRight, .Device = "/dev/x"}), "No right to use /dev/x.");
    EXPECT_EQ(PortFault_English({.What = Kind::Held, .Device = "/dev/x"}),
              "/dev/x is in use by another program. Close that program and try again.");
}

TEST(PortFault_English_, is_empty_without_a_fault) {
    EXPECT_EQ(PortFault_English({.What = Kind::None, .Device = "/dev/x"}), "");
}

TEST(PortFault_English_, leaves_a_name_that_looks_like_a_place_as_it_is) {
    EXPECT_EQ(PortFault_English({.What = Kind::Held, .Device = "/dev/%2", .Detail = "%1"}),
              "/dev/%2 is in use by %1. Close that program and try again.");
}

struct PortFault_Text_ : testing::Test {
    test::VirtualPlatform welt;
    Kern kern{welt.World};

    void Sprache(std::string_view language) {
        const std::string name = "QVM_" + std::string(language) + ".DAT";
        const std::string bytes = test::Inhalt(std::string(QVM_BINARY_DIR) + "/lang/" + name);
        ASSERT_FALSE(bytes.empty()) << name;
        kern.AppPath = "/qvm/";
        kern.Config.Sprache = language;
        welt.Disk.Files["/qvm/" + name] = bytes;
        ASSERT_EQ(Sprachdatei_Laden(kern), SprachdateiStatus::Geladen);
    }
};

const std::vector<PortFault>& Alle() {
    static const std::vector<PortFault> faults{
        {.What = Kind::NotThere, .Device = "<geraet>"},
        {.What = Kind::NoRight, .Device = "<geraet>", .Detail = "<zusatz>"},
        {.What = Kind::NoRight, .Device = "<geraet>"},
        {.What = Kind::Held, .Device = "<geraet>", .Detail = "<zusatz>"},
        {.What = Kind::Held, .Device = "<geraet>"},
        {.What = Kind::HeldByService, .Device = "<geraet>", .Detail = "<zusatz>"},
        {.What = Kind::Broken, .Device = "<geraet>"},
        {.What = Kind::NoSuchNumber, .Device = "<geraet>"},
        {.What = Kind::NotSerial, .Device = "<geraet>"},
        {.What = Kind::Other, .Device = "<geraet>", .Detail = "<zusatz>"},
    };
    return faults;
}

TEST_F(PortFault_Text_, takes_the_words_of_the_catalogue_and_fills_their_places_in_any_order) {
    kern.Sprache.LanguageText[293] = "%2 ... %1 ... %2";
    EXPECT_EQ(PortFault_Text(kern, {.What = Kind::Held, .Device = "com1", .Detail = "minicom (7)"}),
              "minicom (7) ... com1 ... minicom (7)");
}

TEST_F(PortFault_Text_, is_english_while_there_is_no_language_file) {
    for (const PortFault& fault : Alle()) {
        EXPECT_EQ(PortFault_Text(kern, fault), PortFault_English(fault));
    }
    EXPECT_EQ(PortFault_Text(kern, {}), "");
}

TEST_F(PortFault_Text_, speaks_each_language_with_every_fact_in_its_sentence) {
    std::set<std::string> texts;
    for (const std::string_view language : SprachNamen) {
        Sprache(language);
        for (const PortFault& fault : Alle()) {
            const std::string text = PortFault_Text(kern, fault);
            EXPECT_NE(text.find("<geraet>"), std::string::npos) << text;
            EXPECT_EQ(text.find("<zusatz>") == std::string::npos, fault.Detail.empty()) << text;
            EXPECT_EQ(text.find('%'), std::string::npos) << text;
            EXPECT_TRUE(texts.insert(text).second) << text;
        }
    }
    EXPECT_EQ(texts.size(), 40U);
}

TEST_F(PortFault_Text_, in_english_says_the_same_as_the_programs_without_a_language) {
    Sprache("English");
    for (const PortFault& fault : Alle()) {
        if (fault.What != Kind::HeldByService) { // only a program with windows tries again by itself
            EXPECT_EQ(PortFault_Text(kern, fault), PortFault_English(fault));
        }
    }
}

TEST_F(PortFault_Text_, of_a_service_promises_a_new_attempt) {
    Sprache("Deutsch");
    const std::string text = PortFault_Text(kern, {.What = Kind::HeldByService, .Device = "com1", .Detail = "brltty"});
    EXPECT_NE(text.find("Das Programm versucht es von selbst erneut."), std::string::npos) << text;
}

} // namespace
} // namespace qvm
