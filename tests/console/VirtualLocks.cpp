#include "VirtualLocks.h"

#include "Inhalt.h"

#include <csignal>
#include <gtest/gtest.h>

namespace qvm::test {

namespace {

constexpr const char* Installation = R"({"format":"qvm7702-export","version":1,"tables":{
"UserRecord":[
 {"record":1,"UserName":"Zoë","UserGroupId":"PB_2008TimA","UserRight":"1","UserCode":"918273","FingerFlag":"--",
  "LockMask":"X-X"},
 {"record":2,"UserName":"Bert","UserGroupId":"-","UserRight":"ADMI","UserCode":"405060","FingerFlag":"--",
  "LockMask":"X-X"}],
"ChannelRecord":[
 {"record":1,"LockChannel":"5","EKold":"5","TargetChannel":"5","LockChange":"0","Ekeychange":"0"},
 {"record":2,"LockChannel":"5","EKold":"5","TargetChannel":"5","LockChange":"0","Ekeychange":"0"},
 {"record":3,"LockChannel":"5","EKold":"5","TargetChannel":"5","LockChange":"0","Ekeychange":"0"}],
"LockRecord":[
 {"record":1,"Name":"Tor","Sn1":"00","Sn2":"0A","Sn3":"10","Sn4":"01","Switch5":"X"},
 {"record":2,"Name":"Leer","Sn1":"00","Sn2":"0A","Sn3":"10","Sn4":"02","Switch5":"X"},
 {"record":3,"Name":"Fern","Sn1":"00","Sn2":"0A","Sn3":"10","Sn4":"03","Switch5":"X"},
 {"record":4,"Name":"Ohne Serie"}],
"LockPrioRecord":[{"record":1,"Prio":"5","Spare1":"3","Spare2":"3","Spare3":"3"}],
"LockEmiRecord":[{"record":1,"Emi":"X"},{"record":2,"Emi":"Y"}]},
"lines":{"EST7CSB29A.I_1":["English","1","USB-Port1","5"],"CHEUSB25C.I_2":["RESET"]}})";

constexpr const char* Devices = R"({"adapter":{"name":"PROGSTATION-1"},"locks":[
{"label":"Tor","serial":"00.0A.10.01","admin_code":"104212","channel":5,"history":[
 {"day":7,"month":3,"year":20,"hour":9,"minute":5,"name":"Zo\u00eb","event":18},
 {"day":6,"month":3,"year":20,"hour":23,"minute":59,"name":"Bert","event":1},
 {"day":5,"month":3,"year":19,"hour":0,"minute":0,"name":"Old","event":10},
 {"day":4,"month":3,"year":19,"hour":0,"minute":0,"name":"Older","event":10}]},
{"label":"Leer","serial":"00.0A.10.02","admin_code":"104212","channel":5}],"units":[
{"label":"Stur","serial":"01.60.00.01","type":1,"admin_code":"104212","channel":5,"login_status":2},
{"label":"Leser","serial":"01.60.00.03","type":1,"admin_code":"104212","channel":5}]})";

} // namespace

VirtualLocks::VirtualLocks() {
    Directory.Write("QVM_English.DAT", Inhalt(QVM_BINARY_DIR "/lang/QVM_English.DAT"));
    const RunResult imported = Qvmctl({"--dir", Directory.Path(), "import", "-"}, Installation);
    EXPECT_EQ(imported.Code, 0) << imported.Err;
}

void VirtualLocks::Start(const std::vector<std::string>& options) {
    StartWorld(World(), options);
}

nlohmann::json VirtualLocks::World() {
    return nlohmann::json::parse(Devices);
}

void VirtualLocks::Restart(const std::vector<std::string>& options) {
    if (simulator_->Id() > 0) {
        Stop();
    }
    nlohmann::json world = State();
    world.erase("faults");
    StartWorld(world, options);
}

void VirtualLocks::StartWorld(const nlohmann::json& json, const std::vector<std::string>& options) {
    std::vector<std::string> all{"--state", Directory.Path() + "state.json"};
    all.insert(all.end(), options.begin(), options.end());
    simulator_ = Plug("com1", json, all);
}

std::unique_ptr<Process> VirtualLocks::Plug(const std::string& link, const nlohmann::json& world,
                                            const std::vector<std::string>& options) {
    std::vector<std::string> arguments{"--world", Directory.Write(link + ".json", world.dump()), "--link",
                                       Directory.Path() + link};
    arguments.insert(arguments.end(), options.begin(), options.end());
    auto simulator = std::make_unique<Process>(QVM_BINARY_DIR "/src/simulator/program/qvm-simulator", arguments);
    EXPECT_TRUE(simulator->WaitFor("/dev/"));
    return simulator;
}

void VirtualLocks::Import(const nlohmann::json& tables, const nlohmann::json& lines) {
    const nlohmann::json document{{"format", "qvm7702-export"}, {"version", 1}, {"tables", tables}, {"lines", lines}};
    const RunResult imported = Qvmctl({"--dir", Directory.Path(), "import", "-"}, document.dump());
    EXPECT_EQ(imported.Code, 0) << imported.Err;
}

std::string VirtualLocks::Stop() {
    simulator_->Signal(SIGTERM);
    return simulator_->Wait().Err;
}

nlohmann::json VirtualLocks::State() const {
    return nlohmann::json::parse(Directory.Read("state.json"));
}

nlohmann::json VirtualLocks::Lock(const std::string& serial) const {
    const nlohmann::json state = State();
    for (const nlohmann::json& lock : state["locks"]) {
        if (lock["serial"] == serial) {
            return lock;
        }
    }
    return {};
}

std::vector<std::string> VirtualLocks::Arguments(const std::vector<std::string>& arguments) const {
    std::vector<std::string> all = Here(arguments);
    all.insert(all.end(), {"--code-from", "-"});
    return all;
}

std::vector<std::string> VirtualLocks::Here(const std::vector<std::string>& arguments) const {
    std::vector<std::string> all{"--dir", Directory.Path()};
    all.insert(all.end(), arguments.begin(), arguments.end());
    return all;
}

RunResult VirtualLocks::RunHere(const std::vector<std::string>& arguments, const std::string& input) const {
    return Qvmctl(Here(arguments), input);
}

RunResult VirtualLocks::Run(const std::vector<std::string>& arguments) {
    return Begin(arguments)->Wait();
}

std::unique_ptr<Process> VirtualLocks::Begin(const std::vector<std::string>& arguments) {
    return std::make_unique<Process>(QvmctlPath(), Arguments(arguments), std::string(Code) + "\nrest\n");
}

} // namespace qvm::test
