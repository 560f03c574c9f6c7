// The emission bridge end to end: emulator intervals flattened into the two
// arrays, managed answers written back, buffer growth and suspension replay.
#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>

#include "streaming/streaming_support.h"

using namespace streaming;
namespace emulator = VelarionEmulator::Streaming;

namespace {

Record& at(Record* records, unsigned int stride, std::size_t row, unsigned int column) {
  return records[row * stride + column];
}

// Marks every handed-out record modified, with an intensity that tells its row.
void answerWithRowIntensity(float base) {
  Managed::answer() = [base](unsigned int n, unsigned int m, unsigned int stride, Record* records) {
    for (unsigned int k = 0; k < n; ++k) {
      for (unsigned int j = 0; j < m; ++j) {
        Record& r = at(records, stride, k, j);
        r.intensity = base + 0.01f * static_cast<float>(k);
        r.carried_value = 1000 * k + j;
        r.modified = 1;
      }
    }
  };
}

}  // namespace

using EmissionBridge = BridgeTest;

TEST_F(EmissionBridge, HandsOutTheFirstTimePointsStateToEveryRow) {
  const ControlPointPersistent on = pointWith(0, Vector3(1, 2, 3), 0.5f, true, 77);
  const ControlPointPersistent off = pointWith(1, Vector3(4, 5, 6), -0.25f, false, 78);
  emulator::setPersistentControlPoint(emitter, 0, on);
  emulator::setPersistentControlPoint(emitter, 1, off);

  step(4, 3);

  ASSERT_EQ(Managed::seen().size(), 1u);
  const Seen& seen = Managed::seen()[0];
  EXPECT_EQ(seen.timepointCount, 4u);
  EXPECT_EQ(seen.controlpointCount, 3u);
  EXPECT_EQ(seen.stride, 3u);
  EXPECT_TRUE(sameTime(seen.callbackTime, HostTimePoint(99, 0.75)));
  for (std::size_t k = 0; k < 4; ++k) {
    EXPECT_TRUE(sameTime(seen.times[k], timeOf(k))) << "time point " << k;
    const Record* row = &seen.rows[k * seen.stride];
    for (unsigned int j = 0; j < 2; ++j) {
      const ControlPointPersistent& source = j == 0 ? on : off;
      EXPECT_EQ(row[j].position, source.position);
      EXPECT_EQ(row[j].direction, source.direction);
      EXPECT_EQ(row[j].intensity, source.intensity);
      EXPECT_EQ(row[j].carried_value, source.getCarriedValue());
      EXPECT_EQ(row[j].enabled, source.isEnabled() ? 1 : 0);
      EXPECT_EQ(row[j].index, j);
      EXPECT_EQ(row[j].modified, 0);
    }
    EXPECT_EQ(row[2].index, 2);
    EXPECT_EQ(row[2].enabled, 0);
  }
  // Nothing marked modified: every point stays as the device library made it.
  for (std::size_t k = 0; k < 4; ++k) {
    expectSamePoint(delivered(k, 0), on);
    expectSamePoint(delivered(k, 1), off);
  }
}

TEST_F(EmissionBridge, RowsGrowWithOneSpareAndTheStrideNeverShrinks) {
  EXPECT_EQ(native().timepoint_capacity, 8u);
  EXPECT_EQ(native().controlpoint_capacity, 2u);

  // Nine time points: rows grow to ten, and the records with them, so the
  // write-back of row 8 lands inside the buffer.
  answerWithRowIntensity(0.1f);
  step(9, 1);
  EXPECT_EQ(native().timepoint_capacity, 10u);
  EXPECT_EQ(native().controlpoint_capacity, 2u);
  ASSERT_EQ(Managed::seen().back().timepointCount, 9u);
  for (std::size_t k = 0; k < 9; ++k) {
    EXPECT_FLOAT_EQ(delivered(k, 0).intensity, 0.1f + 0.01f * static_cast<float>(k)) << "time point " << k;
  }
  step(10, 1);
  step(3, 1);
  EXPECT_EQ(native().timepoint_capacity, 10u);

  step(4, 3);
  EXPECT_EQ(Managed::seen().back().stride, 3u);
  step(4, 1);
  EXPECT_EQ(Managed::seen().back().controlpointCount, 1u);
  EXPECT_EQ(Managed::seen().back().stride, 3u);
  EXPECT_EQ(native().controlpoint_capacity, 3u);
}

