// A list run is killed, or runs out of disk: no event that came is lost, and the next run works.

#include "CutList.h"
#include "Text.h"

#include <algorithm>
#include <array>

namespace qvm::test {
namespace {

/// What is left when the program ends at a telegram.
struct Moment {
    std::map<std::string, std::string> Disk;
    VirtualWorld Devices;
    std::map<int, int> Kept;
};

/// A whole list run, with what stands on the disk at each of its telegrams.
std::vector<Moment> EveryMoment(CutList& run) {
    std::vector<Moment> moments;
    run.OnTelegram = [&] {
        Moment now{.Disk = run.world.Disk.Files, .Devices = run.system->World(), .Kept = {}};
        for (const int lock : {1, 2, 3}) {
            now.Kept[lock] = run.Kept(lock);
        }
        moments.push_back(std::move(now));
    };
    run.StartList();
    run.EndList();
    run.OnTelegram = {};
    return moments;
}

TEST(List_Killed, at_any_telegram_the_disk_holds_all_data_and_every_event_that_came) {
    CutList run;
    const std::vector<Moment> moments = EveryMoment(run);
    ASSERT_GT(moments.size(), 40U);
    const auto data = CutList::DataOf(moments.front().Disk);
    EXPECT_THAT(moments.front().Kept, testing::Each(testing::Field(&std::pair<const int, int>::second, 0)));
    EXPECT_THAT(moments.back().Kept, ElementsAre(std::pair(1, 3), std::pair(2, 2), std::pair(3, 1)));
    for (std::size_t n = 0; n < moments.size(); ++n) {
        SCOPED_TRACE("telegram " + std::to_string(n));
        EXPECT_EQ(CutList::DataOf(moments[n].Disk), data);
        for (const auto& [lock, kept] : moments[n].Kept) {
            EXPECT_EQ(CutList::HistoryOf(lock, moments[n].Disk), CutList::Beginning(CutList::Complete(lock), kept));
        }
    }
}

TEST(List_Killed, at_any_telegram_the_next_list_works_without_repair) {
    CutList first;
    const std::vector<Moment> moments = EveryMoment(first);
    for (std::size_t n = 0; n < moments.size(); ++n) {
        SCOPED_TRACE("telegram " + std::to_string(n));
        CutList next;
        next.world.Disk.Files = moments[n].Disk;
        next.devices = moments[n].Devices;
        // The clock has gone on since.
        next.world.RunFor(60000);
        next.StartList();
        next.EndList();
        EXPECT_THAT(next.AllRows(), ElementsAre(CutList::Programmed, CutList::Programmed, CutList::Programmed));
        for (const int lock : {1, 2, 3}) {
            const CutList::Pieces pieces = CutList::Complete(lock);
            EXPECT_EQ(CutList::HistoryOf(lock, next.world.Disk.Files),
                      CutList::Beginning(pieces, static_cast<int>(pieces.size())));
        }
        EXPECT_TRUE(next.Lock("00.0A.10.01").DataComplete);
        EXPECT_EQ(next.Lock("00.0A.10.01").Users.size(), 1U);
        EXPECT_EQ(next.system->JudgementLines(), "");
    }
}

// ---- a lock on the way to another channel

/// A list of one lock that moves from channel 1 to 7.
struct MoveList : ListenFixture {
    static inline const std::string OldRecord = "1     7  1     ", NewRecord = "7     7  0     ";

    MoveList() {
        AddLock(1, "Tor", "00.0A.10.01", " XXX ");
        files.User(1, {.Name = "Anna", .Marks = {{1, 'X'}}});
        world.Disk.Files["/q/DAT/EST7CSB29A.I_1"] = "Deutsch\r\n1\r\nUSB-Port1\r\n7\r\n";
        files.Channel(1, "1", "7", "1");
    }
    void TestBody() override {}

