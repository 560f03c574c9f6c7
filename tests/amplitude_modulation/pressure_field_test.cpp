// Pressure maps of an emitter's current frame: the same numbers as the point
// query, in the right cells, from the emitter's own devices only, and the
// outlines and points a map is drawn with.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <string>
#include <vector>

#include "Velarion/AmplitudeModulation/ControlPoint.h"
#include "Velarion/AmplitudeModulation/Emitter.h"
#include "Velarion/TimePointStreaming/Emitter.h"
#include "VelarionEmulator/AmplitudeModulation.h"
#include "VelarionEmulator/Devices.h"
#include "VelarionEmulator/Field.h"

using Velarion::Transform;
using Velarion::Vector3;
using Velarion::AmplitudeModulation::ControlPoint;
using Velarion::AmplitudeModulation::Emitter;
namespace emulator = VelarionEmulator::AmplitudeModulation;
namespace field = VelarionEmulator::Field;

namespace {

const char* const kDevice = "VLA16-2A1F0031";       // 16 x 16 at 10.5 mm, 168 mm square
const char* const kOtherDevice = "VLC10-5B330107";  // 10 x 10 at 8.6 mm

class PressureField : public ::testing::Test {
 protected:
  void SetUp() override {
    VelarionEmulator::Devices::resetToDefaults();
    emulator::setManualStepping(true);
  }
  void TearDown() override { emulator::setManualStepping(false); }

  static void focus(Emitter& e, const Vector3& point) {
    const ControlPoint p(point, 1.0f, 200.0f);
    ASSERT_TRUE(e.update(&p, 1));
  }

  static std::vector<float> map(const Emitter& e, const VelarionEmulatorFieldGrid& grid,
                                int moment = field::kCurrentFrame) {
    std::vector<float> values(std::size_t(grid.columns) * grid.rows, -1.0f);
    EXPECT_EQ(VelarionEmulator_AmplitudeModulation_pressureField(&e, &grid, moment, values.data(), values.size()),
              field::kOk);
    return values;
  }
};

// Columns along x, rows along z: a vertical slice through y = 0.
VelarionEmulatorFieldGrid slice(uint32_t columns, uint32_t rows) {
  return VelarionEmulatorFieldGrid{{-0.05f, 0.0f, 0.1f}, {0.01f, 0.0f, 0.0f}, {0.0f, 0.0f, 0.02f}, columns, rows};
}

}  // namespace

TEST_F(PressureField, EveryCellHoldsThePointQueryAtItsPositionAsRms) {
  Emitter emitter(kDevice, Transform());
  focus(emitter, Vector3(0.0f, 0.0f, 0.2f));
  // Not square and not a multiple of the thread count, so swapped or skipped
  // rows show.
  const VelarionEmulatorFieldGrid grid = slice(11, 9);
  const std::vector<float> values = map(emitter, grid);
  std::size_t brightest = 0;
  for (uint32_t row = 0; row < grid.rows; ++row) {
    for (uint32_t column = 0; column < grid.columns; ++column) {
      const float x = -0.05f + 0.01f * column, z = 0.1f + 0.02f * row;
      const float expected = emulator::pressureAmplitudeAt(Vector3(x, 0.0f, z)) / std::sqrt(2.0f);
      const std::size_t i = std::size_t(row) * grid.columns + column;
      EXPECT_NEAR(values[i], expected, expected * 1e-4f + 1e-3f) << "column " << column << ", row " << row;
      if (values[i] > values[brightest]) brightest = i;
    }
  }
  EXPECT_EQ(brightest, 5u * grid.columns + 5u) << "the brightest cell is the focus at (0, 0.2)";
}

TEST_F(PressureField, ThePeakOfTheEnvelopeIsMappedWhateverTheMoment) {
  Emitter emitter(kDevice, Transform());
  focus(emitter, Vector3(0.0f, 0.0f, 0.2f));  // at sample 0: the top of its envelope
  const VelarionEmulatorFieldGrid grid = slice(5, 4);
  const std::vector<float> atTop = map(emitter, grid);
  EXPECT_EQ(map(emitter, grid, field::kEnvelopePeak), atTop);

  emulator::step(emitter, 40);  // half of a 200 Hz period at 16 kHz: the envelope is at 0
  for (float v : map(emitter, grid)) EXPECT_EQ(v, 0.0f);
  EXPECT_EQ(map(emitter, grid, field::kEnvelopePeak), atTop);
}

