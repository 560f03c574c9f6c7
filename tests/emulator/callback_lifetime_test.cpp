// What a careful device library promises about user code it calls: a replaced
// callback is no longer running when the replacement returns, no emulator
// lock is held while user code runs, and an emitter can be stopped or
// destroyed from its own emission thread or from a log handler.
#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <thread>

#if defined(__linux__)
#include <pthread.h>
#include <sched.h>
#endif

#include "Velarion/AmplitudeModulation/ControlPoint.h"
#include "Velarion/AmplitudeModulation/Emitter.h"
#include "Velarion/TimePointStreaming/Emitter.h"
#include "Velarion/VelarionLibrary.h"
#include "Velarion/VersionInfo.h"
#include "VelarionEmulator/AmplitudeModulation.h"
#include "VelarionEmulator/Streaming.h"
#include "device/device_fixture.h"
#include "emulator/emulator_threads.h"

using namespace devicetest;
using namespace emulatortest;
namespace Devices = VelarionEmulator::Devices;
namespace Streaming = VelarionEmulator::Streaming;
using Velarion::LoggingExternalInterface;
using Velarion::VelarionLibrary;
using StreamingEmitter = Velarion::TimePointStreaming::Emitter;
using Velarion::TimePointStreaming::OutputInterval;
using std::chrono::seconds;

namespace {

constexpr const char* kDevice = "VLA16-2A1F0031";
constexpr unsigned int kInfo = 3;

bool startsWith(const char* text, const char* start) { return std::string(text).rfind(start, 0) == 0; }

class EmulatorTest : public ::testing::Test {
 protected:
  void SetUp() override {
    resetEmulator();
    VelarionEmulator::AmplitudeModulation::setManualStepping(false);
    logging.redirectLoggingToNull();
  }
  void TearDown() override { resetEmulator(); }
  bool emitting(const StreamingEmitter& emitter) { return Streaming::statistics(emitter).emitting != 0; }

  LoggingExternalInterface logging;
};

using EmulatorCallbacks = EmulatorTest;
using EmulatorShutdown = EmulatorTest;
using MissedDeadlineReports = EmulatorTest;

// A callback held at a gate on its first call; it notes when it returns.
struct HeldCall {
  Event entered;
  Event release;
  std::atomic<int> calls{0};
  std::atomic<bool> returned{false};

  void pass() {
    if (calls++ == 0) {
      entered.set();
      release.wait();
    }
    returned = true;
  }
  static void onLog(const char*, unsigned int, unsigned int, const char* area, void* self) {
    if (std::string(area) == "Devices") static_cast<HeldCall*>(self)->pass();
  }
  static void onInterval(const StreamingEmitter&, OutputInterval&, const Velarion::HostTimePoint&, void* self) {
    static_cast<HeldCall*>(self)->pass();
  }
};

void nothing(const StreamingEmitter&, OutputInterval&, const Velarion::HostTimePoint&, void* calls) {
  ++*static_cast<std::atomic<int>*>(calls);
}

// Holds a callback inside its first call on one thread, runs `replace` on
// another, and checks that `replace` returned only after the call did.
void expectReplacementWaits(HeldCall& held, const std::function<void()>& trigger,
                            const std::function<void()>& replace) {
  finishesWithin(seconds(20), "replacing a running callback", [&] {
    std::thread caller(trigger);
    if (!held.entered.wait()) {
      held.release.set();
      caller.join();
      FAIL() << "the callback was never called";
    }
    Event replaced;
    std::atomic<bool> returnedFirst{false};
    std::thread replacer([&] {
      replace();
      returnedFirst = held.returned.load();
      replaced.set();
    });
    giveItTime();
    EXPECT_FALSE(replaced.isSet()) << "returned while the replaced callback was still running";
    held.release.set();
    replacer.join();
    caller.join();
    EXPECT_TRUE(returnedFirst);
  });
}

}  // namespace

