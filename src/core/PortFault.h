#pragma once

#include <string>

namespace qvm {

struct Kern;

/// Why a serial port is not open, as facts. Texts are code page 1252.
struct PortFault {
    enum class Kind {
        None,
        NotThere,      ///< no such device now
        NoRight,       ///< Detail: the group that has the right, if known
        Held,          ///< another program has it. Detail: its name and process number, if known
        HeldByService, ///< the system's modem or braille service tries it out for some seconds. Detail: its name
        Broken,        ///< went away while it was open
        NoSuchNumber,  ///< Device: the port number
        NotSerial,     ///< something that is no serial port, or one that does not work
        Other,         ///< Detail: the system's words
    };

    Kind What = Kind::None;
    std::string Device = {}; ///< name of the device
    std::string Detail = {};

    bool operator==(const PortFault&) const = default;
};

/// What is wrong and what to do about it, as sentences from the language file (`Line::PortAbsent` to
/// `Line::PortFault`); in English where its line is empty. Empty for None.
std::string PortFault_Text(const Kern& kern, const PortFault& fault);
/// The same in English, for programs without a language.
std::string PortFault_English(const PortFault& fault);

} // namespace qvm
