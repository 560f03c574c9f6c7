// Placeholder translation unit until the emulator grows its first subsystem.
#include "Velarion/Export.h"

namespace Velarion {
VELARION_API const char* emulatorName() { return "Velarion emulator"; }
}  // namespace Velarion
