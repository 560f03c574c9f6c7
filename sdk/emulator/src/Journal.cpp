#include "VelarionEmulator/Journal.h"

#include <deque>
#include <mutex>

namespace VelarionEmulator {
namespace Journal {
namespace {

constexpr size_t kMaxEntries = 100000;

struct Store {
  std::mutex mutex;
  std::deque<std::string> entries;
};

Store& store() {
  static Store* instance = new Store();  // outlives every static that may record at exit
  return *instance;
}

}  // namespace

std::vector<std::string> entries() {
  Store& s = store();
  std::lock_guard<std::mutex> lock(s.mutex);
  return std::vector<std::string>(s.entries.begin(), s.entries.end());
}

void clear() {
  Store& s = store();
  std::lock_guard<std::mutex> lock(s.mutex);
  s.entries.clear();
}

void record(const std::string& entry) {
  Store& s = store();
  std::lock_guard<std::mutex> lock(s.mutex);
  if (s.entries.size() == kMaxEntries) {
    s.entries.pop_front();
  }
  s.entries.push_back(entry);
}

}  // namespace Journal
}  // namespace VelarionEmulator
