#include "Gebaeudedateien.h"

#include <set>
#include <utility>

namespace qvm {
namespace {

/// No data file and no history comes near it.
constexpr std::uint64_t LargestFile = std::uint64_t{256} << 20U;

std::string Ordnerpfad(std::string path) {
    if (!path.empty() && path.back() != '/') {
        path += '/';
    }
    return path;
}

} // namespace

Gebaeudedateien::Gebaeudedateien(FileStore disk, std::string directory, Beginn begin)
    : disk_(std::move(disk)), directory_(std::move(directory)), begin_(begin) {}

bool Gebaeudedateien::Innen(const std::string& path) const {
    return path.starts_with(directory_ + "DAT/") || path.starts_with(directory_ + "HIST/");
}

bool Gebaeudedateien::Vorhanden(const std::string& path) const {
    if (const auto found = changed_.find(path); found != changed_.end()) {
        return found->second.has_value();
    }
    return (begin_ == Beginn::Kopie || !Innen(path)) && disk_.Datei_Vorhanden(path);
}

ReadStatus Gebaeudedateien::Lesen(const std::string& path, std::string& bytes) {
    bytes.clear();
    if (const auto found = changed_.find(path); found != changed_.end()) {
        bytes = found->second.value_or(std::string());
        return found->second ? ReadStatus::Ok : ReadStatus::Missing;
    }
    return begin_ == Beginn::Leer && Innen(path) ? ReadStatus::Missing : disk_.ReadAll(path, bytes);
}

bool Gebaeudedateien::Schreiben(const std::string& path, std::optional<std::string> bytes) {
    if (!Innen(path)) {
        return false;
    }
    changed_[path] = std::move(bytes);
    return true;
}

template <class Change>
bool Gebaeudedateien::Aendern(const std::string& path, const Change& change) {
    std::string bytes;
    return Innen(path) && Lesen(path, bytes) != ReadStatus::Error && change(bytes) && Schreiben(path, std::move(bytes));
}

std::vector<std::string> Gebaeudedateien::Namen(const std::string& path) const {
    const std::string folder = Ordnerpfad(path);
    std::set<std::string> names;
    if (begin_ == Beginn::Kopie || !Innen(folder)) {
        for (std::string& name : disk_.List(path)) {
            names.insert(std::move(name));
        }
    }
    for (const auto& [file, bytes] : changed_) {
        if (!file.starts_with(folder) || file.find('/', folder.size()) != std::string::npos) {
            continue;
        }
        std::string name = file.substr(folder.size());
        bytes ? static_cast<void>(names.insert(std::move(name))) : static_cast<void>(names.erase(name));
    }
    return {names.begin(), names.end()};
}

FileStore Gebaeudedateien::Store() {
    FileStore store;
    store.Datei_Vorhanden = [this](const std::string& path) { return Vorhanden(path); };
    store.ReadAll = [this](const std::string& path, std::string& bytes) { return Lesen(path, bytes); };
    store.Replace = [this](const std::string& path, std::string_view bytes) {
        return Schreiben(path, std::string(bytes));
    };
    store.WriteAt = [this](const std::string& path, std::uint64_t offset, std::string_view bytes) {
        return Aendern(path, [offset, bytes](std::string& file) {
            if (offset > LargestFile || bytes.size() > LargestFile) {
                return false;
            }
            const auto at = static_cast<std::size_t>(offset);
            if (file.size() < at + bytes.size()) {
                file.resize(at + bytes.size(), '\0');
            }
            file.replace(at, bytes.size(), bytes);
            return true;
        });
    };
    store.Append = [this](const std::string& path, std::string_view bytes) {
        return Aendern(path, [bytes](std::string& file) {
            file.append(bytes);
            return file.size() <= LargestFile;
        });
    };
    store.Flush = [this](const std::string& path) { return Innen(path) && Vorhanden(path); };
    store.Remove = [this](const std::string& path) { return Vorhanden(path) && Schreiben(path, std::nullopt); };
    store.MakeDirectory = [this](const std::string& path) { return Innen(Ordnerpfad(path)); };
    store.List = [this](const std::string& path) { return Namen(path); };
    store.LastFault = disk_.LastFault;
    return store;
}

} // namespace qvm
