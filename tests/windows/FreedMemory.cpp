#include "FreedMemory.h"

#include <cstdlib>
#include <malloc.h>
#include <new>
#include <string_view>
#include <utility>

namespace qvm::test {
namespace {

/// Who looks, if anybody does.
FreedMemory*& Looking() {
    static FreedMemory* looking = nullptr;
    return looking;
}

} // namespace

FreedMemory::FreedMemory(std::string secret) : secret_(std::move(secret)) {
    Looking() = this;
}

FreedMemory::~FreedMemory() {
    Looking() = nullptr;
}

void FreedMemory::Look(const void* memory) {
    // What is given back is as long as what malloc gave, which may be more than was asked for.
    const std::string_view bytes(static_cast<const char*>(memory), malloc_usable_size(const_cast<void*>(memory)));
    seen_ += bytes.find(secret_) == std::string_view::npos ? 0 : 1;
}

} // namespace qvm::test

void* operator new(std::size_t size) {
    if (void* memory = std::malloc(size == 0 ? 1 : size)) {
        return memory;
    }
    throw std::bad_alloc();
}

// The sanitizers' own would not go with the others.
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return std::malloc(size == 0 ? 1 : size);
}

void operator delete(void* memory) noexcept {
    if (qvm::test::FreedMemory* looking = qvm::test::Looking(); looking != nullptr && memory != nullptr) {
        looking->Look(memory);
    }
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    operator delete(memory);
}

void operator delete(void* memory, const std::nothrow_t& /*tag*/) noexcept {
    operator delete(memory);
}
