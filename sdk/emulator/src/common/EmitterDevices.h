// What both emulated emitters do alike: hold devices claimed from the
// registry, notice when one is lost, choose between one and several devices,
// note log lines under their lock to write once it is released, and stop
// their emission thread.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "DeviceRegistry.h"
#include "common/Refusals.h"
#include "Velarion/DeviceInfo.h"
#include "Velarion/LoggingExternalInterface.h"
#include "Velarion/Transform.h"
#include "Velarion/Types.h"

namespace VelarionEmulator {
namespace internal {

// How an emitter names itself in its log lines.
struct EmitterKind {
  const char* area;     // log area, e.g. "AmplitudeModulation"
  const char* name;     // e.g. "amplitude modulation emitter"
  const char* article;  // "a" or "an", before the name
};

// "\"text\"", or null, as the journal shows an argument.
std::string quoted(const char* text);
// The text with its first letter in upper case.
std::string capitalised(std::string text);

// A device an emitter holds; its address is the emitter's state-emitter handle.
struct HeldDeviceBase {
  std::string identifier;
  Velarion::Transform transform;
  float arrayWidth = 0.0f;
  float arrayDepth = 0.0f;
  // False once the device was removed or disconnected under the emitter.
  bool present = true;
};

// The part of an emitter's state that does not depend on its devices' type.
struct EmitterBase {
  struct LogLine {
    Velarion::LogLevel level;
    const char* area;  // null: the emitter's own
    std::string message;
  };

  explicit EmitterBase(const EmitterKind& kind) : kind(kind) {}
  virtual ~EmitterBase() = default;
  EmitterBase(const EmitterBase&) = delete;
  EmitterBase& operator=(const EmitterBase&) = delete;

  const EmitterKind& kind;

  // Guards the whole emitter state, the derived parts included. No user code
  // (log or emission callback) ever runs while it is held.
  mutable std::mutex mutex;
  Velarion::DeviceSelectionMode mode = Velarion::DeviceSelectionMode::SingleDevice;
  std::string requested;  // the device named at construction
  Velarion::Transform requestedTransform;
  uint64_t registryRevision = ~uint64_t(0);
  // Log lines noted under `mutex`, written once it is released: a log
  // callback may call back into the emitter.
  std::vector<LogLine> pendingLog;

  void note(Velarion::LogLevel level, std::string message, const char* area = nullptr) {
    pendingLog.push_back(LogLine{level, area, std::move(message)});
  }
  // Notes the warning of a refusal of `kind`, throttled (common/Refusals.h).
  void noteRefusal(const std::string& kind, const std::string& message) {
    if (auto line = refusalLine(this, kind, message)) note(Velarion::LogLevel::Warning, std::move(*line));
  }
  // A single-device emitter that could not claim its device when it was
  // made: it claims the device as soon as it is free and connected.
  bool wantsDevice = false;
  // Writes the noted lines; called without `mutex` held.
  void flushLog();
  // From a thread holding `lock` on `mutex`: writes the noted lines with the
  // lock released, then takes it again. False when there were none.
  bool writeNotedLines(std::unique_lock<std::mutex>& lock);
  // Under `mutex`: takes the noted lines out, for writing after the lock.
  std::vector<LogLine> takeNotedLines();
  void writeLog(const std::vector<LogLine>& lines) const;

  // Emission threads. Each start launches a run with the next number; a run
  // goes on while its number is above `stoppedUpTo`. Threads are detached and
  // counted in `liveThreads` until their very last step, so that stop and
  // destruction can wait for them from any thread but their own. An emitter
  // destroyed from its own emission thread is `abandoned` to it: the last
  // thread to end frees it.
  std::condition_variable wake;         // a run was asked to stop
  std::condition_variable threadEnded;  // an emission thread ended
  uint64_t runs = 0;
  uint64_t stoppedUpTo = 0;
  unsigned int liveThreads = 0;
  bool abandoned = false;

  // Under `mutex`.
  bool stopping(uint64_t run) const { return run <= stoppedUpTo; }
  void requestStop() {
    stoppedUpTo = runs;
    wake.notify_all();
  }
  // Under `mutex`: runs body(run) on a new emission thread as run `runs + 1`.
  template <class Body>
  uint64_t launch(Body body) {
    const uint64_t run = runs + 1;
    std::thread thread([this, body, run] {
      enterEmissionThread();
      body(run);
      leaveEmissionThread();
    });
    thread.detach();
    runs = run;
    ++liveThreads;
    return run;
  }
  // True on an emission thread of this emitter.
  bool onEmissionThread() const;
  // Without `mutex`: asks every run to stop and waits until their threads
  // ended, but for the calling thread when it is one of them: that one stops
  // once the callback it is in returns.
  void stopThread();
  // Without `mutex`, for destruction: stops the runs. True when the emitter
  // can be freed now; false when the caller is its emission thread, which
  // then frees it when it ends.
  bool retire();

