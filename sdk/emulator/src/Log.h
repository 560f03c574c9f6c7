// The emulator's logging core: every message goes to each live
// LoggingExternalInterface, which applies its own level, destination and
// callbacks. Safe from any thread.
#pragma once

#include <string>

#include "Velarion/LoggingExternalInterface.h"

namespace VelarionEmulator {
namespace internal {

// `area` names the subsystem, e.g. "Devices", "Configuration", "Version",
// "AmplitudeModulation", "TimePointStreaming".
void log(Velarion::LogLevel level, const char* area, const std::string& message);

}  // namespace internal
}  // namespace VelarionEmulator
