#pragma once

#include "RunFixture.h"

#include <array>
#include <ostream>
#include <string_view>
#include <vector>

/// Every kind of run, each with a lock, users and units that make it go through all of its telegrams.
namespace qvm::test {

enum class RunKind {
    Old,
    Polled,
    LongId,
    Above,
    AboveTimers,
    TwoPass,
    HistoryOnly,
    HistoryFirst,
    Search,
    SearchHistory,
    Unit1,
    Unit2,
    BothUnits
};

inline constexpr std::array AllKinds{
    RunKind::Old,     RunKind::Polled,      RunKind::LongId,       RunKind::Above,  RunKind::AboveTimers,
    RunKind::TwoPass, RunKind::HistoryOnly, RunKind::HistoryFirst, RunKind::Search, RunKind::SearchHistory,
    RunKind::Unit1,   RunKind::Unit2,       RunKind::BothUnits};

const char* KindName(RunKind kind);
bool OnlyHistory(RunKind kind);
bool Searches(RunKind kind);
bool HasUnits(RunKind kind);
/// The lock is polled while it erases. It holds OldUser, who shows whether it erased.
bool IsPolled(RunKind kind);
LockUser OldUser();
/// The run sends templates to a unit of type 2.
bool HasFingers(RunKind kind);
std::string_view SerialOf(RunKind kind);
void PrintTo(RunKind kind, std::ostream* out);

/// One run of a kind, made anew for each disturbance.
struct Scene : RunFixture {
    explicit Scene(RunKind kindOfRun);
    void TestBody() override {}

    /// The warning about fingerprints comes with the dataset: behind the question about the history, or before it when
    /// the lock has been marked for a change of channel.
    void Start();
    /// Codes of the telegrams to devices, in order: what a fault's position counts.
    std::vector<int> DeviceCodes() const;
    /// What the devices hold behind a run that went well, whatever the one before it has left there.
    void Expect_Held();

    RunKind kind;

private:
    void Units();
};

} // namespace qvm::test
