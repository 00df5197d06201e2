#include "QtWords.h"

#include "Text.h"
#include "TextSlots.h"

#include <QCoreApplication>
#include <QLibraryInfo>

namespace qvm::ui {

QLocale localeOf(std::string_view sprache) {
    const std::string_view name = Trim(sprache);
    return name == SprachNamen[1]   ? QLocale(QLocale::English, QLocale::UnitedKingdom)
           : name == SprachNamen[2] ? QLocale(QLocale::French, QLocale::France)
           : name == SprachNamen[3] ? QLocale(QLocale::Dutch, QLocale::Netherlands)
                                    : QLocale(QLocale::German, QLocale::Germany);
}

QtWords::~QtWords() {
    QCoreApplication::removeTranslator(&translator_);
}

void QtWords::use(std::string_view sprache) {
    QCoreApplication::removeTranslator(&translator_);
    const QString name = QStringLiteral("qtbase_") + localeOf(sprache).name().left(2);
    if (translator_.load(name, QCoreApplication::applicationDirPath() + QStringLiteral("/translations")) ||
        translator_.load(name, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(&translator_);
    }
}

} // namespace qvm::ui
