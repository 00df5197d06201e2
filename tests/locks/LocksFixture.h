#pragma once

#include "F12_Laden.h"
#include "F12_Speichern.h"
#include "Kern.h"
#include "LockTable.h"
#include "VirtualPlatform.h"

#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

namespace qvm::test {

/// An empty data directory, a catalogue with the lines that the lock table shows, and a lock table.
struct LocksFixture : testing::Test {
    static constexpr char Locks[] = "/qvm/DAT/C64UX12H3D.EBW", Priorities[] = "/qvm/DAT/CPRT88X3FDA.PRT",
                          Emi[] = "/qvm/DAT/LSOEMIPART.LMT", Bindings[] = "/qvm/DAT/SBSCLKZU.SB1",
                          LockAdapters[] = "/qvm/DAT/LOCKCLASSCOMX.CMB", Doors[] = "/qvm/DAT/DOOR1MODEDT.DTA",
                          Offsets[] = "/qvm/DAT/T4OFFSETGST.FST", Groups[] = "/qvm/DAT/TIMGRP44T8_S.SBS",
                          Units[] = "/qvm/DAT/T6WRSSISN.TSD", Adapters[] = "/qvm/DAT/COMSETUPADAPTER.ADP";

    VirtualPlatform welt;
    Kern kern{welt.World};
    MemoryFiles& disk = welt.Disk;
    std::map<std::string, std::string>& files = welt.Disk.Files;
    LockTable table;
    Grid& grid = table.FGK12;
    std::vector<std::string> found; ///< names of the adapters that the port search found

    LocksFixture() {
        kern.AppPath = "/qvm/";
        auto& lines = kern.Sprache.LanguageText;
        lines[37] = "Nr.";
        lines[50] = "Bezeichnung";
        lines[51] = "Serien-Nr.";
        lines[157] = "TA - Funk";
        lines[158] = "AE - Schwelle";
        lines[159] = "STE - Fenster";
        lines[176] = "Sperrgruppe";
        lines[199] = "Adapter";
        lines[212] = "Offset";
        lines[217] = "Modus";
        lines[218] = "Zimmer";
        lines[219] = "Gemeinschaft";
    }

    const std::string& Text(int row, int column) const { return grid.Text(row, column); }
    int Bild(int row, int column) const { return grid.At(row, column).Picture; }

    /// Pictures of the five switches.
    std::vector<int> Schalter(int row) const {
        std::vector<int> pictures;
        for (int column = 4; column <= 8; ++column) {
            pictures.push_back(Bild(row, column));
        }
        return pictures;
    }

    bool Laden() { return F12_Laden(kern, table, found); }
};

/// The text padded with blanks to `width` characters.
inline std::string Breit(std::string text, std::size_t width) {
    text.resize(width, ' ');
    return text;
}

/// A record of C64UX12H3D.EBW.
inline std::string LockBytes(const std::string& name, const std::string& offset, const std::string& serial12,
                             const std::string& switches) {
    std::string record = name;
    record.resize(20, '\0');
    return record + Breit(offset, 8) + Breit(serial12, 12) + Breit(switches, 5);
}

} // namespace qvm::test
