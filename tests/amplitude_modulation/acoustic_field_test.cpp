// The emulated amplitude modulation emitter as a device: focusing phases,
// the pressure field they make, modulation envelopes, device placement and
// the emitter's rules about devices, limits and options.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cmath>
#include <string>
#include <thread>
#include <vector>

#include "Velarion/AmplitudeModulation/ControlPoint.h"
#include "Velarion/AmplitudeModulation/Emitter.h"
#include "Velarion/LoggingExternalInterface.h"
#include "Velarion/VelarionLibrary.h"
#include "VelarionEmulator/AmplitudeModulation.h"
#include "VelarionEmulator/Devices.h"
#include "device/device_fixture.h"

using Velarion::Matrix3x3;
using Velarion::Transform;
using Velarion::Vector3;
using Velarion::AmplitudeModulation::ControlPoint;
using Velarion::AmplitudeModulation::Emitter;
namespace emulator = VelarionEmulator::AmplitudeModulation;

namespace {

const char* const kDevice = "VLA16-2A1F0031";  // 16 x 16 at 10.5 mm
const char* const kOtherDevice = "VLC10-5B330107";
constexpr double kPi = 3.14159265358979323846;
const double kStep = 2.0 * kPi / emulator::kPhaseSteps;

double wavenumber(double speedOfSound = emulator::kDefaultSpeedOfSound) {
  return 2.0 * kPi * emulator::kCarrierFrequency / speedOfSound;
}

double distance(const Vector3& a, const Vector3& b) {
  const double x = double(a.x) - b.x, y = double(a.y) - b.y, z = double(a.z) - b.z;
  return std::sqrt(x * x + y * y + z * z);
}

// Distance between two angles on the circle.
double circular(double a, double b) { return std::fabs(std::remainder(a - b, 2.0 * kPi)); }

float pressure(float x, float y, float z) { return emulator::pressureAmplitudeAt(Vector3(x, y, z)); }

class AcousticField : public ::testing::Test {
 protected:
  void SetUp() override {
    VelarionEmulator::Devices::resetToDefaults();
    emulator::setManualStepping(true);
  }
  void TearDown() override { emulator::setManualStepping(false); }

  static emulator::DeviceDrive drive(const char* device = kDevice) {
    auto current = emulator::currentDrive(std::string(device));
    EXPECT_TRUE(current.has_value()) << device << " emits nothing";
    return current ? *current : emulator::DeviceDrive();
  }
  static bool update(Emitter& e, const std::vector<ControlPoint>& points) {
    return e.update(points.empty() ? nullptr : points.data(), points.size());
  }
};

}  // namespace

TEST_F(AcousticField, EveryTransducerIsDrivenAtMinusKTimesItsDistanceToThePoint) {
  Emitter emitter(kDevice, Transform());
  const Vector3 focus(0.02f, -0.01f, 0.15f);
  ASSERT_TRUE(update(emitter, {ControlPoint(focus, 1.0f, 200.0f)}));
  const emulator::DeviceDrive frame = drive();
  ASSERT_EQ(frame.transducers.size(), 256u);
  for (const emulator::TransducerDrive& t : frame.transducers) {
    const double expected = -wavenumber() * distance(t.position, focus);
    EXPECT_LE(circular(t.phase, expected), kStep / 2 + 1e-5) << "element at " << t.position.x << ", " << t.position.y;
    EXPECT_FLOAT_EQ(t.phase, float(t.phaseStep * kStep));
    EXPECT_EQ(t.amplitude, 1.0f) << "a single full point at its envelope peak drives every element fully";
  }
}

