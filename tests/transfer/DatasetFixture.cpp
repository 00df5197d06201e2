#include "DatasetFixture.h"

namespace qvm::test {

void DatasetTest::Add(int number, TestUser user, char mark, int lock) {
    user.Marks = {{lock, mark}};
    files.User(number, user);
}

void DatasetTest::AddFinger(int number, std::string_view name, std::string_view label, std::string_view fingerId,
                            int lock) {
    Add(number,
        {.Name = std::string(name), .Label = std::string(label), .FingerFlag = "FS", .FingerId = std::string(fingerId)},
        'F', lock);
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
