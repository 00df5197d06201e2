#include "Tour.h"

#include "Fensterschau.h"

#include <QAccessible>

#include <gtest/gtest-spi.h>
#include <map>
#include <utility>

namespace qvm::test {
namespace {

constexpr Turn Turns[] = {Turn::Reads, Turn::Types, Turn::MovesFocus, Turn::Closes};

std::vector<std::pair<Tour::Make, Turn>>& entered() {
    static std::vector<std::pair<Tour::Make, Turn>> looks;
    return looks;
}

} // namespace

std::vector<std::string>& Tour::manualPlaces() {
    static std::vector<std::string> places;
    return places;
}

std::size_t Tour::enter(Make make, Turn turn) {
    entered().emplace_back(make, turn);
    return entered().size() - 1;
}

const Tour& Tour::of(std::string_view language, UiFixture& fixture) {
    static std::map<std::string, Tour, std::less<>> tours;
    auto found = tours.find(language);
    if (found == tours.end()) {
        found = tours.emplace(language, Tour(language, fixture)).first;
    }
    return found->second;
}

Tour::Tour(std::string_view language, UiFixture& fixture) {
    for (const auto& [make, turn] : entered()) {
        stops_.push_back({.Look = make(), .When = turn});
    }
    fixture.SettledLock(1, "Haupteingang");
    fixture.SettledLock(2, "Keller", "00.0A.10.02");
    fixture.SettledLock(3, "Serverraum", "01.50.0C.10");
    fixture.LanguageFiles();
    for (const char* manual : {"de", "en", "fr", "nl"}) {
        fixture.world.Disk.Files[std::string("/q/QVM_System_") + manual + ".pdf"] = "%PDF";
    }
    manualPlaces().clear();
    fixture.world.World.OpenDocumentAt = [](const std::string&, const std::string& destination) {
        manualPlaces().push_back(destination);
        return true;
    };
    fixture.world.World.OpenWithLinkedApp = [](const std::string&, const std::string&) {
        manualPlaces().emplace_back();
        return true;
    };
    QAccessible::setActive(true);
    Fensterschau(fixture.world, language).run([this](QWidget& window, const char* name) {
        SCOPED_TRACE(name);
        for (const Turn turn : Turns) {
            for (Stop& stop : stops_) {
                if (stop.When == turn) {
                    have(stop, [&](TourLook& look) { look.at(window, name); });
                }
            }
        }
    });
    for (Stop& stop : stops_) {
        have(stop, [](TourLook& look) { look.end(); });
    }
}

void Tour::have(Stop& stop, const std::function<void(TourLook& look)>& part) {
    ::testing::TestPartResultArray results;
    {
        const ::testing::ScopedFakeTestPartResultReporter reporter(
            ::testing::ScopedFakeTestPartResultReporter::INTERCEPT_ONLY_CURRENT_THREAD, &results);
        part(*stop.Look);
    }
    for (int n = 0; n < results.size(); ++n) {
        if (results.GetTestPartResult(n).failed()) {
            stop.Failures.push_back(results.GetTestPartResult(n));
        }
    }
}

const TourLook& Tour::take(std::size_t number) const {
    const Stop& stop = stops_.at(number);
    for (const ::testing::TestPartResult& failure : stop.Failures) {
        ADD_FAILURE_AT(failure.file_name(), failure.line_number()) << failure.message();
    }
    return *stop.Look;
}

} // namespace qvm::test
