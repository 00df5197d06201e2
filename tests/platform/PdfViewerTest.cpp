#include "PdfViewer.h"

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

} // namespace
} // namespace qvm
