#include "CodeEingabe.h"

#include "Filter.h"
#include "Secret.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <string_view>
#include <termios.h>
#include <unistd.h>

namespace qvm {

namespace {

constexpr std::size_t CodeLength = 6;
/// No line that is longer holds a code.
constexpr std::size_t LongestLine = 256;
constexpr int PollMs = 100;

enum class LineStatus { Read, Interrupted, Error };

/// Where the code comes from. A terminal has its echo off for as long as this lives.
class Codequelle {
public:
    /// Takes the descriptor over, except standard input.
    explicit Codequelle(int descriptor) : descriptor_(descriptor) {
        terminal_ = descriptor_ >= 0 && ::tcgetattr(descriptor_, &before_) == 0;
        if (terminal_) {
            termios quiet = before_;
            quiet.c_lflag &= ~static_cast<tcflag_t>(ECHO);
            silent_ = ::tcsetattr(descriptor_, TCSAFLUSH, &quiet) == 0;
        }
    }
    ~Codequelle() {
        if (silent_) {
            ::tcsetattr(descriptor_, TCSAFLUSH, &before_);
        }
        if (descriptor_ > STDIN_FILENO) {
            ::close(descriptor_);
        }
    }
    Codequelle(const Codequelle&) = delete;
    Codequelle& operator=(const Codequelle&) = delete;

    bool Offen() const { return descriptor_ >= 0; }
    bool Terminal() const { return terminal_; }
    /// False when what is typed would be seen.
    bool Verdeckt() const { return !terminal_ || silent_; }
    void Schreiben(std::string_view text) const {
        const ssize_t written = ::write(descriptor_, text.data(), text.size());
        static_cast<void>(written); // a prompt that nobody sees is no fault
    }
    /// One line without its end, or what stands before the end of input. What is behind it is left alone.
    LineStatus Zeile(const std::function<bool()>& interrupted, std::string& line) const {
        char character = 0;
        while (line.size() < LongestLine) {
            if (interrupted()) {
                return LineStatus::Interrupted;
            }
            pollfd wait{.fd = descriptor_, .events = POLLIN, .revents = 0};
            if (::poll(&wait, 1, PollMs) <= 0) {
                continue;
            }
            const ssize_t count = ::read(descriptor_, &character, 1);
            if (count < 0 && (errno == EINTR || errno == EAGAIN)) {
                continue;
            }
            if (count < 0) {
                return LineStatus::Error;
            }
            if (count == 0 || character == '\n') {
                return LineStatus::Read;
            }
            line += character;
        }
        return LineStatus::Read;
    }

private:
    int descriptor_;
    termios before_{};
    bool terminal_ = false;
    bool silent_ = false;
};

/// Reads a line for each of the codes, which are asked for with `prompts`.
LineStatus Lesen(const Codequelle& source, const std::function<bool()>& interrupted, std::span<CodeFrage> codes,
                 bool prompts) {
    for (CodeFrage& wanted : codes) {
        if (prompts) {
            source.Schreiben(wanted.Prompt);
        }
        const LineStatus status = source.Zeile(interrupted, wanted.Code);
        if (prompts) {
            source.Schreiben("\n");
        }
        if (status != LineStatus::Read) {
            return status;
        }
    }
    return LineStatus::Read;
}

std::string Vom_Terminal(const std::function<bool()>& interrupted, std::span<CodeFrage> codes) {
    const Codequelle terminal(::open("/dev/tty", O_RDWR | O_CLOEXEC));
    if (!terminal.Terminal() || !terminal.Verdeckt()) {
        return codes.size() == 1 ? "There is no terminal to ask for the administrator code; use --code-from."
                                 : "There is no terminal to ask for the administrator codes; use --codes-from.";
    }
    return Lesen(terminal, interrupted, codes, true) == LineStatus::Read ? "" : "No administrator code was given.";
}

std::string Aus_Datei(const std::string& from, const std::function<bool()>& interrupted, std::span<CodeFrage> codes) {
    // Opening a pipe must not wait for its writer; the wait for the line can be stopped.
    const Codequelle source(from == "-" ? STDIN_FILENO : ::open(from.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (!source.Offen()) {
        return "The file " + from + (errno == ENOENT ? " is not there." : " cannot be read.");
    }
    if (!source.Verdeckt()) {
        return "The echo of the terminal cannot be turned off.";
    }
    switch (Lesen(source, interrupted, codes, false)) {
    case LineStatus::Error:
        return from == "-" ? "Standard input cannot be read." : "The file " + from + " cannot be read.";
    case LineStatus::Interrupted:
        return "No administrator code was given.";
    case LineStatus::Read:
        break;
    }
    return {};
}

} // namespace

std::string Code_Holen(const std::string& from, const std::function<bool()>& interrupted, std::string& code) {
    CodeFrage wanted{.Prompt = "Administrator code: ", .Code = {}};
    std::string why = Codes_Holen(from, interrupted, {&wanted, 1});
    code = wanted.Code;
    Vergessen(wanted.Code);
    return why;
}

std::string Codes_Holen(const std::string& from, const std::function<bool()>& interrupted, std::span<CodeFrage> codes) {
    if (std::string why = from.empty() ? Vom_Terminal(interrupted, codes) : Aus_Datei(from, interrupted, codes);
        !why.empty()) {
        return why;
    }
    for (CodeFrage& wanted : codes) {
        std::string& code = wanted.Code;
        if (!code.empty() && code.back() == '\r') {
            code.pop_back();
        }
        const bool good =
            code.size() == CodeLength &&
            std::all_of(code.begin(), code.end(), [](unsigned char character) { return Code_Ziffer(character) >= 0; });
        if (!good) {
            return "The administrator code must have six digits, letters or marks of the keypad (+ , - . : ; _).";
        }
    }
    return {};
}

} // namespace qvm
