// The menus of the reports, as all three windows have them.
#include "ReportMenu.h"

#include "UiFixture.h"

#include <QAction>
#include <QMenu>

#include <gmock/gmock.h>
#include <string>
#include <vector>

namespace qvm::test {
namespace {

std::vector<std::string> shownIn(const QMenu* menu) {
    std::vector<std::string> texts;
    for (const QAction* action : menu->actions()) {
        if (action->isVisible() && action->isEnabled()) {
            texts.push_back(action->text().remove(QLatin1Char('&')).toStdString());
        }
    }
    return texts;
}

struct Report_Menu : UiFixture {
    std::vector<std::pair<ReportKind, ReportWay>> Chosen;
};

TEST_F(Report_Menu, offers_every_report_by_either_way) {
    world.World.PrintPages = [](const ReportPages&) { return PrintResult::Printed; };
    Start("English");
    Berichtsmenue reports(programm->kern, {ReportKind::People, ReportKind::Doors});
    reports.Texte_Setzen();
    QMenu extras;
    ui::addReports(&extras, reports, QStringLiteral("T"),
                   [this](ReportKind kind, ReportWay way) { Chosen.emplace_back(kind, way); });
    const std::vector<std::string> both{"Users and their locks", "Locks of the user"};
    EXPECT_EQ(shownIn(extras.findChild<QMenu*>(QStringLiteral("T.Sichern.Menu"))), both);
    EXPECT_EQ(shownIn(extras.findChild<QMenu*>(QStringLiteral("T.Drucken.Menu"))), both);
    reports.Freigeben(ReportKind::Doors, false);
    EXPECT_THAT(shownIn(extras.findChild<QMenu*>(QStringLiteral("T.Sichern.Menu"))), testing::ElementsAre(both[0]));
    EXPECT_THAT(shownIn(extras.findChild<QMenu*>(QStringLiteral("T.Drucken.Menu"))), testing::ElementsAre(both[0]));
    extras.findChild<QAction*>(QStringLiteral("T.Drucken1"))->trigger();
    extras.findChild<QAction*>(QStringLiteral("T.Sichern1"))->trigger();
    EXPECT_THAT(Chosen, testing::ElementsAre(std::pair(ReportKind::People, ReportWay::Printer),
                                             std::pair(ReportKind::People, ReportWay::Pdf)));
}

} // namespace
} // namespace qvm::test