    /// `seen` before each telegram.
    void Run(const std::function<void()>& seen = {}) {
        BeginList();
        const auto deliver = world.OnWrite;
        world.OnWrite = [seen, deliver](std::span<const std::uint8_t> bytes) {
            Rufen(seen);
            deliver(bytes);
        };
        Prog({1});
        EXPECT_TRUE(FinishList());
        EXPECT_EQ(RowAt(1), expected);
        EXPECT_EQ(Lock("00.0A.10.01").Channel, 7);
    }
    Row expected = CutList::Programmed;
    std::string Record() { return files.File("RFCHANDIF12.RFX").substr(0, 15); }
};

TEST(List_Killed, while_a_lock_changes_its_channel_the_next_list_finds_it) {
    struct Left {
        std::map<std::string, std::string> Disk;
        VirtualWorld Devices;
        std::string Record;
    };
    std::vector<Left> moments;
    MoveList first;
    first.Run([&] { moments.push_back({first.world.Disk.Files, first.system->World(), first.Record()}); });
    EXPECT_EQ(first.Record(), MoveList::NewRecord);
    ASSERT_GT(moments.size(), 20U);
    int moved = 0;
    for (std::size_t n = 0; n < moments.size(); ++n) {
        SCOPED_TRACE("telegram " + std::to_string(n));
        // The record never tells of a move that the lock has not made.
        const bool there = moments[n].Devices.Locks[0].Channel == 7;
        EXPECT_EQ(moments[n].Record, there ? MoveList::NewRecord : MoveList::OldRecord);
        moved += there ? 1 : 0;
        MoveList next;
        next.world.Disk.Files = moments[n].Disk;
        next.devices = moments[n].Devices;
        next.Run();
        EXPECT_EQ(next.Record(), MoveList::NewRecord);
    }
    EXPECT_GT(moved, 10);
}

// ---- a disk that is full

/// Lets the n-th write, from 1, fail, and all behind it if `rest`. What is there can be read and deleted.
struct FullDisk {
    FullDisk(VirtualPlatform& platform, int n, bool rest) : world(platform), before(world.World.Files) {
        FileStore& files = world.World.Files;
        const auto fits = [this, n, rest] {
            ++writes;
            const bool good = writes < n || (writes > n && !rest);
            failed = failed || !good;
            return good;
        };
        files.Append = [this, fits](const std::string& path, std::string_view bytes) {
            return fits() && before.Append(path, bytes);
        };
        files.Replace = [this, fits](const std::string& path, std::string_view bytes) {
            return fits() && before.Replace(path, bytes);
        };
        files.WriteAt = [this, fits](const std::string& path, std::uint64_t offset, std::string_view bytes) {
            return fits() && before.WriteAt(path, offset, bytes);
        };
    }
    ~FullDisk() { world.World.Files = before; }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

