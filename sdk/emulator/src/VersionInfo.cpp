#include "Velarion/VersionInfo.h"

#include <string>

#include "Log.h"
#include "VelarionEmulator/Journal.h"

namespace Velarion {
namespace {

// The emulator implements interface 2.6.4 on whatever platform it was built for.
constexpr unsigned int kMajor = 2;
constexpr unsigned int kMinor = 6;
constexpr unsigned int kPatch = 4;

#if defined(_WIN64)
#define VELARION_EMULATOR_PLATFORM "Windows-Win64"
#elif defined(_WIN32)
#define VELARION_EMULATOR_PLATFORM "Windows-Win32"
#elif defined(__linux__) && defined(__x86_64__)
#define VELARION_EMULATOR_PLATFORM "Linux-x86_64"
#elif defined(__linux__) && defined(__aarch64__)
#define VELARION_EMULATOR_PLATFORM "Linux-aarch64"
#elif defined(__APPLE__)
#define VELARION_EMULATOR_PLATFORM "macOS"
#else
#define VELARION_EMULATOR_PLATFORM "Unknown"
#endif

const char* const kVersion = "2.6.4-ST";
const char* const kLongVersion = "2.6.4-ST-" VELARION_EMULATOR_PLATFORM;
const char* const kBuildDate = "2019-01-16";
const char* const kPlatform = VELARION_EMULATOR_PLATFORM;
const char* const kVariant = "Emulator";

std::string text(unsigned int major, unsigned int minor, unsigned int patch) {
  return std::to_string(major) + "." + std::to_string(minor) + "." + std::to_string(patch);
}

}  // namespace

VersionInfo::VersionInfo()
    : VersionString(kVersion),
      LongVersionString(kLongVersion),
      BuildDate(kBuildDate),
      PlatformName(kPlatform),
      VariantName(kVariant),
      MajorVersion(kMajor),
      MinorVersion(kMinor),
      PatchVersion(kPatch) {}

void VersionInfo::checkVersion(unsigned int major, unsigned int minor, unsigned int patch) {
  VelarionEmulator::Journal::record("VersionInfo::checkVersion(" + std::to_string(major) + ", " +
                                    std::to_string(minor) + ", " + std::to_string(patch) + ")");
  using VelarionEmulator::internal::log;
  if (major == kMajor && minor == kMinor && patch == kPatch) {
    log(LogLevel::Debug, "Version", "interface version " + text(major, minor, patch) + " matches");
    return;
  }
  // Another major version changes the binary interface; the rest only features.
  const bool incompatible = major != kMajor;
  log(incompatible ? LogLevel::Error : LogLevel::Warning, "Version",
      "version mismatch: the caller was built against " + text(major, minor, patch) + ", the device library is " +
          text(kMajor, kMinor, kPatch) + (incompatible ? " (incompatible)" : ""));
}

}  // namespace Velarion
