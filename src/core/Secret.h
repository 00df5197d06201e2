#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

/// Bytes that must not outlive their use: codes and keys.
namespace qvm {

/// Overwrites memory. The compiler must do so even where nobody reads it again.
inline void Ueberschreiben(void* memory, std::size_t size) {
    auto* byte = static_cast<volatile unsigned char*>(memory);
    for (std::size_t n = 0; n < size; ++n) {
        byte[n] = 0;
    }
}

/// The same of a whole array.
template <class Item, std::size_t N>
void Ueberschreiben(std::array<Item, N>& items) {
    Ueberschreiben(items.data(), N * sizeof(Item));
}

/// Overwrites a text or a row of bytes, what it has room for besides, and leaves it empty.
template <class Row>
void Vergessen(Row& row) {
    row.resize(row.capacity());
    Ueberschreiben(row.data(), row.size() * sizeof(*row.data()));
    row.clear();
}

/// Overwrites a text, or a row of bytes, at the end of the block that this is declared in.
template <class Row>
class Wiper {
public:
    explicit Wiper(Row& row) : row_(row) {}
    ~Wiper() { Vergessen(row_); }
    Wiper(const Wiper&) = delete;
    Wiper& operator=(const Wiper&) = delete;

private:
    Row& row_;
};

/// N bytes that are overwritten when they are no longer needed. Copies are secrets, too; what is taken out of one by
/// Bytes or an iterator is not.
template <std::size_t N>
class Secret {
public:
    using Array = std::array<std::uint8_t, N>;

    Secret() = default;
    Secret(const Array& bytes) : bytes_(bytes) {}
    Secret(const Secret&) = default;
    Secret& operator=(const Secret&) = default;
    Secret& operator=(const Array& bytes) {
        bytes_ = bytes;
        return *this;
    }
    ~Secret() { Loeschen(); }

    const Array& Bytes() const { return bytes_; }
    const std::uint8_t* begin() const { return bytes_.data(); }
    const std::uint8_t* end() const { return bytes_.data() + N; }
    const std::uint8_t& operator[](std::size_t index) const { return bytes_[index]; }
    std::uint8_t& operator[](std::size_t index) { return bytes_[index]; }
    void fill(std::uint8_t byte) { bytes_.fill(byte); }
    /// All bytes 0.
    void Loeschen() { Ueberschreiben(bytes_); }

    friend bool operator==(const Secret&, const Secret&) = default;

private:
    Array bytes_{};
};

} // namespace qvm
