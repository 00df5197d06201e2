// The sources of the manuals, without making them: what they name is there.
#include "Captions.h"
#include "Handbuch.h"
#include "Source.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QHash>

#include <gtest/gtest.h>

namespace qvm::manual {
namespace {

const QString SourceRoot = QVM_SOURCE_DIR;

QByteArray contentOf(const QString& path) {
    QFile file(SourceRoot + path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

Captions captionsOf(const QString& language) {
    Captions captions;
    EXPECT_EQ(captions.add(contentOf("/lang/catalogue.tsv"), "Line", language), "");
    EXPECT_EQ(captions.add(contentOf("/lang/words.tsv"), "Word", language), "");
    return captions;
}

QString textOf(const Language& language) {
    QStringList faults;
    QString text = readChapters(SourceRoot + "/docs/manual/" + language.Code, faults);
    EXPECT_EQ(faults, QStringList());
    return text;
}

TEST(ManualCaptions, come_from_the_tables_without_mnemonic) {
    Captions captions;
    const QByteArray table = "line\tkey\tuses\tDeutsch\tEnglish\n1\tYes\tx\t&Ja\t&Yes\n2\tNo\tx\tA_b && c\tNo\n";
    ASSERT_EQ(captions.add(table, "Line", "Deutsch"), "");
    QStringList faults;
    EXPECT_EQ(captions.resolve("Press {Line:Yes}, or {Line:No}; {picture:F5}", faults),
              "Press **Ja**, or **A\\_b & c**; ![F5](F5.png)");
    EXPECT_EQ(faults, QStringList());
    EXPECT_NE(captions.add(table, "Line", "Francais"), "");
    EXPECT_NE(captions.add("", "Line", "Deutsch"), "");
}

TEST(ManualCaptions, are_not_broken_before_a_sign_of_french) {
    Captions captions;
    const QByteArray table = "key\tuse\tFrancais\nGone\tx\tLa « carte » est perdue ! Continuer ?\nOne\tx\tA - b\n";
    ASSERT_EQ(captions.add(table, "Word", "Francais"), "");
    QStringList faults;
    EXPECT_EQ(captions.resolve("{Word:Gone} {Word:One}", faults),
              QString::fromUtf8("**La «\u00a0carte\u00a0» est perdue\u00a0! Continuer\u00a0?** **A - b**"));
}

TEST(ManualCaptions, that_are_unknown_or_have_places_are_faults) {
    Captions captions;
    ASSERT_EQ(captions.add("key\tuse\tDeutsch\nPort\tx\tPort %1\n", "Word", "Deutsch"), "");
    QStringList faults;
    EXPECT_EQ(captions.resolve("{Word:Port} {Line:Port} {Word:}", faults), "{Word:Port} {Line:Port} {Word:}");
    EXPECT_EQ(faults, QStringList({"a caption with a place to fill: Word:Port", "no caption of that name: Line:Port",
                                   "no caption of that name: Word:"}));
}

TEST(ManualSource, of_every_language_names_captions_that_the_program_has) {
    for (const Language& language : languages()) {
        QStringList faults;
        const QString text = captionsOf(language.Name).resolve(textOf(language), faults);
        EXPECT_EQ(faults, QStringList()) << language.Code;
        EXPECT_FALSE(text.contains("{Line") || text.contains("{Word") || text.contains("{picture")) << language.Code;
        EXPECT_EQ(readSource(text).Faults, QStringList()) << language.Code;
    }
}

TEST(ManualSource, has_the_same_chapters_and_destinations_in_every_language) {
    const auto outlineOf = [](const Language& language) {
        QStringList outline;
        for (const Heading& heading : readSource(textOf(language)).Headings) {
            outline += QString::number(heading.Level) + ' ' + heading.Destination;
        }
        return outline;
    };
    for (const Language& language : languages()) {
        EXPECT_EQ(outlineOf(language), outlineOf(languages().front())) << language.Code;
        EXPECT_EQ(QDir(SourceRoot + "/docs/manual/" + language.Code).entryList(QDir::Files),
                  QDir(SourceRoot + "/docs/manual/" + languages().front().Code).entryList(QDir::Files));
    }
}

TEST(ManualSource, shows_pictures_that_are_taken_and_the_same_in_every_language) {
    QByteArray show;
    QDirIterator files(SourceRoot + "/tests/ui", {"Fensterschau*.cpp"}, QDir::Files);
    while (files.hasNext()) {
        show += contentOf(files.next().mid(SourceRoot.size()));
    }
    for (const Language& language : languages()) {
        const QStringList pictures = picturesOf(textOf(language));
        EXPECT_EQ(pictures, picturesOf(textOf(languages().front()))) << language.Code;
        for (const QString& picture : pictures) {
            EXPECT_TRUE(show.contains('"' + picture.toUtf8() + '"')) << picture.toStdString();
        }
    }
}

TEST(ManualSource, has_a_chapter_for_every_window) {
    QStringList destinations;
    for (const Heading& heading : readSource(textOf(languages().front())).Headings) {
        destinations += heading.Destination;
    }
    for (const HandbuchKapitel& row : HandbuchKapitelListe) {
        EXPECT_TRUE(destinations.contains(QString::fromStdString(std::string(row.Destination)))) << row.Window;
    }
}

TEST(ManualSource, belongs_to_a_language_of_the_table_wherever_there_is_a_folder) {
    QStringList codes;
    for (const Language& language : languages()) {
        codes += language.Code;
    }
    codes.sort();
    EXPECT_EQ(QDir(SourceRoot + "/docs/manual").entryList({"??"}, QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name),
              codes);
}

} // namespace
} // namespace qvm::manual
