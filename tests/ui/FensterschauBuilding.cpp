// The virtual building: the main window in it, and its own window.

#include "BuildingWindow.h"
#include "Fensterschau.h"

namespace qvm::test {

void Fensterschau::virtualBuilding() {
    F2& f2 = programm_->Main->F2;
    f2.Hooks.Gebaeude = [](bool) {};
    f2.Hooks.Gebaeude_Zeigen = [] {};
    programm_->kern.ImGebaeude = true;
    f2.F2_Laden();
    f2.Timer2.Stop();
    take(windows_->Main.f2, "F2-building");
    Gebaeude building(world_.World, "/q/", std::nullopt, {});
    building.Einrichten(programm_->kern);
    GebaeudeFenster model(programm_->kern, building);
    ui::BuildingWindow window(model);
    VirtualLock& lock = building.System().World().Locks.at(0);
    lock.DataComplete = true;
    LockUser user;
    user.Name = {'N', 'a', 'c', 'h', 't', 'w', 'a', 'c', 'h', 'e'};
    user.Code = {0x12, 0x34, 0x56, 0xEE, 0xEE};
    lock.Users.assign(125, user);
    model.FormLaden();
    model.Code_Change("123456");
    model.Eingeben_Click();
    model.Code_Change("6543");
    take(window, "Gebaeude");
    programm_->kern.ImGebaeude = false;
    f2.Texte_Setzen();
}

} // namespace qvm::test
