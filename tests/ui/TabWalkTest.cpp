// Every window in every language, walked with Tab.

#include "Tour.h"
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

/// A look at the windows alone: a menu has no controls.
struct WindowLook : TourLook {
    int Seen = 0;

    virtual void look(QWidget& window) = 0;

    void at(QWidget& window, const char* /*name*/) override {
        if (qobject_cast<QMenu*>(&window) == nullptr) {
            ++Seen;
            look(window);
        }
    }
    void end() override { EXPECT_GE(Seen, 22); }
};

struct Tab_Walk : UiFixture, ::testing::WithParamInterface<std::string_view> {};

struct WalkedInReadingOrder : WindowLook {
    static constexpr Turn When = Turn::MovesFocus;

    void look(QWidget& window) override {
        if (window.focusWidget() != nullptr) {
            window.focusWidget()->clearFocus();
        }
        const QStringList expected = readingOrder(&window, controlsOf(&window));
        QStringList walked = tabOrder(&window);
        // The walk is a ring; where it begins is the window's own choice.
        const auto first = std::find(walked.begin(), walked.end(), expected.value(0));
        std::rotate(walked.begin(), first, walked.end());
        EXPECT_EQ(walked.join(QLatin1Char(' ')).toStdString(), expected.join(QLatin1Char(' ')).toStdString());
    }
};

TEST_P(Tab_Walk, reaches_every_control_in_reading_order) {
    take<WalkedInReadingOrder>(GetParam(), *this);
}

struct NamedControls : WindowLook {
    static constexpr Turn When = Turn::Reads;

    void look(QWidget& window) override {
        EXPECT_EQ(unnamedControls(&window).join(QLatin1Char('\n')).toStdString(), "");
    }
};

TEST_P(Tab_Walk, finds_a_name_on_every_control_and_a_tip_on_every_bare_icon) {
    take<NamedControls>(GetParam(), *this);
}

struct FittingTexts : WindowLook {
    static constexpr Turn When = Turn::Reads;

    void look(QWidget& window) override { EXPECT_EQ(allTextsFit(&window).join(QLatin1Char('\n')).toStdString(), ""); }
};

TEST_P(Tab_Walk, finds_every_text_within_its_place) {
    take<FittingTexts>(GetParam(), *this);
}

INSTANTIATE_TEST_SUITE_P(Languages, Tab_Walk, ::testing::ValuesIn(Languages));

} // namespace
} // namespace qvm::test
