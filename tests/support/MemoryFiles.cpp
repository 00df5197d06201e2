#include "MemoryFiles.h"

#include <algorithm>

namespace qvm::test {

namespace {

std::string Mit_Trenner(std::string path) {
    if (!path.empty() && path.back() != '/') {
        path += '/';
    }
    return path;
}

void Ueberschreiben(std::string& file, std::uint64_t offset, std::string_view bytes) {
    const std::size_t end = static_cast<std::size_t>(offset) + bytes.size();
    if (file.size() < end) {
        file.resize(end, '\0');
    }
    file.replace(static_cast<std::size_t>(offset), bytes.size(), bytes);
}

/// The largest file that a test makes; an offset beyond is a fault of the program, not a wish for memory.
constexpr std::uint64_t LargestFile = 64U << 20U;

} // namespace

bool MemoryFiles::Fails() {
    ++Operations;
    return FailAt > 0 && (Operations == FailAt || (FailFromThere && Operations > FailAt));
}

FileStore MemoryFiles::Store() {
    FileStore store;
    store.Datei_Vorhanden = [this](const std::string& path) { return Files.contains(path); };
    store.ReadAll = [this](const std::string& path, std::string& bytes) {
        bytes.clear();
        if (Fails()) {
            return ReadStatus::Error;
        }
        const auto file = Files.find(path);
        if (file == Files.end()) {
            return ReadStatus::Missing;
        }
        bytes = file->second;
        return ReadStatus::Ok;
    };
    store.Replace = [this](const std::string& path, std::string_view bytes) {
        if (Fails()) {
            return false;
        }
        Files[path] = std::string(bytes);
        return true;
    };
    store.WriteAt = [this](const std::string& path, std::uint64_t offset, std::string_view bytes) {
        if (Fails() || offset > LargestFile || bytes.size() > LargestFile) {
            return false;
        }
        Ueberschreiben(Files[path], offset, bytes);
        return true;
    };
    store.Append = [this](const std::string& path, std::string_view bytes) {
        if (Fails()) {
            return false;
        }
        Files[path].append(bytes);
        return true;
    };
    store.Flush = [this](const std::string& path) {
        const auto file = Files.find(path);
        if (FlushFails || file == Files.end()) {
            return false;
        }
        Flushed[path] = file->second;
        return true;
    };
    store.Remove = [this](const std::string& path) { return !Fails() && Files.erase(path) == 1; };
    store.MakeDirectory = [this](const std::string& path) {
        if (Fails()) {
            return false;
        }
        if (std::find(Directories.begin(), Directories.end(), path) == Directories.end()) {
            Directories.push_back(path);
        }
        return true;
    };
    store.List = [this](const std::string& path) {
        const std::string directory = Mit_Trenner(path);
        std::vector<std::string> names; // sorted, as the map is
        for (const auto& file : Files) {
            const std::string& name = file.first;
            if (name.starts_with(directory) && name.find('/', directory.size()) == std::string::npos) {
                names.push_back(name.substr(directory.size()));
            }
        }
        return names;
    };
    return store;
}

} // namespace qvm::test
