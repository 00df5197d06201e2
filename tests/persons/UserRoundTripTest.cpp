#include "PersonsFixture.h"
#include "Record.h"
#include "Text.h"
#include "UserRecords.h"

#include <rapidcheck.h>
#include <vector>

namespace qvm {
namespace {

/// A text of 0 to `most` characters of any byte but 0x00, without blanks at its ends.
rc::Gen<std::string> TrimmedText(int most) {
    return rc::gen::map(rc::gen::resize(most, rc::gen::container<std::string>(rc::gen::distinctFrom<char>('\0'))),
                        [most](const std::string& text) {
                            return std::string(Trim(std::string_view(text).substr(0, static_cast<std::size_t>(most))));
                        });
}

/// A user's record as a complete installation has it: every lock named, the group known or "-".
struct AnyUser {
    std::string Name, Group, Right, Code, Label, Key, KeyData, Flag, FingerId, Mask;

    std::string Record() const {
        std::string record;
        Feld_Schreiben(record, UserRecord::UserName, Name);
        Feld_Schreiben(record, UserRecord::UserGroupId, Group);
        Feld_Schreiben(record, UserRecord::UserRight, Right);
        Feld_Schreiben(record, UserRecord::UserCode, Code);
        Feld_Schreiben(record, UserRecord::KeyLabel, Label);
        Feld_Schreiben(record, UserRecord::KeyId, Key);
        Feld_Schreiben(record, UserRecord::KeyData, KeyData);
        Feld_Schreiben(record, UserRecord::FingerFlag, Flag);
        Feld_Schreiben(record, UserRecord::FingerId, FingerId);
        Feld_Schreiben(record, UserRecord::LockMask, Mask);
        return record;
    }
};

AnyUser Draw() {
    AnyUser user;
    user.Name = "N" + std::string(RTrim(*TrimmedText(15)));
    user.Group = *rc::gen::element<std::string>("-", "PB_2008TimA", "PB_2008TimB", "PB_0000003");
    user.Right = *TrimmedText(4);
    user.Code = *TrimmedText(10);
    user.Label = *TrimmedText(16);
    user.Key = *TrimmedText(41);
    user.KeyData = *TrimmedText(93);
    user.FingerId = *TrimmedText(20);
    user.Flag = user.FingerId.empty() ? "--" : *rc::gen::element<std::string>("FS", "NO", "--");
    user.Mask = *rc::gen::container<std::string>(200, rc::gen::element('X', 'F', '-'));
    return user;
}

TEST(UserRoundTrip, every_field_survives_load_and_save) {
    EXPECT_TRUE(rc::check([] {
        struct Installation : test::Persons {
            void TestBody() override {}
        } world;
        for (int lock = 1; lock <= 200; ++lock) {
            world.NameLock(lock, "Tor");
        }
        std::vector<std::string> records;
        const int users = *rc::gen::inRange(1, 5);
        for (int n = 0; n < users; ++n) {
            records.push_back(Draw().Record());
            world.File(test::Persons::UserFile) += records.back();
        }
        RC_ASSERT(F5_TabelleLaden(world.kern, world.table));
        RC_ASSERT(F5_Speichern(world.kern, world.table));
        for (std::size_t n = 0; n < records.size(); ++n) {
            const std::string saved = world.FileField(static_cast<int>(n) + 1, 0, 419);
            RC_ASSERT(saved == records[n]);
        }
    }));
}

TEST(UserRoundTrip, a_second_save_writes_the_same_bytes_whatever_the_file_held) {
    EXPECT_TRUE(rc::check([](const std::string& bytes) {
        struct Installation : test::Persons {
            void TestBody() override {}
        } world;
        world.NameLock(1, "Tor");
        world.File(test::Persons::UserFile) = "N" + bytes; // one record at most: no gap
        RC_ASSERT(F5_TabelleLaden(world.kern, world.table));
        RC_ASSERT(F5_Speichern(world.kern, world.table));
        const std::string first = world.File(test::Persons::UserFile);
        RC_ASSERT(first.size() == 104750);
        RC_ASSERT(F5_TabelleLaden(world.kern, world.table));
        RC_ASSERT(F5_Speichern(world.kern, world.table));
        RC_ASSERT(world.File(test::Persons::UserFile) == first);
    }));
}

} // namespace
} // namespace qvm
