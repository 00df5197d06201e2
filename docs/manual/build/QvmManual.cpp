// Makes the manual of one language.
//
//   qvm_manual ROOT LANGUAGE PICTURES PDF
//
// ROOT: of the sources. LANGUAGE: "en" for one. PICTURES: a folder of pictures of the windows in that language. Every
// fault is told: a caption that the program does not have, a heading without a destination, a picture that is missing;
// with one no file is written.
#include "Book.h"
#include "Captions.h"
#include "Source.h"

#include <QFile>
#include <QGuiApplication>
#include <QSaveFile>

#include <cstdio>

namespace {

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray makeManual(const QString& root, const qvm::manual::Language& language, const QString& pictures,
                      QStringList& faults) {
    qvm::manual::Captions captions;
    const QString name = QLatin1String(language.Name);
    for (const QString& fault :
         {captions.add(contentOf(root + QStringLiteral("/lang/catalogue.tsv")), QStringLiteral("Line"), name),
          captions.add(contentOf(root + QStringLiteral("/lang/words.tsv")), QStringLiteral("Word"), name)}) {
        if (!fault.isEmpty()) {
            faults += fault;
        }
    }
    const QString folder = root + QStringLiteral("/docs/manual/") + QLatin1String(language.Code);
    const QString text = captions.resolve(qvm::manual::readChapters(folder, faults), faults);
    const qvm::manual::BookParts parts{.Title = QStringLiteral("QVM 7702 – ") + QString::fromUtf8(language.Title),
                                       .Contents = QString::fromUtf8(language.Contents),
                                       .Pictures = pictures};
    return qvm::manual::makeBook(qvm::manual::readSource(text), parts, faults);
}

} // namespace

int main(int argc, char** argv) {
    QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    const auto& languages = qvm::manual::languages();
    const auto language = std::find_if(languages.begin(), languages.end(), [&arguments](const auto& one) {
        return arguments.value(2) == QLatin1String(one.Code);
    });
    if (arguments.size() != 5 || language == languages.end()) {
        std::fputs("qvm_manual ROOT LANGUAGE PICTURES PDF\n", stderr);
        return 2;
    }
    QStringList faults;
    const QByteArray pdf = makeManual(arguments.at(1), *language, arguments.at(3), faults);
    QSaveFile file(arguments.at(4));
    if (faults.isEmpty() && (!file.open(QIODevice::WriteOnly) || file.write(pdf) != pdf.size() || !file.commit())) {
        faults += file.fileName() + QStringLiteral(": ") + file.errorString();
    }
    for (const QString& fault : faults) {
        std::fprintf(stderr, "%s: %s\n", language->Code, qUtf8Printable(fault));
    }
    return faults.isEmpty() ? 0 : 1;
}
