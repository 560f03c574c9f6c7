// One output interval through the emission bridge, against a baseline that
// only copies the same records out of the control points and back.
//
//   Bridge:    emulator interval -> bridge hand-out -> "managed" callback that
//              edits every record -> write-back of every record.
//   Stepping:  the same emulator interval with no callback (the device
//              library's own share of the bridge figure).
//   CopyOnly:  n x m records built from plain control points and copied back.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <vector>

#include "Velarion/HostTime.h"
#include "Velarion/TimePointStreaming/ControlPointPersistent.h"
#include "Velarion/TimePointStreaming/Emitter.h"
#include "VelarionEmulator/Streaming.h"
#include "timepoint_streaming/emission_callback_wrapper.h"

using Velarion::HostDuration;
using Velarion::HostTimePoint;
using Velarion::TimePointStreaming::ControlPointPersistent;
using Velarion::TimePointStreaming::Emitter;
using Record = EmissionControlPointRecord;

extern "C" {
void* CSharp_Velarion_new_EmissionCallbackWrapper(void* emitter);
void CSharp_Velarion_delete_EmissionCallbackWrapper(void* self);
void CSharp_Velarion_EmissionCallbackWrapper_director_connect(void* self, void (*)(unsigned int),
                                                              unsigned int (*)(),
                                                              void (*)(unsigned int, unsigned int, unsigned int,
                                                                       const HostTimePoint*, HostTimePoint*, Record*));
unsigned int CSharp_Velarion_TimePointStreamingEmitter_setManagedEmissionCallback(void* self, void* wrapper);
}

namespace {

// What a managed override typically does: move every point, mark it.
inline void edit(Record& r, unsigned int k) {
  r.position.z = 0.2f + 0.0001f * static_cast<float>(k);
  r.intensity = 0.8f;
  r.modified = 1;
}

void managedCallback(unsigned int n, unsigned int m, unsigned int stride, const HostTimePoint*, HostTimePoint*,
                     Record* records) {
  for (unsigned int k = 0; k < n; ++k) {
    for (unsigned int j = 0; j < m; ++j) edit(records[k * stride + j], k);
  }
}

VelarionEmulator::Streaming::Interval intervalOf(std::size_t n, unsigned int m) {
  VelarionEmulator::Streaming::Interval interval;
  interval.firstTime = HostTimePoint(100, 0.0);
  interval.spacing = HostDuration(0, 1.0 / 16000);
  interval.timePointCount = n;
  interval.maximumControlPointCount = m;
  return interval;
}

void setCounters(benchmark::State& state, std::size_t n, unsigned int m) {
  state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * n * m));
  state.counters["records"] = static_cast<double>(n * m);
  state.counters["ns_per_record"] = benchmark::Counter(static_cast<double>(state.iterations() * n * m),
                                                       benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void Bridge(benchmark::State& state) {
  const auto n = static_cast<std::size_t>(state.range(0));
  const auto m = static_cast<unsigned int>(state.range(1));
  Emitter emitter;
  void* wrapper = CSharp_Velarion_new_EmissionCallbackWrapper(&emitter);
  CSharp_Velarion_EmissionCallbackWrapper_director_connect(wrapper, nullptr, nullptr, &managedCallback);
  CSharp_Velarion_TimePointStreamingEmitter_setManagedEmissionCallback(&emitter, wrapper);
  const auto interval = intervalOf(n, m);
  for (auto _ : state) {
    VelarionEmulator::Streaming::step(emitter, interval);
  }
  benchmark::DoNotOptimize(VelarionEmulator::Streaming::delivered(emitter, n - 1, m - 1).intensity);
  CSharp_Velarion_TimePointStreamingEmitter_setManagedEmissionCallback(&emitter, nullptr);
  CSharp_Velarion_delete_EmissionCallbackWrapper(wrapper);
  setCounters(state, n, m);
}

void Stepping(benchmark::State& state) {
  const auto n = static_cast<std::size_t>(state.range(0));
  const auto m = static_cast<unsigned int>(state.range(1));
  Emitter emitter;
  const auto interval = intervalOf(n, m);
  for (auto _ : state) {
    VelarionEmulator::Streaming::step(emitter, interval);
  }
  setCounters(state, n, m);
}

void CopyOnly(benchmark::State& state) {
  const auto n = static_cast<std::size_t>(state.range(0));
  const auto m = static_cast<unsigned int>(state.range(1));
  std::vector<ControlPointPersistent> points(n * m);
  std::vector<Record> records(n * m);
  for (auto _ : state) {
    for (std::size_t k = 0; k < n; ++k) {
      for (unsigned int j = 0; j < m; ++j) {
        const ControlPointPersistent& p = points[k * m + j];
        Record& r = records[k * m + j];
        r.position = p.position;
        r.intensity = p.intensity;
        r.direction = p.direction;
        r.carried_value = p.getCarriedValue();
        r.enabled = p.isEnabled() ? 1 : 0;
        r.index = static_cast<uint16_t>(j);
        r.modified = 0;
      }
    }
    benchmark::ClobberMemory();
    for (std::size_t k = 0; k < n; ++k) {
      for (unsigned int j = 0; j < m; ++j) edit(records[k * m + j], static_cast<unsigned int>(k));
    }
    benchmark::ClobberMemory();
    for (std::size_t k = 0; k < n; ++k) {
      for (unsigned int j = 0; j < m; ++j) {
        const Record& r = records[k * m + j];
        ControlPointPersistent& p = points[k * m + j];
        if (r.modified != 0) {
          p.setPosition(r.position);
          p.setDirection(r.direction);
          p.setIntensity(r.intensity);
          p.setCarriedValue(r.carried_value);
          p.setEnabled(r.enabled != 0);
        }
      }
    }
    benchmark::DoNotOptimize(points.data());
    benchmark::ClobberMemory();
  }
  setCounters(state, n, m);
}

void Shapes(benchmark::internal::Benchmark* b) {
  for (int n : {32, 512}) {
    for (int m : {1, 4, 16}) b->Args({n, m});
  }
}

}  // namespace

BENCHMARK(Bridge)->Apply(Shapes);
BENCHMARK(Stepping)->Apply(Shapes);
BENCHMARK(CopyOnly)->Apply(Shapes);

BENCHMARK_MAIN();
