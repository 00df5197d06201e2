// The line breaks at every telegram: for each kind of run, each disturbance at each position. The run must end as
// described, and the next one must work.

#include "RunKinds.h"

#include <optional>

namespace qvm::test {
namespace {

using Fault = SimFault::Kind;

/// How a run must end; nothing: it stands until the operator closes it.
struct Ending {
    std::optional<RunOutcome> Outcome;
    int Message = 0;
};

constexpr Ending Stands{std::nullopt}, Done{RunOutcome::Done}, Missing{RunOutcome::Incomplete};

/// Whose telegram it is, by what went before: the lock's until its first 0x05.
enum class Whose { Lock, Unit1, Unit2 };

Whose WhoseTelegram(RunKind kind, const std::vector<int>& codes, std::size_t position) {
    const auto first = codes.begin(), at = first + static_cast<std::ptrdiff_t>(position);
    const auto end = std::find(first, codes.end(), 0x05);
    if (!HasUnits(kind) || at <= end) {
        return Whose::Lock;
    }
    // Behind the lock a session of type 1 is 0x04, 0x3D, 0x05; one of type 2 goes from its 0x28 to its 0x03.
    const auto opened = std::find(end, codes.end(), 0x28), closed = std::find(end, codes.end(), 0x03);
    return at >= opened && at <= closed && opened != codes.end() ? Whose::Unit2 : Whose::Unit1;
}

Ending AfterSilence(RunKind kind, int code) {
    // A sign of life is repeated, and a polled lock's erase is not waited for. Nobody waits for the reply to 0x66.
    if (code == 0x66 || code == 0x08 || (IsPolled(kind) && code == 0x27)) {
        return Done;
    }
    return Stands;
}

Ending AfterNoContact(RunKind kind, int code, Whose whose, bool search) {
    if (code == 0x08) {
        return Done;
    }
    if (Searches(kind) && search) {
        return Done; // the next channels are tried, and the lock is found
    }
    if (whose == Whose::Lock) {
        return {RunOutcome::NotReached, 67};
    }
    if (whose == Whose::Unit1) {
        return Done; // one repeat of the login
    }
    const bool opening = code == 0x28 || code == 0x29 || code == 0x66;
    return opening || code == 0x27 ? Done : Ending{RunOutcome::NotReached};
}

Ending AfterRefusal65(RunKind kind, int code, Whose whose) {
    if (code == 0x08) {
        return Done;
    }
    if (whose == Whose::Unit2) {
        return AfterNoContact(kind, code, whose, false); // every reason counts alike in these sessions
    }
    return {RunOutcome::Refused, 68};
}

/// The lock's own conversation goes on until its first disconnect, or until its second when there are two passes.
Ending AfterBusy(RunKind kind, int code, Whose whose, std::size_t position) {
    if (whose == Whose::Unit2) {
        return AfterNoContact(kind, code, whose, false); // every reason counts alike in these sessions
    }
    if (code == 0x08 || code == 0x05) {
        return Done;
    }
    if (whose == Whose::Unit1) {
        return Missing; // the unit was told to disconnect before it had its setting
    }
    // There is no session to be closed before a login was heard: the lock does not answer, or is found by the search
    // that is on.
    if (position == 0) {
        return Searches(kind) ? Done : Ending{RunOutcome::NotReached, 67};
    }
    if (position == 1 && kind == RunKind::SearchHistory) {
        return {RunOutcome::NotReached, 67}; // the search passes the lock's channel and never comes back to it
    }
    return Missing; // of a lock of two passes, too: a whole one behind it does not make it good
}

Ending Expected(RunKind kind, const SimFault& fault, const std::vector<int>& codes) {
    const auto position = static_cast<std::size_t>(fault.Telegram);
    const int code = codes[position];
    const Whose whose = WhoseTelegram(kind, codes, position);
    switch (fault.What) {
    case Fault::Garbage:
    case Fault::Late:
        return Done;
    case Fault::Silent:
    case Fault::BadSum:
    case Fault::Half:
        return AfterSilence(kind, code);
    case Fault::Unplug:
        return Stands;
    case Fault::Refuse:
        switch (fault.Value) {
        case 0x64:
            return AfterNoContact(kind, code, whose, position == 0);
        case 0x65:
            return AfterRefusal65(kind, code, whose);
        case 0x67:
            return AfterBusy(kind, code, whose, position);
        default:
            return Stands;
        }
    default:
        return Stands;
    }
}

/// Reason 0x68 means nothing: the run stands unless nobody waits for that reply.
Ending ExpectedForNothing(RunKind kind, const SimFault& fault, const std::vector<int>& codes) {
    const auto position = static_cast<std::size_t>(fault.Telegram);
    const int code = codes[position];
    if (WhoseTelegram(kind, codes, position) == Whose::Unit2) {
        return AfterNoContact(kind, code, Whose::Unit2, false);
    }
    if (code == 0x27 && IsPolled(kind)) {
        return Missing; // the lock has refused to erase; the polling goes on all the same
    }
    return AfterSilence(kind, code);
}

struct Disturbed_Run : ::testing::TestWithParam<RunKind> {
    static std::vector<int> GoodCodes(RunKind kind) {
        Scene scene(kind);
        scene.Begin();
        scene.Start();
        EXPECT_TRUE(scene.Finish());
        EXPECT_EQ(scene.Outcome(), RunOutcome::Done);
        EXPECT_EQ(scene.system->JudgementLines(), "");
        return scene.DeviceCodes();
    }

