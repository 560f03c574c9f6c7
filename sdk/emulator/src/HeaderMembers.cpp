// The device library's own build of the members its headers leave to every
// binary that uses them, so that C++ programs linking only the device library
// have them too.
#include "Velarion/VelarionLibrary.h"
#include "Velarion/VersionInfo.h"

namespace Velarion {

VelarionLibrary::VelarionLibrary() : implementation_(nullptr) {
  init();
  VersionInfo::checkVersion(VL_SDK_VERSION_MAJOR, VL_SDK_VERSION_MINOR, VL_SDK_VERSION_PATCH);
}

void VersionInfo::checkVersion() {
  checkVersion(VL_SDK_VERSION_MAJOR, VL_SDK_VERSION_MINOR, VL_SDK_VERSION_PATCH);
}

}  // namespace Velarion