 private:
  void enterEmissionThread();
  void leaveEmissionThread();
};

// Writes lines an emitter noted, without the emitter.
void writeLog(const EmitterKind& kind, const std::vector<EmitterBase::LogLine>& lines);

// Holds an emitter's lock; on leaving, writes the lines noted meanwhile
// without touching the emitter once the lock is released, because a thread
// started under it may destroy the emitter from then on.
class LockedLogging {
 public:
  explicit LockedLogging(EmitterBase& emitter) : emitter_(emitter), lock_(emitter.mutex) {}
  ~LockedLogging() {
    const EmitterKind& kind = emitter_.kind;
    const std::vector<EmitterBase::LogLine> lines = emitter_.takeNotedLines();
    lock_.unlock();
    writeLog(kind, lines);
  }
  LockedLogging(const LockedLogging&) = delete;
  LockedLogging& operator=(const LockedLogging&) = delete;
  std::unique_lock<std::mutex>& lock() { return lock_; }

 private:
  EmitterBase& emitter_;
  std::unique_lock<std::mutex> lock_;
};

// Writes an emitter's noted log lines when it goes out of scope; declared
// before the lock so that it runs after the lock is released.
struct FlushLog {
  EmitterBase* emitter;
  ~FlushLog() {
    if (emitter != nullptr) emitter->flushLog();
  }
};

// The devices of an emitter, claimed from the registry with the emitter as
// owner. Members marked "under `mutex`" expect the caller to hold it; the
// others take it themselves.
template <class Device>
struct EmitterDevices : EmitterBase {
  using EmitterBase::EmitterBase;

  std::vector<std::unique_ptr<Device>> devices;

  // Under `mutex`.
  Device* find(const char* identifier) {
    if (identifier == nullptr) return nullptr;
    for (auto& d : devices) {
      if (d->identifier == identifier) return d.get();
    }
    return nullptr;
  }
  const Device* find(const char* identifier) const { return const_cast<EmitterDevices*>(this)->find(identifier); }

  // Under `mutex`: marks devices that left the registry, or were
  // disconnected, as absent.
  void refreshDevices() {
    DeviceRegistry& registry = DeviceRegistry::instance();
    const uint64_t revision = registry.revision();
    if (revision == registryRevision) return;
    registryRevision = revision;
    for (auto& d : devices) {
      const auto entry = registry.find(d->identifier);
      bool present = entry && entry->device.connected && entry->claimant == this;
      // Replugged or added again after its claim was dropped: the emitter
      // takes its device back as soon as nobody else holds it.
      if (!present && entry && entry->device.connected && entry->claimant == nullptr) {
        present = registry.claim(d->identifier, this);
      }
      if (d->present && !present) {
        dropped(*d);
        note(Velarion::LogLevel::Warning, "Device " + d->identifier + " was lost by its " + kind.name + ": " +
                                              (!entry                   ? "it was removed"
                                               : !entry->device.connected ? "it was disconnected"
                                                                          : "another owner holds it now"));
      } else if (!d->present && present) {
        // The configuration may have changed while it was away.
        d->arrayWidth = entry->device.arrayWidth;
        d->arrayDepth = entry->device.arrayDepth;
        adopted(*d, *entry);
        note(Velarion::LogLevel::Info, "Device " + d->identifier + " is back for its " + kind.name);
      }
      d->present = present;
    }
    if (wantsDevice && devices.empty()) {
      const std::string identifier = requested.empty() ? registry.firstAvailable() : requested;
      if (!identifier.empty() && registry.unavailableReason(identifier, this).empty()) {
        wantsDevice = !acquire(identifier, requestedTransform, /*quiet=*/true);
      }
    }
  }

  // Under `mutex`, after connected() answered false: why, for a refusal.
  std::string notConnectedReason() const {
    DeviceRegistry& registry = DeviceRegistry::instance();
    if (devices.empty()) {
      if (!wantsDevice) return "the " + std::string(kind.name) + " holds no device";
      const std::string name = requested.empty() ? std::string("a free device") : "device " + requested;
      const std::string reason =
          requested.empty() ? std::string("none is free") : registry.unavailableReason(requested, this);
      return "the " + std::string(kind.name) + " holds no device (it waits for " + name + ": " + reason + ")";
    }
    for (const auto& d : devices) {
      if (d->present) continue;
      const std::string reason = registry.unavailableReason(d->identifier, this);
      return "device " + d->identifier + " is not available: " + (reason.empty() ? "it was lost" : reason);
    }
    return std::string();
  }

