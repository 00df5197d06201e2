#include "Schloss_Lesen.h"

#include "LockRecords.h"

#include <algorithm>

namespace qvm {

LockInfo Schloss_Lesen(const RecordFile& locks, int n) {
    namespace Rec = LockRecord;
    LockInfo lock;
    lock.Name = locks.Text(n, Rec::Name);
    lock.OffsetId = locks.Text(n, Rec::OffsetId);
    const std::array<std::string, 4> parts{locks.Text(n, Rec::Sn1), locks.Text(n, Rec::Sn2), locks.Text(n, Rec::Sn3),
                                           locks.Text(n, Rec::Sn4)};
    if (std::none_of(parts.begin(), parts.end(), [](const std::string& part) { return part.empty(); })) {
        lock.Serial = parts[0] + "." + parts[1] + "." + parts[2] + "." + parts[3];
    }
    lock.Switches = {locks.Text(n, Rec::Switch1), locks.Text(n, Rec::Switch2), locks.Text(n, Rec::Switch3),
                     locks.Text(n, Rec::Switch4), locks.Text(n, Rec::Switch5)};
    return lock;
}

} // namespace qvm
