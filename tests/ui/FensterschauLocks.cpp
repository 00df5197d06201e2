// The windows where locks and their units are set up.

#include "Fensterschau.h"

#include <QMenu>

#include <string>
#include <utility>

namespace qvm::test {
namespace {

constexpr int ShownLock = 3; ///< whose units are shown

} // namespace

/// The locks of the house with settings that the files do not have.
void Fensterschau::lockTable() {
    F12& f12 = programm_->Locks->F12;
    Grid& grid = f12.FGK12;
    adapters();
    f12.F12_FormLaden();
    f12.Tabelle.Offsets[1] = {"Abends", "OFST0x01"};
    f12.Tabelle.GroupTableLock[1].Name = "Nachts verriegelt";
    f12.Aendern(Word::StepEdit, [&] {
        grid.SetText(1, LockColumn::Group, "Nachts verriegelt");
        grid.SetText(1, LockColumn::AdapterId, "/46/108/1/2");
        grid.SetText(2, LockColumn::Offset, "Abends");
        grid.SetText(2, LockColumn::DoorMode, programm_->kern.Zeile(Line::CommonDoor));
        grid.SetText(3, LockColumn::Priority, "5");
        grid.SetPicture(1, LockColumn::FirstSwitch + 1, LockPicture::Off);
        grid.SetPicture(1, LockColumn::Emi, LockPicture::On);
        grid.SetPicture(2, LockColumn::Emi, LockPicture::NotApplicable);
        grid.SetPicture(3, LockColumn::Emi, LockPicture::Off);
        grid.SetText(3, LockColumn::Serial, grid.Text(1, LockColumn::Serial)); // two locks with one number
    });
    f12.Auswahl.Go(ShownLock, LockColumn::Name);
}

void Fensterschau::lockSettings() {
    F12& f12 = programm_->Locks->F12;
    ui::F12Window& window = windows_->Locks.f12;
    lockTable();
    take(window, "F12");
    f12.Auswahl.Go(1, LockColumn::FirstSwitch);
    f12.Auswahl.Extend(ShownLock, LockColumn::LastSwitch);
    take(window, "F12-block");
    for (const auto& [column, name] :
         {std::pair{LockColumn::Name, "F12-editor"}, std::pair{LockColumn::Group, "F12-list"},
          std::pair{LockColumn::Priority, "F12-priority"}}) {
        f12.FGK12_DblClick(2, column);
        take(window, name);
        f12.Editor_KeyPress(Key::Escape);
    }
    f12.Auswahl.Go(2, LockColumn::Serial);
    f12.FGK12_KeyPress('0');
    f12.Serie_Change(0, "0A");
    take(window, "F12-serial");
    f12.Serie_KeyPress(1, Key::Escape);
    lockMenus();
    unitSettings();
    f12.Tabelle.LockDirty = false;
    f12.F12_Schliessen();
    programm_->Main->F2.Timer2.Stop();
}

void Fensterschau::lockMenus() {
    ui::F12Window& window = windows_->Locks.f12;
    for (const auto& [menu, name] :
         {std::pair{"F12.F12_Extras.Menu", "F12-extras"}, std::pair{"F12.Sichern.Menu", "F12-reports"},
          std::pair{"F12.F12_del", "F12-delete"}, std::pair{"F12.FGK12_AN", "F12-read"}}) {
        auto* popup = window.findChild<QMenu*>(QLatin1String(menu));
        popup->popup(window.mapToGlobal(QPoint(20, 20)));
        take(*popup, name);
        popup->close();
    }
}

void Fensterschau::unitSettings() {
    F20& f20 = programm_->Locks->F20;
    ui::F20Window& window = windows_->Locks.f20;
    programm_->Locks->F12.Auswahl.Go(ShownLock, LockColumn::Serial);
    programm_->Locks->F12.SNA_Function_Click();
    f20.Combo1_Click(1);
    f20.Combo3_Click(12);
    f20.FGK20.SetText(1, UnitColumn::Name, "Tastatur Eingang");
    f20.Unit_Uebernehmen(1, "01.60.00.05", "1");
    f20.FGK20.SetText(2, UnitColumn::Name, "Leser Serverraum");
    f20.Unit_Uebernehmen(2, "00.00.30.01", "1");
    take(window, "F20");
    f20.FGK20_DblClick(2, UnitColumn::Name);
    take(window, "F20-editor");
    f20.Text1_KeyPress(Key::Escape);
    f20.FGK20_KeyPress('0');
    take(window, "F20-serial");
    f20.Serie_KeyPress(0, Key::Escape);
    for (const auto& [menu, name] : {std::pair{"F20.F20_Loe", "F20-delete"}, std::pair{"F20.FGK20PopUP", "F20-read"},
                                     std::pair{"F20.SN_Asave.Menu", "F20-scan"}}) {
        auto* popup = window.findChild<QMenu*>(QLatin1String(menu));
        popup->popup(window.mapToGlobal(QPoint(20, 20)));
        take(*popup, name);
        popup->close();
    }
    f20.Unit_Angekommen(f20.FGK20.Text(1, UnitColumn::Serial), 7);
    take(window, "F20-moved");
    f20.Suche_Zeigen(12, Wort(programm_->kern, Word::ScanFound, {"12", "11", "00.00.30.01", "11"}));
    take(window, "F20-searching");
    f20.Suche_Endet(std::string());
    scanned();
    f20.Command1_Click();
}

/// Five units of all kinds and signals, one of which answered poorly; then none.
void Fensterschau::scanned() {
    F19& f19 = programm_->Locks->F19;
    ui::F19Window& window = windows_->Locks.f19;
    UnitScan scan;
    scan.Entries[1] = {.Status = 1, .Serial = {0x00, 0x00, 0x30, 0x07}, .Signal = 18, .Type = 1};
    scan.Entries[2] = {.Status = ScanEntry::Well, .Serial = {0x00, 0x00, 0x30, 0x01}, .Signal = 40, .Type = 2};
    scan.Entries[5] = {.Status = ScanEntry::Well, .Serial = {0x01, 0x60, 0x00, 0x05}, .Signal = 128, .Type = 6};
    scan.Entries[7] = {.Status = ScanEntry::Well, .Serial = {0x01, 0x60, 0x00, 0x0A}, .Signal = 92, .Type = 7};
    scan.Entries[11] = {.Status = ScanEntry::Well, .Serial = {0x00, 0x00, 0x31, 0x44}, .Signal = 70, .Type = 41};
    programm_->Locks->F20.Fenster.Enabled = false;
    f19.F19_FormLaden(scan, F19Opener::Units, 1);
    f19.FGK19_DblClick(11);
    take(window, "F19");
    f19.F19_FormLaden({}, F19Opener::Units, 1);
    f19.Command2_Click();
    take(window, "F19-none");
    f19.Command1_Click();
}

} // namespace qvm::test
