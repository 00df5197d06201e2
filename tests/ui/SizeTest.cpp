// Every window on a small screen, in every language and with larger letters.

#include "Fensterschau.h"
#include "UiFixture.h"
#include "WidgetChecks.h"

#include <QMenu>

#include <tuple>

namespace qvm::test {
namespace {

/// Language, and the size of letters in percent.
using SizeCase = std::tuple<std::string_view, int>;

struct Window_Size : UiFixture, ::testing::WithParamInterface<SizeCase> {
    /// 1366 x 768 pixels at 150 % are 910 x 512 points, of which a panel takes 44; letters of another size go with as
    /// many more points.
    static constexpr int Width = 910, Height = 512 - 44, TitleBar = 30, MainWidth = 800;
    QFont before = QApplication::font();

    Window_Size() {
        QFont font = before;
        font.setPointSizeF(10.0 * Percent() / 100);
        QApplication::setFont(font);
    }
    ~Window_Size() override { QApplication::setFont(before); }

    static int Percent() { return std::get<int>(GetParam()); }

    Fensterschau Windows() {
        SettledLock(1, "Haupteingang");
        SettledLock(2, "Keller", "00.0A.10.02");
        SettledLock(3, "Serverraum", "01.50.0C.10");
        LanguageFiles();
        return {world, std::get<std::string_view>(GetParam())};
    }
};

TEST_P(Window_Size, every_window_fits_a_small_screen_with_all_its_texts) {
    const QSize room(Width * Percent() / 100, (Height - TitleBar) * Percent() / 100);
    Windows().run([&room](QWidget& window, const char* name) {
        if (qobject_cast<QMenu*>(&window) != nullptr) {
            return;
        }
        SCOPED_TRACE(name);
        window.resize(window.size().boundedTo(room));
        Settle();
        EXPECT_LE(window.width(), room.width());
        EXPECT_LE(window.height(), room.height());
        EXPECT_EQ(allTextsFit(&window).join(QLatin1Char('\n')).toStdString(), "");
    });
}

TEST_P(Window_Size, the_main_window_takes_no_more_than_800_points_of_width) {
    int seen = 0;
    Windows().runMain([&seen](QWidget& window, const char* name) {
        if (window.objectName() == QLatin1String("F2")) {
            SCOPED_TRACE(name);
            ++seen;
            EXPECT_LE(window.width(), MainWidth * Percent() / 100);
        }
    });
    EXPECT_EQ(seen, 4);
}

INSTANTIATE_TEST_SUITE_P(LanguagesAndLetters, Window_Size,
                         ::testing::Combine(::testing::ValuesIn(Languages), ::testing::Values(100, 125, 150, 200)));

} // namespace
} // namespace qvm::test
