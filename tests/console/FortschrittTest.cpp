// The progress of one lock's run on standard error.

#include "Fortschritt.h"

#include "Bildschirm.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>
#include <string>

namespace qvm {
namespace {

using testing::EndsWith;

struct Fortschritt_Zeigen : testing::Test {
    std::ostringstream Out, Err;
    Console terminal{.Out = Out, .Err = Err, .Json = false, .Terminal = true};
    Console plain{.Out = Out, .Err = Err, .Json = false, .Terminal = false};
};

TEST_F(Fortschritt_Zeigen, draws_bar_share_and_step_on_a_terminal) {
    Fortschritt progress(terminal);
    progress.Beginnen("Lock 1");
    progress.Zeigen(50, "", "user 12 of 40");
    EXPECT_EQ(Err.str(), "Lock 1 [###############...............] 50 %  user 12 of 40");
    progress.Zeigen(50, "", "user 13 of 40");
    EXPECT_THAT(Err.str(), EndsWith("\r\x1B[KLock 1 [###############...............] 50 %  user 13 of 40"));
}

TEST_F(Fortschritt_Zeigen, never_fills_a_line_to_its_end_as_it_could_not_be_taken_back) {
    Fortschritt progress(terminal);
    progress.Beginnen("Lock 1");
    progress.Zeigen(50, "no answer", std::string(500, 'x'));
    EXPECT_EQ(Err.str().size(), static_cast<std::size_t>(Bildschirm().Columns - 1));
}

TEST_F(Fortschritt_Zeigen, tells_every_tenth_share_in_plain_lines_and_no_step) {
    Fortschritt progress(plain);
    progress.Beginnen("Lock 1");
    progress.Zeigen(1, "", "login");
    progress.Zeigen(2, "", "user 1 of 40");
    progress.Zeigen(12, "", "user 3 of 40");
    EXPECT_EQ(Err.str(), "Lock 1 ...\nLock 1: 1 %\nLock 1: 12 %\n");
}

} // namespace
} // namespace qvm
