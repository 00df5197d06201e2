// Qt's own words, as those of a file dialog, in the language in use.

#include "QtWords.h"

#include "Oberflaeche.h"
#include "UiFixture.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

namespace qvm::test {
namespace {

QString CancelWord() {
    const QDialogButtonBox box(QDialogButtonBox::Cancel);
    return box.button(QDialogButtonBox::Cancel)->text().remove(QLatin1Char('&'));
}

QString FileDialogCancel() {
    QFileDialog dialog;
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    return dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Cancel)->text().remove(QLatin1Char('&'));
}

TEST(Qt_Words, are_those_of_the_language) {
    ui::QtWords words;
    words.use("Deutsch");
    EXPECT_EQ(CancelWord(), QStringLiteral("Abbrechen"));
    words.use("Francais");
    EXPECT_EQ(CancelWord(), QStringLiteral("Annuler"));
    words.use("Nederlands ");
    EXPECT_EQ(CancelWord(), QStringLiteral("Annuleren"));
    words.use("English");
    EXPECT_EQ(CancelWord(), QStringLiteral("Cancel"));
    words.use("Svenska");
    EXPECT_EQ(CancelWord(), QStringLiteral("Abbrechen"));
}

TEST(Qt_Words, go_when_nobody_needs_them) {
    { ui::QtWords().use("Deutsch"); }
    EXPECT_EQ(CancelWord(), QStringLiteral("Cancel"));
}

struct Qt_Words_Switched : UiFixture {};

TEST_F(Qt_Words_Switched, follow_the_choice_of_the_language_at_once) {
    Start("Deutsch");
    ui::Oberflaeche windows(*programm);
    EXPECT_EQ(FileDialogCancel(), QStringLiteral("Abbrechen"));
    programm->Main->F15.F15_Laden();
    programm->Main->F15.Sprachen_Click(2);
    programm->Main->F15.OK_Click();
    EXPECT_EQ(FileDialogCancel(), QStringLiteral("Annuler"));
    programm->Main->F15.F15_Laden();
    programm->Main->F15.Sprachen_Click(1);
    programm->Main->F15.OK_Click();
    EXPECT_EQ(FileDialogCancel(), QStringLiteral("Cancel"));
}

} // namespace
} // namespace qvm::test
