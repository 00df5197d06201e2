#pragma once

#include "Dataset.h"
#include "Kern.h"
#include "Link.h"
#include "VirtualPlatform.h"

#include <cstddef>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

namespace qvm::test {

/// Data files made of literal file names, record lengths and byte offsets. They stand here a second time on purpose: a
/// test that wrote its files with the program's own record tables would not see a fault of those tables.
class DataFiles {
public:
    explicit DataFiles(MemoryFiles& disk) : disk_(disk) {}

    /// Puts `bytes` at `offset` of record `n`; what the file lacks before them becomes blanks.
    void Put(const std::string& file, std::size_t recordLength, int n, std::size_t offset, std::string_view bytes);
    std::string& Bytes(const std::string& file) { return disk_.Files["/qvm/DAT/" + file]; }

    struct User {
        std::string_view Name;
        char Mark = 'X';
        std::string_view Group = "-";
        std::string_view Right = "1";
        std::string_view Code = "123456";
        std::string_view Label = "";
        std::string_view KeyId = "";
        std::string_view KeyData = "";
        std::string_view FingerFlag = "--";
        std::string_view FingerId = "";
    };
    /// User `n` with a mark for lock 1 alone, or for `lock`.
    void AddUser(int n, const User& user, int lock = 1);
    /// User `n` with a finger: "Slot_Nr: nnn" as label and the given identifier.
    void AddFinger(int n, std::string_view name, std::string_view label, std::string_view fingerId, int lock = 1);
    void AddTemplate(int record, std::string_view identifier, std::string_view text);
    void AddTimeSlot(int record, int day, std::string_view from, std::string_view to);
    void AddPersonGroup(int record, std::string_view days, std::string_view id);
    void AddLockGroup(int record, std::string_view days, std::string_view id);
    void BindLock(int lock, std::string_view group);
    void AddHoliday(int record, std::string_view from, std::string_view to, std::string_view kind);
    void AddUnit(int lock, int unit, std::string_view name, const std::vector<std::string>& serial,
                 std::string_view type, std::string_view number);

private:
    MemoryFiles& disk_;
};

/// A lock, a PC and its data files. The clock stands at 05.03.2026 10:30.
class DatasetTest : public testing::Test {
protected:
    DatasetTest();

    int Load(DatasetVariant variant = DatasetVariant::Direct) { return Datensatz_Laden(kern, dataset, row, variant); }
    /// Expects these messages, in this order.
    void Expect(std::string_view text) { pc.Answers.push_back({.Text = std::string(text)}); }

    VirtualPlatform pc;
    Kern kern{pc.World};
    Link link{kern};
    DataFiles files{pc.Disk};
    Dataset dataset;
    LockRow row;
};

/// `first` : `second` : then `count` - 2 times `value`, as the store holds a template.
std::string TemplateText(int first, int second, int count, int value);

} // namespace qvm::test
