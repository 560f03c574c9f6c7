// The device-independent part of an emulated emitter: its log lines.
#include "common/EmitterDevices.h"

#include <cctype>

#include "Log.h"
#include "VelarionEmulator/Journal.h"

namespace VelarionEmulator {
namespace internal {

std::string quoted(const char* text) { return Journal::argument(text); }

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

void writeLog(const EmitterKind& kind, const std::vector<EmitterBase::LogLine>& lines) {
  for (const auto& line : lines) log(line.level, line.area != nullptr ? line.area : kind.area, line.message);
}

void EmitterBase::writeLog(const std::vector<LogLine>& lines) const { internal::writeLog(kind, lines); }

namespace {
// The emitter whose emission thread this is.
thread_local const EmitterBase* emissionThreadOf = nullptr;
}  // namespace

bool EmitterBase::onEmissionThread() const { return emissionThreadOf == this; }

void EmitterBase::enterEmissionThread() { emissionThreadOf = this; }

void EmitterBase::leaveEmissionThread() {
  std::unique_lock<std::mutex> lock(mutex);
  --liveThreads;
  const bool last = abandoned && liveThreads == 0;
  // Notified under the lock: a waiter may free the emitter once it has it.
  threadEnded.notify_all();
  lock.unlock();
  emissionThreadOf = nullptr;
  if (last) delete this;
}

void EmitterBase::stopThread() {
  std::unique_lock<std::mutex> lock(mutex);
  const unsigned int own = onEmissionThread() ? 1u : 0u;
  requestStop();
  while (liveThreads > own) {
    threadEnded.wait(lock);
    requestStop();  // a handler of an ending run may have started another
  }
}

bool EmitterBase::retire() {
  stopThread();
  std::lock_guard<std::mutex> lock(mutex);
  if (!onEmissionThread()) return true;
  abandoned = true;
  return false;
}

}  // namespace internal
}  // namespace VelarionEmulator