TEST_F(EmulatorCallbacks, ReplacingOrDroppingALogCallbackWaitsForItsRunningCall) {
  {
    HeldCall held;
    logging.setCallbackForLogLevel(kInfo, &HeldCall::onLog, &held);
    expectReplacementWaits(
        held, [] { Devices::addDevice(Devices::makeGridDevice("HELD-1", 1, 1, 0.01f)); },
        [&] { logging.setCallbackForLogLevel(kInfo, nullptr, nullptr); });
  }
  {
    HeldCall held;
    auto* library = new VelarionLibrary();
    library->getLoggingInterface().redirectLoggingToNull();
    library->getLoggingInterface().setCallbackForLogLevel(kInfo, &HeldCall::onLog, &held);
    expectReplacementWaits(
        held, [] { Devices::addDevice(Devices::makeGridDevice("HELD-2", 1, 1, 0.01f)); }, [&] { delete library; });
  }
}

TEST_F(EmulatorCallbacks, ALogCallbackMayRemoveItselfOrDestroyItsLibraryFromInside) {
  struct Context {
    LoggingExternalInterface* logging;
    VelarionLibrary* library;
    int calls = 0;
  };
  finishesWithin(seconds(10), "changing logging from inside a log callback", [] {
    Context removing{nullptr, nullptr};
    LoggingExternalInterface own;
    own.redirectLoggingToNull();
    removing.logging = &own;
    own.setCallbackForLogLevel(
        kInfo,
        [](const char*, unsigned int, unsigned int, const char*, void* user) {
          auto* c = static_cast<Context*>(user);
          ++c->calls;
          c->logging->setCallbackForLogLevel(kInfo, nullptr, nullptr);
        },
        &removing);
    Devices::addDevice(Devices::makeGridDevice("SELF-1", 1, 1, 0.01f));
    Devices::addDevice(Devices::makeGridDevice("SELF-2", 1, 1, 0.01f));
    EXPECT_EQ(removing.calls, 1);

    Context destroying{nullptr, new VelarionLibrary()};
    destroying.library->getLoggingInterface().redirectLoggingToNull();
    destroying.library->getLoggingInterface().setCallbackForLogLevel(
        kInfo,
        [](const char*, unsigned int, unsigned int, const char*, void* user) {
          auto* c = static_cast<Context*>(user);
          ++c->calls;
          delete c->library;
          c->library = nullptr;
        },
        &destroying);
    Devices::addDevice(Devices::makeGridDevice("SELF-3", 1, 1, 0.01f));
    Devices::addDevice(Devices::makeGridDevice("SELF-4", 1, 1, 0.01f));
    EXPECT_EQ(destroying.calls, 1);
    EXPECT_EQ(destroying.library, nullptr);
  });
}

TEST_F(EmulatorCallbacks, SettingTheEmissionCallbackWaitsForTheRunningInterval) {
  StreamingEmitter emitter(kDevice);
  HeldCall held;
  ASSERT_TRUE(emitter.setEmissionCallback(&HeldCall::onInterval, &held));
  std::atomic<int> later{0};
  expectReplacementWaits(
      held, [&] { ASSERT_TRUE(emitter.start()); }, [&] { emitter.setEmissionCallback(&nothing, &later); });
  ASSERT_TRUE(eventually([&] { return later > 3; }));
  EXPECT_EQ(held.calls, 1) << "the replaced callback ran again";

  // From inside the callback it returns at once; the next interval goes to
  // the replacement.
  struct Swap {
    StreamingEmitter* emitter;
    std::atomic<int>* next;
    std::atomic<int> calls{0};
  } swap{&emitter, &later};
  ASSERT_TRUE(emitter.setEmissionCallback(
      [](const StreamingEmitter&, OutputInterval&, const Velarion::HostTimePoint&, void* user) {
        auto* s = static_cast<Swap*>(user);
        ++s->calls;
        s->emitter->setEmissionCallback(&nothing, s->next);
      },
      &swap));
  const int before = later;
  ASSERT_TRUE(eventually([&] { return later > before + 3; }));
  EXPECT_EQ(swap.calls, 1);
  EXPECT_TRUE(emitter.stop());
}

