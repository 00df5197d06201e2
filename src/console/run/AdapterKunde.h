#pragma once

#include "Console.h"
#include "PcFacts.h"
#include "Programm.h"

#include <functional>
#include <string>

namespace qvm {

/// Which adapters there are, for the locks of one command line.
struct AdapterFrage {
    std::string Device;              ///< stands behind every port number; empty: the configuration decides
    bool FixedToo = false;           ///< asks a fixed port, too, as the kind of its adapter decides the route
    std::function<int()> Interrupts; ///< how often the operator pressed Ctrl-C
};

/// Chooses the port and, where adapters are to be found by themselves, searches them as the desktop program does. The
/// search shows each of its steps, and ends at once at Ctrl-C; false then. Nothing of it is saved.
bool Adapter_Kennenlernen(Programm& program, const Console& console, const AdapterFrage& question);

/// Asks the adapter behind one port who it is, if the port can be had: one without right, and one that another program
/// holds, is not opened. Sets Asked, Version and AdapterName, or Held and Refusal. Each step is shown. Ends at once at
/// Ctrl-C, of which `interrupts` tells. Behind it request-to-send is off and the port closed.
void Adapter_Fragen(Programm& program, const Console& console, PortFacts& port, const std::function<int()>& interrupts);

/// All goes through port 1, whatever configuration and lock table name. In memory only.
void Port_Festlegen(Programm& program);

/// A step of a search as a line for the operator.
std::string Suchzeile(const SuchSchritt& step, const std::string& device);

} // namespace qvm
