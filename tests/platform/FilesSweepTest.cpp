#include "FilesFixture.h"

#include <array>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/file.h>
#include <unistd.h>

namespace qvm {
namespace {

using testing::ElementsAre;

class Files_Sweep : public test::FilesFixture {
protected:
    void Sweep() const { Files.Sweep(Directory.Path(), Names_); }

    static constexpr std::array<std::string_view, 2> Names_{"USER.UBW", "SET.I_1"};
};

TEST_F(Files_Sweep, what_a_killed_save_left_goes_and_the_file_stays) {
    Put(Directory / "USER.UBW", "held");
    Put(Directory / ".USER.UBW.aB3xY9", "half");
    Put(Directory / ".SET.I_1.000000", "");
    Sweep();
    EXPECT_THAT(Names(), ElementsAre("USER.UBW"));
    EXPECT_EQ(Held(Directory / "USER.UBW"), "held");
}

TEST_F(Files_Sweep, what_a_killed_copy_left_goes_and_the_copies_stay) {
    Put(Directory / ".SET.I_1-20260305-103000.aB3xY9", "half");
    Put(Directory / ".SET.I_1-20260305-103000-2.aB3xY9", "half");
    Put(Directory / ".SET.I_1-20260305-103000-99.aB3xY9", "half");
    Put(Directory / "SET.I_1-20260305-103000", "copy");
    Sweep();
    EXPECT_THAT(Names(), ElementsAre("SET.I_1-20260305-103000"));
}

TEST_F(Files_Sweep, names_that_only_resemble_one_stay) {
    const std::vector<std::string> kept{".OTHER.UBW.aB3xY9",
                                        ".USER.UBW.aB3xY",
                                        ".USER.UBW.aB3xY90",
                                        ".USER.UBW.aB3x-9",
                                        ".USER.UBWXaB3xY9",
                                        ".xUSER.UBW.aB3xY9",
                                        "USER.UBW.aB3xY9",
                                        "xUSER.UBW.aB3xY9",
                                        ".SET.I_1-2026030-103000.aB3xY9",
                                        ".SET.I_1-20260305-10300x.aB3xY9",
                                        ".SET.I_1-20260305-103000-.aB3xY9",
                                        ".SET.I_1-20260305-103000-100.aB3xY9",
                                        ".SET.I_1-20260305-103000x2.aB3xY9",
                                        ".SET.I_1-20260305-103000aB3xY9"};
    for (const std::string& name : kept) {
        Put(Directory / name, "x");
    }
    Sweep();
    EXPECT_THAT(Names(), testing::UnorderedElementsAreArray(kept));
}

TEST_F(Files_Sweep, what_a_living_program_writes_stays_until_it_lets_go) {
    Put(Directory / ".USER.UBW.aB3xY9", "half");
    const int held = ::open((Directory / ".USER.UBW.aB3xY9").c_str(), O_RDWR);
    ASSERT_EQ(::flock(held, LOCK_EX), 0);
    Sweep();
    EXPECT_THAT(Names(), ElementsAre(".USER.UBW.aB3xY9"));
    ::close(held);
    Sweep();
    EXPECT_THAT(Names(), testing::IsEmpty());
}

TEST_F(Files_Sweep, a_link_of_such_a_name_and_what_it_leads_to_stay) {
    Put(Directory / "kept", "x");
    std::filesystem::create_symlink("kept", Directory / ".USER.UBW.aB3xY9");
    Sweep();
    EXPECT_THAT(Names(), ElementsAre(".USER.UBW.aB3xY9", "kept"));
}

TEST_F(Files_Sweep, a_directory_that_is_not_there_is_no_fault) {
    Files.Sweep(Directory / "nothing/", Names_);
    EXPECT_THAT(Names(), testing::IsEmpty());
}

} // namespace
} // namespace qvm
