// Helpers for the emulator's thread tests: gates a callback can be held at,
// and bounds on everything that could hang.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <future>
#include <mutex>
#include <thread>

namespace emulatortest {

// One-shot event: set once, awaited by any number of threads.
class Event {
 public:
  void set() {
    std::lock_guard<std::mutex> lock(mutex_);
    set_ = true;
    changed_.notify_all();
  }
  bool isSet() const {
    std::lock_guard<std::mutex> lock(mutex_);
    return set_;
  }
  bool wait(std::chrono::milliseconds limit = std::chrono::seconds(10)) const {
    std::unique_lock<std::mutex> lock(mutex_);
    return changed_.wait_for(lock, limit, [this] { return set_; });
  }

 private:
  mutable std::mutex mutex_;
  mutable std::condition_variable changed_;
  bool set_ = false;
};

// Runs `body` on its own thread; a hang ends the test program (one test per
// process under ctest) instead of leaving it stuck for the suite's timeout.
inline void finishesWithin(std::chrono::seconds limit, const char* what, std::function<void()> body) {
  std::packaged_task<void()> task(std::move(body));
  std::future<void> done = task.get_future();
  std::thread runner(std::move(task));
  if (done.wait_for(limit) != std::future_status::ready) {
    std::fprintf(stderr, "hung: %s did not finish within %lld s\n", what, static_cast<long long>(limit.count()));
    std::fflush(stderr);
    std::_Exit(3);
  }
  runner.join();
  done.get();
}

template <class F>
bool eventually(F done, std::chrono::seconds limit = std::chrono::seconds(10)) {
  const auto until = std::chrono::steady_clock::now() + limit;
  while (!done()) {
    if (std::chrono::steady_clock::now() > until) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  return true;
}

// A short wait that a correct implementation must outlast: long enough for a
// wrong one to have returned early on an idle machine.
inline void giveItTime() { std::this_thread::sleep_for(std::chrono::milliseconds(30)); }

}  // namespace emulatortest
