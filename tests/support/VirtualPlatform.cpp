#include "VirtualPlatform.h"

#include "Oem.h"
#include "Zeit.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <utility>

namespace qvm::test {

namespace {

constexpr std::int64_t Day = 86400000;

/// Events after which a test is taken to wait for something that never comes while timers tick on.
constexpr std::int64_t MostEvents = 10'000'000;

/// A question may be closed without an answer, which counts as Cancel.
bool Angeboten(Buttons choice, Answer answer) {
    switch (choice) {
    case Buttons::Ok:
        return answer == Answer::Ok;
    case Buttons::OkCancel:
        return answer == Answer::Ok || answer == Answer::Cancel;
    case Buttons::YesNo:
    case Buttons::YesNoCancel:
        return answer != Answer::Ok;
    }
    return false;
}

Answer Mildeste(Buttons choice) {
    for (const Answer answer : {Answer::Cancel, Answer::No}) {
        if (Angeboten(choice, answer)) {
            return answer;
        }
    }
    return Answer::Ok;
}

/// Stands in for the cipher: each byte plus the key's byte, then one place round. Depends on every byte of block and
/// key and can be undone, which is all that a test needs of it.
void Mischen(std::span<std::uint8_t, 16> block, std::span<const std::uint8_t, 16> key) {
    for (std::size_t n = 0; n < block.size(); ++n) {
        block[n] = static_cast<std::uint8_t>(block[n] + key[n]);
    }
    std::rotate(block.begin(), block.begin() + 1, block.end());
}

} // namespace

VirtualPlatform::VirtualPlatform(DateTime start) : start_(start) {
    FillWorld();
    FillPort();
}

VirtualPlatform::~VirtualPlatform() {
    for (const ScriptedAnswer& answer : Answers) {
        ADD_FAILURE() << "a message never came: " << answer.Text;
    }
    if (!DialogAnswers.empty()) {
        ADD_FAILURE() << DialogAnswers.size() << " scripted file dialogs never came";
    }
}

void VirtualPlatform::FillWorld() {
    World.Now = [this] { return ClockTime(); };
    time_.Fill(World);
    World.ProcessEvents = [this] { Wait(); };
    World.ShowMessage = [this](const Message& message) { return Show(message); };
    World.OpenFile = World.SaveFile = [this](const FileDialog& dialog) -> std::optional<std::string> {
        Dialogs.push_back(dialog);
        if (DialogAnswers.empty()) {
            ADD_FAILURE() << "unscripted file dialog: " << dialog.Title;
            return std::nullopt;
        }
        std::optional<std::string> answer = DialogAnswers.front();
        DialogAnswers.pop_front();
        return answer;
    };
    World.OpenWithLinkedApp = [this](const std::string& target, const std::string&) {
        OpenedInLinkedApp.push_back(target);
        return true;
    };
    World.AdapterPorts = [this] { return AdapterPortNumbers; };
    World.OnPortChange = [this](std::function<void(PortChange)> receiver) { PortChanged = std::move(receiver); };
    World.Hourglass = [this](bool on) {
        HourglassDepth += on ? 1 : -1;
        Hourglasses += on ? 1 : 0;
    };
    World.Files = Disk.Store();
    World.encryptData = Mischen;
    World.CharToOem = Nach_Oem;
    World.OemToChar = Von_Oem;
    World.Random = [this] {
        if (!RandomValues.empty()) {
            const double value = RandomValues.front();
            RandomValues.pop_front();
            return value;
        }
        random_ = random_ * 1664525U + 1013904223U;
        return static_cast<double>(random_) / 4294967296.0;
    };
    World.ClaimInstance = [this] { return OnlyInstance; };
}

void VirtualPlatform::FillPort() {
    World.Port.Open = [this](int number) {
        ++Opens;
        PortNumber = number;
        PortOpen = PortCanOpen && (!PortThere || PortThere(number));
        return PortOpen;
    };
    World.Port.Close = [this] {
        if (PortOpen) {
            ++Closes;
        }
        PortOpen = false;
    };
    World.Port.IsOpen = [this] { return PortOpen; };
    World.Port.SetRts = [this](bool on) { Rts = on; };
    World.Port.Write = [this](std::span<const std::uint8_t> bytes) {
        if (!PortOpen) {
            return;
        }
        Written.insert(Written.end(), bytes.begin(), bytes.end());
        if (OnWrite) {
            OnWrite(bytes);
        }
    };
    World.Port.OnByte = [this](std::function<void(std::uint8_t)> receiver) { receiver_ = std::move(receiver); };
    World.Port.LastFault = [this] {
        if (PortCanOpen && (!PortThere || PortThere(PortNumber))) {
            return PortFault();
        }
        return PortFaultNow.value_or(PortFault{.What = PortFault::Kind::NotThere, .Device = "The virtual port"});
    };
    World.Port.LastError = [this] { return PortFault_English(World.Port.LastFault()); };
}

void VirtualPlatform::Deliver(const std::vector<std::uint8_t>& bytes, int delayMs) {
    for (const std::uint8_t byte : bytes) {
        At(delayMs, [this, byte] {
            const std::function<void(std::uint8_t)> receiver = receiver_; // it may be exchanged while it runs
            if (PortOpen && receiver) {
                receiver(byte);
            }
        });
    }
}

void VirtualPlatform::At(int delayMs, std::function<void()> action) {
    time_.Plan(delayMs * VirtualTime::MicrosecondsPerMs, std::move(action));
}

bool VirtualPlatform::Step(std::int64_t until) {
    if (!time_.Step(until)) {
        return false;
    }
    if (++handled_ > MostEvents) {
        ADD_FAILURE() << "nothing but timers for " << MostEvents << " events";
        throw StuckWait{};
    }
    return true;
}

void VirtualPlatform::Wait() {
    if (!Step(VirtualTime::EndOfTime)) {
        ADD_FAILURE() << "a wait that nothing can end, " << Elapsed() << " ms after the start";
        throw StuckWait{};
    }
}

std::int64_t VirtualPlatform::After(std::int64_t ms) const {
    return time_.Microseconds() + ms * VirtualTime::MicrosecondsPerMs;
}

bool VirtualPlatform::RunUntil(const std::function<bool()>& done, std::int64_t limitMs) {
    const std::int64_t end = After(limitMs);
    while (!done()) {
        if (!Step(end)) {
            return false;
        }
    }
    return true;
}

void VirtualPlatform::RunFor(std::int64_t ms) {
    const std::int64_t end = After(ms);
    while (Step(end)) {
    }
    time_.SkipTo(end);
}

Answer VirtualPlatform::Show(const Message& message) {
    Shown.push_back(message);
    if (Answers.empty()) {
        ADD_FAILURE() << "unscripted message: " << message.Text;
        return Mildeste(message.Choice);
    }
    const ScriptedAnswer answer = Answers.front();
    if (answer.Text != "*" && answer.Text != message.Text) {
        ADD_FAILURE() << "unscripted message: " << message.Text << "\n  expected: " << answer.Text;
        return Mildeste(message.Choice);
    }
    Answers.pop_front();
    if (!Angeboten(message.Choice, answer.Reply)) {
        ADD_FAILURE() << "the scripted answer is not offered by: " << message.Text;
        return Mildeste(message.Choice);
    }
    if (answer.AfterMs > 0) {
        RunFor(answer.AfterMs);
    }
    return answer.Reply;
}

DateTime VirtualPlatform::ClockTime() const {
    const std::int64_t ofDay =
        ((std::int64_t{start_.Hour} * 60 + start_.Minute) * 60 + start_.Second) * 1000 + start_.Millisecond + Elapsed();
    const Datum date = Datum_Plus(Heute(start_), static_cast<int>(ofDay / Day));
    const auto rest = static_cast<int>(ofDay % Day);
    return {.Year = date.Year,
            .Month = date.Month,
            .Day = date.Day,
            .Hour = rest / 3600000,
            .Minute = rest / 60000 % 60,
            .Second = rest / 1000 % 60,
            .Millisecond = rest % 1000};
}

} // namespace qvm::test
