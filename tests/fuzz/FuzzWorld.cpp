// A world file from outside. What is taken must come back from its own text unchanged.

#include "WorldFile.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    qvm::VirtualWorld world;
    std::string fault;
    if (!qvm::World_FromJson({reinterpret_cast<const char*>(data), size}, world, fault)) {
        if (fault.empty()) {
            std::abort();
        }
        return 0;
    }
    const std::string text = qvm::World_ToJson(world);
    qvm::VirtualWorld again;
    if (!qvm::World_FromJson(text, again, fault) || qvm::World_ToJson(again) != text) {
        std::abort();
    }
    return 0;
}