TEST_F(AcousticField, PressurePeaksAtTheControlPoint) {
  Emitter emitter(kDevice, Transform());
  const Vector3 focus(0.02f, -0.01f, 0.15f);
  ASSERT_TRUE(update(emitter, {ControlPoint(focus, 1.0f, 200.0f)}));
  const float atFocus = pressure(focus.x, focus.y, focus.z);
  // Hundreds of elements at a few tens of pascals each, in phase.
  EXPECT_GT(atFocus, 1000.0f);
  EXPECT_LT(atFocus, 20000.0f);
  for (const Vector3& away : {Vector3(0.02f, 0, 0), Vector3(-0.02f, 0, 0), Vector3(0, 0.02f, 0)}) {
    EXPECT_GT(atFocus, 4.0f * pressure(focus.x + away.x, focus.y + away.y, focus.z)) << away.x << ", " << away.y;
  }
  // Along the beam the focal region is centimetres long: only the side closer
  // to the array falls off as clearly.
  EXPECT_GT(atFocus, 1.2f * pressure(focus.x, focus.y, focus.z - 0.02f));
  // Nothing within a centimetre beats the focus by more than rounding.
  for (int i = -5; i <= 5; ++i) {
    for (int j = -5; j <= 5; ++j) {
      EXPECT_LE(pressure(focus.x + 0.002f * i, focus.y + 0.002f * j, focus.z), atFocus * 1.01f) << i << ", " << j;
    }
  }
  // The complex sum of one frame equals the whole field when it is the only one.
  EXPECT_NEAR(std::abs(emulator::pressureAt(drive(), focus)), atFocus, atFocus * 1e-4);
}

TEST_F(AcousticField, DevicesPlacedByTheirTransformsFocusTogether) {
  // The second array sits 0.2 m along x, tilted 20 degrees about y towards
  // the first, so both face the space between them.
  const double tilt = -20.0 * kPi / 180.0;
  const Transform tilted(Matrix3x3(std::cos(tilt), 0, std::sin(tilt), 0, 1, 0, -std::sin(tilt), 0, std::cos(tilt)),
                         Vector3(0.2f, 0, 0));
  Emitter emitter(kDevice, Transform());
  ASSERT_TRUE(emitter.setDeviceSelectionMode(Velarion::DeviceSelectionMode::MultipleDevices));
  ASSERT_TRUE(emitter.addDevice(kOtherDevice, tilted));
  const Vector3 focus(0.1f, 0.0f, 0.2f);
  ASSERT_TRUE(update(emitter, {ControlPoint(focus, 1.0f, 100.0f)}));

  const emulator::DeviceDrive second = drive(kOtherDevice);
  ASSERT_EQ(second.transducers.size(), 100u);
  for (const emulator::TransducerDrive& t : second.transducers) {
    EXPECT_NEAR(t.direction.x, std::sin(tilt), 1e-6);
    EXPECT_LE(circular(t.phase, -wavenumber() * distance(t.position, focus)), kStep / 2 + 1e-5);
  }
  const float both = pressure(focus.x, focus.y, focus.z);
  const float firstAlone = std::abs(emulator::pressureAt(drive(kDevice), focus));
  const float secondAlone = std::abs(emulator::pressureAt(second, focus));
  EXPECT_NEAR(both, firstAlone + secondAlone, both * 0.02f) << "the two fields arrive in phase";
  EXPECT_GT(both, 4.0f * pressure(focus.x, focus.y + 0.02f, focus.z));
}

TEST_F(AcousticField, EnvelopeFollowsTheWaveformAtThePointsFrequency) {
  Emitter emitter(kDevice, Transform());
  ASSERT_TRUE(update(emitter, {ControlPoint(0, 0, 0.15f, 0.8f, 125.0f)}));
  // 16000 samples a second: one 125 Hz period is 128 samples.
  ASSERT_EQ(emitter.getSampleRate(), emulator::kDefaultSampleRate);
  const std::vector<unsigned> phaseSteps = [&] {
    std::vector<unsigned> steps;
    for (const auto& t : drive().transducers) steps.push_back(t.phaseStep);
    return steps;
  }();
  auto amplitudeAfter = [&](unsigned samples) {
    emulator::step(emitter, samples);
    return drive().transducers.front().amplitude;
  };
  EXPECT_NEAR(drive().transducers.front().amplitude, 0.8f, 1.0f / 255);
  EXPECT_NEAR(amplitudeAfter(32), 0.4f, 1.0f / 255);
  EXPECT_EQ(amplitudeAfter(32), 0.0f);
  std::vector<unsigned> atTrough;
  for (const auto& t : drive().transducers) atTrough.push_back(t.phaseStep);
  EXPECT_EQ(atTrough, phaseSteps) << "phases hold while the envelope is at zero";
  EXPECT_NEAR(amplitudeAfter(64), 0.8f, 1.0f / 255);
  EXPECT_EQ(drive().sampleIndex, 128u);

  ASSERT_TRUE(emitter.setExtendedOption("modulationWaveform", "square"));
  EXPECT_NEAR(amplitudeAfter(16), 0.8f, 1.0f / 255);
  EXPECT_EQ(amplitudeAfter(32), 0.0f);
  ASSERT_TRUE(emitter.setExtendedOption("modulationWaveform", "triangle"));
  EXPECT_NEAR(amplitudeAfter(112), 0.4f, 1.0f / 255);  // a quarter period after the peak
}

