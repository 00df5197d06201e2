#include "BlockCipher.h"

#include <QDir>
#include <QFileInfo>
#include <QLibrary>

#include <algorithm>
#include <array>
#include <openssl/evp.h>
#include <stdexcept>

namespace qvm {

/// One context for all calls: setting the key in it is several times cheaper than making one.
struct BlockCipher::Aes {
    std::unique_ptr<EVP_CIPHER_CTX, void (*)(EVP_CIPHER_CTX*)> Context{EVP_CIPHER_CTX_new(), &EVP_CIPHER_CTX_free};
    bool Ready = Context && EVP_EncryptInit_ex(Context.get(), EVP_aes_128_ecb(), nullptr, nullptr, nullptr) == 1;
};

BlockCipher::BlockCipher(const std::string& directory) : text_("AES-128") {
    const QDir folder(QString::fromStdString(directory));
    // The suffix is the system's. An absolute path keeps the search out of the system's own directories.
    QLibrary library(folder.absoluteFilePath(QStringLiteral("KX_CRYPT")));
    const QStringList present = folder.entryList({QStringLiteral("KX_CRYPT.so"), QStringLiteral("libKX_CRYPT.so"),
                                                  QStringLiteral("KX_CRYPT.dll"), QStringLiteral("KX_CRYPT.dylib")},
                                                 QDir::Files);
    if (present.isEmpty()) {
        return;
    }
    if (library.load()) {
        library_ = reinterpret_cast<Function>(library.resolve("encryptData"));
    }
    if (library_ != nullptr) {
        text_ = "KX_CRYPT (" + QFileInfo(library.fileName()).fileName().toStdString() + ")";
    } else {
        text_ += " (" + present.first().toStdString() + " cannot be used: " + library.errorString().toStdString() + ")";
    }
}

BlockCipher::~BlockCipher() = default;

void BlockCipher::Encrypt(std::span<std::uint8_t, 16> block, std::span<const std::uint8_t, 16> key) {
    if (library_ != nullptr) {
        library_(block.data(), key.data());
        return;
    }
    if (!aes_) {
        aes_ = std::make_unique<Aes>();
    }
    EVP_CIPHER_CTX* const context = aes_->Context.get();
    std::array<std::uint8_t, 32> out{};
    int count = 0;
    const bool done = aes_->Ready && EVP_EncryptInit_ex(context, nullptr, nullptr, key.data(), nullptr) == 1 &&
                      EVP_CIPHER_CTX_set_padding(context, 0) == 1 &&
                      EVP_EncryptUpdate(context, out.data(), &count, block.data(), 16) == 1 && count == 16;
    if (!done) {
        throw std::runtime_error("AES-128 is not available");
    }
    std::copy_n(out.begin(), 16, block.begin());
}

} // namespace qvm
