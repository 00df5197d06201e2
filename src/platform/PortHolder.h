#pragma once

#include <string>
#include <string_view>

namespace qvm {

/// "name (process number)" of a process that has the device open, by a handle other than this program's `ownHandle`;
/// empty when the system tells none. What a process has open goes by the file itself, not by its path. The open files
/// of other users, and of this program, are hidden from all but the administrator; of them only those are found that
/// hold the advisory lock of the device, as this program does. UTF-8.
std::string PortHolder_Name(const std::string& device, int ownHandle = -1);

/// The same of one that keeps others from using the device. A pseudo-terminal is open at its far end, too, so that only
/// the advisory lock tells there; any other device serves one program at a time.
std::string PortHolder_Blocking(const std::string& device);

/// True when a name that PortHolder_Name gave is one of the system's services that open every new serial port for some
/// seconds to see what is behind it: ModemManager or brltty.
bool PortHolder_IsService(std::string_view holder);
/// "name (process number)" of such a service that runs now, whatever it has open; empty when none does.
std::string PortHolder_Service();

} // namespace qvm
