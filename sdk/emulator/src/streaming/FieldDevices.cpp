// The devices of a time-point streaming emitter, for drawing its emitted path
// over them.
#include "DeviceRegistry.h"
#include "VelarionEmulator/Field.h"
#include "common/DeviceOutline.h"
#include "streaming/EmitterImplementation.h"

using Velarion::TimePointStreaming::EmitterImplementation;

extern "C" {

int32_t VelarionEmulator_Streaming_fieldDevices(const void* emitter, VelarionEmulatorFieldDevice* out,
                                                uint32_t capacity) {
  int32_t count = 0;
  const bool found = VelarionEmulator::internal::streaming::withEmitter(emitter, [&](EmitterImplementation& e) {
    std::lock_guard<std::mutex> lock(e.mutex);
    count = int32_t(e.devices.size());
    for (std::size_t i = 0; out != nullptr && i < e.devices.size() && i < capacity; ++i) {
      const auto& d = *e.devices[i];
      // The layout as the registry has it; a device removed since counts as
      // centred on its origin.
      const auto entry = VelarionEmulator::internal::DeviceRegistry::instance().find(d.identifier);
      const std::vector<Velarion::Transducer> none;
      const auto& layout = entry ? entry->device.transducers : none;
      out[i] = VelarionEmulator::internal::describeDevice(d, layout, uint32_t(layout.size()));
    }
  });
  return found ? count : VelarionEmulator::Field::kUnknownEmitter;
}
}
