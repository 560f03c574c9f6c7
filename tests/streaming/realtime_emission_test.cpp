// A short real-time run: the emulator's emission thread drives the bridge and
// a native stand-in for the managed callback draws a circle. Nothing here
// asserts on time: waits only bound how long a broken emitter may hang.
#include <atomic>
#include <chrono>
#include <cmath>
#include <iostream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "Velarion/HostTime.h"
#include "Velarion/LoggingExternalInterface.h"
#include "Velarion/TimePointStreaming/Emitter.h"
#include "VelarionEmulator/Devices.h"
#include "VelarionEmulator/Streaming.h"
#include "device/device_fixture.h"
#include "timepoint_streaming/emission_callback_wrapper.h"

using namespace harness;
using Velarion::HostDuration;
using Velarion::HostTimePoint;
using Velarion::TimePointStreaming::Emitter;
namespace Streaming = VelarionEmulator::Streaming;

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kRadius = 0.02;
constexpr double kFrequency = 100.0;
constexpr double kHeight = 0.2;

double secondsOf(int64_t nanoseconds) { return static_cast<double>(nanoseconds) / 1e9; }
double secondsOf(const HostTimePoint& t) { return static_cast<double>(t.seconds) + t.fraction / 4294967296.0; }

// Point j of the circle at time t; a second point runs opposite the first.
Velarion::Vector3 circleAt(double t, unsigned int j) {
  const double angle = 2.0 * kPi * kFrequency * std::fmod(t, 1.0 / kFrequency) + kPi * j;
  return Velarion::Vector3(static_cast<float>(kRadius * std::cos(angle)), static_cast<float>(kRadius * std::sin(angle)),
                           static_cast<float>(kHeight));
}

// What the emission thread's calls saw; read by the test once they stopped.
struct Drawing {
  std::atomic<uint64_t> calls{0};
  std::atomic<unsigned int> lastControlPointCount{0};
  std::atomic<uint64_t> gaps{0};
  std::atomic<uint64_t> withoutPoints{0};
  HostTimePoint previousLast;
  HostDuration spacing;
  bool started = false;

  void reset() {
    calls = 0;
    lastControlPointCount = 0;
    gaps = 0;
    withoutPoints = 0;
    started = false;
  }
};
Drawing drawing;

void drawCircle(unsigned int n, unsigned int m, unsigned int stride, const HostTimePoint*, HostTimePoint* times,
                EmissionControlPointRecord* records) {
  if (n > 0) {
    HostTimePoint expected = drawing.previousLast;
    expected += drawing.spacing;
    if (drawing.started && (expected.seconds != times[0].seconds || expected.fraction != times[0].fraction)) {
      ++drawing.gaps;
    }
    drawing.previousLast = times[n - 1];
    drawing.started = true;
  }
  for (unsigned int k = 0; k < n; ++k) {
    for (unsigned int j = 0; j < m; ++j) {
      EmissionControlPointRecord& r = records[k * stride + j];
      r.position = circleAt(secondsOf(times[k]), j);
      r.intensity = 1.0f;
      r.enabled = 1;
      r.modified = 1;
    }
  }
  drawing.lastControlPointCount = m;
  if (m == 0) ++drawing.withoutPoints;
  ++drawing.calls;
}

