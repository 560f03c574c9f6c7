// Geometry exports as the managed binding drives them: each iteration creates
// the operands, calls the operation, and deletes every handle it got back.
// The no-op export call is the floor: the cost of crossing into the library.
#include <benchmark/benchmark.h>
#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

template <class Signature>
Signature* exported(const char* name) {
  void* symbol = dlsym(RTLD_DEFAULT, name);
  if (symbol == nullptr) {
    std::fprintf(stderr, "not exported: %s\n", name);
    std::abort();
  }
  return reinterpret_cast<Signature*>(symbol);
}

// Stands in for the managed string factory: one copy of the text.
std::string lastString;
void* makeString(const char* text) {
  lastString.assign(text);
  return &lastString;
}

using Deleter = void(void*);

struct Exports {
  Deleter* deleteVector = exported<Deleter>("CSharp_Velarion_delete_NVector3");
  Deleter* deleteQuaternion = exported<Deleter>("CSharp_Velarion_delete_Quaternion");
  Deleter* deleteMatrix3 = exported<Deleter>("CSharp_Velarion_delete_Matrix3x3");
  Deleter* deleteMatrix4 = exported<Deleter>("CSharp_Velarion_delete_Matrix4x4");
  Deleter* deleteTransform = exported<Deleter>("CSharp_Velarion_delete_Transform");
  void* (*newVector)(float, float, float) =
      exported<void*(float, float, float)>("CSharp_Velarion_new_NVector3__SWIG_1");
  void* (*cross)(void*, void*) = exported<void*(void*, void*)>("CSharp_Velarion_NVector3_cross");
  void* (*newQuaternion)(float, float, float, float) =
      exported<void*(float, float, float, float)>("CSharp_Velarion_new_Quaternion__SWIG_1");
  void* (*quaternionProduct)(void*, void*) = exported<void*(void*, void*)>("CSharp_Velarion_operator_multiply__SWIG_1");
  void* (*newMatrix3)(double, double, double, double, double, double, double, double, double) =
      exported<void*(double, double, double, double, double, double, double, double, double)>(
          "CSharp_Velarion_new_Matrix3x3__SWIG_1");
  void* (*inverse3)(void*) = exported<void*(void*)>("CSharp_Velarion_Matrix3x3_inverse");
  void* (*newMatrix4)(double, double, double, double, double, double, double, double, double, double, double, double,
                      double, double, double, double) =
      exported<void*(double, double, double, double, double, double, double, double, double, double, double, double,
                     double, double, double, double)>("CSharp_Velarion_new_Matrix4x4__SWIG_1");
  void* (*inverse4)(void*) = exported<void*(void*)>("CSharp_Velarion_Matrix4x4_inverse");
  void* (*toString4)(void*) = exported<void*(void*)>("CSharp_Velarion_Matrix4x4_toString");
  void* (*translation)(double, double, double) =
      exported<void*(double, double, double)>("CSharp_Velarion_Transform_translation__SWIG_1");
  void* (*rotation)(void*) = exported<void*(void*)>("CSharp_Velarion_new_Transform__SWIG_4");
  void* (*compose)(void*, void*) = exported<void*(void*, void*)>("CSharp_Velarion_operator_multiply__SWIG_7");

  Exports() {
    exported<void(void* (*)(const char*))>("SWIGRegisterStringCallback_velarion")(&makeString);
  }
};

const Exports& exports() {
  static const Exports instance;
  return instance;
}

void NoOpExport(benchmark::State& state) {
  const Exports& e = exports();
  for (auto _ : state) {
    e.deleteVector(nullptr);
  }
}
BENCHMARK(NoOpExport);

// One handle's life on its own: what every by-value result costs.
void Vector3NewDelete(benchmark::State& state) {
  const Exports& e = exports();
  for (auto _ : state) {
    void* v = e.newVector(0.1f, 2.0f, -3.0f);
    benchmark::DoNotOptimize(v);
    e.deleteVector(v);
  }
}
BENCHMARK(Vector3NewDelete);

void Vector3Cross(benchmark::State& state) {
  const Exports& e = exports();
  for (auto _ : state) {
    void* a = e.newVector(0.1f, 2.0f, -3.0f);
    void* b = e.newVector(4.0f, -0.5f, 6.0f);
    void* r = e.cross(a, b);
    benchmark::DoNotOptimize(r);
    e.deleteVector(r);
    e.deleteVector(b);
    e.deleteVector(a);
  }
}
BENCHMARK(Vector3Cross);

void QuaternionProduct(benchmark::State& state) {
  const Exports& e = exports();
  for (auto _ : state) {
    void* a = e.newQuaternion(0.1f, 0.2f, 0.3f, 0.9f);
    void* b = e.newQuaternion(-0.4f, 0.1f, 0.5f, 0.7f);
    void* r = e.quaternionProduct(a, b);
    benchmark::DoNotOptimize(r);
    e.deleteQuaternion(r);
    e.deleteQuaternion(b);
    e.deleteQuaternion(a);
  }
}
BENCHMARK(QuaternionProduct);

void Matrix3x3Inverse(benchmark::State& state) {
  const Exports& e = exports();
  for (auto _ : state) {
    void* m = e.newMatrix3(2.5, -1.25, 0.3, 4.0, 0.7, -3.1, 1e-3, 8.0, 0.9);
    void* r = e.inverse3(m);
    benchmark::DoNotOptimize(r);
    e.deleteMatrix3(r);
    e.deleteMatrix3(m);
  }
}
BENCHMARK(Matrix3x3Inverse);

void Matrix4x4Inverse(benchmark::State& state) {
  const Exports& e = exports();
  for (auto _ : state) {
    void* m = e.newMatrix4(2, 0, 1, 3, 1, 1, 0, -1, 0, 4, 1, 2, 1, 0, 2, 1);
    void* r = e.inverse4(m);
    benchmark::DoNotOptimize(r);
    e.deleteMatrix4(r);
    e.deleteMatrix4(m);
  }
}
BENCHMARK(Matrix4x4Inverse);

void TransformCompose(benchmark::State& state) {
  const Exports& e = exports();
  void* axis = e.newQuaternion(0.0f, 0.0f, 0.38268343f, 0.92387953f);
  for (auto _ : state) {
    void* a = e.rotation(axis);
    void* b = e.translation(1.0, -2.0, 3.0);
    void* r = e.compose(a, b);
    benchmark::DoNotOptimize(r);
    e.deleteTransform(r);
    e.deleteTransform(b);
    e.deleteTransform(a);
  }
  e.deleteQuaternion(axis);
}
BENCHMARK(TransformCompose);

void Matrix4x4ToString(benchmark::State& state) {
  const Exports& e = exports();
  for (auto _ : state) {
    void* m = e.newMatrix4(0.5, 0, 0, 1.5, 0, 1234567, 0, -2, 0, 0, 1e-7, 3.25, 0, 0, 0, 1);
    void* text = e.toString4(m);
    benchmark::DoNotOptimize(text);
    e.deleteMatrix4(m);
  }
}
BENCHMARK(Matrix4x4ToString);

}  // namespace

BENCHMARK_MAIN();
