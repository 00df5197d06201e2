#include "Hook.h"

#include <gtest/gtest.h>
#include <string>

namespace qvm::test {
namespace {

TEST(Hook, does_nothing_while_nobody_has_filled_it) {
    const Hook<void()> call;
    const Hook<void(int, const std::string&)> tell = {};
    call();
    tell(1, "x");
}

TEST(Hook, hands_its_arguments_to_whoever_has_filled_it) {
    std::string heard;
    Hook<void(int line, const std::string& text)> tell = [&heard](int line, const std::string& text) {
        heard += std::to_string(line) + text;
    };
    tell(1, "a");
    const Hook<void(int, const std::string&)> copy = tell;
    copy(2, "b");
    tell = {};
    tell(3, "c");
    copy(4, "d");
    EXPECT_EQ(heard, "1a2b4d");
}

TEST(Hook, of_an_empty_function_does_nothing) {
    const std::function<void()> nobody;
    const Hook<void()> call = nobody;
    call();
}

} // namespace
} // namespace qvm::test
