// The bridge allocates nothing once warmed up: every heap allocation made on
// this thread (C heap and operator new alike, in every library of the
// process) is counted while intervals stream.
#include <cstddef>
#include <cstdlib>

#include "streaming/streaming_support.h"

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define VL_SANITIZED_ALLOCATOR 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define VL_SANITIZED_ALLOCATOR 1
#endif
#endif

#if !defined(VL_SANITIZED_ALLOCATOR) && defined(__GLIBC__)
#define VL_COUNT_ALLOCATIONS 1

// The program's malloc family interposes on every shared library's; each
// forwards to glibc's allocator.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void __libc_free(void* block);
}

namespace {
thread_local bool counting = false;
thread_local std::size_t allocations = 0;
}  // namespace

extern "C" {
void* malloc(std::size_t size) {
  if (counting) ++allocations;
  return __libc_malloc(size);
}
void* calloc(std::size_t count, std::size_t size) {
  if (counting) ++allocations;
  return __libc_calloc(count, size);
}
void* realloc(void* block, std::size_t size) {
  if (counting) ++allocations;
  return __libc_realloc(block, size);
}
void free(void* block) { __libc_free(block); }
}
#endif

using namespace streaming;

#if defined(VL_COUNT_ALLOCATIONS)
namespace {

void editEveryRecord(unsigned int n, unsigned int m, unsigned int stride, Record* records) {
  for (unsigned int k = 0; k < n; ++k) {
    for (unsigned int j = 0; j < m; ++j) {
      Record& r = records[k * stride + j];
      r.intensity = 0.5f;
      r.position.z = 0.2f;
      r.modified = 1;
    }
  }
}

// Answers without recording: recording would allocate in the test itself.
void quietCallback(unsigned int n, unsigned int m, unsigned int stride, const HostTimePoint*, HostTimePoint*,
                   Record* records) {
  editEveryRecord(n, m, stride, records);
}

}  // namespace
#endif

using BridgeAllocations = BridgeTest;

TEST_F(BridgeAllocations, NoneOnceTheBuffersHaveGrown) {
#if defined(VL_SANITIZED_ALLOCATOR)
  GTEST_SKIP() << "the sanitizer owns the allocator in this build";
#elif !defined(VL_COUNT_ALLOCATIONS)
  GTEST_SKIP() << "only glibc's allocator can be interposed on for every library of the process";
#else
  connect(wrapper, nullptr, nullptr, &quietCallback);
  VelarionEmulator::Streaming::Interval interval;
  interval.firstTime = firstTime();
  interval.spacing = HostDuration(0, 1.0 / 16000);
  interval.maximumControlPointCount = 4;
  // Warm-up: the largest interval first, so that later ones fit.
  interval.timePointCount = 64;
  VelarionEmulator::Streaming::step(emitter, interval);

  // The counter is checked on itself first, so that zero below means zero.
  counting = true;
  void* probe = std::malloc(16);
  counting = false;
  std::free(probe);
  ASSERT_EQ(allocations, 1u);
  allocations = 0;

  counting = true;
  for (int i = 0; i < 5000; ++i) {
    interval.timePointCount = 16 + static_cast<std::size_t>(i % 49);
    interval.maximumControlPointCount = 1 + static_cast<unsigned int>(i % 4);
    VelarionEmulator::Streaming::step(emitter, interval);
    interval.firstTime += interval.spacing * static_cast<unsigned int>(interval.timePointCount);
  }
  counting = false;
  EXPECT_EQ(allocations, 0u);
  EXPECT_EQ(VelarionEmulator::Streaming::delivered(emitter, 0, 0).intensity, 0.5f);
#endif
}
