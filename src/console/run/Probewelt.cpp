#include "Probewelt.h"

#include "FileTrouble.h"
#include "Frame.h"
#include "Telegramme.h"

#include <algorithm>
#include <set>
#include <utility>

namespace qvm {

namespace {

std::int64_t Leitungszeit(std::int64_t bytes) {
    return bytes * 1000000 / Probewelt::BytesPerSecond;
}

/// Length byte of a lock's reply: an acknowledge with address and serial, behind which a status or a slot number stands
/// where there is one. What else real devices send is not known.
std::uint8_t Antwort_Laenge(std::uint8_t code) {
    constexpr std::uint8_t acknowledge = 0x0D, status = 0x0E, slot = 0x0F;
    if (code == RpBenutzerSlot::Reply.Code) {
        return slot;
    }
    const bool told = code == RpVerbunden::Reply.Code || code == TelUnitVerbinden::Telegram.Code ||
                      code == RpBlockQuittung::Reply.Code;
    return told ? status : acknowledge;
}

} // namespace

Probewelt::Probewelt(const Platform& real) : Welt(real), disk_(real.Files) {
    Dateien_Abschirmen(real.Files);
    Port_Anlegen();
    time_.Fill(Welt);
    Welt.ProcessEvents = [this] { Schritt(); };
    Welt.ShowMessage = [this](const Message& message) {
        Shown.push_back(message);
        const bool question = message.Choice == Buttons::YesNo || message.Choice == Buttons::YesNoCancel;
        return question ? Answer::No : Answer::Ok;
    };
    Welt.OpenFile = Welt.SaveFile = [](const FileDialog&) { return std::nullopt; };
    Welt.OpenWithLinkedApp = [](const std::string&, const std::string&) { return false; };
    Welt.OpenDocumentAt = {};
    Welt.ClaimInstance = [] { return true; };
    Welt.ClaimData = {};
}

ReadStatus Probewelt::Lesen(const std::string& path, std::string& bytes) const {
    const auto found = written_.find(path);
    if (found == written_.end()) {
        return disk_.ReadAll(path, bytes);
    }
    bytes = found->second.value_or("");
    return found->second ? ReadStatus::Ok : ReadStatus::Missing;
}

bool Probewelt::Schreiben_Ab(const std::string& path, std::uint64_t offset, std::string_view text) {
    constexpr std::uint64_t largest = std::uint64_t{1} << 26;
    std::string bytes;
    if (Lesen(path, bytes) == ReadStatus::Error || offset > largest) {
        return false;
    }
    bytes.resize(std::max<std::size_t>(bytes.size(), offset + text.size()), '\0');
    bytes.replace(offset, text.size(), text);
    written_[path] = std::move(bytes);
    return true;
}

std::vector<std::string> Probewelt::Auflisten(const std::string& directory) const {
    const std::string prefix = directory.ends_with('/') ? directory : directory + "/";
    const std::vector<std::string> real = disk_.List(directory);
    std::set<std::string> names(real.begin(), real.end());
    for (const auto& [path, bytes] : written_) {
        if (!path.starts_with(prefix) || path.find('/', prefix.size()) != std::string::npos) {
            continue;
        }
        const std::string name = path.substr(prefix.size());
        if (bytes) {
            names.insert(name);
        } else {
            names.erase(name);
        }
    }
    return {names.begin(), names.end()};
}

void Probewelt::Dateien_Abschirmen(const FileStore& files) {
    Welt.Files = FileStore{
        .Datei_Vorhanden =
            [this, &files](const std::string& path) {
                const auto found = written_.find(path);
                return found == written_.end() ? files.Datei_Vorhanden(path) : found->second.has_value();
            },
        .ReadAll = [this](const std::string& path, std::string& bytes) { return Lesen(path, bytes); },
        .Replace =
            [this](const std::string& path, std::string_view bytes) {
                written_[path] = std::string(bytes);
                return true;
            },
        .WriteAt = [this](const std::string& path, std::uint64_t offset,
                          std::string_view bytes) { return Schreiben_Ab(path, offset, bytes); },
        .Append =
            [this](const std::string& path, std::string_view bytes) {
                std::string held;
                return Lesen(path, held) != ReadStatus::Error && Schreiben_Ab(path, held.size(), bytes);
            },
        .Flush = [](const std::string&) { return true; },
        .Remove =
            [this](const std::string& path) {
                written_[path] = std::nullopt;
                return true;
            },
        .MakeDirectory = [](const std::string&) { return true; },
        .List = [this](const std::string& directory) { return Auflisten(directory); },
        .LastFault = [&files] { return Lesefehler(files); },
    };
}

void Probewelt::Port_Anlegen() {
    Welt.AdapterPorts = [] { return std::vector<int>{1}; };
    Welt.Port = SerialPort{
        .Open = [this](int) { return open_ = true; },
        .Close = [this] { open_ = false; },
        .IsOpen = [this] { return open_; },
        .SetRts = [](bool) {},
        .Write =
            [this](std::span<const std::uint8_t> bytes) {
                const auto count = static_cast<std::int64_t>(bytes.size());
                BytesOut += count;
                lineFree_ = std::max(lineFree_, time_.Microseconds()) + Leitungszeit(count);
            },
        .OnByte = [this](std::function<void(std::uint8_t)> receiver) { receiver_ = std::move(receiver); },
        .LastError = [] { return std::string(); },
        .LastFault = [] { return PortFault(); },
    };
}

std::vector<std::uint8_t> Probewelt::Antwort(std::span<const std::uint8_t> telegram) {
    const std::uint8_t code = telegram[2];
    const std::uint8_t length = Antwort_Laenge(code);
    std::vector<std::uint8_t> reply(length + std::size_t{2}, 0);
    reply[0] = StartByte;
    reply[1] = length;
    reply[2] = code;
    // Address and serial are those of the device that was addressed.
    std::copy_n(telegram.begin() + 3, 4, reply.begin() + 3);
    std::copy_n(telegram.begin() + 3, 4, reply.begin() + 7);
    if (code == TelVerbinden::Telegram.Code || code == TelUnitVerbinden::Telegram.Code) {
        reply[2] = RpVerbunden::Reply.Code;
        reply[RpVerbunden::Status.Offset] = 4;
    } else if (code == RpBenutzerSlot::Reply.Code) {
        ++slot_;
        reply[RpBenutzerSlot::UserSlot.Offset] = static_cast<std::uint8_t>(slot_ >> 8);
        reply[RpBenutzerSlot::UserSlot.Offset + 1U] = static_cast<std::uint8_t>(slot_ & 0xFF);
    }
    reply.push_back(Pruefsumme(std::span(reply).first(length + std::size_t{1})));
    return reply;
}

void Probewelt::Beantworten(const TraceFrame& frame) {
    const bool addressed = frame.Way == TraceFrame::Direction::Sent && frame.Bytes.size() > PayloadIndex;
    // Nobody waits for an answer to the key action; the channel follows 10 ms later of its own accord.
    if (!addressed || frame.Bytes[2] == TelEKeyAktion::Telegram.Code) {
        return;
    }
    std::vector<std::uint8_t> wire;
    Stopfen(Antwort(frame.Bytes), wire);
    const auto count = static_cast<std::int64_t>(wire.size());
    std::vector<std::uint8_t> sent;
    Stopfen(frame.Bytes, sent);
    // The trace sees a frame before it is on the line.
    const std::int64_t arrival = std::max<std::int64_t>(lineFree_ - time_.Microseconds(), 0) +
                                 Leitungszeit(static_cast<std::int64_t>(sent.size())) + Leitungszeit(count);
    BytesBack += count;
    time_.Plan(arrival, [this, wire] {
        for (const std::uint8_t byte : wire) {
            if (open_ && receiver_) {
                receiver_(byte);
            }
        }
    });
}

} // namespace qvm
