#include "TelegrammDokument.h"

#include "Inhalt.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <string>

namespace qvm {
namespace {

const std::string Path = QVM_SOURCE_DIR "/docs/telegrams.md";

TEST(Telegramm_Dokument_Test, stands_in_the_documents_as_the_layouts_give_it) {
    const std::string text = Telegramm_Dokument();
    if (std::getenv("QVM_WRITE_DOCS") != nullptr) {
        std::ofstream(Path, std::ios::binary) << text;
    }
    EXPECT_TRUE(test::Inhalt(Path) == text) << "run test_link with QVM_WRITE_DOCS=1";
}

TEST(Telegramm_Dokument_Test, has_a_line_for_each_form_with_indexes_and_constants) {
    const std::string text = Telegramm_Dokument();
    for (
        const std::string_view line :
        {"| 0x04 | `TelVerbinden` | 0x14 | direct | 14..16: administrator code (hidden); 17 = 0xEE; 18: radio channel; "
         "19 = 0xAA; 20 = 0x55 |  |\n",
         "| 0x05 | `TelTrennen` | 0x0D | Kopf | none |  |\n",
         "| 0x19 | `TelSchaltuhrA` | 0x36 | Kopf | 14..53: 8 rows of 5 bytes; 54: part |  |\n",
         "| 0x21 | `TelPermFeiertage` | 0x37 | Kopf | 14: part; 15..55: 7 rows of 6 bytes | The last byte of the "
         "seventh row gives way to the checksum. |\n",
         "| 0x6F | `TelKarteFolge` | 0x10 to 0x3C, a row each 4 | direct | 14: telegrams; 15: part; 16..59: 11 entries "
         "of 4 bytes; 60: next entry | The last byte is the first one of the entry behind; its others give way to the "
         "checksum. |\n",
         "| 0x0A | `RpBenutzerSlot` | 0x0E | 14..15: user slot, high byte first | Valid from 1 to 2999. |\n",
         "0x03, 0x05, 0x07, 0x09, 0x0B, 0x0D, 0x0E, 0x15,"}) {
        EXPECT_NE(text.find(line), std::string::npos) << line;
    }
}

} // namespace
} // namespace qvm
