// Devices that come and go like real ones: an unplug stops what runs on the
// device and a replug lets it run again; a released device is claimable at
// once, also by an emitter made while it was taken; every refusal says why.
#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <string>
#include <vector>

#include "Velarion/AmplitudeModulation/ControlPoint.h"
#include "Velarion/AmplitudeModulation/Emitter.h"
#include "Velarion/TimePointStreaming/Emitter.h"
#include "Velarion/TimePointStreaming/OutputInterval.h"
#include "Velarion/VelarionLibrary.h"
#include "VelarionEmulator/AmplitudeModulation.h"
#include "VelarionEmulator/Field.h"
#include "VelarionEmulator/Journal.h"
#include "VelarionEmulator/Streaming.h"
#include "device/device_fixture.h"
#include "emulator/emulator_threads.h"

using namespace devicetest;
using namespace emulatortest;
namespace Devices = VelarionEmulator::Devices;
namespace Streaming = VelarionEmulator::Streaming;
using AmplitudeEmitter = Velarion::AmplitudeModulation::Emitter;
using Velarion::AmplitudeModulation::ControlPoint;
using StreamingEmitter = Velarion::TimePointStreaming::Emitter;
using Velarion::TimePointStreaming::OutputInterval;

namespace {

constexpr const char* kDevice = "VLA16-2A1F0031";
constexpr unsigned int kWarning = 2;
constexpr unsigned int kInfo = 3;

class DeviceLifecycle : public ::testing::Test {
 protected:
  void SetUp() override {
    resetEmulator();
    VelarionEmulator::AmplitudeModulation::setManualStepping(false);
    logging.redirectLoggingToNull();
    logging.setLogLevel(5);
  }
  void TearDown() override { resetEmulator(); }

  static uint64_t intervals(const StreamingEmitter& e) { return Streaming::statistics(e).intervals; }
  static bool emitting(const StreamingEmitter& e) { return Streaming::statistics(e).emitting != 0; }

