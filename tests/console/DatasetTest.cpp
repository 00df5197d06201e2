// What a lock would get, without a lock.

#include "RunBinary.h"

#include <cstdio>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace qvm {
namespace {

using namespace test;
using testing::HasSubstr;
using Json = nlohmann::json;

class Dataset : public testing::Test {
protected:
    void Import(const std::string& locks, const std::string& more = {}) {
        const RunResult result =
            Qvmctl({"--dir", Directory.Path(), "import", "-"},
                   R"({"format":"qvm7702-export","version":1,"tables":{"LockRecord":[)" + locks + "]" + more + "}}");
        ASSERT_EQ(result.Code, 0) << result.Err;
    }
    RunResult Run(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"--dir", Directory.Path(), "dataset"});
        return Qvmctl(arguments);
    }
    /// The codes of all telegrams in hexadecimal.
    static std::string Codes(const Json& report) {
        std::string text;
        for (const Json& telegram : report["telegrams"]) {
            char code[8];
            std::snprintf(code, sizeof code, "%s%02X", text.empty() ? "" : " ", telegram["code"].get<unsigned>());
            text += code;
        }
        return text;
    }

    TempDirectory Directory;
};

/// Locks 1 and 2 stay on their channel.
const std::string Settled = R"(,"ChannelRecord":[
    {"record":1,"LockChannel":"1","TargetChannel":"1","LockChange":"0"},
    {"record":2,"LockChannel":"1","TargetChannel":"1","LockChange":"0"}])";

/// Switch 5 sets the clock.
const std::string ShortLock = R"({"record":1,"Name":"Tor","Sn1":"00","Sn2":"0A","Sn3":"10","Sn4":"01","Switch5":"X"})";

TEST_F(Dataset, of_a_lock_without_users_is_the_whole_chain) {
    Import(ShortLock, Settled + R"(,"LockEmiRecord":[{"record":1,"Emi":"X"}])");
    const RunResult result = Run({"1", "--json"});
    ASSERT_EQ(result.Code, 0) << result.Err;
    const Json report = Json::parse(result.Out);
    EXPECT_EQ(Codes(report), "04 07 09 2F 27 25 19 1B 1F 1F 1F 21 21 21 23 32 15 05");
    EXPECT_EQ(report["count"], 18);
    EXPECT_EQ(report["serial"], "00.0A.10.01");
    // The last: 15 bytes, 02 0D 05 00 0A 10 01 11 00 33 88 01 00 00 9D, with no 02 to be stuffed.
    EXPECT_EQ(report["telegrams"][17]["name"], "TelTrennen");
    EXPECT_EQ(report["telegrams"][17]["bytes"], 15);
    std::int64_t bytes = 0;
    for (const Json& telegram : report["telegrams"]) {
        bytes += telegram["bytes"].get<std::int64_t>();
    }
    EXPECT_EQ(report["bytesSent"], bytes);
    const double line = (static_cast<double>(bytes) + report["bytesReceived"].get<double>()) / 1920.0;
    EXPECT_NEAR(report["lineSeconds"].get<double>(), line, 1e-9);
    // No ordered wait in this class: the run takes what the line takes.
    EXPECT_NEAR(report["totalSeconds"].get<double>(), line, 0.01);
}

TEST_F(Dataset, of_a_lock_that_is_polled_holds_the_wait) {
    Import(R"({"record":2,"Name":"Kasse","Sn1":"01","Sn2":"1A","Sn3":"20","Sn4":"05"})", Settled);
    const Json report = Json::parse(Run({"2", "--json"}).Out);
    // No clock: login and erase at once. The poll comes 2000 ms after it, the flag 1000 ms after the answer.
    EXPECT_EQ(Codes(report), "04 27 08 25 19 1B 1F 1F 1F 21 21 21 23 15 05");
    EXPECT_GT(report["totalSeconds"].get<double>(), report["lineSeconds"].get<double>() + 2.9);
    EXPECT_LT(report["totalSeconds"].get<double>(), report["lineSeconds"].get<double>() + 3.1);
}

