#include "Dataset.h"
#include "DatensatzStand.h"

namespace qvm {
namespace {

struct UserLimit {
    std::uint32_t From, To; // both included
    int Users;
};

constexpr UserLimit Limits[] = {
    {0x1000001, 0x1004579, 299},
    {0x1500001, 0x1500424, 1999},
    {0x1005902, 0x1500000, 47},
    {0x150080D, 0x1600000, 1999},
};
constexpr int OtherLocks = 299;

} // namespace

int MaxUserAnz(std::uint32_t serial) {
    for (const UserLimit& limit : Limits) {
        if (Im_Bereich(serial, limit.From, limit.To)) {
            return limit.Users;
        }
    }
    return OtherLocks;
}

} // namespace qvm