  Velarion::VelarionLibrary library;
  Velarion::LoggingExternalInterface logging;
};

// A fixed focal point 15 cm above the array, every time point.
void focus(const StreamingEmitter&, OutputInterval& interval, const Velarion::HostTimePoint&, void*) {
  for (std::size_t k = 0; k < interval.timePointCount(); ++k) {
    auto& point = interval.timePointAt(k).persistentControlPoint(0);
    point.setPosition(Velarion::Vector3(0.0f, 0.0f, 0.15f));
    point.setIntensity(1.0f);
  }
}

TEST_F(DeviceLifecycle, UnplugStopsStreamingAndReplugLetsTheSameEmitterStartAgain) {
  LogCapture capture(logging);
  StreamingEmitter emitter(kDevice);
  emitter.setEmissionCallback(&focus, nullptr);
  ASSERT_TRUE(emitter.start());
  ASSERT_TRUE(eventually([&] { return intervals(emitter) > 2; }));

  ASSERT_TRUE(Devices::setConnected(kDevice, false));
  ASSERT_TRUE(eventually([&] { return !emitting(emitter); }));
  EXPECT_TRUE(capture.saw(kWarning, std::string("Device ") + kDevice +
                                        " was lost by its time-point streaming emitter: it was disconnected"));
  EXPECT_TRUE(capture.saw(kInfo, "Time-point streaming emitter stopped (no device left)"));
  EXPECT_FALSE(library.isDeviceConnected(kDevice));
  EXPECT_TRUE(library.isDeviceClaimed(kDevice));  // an unplug keeps the claim
  EXPECT_FALSE(emitter.isConnected());
  EXPECT_FALSE(emitter.start());
  EXPECT_TRUE(capture.saw(kWarning, std::string("Start refused: device ") + kDevice +
                                        " is not available: it is disconnected"));

  ASSERT_TRUE(Devices::setConnected(kDevice, true));
  EXPECT_TRUE(library.isDeviceConnected(kDevice));
  EXPECT_TRUE(emitter.isConnected());
  ASSERT_TRUE(emitter.start());
  ASSERT_TRUE(eventually([&] { return intervals(emitter) > 2; }));
  EXPECT_TRUE(emitter.stop());
}

// An unplug written in a configuration file and reloaded drops the claim;
// reloaded back in, the device is connected and the same emitter starts again.
TEST_F(DeviceLifecycle, AnUnplugByConfigurationReloadEndsWhenTheDeviceIsReloadedConnected) {
  ScratchFolder folder;
  std::string unplugged = Devices::builtInConfiguration();
  const std::size_t first = unplugged.find("connected = yes");
  ASSERT_NE(first, std::string::npos);
  unplugged.replace(first, 15, "connected = no");
  StreamingEmitter emitter(kDevice);
  emitter.setEmissionCallback(&focus, nullptr);
  ASSERT_TRUE(emitter.start());
  ASSERT_TRUE(eventually([&] { return intervals(emitter) > 2; }));

  ASSERT_TRUE(library.reloadHardwareConfigurations(folder.write("unplugged.vlcfg", unplugged).c_str()));
  ASSERT_TRUE(eventually([&] { return !emitting(emitter); }));
  EXPECT_FALSE(library.isDeviceConnected(kDevice));
  EXPECT_FALSE(emitter.start());

  ASSERT_TRUE(library.reloadHardwareConfigurations(folder.write("replugged.vlcfg", Devices::builtInConfiguration()).c_str()));
  EXPECT_TRUE(library.isDeviceConnected(kDevice));
  EXPECT_TRUE(emitter.isConnected());
  EXPECT_TRUE(library.isDeviceClaimed(kDevice));
  ASSERT_TRUE(emitter.start());
  ASSERT_TRUE(eventually([&] { return intervals(emitter) > 2; }));
  EXPECT_TRUE(emitter.stop());
}

// Removing a device drops its claim; a device of that identifier added again
// is the emitter's once more, and amplitude modulation resumes on its own.
TEST_F(DeviceLifecycle, ARemovedDeviceAddedAgainResumesAmplitudeModulation) {
  LogCapture capture(logging);
  AmplitudeEmitter emitter(kDevice);
  const ControlPoint point(0.0f, 0.0f, 0.2f, 1.0f, 200.0f);
  ASSERT_TRUE(emitter.update(&point, 1));
  const auto driven = [] { return VelarionEmulator::AmplitudeModulation::currentDrive(std::string(kDevice)).has_value(); };
  ASSERT_TRUE(eventually(driven));

  ASSERT_TRUE(Devices::removeDevice(kDevice));
  ASSERT_TRUE(eventually([&] { return !driven(); }));
  EXPECT_FALSE(emitter.update(&point, 1));
  EXPECT_TRUE(capture.saw(kWarning, std::string("Update refused: device ") + kDevice +
                                        " is not available: there is no such device"));

  ASSERT_TRUE(Devices::addDevice(Devices::makeGridDevice(kDevice, 16, 16, 0.0105f)));
  ASSERT_TRUE(eventually(driven));
  EXPECT_TRUE(capture.saw(kInfo, std::string("Device ") + kDevice + " is back for its amplitude modulation emitter"));
  EXPECT_TRUE(library.isDeviceClaimed(kDevice));
  EXPECT_TRUE(emitter.isConnected());
}

// An emitter made while its device is taken waits for it: once the holder
// lets go (an emitter destroyed, another application releasing it), the
// waiting emitter takes it at once.
TEST_F(DeviceLifecycle, AnEmitterMadeWhileItsDeviceWasTakenTakesItWhenReleased) {
  LogCapture capture(logging);
  auto* first = new StreamingEmitter(kDevice);
  StreamingEmitter second(kDevice);
  EXPECT_TRUE(capture.saw(kWarning, std::string("Device ") + kDevice +
                                        " is not available to a time-point streaming emitter: another emitter holds it"));
  EXPECT_FALSE(second.start());
  EXPECT_TRUE(capture.saw(kWarning, "Start refused: the time-point streaming emitter holds no device (it waits for device " +
                                        std::string(kDevice) + ": another emitter holds it)"));
  delete first;
  EXPECT_TRUE(second.isConnected());
  EXPECT_TRUE(library.isDeviceClaimed(kDevice));

  // The same through another application's hold.
  AmplitudeEmitter amplitude("VLC10-5B330107");
  ASSERT_TRUE(amplitude.removeDevice("VLC10-5B330107"));
  ASSERT_TRUE(Devices::holdDevice("VLC10-5B330107"));
  AmplitudeEmitter waiting("VLC10-5B330107");
  EXPECT_TRUE(capture.saw(kWarning, "is not available to an amplitude modulation emitter: another application holds it"));
  EXPECT_FALSE(waiting.isConnected());
  ASSERT_TRUE(Devices::releaseHeldDevice("VLC10-5B330107"));
  EXPECT_TRUE(waiting.isConnected());
  // An emitter that let its device go on purpose does not take it back.
  EXPECT_FALSE(amplitude.isConnected());
}

// Each refusal logs one warning naming the value and the valid range; the
// same refusal again within the second is counted, not logged.
TEST_F(DeviceLifecycle, EveryRefusalLogsOneWarningWithItsCause) {
  LogCapture capture(logging);
  AmplitudeEmitter amplitude(kDevice);
  const ControlPoint loud(0.0f, 0.0f, 0.2f, 5.0f, 200.0f);
  const ControlPoint nowhere(NAN, 0.0f, 0.2f, 1.0f, 200.0f);
  const ControlPoint shrill(0.0f, 0.0f, 0.2f, 1.0f, 9000.0f);
  const ControlPoint five[5] = {loud, loud, loud, loud, loud};
  for (int i = 0; i < 3; ++i) EXPECT_FALSE(amplitude.update(&loud, 1));
  EXPECT_FALSE(amplitude.update(&nowhere, 1));
  EXPECT_FALSE(amplitude.update(&shrill, 1));
  EXPECT_FALSE(amplitude.update(five, 5));
  EXPECT_FALSE(amplitude.setExtendedOption("modulationWaveform", "sawtooth"));
  EXPECT_FALSE(amplitude.setExtendedOption("carrierFrequency", "30000"));
  EXPECT_FALSE(amplitude.setExtendedOption("firmware", "1"));
  EXPECT_EQ(amplitude.setSampleRate(0), 16000u);
  EXPECT_FALSE(amplitude.addDevice("VLC10-5B330107", Velarion::Transform()));  // single-device mode
  EXPECT_FALSE(amplitude.removeDevice("VLC10-5B330107"));
  StreamingEmitter streaming("VLC10-5B330107");
  EXPECT_EQ(streaming.setMaximumControlPointCount(40), 32u);
  EXPECT_EQ(streaming.setSampleRate(50000), 40000u);
  EXPECT_FALSE(streaming.setExtendedOption("leadTimeMicroseconds", "-3"));
  EXPECT_FALSE(Devices::setConnected("no-such-array", false));
  EXPECT_FALSE(Devices::holdDevice(kDevice));
  EXPECT_FALSE(library.isDeviceConnected("no-such-array"));

  const std::vector<std::string> expected = {
      "Update refused: control point 0 has intensity 5; valid: 0 to 1",
      "Update refused: control point 0 has position (nan, 0, 0.2); valid: finite coordinates",
      "Update refused: control point 0 has frequency 9000 Hz; valid: 0 to 8000 Hz (half the sample rate)",
      "Update refused: 5 control points; valid: 0 to 4",
      "Extended option \"modulationWaveform\" refused value \"sawtooth\"; valid: sine, square, triangle",
      "Extended option \"carrierFrequency\" is read-only",
      "Extended option \"firmware\" is unknown",
      "Sample rate 0 Hz refused; valid: 1 to 40000 Hz; it stays at 16000 Hz",
      "Device VLC10-5B330107 not added: the amplitude modulation emitter is in single-device mode and holds " +
          std::string(kDevice),
      "Device VLC10-5B330107 not removed: the amplitude modulation emitter does not hold it",
      "Maximum control point count 40 is above the limit of 32; it is now 32",
      "Sample rate 50000 Hz is above the limit of 40000 Hz; it is now 40000 Hz",
      "Extended option \"leadTimeMicroseconds\" refused value \"-3\"; valid: whole microseconds from 0 to 100000",
      "device no-such-array not disconnected: there is no such device",
      std::string("device ") + kDevice + " not held for another application: another emitter holds it",
      "isDeviceConnected: there is no device no-such-array",
  };
  for (const std::string& line : expected) {
    int count = 0;
    for (const auto& m : capture.messages()) count += m.level == kWarning && m.text.rfind(line, 0) == 0 ? 1 : 0;
    EXPECT_EQ(count, 1) << line;
  }
}

// The map of a streaming emitter that held one focal point is the map of the
// same point under amplitude modulation at the top of its envelope.
TEST_F(DeviceLifecycle, AStreamedFocalPointMapsLikeTheSamePointUnderAmplitudeModulation) {
  const VelarionEmulatorFieldGrid grid{{-0.03f, -0.03f, 0.15f}, {0.01f, 0.0f, 0.0f}, {0.0f, 0.01f, 0.0f}, 7, 7};
  std::vector<float> streamed(49), modulated(49);
  {
    StreamingEmitter emitter(kDevice);
    EXPECT_EQ(VelarionEmulator_Streaming_pressureField(&emitter, &grid, 2000000, 4, streamed.data(), 49),
              VelarionEmulator::Field::kNoSamples);
    emitter.setEmissionCallback(&focus, nullptr);
    ASSERT_TRUE(emitter.start());
    ASSERT_TRUE(eventually([&] { return intervals(emitter) > 2; }));
    ASSERT_TRUE(emitter.stop());
    ASSERT_EQ(VelarionEmulator_Streaming_pressureField(&emitter, &grid, 2000000, 4, streamed.data(), 49),
              VelarionEmulator::Field::kOk);
    EXPECT_EQ(VelarionEmulator_Streaming_pressureField(&emitter, &grid, 0, 4, streamed.data(), 49),
              VelarionEmulator::Field::kInvalidWindow);
  }
  AmplitudeEmitter emitter(kDevice);
  const ControlPoint point(0.0f, 0.0f, 0.15f, 1.0f, 200.0f);
  ASSERT_TRUE(emitter.update(&point, 1));
  ASSERT_EQ(VelarionEmulator_AmplitudeModulation_pressureField(&emitter, &grid, VelarionEmulator::Field::kEnvelopePeak,
                                                               modulated.data(), 49),
            VelarionEmulator::Field::kOk);
  for (std::size_t i = 0; i < 49; ++i) EXPECT_NEAR(streamed[i], modulated[i], 1e-3f * modulated[24]) << i;
  EXPECT_GT(streamed[24], 100.0f);  // the focus, in the middle

  void* deviceless = VelarionEmulator_Streaming_newEmitter();
  EXPECT_EQ(VelarionEmulator_Streaming_pressureField(deviceless, &grid, 2000000, 4, streamed.data(), 49),
            VelarionEmulator::Field::kNoDevice);
  VelarionEmulator_Streaming_deleteEmitter(deviceless);
}

TEST_F(DeviceLifecycle, TheCControlInterfaceSaysWhyItRefuses) {
  const auto lastError = [] {
    char text[256];
    VelarionEmulator_lastError(text, sizeof text);
    return std::string(text);
  };
  EXPECT_EQ(VelarionEmulator_Devices_addGrid("GRID-1", 0, 4, 0.01f), -1);
  EXPECT_EQ(lastError(), "a grid has 1 to 65536 elements, not 0 x 4");
  ASSERT_EQ(VelarionEmulator_Devices_addGrid("GRID-1", 4, 4, 0.01f), 0);
  EXPECT_EQ(VelarionEmulator_Devices_addGrid("GRID-1", 4, 4, 0.01f), -2);
  EXPECT_EQ(lastError(), "a device \"GRID-1\" is already present");
  EXPECT_TRUE(library.isDeviceConnected("GRID-1"));

  EXPECT_EQ(VelarionEmulator_Devices_addConfiguration("[device]\nidentifier = CFG-1\nmodel = X\ngrid = 2 2 0.01\n"
                                                      "[device]\nidentifier = CFG-2\nmodel = X\ngrid = 3 3 0.01\n"),
            2);
  EXPECT_EQ(library.getDeviceCount(), 5u);
  EXPECT_EQ(VelarionEmulator_Devices_addConfiguration("[device]\nidentifier = CFG-3\nfirmware = 1\n"), -1);
  EXPECT_NE(lastError().find("unknown key \"firmware\""), std::string::npos) << lastError();
  EXPECT_EQ(VelarionEmulator_Devices_remove("CFG-9"), -2);
  EXPECT_EQ(VelarionEmulator_Devices_hold("CFG-1"), 0);
  EXPECT_TRUE(library.isDeviceClaimed("CFG-1"));
  EXPECT_EQ(VelarionEmulator_Devices_hold("CFG-1"), -2);
  EXPECT_EQ(lastError(), "device \"CFG-1\" cannot be held: another application holds it");

  VelarionEmulator::Journal::clear();
  library.getDeviceCount();
  std::vector<char> journal(VelarionEmulator_Journal_read(nullptr, 0));
  ASSERT_EQ(VelarionEmulator_Journal_read(journal.data(), journal.size()), journal.size());
  EXPECT_EQ(std::string(journal.data()), "VelarionLibrary::getDeviceCount");
}

}  // namespace
