// The user table, the channels, the templates and the conversion of older user files over arbitrary bytes.
#include "Benutzer_Umstellen.h"
#include "F5_Laden.h"
#include "F5_Speichern.h"
#include "Kanal.h"
#include "Kern.h"
#include "MemoryFiles.h"
#include "TemplateStore.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

using namespace qvm;

constexpr std::array Names{"BX10X52WUJ9.UBW", "C64UX12H3D.EBW",  "RFCHANDIF12.RFX",
                           "TEmpTCD0UPK.FSD", "BX08HAZJNT9.UBW", "BX10Y48WUI8.UBW"};

void Expect(bool holds) {
    if (!holds) {
        std::abort();
    }
}

void Templates(const Kern& kern, const std::string& wanted) {
    TemplateStore store;
    store.Laden(kern);
    const auto text = store.Suchen(wanted);
    Expect(!text || text->size() <= 3000);
}

void Channels(const Kern& kern, int number) {
    Grid grid(252, UserColumn::KeyId + 1);
    Kanal_Stand(kern, number);
    Kanal_Offen(kern, number);
    Kanal_Ausgefuehrt(kern, number);
    Key_Kanal_Bestaetigen(kern, grid, number);
    Expect(Kanal_Umstellen(kern, 7));
    if (number >= 1 && number <= 200) {
        Expect(Kanal_Stand(kern, number).Target == 7);
    }
}

void Table(Kern& kern) {
    UserTable table;
    table.GroupTablePerson[1] = {"1", "Timer-A", "", "", "PB_2008TimA"};
    Expect(F5_TabelleLaden(kern, table));
    F5_Speichern(kern, table);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) {
        return 0;
    }
    test::MemoryFiles disk;
    Platform world;
    world.Files = disk.Store();
    world.ShowMessage = [](const Message&) { return Answer::Ok; };
    Kern kern(world);

    // The first byte names the file, the second a lock or row; the rest is the file. Lock names stand unless fuzzed.
    const std::string content(data + 2, data + size);
    disk.Files["DAT/C64UX12H3D.EBW"] = std::string(45 * 200, 'T');
    disk.Files[std::string("DAT/") + Names[data[0] % Names.size()]] = content;
    switch (data[0] % Names.size()) {
    case 2:
        Channels(kern, data[1]);
        break;
    case 3:
        Templates(kern, content.substr(0, 21));
        break;
    case 4:
    case 5:
        Expect(Benutzer_Umstellen(kern));
        Expect(disk.Files["DAT/BX10X52WUJ9.UBW"].size() == 419U * 251U);
        break;
    default:
        Table(kern);
        break;
    }
    return 0;
}