TEST_F(EmissionBridge, WritesBackOnlyModifiedRecordsClampedWithTheirEnabledFlag) {
  ControlPointPersistent seeded = pointWith(4, Vector3(0, 0, 0.2f), 0.3f, true, 5);
  seeded.phase_angle = 0.125f;
  emulator::setPersistentControlPoint(emitter, 4, seeded);

  Managed::answer() = [](unsigned int n, unsigned int, unsigned int stride, Record* records) {
    const float intensities[4] = {2.5f, -3.0f, std::numeric_limits<float>::quiet_NaN(), 0.8f};
    for (unsigned int k = 0; k < n; ++k) {
      for (unsigned int j = 0; j < 4; ++j) {
        Record& r = at(records, stride, k, j);
        r.position = Vector3(static_cast<float>(j), static_cast<float>(k), 0.2f);
        r.direction = Vector3(0, 1, 0);
        r.intensity = intensities[j];
        r.carried_value = 40 + j;
        r.enabled = 1;
        r.index = 99;  // the column decides, not the index
        r.modified = 1;
      }
      at(records, stride, k, 3).enabled = 0;
      // Changed but not marked: must not reach the device.
      Record& untouched = at(records, stride, k, 4);
      untouched.position = Vector3(9, 9, 9);
      untouched.intensity = 0.9f;
      untouched.enabled = 0;
    }
  };
  step(2, 5);

  for (std::size_t k = 0; k < 2; ++k) {
    const float expected[4] = {1.0f, -1.0f, -1.0f, 0.8f};
    for (unsigned int j = 0; j < 4; ++j) {
      const ControlPointPersistent& p = delivered(k, j);
      EXPECT_EQ(p.intensity, expected[j]) << "time point " << k << ", point " << j;
      EXPECT_EQ(p.position, Vector3(static_cast<float>(j), static_cast<float>(k), 0.2f));
      EXPECT_EQ(p.direction, Vector3(0, 1, 0));
      EXPECT_EQ(p.getCarriedValue(), 40 + j);
      EXPECT_EQ(p.isEnabled(), j != 3) << "enabled = 0 overrides the enabling by position and intensity";
      EXPECT_EQ(p.id, j) << "the identifier is not touched";
      EXPECT_EQ(p.phase_angle, -1.0f) << "the phase is not touched";
    }
    expectSamePoint(delivered(k, 4), seeded);
  }
}

TEST_F(EmissionBridge, SuspendedBeforeAnyCallOrWithoutAWrapperTheIntervalIsUntouched) {
  const ControlPointPersistent seeded = pointWith(0, Vector3(1, 1, 1), 0.4f, true, 3);
  emulator::setPersistentControlPoint(emitter, 0, seeded);
  auto expectUntouched = [&](std::size_t count) {
    step(count, 2);
    EXPECT_TRUE(Managed::seen().empty());
    for (std::size_t k = 0; k < count; ++k) expectSamePoint(delivered(k, 0), seeded);
  };
  setSuspended(true);
  expectUntouched(3);
  setSuspended(false);
  install(nullptr);
  expectUntouched(4);
}

TEST_F(EmissionBridge, SuspensionReplaysTheLastRowsAndRepeatsTheLastOne) {
  answerWithRowIntensity(0.1f);
  step(4, 2);
  ASSERT_EQ(Managed::seen().size(), 1u);

  setSuspended(true);
  Managed::answer() = nullptr;
  step(6, 2);
  EXPECT_EQ(Managed::seen().size(), 1u) << "managed code is not entered while suspended";
  const std::size_t replayedRows[6] = {0, 1, 2, 3, 3, 3};
  for (std::size_t k = 0; k < 6; ++k) {
    for (unsigned int j = 0; j < 2; ++j) {
      EXPECT_FLOAT_EQ(delivered(k, j).intensity, 0.1f + 0.01f * static_cast<float>(replayedRows[k]))
          << "time point " << k;
      EXPECT_EQ(delivered(k, j).getCarriedValue(), 1000 * replayedRows[k] + j);
    }
  }

  // Fewer control points than last answered: only those columns replay (a
  // second one would be past the interval's points and throw).
  step(2, 1);
  EXPECT_EQ(delivered(1, 0).getCarriedValue(), 1000u);

  setSuspended(false);
  step(1, 2);
  EXPECT_EQ(Managed::seen().size(), 2u);
}

TEST_F(EmissionBridge, WriteBackClampsRowsByCapacityWhileReplayClampsByTheLastCount) {
  answerWithRowIntensity(0.1f);
  step(8, 1);  // rows 0..7 hold 0.10 .. 0.17, all marked

  // The interval claims to end after two time points but yields ten.
  Managed::answer() = [](unsigned int n, unsigned int, unsigned int stride, Record* records) {
    for (unsigned int k = 0; k < n; ++k) {
      at(records, stride, k, 0).intensity = -0.5f - 0.1f * static_cast<float>(k);
      at(records, stride, k, 0).modified = 1;
    }
  };
  step(10, 1, timeOf(2));
  ASSERT_EQ(Managed::seen().back().timepointCount, 2u);
  const float afterAnswer[10] = {-0.5f, -0.6f, 0.12f, 0.13f, 0.14f, 0.15f, 0.16f, 0.17f, 0.17f, 0.17f};
  for (std::size_t k = 0; k < 10; ++k) {
    EXPECT_FLOAT_EQ(delivered(k, 0).intensity, afterAnswer[k]) << "time point " << k;
  }

  setSuspended(true);
  step(5, 1);
  const float replayed[5] = {-0.5f, -0.6f, -0.6f, -0.6f, -0.6f};
  for (std::size_t k = 0; k < 5; ++k) {
    EXPECT_FLOAT_EQ(delivered(k, 0).intensity, replayed[k]) << "time point " << k;
  }
}

