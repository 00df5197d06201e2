#include "Inhalt.h"

#include <fstream>
#include <sstream>

namespace qvm::test {

std::string Inhalt(const std::string& path) {
    const std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

} // namespace qvm::test
