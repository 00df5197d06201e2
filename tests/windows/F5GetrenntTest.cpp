// The adapter of an E-Key reader goes while a key is awaited.

#include "LeserFixture.h"

namespace qvm::test {
namespace {

TEST_F(F5_Keys, whose_adapter_is_pulled_out_are_told_not_to_come) {
    OpenDesk();
    Learn(2);
    world.RunFor(5000);
    world.PortOpen = false;
    ExpectText(ReaderPulled);
    world.RunFor(1000);
    EXPECT_EQ(programm->link.AnswerDue, 0);
    EXPECT_TRUE(Window().Fenster.Enabled);
    EXPECT_FALSE(Keys().EKeyWache.Running());
}

TEST_F(F5_Keys, are_told_nothing_of_an_adapter_that_is_pulled_out_behind_the_answer) {
    OpenDesk();
    Learn(2);
    Expect(69);
    Refuse(0x66);
    world.PortOpen = false;
    world.RunFor(5000);
    EXPECT_FALSE(Keys().EKeyWache.Running());
}

} // namespace
} // namespace qvm::test
