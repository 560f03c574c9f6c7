// The device-independent part of an emulated emitter: its log lines.
#include "common/EmitterDevices.h"

#include <cctype>

#include "Log.h"

namespace VelarionEmulator {
namespace internal {

std::string quoted(const char* text) { return text == nullptr ? "null" : "\"" + std::string(text) + "\""; }

std::string capitalised(std::string text) {
  if (!text.empty()) text[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(text[0])));
  return text;
}

void EmitterBase::flushLog() {
  std::vector<LogLine> lines;
  {
    std::lock_guard<std::mutex> lock(mutex);
    lines = takeNotedLines();
  }
  writeLog(lines);
}

bool EmitterBase::writeNotedLines(std::unique_lock<std::mutex>& lock) {
  if (pendingLog.empty()) return false;
  const std::vector<LogLine> lines = takeNotedLines();
  lock.unlock();
  writeLog(lines);
  lock.lock();
  return true;
}

std::vector<EmitterBase::LogLine> EmitterBase::takeNotedLines() {
  std::vector<LogLine> lines;
  lines.swap(pendingLog);
  return lines;
}

void EmitterBase::writeLog(const std::vector<LogLine>& lines) const {
  for (const auto& line : lines) log(line.first, kind.area, line.second);
}

void EmitterBase::stopThread() {
  std::thread finishing;
  {
    std::lock_guard<std::mutex> lock(mutex);
    stopRequested = true;
    if (thread.get_id() != std::this_thread::get_id()) finishing = std::move(thread);
  }
  wake.notify_all();
  if (finishing.joinable()) finishing.join();
}

}  // namespace internal
}  // namespace VelarionEmulator
