// LoggingExternalInterface and the hub that fans every message out to the
// live interfaces.
//
// No lock is held while a user callback runs, so a callback may log, replace
// callbacks, stop an emitter or destroy a library. Replacing a callback (or
// destroying its interface) waits until no other thread is still inside the
// replaced one, so whatever it points at can be freed right after; from inside
// that callback itself it returns at once instead of waiting on itself.
#include <algorithm>
#include <atomic>
#include <cerrno>
#include <condition_variable>
#include <cstdio>
#include <cstring>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "Log.h"
#include "common/Refusals.h"
#include "Velarion/LoggingExternalInterface.h"

namespace Velarion {

struct LoggingExternalInterfaceImplementation {
  enum class Destination { null, standardOutput, standardError, file };

  // One installed callback. Deliveries count themselves in and out of it, so
  // whoever replaces it can wait for them.
  struct Installed {
    LoggingCallbackFunction function = nullptr;
    void* userData = nullptr;
    unsigned int running = 0;  // under `mutex`
  };

  // The callbacks this thread is inside, innermost first.
  struct Frame {
    const Installed* installed;
    const Frame* outer;
  };
  static thread_local const Frame* innermost;

  static bool insideOnThisThread(const Installed* installed) {
    for (const Frame* f = innermost; f != nullptr; f = f->outer) {
      if (f->installed == installed) return true;
    }
    return false;
  }

  mutable std::mutex mutex;
  std::condition_variable returned;  // a callback returned
  int level = static_cast<int>(LogLevel::Warning);
  Destination destination = Destination::standardError;
  std::FILE* file = nullptr;
  std::shared_ptr<Installed> callbacks[6];
  bool detached = false;  // its LoggingExternalInterface is gone

  ~LoggingExternalInterfaceImplementation() { closeFile(); }

  void closeFile() {
    if (file != nullptr) {
      std::fclose(file);
      file = nullptr;
    }
  }

  // Under `lock`: waits until `old` has left every other thread. From inside
  // `old` it does not wait at all: another thread may be inside it too and
  // wait for this one in turn.
  void waitForReturn(std::unique_lock<std::mutex>& lock, const std::shared_ptr<Installed>& old) {
    if (!old || insideOnThisThread(old.get())) return;
    returned.wait(lock, [&] { return old->running == 0; });
  }

  void deliver(LogLevel messageLevel, unsigned int sequence, const char* area, const std::string& message) {
    const int l = static_cast<int>(messageLevel);
    std::shared_ptr<Installed> callback;
    {
      std::lock_guard<std::mutex> lock(mutex);
      if (detached) return;
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
      callback = callbacks[l];
      if (!callback) return;
      ++callback->running;  // from here on a replacement waits for this call
    }
    // Counted out however the callback leaves.
    struct Inside {
      LoggingExternalInterfaceImplementation& self;
      Installed& installed;
      Frame frame;
      ~Inside() {
        innermost = frame.outer;
        std::lock_guard<std::mutex> lock(self.mutex);
        --installed.running;
        self.returned.notify_all();
      }
    } inside{*this, *callback, Frame{callback.get(), innermost}};
    innermost = &inside.frame;
    callback->function(message.c_str(), static_cast<unsigned int>(l), sequence, area, callback->userData);
  }

  bool install(unsigned int l, LoggingCallbackFunction function, void* userData) {
    std::shared_ptr<Installed> replacement;
    if (function != nullptr) {
      replacement = std::make_shared<Installed>();
      replacement->function = function;
      replacement->userData = userData;
    }
    std::unique_lock<std::mutex> lock(mutex);
    std::shared_ptr<Installed> old = std::move(callbacks[l]);
    callbacks[l] = std::move(replacement);
    waitForReturn(lock, old);
    return true;
  }

  // No message reaches the interface once this returns, and no callback of
  // it runs on another thread.
  void retire() {
    std::unique_lock<std::mutex> lock(mutex);
    detached = true;
    for (std::shared_ptr<Installed>& slot : callbacks) {
      const std::shared_ptr<Installed> old = std::move(slot);
      waitForReturn(lock, old);
    }
  }
};

thread_local const LoggingExternalInterfaceImplementation::Frame* LoggingExternalInterfaceImplementation::innermost =
    nullptr;

}  // namespace Velarion