TEST_F(Dataset, hides_the_codes_of_the_users) {
    Import(ShortLock, R"(,"UserRecord":[{"record":1,"UserName":"Anna","UserCode":"918273","LockMask":"X"}])");
    const RunResult result = Run({"1"});
    EXPECT_EQ(result.Code, 0);
    EXPECT_THAT(result.Out, HasSubstr("user name \"Anna\""));
    EXPECT_THAT(result.Out, HasSubstr("user code hidden"));
    EXPECT_THAT(result.Out, HasSubstr("administrator code hidden"));
    EXPECT_THAT(result.Out, testing::Not(HasSubstr("91 82 73")));
    EXPECT_THAT(result.Out, testing::Not(HasSubstr("918273")));
}

TEST_F(Dataset, hides_the_data_of_an_e_key) {
    Import(ShortLock, R"(,"UserRecord":[{"record":1,"UserName":"Anna","UserCode":"1","LockMask":"X",
        "KeyId":"171:205:18:52","KeyData":"161:162:163:164:165:166:167:168:169:170:171:172:173:174:175:176"}])");
    const RunResult text = Run({"1"}), json = Run({"1", "--json"});
    EXPECT_EQ(text.Code, 0);
    EXPECT_THAT(text.Out, HasSubstr("identification hidden, identification data hidden"));
    for (const RunResult* result : {&text, &json}) {
        EXPECT_THAT(result->Out, HasSubstr("TelBenutzerDatenLang"));
        EXPECT_THAT(result->Out, testing::Not(HasSubstr("AB CD 12 34")));
        EXPECT_THAT(result->Out, testing::Not(HasSubstr("A1 A2")));
    }
}

TEST_F(Dataset, writes_nothing_even_when_the_lock_would_change_its_channel) {
    Import(ShortLock, R"(,"ChannelRecord":[{"record":1,"LockChannel":"3","TargetChannel":"5","LockChange":"1"}])");
    const auto before = Directory.List("DAT");
    const std::string channels = Directory.Read("DAT/RFCHANDIF12.RFX");
    const RunResult result = Run({"1", "--json"});
    ASSERT_EQ(result.Code, 0) << result.Err;
    EXPECT_EQ(Codes(Json::parse(result.Out)).substr(0, 14), "04 28 66 29 07");
    EXPECT_EQ(Directory.List("DAT"), before);
    EXPECT_EQ(Directory.Read("DAT/RFCHANDIF12.RFX"), channels);
    EXPECT_FALSE(Directory.Has("HIST"));
}

TEST_F(Dataset, before_the_first_conversion_holds_the_users_of_the_old_table) {
    Import(ShortLock, Settled);
    // The form before the present one: name at 0, right at 31, code at 35, mark for lock 1 at 175, 276 bytes.
    std::string user(276, ' ');
    user.replace(0, 4, "Anna");
    user.replace(31, 1, "1");
    user.replace(35, 6, "918273");
    user.replace(175, 1, "X");
    Directory.Write("DAT/BX08HAZJNT9.UBW", user);
    const auto before = Directory.List("DAT");
    const RunResult result = Run({"1"});
    EXPECT_EQ(result.Code, 0) << result.Err;
    EXPECT_THAT(result.Out, HasSubstr("user name \"Anna\""));
    EXPECT_EQ(Directory.List("DAT"), before);
    EXPECT_EQ(Directory.Read("DAT/BX08HAZJNT9.UBW"), user);
}

TEST_F(Dataset, of_a_lock_without_a_serial_is_a_fault) {
    Import(R"({"record":1,"Name":"Tor"})");
    const RunResult result = Run({"1"});
    EXPECT_EQ(result.Code, 1);
    EXPECT_EQ(result.Out, "");
    EXPECT_THAT(result.Err, HasSubstr("Lock 1: the lock has no serial number in the lock table."));
}

TEST_F(Dataset, of_a_lock_with_more_users_than_it_holds_cannot_be_built) {
    std::string users;
    for (int user = 1; user <= 48; ++user) {
        users += (user == 1 ? "" : ",") + std::string(R"({"record":)") + std::to_string(user) + R"(,"UserName":"U)" +
                 std::to_string(user) + R"(","LockMask":"-X"})";
    }
    Import(R"({"record":2,"Name":"Kasse","Sn1":"01","Sn2":"1A","Sn3":"20","Sn4":"05"})",
           R"(,"UserRecord":[)" + users + "]");
    const RunResult result = Run({"2"});
    EXPECT_EQ(result.Code, 1);
    EXPECT_THAT(result.Err, HasSubstr("Lock 2: the dataset could not be built."));
}

} // namespace
} // namespace qvm
