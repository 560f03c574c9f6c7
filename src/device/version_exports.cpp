// The compiled-in interface version, the loaded device library's version, and
// this library's build of VersionInfo::checkVersion().
#include "Velarion/VersionInfo.h"

#include <new>

#include "interop/casting.h"
#include "interop/native_names.h"

using Velarion::VersionInfo;
using namespace vlcs;
using E = Exports<Module::velarion>;

namespace Velarion {

// What every new library handle and every emitter announces to the device library.
void VersionInfo::checkVersion() {
  checkVersion(VL_SDK_VERSION_MAJOR, VL_SDK_VERSION_MINOR, VL_SDK_VERSION_PATCH);
}

}  // namespace Velarion

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_VL_SDK_VERSION_get() { return E::string(VL_SDK_VERSION); }
VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_VL_SDK_VERSION_LONG_get() {
  return E::string(VL_SDK_VERSION_LONG);
}
VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_VL_SDK_BUILD_DATE_get() { return E::string(VL_SDK_BUILD_DATE); }
VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_VL_SDK_PLATFORM_NAME_get() {
  return E::string(VL_SDK_PLATFORM_NAME);
}
VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_VL_SDK_VARIANT_get() { return E::string(VL_SDK_VARIANT); }
VL_CSHARP_EXPORT int VL_CSHARP_CALL CSharp_Velarion_VL_SDK_VERSION_MAJOR_get() { return VL_SDK_VERSION_MAJOR; }
VL_CSHARP_EXPORT int VL_CSHARP_CALL CSharp_Velarion_VL_SDK_VERSION_MINOR_get() { return VL_SDK_VERSION_MINOR; }
VL_CSHARP_EXPORT int VL_CSHARP_CALL CSharp_Velarion_VL_SDK_VERSION_PATCH_get() { return VL_SDK_VERSION_PATCH; }
VL_CSHARP_EXPORT int VL_CSHARP_CALL CSharp_Velarion_VL_SDK_VERSION_INT_get() { return VL_SDK_VERSION_INT; }

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_VersionInfo() { return new (std::nothrow) VersionInfo(); }

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_delete_VersionInfo(void* self) { destroy<VersionInfo>(self); }

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_VersionInfo_VersionString_get(void* self) {
  return E::string(getField(self, &VersionInfo::VersionString));
}
VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_VersionInfo_LongVersionString_get(void* self) {
  return E::string(getField(self, &VersionInfo::LongVersionString));
}
VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_VersionInfo_BuildDate_get(void* self) {
  return E::string(getField(self, &VersionInfo::BuildDate));
}
VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_VersionInfo_PlatformName_get(void* self) {
  return E::string(getField(self, &VersionInfo::PlatformName));
}
VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_VersionInfo_VariantName_get(void* self) {
  return E::string(getField(self, &VersionInfo::VariantName));
}
VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_VersionInfo_MajorVersion_get(void* self) {
  return getField(self, &VersionInfo::MajorVersion);
}
VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_VersionInfo_MinorVersion_get(void* self) {
  return getField(self, &VersionInfo::MinorVersion);
}
VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_VersionInfo_PatchVersion_get(void* self) {
  return getField(self, &VersionInfo::PatchVersion);
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_VersionInfo_checkVersion__SWIG_0() { VersionInfo::checkVersion(); }

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_VersionInfo_checkVersion__SWIG_1(unsigned int major,
                                                                                       unsigned int minor,
                                                                                       unsigned int patch) {
  VersionInfo::checkVersion(major, minor, patch);
}
