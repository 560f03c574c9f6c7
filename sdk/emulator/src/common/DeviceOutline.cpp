#include "common/DeviceOutline.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace VelarionEmulator {
namespace internal {

namespace {

void store(const Velarion::Vector3& v, float (&out)[3]) {
  out[0] = v.x;
  out[1] = v.y;
  out[2] = v.z;
}

}  // namespace

VelarionEmulatorFieldDevice describeDevice(const HeldDeviceBase& d, const std::vector<Velarion::Transducer>& layout,
                                           uint32_t drivenTransducers) {
  VelarionEmulatorFieldDevice out{};
  const std::size_t n = std::min(d.identifier.size(), sizeof out.identifier - 1);
  std::memcpy(out.identifier, d.identifier.data(), n);
  double low[3] = {0, 0, 0}, high[3] = {0, 0, 0};
  for (std::size_t i = 0; i < layout.size(); ++i) {
    const double p[3] = {layout[i].x_position, layout[i].y_position, layout[i].z_position};
    for (int a = 0; a < 3; ++a) {
      low[a] = i == 0 ? p[a] : std::min(low[a], p[a]);
      high[a] = i == 0 ? p[a] : std::max(high[a], p[a]);
    }
  }
  const double cx = (low[0] + high[0]) / 2, cy = (low[1] + high[1]) / 2, cz = (low[2] + high[2]) / 2;
  const double w = d.arrayWidth / 2, h = d.arrayDepth / 2;
  const double corners[4][2] = {{-w, -h}, {w, -h}, {w, h}, {-w, h}};
  for (int c = 0; c < 4; ++c) {
    const Velarion::Vector3 local(float(cx + corners[c][0]), float(cy + corners[c][1]), float(cz));
    store(d.transform.transformPosition(local), out.corners[c]);
  }
  store(d.transform.transformPosition(Velarion::Vector3(float(cx), float(cy), float(cz))), out.centre);
  store(d.transform.transformDirection(Velarion::Vector3(0, 0, 1)).normalize(), out.normal);
  out.transducers = drivenTransducers;
  out.present = d.present ? 1u : 0u;
  return out;
}

}  // namespace internal
}  // namespace VelarionEmulator
