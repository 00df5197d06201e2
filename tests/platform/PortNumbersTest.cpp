#include "PortNumbers.h"

#include "TempDirectory.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
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

} // namespace
} // namespace qvm