TEST_F(PressureField, OnlyTheEmittersOwnDevicesCountAndASilentEmitterMapsToZero) {
  Emitter first(kDevice, Transform());
  Emitter second(kOtherDevice, Transform::translation(Vector3(0.3f, 0.0f, 0.0f)));
  focus(first, Vector3(0.0f, 0.0f, 0.2f));
  focus(second, Vector3(0.3f, 0.0f, 0.2f));
  const VelarionEmulatorFieldGrid grid{{0.0f, 0.0f, 0.2f}, {0.3f, 0.0f, 0.0f}, {0.0f, 0.0f, 0.0f}, 2, 1};

  const std::vector<float> mine = map(first, grid);
  const auto own = emulator::currentDrive(std::string(kDevice));
  ASSERT_TRUE(own.has_value());
  for (uint32_t c = 0; c < 2; ++c) {
    const float expected = std::abs(emulator::pressureAt(*own, Vector3(0.3f * c, 0.0f, 0.2f))) / std::sqrt(2.0f);
    EXPECT_NEAR(mine[c], expected, expected * 1e-4f);
  }
  EXPECT_GT(mine[0], 10.0f * mine[1]) << "the other emitter's focus is not in this map";

  ASSERT_TRUE(second.stop());
  EXPECT_EQ(map(second, grid), std::vector<float>(2, 0.0f));
  EXPECT_EQ(map(second, grid, field::kEnvelopePeak), std::vector<float>(2, 0.0f));
  EXPECT_EQ(VelarionEmulator_AmplitudeModulation_fieldPoints(&second, nullptr, 0), 0);
}

TEST_F(PressureField, RefusesUnknownEmittersAndBadGridsWithoutWriting) {
  Emitter emitter(kDevice, Transform());
  focus(emitter, Vector3(0.0f, 0.0f, 0.2f));
  float values[4] = {-1, -1, -1, -1};
  const VelarionEmulatorFieldGrid good = slice(2, 2);
  EXPECT_EQ(VelarionEmulator_AmplitudeModulation_pressureField(nullptr, &good, 0, values, 4), field::kUnknownEmitter);
  EXPECT_EQ(VelarionEmulator_AmplitudeModulation_fieldDevices(nullptr, nullptr, 0), field::kUnknownEmitter);
  EXPECT_EQ(VelarionEmulator_AmplitudeModulation_fieldPoints(nullptr, nullptr, 0), field::kUnknownEmitter);

  VelarionEmulatorFieldGrid empty = good, notFinite = good, huge = good;
  empty.rows = 0;
  notFinite.rowStep[2] = std::nanf("");
  huge.columns = huge.rows = 1u << 20;  // 2^40 points
  EXPECT_EQ(VelarionEmulator_AmplitudeModulation_pressureField(&emitter, nullptr, 0, values, 4), field::kInvalidGrid);
  for (const auto& bad : {empty, notFinite, huge}) {
    EXPECT_EQ(VelarionEmulator_AmplitudeModulation_pressureField(&emitter, &bad, 0, values, 4), field::kInvalidGrid);
  }
  EXPECT_EQ(VelarionEmulator_AmplitudeModulation_pressureField(&emitter, &good, 0, values, 3), field::kBufferTooSmall);
  EXPECT_EQ(VelarionEmulator_AmplitudeModulation_pressureField(&emitter, &good, 0, nullptr, 4), field::kBufferTooSmall);
  EXPECT_EQ(VelarionEmulator_AmplitudeModulation_pressureField(&emitter, &good, 2, values, 4), field::kInvalidMoment);
  for (float v : values) EXPECT_EQ(v, -1.0f);
}

