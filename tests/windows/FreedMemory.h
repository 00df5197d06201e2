#pragma once

#include <string>

namespace qvm::test {

/// Looks, while it lives, into all memory that is given back, for a text that nobody is to find there. One at a time.
class FreedMemory {
public:
    explicit FreedMemory(std::string secret);
    ~FreedMemory();
    FreedMemory(const FreedMemory&) = delete;
    FreedMemory& operator=(const FreedMemory&) = delete;

    /// In how many pieces it stood.
    int Seen() const { return seen_; }
    void Look(const void* memory);

private:
    std::string secret_;
    int seen_ = 0;
};

} // namespace qvm::test