// Deterministic stepping keeps the same promise as the emission thread.
TEST_F(EmulatorCallbacks, SettingTheEmissionCallbackWaitsForASteppedInterval) {
  auto* emitter = static_cast<StreamingEmitter*>(VelarionEmulator_Streaming_newEmitter());
  HeldCall held;
  ASSERT_TRUE(emitter->setEmissionCallback(&HeldCall::onInterval, &held));
  std::atomic<int> later{0};
  expectReplacementWaits(
      held, [&] { EXPECT_EQ(VelarionEmulator_Streaming_step(emitter, 0, 25000, 8, 1), 0); },
      [&] { emitter->setEmissionCallback(&nothing, &later); });
  ASSERT_EQ(VelarionEmulator_Streaming_step(emitter, 200000, 25000, 8, 1), 0);
  EXPECT_EQ(later, 1);
  EXPECT_EQ(held.calls, 1);

  // A stepped callback replacing itself does not wait on itself.
  ASSERT_TRUE(emitter->setEmissionCallback(
      [](const StreamingEmitter& self, OutputInterval&, const Velarion::HostTimePoint&, void* next) {
        const_cast<StreamingEmitter&>(self).setEmissionCallback(&nothing, next);
      },
      &later));
  finishesWithin(seconds(10), "a stepped callback replacing itself", [&] {
    ASSERT_EQ(VelarionEmulator_Streaming_step(emitter, 400000, 25000, 8, 1), 0);
    ASSERT_EQ(VelarionEmulator_Streaming_step(emitter, 600000, 25000, 8, 1), 0);
  });
  EXPECT_EQ(later, 2);
  VelarionEmulator_Streaming_deleteEmitter(emitter);
}

// What a binding does when a user replaces a callback: install the new one,
// then free what the old one used. The old one must never see freed data.
namespace {
struct Tagged {
  static constexpr uint32_t kAlive = 0xC0FFEE;
  std::atomic<uint32_t> tag{kAlive};
  std::atomic<int>* violations;
  void enter() {
    if (tag.load() != kAlive) ++*violations;
  }
  ~Tagged() { tag = 0xDEAD; }
};
}  // namespace

TEST_F(EmulatorCallbacks, AReplacedCallbackIsNeverEnteredOnceTheReplacementReturned) {
  std::atomic<int> violations{0};
  finishesWithin(seconds(30), "replacing callbacks under load", [&] {
    std::atomic<bool> done{false};
    std::vector<std::thread> loggers;
    for (int t = 0; t < 3; ++t) {
      loggers.emplace_back([&] {
        while (!done) Velarion::VersionInfo::checkVersion(2, 6, 4);  // a Debug line each
      });
    }
    Tagged* current = nullptr;
    for (int i = 0; i < 2000; ++i) {
      auto* next = new Tagged();
      next->violations = &violations;
      logging.setCallbackForLogLevel(
          4, [](const char*, unsigned int, unsigned int, const char*, void* user) { static_cast<Tagged*>(user)->enter(); },
          next);
      delete current;
      current = next;
    }
    logging.setCallbackForLogLevel(4, nullptr, nullptr);
    delete current;
    done = true;
    for (std::thread& t : loggers) t.join();
  });
  EXPECT_EQ(violations, 0);

  StreamingEmitter emitter(kDevice);
  ASSERT_TRUE(emitter.setExtendedOption("outputIntervalMicroseconds", "250"));
  ASSERT_TRUE(emitter.start());
  finishesWithin(seconds(30), "replacing emission callbacks while streaming", [&] {
    Tagged* current = nullptr;
    for (int i = 0; i < 300; ++i) {
      auto* next = new Tagged();
      next->violations = &violations;
      emitter.setEmissionCallback(
          [](const StreamingEmitter&, OutputInterval&, const Velarion::HostTimePoint&, void* user) {
            static_cast<Tagged*>(user)->enter();
          },
          next);
      delete current;
      current = next;
      std::this_thread::yield();
    }
    emitter.setEmissionCallback(nullptr, nullptr);
    delete current;
  });
  EXPECT_TRUE(emitter.stop());
  EXPECT_EQ(violations, 0);
}