TEST_F(PressureField, DevicesAndPointsAreDescribedInEmitterSpace) {
  Emitter emitter(kDevice, Transform::translation(Vector3(0.1f, 0.0f, 0.0f)));
  ASSERT_TRUE(emitter.setDeviceSelectionMode(Velarion::DeviceSelectionMode::MultipleDevices));
  ASSERT_TRUE(emitter.addDevice(kOtherDevice, Transform::translation(Vector3(-0.1f, 0.0f, 0.0f))));
  const ControlPoint points[2] = {ControlPoint(Vector3(0.1f, 0.0f, 0.2f), 1.0f, 200.0f),
                                  ControlPoint(Vector3(-0.1f, 0.02f, 0.15f), 0.5f, 150.0f)};
  ASSERT_TRUE(emitter.update(points, 2));

  ASSERT_EQ(VelarionEmulator_AmplitudeModulation_fieldDevices(&emitter, nullptr, 0), 2);
  VelarionEmulatorFieldDevice devices[3];
  ASSERT_EQ(VelarionEmulator_AmplitudeModulation_fieldDevices(&emitter, devices, 3), 2);
  EXPECT_STREQ(devices[0].identifier, kDevice);
  EXPECT_STREQ(devices[1].identifier, kOtherDevice);
  EXPECT_EQ(devices[0].transducers, 256u);
  EXPECT_EQ(devices[1].transducers, 100u);
  // 168 mm square moved 0.1 m along x, then 86 mm square moved -0.1 m.
  EXPECT_FLOAT_EQ(devices[0].corners[0][0], 0.1f - 0.084f);
  EXPECT_FLOAT_EQ(devices[0].corners[2][0], 0.1f + 0.084f);
  EXPECT_FLOAT_EQ(devices[0].corners[2][1], 0.084f);
  EXPECT_FLOAT_EQ(devices[1].corners[0][0], -0.1f - 0.043f);
  EXPECT_FLOAT_EQ(devices[1].centre[0], -0.1f);
  EXPECT_FLOAT_EQ(devices[1].normal[2], 1.0f);

  VelarionEmulatorFieldPoint listed[2];
  ASSERT_EQ(VelarionEmulator_AmplitudeModulation_fieldPoints(&emitter, listed, 1), 2) << "counts beyond the capacity";
  EXPECT_FLOAT_EQ(listed[0].position[0], 0.1f);
  ASSERT_EQ(VelarionEmulator_AmplitudeModulation_fieldPoints(&emitter, listed, 2), 2);
  EXPECT_FLOAT_EQ(listed[1].position[1], 0.02f);
  EXPECT_FLOAT_EQ(listed[1].intensity, 0.5f);
  EXPECT_FLOAT_EQ(listed[1].frequency, 150.0f);

  // Both arrays add up in the map.
  const VelarionEmulatorFieldGrid one{{-0.1f, 0.02f, 0.15f}, {0, 0, 0}, {0, 0, 0}, 1, 1};
  const std::vector<float> value = map(emitter, one);
  EXPECT_NEAR(value[0], emulator::pressureAmplitudeAt(Vector3(-0.1f, 0.02f, 0.15f)) / std::sqrt(2.0f),
              value[0] * 1e-4f);
}

TEST_F(PressureField, StreamingEmittersDescribeTheirDevicesToo) {
  Velarion::TimePointStreaming::Emitter streaming(kOtherDevice, Transform::translation(Vector3(0.0f, 0.05f, 0.0f)));
  VelarionEmulatorFieldDevice device;
  ASSERT_EQ(VelarionEmulator_Streaming_fieldDevices(&streaming, &device, 1), 1);
  EXPECT_STREQ(device.identifier, kOtherDevice);
  EXPECT_EQ(device.transducers, 100u);
  EXPECT_FLOAT_EQ(device.corners[0][1], 0.05f - 0.043f);
  EXPECT_FLOAT_EQ(device.corners[2][1], 0.05f + 0.043f);
  Emitter amplitudeModulation(kDevice, Transform());
  EXPECT_EQ(VelarionEmulator_Streaming_fieldDevices(&amplitudeModulation, nullptr, 0), field::kUnknownEmitter);
}
