#include "PortNumbers.h"

#include "TempDirectory.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <vector>

namespace qvm {
namespace {

class PortNumbers_ : public testing::Test {
protected:
    void Link(const std::string& name, const std::string& target) const {
        std::filesystem::create_symlink(target, Directory / name);
    }

    test::TempDirectory Directory;
    const PortNumbers Numbers{Directory.Path(), std::nullopt};
    const std::vector<SerialDevice> None{};
};

using PortNumbers_Device = PortNumbers_;
using PortNumbers_Adapters = PortNumbers_;

TEST_F(PortNumbers_Device, a_number_without_a_link_is_the_usb_device_one_lower) {
    EXPECT_EQ(Numbers.Device(1), "/dev/ttyUSB0");
    EXPECT_EQ(Numbers.Device(16), "/dev/ttyUSB15");
}

TEST_F(PortNumbers_Device, a_link_comes_before_the_usb_device) {
    Link("com2", "/dev/null");
    EXPECT_EQ(Numbers.Device(2), Directory / "com2");
    EXPECT_EQ(Numbers.Device(1), "/dev/ttyUSB0");
}

TEST_F(PortNumbers_Device, a_link_that_leads_nowhere_is_still_meant) {
    Link("com1", "/dev/no-such-device");
    EXPECT_EQ(Numbers.Device(1), Directory / "com1");
}

TEST_F(PortNumbers_Device, a_plain_file_of_that_name_is_no_link) {
    std::ofstream(Directory / "com1") << "text";
    EXPECT_EQ(Numbers.Device(1), "/dev/ttyUSB0");
}

TEST_F(PortNumbers_Device, the_directory_may_come_without_a_separator) {
    Link("com3", "/dev/null");
    const std::string bare = Directory.Path().substr(0, Directory.Path().size() - 1);
    EXPECT_EQ(PortNumbers(bare, std::nullopt).Device(3), Directory / "com3");
}

TEST_F(PortNumbers_Device, a_number_out_of_range_has_no_device) {
    EXPECT_EQ(Numbers.Device(0), "");
    EXPECT_EQ(Numbers.Device(-1), "");
    EXPECT_EQ(Numbers.Device(256), "");
}

TEST_F(PortNumbers_Device, a_device_given_by_name_is_number_1_whatever_links_there_are) {
    Link("com1", "/dev/null");
    Link("com2", "/dev/null");
    const PortNumbers named(Directory.Path(), "/dev/serial/adapter");
    EXPECT_EQ(named.Device(1), "/dev/serial/adapter");
    EXPECT_EQ(named.Device(2), "");
}

TEST_F(PortNumbers_Device, is_described_by_its_path_and_a_link_by_what_it_leads_to) {
    Link("com2", "/dev/null");
    Link("com3", "com2");
    Link("com4", "/dev/no-such-device");
    EXPECT_EQ(Numbers.Describe(1), "/dev/ttyUSB0");
    EXPECT_EQ(Numbers.Describe(2), "com2 -> /dev/null");
    EXPECT_EQ(Numbers.Describe(3), "com3 -> /dev/null");
    EXPECT_EQ(Numbers.Describe(4), "com4 -> /dev/no-such-device");
    EXPECT_EQ(Numbers.Describe(0), "");
    EXPECT_EQ(Numbers.Describe(256), "");
}

TEST_F(PortNumbers_Device, given_by_name_is_described_by_that) {
    const PortNumbers named(Directory.Path(), "/dev/serial/adapter");
    EXPECT_EQ(named.Describe(1), "/dev/serial/adapter");
    EXPECT_EQ(named.Describe(2), "");
}

TEST_F(PortNumbers_Adapters, nothing_there_gives_none) {
    EXPECT_EQ(Numbers.Adapters(None), std::vector<int>{});
}

TEST_F(PortNumbers_Adapters, every_link_that_leads_somewhere_counts_in_ascending_order) {
    Link("com10", "/dev/null");
    Link("com2", "/dev/null");
    Link("com5", "/dev/no-such-device");
    Link("com0", "/dev/null");
    Link("com02", "/dev/null");
    Link("comma", "/dev/null");
    EXPECT_EQ(Numbers.Adapters(None), (std::vector{2, 10}));
}

TEST_F(PortNumbers_Adapters, devices_with_the_adapters_identity_count_others_do_not) {
    const std::vector<SerialDevice> devices{{.Name = "ttyUSB4", .Vendor = 0x067B, .Product = 0x2303},
                                            {.Name = "ttyUSB0", .Vendor = 0x0403, .Product = 0x6001},
                                            {.Name = "ttyUSB1", .Vendor = 0x067B, .Product = 0x2303},
                                            {.Name = "ttyUSB2", .Vendor = 0x067B, .Product = 0x23A3},
                                            {.Name = "ttyACM0", .Vendor = 0x067B, .Product = 0x2303},
                                            {.Name = "ttyS0", .Vendor = 0, .Product = 0},
                                            {.Name = "ttyUSB", .Vendor = 0x067B, .Product = 0x2303},
                                            {.Name = "ttyUSB3x", .Vendor = 0x067B, .Product = 0x2303},
                                            {.Name = "ttyUSB-7", .Vendor = 0x067B, .Product = 0x2303}};
    EXPECT_EQ(Numbers.Adapters(devices), (std::vector{2, 5}));
}

TEST_F(PortNumbers_Adapters, a_number_that_is_both_a_link_and_a_device_counts_once) {
    Link("com2", "/dev/null");
    const std::vector<SerialDevice> devices{{.Name = "ttyUSB1", .Vendor = 0x067B, .Product = 0x2303},
                                            {.Name = "ttyUSB0", .Vendor = 0x067B, .Product = 0x2303}};
    EXPECT_EQ(Numbers.Adapters(devices), (std::vector{1, 2}));
}

TEST_F(PortNumbers_Adapters, a_number_that_no_list_can_hold_is_left_out) {
    const std::vector<SerialDevice> devices{
        {.Name = "ttyUSB254", .Vendor = 0x067B, .Product = 0x2303},
        {.Name = "ttyUSB255", .Vendor = 0x067B, .Product = 0x2303},
        {.Name = "ttyUSB99999999999999999999", .Vendor = 0x067B, .Product = 0x2303}};
    EXPECT_EQ(Numbers.Adapters(devices), std::vector{255});
}

TEST_F(PortNumbers_Adapters, a_device_given_by_name_is_the_only_one) {
    Link("com2", "/dev/null");
    EXPECT_EQ(PortNumbers(Directory.Path(), "/dev/serial/adapter").Adapters(None), std::vector{1});
}

using PortNumbers_There = PortNumbers_;

TEST_F(PortNumbers_There, holds_every_link_that_leads_somewhere_by_its_device) {
    Link("com2", "/dev/null");
    Link("com9", "/dev/no-such-device");
    const PortsThere there = Numbers.There();
    ASSERT_TRUE(there.contains(2));
    EXPECT_FALSE(there.contains(9));
    struct stat null {};
    ASSERT_EQ(::stat("/dev/null", &null), 0);
    EXPECT_EQ(there.at(2).Device, null.st_rdev);
    EXPECT_EQ(there.at(2).Node, null.st_ino);
    EXPECT_NE(there.at(2).Link, 0U);
}

TEST_F(PortNumbers_There, is_the_same_at_a_second_look_and_another_for_another_target) {
    Link("com2", "/dev/null");
    const PortsThere there = Numbers.There();
    EXPECT_EQ(Numbers.There(), there);
    std::filesystem::remove(Directory / "com2");
    Link("com2", "/dev/zero");
    EXPECT_NE(Numbers.There(), there);
}

TEST_F(PortNumbers_There, of_a_device_given_by_name_is_that_one_alone) {
    Link("com2", "/dev/null");
    EXPECT_EQ(PortNumbers(Directory.Path(), "/dev/null").There().size(), 1U);
    EXPECT_TRUE(PortNumbers(Directory.Path(), "/dev/null").There().contains(1));
    EXPECT_TRUE(PortNumbers(Directory.Path(), "/dev/no-such-device").There().empty());
}

using PortNumbers_IsWatched = PortNumbers_;

TEST_F(PortNumbers_IsWatched, names_of_links_from_1_to_255_and_no_others) {
    EXPECT_EQ(Numbers.WatchedDirectory(), Directory.Path());
    for (const char* const name : {"com1", "com16", "com255"}) {
        EXPECT_TRUE(Numbers.IsWatched(name)) << name;
    }
    for (const char* const name : {"", "com", "com0", "com01", "com256", "com-1", "com1x", "COM1", "ttyUSB0"}) {
        EXPECT_FALSE(Numbers.IsWatched(name)) << name;
    }
}

TEST_F(PortNumbers_IsWatched, a_device_given_by_name_in_its_own_directory) {
    const PortNumbers named(Directory.Path(), "/dev/serial/adapter");
    EXPECT_EQ(named.WatchedDirectory(), "/dev/serial/");
    EXPECT_TRUE(named.IsWatched("adapter"));
    EXPECT_FALSE(named.IsWatched("com1"));
    const PortNumbers bare(Directory.Path(), "adapter");
    EXPECT_EQ(bare.WatchedDirectory(), ".");
    EXPECT_TRUE(bare.IsWatched("adapter"));
}

} // namespace
} // namespace qvm
