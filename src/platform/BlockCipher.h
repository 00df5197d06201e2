#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace qvm {

/// The cipher of the locks: one 16-byte block, enciphered in place with a 16-byte key. The library KX_CRYPT of the
/// program directory does it; without it AES-128 stands in. Whether a real lock takes AES-128 is not known.
class BlockCipher {
public:
    /// Loads KX_CRYPT from `directory` (UTF-8) if it is there and has the function `encryptData`.
    explicit BlockCipher(const std::string& directory);
    ~BlockCipher();
    BlockCipher(const BlockCipher&) = delete;
    BlockCipher& operator=(const BlockCipher&) = delete;

    /// Throws std::runtime_error when AES is not to be had: the block must not go out in the clear.
    void Encrypt(std::span<std::uint8_t, 16> block, std::span<const std::uint8_t, 16> key);
    /// Which cipher is in use, and why not the library if it is there all the same. UTF-8, for the about box.
    const std::string& Text() const { return text_; }

private:
    struct Aes;
    /// Block and key in, block out; the result word means nothing.
    using Function = int (*)(std::uint8_t* block, const std::uint8_t* key);

    Function library_ = nullptr;
    std::unique_ptr<Aes> aes_;
    std::string text_;
};

} // namespace qvm
