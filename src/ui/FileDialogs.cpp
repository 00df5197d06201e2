#include "FileDialogs.h"

#include "FrontWindow.h"
#include "TextEdge.h"

#include <QFileDialog>
#include <QStringList>

namespace qvm::ui {
namespace {

void fill(QFileDialog& dialog, const FileDialog& wanted) {
    dialog.setObjectName(QStringLiteral("FileDialog"));
    dialog.setWindowTitle(toQt(wanted.Title));
    dialog.setDirectory(QString::fromUtf8(wanted.Directory));
    const QString filter = toQtFilter(wanted.Filter);
    if (!filter.isEmpty()) {
        dialog.setNameFilter(filter);
    }
}

std::optional<std::string> ask(QFileDialog& dialog) {
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return std::nullopt;
    }
    return dialog.selectedFiles().constFirst().toStdString();
}

} // namespace

QString toQtFilter(std::string_view filter) {
    const QStringList parts = toQt(filter).split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype n = 0; n + 1 < parts.size(); n += 2) {
        const QString patterns = parts[n + 1].simplified().replace(QLatin1Char(';'), QLatin1Char(' '));
        if (!patterns.isEmpty()) {
            // A text that names its pattern itself must not show it twice.
            const QString bracket = QStringLiteral("(%1)").arg(patterns);
            const QString text = parts[n].trimmed();
            filters += text.endsWith(bracket) ? text : text + QLatin1Char(' ') + bracket;
        }
    }
    return filters.join(QStringLiteral(";;"));
}

std::optional<std::string> openFile(const FileDialog& wanted) {
    QFileDialog dialog(frontWindow());
    fill(dialog, wanted);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return ask(dialog);
}

std::optional<std::string> saveFile(const FileDialog& wanted) {
    QFileDialog dialog(frontWindow());
    fill(dialog, wanted);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    const QString patterns = toQt(wanted.Filter).section(QLatin1Char('|'), 1, 1);
    const QString first = patterns.section(QLatin1Char(';'), 0, 0).trimmed();
    if (first.startsWith(QStringLiteral("*.")) && first != QStringLiteral("*.*")) {
        dialog.setDefaultSuffix(first.mid(2));
    }
    return ask(dialog);
}

} // namespace qvm::ui
