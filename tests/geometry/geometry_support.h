// Shared by the geometry suites: raw views of the value types (the layout is
// fixed), handle bookkeeping, and bit comparison.
#pragma once

#include <cmath>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "support/interop_harness.h"

namespace geometry_test {

struct Vec {
  float x, y, z;
};
struct Quat {
  float x, y, z, w;
};
struct Mat3 {
  double m[9];
};
struct Mat4 {
  double m[16];
};
struct Xform {
  Mat3 basis;
  Vec origin;
};

inline bool sameBits(float a, float b) { return std::memcmp(&a, &b, sizeof a) == 0; }
inline bool sameBits(double a, double b) { return std::memcmp(&a, &b, sizeof a) == 0; }

constexpr double kPi = 3.141592653589793;
// sin(pi) in double, the off-diagonal residue of a half turn, as the
// platform's std::sin gives it at run time: C libraries differ in the last
// bits (glibc 1.2246467991473532e-16, MinGW-w64 1.2246063538223773e-16).
inline double runtimeSinPi() {
  volatile double pi = kPi;
  return std::sin(pi);
}
// sin(pi) correctly rounded, as the compiler folds std::sin of a constant
// angle (the half-turn fallback's angle is one).
constexpr double kFoldedSinPi = 1.2246467991473532e-16;

// Every handle an export hands out is released with its own delete_ export.
class GeometryTest : public harness::ExportTest {
 protected:
  void* keep(void* handle, const char* type) {
    owned.emplace_back(handle, std::string("CSharp_Velarion_delete_") + type);
    return handle;
  }
  void* vec(float x, float y, float z) {
    return keep(harness::call<void*(float, float, float)>("CSharp_Velarion_new_NVector3__SWIG_1", x, y, z), "NVector3");
  }
  void* quat(float x, float y, float z, float w) {
    return keep(harness::call<void*(float, float, float, float)>("CSharp_Velarion_new_Quaternion__SWIG_1", x, y, z, w),
                "Quaternion");
  }
  void* mat3(const Mat3& v) {
    return keep(harness::call<void*(double, double, double, double, double, double, double, double, double)>(
                    "CSharp_Velarion_new_Matrix3x3__SWIG_1", v.m[0], v.m[1], v.m[2], v.m[3], v.m[4], v.m[5], v.m[6],
                    v.m[7], v.m[8]),
                "Matrix3x3");
  }
  void* mat4(const Mat4& v) {
    void* handle = keep(harness::call<void*()>("CSharp_Velarion_new_Matrix4x4__SWIG_0"), "Matrix4x4");
    harness::call<void(void*, const double*)>("CSharp_Velarion_Matrix4x4_element_set", handle, v.m);
    return handle;
  }
  // Calls an export that returns a new handle of `type` and keeps it.
  template <class Signature, class... A>
  void* make(const char* type, const char* name, A... arguments) {
    return keep(harness::call<Signature>(name, arguments...), type);
  }

  template <class T>
  static T view(void* handle) {
    return *static_cast<T*>(handle);
  }

  void TearDown() override {
    for (auto& [handle, deleter] : owned) harness::call<void(void*)>(deleter.c_str(), handle);
    harness::ExportTest::TearDown();
  }

 private:
  std::vector<std::pair<void*, std::string>> owned;
};

using harness::expectNull;
using harness::expectRefused;

}  // namespace geometry_test