TEST_F(AcousticField, AutomaticPhasesTakeTurnsAndFixedAnglesShiftTheEnvelope) {
  Emitter emitter(kDevice, Transform());
  const Vector3 left(-0.03f, 0, 0.15f), right(0.03f, 0, 0.15f);
  ASSERT_TRUE(update(emitter, {ControlPoint(left, 0.5f, 125.0f), ControlPoint(right, 0.5f, 125.0f)}));
  EXPECT_GT(pressure(left.x, left.y, left.z), 4.0f * pressure(right.x, right.y, right.z));
  emulator::step(emitter, 64);  // half a period: the other point's turn
  EXPECT_GT(pressure(right.x, right.y, right.z), 4.0f * pressure(left.x, left.y, left.z));

  // The same with both envelopes fixed in phase: both points at once.
  ControlPoint a(left, 0.5f, 125.0f, 0.0f), b(right, 0.5f, 125.0f, 0.0f);
  ASSERT_TRUE(update(emitter, {a, b}));
  EXPECT_EQ(drive().transducers.front().amplitude, 0.0f) << "sample 64 is the trough of both";
  b.setPhaseAngle(float(kPi));
  ASSERT_TRUE(update(emitter, {a, b}));
  EXPECT_GT(pressure(right.x, right.y, right.z), 4.0f * pressure(left.x, left.y, left.z));
}

TEST_F(AcousticField, MovingADeviceKeepsFollowsOrPausesThePoints) {
  Emitter emitter(kDevice, Transform());
  ASSERT_TRUE(update(emitter, {ControlPoint(0, 0, 0.15f, 1.0f, 100.0f)}));
  auto peakX = [] {
    float best = 0, bestX = 0;
    for (int i = -10; i <= 10; ++i) {
      const float p = pressure(0.01f * i, 0, 0.15f);
      if (p > best) best = p, bestX = 0.01f * i;
    }
    return bestX;
  };
  EXPECT_NEAR(peakX(), 0.0f, 1e-6);
  ASSERT_TRUE(emitter.setDeviceTransform(kDevice, Transform::translation(0.05, 0, 0), Emitter::ReEmitInEmitterSpace));
  EXPECT_NEAR(peakX(), 0.0f, 1e-6);
  ASSERT_TRUE(emitter.setDeviceTransform(kDevice, Transform::translation(0.08, 0, 0), Emitter::ReEmitFollowingDevice));
  EXPECT_NEAR(peakX(), 0.03f, 1e-6);
  EXPECT_NEAR(emitter.getDeviceTransform(kDevice).origin.x, 0.08f, 1e-7);
  ASSERT_TRUE(emitter.setDeviceTransform(kDevice, Transform(), Emitter::DoNotReEmit));
  EXPECT_FALSE(emulator::currentDrive(std::string(kDevice)).has_value());
  EXPECT_FALSE(emitter.setDeviceTransform(kDevice, Transform(), static_cast<Emitter::ReEmitPoints>(3)));
  EXPECT_FALSE(emitter.setDeviceTransform(kOtherDevice, Transform(), Emitter::ReEmitInEmitterSpace));
  ASSERT_TRUE(update(emitter, {ControlPoint(0, 0, 0.15f, 1.0f, 100.0f)}));
  EXPECT_NEAR(peakX(), 0.0f, 1e-6);
}