TEST_F(EmissionBridge, AnEmptyIntervalStillCallsManagedCodeAndWritesBackStandingRows) {
  answerWithRowIntensity(0.3f);
  step(3, 1);
  Managed::answer() = nullptr;

  // First time not before the end: no time points counted, none refreshed.
  step(3, 1, firstTime());
  ASSERT_EQ(Managed::seen().size(), 2u);
  EXPECT_EQ(Managed::seen().back().timepointCount, 0u);
  EXPECT_EQ(Managed::seen().back().controlpointCount, 1u);
  for (std::size_t k = 0; k < 3; ++k) {
    EXPECT_FLOAT_EQ(delivered(k, 0).intensity, 0.3f + 0.01f * static_cast<float>(k));
  }
}

TEST_F(EmissionBridge, AnUnconnectedDirectorThrowsIntoTheDeviceLibrary) {
  void* bare = newWrapper();
  install(bare);
  try {
    step(2, 1);
    ADD_FAILURE() << "expected the pure virtual failure";
  } catch (const std::exception& e) {
    EXPECT_STREQ(e.what(), "Attempt to invoke pure virtual method EmissionCallbackWrapper::callback");
  }
  auto* w = static_cast<EmissionCallbackWrapper*>(bare);
  EXPECT_EQ(w->last_timepoint_count, 2u) << "the counts are updated before the managed call";

  // Suspended, it replays instead of calling: no throw.
  harness::call<void(void*, unsigned int)>("CSharp_Velarion_EmissionCallbackWrapper_setSuspended", bare, 1u);
  EXPECT_NO_THROW(step(2, 1));
  install(wrapper);
  harness::call<void(void*)>("CSharp_Velarion_delete_EmissionCallbackWrapper", bare);
}

// The first row is copied down in doubling blocks of whole rows: every shape,
// powers of two or not, with the stride at or past the control point count,
// must hand every row the same records; sparse answers reach only their points.
TEST_F(EmissionBridge, EveryRowOfEveryShapeStartsFromTheFirstTimePoint) {
  std::vector<ControlPointPersistent> seeded;
  for (uint32_t j = 0; j < 5; ++j) {
    seeded.push_back(pointWith(j, Vector3(0.1f * j, 0.2f, 0.3f), 0.1f * j, j % 2 == 0, 500 + j));
    emulator::setPersistentControlPoint(emitter, j, seeded.back());
  }
  const std::pair<std::size_t, unsigned int> shapes[] = {{1, 1}, {7, 1}, {13, 3}, {33, 5}, {6, 2}};
  for (const auto& [n, m] : shapes) {
    step(n, m);
    const Seen& seen = Managed::seen().back();
    ASSERT_EQ(seen.timepointCount, n);
    for (std::size_t k = 0; k < n; ++k) {
      EXPECT_TRUE(sameTime(seen.times[k], timeOf(k))) << n << " x " << m << ", time point " << k;
      for (unsigned int j = 0; j < m; ++j) {
        const Record& r = seen.rows[k * seen.stride + j];
        EXPECT_EQ(r.position, seeded[j].position) << n << " x " << m << ", row " << k << ", column " << j;
        EXPECT_EQ(r.intensity, seeded[j].intensity);
        EXPECT_EQ(r.carried_value, seeded[j].getCarriedValue());
        EXPECT_EQ(r.enabled, seeded[j].isEnabled() ? 1 : 0);
        EXPECT_EQ(r.index, j);
        EXPECT_EQ(r.modified, 0);
      }
    }
  }
  EXPECT_EQ(Managed::seen().back().stride, 5u);

  Managed::answer() = [](unsigned int, unsigned int, unsigned int stride, Record* records) {
    at(records, stride, 2, 1).intensity = -0.75f;
    at(records, stride, 2, 1).modified = 1;
    at(records, stride, 5, 0).carried_value = 9;
    at(records, stride, 5, 0).modified = 1;
  };
  step(6, 2);
  for (std::size_t k = 0; k < 6; ++k) {
    for (unsigned int j = 0; j < 2; ++j) {
      ControlPointPersistent expected = seeded[j];
      if (k == 2 && j == 1) {
        expected.setIntensity(-0.75f);
        expected.setEnabled(seeded[j].isEnabled());  // the record's flag has the last word
      }
      if (k == 5 && j == 0) expected.setCarriedValue(9);
      expectSamePoint(delivered(k, j), expected);
    }
  }
}
