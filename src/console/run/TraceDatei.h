#pragma once

#include "Protokoll.h"

#include <cstdio>
#include <memory>
#include <string>

namespace qvm {

/// A file to which the protocol trace is appended, codes hidden. Lines are gathered and reach the file in blocks and
/// at the end of each lock: a write for each frame would slow the run.
class TraceDatei {
public:
    /// Opens or makes the file, mode 0600, and writes a heading with the moment. False when that fails.
    bool Oeffnen(const std::string& path, const DateTime& now);
    /// Nothing happens unless a file is open.
    void Schreiben(const TraceFrame& frame);
    /// Hands on what is gathered.
    void Ablegen();
    /// False when something of what was handed on did not reach the file.
    bool Vollstaendig() const { return whole_; }

private:
    struct Schliesser {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };
    std::unique_ptr<std::FILE, Schliesser> file_;
    bool whole_ = true;
};

} // namespace qvm
