// Why the port is not open, in whole sentences on the main window.

#include "Oberflaeche.h"
#include "PortFault.h"
#include "TextEdge.h"
#include "UiFixture.h"
#include "WidgetChecks.h"

#include <QClipboard>
#include <QLabel>
#include <QTest>

namespace qvm::test {
namespace {

constexpr PortFault::Kind Faults[] = {PortFault::Kind::NotThere,  PortFault::Kind::NoRight,
                                      PortFault::Kind::Held,      PortFault::Kind::HeldByService,
                                      PortFault::Kind::Broken,    PortFault::Kind::NoSuchNumber,
                                      PortFault::Kind::NotSerial, PortFault::Kind::Other};

struct Link_Card : UiFixture {
    std::unique_ptr<ui::Oberflaeche> windows;
    QLabel* reason = nullptr;

    void Open(std::string_view language) {
        Start(language);
        windows = std::make_unique<ui::Oberflaeche>(*programm);
        programm->Main->F2.F2_Laden();
        programm->Main->F2.Timer2.Stop();
        programm->Main->F2.Meldezeile.Text = std::string();
        Present(windows->Main.f2);
        reason = windows->Main.f2.findChild<QLabel*>(QStringLiteral("F2.Reason"));
    }
    void Tell(const PortFault& fault) {
        programm->Main->F2.Meldezeile.Text = PortFault_Text(programm->kern, fault);
        Settle();
    }
    ~Link_Card() override {
        programm->Main->F2.Hooks.Ende = {}; // no event loop to leave
        programm->Main->F2.Beenden();
    }
};

struct Link_Card_Sprachen : Link_Card, ::testing::WithParamInterface<std::string_view> {};

TEST_P(Link_Card_Sprachen, has_room_for_every_reason_at_its_longest) {
    Open(GetParam());
    const QSize before = windows->Main.f2.size();
    for (const PortFault::Kind kind : Faults) {
        for (const char* detail : {"", "brltty", "ModemManager (123456)"}) {
            Tell({kind, "/home/verwaltung/qvm7702/com16", detail});
            const QString whole = ui::toQt(programm->Main->F2.Meldezeile.Text());
            ASSERT_FALSE(whole.isEmpty());
            EXPECT_EQ(reason->text(), whole);
            EXPECT_TRUE(reason->isVisible());
            const QRect needed =
                reason->fontMetrics().boundingRect(QRect(0, 0, reason->width(), 10000), Qt::TextWordWrap, whole);
            EXPECT_LE(needed.height(), reason->height()) << whole.toStdString();
            EXPECT_LE(needed.width(), reason->width()) << whole.toStdString();
            EXPECT_EQ(allTextsFit(&windows->Main.f2), QStringList());
            EXPECT_EQ(windows->Main.f2.size(), before);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, Link_Card_Sprachen, ::testing::ValuesIn(Languages));

TEST_F(Link_Card, can_be_copied_by_mouse_and_by_keyboard) {
    Open("Deutsch");
    Tell({PortFault::Kind::NoRight, "/dev/ttyUSB0", "dialout"});
    EXPECT_TRUE(reason->textInteractionFlags().testFlag(Qt::TextSelectableByMouse));
    EXPECT_TRUE(tabOrder(&windows->Main.f2).contains(QStringLiteral("F2.Reason")));
    reason->setFocus();
    QTest::keyClick(reason, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(reason, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(
        QApplication::clipboard()->text(),
        QString::fromUtf8("Kein Zugriffsrecht auf /dev/ttyUSB0. Das Gerät gehört der Gruppe dialout: \"sudo usermod "
                          "-aG dialout $USER\" ausführen, dann ab- und wieder anmelden."));
}

TEST_F(Link_Card, goes_when_the_port_is_open_and_leaves_the_card_lower) {
    Open("Deutsch");
    Tell({PortFault::Kind::NotThere, "/dev/ttyUSB0"});
    const auto* card = windows->Main.f2.findChild<QWidget*>(QStringLiteral("F2.Card"));
    const int high = card->height();
    programm->Main->F2.Meldezeile.Text = std::string();
    Settle();
    EXPECT_FALSE(reason->isVisible());
    EXPECT_LT(card->height(), high);
}

} // namespace
} // namespace qvm::test
