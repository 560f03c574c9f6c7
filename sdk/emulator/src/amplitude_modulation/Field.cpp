// Pressure maps of an amplitude modulation emitter's current frame, and the
// devices and control points a map is drawn with.
#include "VelarionEmulator/Field.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <cstring>
#include <thread>

#include "amplitude_modulation/EmitterImplementation.h"
#include "common/DeviceOutline.h"

using Velarion::Vector3;
using Velarion::AmplitudeModulation::Emitter;
using Velarion::AmplitudeModulation::EmitterAccess;
using Velarion::AmplitudeModulation::EmitterImplementation;
using VelarionEmulator::AmplitudeModulation::DeviceDrive;

namespace VelarionEmulator {
namespace Field {

namespace {

namespace am = internal::am;

// Runs f on the emitter behind `handle` under its lock, if it is a live
// emulated emitter. The list is consulted before the handle's state is used,
// so a stale handle is refused rather than followed.
template <class F>
bool withEmitter(const void* handle, F&& f) {
  if (handle == nullptr) return false;
  const EmitterImplementation* target = EmitterAccess::of(*static_cast<const Emitter*>(handle));
  bool found = false;
  am::EmitterList::instance().forEach([&](EmitterImplementation& e) {
    if (&e != target) return;
    found = true;
    std::lock_guard<std::mutex> lock(e.mutex);
    f(e);
  });
  return found;
}

// Under the emitter's lock; the drive board's lock comes after it.
std::vector<DeviceDrive> drivesLocked(const EmitterImplementation& e, int moment) {
  std::vector<DeviceDrive> drives;
  if (!e.emitting) return drives;
  // Every point at the top of its envelope: frequency 0 and a fixed phase of
  // 0 hold each envelope at 1, whatever the waveform.
  std::vector<am::PointState> peak = e.points;
  for (am::PointState& p : peak) {
    p.frequency = 0.0f;
    p.phaseAngle = 0.0f;
    p.autoPhase = false;
  }
  for (const auto& d : e.devices) {
    if (!d->present) continue;
    auto drive = am::DriveBoard::instance().find(static_cast<const void*>(d.get()));
    if (!drive) continue;
    if (moment == kEnvelopePeak) drive->transducers = am::render(d->placed, peak, 0, e.settings);
    drives.push_back(std::move(*drive));
  }
  return drives;
}

bool finite(const float (&v)[3]) { return std::isfinite(v[0]) && std::isfinite(v[1]) && std::isfinite(v[2]); }


Vector3 gridPoint(const VelarionEmulatorFieldGrid& g, uint32_t column, uint32_t row) {
  const auto at = [&](int i) {
    return double(g.origin[i]) + double(column) * g.columnStep[i] + double(row) * g.rowStep[i];
  };
  return Vector3(float(at(0)), float(at(1)), float(at(2)));
}

// One element's contribution, with everything that does not depend on the
// field point worked out once per map.
struct Source {
  double x, y, z;     // position
  double ux, uy, uz;  // facing, unit
  double strength;    // amplitude times the on-axis pressure at 1 m
  double phase;
};

struct Frame {
  double k;
  double pistonFactor;  // (k a / 2)^2
  std::vector<Source> sources;
};

// The model's piston directivity |2 J1(x) / x|, x = k a sin theta, by the
// same 12-term series, written in q = (x / 2)^2 = (k a / 2)^2 (1 - cos^2 theta)
// and evaluated by Horner's rule: a map calls it for every element at every
// point, and this way it needs no square root.
double directivity(double q) {
  // 2 J1(x) / x = sum over m of (-q)^m / (m! (m + 1)!).
  static const auto factors = [] {
    std::array<double, 12> f{};
    for (int m = 1; m < 12; ++m) f[m] = -1.0 / (double(m) * double(m + 1));
    return f;
  }();
  double sum = 1.0;
  for (int m = 11; m >= 1; --m) sum = 1.0 + factors[m] * q * sum;
  return std::fabs(sum);
}

std::vector<Frame> prepare(const std::vector<DeviceDrive>& drives) {
  std::vector<Frame> frames;
  for (const DeviceDrive& drive : drives) {
    const double k = am::wavenumber(drive.speedOfSound);
    const double half = k * AmplitudeModulation::kTransducerRadius / 2.0;
    Frame f{k, half * half, {}};
    for (const auto& t : drive.transducers) {
      if (t.amplitude <= 0.0f) continue;  // silent elements add nothing
      f.sources.push_back({t.position.x, t.position.y, t.position.z, t.direction.x, t.direction.y, t.direction.z,
                           t.amplitude * double(AmplitudeModulation::kOnAxisPressureAt1m), double(t.phase)});
    }
    frames.push_back(std::move(f));
  }
  return frames;
}

// The model's pressure sum (am::pressure) over the prepared sources, so maps
// agree with the point query to rounding.
std::complex<double> pressureAt(const std::vector<Frame>& frames, const Vector3& point) {
  std::complex<double> total;
  for (const Frame& f : frames) {
    std::complex<double> sum;
    for (const Source& s : f.sources) {
      const double x = double(point.x) - s.x, y = double(point.y) - s.y, z = double(point.z) - s.z;
      const double length = std::sqrt(x * x + y * y + z * z);
      const double cosine = length <= 0.0 ? 1.0 : (s.ux * x + s.uy * y + s.uz * z) / length;
      if (cosine <= 0.0) continue;  // a baffled piston radiates forwards only
      const double r = std::max(length, double(AmplitudeModulation::kTransducerRadius));
      const double q = f.pistonFactor * std::max(0.0, 1.0 - cosine * cosine);
      const double magnitude =
          s.strength * directivity(q) * std::exp(-AmplitudeModulation::kAirAbsorption * r) / r;
      sum += std::polar(magnitude, s.phase + f.k * r);
    }
    total += sum;
  }
  return total;
}

}  // namespace

bool validGrid(const VelarionEmulatorFieldGrid& grid) {
  const uint64_t points = uint64_t(grid.columns) * grid.rows;
  return points > 0 && points <= kMaximumPoints && finite(grid.origin) && finite(grid.columnStep) &&
         finite(grid.rowStep);
}

std::vector<DeviceDrive> drivesOf(const Emitter& emitter, int moment) {
  std::vector<DeviceDrive> drives;
  withEmitter(&emitter, [&](const EmitterImplementation& e) { drives = drivesLocked(e, moment); });
  return drives;
}

void rmsPressure(const std::vector<DeviceDrive>& drives, const VelarionEmulatorFieldGrid& grid, float* values) {
  const std::vector<Frame> frames = prepare(drives);
  const uint32_t rows = grid.rows;
  const auto work = [&](uint32_t first, uint32_t stride) {
    for (uint32_t row = first; row < rows; row += stride) {
      float* out = values + std::size_t(row) * grid.columns;
      for (uint32_t column = 0; column < grid.columns; ++column) {
        out[column] = float(std::abs(pressureAt(frames, gridPoint(grid, column, row))) / std::sqrt(2.0));
      }
    }
  };
  // Rows interleaved between threads: the costly rows (near the focus) are
  // shared out evenly.
  const unsigned threads = std::max(1u, std::min({std::thread::hardware_concurrency(), 16u, rows}));
  std::vector<std::thread> helpers;
  for (unsigned t = 1; t < threads; ++t) helpers.emplace_back(work, t, threads);
  work(0, threads);
  for (std::thread& h : helpers) h.join();
}

}  // namespace Field
}  // namespace VelarionEmulator

