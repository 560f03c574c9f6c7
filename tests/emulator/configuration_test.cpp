// Hardware configuration files and run-time devices of the emulator, through
// the device library's own API.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <chrono>
#include <string>
#include <vector>

#include "Velarion/Alignment.h"
#include "Velarion/VelarionLibrary.h"
#include "device/device_fixture.h"
#include "emulator/emulator_threads.h"

using namespace devicetest;
namespace Devices = VelarionEmulator::Devices;
using Strings = std::vector<std::string>;

namespace {

class Configuration : public ::testing::Test {
 protected:
  void SetUp() override {
    resetEmulator();
    library.getLoggingInterface().redirectLoggingToNull();
  }
  void TearDown() override { resetEmulator(); }
  Velarion::VelarionLibrary library;
  ScratchFolder folder;
};

const char* const kLab = R"(# two arrays of a lab rig
[device]
identifier = LAB-A
model = LAB8
description = Lab array A   # comment after a value
serial = 0001
features = amplitude_modulation
connected = no
alignment = 1 0 0  0 1 0  0 0 1  0.5 0 0
grid = 8 4 0.01 0.02
disabled = 0 31

[device]
identifier = LAB-B
model = RING
features = none
transducer = 0.05 0 0  0 0 1  1
transducer = -0.05 0 0  0 0 1  0.5
transducer = 0 0.02 0  0 0 1  1
)";

}  // namespace

TEST_F(Configuration, ReadsEveryKeyOfAFile) {
  ASSERT_TRUE(library.reloadHardwareConfigurations(folder.write("lab.vlcfg", kLab).c_str()));
  EXPECT_EQ(Devices::identifiers(), (Strings{"LAB-A", "LAB-B"}));

  Velarion::DeviceInfo a = library.getDeviceInfoByIdentifier("LAB-A");
  EXPECT_STREQ(a.getModelDescription(), "Lab array A");
  EXPECT_STREQ(a.getSerialNumber(), "0001");
  EXPECT_STREQ(a.getFirmwareVersion(), "");
  EXPECT_TRUE(a.hasSupportFor(Velarion::DeviceFeatures::AmplitudeModulation));
  EXPECT_FALSE(a.hasSupportFor(Velarion::DeviceFeatures::TimePointStreaming));
  EXPECT_FALSE(library.isDeviceConnected("LAB-A"));
  EXPECT_FLOAT_EQ(a.arrayWidth(), 0.08f);
  EXPECT_FLOAT_EQ(a.arrayDepth(), 0.08f);
  Velarion::TransducerContainer grid = a.getTransducerConfiguration();
  ASSERT_EQ(grid.size(), 32u);
  EXPECT_FALSE(grid.at(0).isEnabled());
  EXPECT_TRUE(grid.at(1).isEnabled());
  EXPECT_FALSE(grid.at(31).isEnabled());
  EXPECT_FLOAT_EQ(grid.at(8).y_position - grid.at(0).y_position, 0.02f);
  EXPECT_FLOAT_EQ(a.getDefaultAlignment().fromDevicePositionToTrackingPosition({0, 0, 0}).x, 0.5f);

  Velarion::DeviceInfo b = library.getDeviceInfoByIdentifier("LAB-B");
  EXPECT_EQ(static_cast<int>(b.getSupportedFeatures()), 0);
  EXPECT_TRUE(library.isDeviceConnected("LAB-B"));
  Velarion::TransducerContainer ring = b.getTransducerConfiguration();
  ASSERT_EQ(ring.size(), 3u);
  EXPECT_EQ(ring.at(1).multiplier, 0.5f);
  EXPECT_FLOAT_EQ(b.arrayWidth(), 0.1f);  // extent of the element centres
  EXPECT_FLOAT_EQ(b.arrayDepth(), 0.02f);
}

