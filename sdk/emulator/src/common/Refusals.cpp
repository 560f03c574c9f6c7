#include "common/Refusals.h"

#include <chrono>
#include <cmath>
#include <cstdio>
#include <map>
#include <mutex>
#include <utility>

#include "Log.h"

namespace VelarionEmulator {
namespace internal {

namespace {

using Clock = std::chrono::steady_clock;

struct Muted {
  Clock::time_point logged;
  unsigned long suppressed = 0;
};

struct Throttle {
  std::mutex mutex;
  std::map<std::pair<const void*, std::string>, Muted> kinds;
};

Throttle& throttle() {
  static Throttle* instance = new Throttle();  // refusals may come while the process exits
  return *instance;
}

// Kinds not refused for this long are forgotten, which bounds the map.
constexpr auto kForgetAfter = std::chrono::seconds(10);
constexpr std::size_t kPruneAbove = 1024;

}  // namespace

std::optional<std::string> refusalLine(const void* source, const std::string& kind, const std::string& message) {
  Throttle& t = throttle();
  const Clock::time_point now = Clock::now();
  std::lock_guard<std::mutex> lock(t.mutex);
  if (t.kinds.size() > kPruneAbove) {
    for (auto it = t.kinds.begin(); it != t.kinds.end();) {
      it = now - it->second.logged > kForgetAfter ? t.kinds.erase(it) : std::next(it);
    }
  }
  auto [entry, first] = t.kinds.try_emplace({source, kind});
  Muted& muted = entry->second;
  if (!first && now - muted.logged < std::chrono::seconds(1)) {
    ++muted.suppressed;
    return std::nullopt;
  }
  std::string line = message;
  if (muted.suppressed > 0) {
    line += " (" + std::to_string(muted.suppressed) + " more like it since the last report)";
  }
  muted.logged = now;
  muted.suppressed = 0;
  return line;
}

void logRefusal(const char* area, const void* source, const std::string& kind, const std::string& message) {
  if (auto line = refusalLine(source, kind, message)) log(Velarion::LogLevel::Warning, area, *line);
}

void forgetRefusals() {
  Throttle& t = throttle();
  std::lock_guard<std::mutex> lock(t.mutex);
  t.kinds.clear();
}

std::string number(double value) {
  // Spelled alike everywhere: C libraries differ on "-nan" and "inf".
  if (std::isnan(value)) return "nan";
  if (std::isinf(value)) return value > 0 ? "inf" : "-inf";
  char text[32];
  std::snprintf(text, sizeof text, "%g", value);
  return text;
}

}  // namespace internal
}  // namespace VelarionEmulator
