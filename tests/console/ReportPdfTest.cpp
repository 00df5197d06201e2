// What a reader of PDF finds in a report is what the data hold, for installations made at random.

#include "Berichte.h"
#include "F5_Laden.h"
#include "F5_Marken.h"
#include "Inhalt.h"
#include "Kern.h"
#include "Pdf.h"
#include "RunBinary.h"
#include "Text.h"
#include "VirtualPlatform.h"
#include "Zeitgruppen.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

namespace qvm::test {
namespace {

/// Signs of names. Accents that stand alone are left out: a reader of PDF may put them onto their neighbour.
constexpr std::string_view NameSigns =
    "abcxyzABCXYZ .,;:!?()[]{}<>\\/'\"&%$#@*+=_|~^"
    "\x80\x8A\x8C\x8E\x99\x9A\x9C\x9E\x9F\xA7\xA9\xB1\xB5\xC4\xD6\xDC\xDF\xE4\xE8\xE9"
    "\xF1\xF6\xFC\xFF";

/// An installation as this test knows it.
struct Model {
    struct User {
        std::string Name{}, Label{};
        char Key = 0; ///< 0: none, '#': transponder
        std::vector<int> Locks{}, Fingers{};
    };
    std::vector<std::string> Locks; ///< lock n at n - 1, empty: none
    std::vector<User> Users;
    std::vector<std::string> Secrets;
};

class PdfOfReports : public testing::Test {
protected:
    VirtualPlatform Welt;
    Kern kern{Welt.World};
    std::mt19937 dice{7702};

    int Roll(int from, int to) { return std::uniform_int_distribution<int>(from, to)(dice); }
    std::string Text(std::string_view signs, int longest) {
        std::string text;
        for (int n = Roll(1, longest); n > 0; --n) {
            text += signs[static_cast<std::size_t>(Roll(0, static_cast<int>(signs.size()) - 1))];
        }
        return text;
    }
    std::string Name(int longest) { return "n" + Text(NameSigns, longest - 2) + "n"; }

    Model Build(UserTable& table, int locks, int users) {
        Model model;
        for (int lock = 1; lock <= locks; ++lock) {
            model.Locks.push_back(Roll(0, 9) == 0 ? "" : Name(20));
            Grup_Name(table, lock, model.Locks.back());
        }
        for (int user = 1; user <= users; ++user) {
            Add(model, table, user);
        }
        return model;
    }

    void Add(Model& model, UserTable& table, int user) {
        Model::User made{.Name = Name(16)};
        const int row = UserGrid::RowOf(user);
        table.FGK4.SetText(row, UserColumn::Name, made.Name);
        table.FGK4.SetText(row, UserColumn::Group, "-");
        table.FGK4.SetText(row, UserColumn::Right, "1");
        const std::string code = std::to_string(Roll(100000, 999999));
        const std::string key = HexText(static_cast<std::uint64_t>(dice()), 8);
        const std::string data = HexText(static_cast<std::uint64_t>(dice()), 8);
        table.FGK4.SetText(row, UserColumn::Code, code);
        table.FGK4.SetText(row, UserColumn::KeyData, data);
        table.FGK4.SetText(row, UserColumn::FingerId, data + "F");
        if (Roll(0, 1) == 0) {
            made.Key = Roll(0, 1) == 0 ? '#' : 'E';
            made.Label = Name(16);
            table.FGK4.SetText(row, UserColumn::KeyId, (made.Key == '#' ? "#" : "") + key);
            table.FGK4.SetText(row, UserColumn::KeyLabel, made.Label);
        } else {
            table.FGK4.SetText(row, UserColumn::KeyLabel, "Slot_Nr:" + data);
        }
        model.Secrets.insert(model.Secrets.end(), {code, key, data});
        for (int lock = 1; lock <= static_cast<int>(model.Locks.size()); ++lock) {
            const int kind = model.Locks[static_cast<std::size_t>(lock - 1)].empty() ? 0 : Roll(0, 3);
            Marke_Setzen(table.FGK4, row, UserGrid::ColumnOf(lock), kind == 1 ? 'X' : kind == 2 ? 'F' : '-');
            if (kind == 1) {
                made.Locks.push_back(lock);
            } else if (kind == 2) {
                made.Fingers.push_back(lock);
            }
        }
        model.Users.push_back(made);
    }

