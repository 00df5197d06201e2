#include "Hauptprogramm.h"

namespace qvm {

ExitCode Befehl_Ausfuehren(const Umgebung& world, const Console& console, const Optionen& options) {
    switch (options.Wanted) {
    case Command::Program:
    case Command::History:
    case Command::Run:
        return Befehl_Lauf(world, console, options);
    case Command::Events:
        return Befehl_Ereignisse(world, console, options);
    case Command::Dataset:
        return Befehl_Dataset(world, console, options.Locks.front(), options.Force);
    case Command::Export:
        return Befehl_Export(world, console, options.File);
    case Command::Import:
        return options.Csv ? Befehl_Tabelle(world, console, options) : Befehl_Import(world, console, options.File);
    case Command::Report:
        return Befehl_Bericht(world, console, options);
    case Command::Check:
        return Befehl_Check(world, console);
    case Command::Decode:
        return Befehl_Decode(world, console, options.File);
    case Command::Users:
        return Befehl_Benutzer(world, console, options);
    case Command::Locks:
        return Befehl_Schloesser(world, console, options);
    case Command::Units:
        return Befehl_Units(world, console, options);
    case Command::ChangeCode:
    case Command::UnitCode:
        return Befehl_Code(world, console, options);
    case Command::Scan:
        return Befehl_Suche(world, console, options);
    case Command::Times:
        return Befehl_Zeiten(world, console);
    case Command::When:
        return Befehl_Zutritt(world, console, options);
    case Command::Learn:
        return Befehl_Anlernen(world, console, options);
    case Command::FindKey:
    case Command::SyncKey:
        return Befehl_Key_Suchen(world, console, options);
    case Command::Card:
        return Befehl_Karte(world, console, options);
    case Command::Doctor:
        return Befehl_Doktor(world, console, options);
    }
    return ExitCode::Fault;
}

} // namespace qvm
