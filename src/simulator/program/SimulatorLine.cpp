#include "SimulatorLine.h"

#include <CLI/CLI.hpp>

namespace qvm {

void SimulatorLine_Declare(CLI::App& app, SimulatorOptions& options, std::vector<std::string>& faults) {
    app.name("qvm-simulator");
    app.description("A virtual lock system behind a pseudo-terminal: an adapter, locks and wireless units.\n"
                    "Prints the terminal's name, then serves clients until it is ended by a signal.\n"
                    "Each line of standard input is laid on the desk, as JSON: "
                    "{\"kind\": \"key\", \"id\": \"0A141E28\"}\n"
                    "Exit code: 0 all telegrams were good, 1 wrong use or local fault, 2 faulty telegrams came.");
    app.add_option("--world", options.World, "JSON file with the adapter, the locks and the units")->type_name("FILE");
    app.add_option("--state", options.State, "JSON file for what they hold, written after each session and at the end")
        ->type_name("FILE");
    app.add_option("--adapter", options.Adapter,
                   "the adapter's name instead of the world's; one that begins ENROLLMENT1 reaches no lock")
        ->type_name("NAME");
    app.add_option("--link", options.Link, "symbolic link to the terminal, as DIR/com1; removed at the end")
        ->type_name("DIR/com1");
    app.add_flag("--pace", options.Pace, "bytes take the time that they take at 19200 baud, each way");
    app.add_option("--fault", faults,
                   "KIND@[#]N[+][=VALUE], more than once if wanted. KIND: silent, badsum, half, garbage, "
                   "refuse, late, doubled, unplug, wrong, instead; for a network adapter block, notreached, drop. N: "
                   "telegram from 0; "
                   "#: the adapter's own count "
                   "as well; +: and all behind. VALUE: reason, milliseconds, garbage in hexadecimal")
        ->type_name("FAULT");
    app.add_flag("--trace", options.Trace, "every frame on standard error");
    app.add_flag("--once", options.Once, "end when the line stays closed for two seconds after a session");
}

} // namespace qvm
