// StringList and DeviceInfoList: one line per export, the bodies are shared
// (list_exports.h).
#include "interop/list_containers.h"

#include "Velarion/DeviceInfo.h"
#include "interop/list_exports.h"

using Velarion::DeviceInfo;
using namespace vlcs;
using Strings = ListExports<std::string, String, const char*>;
using DeviceInfos = ListExports<DeviceInfo, ConstRef<DeviceInfo>, void*>;

// --- StringList -------------------------------------------------------------

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_StringList__SWIG_0() { return Strings::create(); }
VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_StringList__SWIG_1(void* other) {
  return Strings::copy(other);
}
VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_StringList__SWIG_2(int capacity) {
  return Strings::withCapacity(capacity);
}
VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_delete_StringList(void* self) {
  destroy<std::vector<std::string>>(self);
}
VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_StringList_Clear(void* self) { Strings::clear(self); }
VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_StringList_Add(void* self, const char* value) {
  Strings::add(self, value);
}
VL_CSHARP_EXPORT uint32_t VL_CSHARP_CALL CSharp_Velarion_StringList_size(void* self) { return Strings::size(self); }
VL_CSHARP_EXPORT uint32_t VL_CSHARP_CALL CSharp_Velarion_StringList_capacity(void* self) {
  return Strings::capacity(self);
}
VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_StringList_reserve(void* self, uint32_t n) {
  Strings::reserve(self, n);
}
VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_StringList_getitemcopy(void* self, int index) {
  return Strings::getitemcopy(self, index);
}
VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_StringList_getitem(void* self, int index) {
  return Strings::getitem(self, index);
}
VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_StringList_setitem(void* self, int index, const char* value) {
  Strings::setitem(self, index, value);
}
VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_StringList_AddRange(void* self, void* values) {
  Strings::addRange(self, values);
}
VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_StringList_GetRange(void* self, int index, int count) {
  return Strings::getRange(self, index, count);
}
VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_StringList_Insert(void* self, int index, const char* value) {
  Strings::insert(self, index, value);
}
VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_StringList_InsertRange(void* self, int index, void* values) {
  Strings::insertRange(self, index, values);
}
VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_StringList_RemoveAt(void* self, int index) {
  Strings::removeAt(self, index);
}
VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_StringList_RemoveRange(void* self, int index, int count) {
  Strings::removeRange(self, index, count);
}
VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_StringList_Repeat(const char* value, int count) {
  return Strings::repeat(value, count);
}
VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_StringList_Reverse__SWIG_0(void* self) {
  Strings::reverse(self);
}
VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_StringList_Reverse__SWIG_1(void* self, int index, int count) {
  Strings::reverse(self, index, count);
}
VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_StringList_SetRange(void* self, int index, void* values) {
  Strings::setRange(self, index, values);
}
VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_StringList_Contains(void* self, const char* value) {
  return Strings::contains(self, value);
}
VL_CSHARP_EXPORT int VL_CSHARP_CALL CSharp_Velarion_StringList_IndexOf(void* self, const char* value) {
  return Strings::indexOf(self, value);
}
VL_CSHARP_EXPORT int VL_CSHARP_CALL CSharp_Velarion_StringList_LastIndexOf(void* self, const char* value) {
  return Strings::lastIndexOf(self, value);
}
VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_StringList_Remove(void* self, const char* value) {
  return Strings::remove(self, value);
}

// --- DeviceInfoList ---------------------------------------------------------

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_DeviceInfoList__SWIG_0() { return DeviceInfos::create(); }
VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_DeviceInfoList__SWIG_1(void* other) {
  return DeviceInfos::copy(other);
}
VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_DeviceInfoList__SWIG_2(int capacity) {
  return DeviceInfos::withCapacity(capacity);
}
VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_delete_DeviceInfoList(void* self) {
  destroy<std::vector<DeviceInfo>>(self);
}
VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_DeviceInfoList_Clear(void* self) { DeviceInfos::clear(self); }
VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_DeviceInfoList_Add(void* self, void* value) {
  DeviceInfos::add(self, value);
}
VL_CSHARP_EXPORT uint32_t VL_CSHARP_CALL CSharp_Velarion_DeviceInfoList_size(void* self) {
  return DeviceInfos::size(self);
}
VL_CSHARP_EXPORT uint32_t VL_CSHARP_CALL CSharp_Velarion_DeviceInfoList_capacity(void* self) {
  return DeviceInfos::capacity(self);
}
VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_DeviceInfoList_reserve(void* self, uint32_t n) {
  DeviceInfos::reserve(self, n);
}
VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_DeviceInfoList_getitemcopy(void* self, int index) {
  return DeviceInfos::getitemcopy(self, index);
}
VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_DeviceInfoList_getitem(void* self, int index) {
  return DeviceInfos::getitem(self, index);
}
VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_DeviceInfoList_setitem(void* self, int index, void* value) {
  DeviceInfos::setitem(self, index, value);
}
VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_DeviceInfoList_AddRange(void* self, void* values) {
  DeviceInfos::addRange(self, values);
}
VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_DeviceInfoList_GetRange(void* self, int index, int count) {
  return DeviceInfos::getRange(self, index, count);
}
VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_DeviceInfoList_Insert(void* self, int index, void* value) {
  DeviceInfos::insert(self, index, value);
}
VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_DeviceInfoList_InsertRange(void* self, int index, void* values) {
  DeviceInfos::insertRange(self, index, values);
}
VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_DeviceInfoList_RemoveAt(void* self, int index) {
  DeviceInfos::removeAt(self, index);
}
VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_DeviceInfoList_RemoveRange(void* self, int index, int count) {
  DeviceInfos::removeRange(self, index, count);
}
VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_DeviceInfoList_Repeat(void* value, int count) {
  return DeviceInfos::repeat(value, count);
}
VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_DeviceInfoList_Reverse__SWIG_0(void* self) {
  DeviceInfos::reverse(self);
}
VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_DeviceInfoList_Reverse__SWIG_1(void* self, int index, int count) {
  DeviceInfos::reverse(self, index, count);
}
VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_DeviceInfoList_SetRange(void* self, int index, void* values) {
  DeviceInfos::setRange(self, index, values);
}
