// Alignment between the device frame and a tracking frame.
#include "Velarion/Alignment.h"

#include <new>

#include "interop/casting.h"
#include "interop/native_names.h"

using Velarion::Alignment;
using Velarion::Vector3;
using namespace vlcs;
using E = Exports<Module::velarion>;

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_Alignment__SWIG_0() {
  return new (std::nothrow) Alignment();
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_Alignment__SWIG_1(float v0, float v1, float v2, float v3,
                                                                            float v4, float v5, float v6, float v7,
                                                                            float v8, float v9, float v10,
                                                                            float v11) {
  return new (std::nothrow) Alignment(v0, v1, v2, v3, v4, v5, v6, v7, v8, v9, v10, v11);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_Alignment__SWIG_2(const char* path) {
  return new (std::nothrow) Alignment(path);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_Alignment__SWIG_3(void* other) {
  return E::call([](const Alignment& o) { return new (std::nothrow) Alignment(o); }, ConstRef<Alignment>{other});
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_delete_Alignment(void* self) { destroy<Alignment>(self); }

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Alignment_fromDevicePositionToTrackingPosition(void* self,
                                                                                                    void* v) {
  return E::call([](const Alignment& a, const Vector3& p) { return a.fromDevicePositionToTrackingPosition(p); },
                 Self<Alignment>{self}, ConstRef<Vector3>{v});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Alignment_fromDeviceDirectionToTrackingDirection(void* self,
                                                                                                      void* v) {
  return E::call([](const Alignment& a, const Vector3& d) { return a.fromDeviceDirectionToTrackingDirection(d); },
                 Self<Alignment>{self}, ConstRef<Vector3>{v});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Alignment_fromTrackingPositionToDevicePosition(void* self,
                                                                                                    void* v) {
  return E::call([](const Alignment& a, const Vector3& p) { return a.fromTrackingPositionToDevicePosition(p); },
                 Self<Alignment>{self}, ConstRef<Vector3>{v});
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_Alignment_fromTrackingDirectionToDeviceDirection(void* self,
                                                                                                      void* v) {
  return E::call([](const Alignment& a, const Vector3& d) { return a.fromTrackingDirectionToDeviceDirection(d); },
                 Self<Alignment>{self}, ConstRef<Vector3>{v});
}

// The arrays go straight to the device library, which writes sixteen values.
VL_CSHARP_EXPORT void VL_CSHARP_CALL
CSharp_Velarion_Alignment_fromDeviceToTrackingTransformToArray4x4__SWIG_0(void* self, float* out) {
  E::call([](const Alignment& a, float* o) { a.fromDeviceToTrackingTransformToArray4x4(o); }, Self<Alignment>{self},
          out);
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL
CSharp_Velarion_Alignment_fromDeviceToTrackingTransformToArray4x4__SWIG_1(void* self, double* out) {
  E::call([](const Alignment& a, double* o) { a.fromDeviceToTrackingTransformToArray4x4(o); }, Self<Alignment>{self},
          out);
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL
CSharp_Velarion_Alignment_fromTrackingToDeviceTransformToArray4x4__SWIG_0(void* self, float* out) {
  E::call([](const Alignment& a, float* o) { a.fromTrackingToDeviceTransformToArray4x4(o); }, Self<Alignment>{self},
          out);
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL
CSharp_Velarion_Alignment_fromTrackingToDeviceTransformToArray4x4__SWIG_1(void* self, double* out) {
  E::call([](const Alignment& a, double* o) { a.fromTrackingToDeviceTransformToArray4x4(o); }, Self<Alignment>{self},
          out);
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_Alignment_loadAlignment(void* self, const char* path) {
  return E::call([](Alignment& a, const char* p) { return a.loadAlignment(p); }, Self<Alignment>{self}, path);
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_Alignment_saveAlignment(void* self, const char* path) {
  return E::call([](const Alignment& a, const char* p) { return a.saveAlignment(p); }, Self<Alignment>{self}, path);
}
