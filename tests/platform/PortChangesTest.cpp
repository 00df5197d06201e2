#include "FarEnd.h"
#include "RealWorld.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <vector>

namespace qvm {
namespace {

namespace fs = std::filesystem;

using Changes = std::vector<PortChange>;

/// Longer than the quiet time after which a plugging is over.
constexpr int Settled = 400;

/// Links of the program's directory, to real pseudo-terminals.
class OnPortChange : public test::RealWorld {
protected:
    void Listen() {
        World().OnPortChange([this](PortChange change) { Heard.push_back(change); });
    }

    void Link(const std::string& name, const test::FarEnd& cable) const {
        fs::create_symlink(cable.Device(), Directory / name);
    }

    /// As `ln -sf` does it: the new link takes the place of the old in one step.
    void Retarget(const std::string& name, const test::FarEnd& cable) const {
        fs::create_symlink(cable.Device(), Directory / "new");
        fs::rename(Directory / "new", Directory / name);
    }

    Changes AfterWhile() {
        TurnsIn(Settled);
        return Heard;
    }

    test::FarEnd Cable;
    Changes Heard;
};

TEST_F(OnPortChange, a_link_that_appears_is_an_arrival_told_once) {
    Listen();
    Link("com1", Cable);
    EXPECT_EQ(Heard, Changes{});
    EXPECT_TRUE(RunUntil([&] { return !Heard.empty(); }));
    EXPECT_EQ(AfterWhile(), Changes{PortChange::Arrived});
    EXPECT_EQ(World().AdapterPorts(), std::vector{1});
}

TEST_F(OnPortChange, a_link_that_vanishes_is_a_removal) {
    Link("com1", Cable);
    Listen();
    fs::remove(Directory / "com1");
    EXPECT_TRUE(RunUntil([&] { return !Heard.empty(); }));
    EXPECT_EQ(AfterWhile(), Changes{PortChange::Removed});
}

TEST_F(OnPortChange, a_link_moved_away_is_a_removal_and_moved_back_an_arrival) {
    Link("com1", Cable);
    Listen();
    fs::rename(Directory / "com1", Directory / "away");
    EXPECT_TRUE(RunUntil([&] { return Heard.size() == 1; }));
    fs::rename(Directory / "away", Directory / "com1");
    EXPECT_TRUE(RunUntil([&] { return Heard.size() == 2; }));
    EXPECT_EQ(Heard, (Changes{PortChange::Removed, PortChange::Arrived}));
}

TEST_F(OnPortChange, a_link_that_gets_another_target_is_a_removal_and_an_arrival) {
    const test::FarEnd other;
    Link("com1", Cable);
    Listen();
    Retarget("com1", other);
    EXPECT_TRUE(RunUntil([&] { return Heard.size() >= 2; }));
    EXPECT_EQ(AfterWhile(), (Changes{PortChange::Removed, PortChange::Arrived}));
}

TEST_F(OnPortChange, a_link_taken_away_and_put_back_at_once_is_told_as_well) {
    Link("com1", Cable);
    Listen();
    fs::remove(Directory / "com1");
    Link("com1", Cable);
    EXPECT_TRUE(RunUntil([&] { return Heard.size() >= 2; }));
    EXPECT_EQ(AfterWhile(), (Changes{PortChange::Removed, PortChange::Arrived}));
}

TEST_F(OnPortChange, a_link_there_for_a_moment_only_is_no_news) {
    Listen();
    Link("com1", Cable);
    fs::remove(Directory / "com1");
    EXPECT_EQ(AfterWhile(), Changes{});
}

TEST_F(OnPortChange, links_that_appear_together_are_one_arrival) {
    const test::FarEnd other;
    Listen();
    Link("com1", Cable);
    Link("com7", other);
    EXPECT_TRUE(RunUntil([&] { return !Heard.empty(); }));
    EXPECT_EQ(AfterWhile(), Changes{PortChange::Arrived});
}

TEST_F(OnPortChange, a_directory_that_never_comes_to_rest_is_looked_at_all_the_same) {
    const test::FarEnd other;
    Listen();
    Link("com1", Cable);
    bool made = true;
    const TimerId unrest = World().StartTimer(20, [&] {
        made ? static_cast<void>(fs::remove(Directory / "com2")) : Link("com2", other);
        made = !made;
    });
    EXPECT_TRUE(RunUntil([&] { return !Heard.empty(); }));
    World().StopTimer(unrest);
    EXPECT_EQ(Heard.front(), PortChange::Arrived);
}

TEST_F(OnPortChange, what_has_no_port_number_is_no_news) {
    Listen();
    std::ofstream(Directory / "QVM_Config.DAT") << "text";
    Link("com0", Cable);
    Link("com256", Cable);
    Link("com01", Cable);
    Link("comma", Cable);
    fs::create_symlink("/dev/pts/no-such-terminal", Directory / "com3");
    EXPECT_EQ(AfterWhile(), Changes{});
}

TEST_F(OnPortChange, what_was_there_before_is_no_news) {
    Link("com1", Cable);
    Listen();
    EXPECT_EQ(AfterWhile(), Changes{});
}

TEST_F(OnPortChange, a_device_given_by_name_is_watched_where_it_stands) {
    const test::TempDirectory elsewhere;
    QtPlatform platform(test::OptionsFor(Directory.Path(), elsewhere / "adapter"));
    platform.World().OnPortChange([this](PortChange change) { Heard.push_back(change); });
    fs::create_symlink(Cable.Device(), elsewhere / "com1");
    Link("com1", Cable);
    EXPECT_EQ(AfterWhile(), Changes{});
    fs::create_symlink(Cable.Device(), elsewhere / "adapter");
    EXPECT_TRUE(RunUntil([&] { return !Heard.empty(); }));
    fs::remove(elsewhere / "adapter");
    EXPECT_TRUE(RunUntil([&] { return Heard.size() >= 2; }));
    EXPECT_EQ(Heard, (Changes{PortChange::Arrived, PortChange::Removed}));
}

TEST_F(OnPortChange, a_new_receiver_takes_the_place_of_the_old) {
    Listen();
    Changes second;
    World().OnPortChange([&second](PortChange change) { second.push_back(change); });
    Link("com1", Cable);
    EXPECT_TRUE(RunUntil([&] { return !second.empty(); }));
    EXPECT_EQ(Heard, Changes{});
}

TEST_F(OnPortChange, without_a_receiver_nothing_is_watched_and_a_later_one_hears_later_news_only) {
    Listen();
    World().OnPortChange(nullptr);
    Link("com1", Cable);
    TurnsIn(Settled);
    Listen();
    EXPECT_EQ(AfterWhile(), Changes{});
    fs::remove(Directory / "com1");
    EXPECT_TRUE(RunUntil([&] { return !Heard.empty(); }));
    EXPECT_EQ(Heard, Changes{PortChange::Removed});
}

TEST_F(OnPortChange, a_receiver_that_waits_hears_of_later_changes_from_inside_its_wait) {
    int depth = 0;
    int deepest = 0;
    World().OnPortChange([&](PortChange change) {
        deepest = std::max(deepest, ++depth);
        Heard.push_back(change);
        if (change == PortChange::Arrived) {
            fs::remove(Directory / "com1");
            while (Heard.size() < 2) {
                World().ProcessEvents();
            }
        }
        --depth;
    });
    Link("com1", Cable);
    EXPECT_TRUE(RunUntil([&] { return depth == 0 && Heard.size() >= 2; }));
    EXPECT_EQ(Heard, (Changes{PortChange::Arrived, PortChange::Removed}));
    EXPECT_EQ(deepest, 2);
}

TEST_F(OnPortChange, a_receiver_that_takes_itself_away_hears_no_more) {
    const test::FarEnd other;
    Link("com1", Cable);
    World().OnPortChange([this](PortChange change) {
        Heard.push_back(change);
        World().OnPortChange(nullptr);
    });
    Retarget("com1", other);
    EXPECT_TRUE(RunUntil([&] { return !Heard.empty(); }));
    EXPECT_EQ(AfterWhile(), Changes{PortChange::Removed});
}

TEST_F(OnPortChange, watching_leaves_the_program_idle) {
    Link("com1", Cable);
    Listen();
    EXPECT_LE(TurnsIn(300), 20);
}

TEST_F(OnPortChange, a_directory_that_is_not_there_is_no_fault) {
    QtPlatform platform(test::OptionsFor(Directory / "no-such-directory"));
    platform.World().OnPortChange([this](PortChange change) { Heard.push_back(change); });
    EXPECT_EQ(AfterWhile(), Changes{});
}

} // namespace
} // namespace qvm
