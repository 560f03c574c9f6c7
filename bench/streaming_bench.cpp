// One output interval through the emission bridge, beside what it cannot go
// below, for each shape (time points x control points):
//
//   Bridge:       emulator interval -> bridge hand-out -> "managed" callback
//                 that edits every record -> write-back of every record.
//   EmulatorOnly: the same stepping with no callback installed: the emulator's
//                 own share of the Bridge figure.
//   Calls:        only the device-library calls the bridge's algorithm makes
//                 (count, fill, one write-back pass), with no data moved: the
//                 part of the bridge that no implementation of it can avoid.
//   Memcpy:       one memcpy of the records' bytes (n x m x 40).
//   TouchOnce:    every persistent control point read and written once, row by
//                 row as the bridge walks them.
//
// After the entries, a summary puts the bridge's own cost per record
// ((Bridge - EmulatorOnly) / records) beside both floors, from this one run.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <map>
#include <string>
#include <vector>

#include "Velarion/HostTime.h"
#include "Velarion/TimePointStreaming/ControlPointPersistent.h"
#include "Velarion/TimePointStreaming/Emitter.h"
#include "Velarion/TimePointStreaming/OutputInterval.h"
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
void managedCallback(unsigned int n, unsigned int m, unsigned int stride, const HostTimePoint*, HostTimePoint*,
                     Record* records) {
  for (unsigned int k = 0; k < n; ++k) {
    for (unsigned int j = 0; j < m; ++j) {
      Record& r = records[k * stride + j];
      r.position.z = 0.2f + 0.0001f * static_cast<float>(k);
      r.intensity = 0.8f;
      r.modified = 1;
    }
  }
}

VelarionEmulator::Streaming::Interval intervalOf(std::size_t n, unsigned int m) {
  VelarionEmulator::Streaming::Interval interval;
  interval.firstTime = HostTimePoint(100, 0.0);
  interval.spacing = HostDuration(0, 1.0 / 40000);
  interval.timePointCount = n;
  interval.maximumControlPointCount = m;
  return interval;
}

struct Shape {
  std::size_t n;
  unsigned int m;
  explicit Shape(const benchmark::State& state)
      : n(static_cast<std::size_t>(state.range(0))), m(static_cast<unsigned int>(state.range(1))) {}
  std::size_t records() const { return n * m; }
};

