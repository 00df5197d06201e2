#include "OtherProgram.h"
#include "RealWorld.h"

#include <cstdlib>
#include <filesystem>

namespace qvm {
namespace {

/// The lock stands in the user's run-time directory; each test has one of its own.
class ClaimInstance : public test::RealWorld {
protected:
    ClaimInstance() {
        std::filesystem::permissions(Runtime.Path(), std::filesystem::perms::owner_all);
        ::setenv("XDG_RUNTIME_DIR", Runtime.Path().c_str(), 1);
    }
    ~ClaimInstance() override { ::unsetenv("XDG_RUNTIME_DIR"); }

    test::TempDirectory Runtime;
};

TEST_F(ClaimInstance, the_first_is_the_only_one_however_often_it_asks) {
    EXPECT_TRUE(World().ClaimInstance());
    EXPECT_TRUE(World().ClaimInstance());
}

TEST_F(ClaimInstance, a_second_one_is_refused_and_the_first_is_brought_to_the_foreground) {
    int shown = 0;
    auto options = test::OptionsFor(Directory.Path());
    options.BringToFront = [&shown] { ++shown; };
    QtPlatform first(std::move(options));
    EXPECT_TRUE(first.World().ClaimInstance());
    EXPECT_FALSE(World().ClaimInstance());
    EXPECT_TRUE(RunUntil([&] { return shown > 0; }));
    EXPECT_EQ(shown, 1);
    EXPECT_FALSE(World().ClaimInstance());
    EXPECT_TRUE(RunUntil([&] { return shown > 1; }));
}

TEST_F(ClaimInstance, another_process_is_refused_and_called_as_well) {
    test::OtherProgram other({"--claim", Directory.Path()});
    ASSERT_EQ(other.Line(), "only");
    EXPECT_FALSE(World().ClaimInstance());
    EXPECT_EQ(other.Line(), "shown");
    test::OtherProgram third({"--claim", Directory.Path()});
    EXPECT_EQ(third.Line(), "second");
    EXPECT_EQ(third.ExitCode(), 0);
}

TEST_F(ClaimInstance, a_program_that_crashed_does_not_block_the_next) {
    test::OtherProgram other({"--claim", Directory.Path()});
    ASSERT_EQ(other.Line(), "only");
    other.Kill();
    EXPECT_TRUE(World().ClaimInstance());
    test::OtherProgram third({"--claim", Directory.Path()});
    EXPECT_EQ(third.Line(), "second");
}

TEST_F(ClaimInstance, an_instance_that_ended_makes_room) {
    {
        QtPlatform first(test::OptionsFor(Directory.Path()));
        EXPECT_TRUE(first.World().ClaimInstance());
    }
    EXPECT_TRUE(World().ClaimInstance());
}

TEST_F(ClaimInstance, a_program_in_another_directory_is_another_program) {
    const test::TempDirectory elsewhere;
    QtPlatform other(test::OptionsFor(elsewhere.Path()));
    EXPECT_TRUE(other.World().ClaimInstance());
    EXPECT_TRUE(World().ClaimInstance());
}

TEST_F(ClaimInstance, the_same_directory_by_another_name_is_the_same_program) {
    const test::TempDirectory elsewhere;
    std::filesystem::create_directory_symlink(Directory.Path(), elsewhere / "link");
    QtPlatform other(test::OptionsFor(elsewhere / "link"));
    EXPECT_TRUE(other.World().ClaimInstance());
    EXPECT_FALSE(World().ClaimInstance());
}

} // namespace
} // namespace qvm
