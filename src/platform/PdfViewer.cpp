#include "PdfViewer.h"

#include <QEventLoop>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <QUrl>

namespace qvm {
namespace {

/// How a viewer hears of a destination.
enum class Zielangabe {
    Option, ///< --named-dest=
    Address ///< behind the "#" of an address
};

struct Betrachter {
    const char* Program; ///< stands in the name of its desktop entry, too, in whatever letters
    Zielangabe How;
};

constexpr Betrachter Viewers[] = {{"evince", Zielangabe::Option},       {"atril", Zielangabe::Option},
                                  {"xreader", Zielangabe::Option},      {"okular", Zielangabe::Address},
                                  {"firefox-esr", Zielangabe::Address}, {"firefox", Zielangabe::Address},
                                  {"chromium", Zielangabe::Address}};
constexpr int Patience = 2000; ///< ms

std::string standardViewer() {
    QProcess process;
    QEventLoop loop;
    QObject::connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
    QObject::connect(&process, &QProcess::errorOccurred, &loop, &QEventLoop::quit);
    QTimer::singleShot(Patience, &loop, &QEventLoop::quit);
    // Started when the loop runs: one that cannot be started says so at once.
    QTimer::singleShot(0, &loop, [&process] {
        process.start(QStringLiteral("xdg-mime"),
                      {QStringLiteral("query"), QStringLiteral("default"), QStringLiteral("application/pdf")});
    });
    // The windows are painted and a run goes on meanwhile; keys and clicks wait, so that nothing that is opened or
    // closed by them comes in between.
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    if (process.state() != QProcess::NotRunning) {
        process.kill();
        process.waitForFinished(Patience);
        return {};
    }
    return process.readAllStandardOutput().trimmed().toStdString();
}

} // namespace

std::optional<std::vector<std::string>> Viewer_Aufruf(const std::string& viewer, const std::string& path,
                                                      const std::string& destination) {
    const QString name = QString::fromStdString(viewer);
    for (const Betrachter& known : Viewers) {
        if (!name.contains(QLatin1String(known.Program), Qt::CaseInsensitive)) {
            continue;
        }
        if (known.How == Zielangabe::Option) {
            return std::vector<std::string>{known.Program, "--named-dest=" + destination, path};
        }
        QUrl address = QUrl::fromLocalFile(QString::fromStdString(path));
        address.setFragment(QString::fromStdString(destination));
        return std::vector<std::string>{known.Program, address.toEncoded().toStdString()};
    }
    return std::nullopt;
}

bool Pdf_Zeigen(const std::string& path, const std::string& destination) {
    const auto call = Viewer_Aufruf(standardViewer(), path, destination);
    if (!call) {
        return false;
    }
    QStringList arguments;
    for (std::size_t n = 1; n < call->size(); ++n) {
        arguments += QString::fromStdString((*call)[n]);
    }
    return QProcess::startDetached(QString::fromStdString(call->front()), arguments);
}

} // namespace qvm