  // Under `mutex`: holds at least one device and every one is present.
  bool connected() {
    refreshDevices();
    if (devices.empty()) return false;
    for (const auto& d : devices) {
      if (!d->present) return false;
    }
    return true;
  }

  // Under `mutex`: claims and adds the device; notes why it could not
  // (unless `quiet`: a retry whose first failure was noted).
  bool acquire(const std::string& identifier, const Velarion::Transform& transform, bool quiet = false) {
    DeviceRegistry& registry = DeviceRegistry::instance();
    if (identifier.empty() || !registry.claim(identifier, this)) {
      if (!quiet) {
        noteRefusal("claim", "Device " + (identifier.empty() ? std::string("(none free)") : identifier) +
                                 " is not available to " + kind.article + " " + kind.name + ": " +
                                 registry.unavailableReason(identifier, this));
      }
      return false;
    }
    const auto entry = registry.find(identifier);
    if (!entry) {
      registry.release(identifier, this);
      return false;
    }
    auto device = std::make_unique<Device>();
    device->identifier = identifier;
    device->transform = transform;
    device->arrayWidth = entry->device.arrayWidth;
    device->arrayDepth = entry->device.arrayDepth;
    adopted(*device, *entry);
    devices.push_back(std::move(device));
    note(Velarion::LogLevel::Debug, "device claimed: " + identifier, "Devices");
    note(Velarion::LogLevel::Info, capitalised(kind.name) + " claimed device " + identifier);
    return true;
  }

  // Under `mutex`: releases one held device, which stays in the list.
  void release(Device& device) {
    dropped(device);
    if (DeviceRegistry::instance().release(device.identifier, this)) {
      note(Velarion::LogLevel::Debug, "device released: " + device.identifier, "Devices");
    }
  }

  // Under `mutex`: releases every device and forgets them.
  void releaseDevices() {
    for (auto& d : devices) release(*d);
    devices.clear();
  }

  // Under `mutex`: notes that emission started on the held devices.
  void noteStarted(unsigned int sampleRate, std::size_t controlPoints) {
    std::string list;
    for (const auto& d : devices) list += (list.empty() ? "" : ", ") + d->identifier;
    note(Velarion::LogLevel::Info, capitalised(kind.name) + " started on " + list + " at " +
                                       std::to_string(sampleRate) + " Hz with " + std::to_string(controlPoints) +
                                       " control point" + (controlPoints == 1 ? "" : "s"));
  }

  // Construction: claims the named device (null: the first free one) and
  // remembers the request for reclaim().
  void claimAtStart(const char* identifier, const Velarion::Transform& transform) {
    FlushLog flush{this};
    std::lock_guard<std::mutex> lock(mutex);
    requested = identifier != nullptr ? identifier : "";
    requestedTransform = transform;
    wantsDevice = !acquire(identifier != nullptr ? identifier : DeviceRegistry::instance().firstAvailable(), transform);
  }

  // Drops held devices that were lost; in single-device mode without a device
  // claims the requested one again.
  void reclaim() {
    FlushLog flush{this};
    std::lock_guard<std::mutex> lock(mutex);
    registryRevision = ~uint64_t(0);
    refreshDevices();
    for (auto it = devices.begin(); it != devices.end();) {
      if (!(*it)->present) {
        release(**it);
        it = devices.erase(it);
      } else {
        ++it;
      }
    }
    if (mode == Velarion::DeviceSelectionMode::SingleDevice && devices.empty()) {
      acquire(requested.empty() ? DeviceRegistry::instance().firstAvailable() : requested, requestedTransform);
    }
    devicesChanged();
  }

  bool add(const char* identifier, const Velarion::Transform& transform) {
    FlushLog flush{this};
    std::lock_guard<std::mutex> lock(mutex);
    if (identifier == nullptr) {
      noteRefusal("add", "Device not added to " + std::string(kind.article) + " " + kind.name + ": no identifier given");
      return false;
    }
    if (find(identifier) != nullptr) {
      noteRefusal("add", "Device " + std::string(identifier) + " not added: the " + kind.name + " holds it already");
      return false;
    }
    if (mode == Velarion::DeviceSelectionMode::SingleDevice && !devices.empty()) {
      noteRefusal("add", "Device " + std::string(identifier) + " not added: the " + kind.name +
                             " is in single-device mode and holds " + devices.front()->identifier);
      return false;
    }
    if (!acquire(identifier, transform)) return false;
    wantsDevice = false;
    devicesChanged();
    return true;
  }

