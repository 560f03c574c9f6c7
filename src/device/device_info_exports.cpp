// DeviceInfo, the Transducer record and TransducerContainer.
#include "Velarion/DeviceInfo.h"

#include <cstdint>
#include <new>

#include "Velarion/TransducerContainer.h"
#include "interop/casting.h"
#include "interop/native_names.h"

using Velarion::DeviceFeatures;
using Velarion::DeviceInfo;
using Velarion::Transducer;
using Velarion::TransducerContainer;
using namespace vlcs;
using E = Exports<Module::velarion>;

// --- DeviceInfo ---------------------------------------------------------------

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_DeviceInfo(void* other) {
  return E::call([](const DeviceInfo& o) { return new (std::nothrow) DeviceInfo(o); }, ConstRef<DeviceInfo>{other});
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_delete_DeviceInfo(void* self) { destroy<DeviceInfo>(self); }

VL_CSHARP_EXPORT float VL_CSHARP_CALL CSharp_Velarion_DeviceInfo_arrayWidth(void* self) {
  return E::call([](const DeviceInfo& d) { return d.arrayWidth(); }, Self<DeviceInfo>{self});
}

VL_CSHARP_EXPORT float VL_CSHARP_CALL CSharp_Velarion_DeviceInfo_arrayDepth(void* self) {
  return E::call([](const DeviceInfo& d) { return d.arrayDepth(); }, Self<DeviceInfo>{self});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_DeviceInfo_getDeviceIdentifier(void* self) {
  return E::call([](const DeviceInfo& d) { return d.getDeviceIdentifier(); }, Self<DeviceInfo>{self});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_DeviceInfo_getFirmwareBuildDate(void* self) {
  return E::call([](const DeviceInfo& d) { return d.getFirmwareBuildDate(); }, Self<DeviceInfo>{self});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_DeviceInfo_getFirmwareVersion(void* self) {
  return E::call([](const DeviceInfo& d) { return d.getFirmwareVersion(); }, Self<DeviceInfo>{self});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_DeviceInfo_getModelDescription(void* self) {
  return E::call([](const DeviceInfo& d) { return d.getModelDescription(); }, Self<DeviceInfo>{self});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_DeviceInfo_getModelIdentifier(void* self) {
  return E::call([](const DeviceInfo& d) { return d.getModelIdentifier(); }, Self<DeviceInfo>{self});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_DeviceInfo_getSerialNumber(void* self) {
  return E::call([](const DeviceInfo& d) { return d.getSerialNumber(); }, Self<DeviceInfo>{self});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_DeviceInfo_getTransducerLayoutName(void* self) {
  return E::call([](const DeviceInfo& d) { return d.getTransducerLayoutName(); }, Self<DeviceInfo>{self});
}

VL_CSHARP_EXPORT int VL_CSHARP_CALL CSharp_Velarion_DeviceInfo_getSupportedFeatures(void* self) {
  return E::call([](const DeviceInfo& d) { return d.getSupportedFeatures(); }, Self<DeviceInfo>{self});
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_DeviceInfo_hasSupportFor(void* self, int feature) {
  return E::call([](const DeviceInfo& d, int f) { return d.hasSupportFor(static_cast<DeviceFeatures>(f)); },
                 Self<DeviceInfo>{self}, feature);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_DeviceInfo_getDefaultAlignment(void* self) {
  return E::call([](const DeviceInfo& d) { return d.getDefaultAlignment(); }, Self<DeviceInfo>{self});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_DeviceInfo_getTransducerConfiguration(void* self) {
  return E::call([](const DeviceInfo& d) { return d.getTransducerConfiguration(); }, Self<DeviceInfo>{self});
}

// --- Transducer -------------------------------------------------------------------

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_Transducer__SWIG_0() {
  return new (std::nothrow) Transducer();
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_Transducer__SWIG_1(float x_position, float y_position,
                                                                             float z_position, float x_upvector,
                                                                             float y_upvector, float z_upvector,
                                                                             float multiplier) {
  return new (std::nothrow) Transducer(x_position, y_position, z_position, x_upvector, y_upvector, z_upvector,
                                       multiplier);
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_delete_Transducer(void* self) { destroy<Transducer>(self); }

#define VLCS_TRANSDUCER_FIELD(field)                                                                  \
  VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_Transducer_##field##_set(void* self, float v) { \
    setField(self, &Transducer::field, v);                                                            \
  }                                                                                                   \
  VL_CSHARP_EXPORT float VL_CSHARP_CALL CSharp_Velarion_Transducer_##field##_get(void* self) {         \
    return getField(self, &Transducer::field);                                                        \
  }

VLCS_TRANSDUCER_FIELD(x_position)
VLCS_TRANSDUCER_FIELD(y_position)
VLCS_TRANSDUCER_FIELD(z_position)
VLCS_TRANSDUCER_FIELD(x_upvector)
VLCS_TRANSDUCER_FIELD(y_upvector)
VLCS_TRANSDUCER_FIELD(z_upvector)
VLCS_TRANSDUCER_FIELD(multiplier)

#undef VLCS_TRANSDUCER_FIELD

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_Transducer_isEnabled(void* self) {
  return E::call([](const Transducer& t) { return t.isEnabled(); }, Self<Transducer>{self});
}

// --- TransducerContainer -----------------------------------------------------------

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_TransducerContainer__SWIG_0() {
  return new (std::nothrow) TransducerContainer();
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_TransducerContainer__SWIG_1(unsigned int count,
                                                                                      void* array) {
  return new (std::nothrow) TransducerContainer(static_cast<size_t>(count), static_cast<const Transducer*>(array));
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_TransducerContainer__SWIG_2(void* other) {
  return E::call([](const TransducerContainer& o) { return new (std::nothrow) TransducerContainer(o); },
                 ConstRef<TransducerContainer>{other});
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_delete_TransducerContainer(void* self) {
  destroy<TransducerContainer>(self);
}

VL_CSHARP_EXPORT uint64_t VL_CSHARP_CALL CSharp_Velarion_TransducerContainer_size(void* self) {
  return E::call([](const TransducerContainer& c) { return static_cast<uint64_t>(c.size()); },
                 Self<TransducerContainer>{self});
}

// Borrowed pointers into the container; the index check is the device library's.
VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_TransducerContainer_at(void* self, unsigned int index) {
  return E::call([](const TransducerContainer& c, size_t i) { return &c.at(i); }, Self<TransducerContainer>{self},
                 static_cast<size_t>(index));
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_TransducerContainer_data(void* self) {
  return E::call([](const TransducerContainer& c) { return c.data(); }, Self<TransducerContainer>{self});
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_TransducerContainer_insert(void* self,
                                                                                        unsigned int position,
                                                                                        unsigned int count,
                                                                                        void* array) {
  return E::call([](TransducerContainer& c, size_t p, size_t n, const Transducer* a) { return c.insert(p, n, a); },
                 Self<TransducerContainer>{self}, static_cast<size_t>(position), static_cast<size_t>(count),
                 static_cast<const Transducer*>(array));
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_TransducerContainer_erase(void* self,
                                                                                       unsigned int first,
                                                                                       unsigned int count) {
  return E::call([](TransducerContainer& c, size_t f, size_t n) { return c.erase(f, n); },
                 Self<TransducerContainer>{self}, static_cast<size_t>(first), static_cast<size_t>(count));
}
