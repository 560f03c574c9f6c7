// The live emitters of one kind, for the control interface and stepping.
#pragma once

#include <mutex>
#include <set>

namespace VelarionEmulator {
namespace internal {

template <class Implementation>
class EmitterList {
 public:
  static EmitterList& instance() {
    static EmitterList* list = new EmitterList();  // outlives emitters destroyed at exit
    return *list;
  }

  void add(Implementation* emitter) {
    std::lock_guard<std::mutex> lock(mutex_);
    emitters_.insert(emitter);
  }

  void remove(Implementation* emitter) {
    std::lock_guard<std::mutex> lock(mutex_);
    emitters_.erase(emitter);
  }

  // Runs f on every live emitter, under the list's lock.
  template <class F>
  void forEach(F&& f) {
    std::lock_guard<std::mutex> lock(mutex_);
    for (auto* emitter : emitters_) f(*emitter);
  }

 private:
  std::mutex mutex_;
  std::set<Implementation*> emitters_;
};

}  // namespace internal
}  // namespace VelarionEmulator
