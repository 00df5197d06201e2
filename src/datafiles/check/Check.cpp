#include "Check.h"

#include "Beigaben.h"
#include "Catalogue.h"
#include "CheckStand.h"
#include "FileLook.h"
#include "TableText.h"
#include "Tables.h"
#include "Text.h"
#include "Zeilen.h"

#include <algorithm>

namespace qvm {

namespace {

bool Lesbares_Zeichen(char character) {
    const auto byte = static_cast<unsigned char>(character);
    // The five bytes that code page 1252 leaves undefined.
    constexpr std::string_view undefined = "\x81\x8D\x8F\x90\x9D";
    return byte >= 0x20 && byte != 0x7F && undefined.find(character) == std::string_view::npos;
}

void Zeichen_Pruefen(CheckStand& stand, const RecordLayout& layout) {
    const RecordFile& file = stand.File(layout);
    for (int number = layout.First; number <= stand.Letzter(layout); ++number) {
        const std::string record = file.Record(number);
        for (const RecordField& field : layout.Fields) {
            if (field.Padding == Fill::Byte || Feld_Ist_Maske(field)) {
                continue;
            }
            const std::string text = Feld_Export(record, field);
            if (!std::all_of(text.begin(), text.end(), Lesbares_Zeichen) ||
                (field.Padding == Fill::NullTo20 && text.size() > 20)) {
                stand.Melden(FindingKind::Damaged, layout, number, field.Name, "holds a character that no text has");
            }
        }
    }
}

/// True when a value or a character of the record, or of the line, has been named already; 0: of the whole file.
bool Benannt(const CheckStand& stand, std::string_view table, int record) {
    return std::any_of(stand.Findings.begin(), stand.Findings.end(), [&](const Finding& finding) {
        return finding.Table == table && finding.Record == record &&
               (finding.Kind == FindingKind::Damaged || finding.Kind == FindingKind::Range);
    });
}

void Melden_Wenn_Neu(CheckStand& stand, std::string_view table, int record, std::string text) {
    if (!Benannt(stand, table, record)) {
        stand.Melden(FindingKind::Damaged, table, record, "", std::move(text));
    }
}

} // namespace

void Schaeden_Pruefen(CheckStand& stand) {
    for (const RecordLayout* layout : Satztabellen()) {
        const auto trouble = stand.Da(*layout) ? Satzdatei_Pruefen(*layout, stand.File(*layout).Bytes()) : std::nullopt;
        if (trouble) {
            Melden_Wenn_Neu(stand, layout->Name, trouble->Number,
                            trouble->Damage == FileDamage::BadRecord
                                ? "holds bytes that the program never leaves there"
                                : "has no record, the program leaves one at least");
        }
    }
    for (const LineFile& entry : Zeilendateien()) {
        const auto bytes = stand.Bytes(entry.File);
        const FileTrouble trouble = bytes ? Zeilendatei_Pruefen(entry, *bytes) : FileTrouble{};
        if (trouble.Damage != FileDamage::None) {
            Melden_Wenn_Neu(stand, entry.File, trouble.Number,
                            trouble.Damage == FileDamage::BadLine ? "holds what the program takes for damage"
                                                                  : "is cut off, lines are missing");
        }
    }
}

void Dateien_Pruefen(CheckStand& stand) {
    for (const RecordLayout* layout : Satztabellen()) {
        if (const FileFault fault = stand.Lesefehler(*layout); fault != FileFault::None) {
            stand.Findings.push_back(Befund_Unlesbar(layout->Name, layout->File, fault));
        }
        if (!stand.Da(*layout)) {
            continue;
        }
        const std::size_t size = stand.File(*layout).Bytes().size();
        if (size % layout->Length != 0) {
            stand.Melden(FindingKind::Damaged, *layout, 0, "",
                         "the length of " + std::to_string(size) + " bytes is not a multiple of " +
                             std::to_string(layout->Length));
        }
        const int count = stand.File(*layout).Count();
        if (count < layout->Least && !(count == 0 && layout->EmptyAllowed)) {
            stand.Melden(FindingKind::Damaged, *layout, 0, "",
                         "ends with record " + std::to_string(count) + ", the program leaves at least " +
                             std::to_string(layout->Least));
        }
        Zeichen_Pruefen(stand, *layout);
    }
    for (const LineFile& entry : Zeilendateien()) {
        const auto lines = stand.Zeilen(entry.File);
        if (const FileFault fault = stand.Lesefehler(entry.File); fault != FileFault::None) {
            stand.Findings.push_back(Befund_Unlesbar(entry.File, entry.File, fault));
        }
        for (std::size_t n = 0; lines && n < lines->size(); ++n) {
            if (!std::all_of((*lines)[n].begin(), (*lines)[n].end(), Lesbares_Zeichen)) {
                stand.Melden(FindingKind::Damaged, entry.File, static_cast<int>(n) + 1, "",
                             "holds a character that no text has");
            }
        }
    }
}

std::vector<Finding> Daten_Pruefen(const FileStore& files, const std::string& directory) {
    CheckStand stand(files, directory);
    Dateien_Pruefen(stand);
    Konfiguration_Pruefen(stand);
    Benutzer_Pruefen(stand);
    Benutzer_Marken_Pruefen(stand);
    Benutzer_Credentials_Pruefen(stand);
    Kanaele_Pruefen(stand);
    Vorlagen_Pruefen(stand);
    Schloesser_Pruefen(stand);
    Schloss_Bindungen_Pruefen(stand);
    Einheiten_Pruefen(stand);
    Schaltuhren_Pruefen(stand);
    Kalender_Pruefen(stand);
    Offsets_Pruefen(stand);
    Adapter_Pruefen(stand);
    Gastkarten_Pruefen(stand);
    Schaeden_Pruefen(stand);
    return std::move(stand.Findings);
}

std::vector<Finding> Sprachdatei_Pruefen(const FileStore& files, const std::string& appPath,
                                         const std::string& programFiles) {
    std::string settings;
    std::string language;
    if (files.ReadAll(appPath + "DAT/EST7CSB29A.I_1", settings) == ReadStatus::Ok) {
        const std::vector<std::string> lines = Zeilen_Lesen(settings);
        language = lines.empty() ? "" : std::string(Trim(lines.front()));
    }
    if (language.empty()) {
        language = "Deutsch";
    } else if (!Leer_Oder(language, {"Deutsch", "English", "Francais", "Nederlands"})) {
        return {};
    }
    Finding finding{.Table = "QVM_" + language + ".DAT", .Kind = FindingKind::Damaged};
    std::string bytes;
    switch (files.ReadAll(Beigabe_Pfad(files, appPath, programFiles, finding.Table), bytes)) {
    case ReadStatus::Missing:
        finding.Text = "the language file is missing";
        finding.Kind = FindingKind::Dangling;
        return {finding};
    case ReadStatus::Error:
        return {Befund_Unlesbar(finding.Table, finding.Table, Lesefehler(files))};
    case ReadStatus::Ok:
        break;
    }
    constexpr std::size_t read = Sprachkatalog::Zeilen - 1;
    const std::size_t count = Zeilen_Lesen(bytes).size();
    if (count <= read) {
        return {};
    }
    finding.Text = "has " + std::to_string(count) + " lines, " + std::to_string(read) + " are read";
    return {finding};
}

} // namespace qvm