    /// Closes what is left of the run, as an operator would, puts the adapter back and runs once more.
    static void Expect_Ready(Scene& scene) {
        if (!scene.programm->Run.Gesamtende) {
            scene.programm->Transfer->F9.Command1_Click();
            scene.programm->Transfer->F9.Command2_Click();
            EXPECT_EQ(scene.Outcome(), RunOutcome::Cancelled);
        }
        if (scene.programm->Transfer->F9.Fenster.Visible) {
            scene.programm->Transfer->F9.Command2_Click();
        }
        scene.world.RunFor(20000);
        scene.world.PortCanOpen = true;
        if (scene.system->Unplugged()) {
            scene.system->Plug();
        }
        scene.system->World().Faults.clear();
        EXPECT_TRUE(scene.programm->Transfer->F13.Fenster.Enabled);
        scene.Start();
        EXPECT_TRUE(scene.Finish());
        EXPECT_EQ(scene.Outcome(), RunOutcome::Done) << "the run after it";
        scene.Expect_Held();
    }

    static void Play(RunKind kind, const SimFault& fault, const Ending& expected) {
        SCOPED_TRACE(FaultText(fault));
        Scene scene(kind);
        scene.devices.Faults = {fault};
        if (expected.Message != 0) {
            scene.Expect(expected.Message);
        }
        scene.Begin();
        scene.Start();
        const bool ended = scene.Finish(60000);
        EXPECT_EQ(ended, expected.Outcome.has_value());
        if (expected.Outcome) {
            EXPECT_EQ(scene.Outcome(), *expected.Outcome);
        }
        Expect_Ready(scene);
    }

