// LoggingExternalInterface and the hub that fans every message out to the
// live interfaces.
#include <algorithm>
#include <atomic>
#include <cstdio>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "Log.h"
#include "Velarion/LoggingExternalInterface.h"

namespace Velarion {

struct LoggingExternalInterfaceImplementation {
  enum class Destination { null, standardOutput, standardError, file };

  struct Callback {
    LoggingCallbackFunction function = nullptr;
    void* userData = nullptr;
  };

  mutable std::mutex mutex;
  int level = static_cast<int>(LogLevel::Warning);
  Destination destination = Destination::standardError;
  std::FILE* file = nullptr;
  Callback callbacks[6];

  ~LoggingExternalInterfaceImplementation() { closeFile(); }

  void closeFile() {
    if (file != nullptr) {
      std::fclose(file);
      file = nullptr;
    }
  }

  void deliver(LogLevel messageLevel, unsigned int sequence, const char* area, const std::string& message) {
    const int l = static_cast<int>(messageLevel);
    Callback callback;
    {
      std::lock_guard<std::mutex> lock(mutex);
      callback = callbacks[l];
      if (l <= level) {
        std::FILE* out = destination == Destination::standardOutput ? stdout
                         : destination == Destination::standardError ? stderr
                         : destination == Destination::file          ? file
                                                                     : nullptr;
        if (out != nullptr) {
          static const char* const names[] = {"OFF", "ERROR", "WARNING", "INFO", "DEBUG", "TRACE"};
          std::fprintf(out, "[Velarion][%s][%s] %s\n", names[l], area, message.c_str());
          std::fflush(out);
        }
      }
    }
    // Outside the lock: the callback may log or change this interface.
    if (callback.function != nullptr) {
      callback.function(message.c_str(), static_cast<unsigned int>(l), sequence, area, callback.userData);
    }
  }
};

}  // namespace Velarion

namespace VelarionEmulator {
namespace internal {
namespace {

using Velarion::LoggingExternalInterfaceImplementation;

// Recursive: a callback may log again on the same thread.
struct Hub {
  std::recursive_mutex mutex;
  std::vector<LoggingExternalInterfaceImplementation*> interfaces;
  std::atomic<unsigned int> sequence{0};
};

Hub& hub() {
  static Hub* instance = new Hub();
  return *instance;
}

}  // namespace

void attach(LoggingExternalInterfaceImplementation* implementation) {
  Hub& h = hub();
  std::lock_guard<std::recursive_mutex> lock(h.mutex);
  h.interfaces.push_back(implementation);
}

// Waits for a message being delivered on another thread, so the interface can
// be destroyed right after.
void detach(LoggingExternalInterfaceImplementation* implementation) {
  Hub& h = hub();
  std::lock_guard<std::recursive_mutex> lock(h.mutex);
  h.interfaces.erase(std::remove(h.interfaces.begin(), h.interfaces.end(), implementation), h.interfaces.end());
}

void log(Velarion::LogLevel level, const char* area, const std::string& message) {
  if (level <= Velarion::LogLevel::Off || level > Velarion::LogLevel::Trace) {
    return;
  }
  Hub& h = hub();
  const unsigned int sequence = ++h.sequence;
  std::lock_guard<std::recursive_mutex> lock(h.mutex);
  // A callback may destroy a library (and so detach an interface): walk a
  // snapshot and skip the ones gone meanwhile.
  const std::vector<LoggingExternalInterfaceImplementation*> snapshot = h.interfaces;
  for (LoggingExternalInterfaceImplementation* implementation : snapshot) {
    if (std::find(h.interfaces.begin(), h.interfaces.end(), implementation) != h.interfaces.end()) {
      implementation->deliver(level, sequence, area, message);
    }
  }
}

}  // namespace internal
}  // namespace VelarionEmulator

namespace Velarion {

using VelarionEmulator::internal::attach;
using VelarionEmulator::internal::detach;
using Destination = LoggingExternalInterfaceImplementation::Destination;

LoggingExternalInterface::LoggingExternalInterface() : implementation_(new LoggingExternalInterfaceImplementation()) {
  attach(implementation_);
}

LoggingExternalInterface::~LoggingExternalInterface() {
  detach(implementation_);
  delete implementation_;
}

int LoggingExternalInterface::getLogLevel() const {
  std::lock_guard<std::mutex> lock(implementation_->mutex);
  return implementation_->level;
}

bool LoggingExternalInterface::setLogLevel(int level) {
  if (level < static_cast<int>(LogLevel::Off) || level > static_cast<int>(LogLevel::Trace)) {
    return false;
  }
  std::lock_guard<std::mutex> lock(implementation_->mutex);
  implementation_->level = level;
  return true;
}

bool LoggingExternalInterface::redirectLoggingToFile(const char* path) {
  if (path == nullptr || *path == '\0') {
    return false;
  }
  std::FILE* file = std::fopen(path, "a");
  if (file == nullptr) {
    return false;
  }
  std::lock_guard<std::mutex> lock(implementation_->mutex);
  implementation_->closeFile();
  implementation_->file = file;
  implementation_->destination = Destination::file;
  return true;
}

namespace {
bool redirect(LoggingExternalInterfaceImplementation* implementation, Destination destination) {
  std::lock_guard<std::mutex> lock(implementation->mutex);
  implementation->closeFile();
  implementation->destination = destination;
  return true;
}
}  // namespace

bool LoggingExternalInterface::redirectLoggingToNull() { return redirect(implementation_, Destination::null); }
bool LoggingExternalInterface::redirectLoggingToStdOut() {
  return redirect(implementation_, Destination::standardOutput);
}
bool LoggingExternalInterface::redirectLoggingToStdErr() {
  return redirect(implementation_, Destination::standardError);
}

bool LoggingExternalInterface::setCallbackForLogLevel(unsigned int level, LoggingCallbackFunction callback,
                                                      void* user_data) {
  if (level < static_cast<unsigned int>(LogLevel::Error) || level > static_cast<unsigned int>(LogLevel::Trace)) {
    return false;
  }
  std::lock_guard<std::mutex> lock(implementation_->mutex);
  implementation_->callbacks[level] = {callback, callback != nullptr ? user_data : nullptr};
  return true;
}

}  // namespace Velarion