extern "C" {

int VelarionEmulator_AmplitudeModulation_pressureField(const void* emitter, const VelarionEmulatorFieldGrid* grid,
                                                       int moment, float* values, uint64_t capacity) {
  namespace field = VelarionEmulator::Field;
  if (moment != field::kCurrentFrame && moment != field::kEnvelopePeak) return field::kInvalidMoment;
  std::vector<DeviceDrive> drives;
  if (!field::withEmitter(emitter, [&](const EmitterImplementation& e) { drives = field::drivesLocked(e, moment); })) {
    return field::kUnknownEmitter;
  }
  if (grid == nullptr || !field::validGrid(*grid)) return field::kInvalidGrid;
  if (values == nullptr || capacity < uint64_t(grid->columns) * grid->rows) return field::kBufferTooSmall;
  try {
    field::rmsPressure(drives, *grid, values);
  } catch (...) {
    return field::kInvalidGrid;  // no thread or memory for it; nothing crosses the boundary
  }
  return field::kOk;
}

int32_t VelarionEmulator_AmplitudeModulation_fieldDevices(const void* emitter, VelarionEmulatorFieldDevice* out,
                                                          uint32_t capacity) {
  namespace field = VelarionEmulator::Field;
  int32_t count = 0;
  const bool found = field::withEmitter(emitter, [&](const EmitterImplementation& e) {
    const std::vector<DeviceDrive> drives = field::drivesLocked(e, field::kCurrentFrame);
    count = int32_t(e.devices.size());
    for (std::size_t i = 0; out != nullptr && i < e.devices.size() && i < capacity; ++i) {
      uint32_t driven = 0;
      for (const DeviceDrive& drive : drives) {
        if (drive.deviceIdentifier == e.devices[i]->identifier) driven = uint32_t(drive.transducers.size());
      }
      out[i] = VelarionEmulator::internal::describeDevice(*e.devices[i], e.devices[i]->layout, driven);
    }
  });
  return found ? count : field::kUnknownEmitter;
}

int VelarionEmulator_AmplitudeModulation_manualStepping(void) {
  return VelarionEmulator::AmplitudeModulation::manualStepping() ? 1 : 0;
}

int32_t VelarionEmulator_AmplitudeModulation_fieldPoints(const void* emitter, VelarionEmulatorFieldPoint* out,
                                                         uint32_t capacity) {
  namespace field = VelarionEmulator::Field;
  int32_t count = 0;
  const bool found = field::withEmitter(emitter, [&](const EmitterImplementation& e) {
    count = e.emitting ? int32_t(e.points.size()) : 0;
    for (int32_t i = 0; out != nullptr && i < count && uint32_t(i) < capacity; ++i) {
      const auto& p = e.points[i];
      out[i] = VelarionEmulatorFieldPoint{{p.position.x, p.position.y, p.position.z}, p.intensity, p.frequency};
    }
  });
  return found ? count : field::kUnknownEmitter;
}
}
