// The interface version these headers describe, and the version of the
// device library actually loaded.
#pragma once

#include "Velarion/Export.h"

#define VL_SDK_VERSION "2.6.4-ST"
#define VL_SDK_VERSION_LONG "2.6.4-ST-Windows-Win64"
#define VL_SDK_BUILD_DATE "2019-01-16"
#define VL_SDK_PLATFORM_NAME "Windows-Win64"
#define VL_SDK_VARIANT "Public"
#define VL_SDK_VERSION_MAJOR 2
#define VL_SDK_VERSION_MINOR 6
#define VL_SDK_VERSION_PATCH 4
// major * 65536 + minor * 256 + patch
#define VL_SDK_VERSION_INT 132612

static_assert(VL_SDK_VERSION_INT == VL_SDK_VERSION_MAJOR * 65536 + VL_SDK_VERSION_MINOR * 256 + VL_SDK_VERSION_PATCH,
              "VL_SDK_VERSION_INT must pack the three version numbers");

namespace Velarion {

// Filled by the loaded device library. The strings belong to the device
// library and live as long as it stays loaded.
class VELARION_API VersionInfo {
 public:
  VersionInfo();

  const char* VersionString;
  const char* LongVersionString;
  const char* BuildDate;
  const char* PlatformName;
  const char* VariantName;
  unsigned int MajorVersion;
  unsigned int MinorVersion;
  unsigned int PatchVersion;

  // Tells the device library which interface version the caller was built
  // against; a mismatch is logged.
  static void checkVersion(unsigned int major, unsigned int minor, unsigned int patch);

  // checkVersion(VL_SDK_VERSION_MAJOR, VL_SDK_VERSION_MINOR, VL_SDK_VERSION_PATCH),
  // built by every binary that uses these headers.
  VELARION_INCLUDER_API static void checkVersion();
};

}  // namespace Velarion
