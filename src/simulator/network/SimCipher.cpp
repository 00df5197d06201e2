#include "SimCipher.h"

#include <algorithm>
#include <array>
#include <memory>
#include <openssl/evp.h>

namespace qvm {

void SimDecipher(std::span<std::uint8_t, 16> block, std::span<const std::uint8_t, 16> key) {
    const std::unique_ptr<EVP_CIPHER_CTX, void (*)(EVP_CIPHER_CTX*)> context{EVP_CIPHER_CTX_new(),
                                                                             &EVP_CIPHER_CTX_free};
    std::array<std::uint8_t, 32> plain{};
    int count = 0;
    const bool good = context &&
                      EVP_DecryptInit_ex(context.get(), EVP_aes_128_ecb(), nullptr, key.data(), nullptr) == 1 &&
                      EVP_CIPHER_CTX_set_padding(context.get(), 0) == 1 &&
                      EVP_DecryptUpdate(context.get(), plain.data(), &count, block.data(), 16) == 1 && count == 16;
    if (good) {
        std::copy_n(plain.begin(), 16, block.begin());
    }
}

} // namespace qvm
