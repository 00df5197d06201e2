#pragma once

#include "Link.h"
#include "Platform.h"
#include "VirtualTime.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace qvm {

/// A world in which nothing leaves the program: files can be read, what is written is kept in memory and read from
/// there again, time is virtual and jumps to the next event, and a lock that agrees to everything answers at 19200
/// baud.
class Probewelt {
public:
    /// `real` must outlive this; its files, clock time, cipher and code pages are used.
    explicit Probewelt(const Platform& real);
    Probewelt(const Probewelt&) = delete;
    Probewelt& operator=(const Probewelt&) = delete;

    /// 19200 baud, ten bits a byte.
    static constexpr int BytesPerSecond = 1920;

    Platform Welt;
    std::vector<Message> Shown; ///< message boxes; they are answered with No or OK

    /// Answers a telegram as the lock would. To be called for every frame that was sent.
    void Beantworten(const TraceFrame& frame);
    /// Handles the next event. False when there is none.
    bool Schritt() { return time_.Step(); }

    std::int64_t BytesOut = 0; ///< on the wire, stuffing included
    std::int64_t BytesBack = 0;
    double Sekunden() const { return static_cast<double>(time_.Microseconds()) / 1e6; }

private:
    void Dateien_Abschirmen(const FileStore& files);
    /// A file as it stands now: what was written to it in this world, or what is on the disk.
    ReadStatus Lesen(const std::string& path, std::string& bytes) const;
    bool Schreiben_Ab(const std::string& path, std::uint64_t offset, std::string_view bytes);
    std::vector<std::string> Auflisten(const std::string& directory) const;
    void Port_Anlegen();
    std::vector<std::uint8_t> Antwort(std::span<const std::uint8_t> telegram);

    const FileStore& disk_;
    std::map<std::string, std::optional<std::string>> written_; ///< by path; nothing: removed
    VirtualTime time_;
    std::int64_t lineFree_ = 0; ///< microsecond at which the line to the lock is free again
    bool open_ = false;
    std::uint16_t slot_ = 0;
    std::function<void(std::uint8_t)> receiver_;
};

} // namespace qvm
