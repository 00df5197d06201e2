#include "DatasetFixture.h"

namespace qvm::test {

void DataFiles::Put(const std::string& file, std::size_t recordLength, int n, std::size_t offset,
                    std::string_view bytes) {
    std::string& all = Bytes(file);
    const std::size_t start = static_cast<std::size_t>(n - 1) * recordLength;
    if (all.size() < start + recordLength) {
        all.resize(start + recordLength, ' ');
    }
    all.replace(start + offset, bytes.size(), bytes);
}

void DataFiles::AddUser(int n, const User& user, int lock) {
    const auto put = [&](std::size_t offset, std::string_view text) { Put("BX10X52WUJ9.UBW", 419, n, offset, text); };
    put(0, std::string(16, '\0'));
    put(0, user.Name);
    put(16, user.Group);
    put(31, user.Right);
    put(35, user.Code);
    put(45, user.Label);
    put(61, user.KeyId);
    put(102, user.KeyData);
    put(195, user.FingerFlag);
    put(197, user.FingerId);
    put(218, std::string(200, '-'));
    put(218 + static_cast<std::size_t>(lock - 1), std::string(1, user.Mark));
}

void DataFiles::AddFinger(int n, std::string_view name, std::string_view label, std::string_view fingerId, int lock) {
    AddUser(n, {.Name = name, .Mark = 'F', .Label = label, .FingerFlag = "FS", .FingerId = fingerId}, lock);
}

void DataFiles::AddTemplate(int record, std::string_view identifier, std::string_view text) {
    const std::string file = "TEmpTCD0UPK.FSD";
    Put(file, 3028, record, 0, "2    ");
    Put(file, 3028, record, 5, identifier);
    Put(file, 3028, record, 26, text);
    Put(file, 3028, record, 3026, "0 ");
}

void DataFiles::AddTimeSlot(int record, int day, std::string_view from, std::string_view to) {
    const std::string file = "TX33Y98BSG9.TBW";
    Put(file, 11, record, 0, std::string(1, static_cast<char>(day)));
    Put(file, 11, record, 1, from);
    Put(file, 11, record, 6, to);
}

void DataFiles::AddPersonGroup(int record, std::string_view days, std::string_view id) {
    Put("TIMGRP33T7.PBG", 71, record, 3, "a group");
    Put("TIMGRP33T7.PBG", 71, record, 43, days);
    Put("TIMGRP33T7.PBG", 71, record, 56, id);
}

void DataFiles::AddLockGroup(int record, std::string_view days, std::string_view id) {
    Put("TIMGRP44T8_S.SBS", 66, record, 3, "a group");
    Put("TIMGRP44T8_S.SBS", 66, record, 43, days);
    Put("TIMGRP44T8_S.SBS", 66, record, 51, id);
}

void DataFiles::BindLock(int lock, std::string_view group) {
    Put("SBSCLKZU.SB1", 55, lock, 0, group);
    Put("SBSCLKZU.SB1", 55, lock, 15, "an old name of it");
}

void DataFiles::AddHoliday(int record, std::string_view from, std::string_view to, std::string_view kind) {
    Put("KL10X49WTTI.CBW", 21, record, 0, from);
    Put("KL10X49WTTI.CBW", 21, record, 10, to);
    Put("KL10X49WTTI.CBW", 21, record, 20, kind);
}

void DataFiles::AddUnit(int lock, int unit, std::string_view name, const std::vector<std::string>& serial,
                        std::string_view type, std::string_view number) {
    const std::size_t block = 16 + static_cast<std::size_t>(unit - 1) * 45;
    const auto put = [&](std::size_t offset, std::string_view text) {
        Put("T6WRSSISN.TSD", 241, lock, block + offset, text);
    };
    put(0, name);
    put(30, serial[0]);
    put(33, serial[1]);
    put(36, serial[2]);
    put(39, serial[3]);
    put(42, type);
    put(43, number);
}

DatasetTest::DatasetTest() {
    kern.AppPath = "/qvm/";
    auto& lines = kern.Sprache.LanguageText;
    lines[180] = "two timers";
    lines[181] = "no others";
    lines[248] = "too many users";
    lines[252] = "too many premium fingers";
    lines[253] = ": no fingerprint data";
    lines[273] = "mind the adapter";
    row.Number = 1;
    row.Name = "Front door";
    row.Serial = "01.50.0C.06";
}

std::string TemplateText(int first, int second, int count, int value) {
    std::string text = std::to_string(first) + " : " + std::to_string(second) + " : ";
    for (int n = 2; n < count; ++n) {
        text += std::to_string(value) + " : ";
    }
    return text;
}

} // namespace qvm::test