TEST_F(AcousticField, UpdateRejectsWhatTheDeviceCannotEmitAndKeepsThePreviousPoints) {
  Emitter emitter(kDevice, Transform());
  ASSERT_EQ(emitter.getMaximumControlPointLimit(), emulator::kControlPointLimit);
  const ControlPoint good(0, 0, 0.15f, 1.0f, 100.0f);
  ASSERT_TRUE(update(emitter, {good}));
  const float before = pressure(0, 0, 0.15f);

  EXPECT_FALSE(update(emitter, std::vector<ControlPoint>(emulator::kControlPointLimit + 1, good)));
  EXPECT_FALSE(update(emitter, {ControlPoint(0.05f, 0, 0.15f, 1.5f, 100.0f)}));
  EXPECT_FALSE(update(emitter, {ControlPoint(0.05f, 0, 0.15f, -0.1f, 100.0f)}));
  EXPECT_FALSE(update(emitter, {ControlPoint(0.05f, 0, std::nanf(""), 1.0f, 100.0f)}));
  EXPECT_FALSE(update(emitter, {ControlPoint(0.05f, 0, 0.15f, 1.0f, 8001.0f)})) << "above half the sample rate";
  EXPECT_FALSE(emitter.update(nullptr, 1));
  EXPECT_EQ(pressure(0, 0, 0.15f), before);

  EXPECT_EQ(emitter.setSampleRate(100000), emulator::kSampleRateLimit);
  EXPECT_EQ(emitter.setSampleRate(0), emulator::kSampleRateLimit);
  EXPECT_TRUE(update(emitter, {ControlPoint(0.05f, 0, 0.15f, 1.0f, 8001.0f)}));
  EXPECT_EQ(emitter.setSampleRate(8000), 8000u);

  EXPECT_FALSE(emitter.setExtendedOption("speedOfSound", "fast"));
  EXPECT_FALSE(emitter.setExtendedOption("speedOfSound", "600"));
  EXPECT_FALSE(emitter.setExtendedOption("carrierFrequency", "41000"));
  EXPECT_FALSE(emitter.setExtendedOption("modulationWaveform", nullptr));
  ASSERT_TRUE(emitter.setExtendedOption("speedOfSound", "330.5"));
  ASSERT_TRUE(update(emitter, {good}));
  for (const auto& t : drive().transducers) {
    ASSERT_LE(circular(t.phase, -wavenumber(330.5) * distance(t.position, Vector3(0, 0, 0.15f))), kStep / 2 + 1e-5);
  }

  ASSERT_TRUE(emitter.reset());
  EXPECT_EQ(emitter.getSampleRate(), emulator::kDefaultSampleRate);
  char value[16];
  ASSERT_EQ(emitter.getExtendedOption("speedOfSound", value, sizeof value), 4u);
  EXPECT_STREQ(value, "343");
  EXPECT_FALSE(emulator::currentDrive(std::string(kDevice)).has_value()) << "reset stops emission";
  EXPECT_TRUE(update(emitter, {}));
  EXPECT_FALSE(emulator::currentDrive(std::string(kDevice)).has_value()) << "no points: silence";
}

TEST_F(AcousticField, EmittersClaimTheirDevicesAndNoticeWhenOneIsGone) {
  Velarion::VelarionLibrary library;
  {
    Emitter first(kDevice, Transform());
    EXPECT_TRUE(library.isDeviceClaimed(kDevice));
    EXPECT_FLOAT_EQ(first.arrayWidth(), 16 * 0.0105f);
    EXPECT_GT(first.interactionSpaceWidth(), first.arrayWidth());
    EXPECT_GT(first.interactionSpaceHeight(), 0.0f);
    EXPECT_NE(first.getStateEmitter(), nullptr);
    EXPECT_EQ(first.getStateEmitter(std::string(kOtherDevice)), nullptr);

    Emitter any;  // takes the first free device
    EXPECT_STREQ(any.getDeviceInfo().getDeviceIdentifier(), kOtherDevice);
    EXPECT_FALSE(any.addDevice(kDevice, Transform())) << "single-device mode, and the device is taken";

    Emitter moved(std::move(first));
    EXPECT_FALSE(first.isConnected());
    EXPECT_FALSE(update(first, {ControlPoint(0, 0, 0.15f, 1.0f, 100.0f)}));
    EXPECT_TRUE(moved.isConnected());
    ASSERT_TRUE(update(moved, {ControlPoint(0, 0, 0.15f, 1.0f, 100.0f)}));
    EXPECT_EQ(emulator::currentDrive(moved.getStateEmitter())->deviceIdentifier, kDevice);

    ASSERT_TRUE(VelarionEmulator::Devices::removeDevice(kDevice));
    EXPECT_FALSE(moved.isConnected());
    EXPECT_FALSE(emulator::currentDrive(std::string(kDevice)).has_value());
    EXPECT_FALSE(update(moved, {ControlPoint(0, 0, 0.15f, 1.0f, 100.0f)}));
    EXPECT_TRUE(moved.removeDevice(kDevice));
    EXPECT_FALSE(moved.stop()) << "no device left";
  }
  EXPECT_FALSE(library.isDeviceClaimed(kOtherDevice)) << "destroying an emitter releases its devices";

  VelarionEmulator::Devices::resetToDefaults();
  Emitter both(kDevice, Transform());
  ASSERT_TRUE(both.setDeviceSelectionMode(Velarion::DeviceSelectionMode::MultipleDevices));
  ASSERT_TRUE(both.addDevice(kOtherDevice, Transform::translation(0.3, 0, 0)));
  EXPECT_FALSE(both.setDeviceSelectionMode(Velarion::DeviceSelectionMode::SingleDevice));
  EXPECT_FALSE(both.setDeviceSelectionMode(static_cast<Velarion::DeviceSelectionMode>(7)));
  ASSERT_TRUE(VelarionEmulator::Devices::setConnected(kOtherDevice, false));
  EXPECT_FALSE(both.isConnected());
  both.initialize();  // lets the disconnected device go
  EXPECT_TRUE(both.isConnected());
  EXPECT_FALSE(library.isDeviceClaimed(kOtherDevice));
}

