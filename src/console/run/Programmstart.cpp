#include "Programmstart.h"

namespace qvm {

std::string Programm_Beginnen(Programm& program, const Umgebung& world) {
    switch (Programm_Start(program, false)) {
    case StartResult::NoDirectory:
        return "The directories DAT and HIST cannot be made in " + world.AppPath + ".";
    case StartResult::DataHeld:
        return Besitz_Meldung(program.Datenbesitzer);
    case StartResult::AlreadyRunning: // not asked for
    case StartResult::Started:
        break;
    }
    return {};
}

} // namespace qvm