    void Speak(const std::string& language) {
        kern.AppPath = "/qvm/";
        kern.Config.Sprache = language;
        const std::string name = "QVM_" + language + ".DAT";
        Welt.Disk.Files["/qvm/" + name] = Inhalt(QVM_BINARY_DIR "/lang/" + name);
        ASSERT_EQ(Sprachdatei_Laden(kern), SprachdateiStatus::Geladen);
    }
};

/// What a reader of PDF finds, page by page, in the order in which it is written, UTF-8.
std::vector<std::string> PagesOf(const Report& report) {
    TempDirectory directory;
    const std::string file = directory.Write("report.pdf", Pdf_Text(Seiten_Setzen(report)).value());
    Process reader("pdftotext", {"-raw", "-enc", "UTF-8", file, "-"});
    const RunResult read = reader.Wait();
    EXPECT_EQ(read.Code, 0) << read.Err;
    EXPECT_EQ(read.Err, "");
    std::vector<std::string> pages;
    for (std::size_t at = 0, end = 0; (end = read.Out.find('\f', at)) != std::string::npos; at = end + 1) {
        pages.push_back(read.Out.substr(at, end - at));
    }
    return pages;
}

/// Without blanks and line ends, of which a page has others than the data.
std::string Dense(std::string text) {
    std::erase_if(text, [](char c) { return c == ' ' || c == '\n' || c == '\r'; });
    return text;
}

/// All pages as one, without the feet and the headings that stand again.
/// @param tableOnly every page but the first goes on with the table, and so begins with its headings
std::string Whole(const std::vector<std::string>& pages, const std::string& headings, bool tableOnly = true) {
    std::string all;
    for (std::size_t n = 0; n < pages.size(); ++n) {
        std::string page = Dense(pages[n]);
        const std::string foot = "Page" + std::to_string(n + 1) + "of" + std::to_string(pages.size());
        EXPECT_TRUE(page.ends_with(foot)) << n;
        page.resize(page.size() - std::min(page.size(), foot.size()));
        if (n > 0) {
            EXPECT_TRUE(!tableOnly || page.starts_with(headings)) << n;
            page.erase(0, page.starts_with(headings) ? headings.size() : 0);
        }
        all += page;
    }
    return all;
}

std::string Marks(const Model& model, const std::vector<int>& locks) {
    std::string text;
    for (const int lock : locks) {
        text += (text.empty() ? "" : ",") + std::to_string(lock) + model.Locks[static_cast<std::size_t>(lock - 1)];
    }
    return text;
}

std::string KeyOf(const Model::User& user) {
    return user.Key == 0 ? "" : (user.Key == '#' ? "Transponder:" : "E-Key:") + user.Label;
}

void ExpectNoSecret(const Model& model, const std::vector<std::string>& pages) {
    for (const std::string& page : pages) {
        const std::string dense = Dense(page);
        for (const std::string& secret : model.Secrets) {
            EXPECT_EQ(page.find(secret), std::string::npos) << secret;
            EXPECT_EQ(dense.find(secret), std::string::npos) << secret;
        }
    }
}

constexpr const char* Head = "QVM7702SOFTWARESYSTEM05.03.202610:30";

TEST_F(PdfOfReports, people_are_those_of_the_table_and_no_secret_is_in_it) {
    Speak("English");
    for (const auto& [locks, users] : {std::pair{0, 0}, {3, 1}, {12, 40}, {200, 30}}) {
        UserTable table;
        const Model model = Build(table, locks, users);
        const std::string headings = "No.NameTimergroupRightE-Key/transponderLocksByfingerprint";
        std::string wanted = Head + ("Usersandtheirlocks" + headings);
        for (std::size_t n = 0; n < model.Users.size(); ++n) {
            const Model::User& user = model.Users[n];
            wanted += std::to_string(n + 1) +
                      NachUtf8(user.Name + "-1" + KeyOf(user) + Marks(model, user.Locks) + Marks(model, user.Fingers));
        }
        wanted += model.Users.empty() ? "Noentries" : "";
        const std::vector<std::string> pages = PagesOf(Bericht_Benutzer(kern, table));
        // Where a row is torn by the end of a page, its cells are read page by page.
        std::string found = Whole(pages, headings);
        wanted = Dense(wanted);
        if (locks == 200) {
            std::sort(found.begin(), found.end());
            std::sort(wanted.begin(), wanted.end());
        }
        EXPECT_TRUE(found == wanted) << locks;
        ExpectNoSecret(model, pages);
    }
}

TEST_F(PdfOfReports, doors_persons_and_receipts_are_those_of_the_table_without_a_secret) {
    Speak("English");
    UserTable table;
    table.GroupTablePerson = PersonGruppen_Vorgabe();
    const Model model = Build(table, 60, 60);
    for (int number = 1; number <= 60; number += 7) {
        const Model::User& user = model.Users[static_cast<std::size_t>(number - 1)];
        const std::string who = "User" + std::to_string(number) + ":" + user.Name;
        std::string doors = Head + ("Locksoftheuser" + who + "No.DoorlockAccess");
        std::string receipt = Head + ("Receipt" + who + "ItemDesignation");
        receipt += user.Key == 0 ? "" : (user.Key == '#' ? "Transponder" : "E-Key") + user.Label;
        receipt += "PersonalcodeLocksNo.Doorlock";
        bool any = false;
        for (int lock = 1; lock <= 60; ++lock) {
            const bool finger = std::find(user.Fingers.begin(), user.Fingers.end(), lock) != user.Fingers.end();
            if (finger || std::find(user.Locks.begin(), user.Locks.end(), lock) != user.Locks.end()) {
                const std::string named = std::to_string(lock) + model.Locks[static_cast<std::size_t>(lock - 1)];
                doors += named + (finger ? "accessbyfingerprint" : "access");
                receipt += named;
                any = true;
            }
        }
        doors += any ? "" : "Noentries";
        receipt += any ? "" : "Noentries";
        receipt += "TimesatanytimeIhavereceivedtheitemslisted.Iwillkeepthemwithcare,willnotpassthemon,andwillreport"
                   "alossatonce.Place,dateSignatureHandedoutby";
        const auto doorPages = PagesOf(Bericht_Tueren(kern, table, number));
        EXPECT_EQ(Whole(doorPages, "No.DoorlockAccess"), Dense(NachUtf8(doors)));
        const auto receiptPages = PagesOf(*Bericht_Empfang(kern, table, number));
        EXPECT_EQ(Whole(receiptPages, "No.Doorlock", false), Dense(NachUtf8(receipt)));
        ExpectNoSecret(model, doorPages);
        ExpectNoSecret(model, receiptPages);
    }
    for (int lock = 1; lock <= 60; lock += 11) {
        const std::string name = model.Locks[static_cast<std::size_t>(lock - 1)];
        const std::string headings = "No.NameTimergroupE-Key/transponderAccess";
        std::string wanted = Head + ("UsersofthelockLock" + std::to_string(lock) + ":" + name + headings);
        bool any = false;
        for (std::size_t n = 0; n < model.Users.size(); ++n) {
            const Model::User& user = model.Users[n];
            const bool finger = std::find(user.Fingers.begin(), user.Fingers.end(), lock) != user.Fingers.end();
            if (finger || std::find(user.Locks.begin(), user.Locks.end(), lock) != user.Locks.end()) {
                wanted +=
                    std::to_string(n + 1) + user.Name + "-" + KeyOf(user) + (finger ? "accessbyfingerprint" : "access");
                any = true;
            }
        }
        wanted += any ? "" : "Noentries";
        const auto pages = PagesOf(Bericht_Personen(kern, table, lock, name));
        EXPECT_EQ(Whole(pages, headings), Dense(NachUtf8(wanted)));
        ExpectNoSecret(model, pages);
    }
}

TEST_F(PdfOfReports, a_thousand_events_are_all_there_in_their_order) {
    Speak("English");
    std::vector<ReportEvent> events;
    std::string wanted = Head + std::string("HistoryH_1.HSTNameDateTimeEvent");
    for (int n = 0; n < 1000; ++n) {
        events.push_back({Name(16), "05.03.2026", "09:" + Ziffern(n % 60, 2), Name(n == 500 ? 250 : 30)});
        for (const std::string& field : events.back()) {
            wanted += NachUtf8(field);
        }
    }
    const auto pages = PagesOf(Bericht_Ereignisse(kern, "H_1.HST", events));
    EXPECT_GE(pages.size(), 10U);
    EXPECT_EQ(Whole(pages, "NameDateTimeEvent"), Dense(wanted));
}

} // namespace
} // namespace qvm::test
