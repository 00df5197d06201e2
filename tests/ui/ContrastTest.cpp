// Every text of every window against its ground, under the colours of real desktops.

#include "Bind.h"
#include "ClearStyle.h"
#include "Fensterschau.h"
#include "GridView.h"
#include "PaintedTexts.h"
#include "Palettes.h"
#include "Theme.h"
#include "UiFixture.h"

#include <QAction>
#include <QMenu>

#include <utility>

namespace qvm::test {
namespace {

constexpr double EnoughForText = 4.5, EnoughForDisabled = 3, EnoughForSign = 3;

struct Painted_Contrast : UiFixture, ::testing::WithParamInterface<DesktopPalette> {
    QPalette before = QApplication::palette();
    int texts = 0;

    Painted_Contrast() {
        QApplication::setStyle(new ui::ClearStyle(QStringLiteral("Fusion")));
        dressProgram(QString::fromStdString(GetParam().Name));
    }
    ~Painted_Contrast() override {
        QApplication::setPalette(before);
        QApplication::setStyle(QStringLiteral("Fusion"));
    }

    /// What the guidelines ask of this text: of a control that cannot be used now it is less, as is a sign in a colour
    /// of its own that a cell holds instead of a text.
    static double Enough(QWidget& window, const PaintedText& text) {
        const QPoint middle = text.Where.center();
        if (auto* menu = qobject_cast<QMenu*>(&window)) {
            const QAction* action = menu->actionAt(middle);
            return action == nullptr || action->isEnabled() ? EnoughForText : EnoughForDisabled;
        }
        QWidget* widget = window.childAt(middle);
        if (widget == nullptr) {
            return EnoughForText;
        }
        if (auto* grid = qobject_cast<ui::GridView*>(widget->parentWidget());
            grid != nullptr && text.Text.size() == 1) {
            const QModelIndex cell = grid->indexAt(widget->mapFrom(&window, middle));
            if (cell.isValid() && cell.data(ui::GridModel::ForeColourRole).value<Colour>() != Black) {
                return EnoughForSign;
            }
        }
        const bool otherDay = widget->parentWidget()->objectName() == QLatin1String("qt_calendar_calendarview") &&
                              text.Ink.rgb() == widget->palette().color(QPalette::Disabled, QPalette::Text).rgb();
        return widget->isEnabled() && !ui::isWaiting(widget) && !otherDay ? EnoughForText : EnoughForDisabled;
    }

    void Check(QWidget& window, const char* name) {
        for (const PaintedText& text : paintedTexts(window)) {
            ++texts;
            const double ratio = wcagContrast(text.Ink, text.Ground);
            EXPECT_GE(ratio, Enough(window, text))
                << name << ": \"" << text.Text.toStdString() << "\" " << text.Ink.name().toStdString() << " on "
                << text.Ground.name().toStdString();
        }
    }
};

TEST_P(Painted_Contrast, every_text_can_be_read_on_its_ground) {
    SettledLock(1, "Haupteingang");
    SettledLock(2, "Keller", "00.0A.10.02");
    SettledLock(3, "Serverraum", "01.50.0C.10");
    LanguageFiles();
    Fensterschau(world, "Deutsch").run([this](QWidget& window, const char* name) { Check(window, name); });
    EXPECT_GE(texts, 500);
}

INSTANTIATE_TEST_SUITE_P(Palettes, Painted_Contrast, ::testing::ValuesIn(desktopPalettes()));

TEST(weakText, stands_back_behind_the_text_and_can_be_read) {
    for (const auto& [text, ground] :
         {std::pair{QColor(252, 252, 252), QColor(42, 46, 50)}, std::pair{QColor(49, 54, 59), QColor(239, 240, 241)},
          std::pair{QColor(Qt::white), QColor(Qt::black)}}) {
        const QColor weak = ui::weakText(text, ground);
        EXPECT_GE(wcagContrast(weak, ground), 4.5);
        EXPECT_LT(wcagContrast(weak, ground), wcagContrast(text, ground));
    }
}

TEST(weakText, is_the_text_where_that_is_hardly_legible_itself) {
    const QColor text(130, 130, 130);
    EXPECT_EQ(ui::weakText(text, QColor(200, 200, 200)).rgb(), text.rgb());
}

TEST(legiblePalette, lifts_what_is_too_weak_under_every_desktop) {
    for (const DesktopPalette& desktop : desktopPalettes()) {
        SCOPED_TRACE(desktop.Name);
        const QPalette palette = ui::legiblePalette(desktop.Colours);
        const auto ratio = [&palette](QPalette::ColorGroup group, QPalette::ColorRole text,
                                      QPalette::ColorRole ground) {
            return wcagContrast(palette.color(group, text), palette.color(QPalette::Active, ground));
        };
        EXPECT_EQ(palette.color(QPalette::PlaceholderText).alpha(), 255);
        EXPECT_GE(ratio(QPalette::Active, QPalette::PlaceholderText, QPalette::Base), 4.5);
        EXPECT_GE(ratio(QPalette::Active, QPalette::HighlightedText, QPalette::Highlight), 4.5);
        EXPECT_GE(ratio(QPalette::Disabled, QPalette::WindowText, QPalette::Window), 3);
        EXPECT_GE(ratio(QPalette::Disabled, QPalette::ButtonText, QPalette::Button), 3);
        EXPECT_GE(ratio(QPalette::Disabled, QPalette::Text, QPalette::Base), 3);
    }
}

TEST(legiblePalette, leaves_alone_what_can_be_read) {
    const QPalette before = desktopPalettes()[2].Colours; // adwaita-dark
    const QPalette after = ui::legiblePalette(before);
    for (const QPalette::ColorRole role : {QPalette::Window, QPalette::WindowText, QPalette::Base, QPalette::Text,
                                           QPalette::Button, QPalette::Highlight, QPalette::HighlightedText}) {
        EXPECT_EQ(after.color(QPalette::Active, role), before.color(QPalette::Active, role)) << role;
    }
    EXPECT_EQ(after.color(QPalette::Disabled, QPalette::WindowText),
              before.color(QPalette::Disabled, QPalette::WindowText));
}

} // namespace
} // namespace qvm::test
