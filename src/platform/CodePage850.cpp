#include "CodePage850.h"

#include "Text.h"

#include <cstddef>
#include <cstdint>
#include <iconv.h>

namespace qvm {

namespace {

/// One open conversion of iconv.
class Conversion {
public:
    Conversion(const char* to, const char* from) : handle_(::iconv_open(to, from)) {}
    ~Conversion() {
        if (Good()) {
            ::iconv_close(handle_);
        }
    }
    Conversion(const Conversion&) = delete;
    Conversion& operator=(const Conversion&) = delete;

    /// The character in the other encoding; empty when it has none.
    std::string Convert(std::string text) {
        if (!Good()) {
            return {};
        }
        std::array<char, 16> out{};
        char* source = text.data();
        char* target = out.data();
        std::size_t left = text.size();
        std::size_t room = out.size();
        ::iconv(handle_, nullptr, nullptr, nullptr, nullptr);
        const bool done = ::iconv(handle_, &source, &left, &target, &room) == 0 && left == 0;
        return done ? std::string(out.data(), out.size() - room) : std::string();
    }

private:
    bool Good() const { return reinterpret_cast<std::intptr_t>(handle_) != -1; }

    iconv_t handle_;
};

char Single(const std::string& bytes) {
    return bytes.size() == 1 ? bytes[0] : '?';
}

std::string Mapped(std::string_view text, const std::array<char, 256>& table) {
    std::string out(text);
    for (char& character : out) {
        character = table[static_cast<unsigned char>(character)];
    }
    return out;
}

} // namespace

CodePage850::CodePage850() {
    Conversion toOem("CP850", "UTF-8");
    Conversion fromOem("UTF-8", "CP850");
    for (std::size_t n = 0; n < 256; ++n) {
        const std::string character(1, static_cast<char>(n));
        if (n < 0x80) {
            from1252_[n] = to1252_[n] = character[0];
            continue;
        }
        from1252_[n] = Single(toOem.Convert(NachUtf8(character)));
        to1252_[n] = Single(AusUtf8(fromOem.Convert(character)));
    }
}

std::string CodePage850::From1252(std::string_view text) const {
    return Mapped(text, from1252_);
}

std::string CodePage850::To1252(std::string_view text) const {
    return Mapped(text, to1252_);
}

} // namespace qvm
