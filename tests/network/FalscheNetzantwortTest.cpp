// Every code in place of the right one in the answer to every telegram of a row, from an adapter that took the telegram
// and from one that did not. The row may fail or stand still; it is marked as programmed only when it was.

#include "NetzFixture.h"
#include "Text.h"

#include <algorithm>
#include <set>
#include <vector>

namespace qvm::test {
namespace {

/// The telegrams of the row: two data blocks, two fingerprint blocks, the clock.
constexpr int RowTelegrams = 5, RowBlocks = 4;

/// What a row or an adapter knows, and four that nobody knows: those all take one way, on which nothing happens. `all`:
/// every code.
std::vector<int> WrongCodes(bool all) {
    std::vector<int> codes{0x0A, 0x0B, 0x0C, 0x0D, 0x14, 0x15, 0x16, 0x17,
                           0x1E, 0x1F, 0x20, 0xFF, 0x00, 0x05, 0x55, 0x90};
    for (int code = 0; all && code <= 0xFF; ++code) {
        codes.push_back(code);
    }
    return codes;
}

class Falsche_Netzantwort : public NetzTest, public ::testing::WithParamInterface<bool> {
protected:
    /// The adapter answers telegram `position` with `wrong`, and heeds it only when the parameter says so.
    void Adapter(int position, int wrong) {
        taken_.clear();
        programmed_ = begun_ = false;
        Geraet = [this, position, wrong](const Bytes& frame) {
            const bool here = static_cast<int>(Sent.size()) - 1 == position;
            const std::uint8_t own = here && !GetParam() ? std::uint8_t{0} : Heed(frame);
            Reply(here ? static_cast<std::uint8_t>(wrong) : own, frame[1]);
        };
    }
    /// What the adapter does with a telegram; the code of its answer.
    std::uint8_t Heed(const Bytes& frame) {
        switch (frame[27]) {
        case 0x14:
            taken_.insert(frame[1]);
            return frame[1] == 2 ? 0x15 : 0x14;
        case 0x16:
            taken_.insert(frame[1]);
            return frame[1] == RowBlocks ? 0x17 : 0x16;
        default:
            if (taken_.size() == RowBlocks && !begun_) {
                begun_ = true;
                pc.At(9000, [this] {
                    programmed_ = true;
                    Reply(0x20);
                });
            }
            return 0x1F;
        }
    }
    bool Marked(std::string_view mark) const {
        return std::any_of(Log.begin(), Log.end(),
                           [mark](const std::string& entry) { return entry.starts_with("mark " + std::string(mark)); });
    }
    /// A row from its first telegram on, until it is marked or a minute has passed.
    void Play() {
        Sent.clear();
        Lines.clear();
        SentAt.clear();
        Log.clear();
        Net_Programmieren_Beginnen(run);
        pc.RunUntil([this] { return Marked(""); }, 60000);
    }

    std::set<int> taken_; ///< numbers of the blocks
    bool begun_ = false, programmed_ = false;
};

TEST_P(Falsche_Netzantwort, programs_nothing_that_the_adapter_does_not_hold) {
    Benutzer(10);
    Fingerbenutzer(1500);
    for (int position = 0; position < RowTelegrams; ++position) {
        for (const int wrong : WrongCodes(position == 0 && GetParam())) {
            if (HasFailure()) {
                return;
            }
            SCOPED_TRACE(HexText(static_cast<unsigned>(wrong), 2) + " in answer to telegram " + Ziffern(position));
            Adapter(position, wrong);
            Play();
            if (Marked(">>")) {
                EXPECT_TRUE(programmed_);
                EXPECT_EQ(taken_.size(), std::size_t{RowBlocks});
            }
            Net_Abbrechen(run);
            pc.RunFor(10000);
        }
        // And the next row works.
        Adapter(-1, 0);
        Play();
        EXPECT_TRUE(Marked(">>"));
        pc.RunFor(10000);
    }
}

INSTANTIATE_TEST_SUITE_P(Adapters, Falsche_Netzantwort, ::testing::Bool(),
                         [](const auto& heeds) { return heeds.param ? "that_heed" : "that_do_not_heed"; });

} // namespace
} // namespace qvm::test
