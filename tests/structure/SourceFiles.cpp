#include "SourceFiles.h"

#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>

namespace qvm::test {
namespace {

namespace fs = std::filesystem;

const fs::path Sources = fs::path(QVM_SOURCE_DIR) / "src";

/// Folder of src/ -> the folders whose headers it may include, itself not among them.
using LayerTable = std::map<std::string, std::set<std::string>>;

/// As the build has written it: a line for each folder, the first word its name.
LayerTable ReadLayers() {
    LayerTable layers;
    std::ifstream in(QVM_BINARY_DIR "/tests/layers.txt");
    for (std::string line; std::getline(in, line);) {
        std::istringstream words(line);
        std::string folder;
        words >> folder;
        std::set<std::string>& targets = layers[folder];
        for (std::string target; words >> target;) {
            targets.insert(target);
        }
    }
    return layers;
}

const LayerTable& Layers() {
    static const LayerTable layers = ReadLayers();
    return layers;
}

std::vector<Source> ReadTree(const fs::path& root) {
    std::vector<Source> found;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        const auto ending = entry.path().extension();
        if (ending != ".cpp" && ending != ".h") {
            continue;
        }
        Source source{entry.path(), fs::relative(entry.path().parent_path(), root).string(), {}};
        std::ifstream in(entry.path());
        for (std::string line; std::getline(in, line);) {
            source.Lines.push_back(line);
        }
        found.push_back(source);
    }
    return found;
}

} // namespace

bool FolderKnown(const std::string& folder) {
    return Layers().contains(folder);
}

bool MayInclude(const std::string& folder, const std::string& target) {
    return target == folder || Layers().at(folder).contains(target);
}

std::vector<Source> All() {
    return ReadTree(Sources);
}

std::vector<Source> AllTests() {
    return ReadTree(fs::path(QVM_SOURCE_DIR) / "tests");
}

std::string Code(const std::string& line) {
    static const std::regex literal(R"("(\\.|[^"\\])*")");
    std::string code = std::regex_replace(line, literal, "\"\"");
    return code.substr(0, code.find("//"));
}

std::string At(const Source& source, std::size_t line) {
    return fs::relative(source.Path, QVM_SOURCE_DIR).string() + ":" + std::to_string(line + 1);
}

} // namespace qvm::test
