#include "CutRun.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>

namespace qvm::test {

using testing::EndsWith;
using testing::StartsWith;

std::string CutRun::Events(int events) {
    std::string text;
    if (events > 0) {
        text = "00.0A.10.01\r\n"
               "Zo\xEB             \t07.03.2020\t09:05\tE-Key\r\n"
               "\t\t\tState: level 1\r\n";
    }
    if (events > 1) {
        text += "Bert            \t06.03.2020\t23:59\tCode\r\n";
    }
    if (events > 2) {
        text += "Old             \t05.03.2019\t00:00\tTransponder\r\n";
    }
    return text;
}

std::vector<std::string> CutRun::List(const std::vector<std::string>& locks, const std::vector<std::string>& more) {
    std::vector<std::string> list{"--json", "run"};
    list.insert(list.end(), locks.begin(), locks.end());
    list.insert(list.end(), {"--history", "--since", "01.01.2020"});
    list.insert(list.end(), more.begin(), more.end());
    return list;
}

int CutRun::Heard(const std::string& code, char way) const {
    std::istringstream trace(Locks.Simulator().ErrSoFar());
    int count = 0;
    for (std::string line; std::getline(trace, line);) {
        // "> 02 LL CC ..."
        count += line.size() > 9 && line.front() == way && line.compare(8, 2, code) == 0 ? 1 : 0;
    }
    return count;
}

bool CutRun::WaitForTelegram(const std::string& code, int count) const {
    return WaitUntil([&] { return Heard(code) >= count; });
}

std::map<std::string, std::string> CutRun::Files(const std::string& directory) const {
    std::map<std::string, std::string> files;
    for (const std::string& name : Locks.Directory.List(directory)) {
        files[name] = Locks.Directory.Read(std::string(directory).append("/").append(name));
    }
    return files;
}

std::string CutRun::OnlyHistory() const {
    const auto files = Files("HIST");
    EXPECT_LE(files.size(), 1U);
    return files.empty() ? "" : files.begin()->second;
}

void CutRun::ExpectNextListWorks() {
    const auto earlier = Files("HIST");
    const auto data = Files("DAT");
    const RunResult next = Locks.Run(List({"1"}));
    EXPECT_EQ(next.Code, 0) << next.Err << next.Out;
    const auto files = Files("HIST");
    for (const auto& [name, bytes] : earlier) {
        ASSERT_TRUE(files.contains(name));
        EXPECT_THAT(files.at(name), StartsWith(bytes));
    }
    ASSERT_FALSE(files.empty());
    // A run within the same second goes on in the file of the one before.
    EXPECT_THAT(files.rbegin()->second, EndsWith(Events(3)));
    EXPECT_EQ(Files("DAT"), data);
    Locks.Stop();
    EXPECT_EQ(Locks.Lock(Tor)["data_complete"], true);
    EXPECT_EQ(Locks.Lock(Tor)["users"].size(), 2U);
}

} // namespace qvm::test
