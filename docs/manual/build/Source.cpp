#include "Source.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSet>

namespace qvm::manual {

const std::vector<Language>& languages() {
    static const std::vector<Language> all{
        {"en", "English", "Manual", "Contents"},
        {"de", "Deutsch", "Handbuch", "Inhalt"},
        {"fr", "Francais", "Manuel", "Sommaire"},
        {"nl", "Nederlands", "Handleiding", "Inhoud"},
    };
    return all;
}

Source readSource(const QString& text) {
    static const QRegularExpression heading(QStringLiteral("^(#{1,3}) +(.*?) *(?:\\{#([a-z0-9-]+)\\})? *$"));
    Source source;
    QSet<QString> seen;
    for (const QString& line : text.split(u'\n')) {
        const QRegularExpressionMatch match = heading.match(line);
        if (!match.hasMatch()) {
            source.Markdown += line + u'\n';
            continue;
        }
        const Heading found{static_cast<int>(match.captured(1).size()), match.captured(2), match.captured(3)};
        if (found.Destination.isEmpty()) {
            source.Faults += QStringLiteral("no destination: ") + line;
        } else if (seen.contains(found.Destination)) {
            source.Faults += QStringLiteral("a second time: ") + line;
        }
        seen.insert(found.Destination);
        source.Headings.push_back(found);
        source.Markdown += match.captured(1) + u' ' + found.Title + u'\n';
    }
    return source;
}

QString readChapters(const QString& folder, QStringList& faults) {
    QString text;
    const QStringList names = QDir(folder).entryList({QStringLiteral("[0-9][0-9]-*.md")}, QDir::Files, QDir::Name);
    for (const QString& name : names) {
        QFile file(QDir(folder).filePath(name));
        if (!file.open(QIODevice::ReadOnly)) {
            faults += file.fileName() + QStringLiteral(": ") + file.errorString();
        }
        text += QString::fromUtf8(file.readAll()) + QStringLiteral("\n\n");
    }
    if (names.isEmpty()) {
        faults += folder + QStringLiteral(": no chapter");
    }
    return text;
}

} // namespace qvm::manual
