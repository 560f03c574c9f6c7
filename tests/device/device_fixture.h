// Shared set-up of the device tests: the emulator back at its built-in
// devices with an empty journal, and scratch files that are removed after.
#pragma once

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "Velarion/LoggingExternalInterface.h"
#include "VelarionEmulator/Devices.h"
#include "VelarionEmulator/Journal.h"
#include "support/interop_harness.h"

#if defined(_WIN32)
#include <process.h>
#else
#include <unistd.h>
#endif

namespace devicetest {

inline long processId() {
#if defined(_WIN32)
  return _getpid();
#else
  return static_cast<long>(::getpid());
#endif
}

// Sets (or, with null, removes) a variable of this process's environment, as
// the device library's getenv sees it.
inline bool setEnvironment(const char* name, const char* value) {
#if defined(_WIN32)
  return _putenv_s(name, value == nullptr ? "" : value) == 0;
#else
  return (value == nullptr ? ::unsetenv(name) : ::setenv(name, value, 1)) == 0;
#endif
}

// A folder of its own per test.
class ScratchFolder {
 public:
  ScratchFolder() {
    static int counter = 0;
    path_ = std::filesystem::temp_directory_path() /
            ("velarion-devices-" + std::to_string(processId()) + "-" + std::to_string(++counter));
    std::filesystem::create_directories(path_);
  }
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  std::string write(const std::string& name, const std::string& text) const {
    const std::string file = (path_ / name).string();
    std::ofstream(file, std::ios::binary) << text;
    return file;
  }
  // Text mode: the platform's line ending reads as "\n".
  std::string read(const std::string& name) const {
    std::ifstream in(path_ / name);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }
  std::string path() const { return path_.string(); }
  std::string file(const std::string& name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

// Collects what a logging interface hands to its per-level callbacks.
class LogCapture {
 public:
  struct Message {
    std::string text;
    unsigned int level;
    std::string area;
    std::thread::id thread;
  };

  explicit LogCapture(Velarion::LoggingExternalInterface& logging) : logging_(logging) {
    for (unsigned int level = 1; level <= 5; ++level) logging_.setCallbackForLogLevel(level, &receive, this);
  }
  ~LogCapture() {
    for (unsigned int level = 1; level <= 5; ++level) logging_.setCallbackForLogLevel(level, nullptr, nullptr);
  }
  std::vector<Message> messages() const {
    std::lock_guard<std::mutex> lock(mutex_);
    return messages_;
  }
  // True when some message of `level` contains `part`.
  bool saw(unsigned int level, const std::string& part) const {
    for (const Message& m : messages()) {
      if (m.level == level && m.text.find(part) != std::string::npos) return true;
    }
    return false;
  }
  // The first message of `area` that starts with `start`.
  std::optional<Message> find(const std::string& area, const std::string& start) const {
    for (const Message& m : messages()) {
      if (m.area == area && m.text.rfind(start, 0) == 0) return m;
    }
    return std::nullopt;
  }

 private:
  static void receive(const char* message, unsigned int level, unsigned int, const char* area, void* user) {
    auto* self = static_cast<LogCapture*>(user);
    std::lock_guard<std::mutex> lock(self->mutex_);
    self->messages_.push_back({message, level, area, std::this_thread::get_id()});
  }
  Velarion::LoggingExternalInterface& logging_;
  mutable std::mutex mutex_;
  std::vector<Message> messages_;
};

inline void resetEmulator() {
  VelarionEmulator::Devices::resetToDefaults();
  VelarionEmulator::Journal::clear();
}

class DeviceExportTest : public harness::ExportTest {
 protected:
  void SetUp() override {
    harness::ExportTest::SetUp();
    resetEmulator();
  }
  void TearDown() override {
    resetEmulator();
    harness::ExportTest::TearDown();
  }
};

}  // namespace devicetest