TEST_F(AcousticField, TheEmissionThreadKeepsRenderingTheLastUpdateUntilStopped) {
  Velarion::LoggingExternalInterface logging;
  logging.redirectLoggingToNull();
  devicetest::LogCapture log(logging);

  emulator::setManualStepping(false);
  Emitter emitter(kDevice, Transform());
  ASSERT_TRUE(update(emitter, {ControlPoint(0, 0, 0.15f, 1.0f, 100.0f)}));
  // Wait for the thread to render a few frames; no timing is asserted.
  const auto giveUp = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  while (emulator::renderedFrames(emitter) < 5 && std::chrono::steady_clock::now() < giveUp) {
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  EXPECT_GE(emulator::renderedFrames(emitter), 5u);
  EXPECT_GT(drive().sampleIndex, 0u) << "the envelope advances with the clock";

  ASSERT_TRUE(emitter.stop());
  const uint64_t frames = emulator::renderedFrames(emitter);
  EXPECT_FALSE(emulator::currentDrive(std::string(kDevice)).has_value());
  std::this_thread::sleep_for(std::chrono::milliseconds(20));
  EXPECT_EQ(emulator::renderedFrames(emitter), frames) << "no thread after stop()";

  EXPECT_TRUE(log.saw(3, "emitter started on VLA16-2A1F0031 at 16000 Hz"));
  EXPECT_TRUE(log.find("AmplitudeModulation", "Amplitude modulation emitter stopped"));
}

namespace {
// Stops the emitter from the log line that reports its device lost, which the
// emission thread writes.
struct StopOnLoss {
  Emitter* emitter = nullptr;
  std::atomic<int> calls{0};
  std::atomic<bool> stopped{false};
};
void stopOnLoss(const char* message, unsigned int, unsigned int, const char*, void* user) {
  auto* handler = static_cast<StopOnLoss*>(user);
  if (std::string(message).find("was lost") == std::string::npos) return;
  handler->stopped = handler->emitter->stop();
  ++handler->calls;
}
}  // namespace

TEST_F(AcousticField, ALogHandlerOnTheEmissionThreadMayStopTheEmitter) {
  StopOnLoss handler;
  Velarion::LoggingExternalInterface logging;
  logging.redirectLoggingToNull();
  logging.setCallbackForLogLevel(static_cast<unsigned>(Velarion::LogLevel::Warning), stopOnLoss, &handler);

  emulator::setManualStepping(false);
  Emitter emitter(kDevice, Transform());
  handler.emitter = &emitter;
  ASSERT_TRUE(update(emitter, {ControlPoint(0, 0, 0.15f, 1.0f, 100.0f)}));
  ASSERT_TRUE(VelarionEmulator::Devices::setConnected(kDevice, false));
  const auto giveUp = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  while (handler.calls == 0 && std::chrono::steady_clock::now() < giveUp) {
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  // The thread cannot join itself: it is asked to leave, and the destructor
  // joins it.
  EXPECT_EQ(handler.calls, 1);
  EXPECT_TRUE(handler.stopped);
  EXPECT_FALSE(emulator::currentDrive(std::string(kDevice)).has_value());
}
