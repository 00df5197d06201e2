// The binary: what an import costs and what it leaves untouched.

#include "RunBinary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sys/stat.h>
#include <tuple>
#include <unistd.h>

namespace qvm {
namespace {

using namespace test;
using namespace std::string_literals;
using testing::EndsWith;
using testing::HasSubstr;
using Json = nlohmann::json;

class Binary_Import : public testing::Test {
protected:
    RunResult Run(std::vector<std::string> arguments, const std::string& input = {}) {
        arguments.insert(arguments.begin(), {"--dir", Directory.Path()});
        return Qvmctl(arguments, input);
    }
    /// Which file it is, and when it was last written.
    std::tuple<ino_t, time_t, long> Identity(const std::string& name) const {
        struct stat info {};
        EXPECT_EQ(stat((Directory.Path() + name).c_str(), &info), 0) << name;
        return {info.st_ino, info.st_mtim.tv_sec, info.st_mtim.tv_nsec};
    }

    TempDirectory Directory;
};

TEST_F(Binary_Import, of_the_own_export_leaves_every_file_the_one_that_it_was) {
    Directory.Write("DAT/TEmpTCD0UPK.FSD", std::string(3028 * 2, '\0') + "1    PR800000001"s + std::string(3012, '\0'));
    Directory.Write("DAT/COMSETUPADAPTER.ADP", std::string(65 * 20 - 17, ' ') + std::string(17, '\0'));
    const std::string document = Run({"export"}).Out;
    const auto directory = Identity("DAT");
    const auto templates = Identity("DAT/TEmpTCD0UPK.FSD");
    const auto adapters = Identity("DAT/COMSETUPADAPTER.ADP");
    const RunResult result = Run({"import", "-"}, document);
    EXPECT_EQ(result.Code, 0) << result.Err;
    EXPECT_EQ(result.Out, "unchanged  TEmpTCD0UPK.FSD\nunchanged  COMSETUPADAPTER.ADP\n");
    EXPECT_EQ(Identity("DAT"), directory);
    EXPECT_EQ(Identity("DAT/TEmpTCD0UPK.FSD"), templates);
    EXPECT_EQ(Identity("DAT/COMSETUPADAPTER.ADP"), adapters);
}

TEST_F(Binary_Import, of_many_faults_tells_a_hundred_and_counts_the_others) {
    std::string records = "{}";
    for (int n = 1; n < 150; ++n) {
        records += ",{}";
    }
    const std::string document =
        R"({"format":"qvm7702-export","version":1,"tables":{"LockEmiRecord":[)" + records + "]}}";
    const RunResult result = Run({"--json", "import", "-"}, document);
    EXPECT_EQ(result.Code, 1);
    EXPECT_THAT(result.Err, EndsWith("\nand 50 more\n150 faults. Nothing was written.\n"));
    EXPECT_EQ(Json::parse(result.Out)["faults"].size(), 100U);
    EXPECT_EQ(Json::parse(result.Out)["more"], 50);
}

TEST_F(Binary_Import, of_more_than_is_ever_read_says_how_much_that_is) {
    const std::string document = Directory.Write("big.json", "");
    ASSERT_EQ(truncate(document.c_str(), (off_t{64} << 20) + 1), 0);
    EXPECT_EQ(Run({"import", document}).Err,
              "The file " + document + " is larger than 64 MB, the most that is read.\n");
    const RunResult piped = Run({"import", "-"}, std::string((std::size_t{64} << 20U) + 1, ' '));
    EXPECT_EQ(piped.Code, 1);
    EXPECT_EQ(piped.Err, "Standard input is larger than 64 MB, the most that is read.\n");
}

// A sanitizer takes terabytes of addresses for itself.
#if !defined(__SANITIZE_ADDRESS__) && !defined(__clang__)
TEST_F(Binary_Import, takes_no_more_memory_than_four_times_the_document) {
    constexpr std::size_t Megabytes = 4, Half = Megabytes << 19U;
    // What the program itself takes is less than 70 MB of addresses.
    const std::string limit = std::to_string((70 + 4 * Megabytes) * 1024);
    std::string keys = R"({"format":"qvm7702-export","version":1,"tables":{"a":0)";
    while (keys.size() < 2 * Half) {
        keys += R"(,"k)" + std::to_string(keys.size()) + R"(":0)";
    }
    for (const std::string& document : {std::string(Half, '[') + std::string(Half, ']'), keys + "}}"}) {
        const std::string file = Directory.Write("big.json", document);
        Process limited("/bin/sh", {"-c", "ulimit -v " + limit + "; exec \"$0\" \"$@\"", QvmctlPath(), "--dir",
                                    Directory.Path(), "import", file});
        const RunResult result = limited.Wait();
        EXPECT_EQ(result.Code, 1);
        EXPECT_THAT(result.Err, HasSubstr("Nothing was written.")) << document.substr(0, 10);
    }
}
#endif

} // namespace
} // namespace qvm
