// Every window in every language, walked with Tab.

#include "Fensterschau.h"
#include "UiFixture.h"
#include "WidgetChecks.h"

#include <QMenu>

#include <algorithm>

namespace qvm::test {
namespace {

/// Reading order: line by line, from left to right. Controls that stand side by side are one line.
QStringList readingOrder(QWidget* window, const QStringList& names) {
    struct Place {
        QString Name;
        QRect Where;
    };
    std::vector<Place> places;
    for (const QString& name : names) {
        const auto* widget = window->findChild<QWidget*>(name);
        places.push_back({name, QRect(widget->mapTo(window, QPoint(0, 0)), widget->size())});
    }
    std::sort(places.begin(), places.end(),
              [](const Place& a, const Place& b) { return a.Where.top() < b.Where.top(); });
    QStringList order;
    for (auto line = places.begin(); line != places.end();) {
        const int bottom = line->Where.center().y();
        const auto next =
            std::find_if(line, places.end(), [bottom](const Place& place) { return place.Where.top() > bottom; });
        std::sort(line, next, [](const Place& a, const Place& b) { return a.Where.left() < b.Where.left(); });
        std::for_each(line, next, [&order](const Place& place) { order += place.Name; });
        line = next;
    }
    return order;
}

struct Tab_Walk : UiFixture, ::testing::WithParamInterface<std::string_view> {
    QStringList seen;

    void Show(const std::function<void(QWidget& window)>& check) {
        SettledLock(1, "Haupteingang");
        SettledLock(2, "Keller", "00.0A.10.02");
        SettledLock(3, "Serverraum", "01.50.0C.10");
        LanguageFiles();
        Fensterschau(world, GetParam()).run([&](QWidget& window, const char* name) {
            if (qobject_cast<QMenu*>(&window) == nullptr) {
                SCOPED_TRACE(name);
                seen += QLatin1String(name);
                check(window);
            }
        });
    }
};

TEST_P(Tab_Walk, reaches_every_control_in_reading_order) {
    Show([](QWidget& window) {
        if (window.focusWidget() != nullptr) {
            window.focusWidget()->clearFocus();
        }
        const QStringList expected = readingOrder(&window, controlsOf(&window));
        QStringList walked = tabOrder(&window);
        // The walk is a ring; where it begins is the window's own choice.
        const auto first = std::find(walked.begin(), walked.end(), expected.value(0));
        std::rotate(walked.begin(), first, walked.end());
        EXPECT_EQ(walked.join(QLatin1Char(' ')).toStdString(), expected.join(QLatin1Char(' ')).toStdString());
    });
    EXPECT_GE(seen.size(), 22);
}

TEST_P(Tab_Walk, finds_a_name_on_every_control_and_a_tip_on_every_bare_icon) {
    Show([](QWidget& window) { EXPECT_EQ(unnamedControls(&window).join(QLatin1Char('\n')).toStdString(), ""); });
    EXPECT_GE(seen.size(), 22);
}

TEST_P(Tab_Walk, finds_every_text_within_its_place) {
    Show([](QWidget& window) { EXPECT_EQ(allTextsFit(&window).join(QLatin1Char('\n')).toStdString(), ""); });
    EXPECT_GE(seen.size(), 22);
}

INSTANTIATE_TEST_SUITE_P(Languages, Tab_Walk, ::testing::ValuesIn(Languages));

} // namespace
} // namespace qvm::test
