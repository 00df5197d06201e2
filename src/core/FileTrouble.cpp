#include "FileTrouble.h"

#include "Kern.h"
#include "Text.h"
#include "Words.h"

namespace qvm {

namespace {

Word Fehlerwort(FileFault fault) {
    switch (fault) {
    case FileFault::NoRight:
        return Word::FileNoRight;
    case FileFault::LinkLoop:
        return Word::FileLinkLoop;
    case FileFault::LinkToNothing:
        return Word::FileLinkToNothing;
    case FileFault::Directory:
        return Word::FileIsDirectory;
    case FileFault::Pipe:
        return Word::FileIsPipe;
    case FileFault::Device:
        return Word::FileIsDevice;
    case FileFault::Socket:
        return Word::FileIsSocket;
    case FileFault::TooManyOpen:
        return Word::FileTooManyOpen;
    case FileFault::TooLarge:
        return Word::FileTooLarge;
    case FileFault::Broken:
        return Word::FileDiskFault;
    case FileFault::None:
    case FileFault::Other:
        break;
    }
    return Word::FileUnreadable;
}

Word Schadenswort(FileDamage damage) {
    switch (damage) {
    case FileDamage::CutRecord:
        return Word::FileCutRecord;
    case FileDamage::TooShort:
        return Word::FileTooShort;
    case FileDamage::BadRecord:
        return Word::FileBadRecord;
    case FileDamage::CutLines:
        return Word::FileCutLines;
    case FileDamage::BadLine:
    case FileDamage::None:
        break;
    }
    return Word::FileBadLine;
}

std::string Satz(std::string_view language, const FileTrouble& trouble) {
    const Word which = trouble.Damage == FileDamage::None ? Fehlerwort(trouble.Fault) : Schadenswort(trouble.Damage);
    return trouble.File + ": " + Ausfuellen(Wort(which, language), {Ziffern(trouble.Number)});
}

} // namespace

FileFault Lesefehler(const FileStore& files) {
    const FileFault fault = files.LastFault ? files.LastFault() : FileFault::None;
    return fault == FileFault::None ? FileFault::Other : fault;
}

std::string FileTrouble_Text(const Kern& kern, const FileTrouble& trouble) {
    return Satz(kern.Config.Sprache, trouble);
}

std::string Dateimaengel_Text(const Kern& kern, std::span<const FileTrouble> troubles) {
    std::string text;
    for (const FileTrouble& trouble : troubles) {
        text += (text.empty() ? "" : "; ") + FileTrouble_Text(kern, trouble);
    }
    return text;
}

std::string FileTrouble_English(const FileTrouble& trouble) {
    return Satz("English", trouble);
}

std::string FileFault_English(FileFault fault) {
    return std::string(Wort(Fehlerwort(fault), "English"));
}

} // namespace qvm
