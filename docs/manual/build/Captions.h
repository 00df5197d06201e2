#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

namespace qvm::manual {

/// The captions of the program in one language, as the manual quotes them.
class Captions {
public:
    /// Takes a table of lang/: UTF-8, tabs, its heading names the columns "key" and the languages. `kind`: "Line" or
    /// "Word". `language`: "English" for one. Gives what is wrong with the table, or nothing.
    QString add(const QByteArray& table, const QString& kind, const QString& language);
    /// The text with every {Line:Key} and {Word:Key} replaced by its caption in bold Markdown, without mnemonic, and
    /// every {picture:NAME} by the picture NAME.png. What has no caption stands in `faults` and stays as it is.
    QString resolve(const QString& text, QStringList& faults) const;

private:
    QHash<QString, QString> texts_; ///< by "Line:Key"
};

/// The names of the pictures that a text shows.
QStringList picturesOf(const QString& text);

} // namespace qvm::manual
