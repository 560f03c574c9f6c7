// A device as pressure maps and path plots draw it: its outline and facing
// in the emitter's space.
#pragma once

#include <cstdint>
#include <vector>

#include "Velarion/TransducerContainer.h"
#include "VelarionEmulator/Field.h"
#include "common/EmitterDevices.h"

namespace VelarionEmulator {
namespace internal {

// The outline is the array's stated size, centred on its elements, in the
// plane of the elements, placed by the device's transform.
VelarionEmulatorFieldDevice describeDevice(const HeldDeviceBase& device, const std::vector<Velarion::Transducer>& layout,
                                           uint32_t drivenTransducers);

}  // namespace internal
}  // namespace VelarionEmulator