// Polls `done` for at most a few seconds.
template <class F>
bool eventually(F done) {
  const auto until = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  while (!done()) {
    if (std::chrono::steady_clock::now() > until) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  return true;
}

class RealTimeEmission : public ExportTest {
 protected:
  using CallbackOverride = void (*)(unsigned int, unsigned int, unsigned int, const HostTimePoint*, HostTimePoint*,
                                    EmissionControlPointRecord*);

  void SetUp() override {
    ExportTest::SetUp();
    VelarionEmulator::Devices::resetToDefaults();
    drawing.reset();
    logging.redirectLoggingToNull();
    void* transform = call<void*()>("CSharp_Velarion_new_Transform__SWIG_2");
    handle = call<void*(const char*, void*)>("CSharp_Velarion_new_TimePointStreamingEmitter__SWIG_2",
                                             "VLA16-2A1F0031", transform);
    call<void(void*)>("CSharp_Velarion_delete_Transform", transform);
    wrapper = call<void*(void*)>("CSharp_Velarion_new_EmissionCallbackWrapper", handle);
  }
  void TearDown() override {
    call<unsigned(void*)>("CSharp_Velarion_TimePointStreamingEmitter_stop", handle);
    call<void(void*)>("CSharp_Velarion_delete_TimePointStreamingEmitter", handle);
    call<void(void*)>("CSharp_Velarion_delete_EmissionCallbackWrapper", wrapper);
    ExportTest::TearDown();
  }
  void connect(CallbackOverride callback) {
    using Connect = void(void*, void*, void*, CallbackOverride);
    call<Connect>("CSharp_Velarion_EmissionCallbackWrapper_director_connect", wrapper, nullptr, nullptr, callback);
  }
  unsigned invoke(const char* member) {
    return call<unsigned(void*)>((std::string("CSharp_Velarion_TimePointStreamingEmitter_") + member).c_str(), handle);
  }
  Emitter& emitter() const { return *static_cast<Emitter*>(handle); }
  // Streams the circle through the bridge.
  void startDrawing() {
    connect(&drawCircle);
    drawing.spacing = *static_cast<const HostDuration*>(
        call<void*(void*)>("CSharp_Velarion_TimePointStreamingEmitter_getManagedSamplingInterval", handle));
    ASSERT_EQ(call<unsigned(void*, void*)>("CSharp_Velarion_TimePointStreamingEmitter_setManagedEmissionCallback",
                                           handle, wrapper),
              1u);
    ASSERT_EQ(invoke("start"), 1u);
  }

  Velarion::LoggingExternalInterface logging;
  devicetest::LogCapture sink{logging};
  void* handle = nullptr;
  void* wrapper = nullptr;
};

}  // namespace

TEST_F(RealTimeEmission, IntervalsAreGaplessAndTheEmittedCircleIsRecorded) {
  ASSERT_NO_FATAL_FAILURE(startDrawing());
  EXPECT_THROW(Streaming::step(emitter(), Streaming::Interval()), std::logic_error)
      << "stepping must not race the emission thread";

  ASSERT_TRUE(eventually([] { return drawing.calls > 50; }));
  // A second point joins at the next interval.
  call<unsigned(void*, unsigned)>("CSharp_Velarion_TimePointStreamingEmitter_setMaximumControlPointCount", handle, 2u);
  ASSERT_TRUE(eventually([] { return drawing.lastControlPointCount == 2; }));
  const uint64_t callsAtTwo = drawing.calls;
  ASSERT_TRUE(eventually([&] { return drawing.calls > callsAtTwo + 50; }));
  ASSERT_EQ(invoke("stop"), 1u);

  const uint64_t callsAfterStop = drawing.calls;
  std::this_thread::sleep_for(std::chrono::milliseconds(20));
  EXPECT_EQ(drawing.calls, callsAfterStop) << "stop() joins the emission thread";
  EXPECT_EQ(drawing.gaps, 0u);

  const Streaming::EmissionStatistics stats = Streaming::statistics(emitter());
  EXPECT_EQ(stats.emitting, 0u);
  EXPECT_EQ(stats.intervals, callsAfterStop);
  std::cout << "[ stats    ] " << stats.intervals << " intervals, " << stats.timePoints << " time points, "
            << stats.missedDeadlines << " missed deadlines, callback median " << stats.callbackMedianMicroseconds
            << " us, p99 " << stats.callbackP99Microseconds << " us, real-time priority "
            << (stats.raisedPriority ? "yes" : "no") << std::endl;

  // Every recorded sample lies on the circle at its own time, time points
  // follow at the sampling interval, and both points appear.
  const std::vector<Streaming::EmittedSample> samples = Streaming::emittedSamples(emitter());
  ASSERT_FALSE(samples.empty());
  std::size_t second = 0;
  int64_t previous = samples.front().timeNanoseconds;
  for (std::size_t i = 0; i < samples.size(); ++i) {
    const Streaming::EmittedSample& s = samples[i];
    ASSERT_EQ(s.enabled, 1u) << "sample " << i;
    const Velarion::Vector3 expected = circleAt(secondsOf(s.timeNanoseconds), s.index);
    ASSERT_NEAR(s.position[0], expected.x, 1e-6) << "sample " << i;
    ASSERT_NEAR(s.position[1], expected.y, 1e-6) << "sample " << i;
    ASSERT_EQ(s.position[2], static_cast<float>(kHeight));
    ASSERT_EQ(s.intensity, 1.0f);
    const int64_t step = s.timeNanoseconds - previous;
    ASSERT_TRUE(step == 0 || std::llabs(step - 25000) <= 1) << "sample " << i << " follows after " << step << " ns";
    previous = s.timeNanoseconds;
    second += s.index == 1;
  }
  EXPECT_GT(second, 0u);

  ASSERT_TRUE(sink.find("TimePointStreaming", "Time-point streaming emitter started on VLA16-2A1F0031 at 40000 Hz"));
  const auto stopped = sink.find("TimePointStreaming", "Time-point streaming emitter stopped after");
  ASSERT_TRUE(stopped.has_value());
  EXPECT_NE(stopped->thread, std::this_thread::get_id()) << "the emission thread reports its own end";
}

