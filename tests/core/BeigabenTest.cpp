// Where what comes with an installed program is looked for.

#include "Catalogue.h"
#include "Kern.h"
#include "VirtualPlatform.h"

#include <gtest/gtest.h>
#include <string>

namespace qvm {
namespace {

struct Beigaben : testing::Test {
    test::VirtualPlatform welt;
    Kern kern{welt.World};
    std::map<std::string, std::string>& files = welt.Disk.Files;

    Beigaben() {
        kern.AppPath = "/qvm/";
        welt.World.ProgramFiles = "/usr/share/qvm7702/";
    }
};

TEST_F(Beigaben, lie_with_the_installed_program) {
    files["/usr/share/qvm7702/QVM_Deutsch.DAT"] = "eins\n";
    EXPECT_EQ(kern.Beigabe("QVM_Deutsch.DAT"), "/usr/share/qvm7702/QVM_Deutsch.DAT");
    EXPECT_EQ(Sprachdatei_Laden(kern), SprachdateiStatus::Geladen);
    EXPECT_EQ(kern.Zeile(1), "eins");
}

TEST_F(Beigaben, of_the_operator_go_before_those_of_the_program) {
    files["/usr/share/qvm7702/QVM_Deutsch.DAT"] = "eins\n";
    files["/qvm/QVM_Deutsch.DAT"] = "eigenes\n";
    EXPECT_EQ(kern.Beigabe("QVM_Deutsch.DAT"), "/qvm/QVM_Deutsch.DAT");
    EXPECT_EQ(Sprachdatei_Laden(kern), SprachdateiStatus::Geladen);
    EXPECT_EQ(kern.Zeile(1), "eigenes");
}

TEST_F(Beigaben, that_are_nowhere_are_missing_in_the_programs_directory) {
    EXPECT_EQ(kern.Beigabe("QVM_Deutsch.DAT"), "/qvm/QVM_Deutsch.DAT");
    EXPECT_EQ(Sprachdatei_Laden(kern), SprachdateiStatus::Fehlt);
}

TEST_F(Beigaben, are_sought_in_the_programs_directory_alone_where_no_other_is_named) {
    welt.World.ProgramFiles.clear();
    files["QVM_Deutsch.DAT"] = "of wherever the program was started\n";
    EXPECT_EQ(kern.Beigabe("QVM_Deutsch.DAT"), "/qvm/QVM_Deutsch.DAT");
}

} // namespace
} // namespace qvm
