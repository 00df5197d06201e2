// Behind a run neither the administrator code nor a key stands in the program's records.

#include "NetzlaufFixture.h"

#include <algorithm>
#include <array>
#include <span>

namespace qvm::test {
namespace {

using SecretBytes = std::vector<std::uint8_t>;

/// True when the bytes stand in this memory one behind the other, `step` apart (2: as words).
bool Stands(std::span<const std::uint8_t> memory, const SecretBytes& secret, std::size_t step) {
    for (std::size_t at = 0; at + (secret.size() - 1) * step < memory.size(); ++at) {
        std::size_t n = 0;
        while (n < secret.size() && memory[at + n * step] == secret[n]) {
            ++n;
        }
        if (n == secret.size()) {
            return true;
        }
    }
    return false;
}

template <class Record>
bool HeldBy(const Record& record, const SecretBytes& secret) {
    const std::span<const std::uint8_t> memory(reinterpret_cast<const std::uint8_t*>(&record), sizeof record);
    return Stands(memory, secret, 1) || Stands(memory, secret, 2);
}

/// Which records of the program hold the bytes.
std::string Holders(const Programm& program, const SecretBytes& secret) {
    std::string names;
    names += HeldBy(program.link, secret) ? "link " : "";
    names += Stands(program.link.TxWire, secret, 1) ? "line " : "";
    names += HeldBy(program.Transfer->F11, secret) ? "F11 " : "";
    names += HeldBy(program.Netz, secret) ? "network " : "";
    names += HeldBy(program.Transfer->F91, secret) ? "F91 " : "";
    names += HeldBy(program.Run, secret) ? "run " : "";
    return names;
}

const SecretBytes Packed{0x91, 0x82, 0x73}, Typed{9, 1, 8, 2, 7, 3};

struct Secrets : RunFixture {
    Secrets() { AddLock(1, "Tresor", Serial::S, " XXX ").AdminCode = {0x91, 0x82, 0x73}; }
};

TEST_F(Secrets, of_a_direct_run_are_gone_when_it_has_ended) {
    Begin();
    Program(1, Answer::No, "918273");
    EXPECT_EQ(Holders(*programm, Packed), "link line ");
    EXPECT_EQ(Holders(*programm, Typed), "");
    ASSERT_TRUE(Finish());
    EXPECT_EQ(Outcome(), RunOutcome::Done);
    EXPECT_EQ(Holders(*programm, Packed), "");
}

TEST_F(Secrets, of_a_refused_run_are_gone_too) {
    Begin();
    Lock(Serial::S).AdminCode = {0x11, 0x11, 0x11};
    Expect(70);
    Expect(66);
    Program(1, Answer::No, "918273");
    ASSERT_TRUE(Finish());
    EXPECT_EQ(Holders(*programm, Packed), "");
}

TEST_F(Secrets, of_a_cancelled_start_are_gone) {
    Begin();
    programm->Transfer->F11.F11_Laden(F11Opener::F13, "");
    for (const char key : std::string("918273")) {
        programm->Transfer->F11.Text1_KeyPress(key);
    }
    EXPECT_EQ(Holders(*programm, Typed), "F11 ");
    programm->Transfer->F11.Cancel_Click();
    EXPECT_EQ(Holders(*programm, Typed), "");
}

struct List_Secrets : NetzlaufFixture {
    List_Secrets() {
        AddLock(1, "Tor", "00.0A.10.01", " XXX ").AdminCode = {0x47, 0x38, 0x29};
        AddLock(2, "Keller", "00.0A.10.02", " XXX ").AdminCode = {0x47, 0x38, 0x29};
    }
};

// The code is one that no test before it had, whose bytes could still lie where a record has no value yet.

TEST_F(List_Secrets, code_and_transfer_key_are_gone_when_the_list_has_ended) {
    const SecretBytes code{0x47, 0x38, 0x29};
    const SecretBytes key(NetDevices.Adapter.Key.begin(), NetDevices.Adapter.Key.end());
    BeginNet({1});
    Prog({1, 2}, Answer::No, Answer::No, "473829");
    ASSERT_TRUE(world.RunUntil([this] { return programm->Transfer->F91.Arbeit() == F91::Work::Network; }));
    EXPECT_EQ(Holders(*programm, key), "link network ");
    EXPECT_EQ(Holders(*programm, code), "link ");
    ASSERT_TRUE(Work());
    EXPECT_EQ(Holders(*programm, key), "");
    EXPECT_EQ(Holders(*programm, code), "");
}

} // namespace
} // namespace qvm::test
