#pragma once

#include "SimulatorLoop.h"

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace qvm {

/// Declares the command line of `qvm-simulator`, which fills `options`, its faults as they were typed into `faults`.
/// Both must live as long as `app`.
void SimulatorLine_Declare(CLI::App& app, SimulatorOptions& options, std::vector<std::string>& faults);

} // namespace qvm
