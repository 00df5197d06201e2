#include "FileDialogs.h"

#include "FrontWindow.h"
#include "TextEdge.h"

#include <QFileDialog>
#include <QHeaderView>
#include <QStringList>
#include <QTreeView>

namespace qvm::ui {
namespace {

constexpr int FilesWidth = 860, FilesHeight = 520; ///< room for the longest names beside their dates

void fill(QFileDialog& dialog, const FileDialog& wanted) {
    dialog.setObjectName(QStringLiteral("FileDialog"));
    dialog.setWindowTitle(toQt(wanted.Title));
    dialog.setDirectory(QString::fromUtf8(wanted.Directory));
    const QString filter = toQtFilter(wanted.Filter);
    if (!filter.isEmpty()) {
        dialog.setNameFilter(filter);
    }
}

/// The system's own dialog would know neither the order nor how wide a name is.
void showNewestFirst(QFileDialog& dialog) {
    constexpr int DateColumn = 3;
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setViewMode(QFileDialog::Detail);
    if (auto* files = dialog.findChild<QTreeView*>(QStringLiteral("treeView"))) {
        files->sortByColumn(DateColumn, Qt::DescendingOrder);
        files->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    }
    dialog.resize(FilesWidth, FilesHeight);
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
    if (wanted.NewestFirst) {
        showNewestFirst(dialog);
    }
    return ask(dialog);
}

std::optional<std::string> saveFile(const FileDialog& wanted) {
    QFileDialog dialog(frontWindow());
    fill(dialog, wanted);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, wanted.Appends);
    const QString patterns = toQt(wanted.Filter).section(QLatin1Char('|'), 1, 1);
    const QString first = patterns.section(QLatin1Char(';'), 0, 0).trimmed();
    if (first.startsWith(QStringLiteral("*.")) && first != QStringLiteral("*.*")) {
        dialog.setDefaultSuffix(first.mid(2));
    }
    return ask(dialog);
}

} // namespace qvm::ui
