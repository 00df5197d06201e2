#include "PortFault.h"

#include "Kern.h"
#include "Words.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace qvm {

namespace {

/// A sentence with %1 for the device and %2 for the detail.
struct Muster {
    PortFault::Kind What;
    bool MitDetail; ///< the sentence for a known detail
    int Zeile;
    std::string_view English;
};

/// The first row that fits counts.
constexpr std::array<Muster, 10> MusterTabelle{{
    {PortFault::Kind::NotThere, false, Line::PortAbsent, "%1 is not there. Is the adapter plugged in?"},
    {PortFault::Kind::NoRight, true, Line::PortNoRightGroup,
     "No right to use %1. It belongs to the group %2: run \"sudo usermod -aG %2 $USER\", then log out and in again."},
    {PortFault::Kind::NoRight, false, Line::PortNoRight, "No right to use %1."},
    {PortFault::Kind::Held, true, Line::PortUsedBy, "%1 is in use by %2. Close that program and try again."},
    {PortFault::Kind::Held, false, Line::PortUsed,
     "%1 is in use by another program. Close that program and try again."},
    {PortFault::Kind::HeldByService, false, Line::PortProbed,
     "%1 is being tried out by the system service %2, which lets go of it after some seconds. Then try again."},
    {PortFault::Kind::Broken, false, Line::PortBroken,
     "The connection to %1 is broken: the adapter was unplugged or switched off."},
    {PortFault::Kind::NoSuchNumber, false, Line::PortUnknown, "There is no port %1."},
    {PortFault::Kind::NotSerial, false, Line::PortNotSerial, "%1 is no serial port that works."},
    {PortFault::Kind::Other, false, Line::PortFault, "%1 cannot be opened: %2."},
}};

const Muster* Passendes(const PortFault& fault) {
    const auto* const found = std::find_if(MusterTabelle.begin(), MusterTabelle.end(), [&](const Muster& row) {
        return row.What == fault.What && (!row.MitDetail || !fault.Detail.empty());
    });
    return found == MusterTabelle.end() ? nullptr : found;
}

} // namespace

std::string PortFault_Text(const Kern& kern, const PortFault& fault) {
    const Muster* const row = Passendes(fault);
    if (row == nullptr) {
        return {};
    }
    const std::string& words = kern.Zeile(row->Zeile);
    return Ausfuellen(words.empty() ? row->English : std::string_view(words), {fault.Device, fault.Detail});
}

std::string PortFault_English(const PortFault& fault) {
    const Muster* const row = Passendes(fault);
    return row == nullptr ? std::string() : Ausfuellen(row->English, {fault.Device, fault.Detail});
}

} // namespace qvm