namespace VelarionEmulator {
namespace internal {
namespace {

using Velarion::LoggingExternalInterfaceImplementation;

// The hub's lock guards only the list: messages are delivered from a
// snapshot, without it, and each snapshot entry keeps its interface's state
// alive until the delivery is over.
struct Hub {
  std::mutex mutex;
  std::vector<std::shared_ptr<LoggingExternalInterfaceImplementation>> interfaces;
  std::atomic<unsigned int> sequence{0};
};

Hub& hub() {
  static Hub* instance = new Hub();  // messages may still come while the process exits
  return *instance;
}

}  // namespace

LoggingExternalInterfaceImplementation* attach() {
  auto implementation = std::make_shared<LoggingExternalInterfaceImplementation>();
  Hub& h = hub();
  std::lock_guard<std::mutex> lock(h.mutex);
  h.interfaces.push_back(implementation);
  return implementation.get();
}

// Returns once no other thread delivers to the interface; the state itself is
// freed by whichever holder lets go last (a delivery on this very thread may
// still be unwinding through it).
void detach(LoggingExternalInterfaceImplementation* implementation) {
  std::shared_ptr<LoggingExternalInterfaceImplementation> held;
  {
    Hub& h = hub();
    std::lock_guard<std::mutex> lock(h.mutex);
    auto it = std::find_if(h.interfaces.begin(), h.interfaces.end(),
                           [&](const auto& entry) { return entry.get() == implementation; });
    if (it == h.interfaces.end()) return;
    held = std::move(*it);
    h.interfaces.erase(it);
  }
  held->retire();
}

void log(Velarion::LogLevel level, const char* area, const std::string& message) {
  if (level <= Velarion::LogLevel::Off || level > Velarion::LogLevel::Trace) {
    return;
  }
  Hub& h = hub();
  const unsigned int sequence = ++h.sequence;
  std::vector<std::shared_ptr<LoggingExternalInterfaceImplementation>> snapshot;
  {
    std::lock_guard<std::mutex> lock(h.mutex);
    snapshot = h.interfaces;
  }
  for (const auto& implementation : snapshot) implementation->deliver(level, sequence, area, message);
}

}  // namespace internal
}  // namespace VelarionEmulator

namespace Velarion {

using VelarionEmulator::internal::attach;
using VelarionEmulator::internal::detach;
using Destination = LoggingExternalInterfaceImplementation::Destination;

LoggingExternalInterface::LoggingExternalInterface() : implementation_(attach()) {}

LoggingExternalInterface::~LoggingExternalInterface() { detach(implementation_); }

int LoggingExternalInterface::getLogLevel() const {
  std::lock_guard<std::mutex> lock(implementation_->mutex);
  return implementation_->level;
}

bool LoggingExternalInterface::setLogLevel(int level) {
  if (level < static_cast<int>(LogLevel::Off) || level > static_cast<int>(LogLevel::Trace)) {
    VelarionEmulator::internal::logRefusal("Logging", implementation_, "level",
                                           "Log level " + std::to_string(level) +
                                               " refused; valid: 0 (off) to 5 (trace)");
    return false;
  }
  std::lock_guard<std::mutex> lock(implementation_->mutex);
  implementation_->level = level;
  return true;
}

bool LoggingExternalInterface::redirectLoggingToFile(const char* path) {
  if (path == nullptr || *path == '\0') {
    VelarionEmulator::internal::logRefusal("Logging", implementation_, "file", "Log file refused: no path given");
    return false;
  }
  std::FILE* file = std::fopen(path, "a");
  if (file == nullptr) {
    const int error = errno;
    VelarionEmulator::internal::logRefusal("Logging", implementation_, "file",
                                           "Log file \"" + std::string(path) + "\" cannot be opened for appending: " +
                                               std::strerror(error) + "; the destination is unchanged");
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
    VelarionEmulator::internal::logRefusal("Logging", implementation_, "callback",
                                           "Log callback refused for level " + std::to_string(level) +
                                               "; valid: 1 (error) to 5 (trace)");
    return false;
  }
  return implementation_->install(level, callback, user_data);
}

}  // namespace Velarion
