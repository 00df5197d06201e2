#include "Schloss.h"

namespace qvm {

LockInfo Schloss_Lesen(const RecordFile& locks, int number) {
    namespace R = LockRecord;
    LockInfo info;
    info.Name = locks.Text(number, R::Name);
    info.OffsetId = locks.Text(number, R::OffsetId);
    const RecordField* const parts[] = {&R::Sn1, &R::Sn2, &R::Sn3, &R::Sn4};
    bool complete = true;
    for (const RecordField* part : parts) {
        const std::string text = locks.Text(number, *part);
        complete = complete && !text.empty();
        info.Serial += (info.Serial.empty() ? "" : ".") + text;
    }
    if (!complete) {
        info.Serial.clear();
    }
    const RecordField* const switches[] = {&R::Switch1, &R::Switch2, &R::Switch3, &R::Switch4, &R::Switch5};
    for (std::size_t n = 0; n < info.Switches.size(); ++n) {
        info.Switches[n] = locks.Text(number, *switches[n]);
    }
    return info;
}

} // namespace qvm
