// docs/models.md is made from the ranges of serials. QVM_WRITE_DOCS=1 writes it anew.

#include "Inhalt.h"
#include "Modelle.h"
#include "Seriennummer.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <set>
#include <sstream>
#include <string>
#include <string_view>

namespace qvm {
namespace {

const std::string ModelsPath = QVM_SOURCE_DIR "/docs/models.md";

std::string Pairs(std::uint32_t serial) {
    const auto byte = [&](unsigned shift) { return static_cast<std::uint8_t>(serial >> shift & 0xFFU); };
    return Serie_Text({byte(24), byte(16), byte(8), byte(0)});
}

std::string RangeText(const SerialRange& range) {
    return Pairs(range.First) + " to " + Pairs(range.Last);
}

std::string RangesText(const SerialRule& rule) {
    const bool two = rule.Ranges[1].First <= rule.Ranges[1].Last;
    return RangeText(rule.Ranges[0]) + (two ? ", " + RangeText(rule.Ranges[1]) : "");
}

std::string ModelsDocument() {
    std::ostringstream out;
    out << "# Families of devices\n\n"
           "Generated from `src/core/Modelle.h`; do not edit. `QVM_WRITE_DOCS=1 test_core "
           "--gtest_filter='Models_Reference.*'`\nwrites it anew.\n\n"
           "A lock, a wireless unit and a network adapter show their family by their serial number: four hexadecimal "
           "pairs, read\nas one number, the first pair the highest. The ends of a range belong to it.\n\n"
           "| Rule | Serials | What holds for them |\n|---|---|---|\n";
    for (const SerialRule* rule : SerialRules) {
        out << "| `" << rule->Name << "` | " << RangesText(*rule) << " | " << rule->Meaning << " |\n";
    }
    out << "\n## How many users a lock takes\n\n`MaxUserAnz`:\n\n| Serials | Users |\n|---|---:|\n";
    for (const UserLimit& limit : UserLimits) {
        out << "| " << RangeText(limit.Serials) << " | " << limit.Users << " |\n";
    }
    out << "| all others | " << UserLimitElse << " |\n";
    return out.str();
}

TEST(Models_Reference, is_what_the_ranges_say) {
    if (const char* write = std::getenv("QVM_WRITE_DOCS"); write != nullptr && std::string_view(write) == "1") {
        std::ofstream(ModelsPath, std::ios::binary) << ModelsDocument();
    }
    EXPECT_EQ(test::Inhalt(ModelsPath), ModelsDocument());
}

TEST(Models_Reference, has_a_row_for_a_rule_with_two_ranges_and_for_one_with_one) {
    const std::string text = ModelsDocument();
    EXPECT_NE(text.find("| `BereichN` | 01.50.0C.06 to 01.60.00.00, 01.C0.00.AE to 01.D0.00.00 | The lock takes"),
              std::string::npos);
    EXPECT_NE(text.find("| `Ohne_Emi` | 0B.4A.00.00 to 0D.FF.B9.EE | The lock has no EMI"), std::string::npos);
    EXPECT_NE(text.find("| 01.00.59.02 to 01.50.00.00 | 47 |\n"), std::string::npos);
}

TEST(Models_Reference, tells_of_every_rule_in_the_source_under_its_own_name) {
    const std::string source = test::Inhalt(QVM_SOURCE_DIR "/src/core/Modelle.h");
    std::set<std::string_view> told;
    for (const SerialRule* rule : SerialRules) {
        EXPECT_NE(source.find("constexpr SerialRule " + std::string(rule->Name) + "{"), std::string::npos)
            << rule->Name;
        told.insert(rule->Name);
    }
    std::size_t declared = 0;
    for (auto at = source.find("constexpr SerialRule "); at != std::string::npos;
         at = source.find("constexpr SerialRule ", at + 1)) {
        ++declared;
    }
    EXPECT_EQ(told.size(), declared);
}

} // namespace
} // namespace qvm
