#pragma once

#include "Oberflaeche.h"

#include <string>

/// "VmRSS:" of this process, as the system says it.
std::string residentMemory();

/// Opens the user window on the data of the folder and prints, in milliseconds until it was painted, what an operator
/// does there; behind it where the keys of its tool bar are on the screen that sort and save, a line each.
void measureUsers(qvm::Programm& programm, qvm::ui::Oberflaeche& windows);

/// Opens the lock window and prints how long it took; behind it where the key of its tool bar is that saves.
void measureLocks(qvm::Programm& programm, qvm::ui::Oberflaeche& windows);