// A handler that stops an emitter from an application thread used to hang:
// the hub held its lock while the handler ran, and the emission thread needed
// it for its last line.
TEST_F(EmulatorShutdown, AStreamingEmitterStopsFromALogHandlerOnAnApplicationThread) {
  StreamingEmitter emitter(kDevice);
  std::atomic<int> calls{0};
  emitter.setEmissionCallback(&nothing, &calls);
  ASSERT_TRUE(emitter.start());
  ASSERT_TRUE(eventually([&] { return calls > 3; }));

  struct Context {
    StreamingEmitter* emitter;
    std::atomic<bool> stopped{false};
  } context{&emitter};
  logging.setCallbackForLogLevel(
      kInfo,
      [](const char* message, unsigned int, unsigned int, const char*, void* user) {
        auto* c = static_cast<Context*>(user);
        if (startsWith(message, "device added: TRIGGER")) c->stopped = c->emitter->stop();
      },
      &context);
  finishesWithin(seconds(10), "stop() from a log handler",
                 [] { Devices::addDevice(Devices::makeGridDevice("TRIGGER", 1, 1, 0.01f)); });
  logging.setCallbackForLogLevel(kInfo, nullptr, nullptr);
  EXPECT_TRUE(context.stopped);
  EXPECT_FALSE(emitting(emitter));
  const int after = calls;
  giveItTime();
  EXPECT_EQ(calls, after) << "intervals after stop() returned";
}

TEST_F(EmulatorShutdown, AStreamingEmitterStopsFromItsOwnCallbackAndStartsAgain) {
  StreamingEmitter emitter(kDevice);
  struct Context {
    StreamingEmitter* emitter = nullptr;
    std::atomic<int> calls{0};
    std::atomic<int> stops{0};
    Event stopped;
  } context;
  context.emitter = &emitter;
  emitter.setEmissionCallback(
      [](const StreamingEmitter&, OutputInterval&, const Velarion::HostTimePoint&, void* user) {
        auto* c = static_cast<Context*>(user);
        if (++c->calls == 3) {
          c->stops += c->emitter->stop() ? 1 : 0;
          c->emitter->start();  // refused: the stop it asked for comes first
          c->stopped.set();
        }
      },
      &context);
  finishesWithin(seconds(10), "stop() from the emission callback", [&] {
    ASSERT_TRUE(emitter.start());
    ASSERT_TRUE(context.stopped.wait());
    ASSERT_TRUE(eventually([&] { return !emitting(emitter); }));
  });
  EXPECT_EQ(context.calls, 3) << "the interval in progress is the last one";
  EXPECT_EQ(context.stops, 1);
  ASSERT_TRUE(emitter.start());
  ASSERT_TRUE(eventually([&] { return context.calls > 6; }));
  EXPECT_TRUE(emitter.stop());
}

