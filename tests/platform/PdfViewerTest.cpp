#include "PdfViewer.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>

#include <gmock/gmock.h>

namespace qvm {
namespace {

using ::testing::ElementsAre;
using ::testing::Optional;

TEST(PdfViewer, is_told_the_destination_in_its_own_way) {
    EXPECT_THAT(Viewer_Aufruf("org.gnome.Evince.desktop", "/q/a b.pdf", "people"),
                Optional(ElementsAre("evince", "--named-dest=people", "/q/a b.pdf")));
    EXPECT_THAT(Viewer_Aufruf("atril.desktop", "/q/m.pdf", "people"),
                Optional(ElementsAre("atril", "--named-dest=people", "/q/m.pdf")));
    EXPECT_THAT(Viewer_Aufruf("xreader.desktop", "/q/m.pdf", "people"),
                Optional(ElementsAre("xreader", "--named-dest=people", "/q/m.pdf")));
    EXPECT_THAT(Viewer_Aufruf("okularApplication_pdf.desktop", "/q/a b.pdf", "people"),
                Optional(ElementsAre("okular", "file:///q/a%20b.pdf#people")));
    EXPECT_THAT(Viewer_Aufruf("firefox-esr.desktop", "/q/m.pdf", "people"),
                Optional(ElementsAre("firefox-esr", "file:///q/m.pdf#people")));
    EXPECT_THAT(Viewer_Aufruf("chromium.desktop", "/q/m#1.pdf", "people"),
                Optional(ElementsAre("chromium", "file:///q/m%231.pdf#people")));
}

TEST(PdfViewer, that_is_not_known_is_not_called) {
    EXPECT_EQ(Viewer_Aufruf("", "/q/m.pdf", "people"), std::nullopt);
    EXPECT_EQ(Viewer_Aufruf("xpdf.desktop", "/q/m.pdf", "people"), std::nullopt);
}

/// A desktop of scripts, in front of the real one.
class PdfViewerCalled : public ::testing::Test {
protected:
    PdfViewerCalled() {
        qputenv("PATH", folder_.path().toUtf8() + ":" + path_);
        Script("evince", "echo \"$@\" > " + Said());
    }
    ~PdfViewerCalled() override { qputenv("PATH", path_); }

    QString Said() const { return folder_.filePath("said"); }
    void Script(const QString& name, const QString& text) {
        QFile file(folder_.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\n" + text.toUtf8() + "\n");
        file.close();
        ASSERT_TRUE(file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    }
    /// What the viewer was told; it starts in its own time.
    QByteArray Told() const {
        for (int n = 0; n < 500; ++n) {
            QFile file(Said());
            if (file.open(QIODevice::ReadOnly) && file.size() > 0) {
                return file.readAll().trimmed();
            }
            QThread::msleep(10);
        }
        return "nothing";
    }

private:
    QTemporaryDir folder_;
    QByteArray path_ = qgetenv("PATH");
};

TEST_F(PdfViewerCalled, lets_timers_go_on_while_the_desktop_thinks) {
    Script("xdg-mime", "sleep 0.5; echo org.gnome.Evince.desktop");
    int ticks = 0;
    QTimer clock;
    QObject::connect(&clock, &QTimer::timeout, [&ticks] { ++ticks; });
    clock.start(20);
    EXPECT_TRUE(Pdf_Zeigen("/q/m.pdf", "people"));
    EXPECT_GE(ticks, 3) << "of 25 on an idle machine";
    EXPECT_EQ(Told(), "--named-dest=people /q/m.pdf");
}

TEST_F(PdfViewerCalled, gives_up_a_desktop_that_does_not_answer) {
    Script("xdg-mime", "exec sleep 30");
    QElapsedTimer time;
    time.start();
    EXPECT_FALSE(Pdf_Zeigen("/q/m.pdf", "people"));
    EXPECT_LT(time.elapsed(), 15000);
}

TEST_F(PdfViewerCalled, shows_nothing_where_there_is_no_desktop) {
    qputenv("PATH", "/nowhere");
    QElapsedTimer time;
    time.start();
    EXPECT_FALSE(Pdf_Zeigen("/q/m.pdf", "people"));
    EXPECT_LT(time.elapsed(), 1500) << "it need not be waited for";
}

} // namespace
} // namespace qvm
