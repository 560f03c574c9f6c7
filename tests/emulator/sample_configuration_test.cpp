// The configuration files shipped in samples/hardware load as they say, one
// by one and as a folder.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "Velarion/VelarionLibrary.h"
#include "device/device_fixture.h"

using namespace devicetest;
namespace Devices = VelarionEmulator::Devices;
using Strings = std::vector<std::string>;

namespace {

const std::filesystem::path kSamples =
    std::filesystem::path(__FILE__).parent_path().parent_path().parent_path() / "samples" / "hardware";

class SampleConfiguration : public ::testing::Test {
 protected:
  void SetUp() override {
    resetEmulator();
    library.getLoggingInterface().redirectLoggingToNull();
  }
  void TearDown() override { resetEmulator(); }
  bool load(const std::string& name) { return library.reloadHardwareConfigurations((kSamples / name).string().c_str()); }
  Velarion::VelarionLibrary library;
};

}  // namespace

TEST_F(SampleConfiguration, EachFileDescribesTheArraysItsCommentsPromise) {
  ASSERT_TRUE(load("1-single-array.vlcfg"));
  EXPECT_EQ(Devices::identifiers(), Strings{"DESK-A16-0001"});
  Velarion::DeviceInfo desk = library.getDeviceInfoByIdentifier("DESK-A16-0001");
  EXPECT_STREQ(desk.getFirmwareVersion(), "3.2.1");
  EXPECT_EQ(desk.getTransducerConfiguration().size(), 256u);
  EXPECT_FLOAT_EQ(desk.arrayWidth(), 0.168f);
  EXPECT_TRUE(library.isDeviceConnected("DESK-A16-0001"));

  ASSERT_TRUE(load("2-side-by-side.vlcfg"));
  EXPECT_EQ(Devices::identifiers(), (Strings{"PAIR-LEFT", "PAIR-RIGHT"}));
  const Velarion::Vector3 centre(0, 0, 0);
  EXPECT_FLOAT_EQ(
      library.getDeviceInfoByIdentifier("PAIR-LEFT").getDefaultAlignment().fromDevicePositionToTrackingPosition(centre).x,
      -0.05f);
  EXPECT_FLOAT_EQ(
      library.getDeviceInfoByIdentifier("PAIR-RIGHT").getDefaultAlignment().fromDevicePositionToTrackingPosition(centre).x,
      0.05f);
  EXPECT_TRUE(library.getDeviceInfoByIdentifier("PAIR-RIGHT").hasSupportFor(
      Velarion::DeviceFeatures::MultiDeviceSynchronization));

  ASSERT_TRUE(load("3-disabled-element.vlcfg"));
  Velarion::TransducerContainer bench = library.getDeviceInfoByIdentifier("BENCH-8X8-0007").getTransducerConfiguration();
  ASSERT_EQ(bench.size(), 64u);
  for (unsigned int i = 0; i < bench.size(); ++i) EXPECT_EQ(bench.at(i).isEnabled(), i != 27) << "element " << i;
  // Element 27 is column 3 of row 3.
  EXPECT_FLOAT_EQ(bench.at(27).x_position - bench.at(24).x_position, 0.03f);
  Velarion::TransducerContainer line = library.getDeviceInfoByIdentifier("BENCH-LINE-0003").getTransducerConfiguration();
  ASSERT_EQ(line.size(), 3u);
  EXPECT_EQ(line.at(1).multiplier, 0.5f);
  EXPECT_FALSE(library.isDeviceConnected("BENCH-LINE-0003"));
}

TEST_F(SampleConfiguration, TheFolderLoadsAsOneSetInFileOrder) {
  ASSERT_TRUE(library.reloadHardwareConfigurations(kSamples.string().c_str()));
  EXPECT_EQ(Devices::identifiers(),
            (Strings{"DESK-A16-0001", "PAIR-LEFT", "PAIR-RIGHT", "BENCH-8X8-0007", "BENCH-LINE-0003"}));
}
