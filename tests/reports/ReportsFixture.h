#pragma once

#include "Berichte.h"
#include "F5_Laden.h"
#include "F5_Marken.h"
#include "Inhalt.h"
#include "Kern.h"
#include "Text.h"
#include "VirtualPlatform.h"
#include "Zeitgruppen.h"

#include <gtest/gtest.h>
#include <string>
#include <string_view>

namespace qvm::test {

/// A user table in memory, and the words of a language.
struct Reports : testing::Test {
    VirtualPlatform Welt;
    Kern kern{Welt.World};
    UserTable table;

    Reports() {
        kern.AppPath = "/qvm/";
        table.GroupTablePerson = PersonGruppen_Vorgabe();
        Speak("English");
    }

    void Speak(const std::string& language) {
        kern.Config.Sprache = language;
        const std::string name = "QVM_" + language + ".DAT";
        Welt.Disk.Files["/qvm/" + name] = Inhalt(QVM_BINARY_DIR "/lang/" + name);
        EXPECT_EQ(Sprachdatei_Laden(kern), SprachdateiStatus::Geladen);
    }

    void Lock(int lock, std::string_view name) { Grup_Name(table, lock, name); }
    void Set(int user, int column, std::string_view text) {
        table.FGK4.SetText(UserGrid::RowOf(user), column, std::string(text));
    }
    void User(int user, std::string_view name, std::string_view group = "-", std::string_view right = "1") {
        Set(user, UserColumn::Name, name);
        Set(user, UserColumn::Group, group);
        Set(user, UserColumn::Right, right);
    }
    void Mark(int user, int lock, char mark) {
        Marke_Setzen(table.FGK4, UserGrid::RowOf(user), UserGrid::ColumnOf(lock), mark);
    }
};

} // namespace qvm::test
