#pragma once

#include "RunBinary.h"

#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace qvm::test {

/// Serials of locks 1 and 2.
inline constexpr const char *Tor = "00.0A.10.01", *Leer = "00.0A.10.02";

/// A program directory with a small installation, and the virtual lock system behind its link com1.
///
/// Lock 1 "Tor" 00.0A.10.01 has two users, lock 2 "Leer" 00.0A.10.02 has none, lock 3 "Fern" 00.0A.10.03 does not
/// exist in the virtual system. All listen on channel 5 and have the administrator code 104212. Two units of type 1,
/// "Stur" 01.60.00.01, which refuses every login, and "Leser" 01.60.00.03, belong to no lock of the files.
class VirtualLocks {
public:
    VirtualLocks();

    static constexpr const char* Code = "104212";

    /// `options`: of the virtual system, as --fault or --pace.
    void Start(const std::vector<std::string>& options = {});
    /// The same with other devices than those above, as JSON.
    void StartWorld(const nlohmann::json& world, const std::vector<std::string>& options = {});
    static nlohmann::json World();
    /// A further virtual system behind `link`, as "com2".
    std::unique_ptr<Process> Plug(const std::string& link, const nlohmann::json& world,
                                  const std::vector<std::string>& options = {});
    /// Replaces whole tables and line files of the installation.
    void Import(const nlohmann::json& tables, const nlohmann::json& lines);
    /// The same with the devices as the last virtual system left them, which has ended or is ended now.
    void Restart(const std::vector<std::string>& options = {});
    /// Ends the virtual system. What it found wrong with the telegrams, empty when nothing.
    std::string Stop();
    /// What the locks hold, after Stop.
    nlohmann::json State() const;
    nlohmann::json Lock(const std::string& serial) const;
    /// The virtual system itself; its trace, when it was started with --trace, is on standard error.
    const Process& Simulator() const { return *simulator_; }

    /// The console companion on the directory, with the code on standard input.
    RunResult Run(const std::vector<std::string>& arguments);
    std::unique_ptr<Process> Begin(const std::vector<std::string>& arguments);
    std::vector<std::string> Arguments(const std::vector<std::string>& arguments) const;
    /// The arguments on the directory, without a code.
    std::vector<std::string> Here(const std::vector<std::string>& arguments) const;
    /// The same, with this on standard input.
    RunResult RunHere(const std::vector<std::string>& arguments, const std::string& input = {}) const;

    TempDirectory Directory;

private:
    std::unique_ptr<Process> simulator_;
};

} // namespace qvm::test
