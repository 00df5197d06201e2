// qvmctl report: arguments in; a PDF, output and exit code out.

#include "Inhalt.h"
#include "VirtualLocks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sys/stat.h>

namespace qvm {
namespace {

using namespace test;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;
using Json = nlohmann::json;

class Binary_Report : public testing::Test {
protected:
    VirtualLocks Locks;

    void SetUp() override {
        for (const std::string language : {"Deutsch", "Francais", "Nederlands"}) {
            const std::string name = "QVM_" + language + ".DAT";
            Locks.Directory.Write(name, Inhalt(QVM_BINARY_DIR "/lang/" + name));
        }
    }
    RunResult Write(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "report");
        return Locks.RunHere(arguments);
    }
    std::string Out(const std::string& name = "out.pdf") const { return Locks.Directory.Path() + name; }
    /// What a reader of PDF finds in the file.
    static std::string TextOf(const std::string& file) {
        Process reader("pdftotext", {"-raw", "-enc", "UTF-8", file, "-"});
        const RunResult read = reader.Wait();
        EXPECT_EQ(read.Code, 0) << read.Err;
        return read.Out;
    }
};

TEST_F(Binary_Report, of_people_names_them_without_their_codes) {
    const RunResult result = Write({"people", "--out", Out(), "--lang", "en"});
    EXPECT_EQ(result.Code, 0) << result.Err;
    EXPECT_EQ(result.Out, "Wrote 1 page to " + Out() + "\n");
    EXPECT_EQ(result.Err, "");
    const std::string text = TextOf(Out());
    EXPECT_THAT(text, HasSubstr("Users and their locks"));
    EXPECT_THAT(text, HasSubstr("Zo\xC3\xAB"));
    EXPECT_THAT(text, HasSubstr("Bert"));
    EXPECT_THAT(text, Not(HasSubstr("918273")));
    struct stat info {};
    ASSERT_EQ(::stat(Out().c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777U, 0600U);
}

TEST_F(Binary_Report, speaks_the_language_asked_for_or_the_configured_one) {
    Locks.Import(Json::object(), {{"EST7CSB29A.I_1", Json::array({"Nederlands", "4", "USB-Port3", "5"})}});
    EXPECT_EQ(Write({"people", "--out", Out()}).Code, 0);
    EXPECT_THAT(TextOf(Out()), HasSubstr("Gebruikers en hun sloten"));
    EXPECT_EQ(Write({"people", "--out", Out(), "--lang", "fr"}).Code, 0);
    EXPECT_THAT(TextOf(Out()), HasSubstr("Utilisateurs et leurs serrures"));
    EXPECT_EQ(Write({"people", "--out", Out(), "--lang", "xx"}).Code, 1);
}

TEST_F(Binary_Report, of_one_user_and_of_one_lock) {
    EXPECT_EQ(Write({"doors", "1", "--out", Out(), "--lang", "en"}).Code, 0);
    EXPECT_THAT(TextOf(Out()), HasSubstr("User 1: Zo\xC3\xAB"));
    EXPECT_THAT(TextOf(Out()), HasSubstr("1 Tor access"));
    EXPECT_EQ(Write({"persons", "1", "--out", Out(), "--lang", "en"}).Code, 0);
    EXPECT_THAT(TextOf(Out()), HasSubstr("Lock 1: Tor"));
    EXPECT_EQ(Write({"receipt", "1", "--out", Out(), "--lang", "en"}).Code, 0);
    EXPECT_THAT(TextOf(Out()), HasSubstr("Handed out by"));
    EXPECT_THAT(TextOf(Out()), Not(HasSubstr("918273")));
}

TEST_F(Binary_Report, of_a_user_or_lock_without_a_name_is_refused) {
    EXPECT_THAT(Write({"doors", "250", "--out", Out()}).Err, HasSubstr("User 250 has no name."));
    EXPECT_THAT(Write({"receipt", "250", "--out", Out()}).Err, HasSubstr("User 250 has no name."));
    const RunResult result = Write({"persons", "200", "--out", Out()});
    EXPECT_EQ(result.Code, 1);
    EXPECT_THAT(result.Err, HasSubstr("Lock 200 has no name."));
    EXPECT_FALSE(Locks.Directory.Has("out.pdf"));
}

TEST_F(Binary_Report, of_events_has_all_lines_of_the_file) {
    const std::string file = Locks.Directory.Write("HIST/H_1.HST", "Tor  /  SNA : 01.02.03.04\r\n"
                                                                   "J\xFCrgen   \t04.03.2026\t08:15\tCode\r\n"
                                                                   "\t\t\tZustand: Stufe 2\r\n");
    EXPECT_EQ(Write({"events", file, "--out", Out(), "--lang", "de"}).Code, 0);
    const std::string text = TextOf(Out());
    EXPECT_THAT(text, HasSubstr("Historie\nH_1.HST\n"));
    EXPECT_THAT(text, HasSubstr("J\xC3\xBCrgen 04.03.2026 08:15 Code\n"));
    EXPECT_THAT(text, HasSubstr("Zustand: Stufe 2\n"));
    EXPECT_EQ(Write({"events", file + "x", "--out", Out("other.pdf")}).Code, 1);
    EXPECT_FALSE(Locks.Directory.Has("other.pdf"));
}

TEST_F(Binary_Report, goes_to_standard_output) {
    const RunResult result = Write({"people", "--out", "-"});
    EXPECT_EQ(result.Code, 0) << result.Err;
    EXPECT_THAT(result.Out, StartsWith("%PDF-1."));
    EXPECT_THAT(result.Out, testing::EndsWith("%%EOF\n"));
}

TEST_F(Binary_Report, tells_as_json_what_it_wrote) {
    const RunResult result = Write({"people", "--out", Out(), "--json"});
    const Json document = Json::parse(result.Out);
    EXPECT_EQ(document["command"], "report");
    EXPECT_EQ(document["ok"], true);
    EXPECT_EQ(document["kind"], "people");
    EXPECT_EQ(document["file"], Out());
    EXPECT_EQ(document["pages"], 1);
}

TEST_F(Binary_Report, that_cannot_be_written_leaves_the_file_as_it_was) {
    Locks.Directory.Write("there/out.pdf", "old");
    ASSERT_EQ(::chmod((Locks.Directory.Path() + "there").c_str(), 0500), 0);
    const RunResult missing = Write({"people", "--out", Out("no/such/out.pdf")});
    EXPECT_EQ(missing.Code, 1);
    EXPECT_THAT(missing.Err, HasSubstr("cannot be written."));
    const RunResult folder = Write({"people", "--out", Out("there")});
    EXPECT_EQ(folder.Code, 1);
    EXPECT_EQ(Locks.Directory.Read("there/out.pdf"), "old");
    ASSERT_EQ(::chmod((Locks.Directory.Path() + "there").c_str(), 0700), 0);
    const RunResult full = Write({"people", "--out", "/dev/full"});
    EXPECT_EQ(full.Code, 1);
    EXPECT_THAT(full.Err, HasSubstr("cannot be written."));
}

TEST_F(Binary_Report, without_its_words_or_readable_data_is_none) {
    EXPECT_EQ(::unlink((Locks.Directory.Path() + "QVM_English.DAT").c_str()), 0);
    EXPECT_THAT(Write({"people", "--out", Out(), "--lang", "en"}).Err,
                HasSubstr("The language file QVM_English.DAT is missing beside the program."));
    EXPECT_EQ(::unlink((Locks.Directory.Path() + "DAT/BX10X52WUJ9.UBW").c_str()), 0);
    EXPECT_EQ(::mkdir((Locks.Directory.Path() + "DAT/BX10X52WUJ9.UBW").c_str(), 0700), 0);
    EXPECT_THAT(Write({"people", "--out", Out(), "--lang", "de"}).Err,
                HasSubstr("The files of the users cannot be read"));
    EXPECT_FALSE(Locks.Directory.Has("out.pdf"));
}

TEST_F(Binary_Report, takes_no_wrong_words) {
    const std::vector<std::vector<std::string>> wrong{
        {"people", "1"},    {"doors"},   {"doors", "0"}, {"doors", "251"}, {"doors", "x"}, {"persons"},
        {"persons", "201"}, {"receipt"}, {"events"},     {"doors", "1x"},  {"nonsense"}};
    for (std::vector<std::string> arguments : wrong) {
        arguments.insert(arguments.end(), {"--out", Out()});
        EXPECT_EQ(Write(arguments).Code, 1) << arguments[0];
    }
    EXPECT_EQ(Write({"people"}).Code, 1) << "no file named";
    EXPECT_FALSE(Locks.Directory.Has("out.pdf"));
}

} // namespace
} // namespace qvm
