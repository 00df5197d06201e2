// The live table of a list run on a terminal.

#include "Tafel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

namespace qvm {
namespace {

using testing::HasSubstr;
using testing::Not;

struct Tafel_Terminal : testing::Test {
    std::ostringstream Out, Err;
    Console console{.Out = Out, .Err = Err, .Json = false, .Terminal = true};
    Tafel Table{console};

    /// More rows than any screen has lines.
    Tafel_Terminal() {
        std::vector<std::string> rows;
        for (int n = 0; n < 2000; ++n) {
            rows.push_back("lock " + std::to_string(n) + ".");
        }
        Table.Beginnen(rows);
        Err.str("");
    }
};

TEST_F(Tafel_Terminal, keeps_the_row_that_changed_last_in_sight) {
    Table.Setzen(1000, "lock 1000. done");
    EXPECT_THAT(Err.str(), HasSubstr("lock 1000. done\n"));
    EXPECT_THAT(Err.str(), Not(HasSubstr("lock 0.\n")));
}

TEST_F(Tafel_Terminal, rows_that_stay_as_they_are_move_nothing) {
    Table.Setzen(3, "lock 3. under way");
    Table.Setzen(1999, "lock 1999.");
    Err.str("");
    Table.Fusszeile("50 %");
    EXPECT_THAT(Err.str(), HasSubstr("lock 3. under way\n"));
    EXPECT_THAT(Err.str(), Not(HasSubstr("lock 1999.\n")));
}

} // namespace
} // namespace qvm