TEST_F(EmulatorShutdown, AStreamingEmitterDestroyedFromItsOwnEmissionThread) {
  LogCapture capture(logging);
  struct Context {
    explicit Context(StreamingEmitter* e) : emitter(e) {}
    StreamingEmitter* emitter;
    std::atomic<int> calls{0};
    Event destroyed;
  };

  // From its emission callback.
  Context fromCallback{new StreamingEmitter(kDevice)};
  fromCallback.emitter->setEmissionCallback(
      [](const StreamingEmitter&, OutputInterval&, const Velarion::HostTimePoint&, void* user) {
        auto* c = static_cast<Context*>(user);
        if (++c->calls == 3) {
          delete c->emitter;
          c->emitter = nullptr;
          c->destroyed.set();
        }
      },
      &fromCallback);
  VelarionLibrary library;
  library.getLoggingInterface().redirectLoggingToNull();
  finishesWithin(seconds(10), "destruction from the emission callback", [&] {
    ASSERT_TRUE(fromCallback.emitter->start());
    ASSERT_TRUE(fromCallback.destroyed.wait());
    EXPECT_FALSE(library.isDeviceClaimed(kDevice)) << "the device is released at once";
    ASSERT_TRUE(eventually([&] {
      return capture.find("TimePointStreaming", "Time-point streaming emitter stopped after 3 intervals").has_value();
    }));
  });
  EXPECT_EQ(fromCallback.calls, 3);

  // From a log handler on its emission thread: the thread's first line says
  // what priority it got.
  struct Handler {
    Context* context;
    std::thread::id main;
  };
  Context fromHandler{new StreamingEmitter(kDevice)};
  Handler handler{&fromHandler, std::this_thread::get_id()};
  fromHandler.emitter->setEmissionCallback(&nothing, &fromHandler.calls);
  Velarion::LoggingCallbackFunction destroy = [](const char* message, unsigned int, unsigned int, const char* area,
                                                 void* user) {
    auto* h = static_cast<Handler*>(user);
    const bool priorityLine = startsWith(message, "Emission thread runs") || startsWith(message, "Could not raise") ||
                              startsWith(message, "Real-time priority is not available");
    if (std::string(area) == "TimePointStreaming" && priorityLine && std::this_thread::get_id() != h->main &&
        h->context->emitter != nullptr) {
      delete h->context->emitter;
      h->context->emitter = nullptr;
      h->context->destroyed.set();
    }
  };
  LoggingExternalInterface priority;
  priority.redirectLoggingToNull();
  priority.setCallbackForLogLevel(2, destroy, &handler);
  priority.setCallbackForLogLevel(4, destroy, &handler);
  library.setThreadPriorityManagementAllowed(true);
  finishesWithin(seconds(10), "destruction from a log handler on the emission thread", [&] {
    ASSERT_TRUE(fromHandler.emitter->start());
    ASSERT_TRUE(fromHandler.destroyed.wait());
    ASSERT_TRUE(eventually([&] {
      return capture.find("TimePointStreaming", "Time-point streaming emitter stopped after 0 intervals").has_value();
    }));
  });
  EXPECT_EQ(fromHandler.calls, 0);
  EXPECT_FALSE(library.isDeviceClaimed(kDevice));
}

TEST_F(EmulatorShutdown, AnAmplitudeModulationEmitterDestroyedFromALogHandlerOnItsThread) {
  struct Context {
    Velarion::AmplitudeModulation::Emitter* emitter = nullptr;
    std::thread::id main;
    Event destroyed;
  } context;
  context.emitter = new Velarion::AmplitudeModulation::Emitter(kDevice);
  context.main = std::this_thread::get_id();
  // The emission thread notices the device is gone and says so.
  logging.setCallbackForLogLevel(
      2,
      [](const char* message, unsigned int, unsigned int, const char*, void* user) {
        auto* c = static_cast<Context*>(user);
        if (std::string(message).find("was lost by its amplitude modulation emitter") != std::string::npos &&
            std::this_thread::get_id() != c->main && c->emitter != nullptr) {
          delete c->emitter;
          c->emitter = nullptr;
          c->destroyed.set();
        }
      },
      &context);
  const Velarion::AmplitudeModulation::ControlPoint point(0.0f, 0.0f, 0.2f, 1.0f, 200.0f);
  ASSERT_TRUE(context.emitter->update(&point, 1));
  finishesWithin(seconds(10), "destruction from a log handler on the emission thread", [&] {
    ASSERT_TRUE(Devices::removeDevice(kDevice));
    ASSERT_TRUE(context.destroyed.wait());
  });
  logging.setCallbackForLogLevel(2, nullptr, nullptr);
  EXPECT_FALSE(VelarionEmulator::AmplitudeModulation::currentDrive(std::string(kDevice)).has_value());
}

