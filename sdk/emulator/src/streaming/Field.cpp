// The field a time-point streaming emitter made, averaged over time: the map
// of what a hand in it feels, from the samples the emitter recorded.
#include <algorithm>
#include <cmath>
#include <exception>
#include <vector>

#include "DeviceRegistry.h"
#include "VelarionEmulator/Field.h"
#include "amplitude_modulation/AcousticModel.h"
#include "streaming/EmitterImplementation.h"

using Velarion::TimePointStreaming::EmitterImplementation;
using VelarionEmulator::AmplitudeModulation::DeviceDrive;
namespace am = VelarionEmulator::internal::am;
namespace field = VelarionEmulator::Field;

namespace {

struct PlacedDevice {
  std::string identifier;
  std::vector<am::PlacedTransducer> transducers;
};

// The recorded samples of each chosen time point, oldest first: up to
// `frames` time points spread evenly over the newest `window` nanoseconds.
std::vector<std::vector<am::PointState>> chooseFrames(const std::vector<VelarionEmulatorEmittedSample>& samples,
                                                      int64_t window, uint32_t frames) {
  const int64_t last = samples.back().timeNanoseconds;
  std::vector<std::size_t> starts;  // first sample of each time point in the window
  for (std::size_t i = 0; i < samples.size(); ++i) {
    if (samples[i].timeNanoseconds < last - window) continue;
    if (starts.empty() || samples[i].timeNanoseconds != samples[starts.back()].timeNanoseconds) starts.push_back(i);
  }
  const std::size_t chosen = std::min<std::size_t>(frames, starts.size());
  std::vector<std::vector<am::PointState>> result;
  for (std::size_t f = 0; f < chosen; ++f) {
    const std::size_t first = starts[f * starts.size() / chosen];
    std::vector<am::PointState> points;
    for (std::size_t i = first; i < samples.size() && samples[i].timeNanoseconds == samples[first].timeNanoseconds;
         ++i) {
      if (samples[i].enabled == 0) continue;
      am::PointState p;
      p.position = Velarion::Vector3(samples[i].position[0], samples[i].position[1], samples[i].position[2]);
      // A negative intensity is the same strength in opposite phase.
      p.intensity = std::min(1.0f, std::fabs(samples[i].intensity));
      p.frequency = 0.0f;  // held at the top of its envelope
      p.phaseAngle = 0.0f;
      p.autoPhase = false;
      points.push_back(p);
    }
    result.push_back(std::move(points));
  }
  return result;
}

}  // namespace

extern "C" {

int VelarionEmulator_Streaming_pressureField(const void* emitter, const VelarionEmulatorFieldGrid* grid,
                                             int64_t windowNanoseconds, uint32_t frames, float* values,
                                             uint64_t capacity) {
  std::vector<PlacedDevice> devices;
  std::vector<VelarionEmulatorEmittedSample> samples;
  const bool found = VelarionEmulator::internal::streaming::withEmitter(emitter, [&](EmitterImplementation& e) {
    {
      std::lock_guard<std::mutex> lock(e.mutex);
      for (const auto& d : e.devices) {
        const auto entry = VelarionEmulator::internal::DeviceRegistry::instance().find(d->identifier);
        if (!entry) continue;
        devices.push_back({d->identifier, am::place(entry->device.transducers, d->transform)});
      }
    }
    std::lock_guard<std::mutex> lock(e.recordMutex);
    samples = e.record.ordered();
  });
  if (!found) return field::kUnknownEmitter;
  if (devices.empty()) return field::kNoDevice;
  if (windowNanoseconds <= 0 || frames == 0) return field::kInvalidWindow;
  if (samples.empty()) return field::kNoSamples;
  if (grid == nullptr || !field::validGrid(*grid)) return field::kInvalidGrid;
  const uint64_t points = uint64_t(grid->columns) * grid->rows;
  if (values == nullptr || capacity < points) return field::kBufferTooSmall;
  try {
    const am::Settings settings;
    std::vector<double> sum(points, 0.0);
    std::vector<float> frame(points);
    const auto chosen = chooseFrames(samples, windowNanoseconds, frames);
    for (const auto& focus : chosen) {
      std::vector<DeviceDrive> drives;
      for (const PlacedDevice& device : devices) {
        DeviceDrive drive;
        drive.deviceIdentifier = device.identifier;
        drive.sampleRate = settings.sampleRate;
        drive.speedOfSound = settings.speedOfSound;
        drive.transducers = am::render(device.transducers, focus, 0, settings);
        drives.push_back(std::move(drive));
      }
      field::rmsPressure(drives, *grid, frame.data());
      for (uint64_t i = 0; i < points; ++i) sum[i] += double(frame[i]) * frame[i];
    }
    for (uint64_t i = 0; i < points; ++i) values[i] = float(std::sqrt(sum[i] / double(chosen.size())));
  } catch (const std::exception&) {
    return field::kInvalidGrid;  // no memory or thread for it; nothing crosses the boundary
  }
  return field::kOk;
}
}
