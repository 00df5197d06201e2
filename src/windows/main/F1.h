#pragma once

#include "Controls.h"
#include "Kern.h"

#include <string>
#include <string_view>

namespace qvm {

/// Window F1, the about box. Texts beside the catalogue's are the program's own and not translated.
struct F1 {
    explicit F1(Kern& kernel) : kern(kernel) {}

    Kern& kern;
    Window Fenster;
    Label VersionLabel;   ///< "QVM 7702 SOFTWARE SYSTEM - Version 4.2c"
    Label AdapterLabel;   ///< "USB Wireless Adapter - ..."; hidden while no adapter has told its version
    Label CipherLabel;    ///< which cipher is in use
    Label DirectoryLabel; ///< the directory of the data files
    Label LicenceLabel;   ///< libraries that the program uses, with their licences, one a line
    Button Web;           ///< opens the support page in the browser; not there without one
    Button OK;

    std::string CipherText;  ///< set by the front end before the window opens
    std::string SupportPage; ///< likewise: its address, UTF-8; whoever delivers the program names theirs

    /// `adapterVersion`: version number of the adapter, 0 unknown.
    void F1_Laden(int adapterVersion);
    /// Words from the catalogue anew.
    void Texte_Setzen();
    /// Opens the support page; a message names it when the system refuses.
    void Web_Click();
    void OK_Click() { Fenster.Visible = false; }

private:
    Listener words_ = Worte_Folgen(*this);
};

/// Version of the program.
inline constexpr std::string_view ProgrammVersion = "4.2c";

/// Below 10: "USB Wireless Adapter - VERSION 1. " and the number, for 1 "USB Wireless Adapter - VERSION 1.1"; from 10
/// on "USB Wireless Adapter - " with 1 plus the tens, a point and the units.
std::string Adapterversion_Text(int version);

} // namespace qvm
