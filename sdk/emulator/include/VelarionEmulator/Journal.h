// A record of the device-library calls made in this process, as text such as
// "VelarionLibrary::init" or "VersionInfo::checkVersion(2, 6, 4)", so that
// tests can see what a binding asked the device library to do, in order.
#pragma once

#include <string>
#include <vector>

#include "Velarion/Export.h"

namespace VelarionEmulator {
namespace Journal {

// Everything recorded since the last clear(), oldest first. Only the newest
// 100000 entries are kept.
VELARION_API std::vector<std::string> entries();
VELARION_API void clear();
// For the emulator's own subsystems; callable from any thread.
VELARION_API void record(const std::string& entry);

}  // namespace Journal
}  // namespace VelarionEmulator
