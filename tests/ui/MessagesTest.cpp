// Message boxes and file dialogs: what becomes of a message, and of an answer.

#include "Messages.h"

#include "FileDialogs.h"
#include "Text.h"
#include "UiFixture.h"

#include <QAbstractButton>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace qvm::test {
namespace {

QStringList Texts(const QMessageBox& box, const std::vector<QMessageBox::StandardButton>& buttons) {
    QStringList texts;
    for (const auto button : buttons) {
        texts += box.button(button) == nullptr ? QStringLiteral("?") : box.button(button)->text();
    }
    return texts;
}

Message Question(Buttons choice, int defaultButton = 1) {
    return {.Text = "x", .Title = "y", .Choice = choice, .DefaultButton = defaultButton};
}

Message Told(const std::string& text) {
    return {.Text = text, .Title = "y"};
}

struct Message_Boxes : UiFixture {
    ui::MessageBoxes boxes;

    /// Presses a button of the box in front as soon as it stands.
    static void Press(QMessageBox::StandardButton button) {
        QTimer::singleShot(0, qApp, [button] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            box->button(button)->click();
        });
    }
    static void PressKey(Qt::Key key) {
        QTimer::singleShot(0, qApp, [key] {
            ASSERT_NE(QApplication::activeModalWidget(), nullptr);
            QTest::keyClick(QApplication::activeModalWidget(), key);
        });
    }
};

TEST_F(Message_Boxes, name_what_they_are_about_below_their_text) {
    QMessageBox box;
    Message message = Question(Buttons::YesNo);
    boxes.fill(box, message);
    EXPECT_EQ(box.text(), QStringLiteral("x"));
    message.About = "Schloss 3: T\xFCr";
    boxes.fill(box, message);
    EXPECT_EQ(box.text(), QString::fromUtf8("x\nSchloss 3: Tür"));
}

struct ButtonWords {
    const char* Language;
    const char *Yes, *No, *Cancel;
};

TEST_F(Message_Boxes, have_their_buttons_in_the_language_in_use) {
    for (const ButtonWords& words :
         {ButtonWords{"Deutsch", "&Ja", "&Nein", "Abbrechen"}, ButtonWords{"English", "&Yes", "&No", "Cancel"},
          ButtonWords{"Francais", "&Oui", "&Non", "Annuler"}, ButtonWords{"Nederlands", "&Ja", "&Nee", "Annuleren"}}) {
        Start(words.Language);
        boxes.setWords(programm->kern);
        QMessageBox box;
        boxes.fill(box, Question(Buttons::YesNoCancel));
        EXPECT_EQ(
            Texts(box, {QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel}),
            (QStringList{QString::fromUtf8(words.Yes), QString::fromUtf8(words.No), QString::fromUtf8(words.Cancel)}));
    }
}

TEST_F(Message_Boxes, are_english_before_a_language_is_known) {
    QMessageBox box;
    boxes.fill(box, Question(Buttons::OkCancel));
    EXPECT_EQ(Texts(box, {QMessageBox::Ok, QMessageBox::Cancel}),
              (QStringList{QStringLiteral("OK"), QStringLiteral("Cancel")}));
}

TEST_F(Message_Boxes, take_text_title_sign_and_default_button_from_the_message) {
    QMessageBox box;
    boxes.fill(box, {.Text = std::string(u8"Lösen?"_w) + "\r\n2 < 3",
                     .Title = std::string(u8"Schlösser"_w),
                     .Choice = Buttons::YesNoCancel,
                     .Sign = Icon::Question,
                     .DefaultButton = 2});
    EXPECT_EQ(box.text(), QString::fromUtf8("Lösen?\n2 < 3"));
    EXPECT_EQ(box.windowTitle(), QString::fromUtf8("Schlösser"));
    EXPECT_EQ(box.icon(), QMessageBox::Question);
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::No));
    EXPECT_EQ(box.escapeButton(), box.button(QMessageBox::Cancel));
    EXPECT_TRUE(box.textInteractionFlags().testFlag(Qt::TextSelectableByMouse));
}

TEST_F(Message_Boxes, show_the_sign_that_the_message_asks_for) {
    for (const auto& [sign, icon] :
         {std::pair{Icon::None, QMessageBox::NoIcon}, std::pair{Icon::Information, QMessageBox::Information},
          std::pair{Icon::Exclamation, QMessageBox::Warning}}) {
        QMessageBox box;
        boxes.fill(box, {.Text = "x", .Title = "y", .Sign = sign});
        EXPECT_EQ(box.icon(), icon);
    }
}

TEST_F(Message_Boxes, give_the_answer_of_the_button_pressed) {
    Press(QMessageBox::No);
    EXPECT_EQ(boxes.show(Question(Buttons::YesNoCancel)), Answer::No);
    Press(QMessageBox::Yes);
    EXPECT_EQ(boxes.show(Question(Buttons::YesNo)), Answer::Yes);
    Press(QMessageBox::Ok);
    EXPECT_EQ(boxes.show(Question(Buttons::OkCancel)), Answer::Ok);
    Press(QMessageBox::Cancel);
    EXPECT_EQ(boxes.show(Question(Buttons::OkCancel)), Answer::Cancel);
}

