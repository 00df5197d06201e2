#include "Captions.h"

#include <QRegularExpression>

namespace qvm::manual {
namespace {

const QRegularExpression& reference() {
    static const QRegularExpression expression(QStringLiteral("\\{([A-Za-z]+):([^{}\\s]*)\\}"));
    return expression;
}

/// As it is read on the screen: "&&" is one "&", another one marks the letter behind it.
QString withoutMnemonic(const QString& caption) {
    QString text;
    for (qsizetype n = 0; n < caption.size(); ++n) {
        if (caption.at(n) == u'&' && ++n == caption.size()) {
            break;
        }
        text += caption.at(n);
    }
    return text;
}

/// Whether a space is part of the sign before or behind it, as French has it: a line does not end there.
bool belongsToSign(const QString& caption, qsizetype space) {
    const QString behind = caption.mid(space + 1, 1), before = caption.mid(0, space).right(1);
    return (!behind.isEmpty() && QStringLiteral("!?:;»").contains(behind)) || before == QStringLiteral("«");
}

QString inMarkdown(const QString& caption) {
    QString text;
    for (qsizetype n = 0; n < caption.size(); ++n) {
        if (QStringLiteral("\\`*_{}[]<>#|~").contains(caption.at(n))) {
            text += u'\\';
        }
        const bool bound = caption.at(n) == u' ' && belongsToSign(caption, n);
        text += bound ? QChar(QChar::Nbsp) : caption.at(n);
    }
    return QStringLiteral("**") + text + QStringLiteral("**");
}

} // namespace

QString Captions::add(const QByteArray& table, const QString& kind, const QString& language) {
    const QStringList lines = QString::fromUtf8(table).split(u'\n', Qt::SkipEmptyParts);
    const QStringList heading = lines.value(0).split(u'\t');
    const qsizetype key = heading.indexOf(QStringLiteral("key"));
    const qsizetype text = heading.indexOf(language);
    if (key < 0 || text < 0) {
        return kind + QStringLiteral(": no table with a column for ") + language;
    }
    for (const QString& line : lines.mid(1)) {
        const QStringList fields = line.split(u'\t');
        if (fields.size() != heading.size()) {
            return kind + QStringLiteral(": not all fields: ") + line;
        }
        texts_.insert(kind + u':' + fields.at(key), withoutMnemonic(fields.at(text)));
    }
    return {};
}

QString Captions::resolve(const QString& text, QStringList& faults) const {
    QString result;
    qsizetype end = 0;
    for (auto found = reference().globalMatch(text); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        result += text.mid(end, match.capturedStart() - end);
        end = match.capturedEnd();
        const QString name = match.captured(1) + u':' + match.captured(2);
        const auto caption = texts_.constFind(name);
        if (match.captured(1) == QStringLiteral("picture")) {
            result += QStringLiteral("![%1](%1.png)").arg(match.captured(2));
        } else if (caption == texts_.constEnd() || caption->contains(QStringLiteral("%1"))) {
            faults += (caption == texts_.constEnd() ? QStringLiteral("no caption of that name: ")
                                                    : QStringLiteral("a caption with a place to fill: ")) +
                      name;
            result += match.captured();
        } else {
            result += inMarkdown(*caption);
        }
    }
    return result + text.mid(end);
}

QStringList picturesOf(const QString& text) {
    QStringList names;
    for (auto found = reference().globalMatch(text); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        if (match.captured(1) == QStringLiteral("picture")) {
            names += match.captured(2);
        }
    }
    return names;
}

} // namespace qvm::manual
