#pragma once

#include "Dataset.h"
#include "Datendateien.h"
#include "Kern.h"
#include "Link.h"
#include "VirtualPlatform.h"

#include <cstddef>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

namespace qvm::test {

/// A lock, a PC and its data files. The clock stands at 05.03.2026 10:30.
class DatasetTest : public testing::Test {
protected:
    DatasetTest();

    int Load(DatasetVariant variant = DatasetVariant::Direct) { return Datensatz_Laden(kern, dataset, row, variant); }
    /// A user whose mark for a lock is `mark`: this lock, or `lock`.
    void Add(int number, TestUser user, char mark = 'X', int lock = 1);
    /// A user with a finger: "Slot_Nr: nnn" as label and the given identifier.
    void AddFinger(int number, std::string_view name, std::string_view label, std::string_view fingerId, int lock = 1);
    /// Expects these messages, in this order.
    void Expect(std::string_view text) { pc.Answers.push_back({.Text = std::string(text)}); }

    VirtualPlatform pc;
    Kern kern{pc.World};
    Link link{kern};
    Datendateien files{pc.Disk, "/qvm/"};
    Dataset dataset;
    LockRow row;
};

/// `first` : `second` : then `count` - 2 times `value`, as the store holds a template.
std::string TemplateText(int first, int second, int count, int value);

} // namespace qvm::test