// Every interval misses its deadline here (no lead time): the first miss is
// reported at once, then one line a second at most, and the lines add up to
// every miss.
TEST_F(MissedDeadlineReports, TheFirstAtOnceThenAtMostOneLineASecondWithTheCount) {
  LogCapture capture(logging);
  StreamingEmitter emitter(kDevice);
  std::atomic<int> calls{0};
  emitter.setEmissionCallback(&nothing, &calls);
  ASSERT_TRUE(emitter.setExtendedOption("outputIntervalMicroseconds", "250"));
  ASSERT_TRUE(emitter.setExtendedOption("leadTimeMicroseconds", "0"));
  const auto began = std::chrono::steady_clock::now();
  ASSERT_TRUE(emitter.start());
  ASSERT_TRUE(eventually([&] { return Streaming::statistics(emitter).missedDeadlines > 200; }));
  ASSERT_TRUE(emitter.stop());
  const double elapsed = std::chrono::duration<double>(std::chrono::steady_clock::now() - began).count();
  const Streaming::EmissionStatistics stats = Streaming::statistics(emitter);

  std::vector<std::string> lines;
  for (const LogCapture::Message& m : capture.messages()) {
    if (m.area == "TimePointStreaming" && m.level == 2 && m.text.find("missed") != std::string::npos) {
      lines.push_back(m.text);
    }
  }
  ASSERT_FALSE(lines.empty());
  EXPECT_EQ(lines.front().rfind("An output interval missed its deadline by ", 0), 0u) << lines.front();
  EXPECT_LE(lines.size(), 2 + static_cast<std::size_t>(elapsed)) << "one line a second at most";
  uint64_t reported = 1;
  for (std::size_t i = 1; i < lines.size(); ++i) {
    const bool counted = lines[i].find(" output intervals missed their deadlines since the last report") !=
                             std::string::npos ||
                         lines[i].find(" more output intervals missed their deadlines") != std::string::npos;
    EXPECT_TRUE(counted) << lines[i];
    reported += std::stoull(lines[i]);
  }
  EXPECT_EQ(reported, stats.missedDeadlines);
  // Without lead time every interval reaches its callback already late: the
  // statistics and the lines put it on the thread, not on the callback.
  EXPECT_EQ(stats.lateCalls, stats.missedDeadlines);
  EXPECT_NE(lines.front().find(" us after the deadline"), std::string::npos) << lines.front();
}

// A move re-points the emitter the callback is handed, and the moved-from
// emitter may be freed as soon as the move returns: so the move waits for a
// callback in progress, as destruction does for a stepped one.
TEST_F(EmulatorCallbacks, MovesAndDestructionWaitForTheRunningCallback) {
  auto* original = new StreamingEmitter(kDevice);
  HeldCall held;
  ASSERT_TRUE(original->setEmissionCallback(&HeldCall::onInterval, &held));
  std::unique_ptr<StreamingEmitter> moved;
  expectReplacementWaits(
      held, [&] { ASSERT_TRUE(original->start()); },
      [&] { moved = std::make_unique<StreamingEmitter>(std::move(*original)); });
  delete original;
  struct Handed {
    const StreamingEmitter* expected;
    std::atomic<int> calls{0};
    std::atomic<int> wrong{0};
  } handed{moved.get()};
  moved->setEmissionCallback(
      [](const StreamingEmitter& self, OutputInterval&, const Velarion::HostTimePoint&, void* user) {
        auto* h = static_cast<Handed*>(user);
        if (&self != h->expected || self.getMaximumControlPointCount() != 1) ++h->wrong;
        ++h->calls;
      },
      &handed);
  ASSERT_TRUE(eventually([&] { return handed.calls > 3; }));
  EXPECT_EQ(handed.wrong, 0);
  moved.reset();

  auto* stepped = static_cast<StreamingEmitter*>(VelarionEmulator_Streaming_newEmitter());
  HeldCall heldStep;
  ASSERT_TRUE(stepped->setEmissionCallback(&HeldCall::onInterval, &heldStep));
  expectReplacementWaits(
      heldStep, [&] { EXPECT_EQ(VelarionEmulator_Streaming_step(stepped, 0, 25000, 8, 1), 0); },
      [&] { VelarionEmulator_Streaming_deleteEmitter(stepped); });
}