TEST_F(RealTimeEmission, ACallbackThatThrowsStopsEmissionWithAnError) {
  // Unconnected: the director throws on the first interval.
  ASSERT_EQ(call<unsigned(void*, void*)>("CSharp_Velarion_TimePointStreamingEmitter_setManagedEmissionCallback",
                                         handle, wrapper),
            1u);
  ASSERT_EQ(invoke("start"), 1u);
  ASSERT_TRUE(eventually([&] { return Streaming::statistics(emitter()).emitting == 0; }));
  const auto error = sink.find("TimePointStreaming", "The emission callback threw (");
  ASSERT_TRUE(error.has_value());
  EXPECT_EQ(error->level, 1u);
  EXPECT_NE(error->text.find("EmissionCallbackWrapper::callback"), std::string::npos) << error->text;

  // The emitter can start again once the callback is fixed.
  connect(&drawCircle);
  const uint64_t before = drawing.calls;
  ASSERT_EQ(invoke("start"), 1u);
  ASSERT_TRUE(eventually([&] { return drawing.calls > before + 5; }));
}

// Moving a streaming emitter and freeing the moved-from one while it streams:
// the callback is never handed the emitter that was moved from.
TEST_F(RealTimeEmission, AnEmitterMovedAndFreedWhileStreamingKeepsStreaming) {
  ASSERT_NO_FATAL_FAILURE(startDrawing());
  for (int move = 0; move < 40; ++move) {
    const uint64_t before = drawing.calls;
    ASSERT_TRUE(eventually([&] { return drawing.calls > before; }));
    void* moved = call<void*(void*)>("CSharp_Velarion_new_TimePointStreamingEmitter__SWIG_3", handle);
    ASSERT_NE(moved, nullptr);
    call<void(void*)>("CSharp_Velarion_delete_TimePointStreamingEmitter", handle);
    handle = moved;
  }
  const uint64_t before = drawing.calls;
  ASSERT_TRUE(eventually([&] { return drawing.calls > before + 5; }));
  EXPECT_EQ(invoke("getMaximumControlPointCount"), 1u);
  EXPECT_EQ(drawing.withoutPoints, 0u) << "a callback was handed the emitter moved from";
  EXPECT_EQ(drawing.gaps, 0u) << "the run went on, gapless, through every move";
}
