// The readers of the desk, through the built programs.

#include "VirtualLocks.h"

#include <csignal>
#include <gmock/gmock.h>

namespace qvm::test {
namespace {

using testing::HasSubstr;

const std::string SimulatorPath = QVM_BINARY_DIR "/src/simulator/program/qvm-simulator";

TEST(Binary_Desk, what_stands_on_standard_input_is_laid_on_the_desk_and_a_bad_line_changes_nothing) {
    const TempDirectory directory;
    Process simulator(SimulatorPath, {"--state", directory.Path() + "state.json"},
                      "{\"kind\": \"key\", \"id\": \"0A141E28\"}\n\nkey\n{\"kind\": \"finger\"}\n{\"kind\": \"transp");
    ASSERT_TRUE(simulator.WaitFor("standard input: not JSON"));
    simulator.Signal(SIGTERM);
    EXPECT_EQ(simulator.Wait().Code, 0);
    const auto state = nlohmann::json::parse(directory.Read("state.json"));
    const auto& presented = state["desk"]["presented"];
    ASSERT_EQ(presented.size(), 2U) << "half a line is none";
    EXPECT_EQ(presented[0]["id"], "0A141E28");
    EXPECT_EQ(presented[1]["kind"], "finger");
}

} // namespace
} // namespace qvm::test
