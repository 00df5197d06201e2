#pragma once

#include "F7.h"
#include "F8.h"
#include "VirtualPlatform.h"

#include <array>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace qvm::test {

/// The history view and its search without the rest of the program. Catalogue line n is "Ln".
struct F7Fixture : ::testing::Test {
    VirtualPlatform world;
    Kern kern{world.World};
    F7 view{kern};
    F8 search{view};
    std::vector<std::string> Calls;              ///< the hooks, in order
    std::vector<std::pair<int, int>> ShownCells; ///< of Zelle_Zeigen
    Listener back = kern.Windows.BackToMain.Listen([this] { Calls.emplace_back("back"); });

    F7Fixture() {
        kern.AppPath = "/q/";
        for (int line = 1; line < Sprachkatalog::Zeilen; ++line) {
            kern.Sprache.LanguageText[static_cast<std::size_t>(line)] = "L" + std::to_string(line);
        }
        view.Hauptfenster_Verbergen = [this] { Calls.emplace_back("hide"); };
        view.F8_Oeffnen = [this] { search.F8_Laden(); };
        view.F8_Schliessen = [this] { search.F8_Schliessen(); };
        view.Zelle_Zeigen = [this](int row, int column) { ShownCells.emplace_back(row, column); };
    }

    /// A file of these bytes, opened.
    void Show(const std::string& bytes) {
        world.Disk.Files["/q/HIST/H.HST"] = bytes;
        view.F7_Oeffnen("/q/HIST/H.HST");
    }
    /// The texts of columns 1 to 4.
    std::array<std::string, 4> Row(int row) const {
        return {view.FGV.Text(row, 1), view.FGV.Text(row, 2), view.FGV.Text(row, 3), view.FGV.Text(row, 4)};
    }
    Colour Back(int row, int column) const { return view.FGV.At(row, column).BackColor; }
    /// Searches for the text with option `option`.
    void Search(const std::string& text, int option = 0) {
        view.Toolbar1_ButtonClick("Suchen");
        search.Option_Click(option);
        search.Text1.Text = text;
        search.Command1_Click();
    }
};

} // namespace qvm::test
