#pragma once

#include <QLocale>
#include <QTranslator>

#include <string_view>

namespace qvm::ui {

/// How a language writes days and numbers. One of the four names that the configuration knows; any other counts as
/// German.
QLocale localeOf(std::string_view sprache);

/// Qt's own words, as those of a file dialog, in the program's language. They come with Qt or lie in the folder
/// "translations" beside the program; where there are none they stay English.
class QtWords {
public:
    QtWords() = default;
    ~QtWords();
    QtWords(const QtWords&) = delete;
    QtWords& operator=(const QtWords&) = delete;

    /// From now on in this language, as the configuration names it.
    void use(std::string_view sprache);

private:
    QTranslator translator_;
};

} // namespace qvm::ui