    static void Everywhere(RunKind kind, SimFault fault) {
        const std::vector<int> codes = GoodCodes(kind);
        for (std::size_t position = 0; position < codes.size() && !HasFailure(); ++position) {
            fault.Telegram = static_cast<int>(position);
            const bool nothing = fault.What == Fault::Refuse && fault.Value == 0x68;
            Play(kind, fault, nothing ? ExpectedForNothing(kind, fault, codes) : Expected(kind, fault, codes));
        }
    }
};

TEST_P(Disturbed_Run, survives_a_device_that_does_not_hear_one_telegram) {
    Everywhere(GetParam(), {.What = Fault::Silent});
}
TEST_P(Disturbed_Run, survives_a_device_that_falls_silent_for_good) {
    const std::vector<int> codes = GoodCodes(GetParam());
    for (std::size_t position = 0; position < codes.size() && !HasFailure(); ++position) {
        const SimFault fault{.What = Fault::Silent, .Telegram = static_cast<int>(position), .AndAllBehind = true};
        Play(GetParam(), fault, Stands);
    }
}
TEST_P(Disturbed_Run, survives_a_wrong_checksum_in_each_reply) {
    Everywhere(GetParam(), {.What = Fault::BadSum});
}
TEST_P(Disturbed_Run, survives_half_of_each_reply) {
    Everywhere(GetParam(), {.What = Fault::Half});
}
TEST_P(Disturbed_Run, survives_garbage_before_each_reply) {
    Everywhere(GetParam(), {.What = Fault::Garbage});
}
TEST_P(Disturbed_Run, survives_each_reply_a_second_late) {
    Everywhere(GetParam(), {.What = Fault::Late, .Value = 1000});
}
TEST_P(Disturbed_Run, survives_a_loss_of_contact_at_each_telegram) {
    Everywhere(GetParam(), {.What = Fault::Refuse, .Value = 0x64});
}
TEST_P(Disturbed_Run, survives_a_refusal_of_each_telegram) {
    Everywhere(GetParam(), {.What = Fault::Refuse, .Value = 0x65});
}
TEST_P(Disturbed_Run, survives_a_busy_device_at_each_telegram) {
    Everywhere(GetParam(), {.What = Fault::Refuse, .Value = 0x67});
}
TEST_P(Disturbed_Run, survives_a_refusal_that_means_nothing) {
    Everywhere(GetParam(), {.What = Fault::Refuse, .Value = 0x68});
}
TEST_P(Disturbed_Run, survives_an_adapter_pulled_out_at_each_telegram) {
    Everywhere(GetParam(), {.What = Fault::Unplug});
}

TEST_P(Disturbed_Run, ends_as_cancelled_whenever_the_operator_cancels) {
    const std::vector<int> codes = GoodCodes(GetParam());
    for (std::size_t count = 1; count <= codes.size() && !HasFailure(); ++count) {
        SCOPED_TRACE(count);
        Scene scene(GetParam());
        scene.Begin();
        scene.Start();
        scene.world.RunUntil([&scene, count] { return scene.DeviceCodes().size() >= count; });
        const std::string channels = scene.files.File("RFCHANDIF12.RFX");
        // Behind the last event a reading of events is at its end but for its disconnect, and has no cancel any more.
        const bool historyOnly = scene.kind == RunKind::HistoryOnly || scene.kind == RunKind::SearchHistory;
        const bool finished = historyOnly && codes[count - 1] == 0x05;
        EXPECT_EQ(scene.programm->Transfer->F9.Command1.Enabled, !finished);
        scene.programm->Transfer->F9.Command1_Click();
        const auto erases = scene.Lock(SerialOf(scene.kind)).Erases;
        // A polled lock is deaf while it erases: it gets its disconnect when it hears again.
        ASSERT_TRUE(scene.Finish(60000));
        EXPECT_EQ(scene.Outcome(), finished ? RunOutcome::Done : RunOutcome::Cancelled);
        EXPECT_EQ(scene.programm->link.Lauf.Chain.AbbruchWunsch, 0);
        EXPECT_LE(scene.Lock(SerialOf(scene.kind)).Erases, erases + (codes[count - 1] == 0x27 ? 1 : 0));
        EXPECT_EQ(scene.files.File("RFCHANDIF12.RFX"), channels);
        Expect_Ready(scene);
    }
}

TEST_P(Disturbed_Run, is_ready_again_after_each_reply_doubled) {
    // What a doubled reply does to the conversation is the device's affair; the program must come out of it.
    const std::vector<int> codes = GoodCodes(GetParam());
    for (std::size_t position = 0; position < codes.size() && !HasFailure(); ++position) {
        const SimFault fault{.What = Fault::Doubled, .Telegram = static_cast<int>(position)};
        SCOPED_TRACE(FaultText(fault));
        Scene scene(GetParam());
        scene.devices.Faults = {fault};
        scene.Begin();
        scene.Start();
        // Any message may come of it.
        scene.world.Answers = {{.Text = "*"}, {.Text = "*"}, {.Text = "*"}};
        scene.Finish(60000);
        scene.world.Answers.clear();
        Expect_Ready(scene);
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, Disturbed_Run, ::testing::ValuesIn(AllKinds),
                         [](const auto& kind) { return std::string(KindName(kind.param)); });

} // namespace
} // namespace qvm::test
