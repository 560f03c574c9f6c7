// The journal of device-library calls stays bounded whatever a caller passes:
// long arguments are cut with a marker that gives their length, and the
// oldest entries go once the text would exceed its total.
#include <gtest/gtest.h>

#include <numeric>
#include <string>

#include "Velarion/VelarionLibrary.h"
#include "VelarionEmulator/Journal.h"
#include "device/device_fixture.h"

namespace Journal = VelarionEmulator::Journal;

namespace {

std::size_t totalBytes(const std::vector<std::string>& entries) {
  return std::accumulate(entries.begin(), entries.end(), std::size_t{0},
                         [](std::size_t sum, const std::string& e) { return sum + e.size(); });
}

class EmulatorJournal : public ::testing::Test {
 protected:
  void SetUp() override { devicetest::resetEmulator(); }
  void TearDown() override { devicetest::resetEmulator(); }
};

}  // namespace

TEST_F(EmulatorJournal, LongArgumentsAreCutWithTheirLength) {
  Velarion::VelarionLibrary library;
  const std::string huge(256 * 1024, 'x');
  for (int i = 0; i < 2000; ++i) EXPECT_FALSE(library.isDeviceConnected(huge.c_str()));
  const std::vector<std::string> entries = Journal::entries();
  ASSERT_FALSE(entries.empty());
  EXPECT_EQ(entries.back(), "VelarionLibrary::isDeviceConnected(\"" + std::string(Journal::kArgumentBytes, 'x') +
                                "\"...(262144 bytes))");
  EXPECT_LE(totalBytes(entries), 2000 * (Journal::kArgumentBytes + 100));

  // A cut never splits a UTF-8 character; a short argument stays whole.
  const std::string accented = std::string(Journal::kArgumentBytes - 1, 'a') + "\xC3\xA9" + "tail";
  library.isDeviceClaimed(accented.c_str());
  EXPECT_EQ(Journal::entries().back(), "VelarionLibrary::isDeviceClaimed(\"" +
                                           std::string(Journal::kArgumentBytes - 1, 'a') + "\"...(" +
                                           std::to_string(accented.size()) + " bytes))");
  library.isDeviceClaimed("VLA16-2A1F0031");
  EXPECT_EQ(Journal::entries().back(), "VelarionLibrary::isDeviceClaimed(\"VLA16-2A1F0031\")");
}

TEST_F(EmulatorJournal, EntriesAndTheirTotalAreBounded) {
  const std::string longEntry(3 * Journal::kEntryBytes, 'e');
  Journal::record(longEntry);
  EXPECT_EQ(Journal::entries().back(),
            std::string(Journal::kEntryBytes, 'e') + "...(" + std::to_string(longEntry.size()) + " bytes)");

  // Full-sized entries: the total caps them long before the count does.
  const std::string entry(Journal::kEntryBytes, 'f');
  const std::size_t fit = Journal::kMaxTotalBytes / Journal::kEntryBytes;
  for (std::size_t i = 0; i < fit + 100; ++i) Journal::record(entry + std::to_string(i % 10));
  std::vector<std::string> entries = Journal::entries();
  EXPECT_LE(totalBytes(entries), Journal::kMaxTotalBytes);
  EXPECT_GE(totalBytes(entries), Journal::kMaxTotalBytes - 2 * (Journal::kEntryBytes + 32));
  EXPECT_EQ(entries.back(), std::string(Journal::kEntryBytes, 'f') + "...(" +
                                std::to_string(Journal::kEntryBytes + 1) + " bytes)")
      << "the newest entry is kept";

  // Small entries: the count caps them.
  for (std::size_t i = 0; i < Journal::kMaxEntries + 10; ++i) Journal::record("VersionInfo::getVersion");
  entries = Journal::entries();
  EXPECT_EQ(entries.size(), Journal::kMaxEntries);
  Journal::clear();
  EXPECT_TRUE(Journal::entries().empty());
}
