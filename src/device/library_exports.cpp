// VelarionLibrary: the library handle, device enumeration and the two
// gatherers that hand every identifier or description over in one list.
#include "Velarion/VelarionLibrary.h"

#include <cstring>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "interop/casting.h"
#include "interop/native_names.h"

using Velarion::DeviceInfo;
using Velarion::VelarionLibrary;
using namespace vlcs;
using E = Exports<Module::velarion>;

namespace Velarion {

// Every new library handle announces the interface version it was built against.
VelarionLibrary::VelarionLibrary() : implementation_(nullptr) {
  init();
  VersionInfo::checkVersion(VL_SDK_VERSION_MAJOR, VL_SDK_VERSION_MINOR, VL_SDK_VERSION_PATCH);
}

}  // namespace Velarion

namespace {

// Stops at the first index whose size query says "no device"; an identifier
// that cannot be read at the announced size keeps an empty slot.
std::vector<std::string>* gatherIdentifiers(const VelarionLibrary& library) {
  const unsigned int count = library.getDeviceCount();
  std::vector<std::string> identifiers(count);
  for (unsigned int i = 0; i < count; ++i) {
    const unsigned int size = library.getDeviceIdentifier(i, nullptr, 0);
    if (size == 0) {
      identifiers.resize(i);
      break;
    }
    std::vector<char> buffer(size);
    if (library.getDeviceIdentifier(i, buffer.data(), size) == size) {
      identifiers[i].assign(buffer.data(), strnlen(buffer.data(), size));
    }
  }
  return new std::vector<std::string>(std::move(identifiers));
}

// Stops at the first description with an empty identifier.
std::vector<DeviceInfo>* gatherDeviceInfos(const VelarionLibrary& library) {
  const unsigned int count = library.getDeviceCount();
  std::vector<DeviceInfo> infos;
  for (unsigned int i = 0; i < count; ++i) {
    DeviceInfo info = library.getDeviceInfoByIndex(i);
    const char* identifier = info.getDeviceIdentifier();
    if (identifier == nullptr || *identifier == '\0') {
      break;
    }
    infos.push_back(info);
  }
  return new std::vector<DeviceInfo>(std::move(infos));
}

}  // namespace

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_VelarionLibrary__SWIG_0() {
  return new (std::nothrow) VelarionLibrary();
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_VelarionLibrary__SWIG_1(void* other) {
  return E::call([](VelarionLibrary&& o) { return new (std::nothrow) VelarionLibrary(std::move(o)); },
                 Moved<VelarionLibrary>{other});
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_delete_VelarionLibrary(void* self) {
  destroy<VelarionLibrary>(self);
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_VelarionLibrary_getDeviceCount(void* self) {
  return E::call([](const VelarionLibrary& l) { return l.getDeviceCount(); }, Self<VelarionLibrary>{self});
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_VelarionLibrary_getDeviceIdentifier(void* self,
                                                                                                 unsigned int index,
                                                                                                 char* buffer,
                                                                                                 unsigned int size) {
  return E::call([](const VelarionLibrary& l, unsigned int i, char* b, unsigned int s) {
    return l.getDeviceIdentifier(i, b, s);
  }, Self<VelarionLibrary>{self}, index, buffer, size);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_VelarionLibrary_getDeviceInfoByIndex(void* self,
                                                                                           unsigned int index) {
  return E::call([](const VelarionLibrary& l, unsigned int i) { return l.getDeviceInfoByIndex(i); },
                 Self<VelarionLibrary>{self}, index);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL
CSharp_Velarion_VelarionLibrary_getDeviceInfoByIdentifier_internal(void* self, const char* identifier) {
  return E::call([](const VelarionLibrary& l, const char* id) { return l.getDeviceInfoByIdentifier(id); },
                 Self<VelarionLibrary>{self}, identifier);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_VelarionLibrary_getManagedDeviceIdentifiers(void* self) {
  return E::call(gatherIdentifiers, Self<VelarionLibrary>{self});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_VelarionLibrary_getManagedDeviceInfos(void* self) {
  return E::call(gatherDeviceInfos, Self<VelarionLibrary>{self});
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_VelarionLibrary_isDeviceConnected(void* self,
                                                                                               const char* identifier) {
  return E::call([](const VelarionLibrary& l, const char* id) { return l.isDeviceConnected(id); },
                 Self<VelarionLibrary>{self}, identifier);
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_VelarionLibrary_isDeviceClaimed(void* self,
                                                                                             const char* identifier) {
  return E::call([](const VelarionLibrary& l, const char* id) { return l.isDeviceClaimed(id); },
                 Self<VelarionLibrary>{self}, identifier);
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL
CSharp_Velarion_VelarionLibrary_isProcessPriorityManagementAllowed(void* self) {
  return E::call([](const VelarionLibrary& l) { return l.isProcessPriorityManagementAllowed(); },
                 Self<VelarionLibrary>{self});
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_VelarionLibrary_setProcessPriorityManagementAllowed(
    void* self, unsigned int allowed) {
  E::call([](VelarionLibrary& l, bool a) { l.setProcessPriorityManagementAllowed(a); }, Self<VelarionLibrary>{self},
          Flag{allowed});
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL
CSharp_Velarion_VelarionLibrary_isThreadPriorityManagementAllowed(void* self) {
  return E::call([](const VelarionLibrary& l) { return l.isThreadPriorityManagementAllowed(); },
                 Self<VelarionLibrary>{self});
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_VelarionLibrary_setThreadPriorityManagementAllowed(
    void* self, unsigned int allowed) {
  E::call([](VelarionLibrary& l, bool a) { l.setThreadPriorityManagementAllowed(a); }, Self<VelarionLibrary>{self},
          Flag{allowed});
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL
CSharp_Velarion_VelarionLibrary_reloadHardwareConfigurations__SWIG_0(void* self) {
  return E::call([](VelarionLibrary& l) { return l.reloadHardwareConfigurations(); }, Self<VelarionLibrary>{self});
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL
CSharp_Velarion_VelarionLibrary_reloadHardwareConfigurations__SWIG_1(void* self, const char* path) {
  return E::call([](VelarionLibrary& l, const char* p) { return l.reloadHardwareConfigurations(p); },
                 Self<VelarionLibrary>{self}, path);
}

// Borrowed: the interface belongs to the library object.
VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_VelarionLibrary_getLoggingInterface_internal(void* self) {
  return E::call([](const VelarionLibrary& l) { return &l.getLoggingInterface(); }, Self<VelarionLibrary>{self});
}