TEST_F(Configuration, MalformedFilesChangeNothingAndSayWhy) {
  LogCapture log(library.getLoggingInterface());
  const std::string device = "[device]\nidentifier = X\nmodel = M\n";
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"identifier = X\n", ":1: expected \"key = value\" inside a [device] section"},
      {"[devices]\n", ":1: unknown section"},
      {device + "grid = 2 2 0.01\ncolour = red\n", ":5: unknown key \"colour\""},
      {device + "grid = 2 2 0.01\nmodel = N\n", ":5: \"model\" given twice"},
      {device + "grid = 2 2 -0.01\n", ":4: grid pitch must be positive"},
      {device + "grid = 2 0 0.01\n", ":4: grid needs"},
      {device + "transducer = 0 0 0 0 0 1\n", ":4: transducer needs seven numbers"},
      {device + "transducer = 0 0 0 0 0 1 inf\n", ":4: transducer needs seven numbers"},
      {device + "grid = 2 2 0.01\nalignment = 1 0 0\n", ":5: alignment needs twelve numbers"},
      {device + "grid = 2 2 0.01\ndisabled = 4\n", ":1: device \"X\": disabled element 4 does not exist"},
      {device, ":1: device \"X\" has no transducers"},
      {"[device]\nmodel = M\ngrid = 1 1 1\n", ":1: device has no identifier"},
      {device + "grid = 1 1 1\n" + device + "grid = 1 1 1\n", ":5: identifier \"X\" used twice"},
      {device + "grid = 1 1 1\nfeatures = teleportation\n", ":5: unknown feature \"teleportation\""},
      {device + "grid = 1 1 1\nconnected = maybe\n", ":5: connected must be yes or no"},
  };
  for (const auto& [text, why] : cases) {
    const std::string path = folder.write("bad.vlcfg", text);
    EXPECT_FALSE(library.reloadHardwareConfigurations(path.c_str())) << text;
    EXPECT_TRUE(log.saw(1, path + why)) << "expected error: " << path + why;
    EXPECT_EQ(Devices::identifiers(), (Strings{"VLA16-2A1F0031", "VLC10-5B330107"}));
  }
  EXPECT_FALSE(library.reloadHardwareConfigurations(folder.file("missing.vlcfg").c_str()));
  EXPECT_TRUE(log.saw(1, "cannot read"));
}

TEST_F(Configuration, FoldersLoadEveryConfigurationFileInNameOrder) {
  ScratchFolder rig;
  rig.write("2-second.vlcfg", "[device]\nidentifier = B\nmodel = M\ngrid = 1 1 1\n");
  rig.write("1-first.vlcfg", "[device]\nidentifier = A\nmodel = M\ngrid = 1 1 1\n");
  rig.write("notes.txt", "not a configuration");
  ASSERT_TRUE(library.reloadHardwareConfigurations(rig.path().c_str()));
  EXPECT_EQ(Devices::identifiers(), (Strings{"A", "B"}));

  // One identifier in two files is as bad as in one.
  rig.write("3-again.vlcfg", "[device]\nidentifier = A\nmodel = M\ngrid = 1 1 1\n");
  EXPECT_FALSE(library.reloadHardwareConfigurations(rig.path().c_str()));
  EXPECT_FALSE(library.reloadHardwareConfigurations(folder.path().c_str()));  // no .vlcfg files
  EXPECT_EQ(Devices::identifiers(), (Strings{"A", "B"}));

  // The built-in configuration is itself a valid file.
  ASSERT_TRUE(library.reloadHardwareConfigurations(folder.write("x.vlcfg", Devices::builtInConfiguration()).c_str()));
  EXPECT_EQ(Devices::identifiers(), (Strings{"VLA16-2A1F0031", "VLC10-5B330107"}));
}

TEST_F(Configuration, RunTimeDevicesAndClaimsSurviveAReload) {
  LogCapture log(library.getLoggingInterface());
  VelarionEmulator::VirtualDevice extra = Devices::makeGridDevice("EXTRA", 3, 2, 0.01f);
  EXPECT_EQ(extra.transducers.size(), 6u);
  EXPECT_FLOAT_EQ(extra.arrayWidth, 0.03f);
  ASSERT_TRUE(Devices::addDevice(extra));
  EXPECT_FALSE(Devices::addDevice(extra));
  EXPECT_TRUE(log.saw(2, "already present"));
  extra.identifier.clear();
  EXPECT_FALSE(Devices::addDevice(extra));
  ASSERT_TRUE(Devices::holdDevice("VLA16-2A1F0031"));

  ASSERT_TRUE(library.reloadHardwareConfigurations(folder.write("x.vlcfg", Devices::builtInConfiguration()).c_str()));
  EXPECT_EQ(Devices::identifiers(), (Strings{"VLA16-2A1F0031", "VLC10-5B330107", "EXTRA"}));
  EXPECT_TRUE(library.isDeviceClaimed("VLA16-2A1F0031"));
  EXPECT_TRUE(log.saw(3, "hardware configuration reloaded"));

  EXPECT_TRUE(Devices::removeDevice("VLA16-2A1F0031"));
  EXPECT_TRUE(log.saw(2, "device removed: VLA16-2A1F0031 (while an emitter held it)"));
  EXPECT_FALSE(Devices::removeDevice("VLA16-2A1F0031"));
  EXPECT_FALSE(library.isDeviceClaimed("VLA16-2A1F0031"));
  EXPECT_EQ(library.getDeviceCount(), 2u);
}

