// Host time: the nanosecond conversions and assignments built in the interop
// library, the duration product export, and the device library arithmetic the
// streaming bridge relies on.
#include <chrono>
#include <cstdint>
#include <limits>

#include "Velarion/HostTime.h"
#include "support/interop_harness.h"

using namespace harness;
using Velarion::HostDuration;
using Velarion::HostTimePoint;
using std::chrono::nanoseconds;
using SteadyTimePoint = HostTimePoint::SteadyTimePoint;

namespace {

int64_t roundTrip(int64_t count) { return nanoseconds(HostDuration(nanoseconds(count))).count(); }

HostDuration withFields(int64_t seconds, uint32_t fraction) {
  HostDuration d;
  d.seconds = seconds;
  d.fraction = fraction;
  return d;
}

}  // namespace

TEST(HostTime, HalfSecondsConvertExactlyBothWays) {
  const HostDuration d(nanoseconds(1500000000));
  EXPECT_EQ(d.seconds, 1);
  EXPECT_EQ(d.fraction, 1u << 31);
  EXPECT_EQ(nanoseconds(withFields(1, 1u << 31)).count(), 1500000000);

  const HostTimePoint t(SteadyTimePoint(nanoseconds(1500000000)));
  EXPECT_EQ(t.seconds, 1);
  EXPECT_EQ(t.fraction, 1u << 31);
  EXPECT_EQ(SteadyTimePoint(t).time_since_epoch().count(), 1500000000);
}

TEST(HostTime, NegativeCountsSplitTowardZeroBeforeTheDeviceLibraryNormalises) {
  // -1.5 s reaches the device library as (-1, -0.5).
  const HostDuration expected(-1, -0.5);
  const HostDuration d(nanoseconds(-1500000000));
  EXPECT_EQ(d.seconds, expected.seconds);
  EXPECT_EQ(d.fraction, expected.fraction);
  EXPECT_EQ(nanoseconds(d).count(), -1500000000);
  const HostDuration tiny(nanoseconds(-1));
  EXPECT_EQ(tiny.seconds, HostDuration(0, -1e-9).seconds);
  EXPECT_EQ(tiny.fraction, HostDuration(0, -1e-9).fraction);
}

TEST(HostTime, TheTopFractionRoundsUpToAWholeSecond) {
  EXPECT_EQ(nanoseconds(withFields(7, 0xFFFFFFFFu)).count(), 7 * 1000000000LL + 1000000000LL);
  EXPECT_EQ(nanoseconds(withFields(0, 1)).count(), 0) << "one step is 0.23 ns";
  EXPECT_EQ(nanoseconds(withFields(0, 3)).count(), 1) << "0.70 ns rounds to 1";
}

TEST(HostTime, RoundTripsAreExactAcrossTheRangeWithWrappingSums) {
  for (int64_t count : {int64_t{0}, int64_t{999999999}, int64_t{1000000000}, int64_t{-123456789012345678},
                        std::numeric_limits<int64_t>::max(), std::numeric_limits<int64_t>::min()}) {
    EXPECT_EQ(roundTrip(count), count) << count;
  }
  // seconds * 10^9 overflows here: the sum wraps instead of saturating.
  const int64_t big = std::numeric_limits<int64_t>::max() / 1000000000 + 1;
  EXPECT_EQ(nanoseconds(withFields(big, 0)).count(),
            static_cast<int64_t>(static_cast<uint64_t>(big) * 1000000000u));
}

TEST(HostTime, DeviceLibraryArithmeticCarriesFractions) {
  HostTimePoint t(10, 0.5);
  t += HostDuration(0, 0.75);
  EXPECT_EQ(t.seconds, 11);
  EXPECT_EQ(t.fraction, 1u << 30);
  EXPECT_TRUE(HostTimePoint(10, 0.5) < t);
  EXPECT_FALSE(t < t);
  EXPECT_TRUE(HostTimePoint(-1, 0.9) < HostTimePoint(0, 0.0));

  const HostDuration product = HostDuration(1, 0.75) * 3;
  EXPECT_EQ(product.seconds, 5);
  EXPECT_EQ(product.fraction, 1u << 30);

  const HostDuration normalised(2, 1.25);
  EXPECT_EQ(normalised.seconds, 3);
  EXPECT_EQ(normalised.fraction, 1u << 30);
}

TEST_F(ExportTest, DurationProductIsANewOwnedHandle) {
  void* d = call<void*(int64_t)>("CSharp_Velarion_new_HostDuration", int64_t{1500000000});
  void* p = call<void*(unsigned int, void*)>("CSharp_Velarion_operator_multiply__SWIG_8", 3u, d);
  void* q = call<void*(unsigned int, void*)>("CSharp_Velarion_operator_multiply__SWIG_8", 3u, d);
  EXPECT_NE(p, q);
  EXPECT_EQ(call<int64_t(void*)>("CSharp_Velarion_HostDuration_seconds_get", p), 4);
  EXPECT_EQ(call<uint32_t(void*)>("CSharp_Velarion_HostDuration_fraction_get", p), 1u << 31);
  EXPECT_EQ(call<int64_t(void*)>("CSharp_Velarion_HostDuration_nanoseconds", p), 4500000000);
  for (void* h : {d, p, q, static_cast<void*>(nullptr)}) call<void(void*)>("CSharp_Velarion_delete_HostDuration", h);

  expectRefused<void*(unsigned int, void*)>("Velarion::HostDuration const & type is null",
                                            "CSharp_Velarion_operator_multiply__SWIG_8", 3u, nullptr);
}

TEST_F(ExportTest, TimePointReadersSeeTheBorrowedObject) {
  HostTimePoint t(SteadyTimePoint(nanoseconds(-2250000000)));
  EXPECT_EQ(call<int64_t(void*)>("CSharp_Velarion_HostTimePoint_seconds_get", &t), -3);
  EXPECT_EQ(call<uint32_t(void*)>("CSharp_Velarion_HostTimePoint_fraction_get", &t), 3u << 30);
  EXPECT_EQ(call<int64_t(void*)>("CSharp_Velarion_HostTimePoint_nanoseconds", &t), -2250000000);
}
