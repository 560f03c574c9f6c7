#include "VelarionEmulator/Journal.h"

#include <cstring>
#include <deque>
#include <mutex>

namespace VelarionEmulator {
namespace Journal {
namespace {

struct Store {
  std::mutex mutex;
  std::deque<std::string> entries;
  std::size_t bytes = 0;  // of every entry's text
};

Store& store() {
  static Store* instance = new Store();  // outlives every static that may record at exit
  return *instance;
}

// The first `limit` bytes of `text` (fewer rather than half a UTF-8
// character) and the marker of a cut, when it is longer.
std::string cut(const char* text, std::size_t length, std::size_t limit, const char* closing) {
  if (length <= limit) return std::string(text, length) + closing;
  std::size_t keep = limit;
  for (int back = 0; back < 3 && keep > 0 && (static_cast<unsigned char>(text[keep]) & 0xC0) == 0x80; ++back) --keep;
  return std::string(text, keep) + closing + "...(" + std::to_string(length) + " bytes)";
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
  s.bytes = 0;
}

void record(const std::string& entry) {
  std::string kept = cut(entry.data(), entry.size(), kEntryBytes, "");
  Store& s = store();
  std::lock_guard<std::mutex> lock(s.mutex);
  while (!s.entries.empty() && (s.entries.size() >= kMaxEntries || s.bytes + kept.size() > kMaxTotalBytes)) {
    s.bytes -= s.entries.front().size();
    s.entries.pop_front();
  }
  s.bytes += kept.size();
  s.entries.push_back(std::move(kept));
}

std::string argument(const char* text) {
  if (text == nullptr) return "null";
  return "\"" + cut(text, std::strlen(text), kArgumentBytes, "\"");
}

}  // namespace Journal
}  // namespace VelarionEmulator
