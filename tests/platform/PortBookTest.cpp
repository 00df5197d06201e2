#include "PortBook.h"

#include <gtest/gtest.h>
#include <vector>

namespace qvm {
namespace {

using Changes = std::vector<PortChange>;

constexpr PortIdentity First{.Device = 48128, .Node = 700};
constexpr PortIdentity Second{.Device = 48129, .Node = 701};

TEST(PortBook_Look, nothing_new_is_no_change) {
    PortBook book({{1, First}, {2, Second}});
    EXPECT_EQ(book.Look({{1, First}, {2, Second}}), Changes{});
    EXPECT_EQ(PortBook({}).Look({}), Changes{});
}

TEST(PortBook_Look, a_number_that_was_not_there_is_an_arrival) {
    PortBook book({{1, First}});
    EXPECT_EQ(book.Look({{1, First}, {2, Second}}), Changes{PortChange::Arrived});
}

TEST(PortBook_Look, a_number_that_is_gone_is_a_removal) {
    PortBook book({{1, First}, {2, Second}});
    EXPECT_EQ(book.Look({{2, Second}}), Changes{PortChange::Removed});
}

TEST(PortBook_Look, several_ports_of_one_plugging_are_one_change) {
    PortBook book({});
    EXPECT_EQ(book.Look({{1, First}, {2, Second}}), Changes{PortChange::Arrived});
    EXPECT_EQ(book.Look({}), Changes{PortChange::Removed});
}

TEST(PortBook_Look, a_device_that_moved_to_another_number_is_a_removal_and_an_arrival_in_that_order) {
    PortBook book({{1, First}});
    EXPECT_EQ(book.Look({{2, First}}), (Changes{PortChange::Removed, PortChange::Arrived}));
}

TEST(PortBook_Look, a_device_put_back_behind_its_number_has_a_new_node_and_is_both) {
    PortBook book({{1, First}});
    EXPECT_EQ(book.Look({{1, {.Device = 48128, .Node = 702}}}), (Changes{PortChange::Removed, PortChange::Arrived}));
}

TEST(PortBook_Look, a_link_made_anew_is_both_even_if_it_leads_to_the_same_device) {
    const PortIdentity before{.Device = 34819, .Node = 6, .Link = 90, .LinkTime = 1000};
    PortIdentity after = before;
    after.LinkTime = 1001;
    PortBook book({{3, before}});
    EXPECT_EQ(book.Look({{3, after}}), (Changes{PortChange::Removed, PortChange::Arrived}));
}

TEST(PortBook_Look, compares_with_the_last_look_not_with_the_first) {
    PortBook book({});
    EXPECT_EQ(book.Look({{1, First}}), Changes{PortChange::Arrived});
    EXPECT_EQ(book.Look({{1, First}}), Changes{});
    EXPECT_EQ(book.Look({}), Changes{PortChange::Removed});
    EXPECT_EQ(book.Look({}), Changes{});
}

} // namespace
} // namespace qvm