  bool remove(const char* identifier) {
    FlushLog flush{this};
    std::lock_guard<std::mutex> lock(mutex);
    for (auto it = devices.begin(); it != devices.end(); ++it) {
      if (identifier != nullptr && (*it)->identifier == identifier) {
        release(**it);
        devices.erase(it);
        wantsDevice = false;
        return true;
      }
    }
    noteRefusal("remove", "Device " + std::string(identifier != nullptr ? identifier : "(null)") +
                              " not removed: the " + kind.name + " does not hold it");
    return false;
  }

  bool isConnected() {
    FlushLog flush{this};
    std::lock_guard<std::mutex> lock(mutex);
    return connected();
  }

  Velarion::DeviceSelectionMode selectionMode() const {
    std::lock_guard<std::mutex> lock(mutex);
    return mode;
  }

  // False for an unknown mode, or single-device mode while holding several.
  bool setSelectionMode(Velarion::DeviceSelectionMode newMode) {
    using Velarion::DeviceSelectionMode;
    FlushLog flush{this};
    std::lock_guard<std::mutex> lock(mutex);
    if (newMode != DeviceSelectionMode::SingleDevice && newMode != DeviceSelectionMode::MultipleDevices) {
      noteRefusal("selection", "Device selection mode " + std::to_string(static_cast<int>(newMode)) +
                                   " refused: valid are 0 (single device) and 1 (multiple devices)");
      return false;
    }
    if (newMode == DeviceSelectionMode::SingleDevice && devices.size() > 1) {
      noteRefusal("selection", "Single-device mode refused: the " + std::string(kind.name) + " holds " +
                                   std::to_string(devices.size()) + " devices");
      return false;
    }
    mode = newMode;
    return true;
  }

  // Under `mutex`: notes why a transform cannot be set; null when it can.
  Device* transformTarget(const char* identifier) {
    Device* device = find(identifier);
    if (device == nullptr) {
      noteRefusal("transform", "Device transform refused: the " + std::string(kind.name) + " does not hold device " +
                                   (identifier != nullptr ? identifier : "(null)"));
    }
    return device;
  }

  // Identity for a device not held.
  Velarion::Transform transformOf(const char* identifier) const {
    std::lock_guard<std::mutex> lock(mutex);
    const Device* device = find(identifier);
    return device != nullptr ? device->transform : Velarion::Transform();
  }

  // Of the first held device; 0 without one.
  float arrayWidth() const {
    std::lock_guard<std::mutex> lock(mutex);
    return devices.empty() ? 0.0f : devices.front()->arrayWidth;
  }
  float arrayDepth() const {
    std::lock_guard<std::mutex> lock(mutex);
    return devices.empty() ? 0.0f : devices.front()->arrayDepth;
  }

  // The first held device, or the named one; empty when not held.
  Velarion::DeviceInfo deviceInfo() const {
    std::lock_guard<std::mutex> lock(mutex);
    return devices.empty() ? Velarion::DeviceInfo()
                           : DeviceRegistry::instance().deviceInfo(devices.front()->identifier);
  }
  Velarion::DeviceInfo deviceInfo(const std::string& identifier) const {
    std::lock_guard<std::mutex> lock(mutex);
    return find(identifier.c_str()) != nullptr ? DeviceRegistry::instance().deviceInfo(identifier)
                                               : Velarion::DeviceInfo();
  }

  // The held device's address, or null.
  void* stateEmitter() {
    std::lock_guard<std::mutex> lock(mutex);
    return devices.empty() ? nullptr : devices.front().get();
  }
  void* stateEmitter(const std::string& identifier) {
    std::lock_guard<std::mutex> lock(mutex);
    return find(identifier.c_str());
  }

 protected:
  // Under `mutex`, for what an emitter keeps beside the common data.
  // A device was just claimed and added.
  virtual void adopted(Device&, const DeviceRecord&) {}
  // A device was lost under the emitter, or is being released.
  virtual void dropped(Device&) {}
  // The set of devices changed through reclaim() or add().
  virtual void devicesChanged() {}
};

}  // namespace internal
}  // namespace VelarionEmulator