void setCounters(benchmark::State& state, const Shape& shape) {
  state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * shape.records()));
  state.counters["ns_per_record"] = benchmark::Counter(static_cast<double>(state.iterations() * shape.records()),
                                                       benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void Bridge(benchmark::State& state) {
  const Shape shape(state);
  Emitter emitter;
  void* wrapper = CSharp_Velarion_new_EmissionCallbackWrapper(&emitter);
  CSharp_Velarion_EmissionCallbackWrapper_director_connect(wrapper, nullptr, nullptr, &managedCallback);
  CSharp_Velarion_TimePointStreamingEmitter_setManagedEmissionCallback(&emitter, wrapper);
  const auto interval = intervalOf(shape.n, shape.m);
  for (auto _ : state) {
    VelarionEmulator::Streaming::step(emitter, interval);
  }
  benchmark::DoNotOptimize(VelarionEmulator::Streaming::delivered(emitter, shape.n - 1, shape.m - 1).intensity);
  CSharp_Velarion_TimePointStreamingEmitter_setManagedEmissionCallback(&emitter, nullptr);
  CSharp_Velarion_delete_EmissionCallbackWrapper(wrapper);
  setCounters(state, shape);
}

void EmulatorOnly(benchmark::State& state) {
  const Shape shape(state);
  Emitter emitter;
  const auto interval = intervalOf(shape.n, shape.m);
  for (auto _ : state) {
    VelarionEmulator::Streaming::step(emitter, interval);
  }
  setCounters(state, shape);
}

// The calls nativeEmissionCallback makes into the device library for one
// interval, in its order, and nothing else; made the way the bridge makes
// them (through the GOT, without the PLT stub).
__attribute__((optimize("no-plt"))) void callsOnly(const Emitter& emitter, Velarion::TimePointStreaming::OutputInterval& interval, const HostTimePoint&,
               void*) {
  auto it = interval.begin();
  std::size_t n = 0;
  for (HostTimePoint t = it.time(); t < interval.intervalEndTime(); t += interval.timePointSpacing()) ++n;
  HostTimePoint t = it.time();
  const HostDuration& spacing = interval.timePointSpacing();
  for (std::size_t i = 0; i < n; ++i) {
    benchmark::DoNotOptimize(t);
    t += spacing;
  }
  const unsigned int m = emitter.getMaximumControlPointCount();
  if (n > 0) {
    auto* first = it.operator->();
    for (unsigned int j = 0; j < m; ++j) benchmark::DoNotOptimize(first->persistentControlPoint(j));
  }
  const auto end = interval.end();
  for (; it != end; ++it) {
    auto* timePoint = it.operator->();
    for (unsigned int j = 0; j < m; ++j) benchmark::DoNotOptimize(timePoint->persistentControlPoint(j));
  }
}

void Calls(benchmark::State& state) {
  const Shape shape(state);
  Emitter emitter;
  emitter.setEmissionCallback(&callsOnly, nullptr);
  const auto interval = intervalOf(shape.n, shape.m);
  for (auto _ : state) {
    VelarionEmulator::Streaming::step(emitter, interval);
  }
  setCounters(state, shape);
}

void Memcpy(benchmark::State& state) {
  const Shape shape(state);
  std::vector<Record> from(shape.records());
  std::vector<Record> to(shape.records());
  for (auto _ : state) {
    std::memcpy(to.data(), from.data(), shape.records() * sizeof(Record));
    benchmark::DoNotOptimize(to.data());
    benchmark::ClobberMemory();
  }
  setCounters(state, shape);
}

// Out of line and with its loops aligned: the figure is a floor, and an
// inlined loop's speed moved by half with unrelated code around it.
__attribute__((noinline, optimize("align-loops=64"))) void touchRows(ControlPointPersistent* row, std::size_t rows,
                                                                   unsigned int columns) {
  for (std::size_t k = 0; k < rows; ++k, row += columns) {
    for (unsigned int j = 0; j < columns; ++j) {
      row[j].setIntensity(row[j].intensity * 0.5f);
    }
  }
}

void TouchOnce(benchmark::State& state) {
  const Shape shape(state);
  std::vector<ControlPointPersistent> points(shape.records());
  for (auto _ : state) {
    ControlPointPersistent* row = points.data();
    benchmark::DoNotOptimize(row);
    touchRows(row, shape.n, shape.m);
    benchmark::ClobberMemory();
  }
  setCounters(state, shape);
}

void Shapes(benchmark::internal::Benchmark* b) {
  b->Args({80, 1})->Args({80, 16})->Args({512, 16});
}

// Prints the entries as usual, then the bridge's own cost per record beside
// the floors measured in the same run.
class FloorReporter : public benchmark::ConsoleReporter {
 public:
  explicit FloorReporter(OutputOptions options) : ConsoleReporter(options) {}

  void ReportRuns(const std::vector<Run>& runs) override {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
      // With repetitions only the median counts; without, the single run.
      if (run.run_type == Run::RT_Aggregate && run.aggregate_name != "median") continue;
      if (run.run_type == Run::RT_Iteration && run.repetitions > 1) continue;
      const std::string name = run.run_name.function_name;
      const std::string shape = run.run_name.args;
      const double records = recordsOf(shape);
      if (records <= 0) continue;
      if (perRecord_.find(shape) == perRecord_.end()) shapes_.push_back(shape);
      perRecord_[shape][name] = run.GetAdjustedCPUTime() / records;
    }
  }

  void Finalize() override {
    ConsoleReporter::Finalize();
    std::FILE* out = stdout;
    std::fprintf(out, "\nBridge's own cost per record, beside its floors (CPU ns per record, this run):\n");
    std::fprintf(out, "%-10s %9s %9s %9s %9s %9s %9s %9s %9s %9s\n", "shape", "Bridge", "Emulator", "Bridge-E",
                 "Calls-E", "TouchOnce", "xTouch", "Memcpy", "xMemcpy", "xCalls");
    for (const std::string& shape : shapes_) {
      const auto& figures = perRecord_[shape];
      const double bridge = value(figures, "Bridge");
      const double emulator = value(figures, "EmulatorOnly");
      const double touch = value(figures, "TouchOnce");
      const double copy = value(figures, "Memcpy");
      const double calls = value(figures, "Calls") - emulator;
      const double own = bridge - emulator;
      std::fprintf(out, "%-10s %9.2f %9.2f %9.2f %9.2f %9.3f %9.1f %9.3f %9.1f %9.2f\n", shape.c_str(), bridge,
                   emulator, own, calls, touch, own / touch, copy, own / copy, own / calls);
    }
  }

 private:
  static double recordsOf(const std::string& args) {
    unsigned long n = 0;
    unsigned long m = 0;
    return std::sscanf(args.c_str(), "%lu/%lu", &n, &m) == 2 ? static_cast<double>(n * m) : 0.0;
  }
  static double value(const std::map<std::string, double>& figures, const char* name) {
    const auto found = figures.find(name);
    return found == figures.end() ? 0.0 : found->second;
  }

  std::vector<std::string> shapes_;  // in the order they ran
  std::map<std::string, std::map<std::string, double>> perRecord_;
};

}  // namespace

BENCHMARK(Bridge)->Apply(Shapes);
BENCHMARK(EmulatorOnly)->Apply(Shapes);
BENCHMARK(Calls)->Apply(Shapes);
BENCHMARK(Memcpy)->Apply(Shapes);
BENCHMARK(TouchOnce)->Apply(Shapes);

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  FloorReporter reporter(isatty(fileno(stdout)) ? FloorReporter::OO_ColorTabular : FloorReporter::OO_Tabular);
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  return 0;
}
