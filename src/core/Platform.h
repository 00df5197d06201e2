#pragma once

#include "FileStore.h"
#include "PortFault.h"

#include <compare>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qvm {

/// Local date and time of the PC.
struct DateTime {
    int Year = 2000; ///< four digits
    int Month = 1;   ///< 1 to 12
    int Day = 1;     ///< 1 to 31
    int Hour = 0;
    int Minute = 0;
    int Second = 0;
    int Millisecond = 0;

    auto operator<=>(const DateTime&) const = default;
};

enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel };
enum class Icon { None, Information, Exclamation, Question };
enum class Answer { Ok, Cancel, Yes, No };

/// A modal message box. Texts are code page 1252.
struct Message {
    std::string Text;
    std::string Title;
    Buttons Choice = Buttons::Ok;
    Icon Sign = Icon::None;
    int DefaultButton = 1; ///< 1-based, in the order of the names in Buttons
    std::string About{};   ///< lines below the text: which lock is meant; empty: none

    bool operator==(const Message&) const = default;
};

struct FileDialog {
    std::string Title;
    std::string Filter; ///< "text|*.EXT|", as the system's own dialogs take it
    std::string Directory;
    bool Appends = false;     ///< what is saved is added to a file that is there: nobody is asked to replace it
    bool NewestFirst = false; ///< the files with their dates, the latest first
};

/// The pages of a report; see Seiten.h.
struct ReportPages;

/// What became of printing.
enum class PrintResult { Printed, Cancelled, Failed };

/// The one serial port, "19200,N,8,1". Ports go by number, 1 to 16.
struct SerialPort {
    /// Opens the port for this program alone. False when it cannot be had; `LastError` then says why.
    std::function<bool(int number)> Open;
    std::function<void()> Close;
    std::function<bool()> IsOpen;
    /// Request-to-send line.
    std::function<void(bool on)> SetRts;
    /// Queues the bytes for sending, in order. Without an open port they are dropped.
    std::function<void(std::span<const std::uint8_t> bytes)> Write;
    /// Who gets each received byte, in order, from inside ProcessEvents. One call is finished before the next begins,
    /// unless the receiver itself runs ProcessEvents.
    std::function<void(std::function<void(std::uint8_t)> receiver)> OnByte;
    /// A sentence in English, empty after success.
    std::function<std::string()> LastError;
    /// The same as facts, for a sentence in the user's language; None after success.
    std::function<PortFault()> LastFault = {};
};

/// What became of the serial ports of the PC.
enum class PortChange { Arrived, Removed };

/// A program that works on the data files. Texts in code page 1252; what the system does not tell is empty.
struct DataHolder {
    std::string Program;
    int Process = 0;
    std::string User;
};

using TimerId = std::uint64_t;

/// The world, as the logic sees it. Every service is filled by the front end (or by a test) before the program starts.
/// Nothing in the logic reaches past this record.
struct Platform {
    std::function<DateTime()> Now;
    /// Milliseconds of a clock that never goes back.
    std::function<std::int64_t()> Milliseconds;
    /// Calls `tick` every `interval` milliseconds until stopped, never while `tick` itself is on the stack.
    std::function<TimerId(int interval, std::function<void()> tick)> StartTimer;
    /// Stopping a timer that is not running does nothing.
    std::function<void(TimerId timer)> StopTimer;
    /// Handles the events that are due; waits for one when there is none.
    std::function<void()> ProcessEvents;

    /// Blocks until answered; events go on meanwhile.
    std::function<Answer(const Message& message)> ShowMessage;
    std::function<std::optional<std::string>(const FileDialog& dialog)> OpenFile;
    std::function<std::optional<std::string>(const FileDialog& dialog)> SaveFile;
    /// Asks for a printer and prints the pages. Empty where nothing can be printed.
    std::function<PrintResult(const ReportPages& pages)> PrintPages = {};
    /// Opens a file or a web page with the program that the system has for it.
    std::function<bool(const std::string& target, const std::string& directory)> OpenWithLinkedApp;
    /// Opens a PDF at a named destination with the program that the system has for it. False, and nothing is opened,
    /// when that cannot be told of destinations. Empty where nobody can.
    std::function<bool(const std::string& path, const std::string& destination)> OpenDocumentAt = {};

    SerialPort Port;
    /// Numbers of the ports that can hold an adapter, in the system's order.
    std::function<std::vector<int>()> AdapterPorts;
    /// The device behind a port number, for the operator to read: "/dev/ttyUSB0". UTF-8, empty for a number that can
    /// have none. The function is empty where the system itself goes by these numbers.
    std::function<std::string(int number)> PortDevice = {};
    /// Who hears of serial ports that come and go, from inside ProcessEvents. One receiver; a new one replaces it. What
    /// happens within a moment is reported as at most one removal, then one arrival. One call is finished before the
    /// next begins, unless the receiver itself runs ProcessEvents.
    std::function<void(std::function<void(PortChange)> receiver)> OnPortChange;
    /// The hourglass over all windows. Each `true` wants its `false`.
    std::function<void(bool on)> Hourglass;
    /// Opens the system's device manager. Empty where the system has none.
    std::function<void()> DeviceManager;

    FileStore Files;
    /// Where the files lie that come with an installed program and are only read, with a trailing separator. UTF-8.
    /// Empty: in the program's directory.
    std::string ProgramFiles{};

    /// Enciphers one 16-byte block in place with a 16-byte key.
    std::function<void(std::span<std::uint8_t, 16> block, std::span<const std::uint8_t, 16> key)> encryptData;
    /// Code page 1252 to the OEM code page of the locks (850), and back. One byte a character both ways.
    std::function<std::string(std::string_view text)> CharToOem;
    std::function<std::string(std::string_view text)> OemToChar;
    /// A random fraction, 0 <= x < 1.
    std::function<double()> Random;
    /// True when this is the only instance; else the running one has been brought to the foreground.
    std::function<bool()> ClaimInstance;
    /// Takes the right to write the data files of a directory, UTF-8, for as long as this program runs; asking again is
    /// granted. Nothing when it is granted, else who has it. Empty where nobody else can be.
    std::function<std::optional<DataHolder>(const std::string& directory)> ClaimData = {};
};

} // namespace qvm