TEST_F(Message_Boxes, take_escape_for_no_answer) {
    PressKey(Qt::Key_Escape);
    EXPECT_EQ(boxes.show(Question(Buttons::Ok)), Answer::Ok);
    PressKey(Qt::Key_Escape);
    EXPECT_EQ(boxes.show(Question(Buttons::OkCancel)), Answer::Cancel);
    PressKey(Qt::Key_Escape);
    EXPECT_EQ(boxes.show(Question(Buttons::YesNo)), Answer::Cancel);
    PressKey(Qt::Key_Escape);
    EXPECT_EQ(boxes.show(Question(Buttons::YesNoCancel)), Answer::Cancel);
}

TEST_F(Message_Boxes, take_return_as_the_default_button) {
    PressKey(Qt::Key_Return);
    EXPECT_EQ(boxes.show(Question(Buttons::YesNo)), Answer::Yes);
    PressKey(Qt::Key_Return);
    EXPECT_EQ(boxes.show(Question(Buttons::YesNo, 2)), Answer::No);
}

TEST_F(Message_Boxes, may_stand_above_each_other) {
    Answer upper = Answer::Cancel;
    QTimer::singleShot(0, qApp, [this, &upper] {
        auto* lower = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(lower, nullptr);
        Press(QMessageBox::No);
        upper = boxes.show(Question(Buttons::YesNo));
        EXPECT_TRUE(lower->isVisible());
        lower->button(QMessageBox::Ok)->click();
    });
    EXPECT_EQ(boxes.show(Question(Buttons::OkCancel)), Answer::Ok);
    EXPECT_EQ(upper, Answer::No);
}

TEST_F(Message_Boxes, take_the_closing_by_the_frame_for_no_answer) {
    QTimer::singleShot(0, qApp, [] { QApplication::activeModalWidget()->close(); });
    EXPECT_EQ(boxes.show(Question(Buttons::YesNo)), Answer::Cancel);
}

TEST_F(Message_Boxes, put_off_what_only_tells_something_until_none_is_open) {
    QStringList told;
    const std::function<void()> answer = [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        told += box->text();
        if (told.size() == 1) {
            EXPECT_EQ(boxes.show(Told("second")), Answer::Ok);
            EXPECT_EQ(boxes.show(Told("third")), Answer::Ok);
            EXPECT_EQ(QApplication::activeModalWidget(), box);
        }
        if (told.size() < 3) {
            QTimer::singleShot(0, qApp, answer);
        }
        box->button(QMessageBox::Ok)->click();
    };
    QTimer::singleShot(0, qApp, answer);
    boxes.show(Told("first"));
    EXPECT_EQ(told, (QStringList{QStringLiteral("first"), QStringLiteral("second"), QStringLiteral("third")}));
}

TEST_F(Message_Boxes, tell_the_same_thing_once_however_often_it_comes) {
    int shown = 0;
    const std::function<void()> answer = [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        ++shown;
        for (int n = 0; n < 50; ++n) {
            boxes.show(Told("noise"));
        }
        box->button(QMessageBox::Ok)->click();
    };
    QTimer::singleShot(0, qApp, answer);
    boxes.show(Told("noise"));
    EXPECT_EQ(shown, 1);
}

TEST_F(Message_Boxes, can_be_answered_above_a_window_that_is_disabled) {
    QWidget window;
    Present(window);
    window.setEnabled(false);
    QTimer::singleShot(0, qApp, [] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        EXPECT_TRUE(box->isEnabled());
        QTest::mouseClick(box->button(QMessageBox::Yes), Qt::LeftButton);
        box->close();
    });
    EXPECT_EQ(boxes.show(Question(Buttons::YesNo)), Answer::Yes);
}

TEST_F(Message_Boxes, show_an_arrow_over_the_hourglass) {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    Qt::CursorShape inside = Qt::BlankCursor;
    QTimer::singleShot(0, qApp, [&inside] {
        inside = QGuiApplication::overrideCursor()->shape();
        qobject_cast<QMessageBox*>(QApplication::activeModalWidget())->button(QMessageBox::Ok)->click();
    });
    boxes.show(Question(Buttons::Ok));
    EXPECT_EQ(inside, Qt::ArrowCursor);
    ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    QGuiApplication::restoreOverrideCursor();
}

TEST(File_Dialogs, read_the_filter_as_the_system_writes_it) {
    EXPECT_EQ(ui::toQtFilter("Historie|*.HST|"), QStringLiteral("Historie (*.HST)"));
    EXPECT_EQ(ui::toQtFilter("Historie|*.HST"), QStringLiteral("Historie (*.HST)"));
    EXPECT_EQ(ui::toQtFilter("Vorgangsdateien (*.HST)|*.HST|"), QStringLiteral("Vorgangsdateien (*.HST)"));
    EXPECT_EQ(ui::toQtFilter("Text|*.TXT;*.CSV|Alle|*.*|"), QStringLiteral("Text (*.TXT *.CSV);;Alle (*.*)"));
    EXPECT_EQ(ui::toQtFilter(u8"Schlösser|*.SNA|"_w), QString::fromUtf8("Schlösser (*.SNA)"));
    EXPECT_EQ(ui::toQtFilter(""), QString());
    EXPECT_EQ(ui::toQtFilter("Text"), QString());
}

} // namespace
} // namespace qvm::test
