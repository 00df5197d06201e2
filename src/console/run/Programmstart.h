#pragma once

#include "Console.h"
#include "Programm.h"

#include <string>

namespace qvm {

/// The program's start for a command that sends or writes. Gives why it cannot be, a sentence; empty when all is well.
std::string Programm_Beginnen(Programm& program, const Umgebung& world);

} // namespace qvm
