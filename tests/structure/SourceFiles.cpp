#include "SourceFiles.h"

#include <fstream>
#include <map>
#include <regex>
#include <set>

namespace qvm::test {
namespace {

namespace fs = std::filesystem;

const fs::path Sources = fs::path(QVM_SOURCE_DIR) / "src";

/// Folder of src/ -> the folders whose headers it may include, itself always among them.
const std::map<std::string, std::set<std::string>> Layers{
    {"core", {}},
    {"link", {"core"}},
    {"locks", {"core"}},
    {"persons", {"core", "locks"}},
    {"timemodel", {"core"}},
    {"units", {"core", "locks"}},
    {"transfer", {"core", "link", "locks", "persons", "timemodel", "units"}},
    {"transfer/windows", {"core", "link", "locks", "persons", "timemodel", "units", "transfer"}},
    {"core/windows", {"core", "link"}},
    {"link/windows", {"core", "link", "locks", "persons"}},
    {"programm",
     {"core", "link", "locks", "persons", "timemodel", "units", "transfer", "transfer/windows", "core/windows",
      "link/windows"}},
    {"platform", {"core"}},
    {"simulator", {"core"}},
    {"simulator/program", {"core", "simulator"}},
    {"console",
     {"core", "link", "locks", "persons", "timemodel", "units", "transfer", "transfer/windows", "core/windows",
      "link/windows", "programm", "platform"}},
    {"console/program",
     {"core", "link", "locks", "persons", "timemodel", "units", "transfer", "transfer/windows", "core/windows",
      "link/windows", "programm", "platform", "console"}},
    {"ui",
     {"core", "link", "locks", "persons", "timemodel", "units", "transfer", "transfer/windows", "core/windows",
      "link/windows", "programm"}},
    {"ui/program",
     {"core", "link", "locks", "persons", "timemodel", "units", "transfer", "transfer/windows", "core/windows",
      "link/windows", "programm", "platform", "ui"}},
};

} // namespace

bool FolderKnown(const std::string& folder) {
    return Layers.contains(folder);
}

bool MayInclude(const std::string& folder, const std::string& target) {
    return target == folder || Layers.at(folder).contains(target);
}

std::vector<Source> All() {
    std::vector<Source> found;
    for (const auto& entry : fs::recursive_directory_iterator(Sources)) {
        const auto ending = entry.path().extension();
        if (ending != ".cpp" && ending != ".h") {
            continue;
        }
        Source source{entry.path(), fs::relative(entry.path().parent_path(), Sources).string(), {}};
        std::ifstream in(entry.path());
        for (std::string line; std::getline(in, line);) {
            source.Lines.push_back(line);
        }
        found.push_back(source);
    }
    return found;
}

std::string Code(const std::string& line) {
    static const std::regex literal(R"("(\\.|[^"\\])*")");
    std::string code = std::regex_replace(line, literal, "\"\"");
    return code.substr(0, code.find("//"));
}

std::string At(const Source& source, std::size_t line) {
    return fs::relative(source.Path, Sources).string() + ":" + std::to_string(line + 1);
}

} // namespace qvm::test
