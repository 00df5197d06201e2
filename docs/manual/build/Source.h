#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace qvm::manual {

/// A language in which there is a manual.
struct Language {
    const char* Code;     ///< folder of the source, and in the name of the PDF: QVM_System_en.pdf
    const char* Name;     ///< of its column in the tables of lang/, and in the program's configuration
    const char* Title;    ///< of the book
    const char* Contents; ///< over the list of chapters
};

/// All of them; a language is entered here once its text is whole.
const std::vector<Language>& languages();

struct Heading {
    int Level = 1; ///< 1: a chapter
    QString Title;
    QString Destination; ///< under which the PDF is opened here
};

/// A text whose headings have been told apart from their destinations.
struct Source {
    QString Markdown;
    std::vector<Heading> Headings; ///< as they follow each other
    QStringList Faults;            ///< a heading without a destination, or with one that another has
};

/// "## Title {#destination}" becomes "## Title" and a heading. Destinations: a-z, digits and "-".
Source readSource(const QString& text);

/// The chapters NN-name.md of a folder one after another; what cannot be read is a fault.
QString readChapters(const QString& folder, QStringList& faults);

} // namespace qvm::manual
