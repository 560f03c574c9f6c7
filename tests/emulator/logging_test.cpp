// The emulator's logging core: levels, destinations, per-level callbacks,
// version mismatches and messages from several threads at once.
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "Velarion/VelarionLibrary.h"
#include "device/device_fixture.h"

using namespace devicetest;
namespace Devices = VelarionEmulator::Devices;
using Velarion::LoggingExternalInterface;
using Velarion::VersionInfo;

namespace {

class Logging : public ::testing::Test {
 protected:
  void SetUp() override { resetEmulator(); }
  void TearDown() override { resetEmulator(); }
  ScratchFolder folder;
};

}  // namespace

TEST_F(Logging, LevelsAndDestinations) {
  LoggingExternalInterface logging;
  EXPECT_EQ(logging.getLogLevel(), 2);
  EXPECT_FALSE(logging.setLogLevel(6));
  EXPECT_FALSE(logging.setLogLevel(-1));
  EXPECT_EQ(logging.getLogLevel(), 2);

  const std::string path = folder.file("velarion.log");
  ASSERT_TRUE(logging.redirectLoggingToFile(path.c_str()));
  Devices::addDevice(Devices::makeGridDevice("QUIET", 1, 1, 0.01f));  // Info: below Warning
  VersionInfo::checkVersion(2, 7, 0);                                // Warning
  EXPECT_EQ(folder.read("velarion.log"),
            "[Velarion][WARNING][Version] version mismatch: the caller was built against 2.7.0, the device "
            "library is 2.6.4\n");

  ASSERT_TRUE(logging.setLogLevel(3));
  Devices::addDevice(Devices::makeGridDevice("HEARD", 1, 1, 0.01f));
  EXPECT_NE(folder.read("velarion.log").find("[INFO][Devices] device added: HEARD"), std::string::npos);

  // Switching away closes the file; nothing more reaches it.
  ASSERT_TRUE(logging.redirectLoggingToNull());
  const std::string before = folder.read("velarion.log");
  VersionInfo::checkVersion(1, 0, 0);
  EXPECT_EQ(folder.read("velarion.log"), before);
  EXPECT_FALSE(logging.redirectLoggingToFile(folder.file("no/such/dir/x.log").c_str()));
  EXPECT_FALSE(logging.redirectLoggingToFile(nullptr));
  EXPECT_TRUE(logging.redirectLoggingToStdOut());
  EXPECT_TRUE(logging.redirectLoggingToStdErr());
}

TEST_F(Logging, CallbacksReceiveTheirLevelWhateverTheThreshold) {
  LoggingExternalInterface logging;
  logging.redirectLoggingToNull();
  ASSERT_TRUE(logging.setLogLevel(0));
  LogCapture capture(logging);
  EXPECT_FALSE(logging.setCallbackForLogLevel(0, nullptr, nullptr));
  EXPECT_FALSE(logging.setCallbackForLogLevel(6, nullptr, nullptr));

  VersionInfo::checkVersion(3, 0, 0);
  VersionInfo::checkVersion(2, 6, 4);
  std::vector<LogCapture::Message> messages = capture.messages();
  // The refused levels are logged once: the second refusal came within the second.
  ASSERT_EQ(messages.size(), 3u);
  EXPECT_EQ(messages[0].level, 2u);
  EXPECT_EQ(messages[0].area, "Logging");
  EXPECT_EQ(messages[0].text, "Log callback refused for level 0; valid: 1 (error) to 5 (trace)");
  EXPECT_EQ(messages[1].level, 1u);
  EXPECT_EQ(messages[1].area, "Version");
  EXPECT_EQ(messages[1].text,
            "version mismatch: the caller was built against 3.0.0, the device library is 2.6.4 (incompatible)");
  EXPECT_EQ(messages[2].level, 4u);
  EXPECT_EQ(messages[2].text, "interface version 2.6.4 matches");

  // Removing a callback stops it; a destroyed interface hears nothing more.
  logging.setCallbackForLogLevel(4, nullptr, nullptr);
  VersionInfo::checkVersion(2, 6, 4);
  EXPECT_EQ(capture.messages().size(), 3u);
}

TEST_F(Logging, EveryLibraryHearsMessagesFromAnyThread) {
  Velarion::VelarionLibrary first;
  Velarion::VelarionLibrary second;
  first.getLoggingInterface().redirectLoggingToNull();
  second.getLoggingInterface().redirectLoggingToNull();
  LogCapture a(first.getLoggingInterface());
  LogCapture b(second.getLoggingInterface());

  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([t] {
      for (int i = 0; i < 50; ++i) {
        const std::string id = "T" + std::to_string(t) + "-" + std::to_string(i);
        Devices::addDevice(Devices::makeGridDevice(id, 1, 1, 0.01f));
        Devices::removeDevice(id);
      }
    });
  }
  // A library opened and closed meanwhile neither misses nor breaks anything.
  for (int i = 0; i < 20; ++i) {
    Velarion::VelarionLibrary passing;
    passing.getLoggingInterface().redirectLoggingToNull();
  }
  for (std::thread& thread : threads) thread.join();

  auto count = [](const LogCapture& capture) {
    size_t n = 0;
    for (const auto& m : capture.messages()) n += m.area == "Devices" ? 1 : 0;
    return n;
  };
  EXPECT_EQ(count(a), 400u);
  EXPECT_EQ(count(b), 400u);
  EXPECT_EQ(first.getDeviceCount(), 2u);
}