// Files that parse but describe no array that could exist, or that would
// take the process's memory, are refused like malformed ones.
TEST_F(Configuration, ImpossibleArraysAndHiddenCharactersAreRefused) {
  LogCapture log(library.getLoggingInterface());
  const std::string device = "[device]\nidentifier = X\nmodel = M\n";
  std::string manyDevices;
  for (int i = 0; i < 5; ++i) {
    manyDevices += "[device]\nidentifier = D" + std::to_string(i) + "\nmodel = M\ngrid = 256 256 0.001\n";
  }
  const std::vector<std::pair<std::string, std::string>> cases = {
      {device + "grid = 1024 1 3.4e38\n", ":4: grid pitch must be from 0.001 to 1 m"},
      {device + "grid = 2 2 1e-9\n", ":4: grid pitch must be from 0.001 to 1 m"},
      {device + "grid = 1024 1 0.5\n", ":4: grid is larger than 10 m"},
      {device + "grid = 1024 1024 0.001\n", ":4: more than 65536 elements in one device"},
      {manyDevices, ":20: more than 262144 elements in the configuration"},
      {device + "grid = 1 1 0.01\narray_size = 1e30 1\n", ":5: array_size needs two numbers from 0 to 10 m"},
      {device + "transducer = 1e30 0 0  0 0 1  1\n", ":4: transducer lies more than 10 m from the origin"},
      {device + "transducer = 0 0 0  0 0 0  1\n", ":4: transducer direction must be a unit vector"},
      {device + "transducer = 0 0 0  0 0 1  2\n", ":4: transducer multiplier must be from 0 to 1"},
      {device + "transducer = -6 0 0  0 0 1  1\ntransducer = 6 0 0  0 0 1  1\n", ":1: device \"X\" is larger than 10 m"},
      {device + "alignment = 1 0 0  0 1 0  0 0 1  0 0 nan\n", ":4: alignment needs twelve numbers"},
      {std::string("[device]\nidentifier = A\0B\nmodel = M\ngrid = 1 1 1\n", 48), ":2: control character 0 in the line"},
      {"[device]\nidentifier = A\x1b[8mB\nmodel = M\ngrid = 1 1 1\n", ":2: control character 27 in the line"},
  };
  for (const auto& [text, why] : cases) {
    const std::string path = folder.write("bad.vlcfg", text);
    EXPECT_FALSE(library.reloadHardwareConfigurations(path.c_str())) << text;
    EXPECT_TRUE(log.saw(1, path + why)) << "expected error: " << path + why;
    EXPECT_EQ(Devices::identifiers(), (Strings{"VLA16-2A1F0031", "VLC10-5B330107"}));
  }
  // The limits themselves are fine.
  ASSERT_TRUE(library.reloadHardwareConfigurations(
      folder.write("big.vlcfg", device + "grid = 256 256 0.001\n" + "[device]\nidentifier = Y\nmodel = M\n" +
                                    "grid = 1000 1 0.01\ntransducer = 0 0 10  0.6 0 0.8  0\n")
          .c_str()));
  EXPECT_EQ(library.getDeviceInfoByIdentifier("X").getTransducerConfiguration().size(), 65536u);
}

// Only small regular files are read: anything else is refused at once.
TEST_F(Configuration, OnlySmallRegularFilesAreRead) {
  LogCapture log(library.getLoggingInterface());
  // Special files that would block or never end; Windows has neither kind.
  std::vector<std::string> special;
#ifndef _WIN32
  const std::string fifo = folder.file("pipe");
  ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
  special = {fifo, "/dev/zero"};
#endif
  const std::string large = folder.write("large", std::string(70000, '#'));
  const std::string huge = folder.write("huge.vlcfg", std::string((1 << 20) + 1, '#'));

  emulatortest::finishesWithin(std::chrono::seconds(10), "reading a FIFO or a device", [&] {
    Velarion::Alignment alignment(0, 1, 0, 1, 0, 0, 0, 0, 1, 0.1f, 0, 0);
    std::vector<std::string> alignments = special;
    alignments.push_back(large);
    for (const std::string& path : alignments) {
      EXPECT_FALSE(alignment.loadAlignment(path.c_str())) << path;
      EXPECT_TRUE(log.saw(2, "refused alignment file \"" + path + "\": ")) << path;
    }
#ifndef _WIN32
    EXPECT_TRUE(log.saw(2, "\"/dev/zero\": not a regular file"));
#endif
    EXPECT_TRUE(log.saw(2, "\": larger than 65536 bytes"));
    EXPECT_FLOAT_EQ(alignment.fromDevicePositionToTrackingPosition({1, 0, 0}).y, 1.0f) << "alignment changed";

    std::vector<std::string> configurations = special;
    configurations.push_back(huge);
    for (const std::string& path : configurations) {
      EXPECT_FALSE(library.reloadHardwareConfigurations(path.c_str())) << path;
      EXPECT_TRUE(log.saw(1, "cannot read \"" + path + "\": ")) << path;
    }
    EXPECT_EQ(Devices::identifiers(), (Strings{"VLA16-2A1F0031", "VLC10-5B330107"}));
  });
}
