#include "BlockCipher.h"
#include "RealWorld.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>

namespace qvm {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

using Block = std::array<std::uint8_t, 16>;

/// FIPS 197, appendix B.
constexpr Block PlainB{0x32, 0x43, 0xf6, 0xa8, 0x88, 0x5a, 0x30, 0x8d, 0x31, 0x31, 0x98, 0xa2, 0xe0, 0x37, 0x07, 0x34};
constexpr Block KeyB{0x2b, 0x7e, 0x15, 0x16, 0x28, 0xae, 0xd2, 0xa6, 0xab, 0xf7, 0x15, 0x88, 0x09, 0xcf, 0x4f, 0x3c};
constexpr Block CipherB{0x39, 0x25, 0x84, 0x1d, 0x02, 0xdc, 0x09, 0xfb, 0xdc, 0x11, 0x85, 0x97, 0x19, 0x6a, 0x0b, 0x32};
/// FIPS 197, appendix C.1.
constexpr Block PlainC{0x00, 0x11, 0x22, 0x33, 0x44, 0x55, 0x66, 0x77, 0x88, 0x99, 0xaa, 0xbb, 0xcc, 0xdd, 0xee, 0xff};
constexpr Block KeyC{0x00, 0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x08, 0x09, 0x0a, 0x0b, 0x0c, 0x0d, 0x0e, 0x0f};
constexpr Block CipherC{0x69, 0xc4, 0xe0, 0xd8, 0x6a, 0x7b, 0x04, 0x30, 0xd8, 0xcd, 0xb7, 0x80, 0x70, 0xb4, 0xc5, 0x5a};

class encryptData : public test::RealWorld {};

const std::string LibraryDirectory = QVM_BINARY_DIR "/tests/cipher";

TEST_F(encryptData, without_the_library_a_block_is_enciphered_with_aes_128) {
    Block block = PlainB;
    World().encryptData(block, KeyB);
    EXPECT_EQ(block, CipherB);
}

TEST_F(encryptData, each_call_stands_for_itself) {
    Block first = PlainB;
    Block second = PlainC;
    Block third = PlainB;
    World().encryptData(first, KeyB);
    World().encryptData(second, KeyC);
    World().encryptData(third, KeyB);
    EXPECT_EQ(first, CipherB);
    EXPECT_EQ(second, CipherC);
    EXPECT_EQ(third, CipherB);
}

TEST_F(encryptData, the_text_names_the_stand_in) {
    EXPECT_EQ(BlockCipher(Directory.Path()).Text(), "AES-128");
}

TEST_F(encryptData, the_library_of_the_program_directory_does_it_and_is_named) {
    BlockCipher cipher(LibraryDirectory);
    Block block{0x01, 0xFF, 0x10};
    const Block key{0x01, 0x02, 0x30, 0x04};
    cipher.Encrypt(block, key);
    EXPECT_EQ(block, (Block{0x02, 0x01, 0x40, 0x04}));
    EXPECT_EQ(cipher.Text(), "KX_CRYPT (KX_CRYPT.so)");
}

TEST_F(encryptData, a_platform_takes_the_library_of_its_directory) {
    QtPlatform platform(test::OptionsFor(LibraryDirectory));
    Block block{0x01};
    platform.World().encryptData(block, Block{0x01});
    EXPECT_EQ(block, Block{0x02});
    EXPECT_EQ(platform.CipherText(), "KX_CRYPT (KX_CRYPT.so)");
}

TEST_F(encryptData, a_file_that_is_no_library_leaves_aes_in_use_and_the_text_says_why) {
    std::ofstream(Directory / "KX_CRYPT.so") << "no library";
    BlockCipher cipher(Directory.Path());
    Block block = PlainC;
    cipher.Encrypt(block, KeyC);
    EXPECT_EQ(block, CipherC);
    EXPECT_THAT(cipher.Text(), AllOf(StartsWith("AES-128 (KX_CRYPT.so cannot be used: "), HasSubstr("KX_CRYPT.so: ")));
}

TEST_F(encryptData, a_library_for_another_system_leaves_aes_in_use_and_is_named) {
    std::ofstream(Directory / "KX_CRYPT.dll") << "MZ";
    BlockCipher cipher(Directory.Path());
    Block block = PlainC;
    cipher.Encrypt(block, KeyC);
    EXPECT_EQ(block, CipherC);
    EXPECT_THAT(cipher.Text(), StartsWith("AES-128 (KX_CRYPT.dll cannot be used: "));
}

} // namespace
} // namespace qvm
