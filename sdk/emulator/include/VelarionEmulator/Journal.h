// A record of the device-library calls made in this process, as text such as
// "VelarionLibrary::init" or "VersionInfo::checkVersion(2, 6, 4)", so that
// tests can see what a binding asked the device library to do, in order.
//
// Bounded, so that a process calling the device library for hours, or with
// huge arguments, does not grow without end: a text argument keeps its first
// kArgumentBytes bytes, an entry its first kEntryBytes bytes, each cut one
// ending in "...(N bytes)" with its full length; the oldest entries are
// dropped beyond kMaxEntries entries or kMaxTotalBytes bytes of text.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "Velarion/Export.h"

namespace VelarionEmulator {
namespace Journal {

constexpr std::size_t kArgumentBytes = 256;
constexpr std::size_t kEntryBytes = 1024;
constexpr std::size_t kMaxEntries = 100000;
constexpr std::size_t kMaxTotalBytes = 8 * 1024 * 1024;

// Everything recorded since the last clear(), oldest first, within the bounds
// above.
VELARION_API std::vector<std::string> entries();
VELARION_API void clear();
// For the emulator's own subsystems; callable from any thread.
VELARION_API void record(const std::string& entry);
// How an entry shows a text argument: "text" in double quotes, or null.
VELARION_API std::string argument(const char* text);

}  // namespace Journal
}  // namespace VelarionEmulator