// From inside the callback a move cannot wait for it: it returns at once, and
// the next interval is handed the new emitter.
TEST_F(EmulatorCallbacks, ACallbackMayMoveItsOwnEmitter) {
  struct Context {
    StreamingEmitter* emitter;
    StreamingEmitter* moved = nullptr;
    std::atomic<int> calls{0};
    std::atomic<int> handedMoved{0};
  } context{new StreamingEmitter(kDevice)};
  context.emitter->setEmissionCallback(
      [](const StreamingEmitter& self, OutputInterval&, const Velarion::HostTimePoint&, void* user) {
        auto* c = static_cast<Context*>(user);
        if (++c->calls == 2) c->moved = new StreamingEmitter(std::move(*c->emitter));
        if (&self == c->moved) ++c->handedMoved;
      },
      &context);
  finishesWithin(seconds(10), "a move from inside the emission callback", [&] {
    ASSERT_TRUE(context.emitter->start());
    ASSERT_TRUE(eventually([&] { return context.handedMoved > 2; }));
  });
  delete context.moved;
  delete context.emitter;
}

#if defined(__linux__)
// An emitter behind schedule hands out intervals back to back; at real-time
// priority it must still give way, or another emitter's thread on the same
// core would get nothing until the slow one caught up (it never does here).
TEST_F(MissedDeadlineReports, AnEmitterBehindScheduleLetsAnotherRunOnItsCore) {
  cpu_set_t all;
  ASSERT_EQ(sched_getaffinity(0, sizeof all, &all), 0);
  cpu_set_t one;
  CPU_ZERO(&one);
  for (int cpu = 0; cpu < CPU_SETSIZE; ++cpu) {
    if (CPU_ISSET(cpu, &all)) {
      CPU_SET(cpu, &one);
      break;
    }
  }
  StreamingEmitter slow(kDevice);
  StreamingEmitter fast("VLC10-5B330107");
  slow.setEmissionCallback(
      [](const StreamingEmitter&, OutputInterval&, const Velarion::HostTimePoint&, void*) {
        const auto until = std::chrono::steady_clock::now() + std::chrono::milliseconds(3);
        while (std::chrono::steady_clock::now() < until) {
        }
      },
      nullptr);
  std::atomic<int> fastCalls{0};
  fast.setEmissionCallback(&nothing, &fastCalls);
  // Both emission threads start on one core, which they inherit from here;
  // the slow one hogs it only from its first interval on, a lead time later.
  ASSERT_EQ(pthread_setaffinity_np(pthread_self(), sizeof one, &one), 0);
  const bool started = fast.start() && slow.start();
  ASSERT_EQ(pthread_setaffinity_np(pthread_self(), sizeof all, &all), 0);
  ASSERT_TRUE(started);
  ASSERT_TRUE(eventually([&] { return Streaming::statistics(slow).intervals > 2; }));
  if (!Streaming::statistics(slow).raisedPriority) {
    slow.stop();
    GTEST_SKIP() << "no real-time priority here: the scheduler shares the core anyway";
  }
  const int before = fastCalls;
  const bool progressed = eventually([&] { return fastCalls > before + 20; });
  const int got = fastCalls - before;
  slow.stop();
  fast.stop();
  EXPECT_TRUE(progressed) << "the fast emitter got " << got << " intervals while the slow one was behind";
  EXPECT_GT(Streaming::statistics(slow).missedDeadlines, 0u);
}
#endif
