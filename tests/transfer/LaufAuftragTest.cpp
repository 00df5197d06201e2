#include "Programmierlauf.h"

#include <gtest/gtest.h>

namespace qvm::test {
namespace {

/// A lock between the borders of those that take two passes, with users of a transponder.
struct Lauf_Auftrag_Geben : ::testing::Test {
    LockRow lock;
    Dataset dataset;
    RunOrder wish;

    Lauf_Auftrag_Geben() {
        lock.Number = 117;
        lock.Name = "Tor";
        lock.Serial = "0E.6E.90.01";
        dataset.AnyTransponder = true;
    }
    RunOrder Order() { return Lauf_Auftrag(wish, lock, dataset).value_or(RunOrder{}); }
};

TEST_F(Lauf_Auftrag_Geben, names_the_lock_by_number_name_and_serial) {
    const RunOrder order = Order();
    EXPECT_EQ(order.LockNumber, 117);
    EXPECT_EQ(order.LockName, "Tor");
    EXPECT_EQ(order.SerialValue, 0xE6E9001U);
    EXPECT_EQ(order.LockAddress, (Address{0x0E, 0x6E, 0x90, 0x01}));
}

TEST_F(Lauf_Auftrag_Geben, keeps_what_was_wished) {
    wish.TargetChannel = 7;
    wish.Search = true;
    wish.What = RunTask::HistoryFirst;
    wish.EraseOption = 1;
    wish.AdminCode = AdminCodeBytes{0x12, 0x34, 0x56};
    wish.HistoryCutoff = "01.03.2026";
    const RunOrder order = Order();
    EXPECT_EQ(order.TargetChannel, 7);
    EXPECT_TRUE(order.Search);
    EXPECT_EQ(order.What, RunTask::HistoryFirst);
    EXPECT_EQ(order.EraseOption, 1);
    EXPECT_EQ(order.AdminCode, (AdminCodeBytes{0x12, 0x34, 0x56}));
    EXPECT_EQ(order.HistoryCutoff, "01.03.2026");
}

TEST_F(Lauf_Auftrag_Geben, there_is_none_for_a_serial_that_is_none) {
    for (const char* serial : {"", "0E.6E.90", "0E.6E.9Z.01"}) {
        lock.Serial = serial;
        EXPECT_FALSE(Lauf_Auftrag(wish, lock, dataset)) << serial;
    }
}

TEST_F(Lauf_Auftrag_Geben, two_passes_are_for_a_lock_that_is_programmed_with_a_transponder) {
    EXPECT_TRUE(Order().TwoPasses);
    wish.What = RunTask::HistoryFirst;
    EXPECT_TRUE(Order().TwoPasses);
    wish.What = RunTask::HistoryOnly;
    EXPECT_FALSE(Order().TwoPasses);
    wish.What = RunTask::Program;
    dataset.AnyTransponder = false;
    EXPECT_FALSE(Order().TwoPasses);
    dataset.AnyTransponder = true;
    lock.Serial = "0E.6E.90.00"; // the border
    EXPECT_FALSE(Order().TwoPasses);
}

TEST_F(Lauf_Auftrag_Geben, a_lock_that_holds_fingers_is_not_wiped) {
    wish.EraseOption = 1;
    EXPECT_EQ(Order().EraseOption, 1);
    dataset.AnyFinger = true;
    EXPECT_EQ(Order().EraseOption, 0);
}

} // namespace
} // namespace qvm::test