    VirtualPlatform& world;
    FileStore before;
    int writes = 0;
    bool failed = false;
};

bool Erased(CutList& run, int lock) {
    if (lock != 2) {
        return run.Lock(lock == 1 ? "00.0A.10.01" : "00.0A.10.03").Erases > 0;
    }
    return std::any_of(run.NetFrames.begin(), run.NetFrames.end(), [](const auto& frame) { return frame[27] == 0x14; });
}

/// A lock whose events are all on the disk is programmed; any other one says so in its row, and is not touched.
void ExpectRow(CutList& run, int lock, const std::string& file, bool whole) {
    SCOPED_TRACE("lock " + std::to_string(lock));
    EXPECT_EQ(CutList::HistoryOf(lock, run.world.Disk.Files), file);
    EXPECT_EQ(run.RowAt(lock), whole ? CutList::Programmed : CutList::NotKept);
    EXPECT_EQ(Erased(run, lock), whole);
}

TEST(List_On_A_Full_Disk, from_any_write_on_keeps_what_fitted_and_erases_no_lock_that_lost_an_event) {
    // Writes in their order: three events of lock 1; for lock 2 the log of its telegrams before its first event,
    // between both, and twice behind them; the event of lock 3. How many events fit before write n, from 1:
    struct Fitting {
        int Tor, Keller, Dach;
    };
    constexpr std::array<Fitting, 10> fits{
        {{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {3, 0, 0}, {3, 1, 0}, {3, 1, 0}, {3, 2, 0}, {3, 2, 0}, {3, 2, 0}}};
    for (std::size_t n = 0; n < fits.size(); ++n) {
        SCOPED_TRACE("write " + std::to_string(n + 1));
        CutList run;
        {
            const FullDisk disk(run.world, static_cast<int>(n) + 1, true);
            run.StartList();
            const auto data = CutList::DataOf(run.world.Disk.Files);
            run.EndList();
            EXPECT_TRUE(disk.failed);
            EXPECT_EQ(CutList::DataOf(run.world.Disk.Files), data);
        }
        ExpectRow(run, 1, CutList::Beginning(CutList::Complete(1), fits[n].Tor), fits[n].Tor == 3);
        ExpectRow(run, 2, CutList::Beginning(CutList::Complete(2), fits[n].Keller), fits[n].Keller == 2);
        ExpectRow(run, 3, CutList::Beginning(CutList::Complete(3), fits[n].Dach), fits[n].Dach == 1);
        EXPECT_FALSE(run.world.Disk.Files.contains("/q/HIST/H_20100701_192030_LOCK.txt"));
        run.ExpectNextListWorks();
    }
}

TEST(List_On_A_Full_Disk, with_room_for_every_write_programs_all) {
    CutList run;
    const FullDisk disk(run.world, 11, true);
    run.StartList();
    run.EndList();
    EXPECT_EQ(disk.writes, 10);
    EXPECT_THAT(run.AllRows(), ElementsAre(CutList::Programmed, CutList::Programmed, CutList::Programmed));
}

TEST(List_On_A_Full_Disk, one_event_that_did_not_fit_is_missing_whole_and_its_lock_is_not_erased) {
    struct Missing {
        int Write, Lock;
        std::size_t Event;
    };
    // The writes between these are the log of telegrams.
    constexpr std::array<Missing, 6> cases{{{1, 1, 0}, {2, 1, 1}, {3, 1, 2}, {5, 2, 0}, {7, 2, 1}, {10, 3, 0}}};
    for (const Missing& missing : cases) {
        SCOPED_TRACE("write " + std::to_string(missing.Write));
        CutList run;
        {
            const FullDisk disk(run.world, missing.Write, false);
            run.StartList();
            run.EndList();
        }
        for (const int lock : {1, 2, 3}) {
            CutList::Pieces pieces = CutList::Complete(lock);
            if (lock == missing.Lock && pieces.size() == 1) {
                pieces.clear();
            } else if (lock == missing.Lock) {
                // The first line stands before the first event that fits.
                const std::size_t head = pieces[0].find('\n') + 1;
                const std::size_t from = missing.Event == 0 ? head : 0;
                pieces[missing.Event].erase(from);
            }
            ExpectRow(run, lock, CutList::Beginning(pieces, static_cast<int>(pieces.size())), lock != missing.Lock);
        }
    }
}

TEST(List_On_A_Full_Disk, without_its_log_a_telegram_goes_out_all_the_same) {
    for (const int write : {4, 6, 8, 9}) {
        SCOPED_TRACE("write " + std::to_string(write));
        CutList run;
        const FullDisk disk(run.world, write, false);
        run.StartList();
        run.EndList();
        EXPECT_TRUE(disk.failed);
        EXPECT_THAT(run.AllRows(), ElementsAre(CutList::Programmed, CutList::Programmed, CutList::Programmed));
    }
}

TEST(List_On_A_Full_Disk, without_room_for_the_record_of_its_channel_a_lock_is_found_again) {
    MoveList run;
    {
        const FullDisk disk(run.world, 1, true);
        run.expected = {">>", std::string(u8"L266 - Der neue Funkkanal des Schlosses konnte nicht gespeichert werden: "
                                          u8"Das Schloss wird beim nächsten Mal wieder gesucht."_w)};
        run.Run();
        EXPECT_TRUE(disk.failed);
    }
    EXPECT_TRUE(run.programm->Run.Bericht.ChannelUnsaved);
    EXPECT_EQ(run.Record(), MoveList::OldRecord);

    run.expected = CutList::Programmed;
    run.devices = run.system->World();
    run.Run();
    EXPECT_EQ(run.Record(), MoveList::NewRecord);
}

} // namespace
} // namespace qvm::test
