// The check of the PC, with each of its verdicts.

#include "Fensterschau.h"
#include "MainWindows.h"

#include <string>

namespace qvm::test {
namespace {

PcFacts sickPc() {
    PcFacts facts;
    facts.User = "anna";
    facts.Groups = {"anna", "audio", "video", "plugdev"};
    facts.Ports = {{.Number = 1,
                    .Device = "com1 -> /dev/ttyUSB0",
                    .There = true,
                    .Serial = true,
                    .Owner = "root",
                    .Group = "dialout",
                    .GroupMay = true,
                    .GroupListed = true,
                    .TimerTold = true,
                    .LatencyMs = 16,
                    .LatencyFile = "/sys/class/tty/ttyUSB0/device/latency_timer"}};
    facts.ServicesTold = true;
    facts.Services = {"ModemManager (812)"};
    facts.Now = {.Year = 2026, .Month = 3, .Day = 5, .Hour = 10, .Minute = 30};
    facts.Zone = "Etc/UTC";
    facts.ZoneThere = true;
    facts.FreeBytes = std::uint64_t{5} << 30U;
    facts.Paths["DAT"] = {
        .There = true, .Directory = true, .Readable = true, .Writable = true, .Own = true, .Mode = 0755};
    return facts;
}

} // namespace

void Fensterschau::pcCheck() {
    PcFenster& model = programm_->Main->Pc;
    model.Haken.Ansehen = [](const std::vector<int>&) { return sickPc(); };
    model.Haken.Beheben = [](const DoctorFix&) { return std::string(); };
    programm_->Main->F2.F2_Pc_Click();
    world_.RunFor(100);
    take(windows_->Main.pc, "Pc");
    model.Schliessen();
}

} // namespace qvm::test
