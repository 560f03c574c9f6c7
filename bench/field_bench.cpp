// Pressure maps of a focused 16 x 16 array: a 200 x 200 grid (what an
// interactive view asks for), on every core and on one.
#include <benchmark/benchmark.h>

#include <vector>

#include "Velarion/AmplitudeModulation/ControlPoint.h"
#include "Velarion/AmplitudeModulation/Emitter.h"
#include "VelarionEmulator/AmplitudeModulation.h"
#include "VelarionEmulator/Field.h"

using Velarion::Transform;
using Velarion::Vector3;
using Velarion::AmplitudeModulation::ControlPoint;
using Velarion::AmplitudeModulation::Emitter;

namespace {

// 20 cm wide, from the array's face up to 30 cm; or 20 x 20 cm at the focus.
VelarionEmulatorFieldGrid grid(bool vertical, uint32_t n) {
  const float step = 0.2f / float(n - 1);
  if (vertical) return {{-0.1f, 0.0f, 0.0f}, {step, 0.0f, 0.0f}, {0.0f, 0.0f, 0.3f / float(n - 1)}, n, n};
  return {{-0.1f, -0.1f, 0.2f}, {step, 0.0f, 0.0f}, {0.0f, step, 0.0f}, n, n};
}

void Map(benchmark::State& state) {
  VelarionEmulator::AmplitudeModulation::setManualStepping(true);
  Emitter emitter("VLA16-2A1F0031", Transform());
  const ControlPoint focus(Vector3(0.0f, 0.0f, 0.2f), 1.0f, 200.0f);
  emitter.update(&focus, 1);
  const auto n = static_cast<uint32_t>(state.range(1));
  const VelarionEmulatorFieldGrid g = grid(state.range(0) != 0, n);
  std::vector<float> values(std::size_t(n) * n);
  for (auto _ : state) {
    if (VelarionEmulator_AmplitudeModulation_pressureField(&emitter, &g, VelarionEmulator::Field::kEnvelopePeak, values.data(),
                                                            values.size()) != 0) {
      state.SkipWithError("map refused");
    }
    benchmark::DoNotOptimize(values.data());
  }
  state.counters["points/s"] = benchmark::Counter(double(n) * n, benchmark::Counter::kIsIterationInvariantRate);
  emitter.stop();
  VelarionEmulator::AmplitudeModulation::setManualStepping(false);
}

// The same grid computed point by point on the calling thread, as a caller
// of the point query would (one call per point).
void PointByPoint(benchmark::State& state) {
  VelarionEmulator::AmplitudeModulation::setManualStepping(true);
  Emitter emitter("VLA16-2A1F0031", Transform());
  const ControlPoint focus(Vector3(0.0f, 0.0f, 0.2f), 1.0f, 200.0f);
  emitter.update(&focus, 1);
  const auto n = static_cast<uint32_t>(state.range(0));
  const VelarionEmulatorFieldGrid g = grid(true, n);
  std::vector<float> values(std::size_t(n) * n);
  for (auto _ : state) {
    for (uint32_t r = 0; r < n; ++r) {
      for (uint32_t c = 0; c < n; ++c) {
        values[r * n + c] = VelarionEmulator_AmplitudeModulation_pressureAmplitudeAt(
            g.origin[0] + c * g.columnStep[0], 0.0f, g.origin[2] + r * g.rowStep[2]);
      }
    }
    benchmark::DoNotOptimize(values.data());
  }
  emitter.stop();
  VelarionEmulator::AmplitudeModulation::setManualStepping(false);
}

}  // namespace

// Arguments: vertical (1) or horizontal (0), points per side.
BENCHMARK(Map)->Args({1, 200})->Args({0, 200})->Args({1, 50})->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(PointByPoint)->Arg(50)->Unit(benchmark::kMillisecond)->UseRealTime();

BENCHMARK_MAIN();
