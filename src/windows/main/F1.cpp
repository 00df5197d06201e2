#include "F1.h"

#include "Text.h"
#include "Worte.h"

namespace qvm {
namespace {

constexpr std::string_view AdapterName = "USB Wireless Adapter - ";

/// The libraries that the program is linked with.
constexpr std::string_view Licences = "Qt 6: LGPL-3.0\r\nOpenSSL 3: Apache-2.0\r\nlibudev: LGPL-2.1";

} // namespace

std::string Adapterversion_Text(int version) {
    if (version >= 10) {
        return std::string(AdapterName) + std::to_string(1 + version / 10) + "." + std::to_string(version % 10);
    }
    // The blank before the number stands for all but the first version.
    return std::string(AdapterName) + "VERSION 1." + (version == 1 ? "" : " ") + std::to_string(version);
}

void F1::F1_Laden(int adapterVersion) {
    const std::string title = std::string(SystemTitle) + " - Version " + std::string(ProgrammVersion);
    Fenster.Title = title;
    VersionLabel.Text = title;
    AdapterLabel.Text = adapterVersion > 0 ? Adapterversion_Text(adapterVersion) : std::string();
    AdapterLabel.Visible = adapterVersion > 0;
    CipherLabel.Text = CipherText;
    CipherLabel.Visible = !CipherText.empty();
    DirectoryLabel.Text = AusUtf8(kern.DatPfad());
    Web.Visible = !SupportPage.empty();
    LicenceLabel.Text = std::string(Licences);
    Texte_Setzen();
    Fenster.Visible = true;
}

void F1::Texte_Setzen() {
    Web.Text = std::string("Support");
    OK.Text = Wort(kern, Line::Ok, "OK");
}

void F1::Web_Click() {
    if (!kern.Welt.OpenWithLinkedApp(SupportPage, kern.AppPath)) {
        kern.Meldung(Wort(kern, Line::CannotOpen, u8"Kann nicht geöffnet werden:"_w) + " " + SupportPage, Buttons::Ok,
                     Icon::Exclamation);
    }
}

} // namespace qvm
