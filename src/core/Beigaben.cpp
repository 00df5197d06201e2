#include "Beigaben.h"

namespace qvm {

std::string Beigabe_Pfad(const FileStore& files, const std::string& appPath, const std::string& programFiles,
                         const std::string& name) {
    const bool shipped =
        !programFiles.empty() && !files.Datei_Vorhanden(appPath + name) && files.Datei_Vorhanden(programFiles + name);
    return (shipped ? programFiles : appPath) + name;
}

} // namespace qvm
