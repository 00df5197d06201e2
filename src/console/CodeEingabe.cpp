#include "CodeEingabe.h"

#include <fcntl.h>
#include <iostream>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

namespace qvm {

namespace {

constexpr std::size_t CodeLength = 6;
constexpr int PollMs = 100;

/// The terminal with its echo off, for as long as this lives.
class StillesTerminal {
public:
    StillesTerminal() : descriptor_(::open("/dev/tty", O_RDWR | O_CLOEXEC)) {
        silent_ = descriptor_ >= 0 && ::tcgetattr(descriptor_, &before_) == 0;
        if (silent_) {
            termios quiet = before_;
            quiet.c_lflag &= ~static_cast<tcflag_t>(ECHO);
            silent_ = ::tcsetattr(descriptor_, TCSAFLUSH, &quiet) == 0;
        }
    }
    ~StillesTerminal() {
        if (silent_) {
            ::tcsetattr(descriptor_, TCSAFLUSH, &before_);
        }
        if (descriptor_ >= 0) {
            ::close(descriptor_);
        }
    }
    StillesTerminal(const StillesTerminal&) = delete;
    StillesTerminal& operator=(const StillesTerminal&) = delete;

    /// False when there is no terminal, or its echo cannot be turned off.
    bool Bereit() const { return silent_; }
    void Schreiben(std::string_view text) const {
        const ssize_t written = ::write(descriptor_, text.data(), text.size());
        static_cast<void>(written); // a prompt that nobody sees is no fault
    }
    /// One line without its end; nothing after Ctrl-C or at the end of input.
    std::optional<std::string> Zeile(const std::function<bool()>& interrupted) const {
        std::string line;
        char character = 0;
        for (;;) {
            pollfd wait{.fd = descriptor_, .events = POLLIN, .revents = 0};
            if (::poll(&wait, 1, PollMs) == 0) {
                if (interrupted()) {
                    return std::nullopt;
                }
                continue;
            }
            if (::read(descriptor_, &character, 1) != 1) {
                return std::nullopt;
            }
            if (character == '\n') {
                return line;
            }
            line += character;
        }
    }

private:
    int descriptor_;
    termios before_{};
    bool silent_ = false;
};

std::optional<std::string> Vom_Terminal(const Console& console, const std::function<bool()>& interrupted) {
    const StillesTerminal terminal;
    if (!terminal.Bereit()) {
        console.Meldung("There is no terminal to ask for the administrator code; use --code-from.");
        return std::nullopt;
    }
    terminal.Schreiben("Administrator code: ");
    std::optional<std::string> line = terminal.Zeile(interrupted);
    terminal.Schreiben("\n");
    if (!line) {
        console.Meldung("No administrator code was given.");
    }
    return line;
}

std::optional<std::string> Aus_Datei(const Umgebung& world, const Console& console, const std::string& from) {
    if (from == "-") {
        // Only the first line: what stands behind it on standard input is not ours.
        std::string line;
        std::getline(std::cin, line);
        return line;
    }
    std::string bytes;
    if (!Eingabe_Lesen(world, console, from, bytes)) {
        return std::nullopt;
    }
    return bytes.substr(0, bytes.find('\n'));
}

} // namespace

std::optional<std::string> Code_Holen(const Umgebung& world, const Console& console, const std::string& from,
                                      const std::function<bool()>& interrupted) {
    std::optional<std::string> code =
        from.empty() ? Vom_Terminal(console, interrupted) : Aus_Datei(world, console, from);
    if (!code) {
        return std::nullopt;
    }
    if (!code->empty() && code->back() == '\r') {
        code->pop_back();
    }
    bool good = code->size() == CodeLength;
    for (const char character : *code) {
        good = good && ((character >= '0' && character <= '9') || (character >= 'A' && character <= 'Z') ||
                        (character >= 'a' && character <= 'z'));
    }
    if (!good) {
        console.Meldung("The administrator code must have six digits or letters.");
        return std::nullopt;
    }
    return code;
}

} // namespace qvm
