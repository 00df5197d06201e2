#pragma once

#include "Oberflaeche.h"

/// Opens the windows of holidays, clocks and guests one after the other on the data of the folder and prints, in
/// milliseconds until it was painted, how long that took and what a key takes there.
void measureTimes(qvm::Programm& programm, qvm::ui::Oberflaeche& windows);
