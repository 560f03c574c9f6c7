// Calls the exports the way the managed side does: by name from the interop
// library's export table, with recording callbacks registered for all three
// modules.
#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

namespace harness {

enum ModuleId { velarion = 0, amplitudemodulation = 1, timepointstreaming = 2 };

struct PendingArgument {
  ModuleId module;
  int code;  // 0 ArgumentException, 1 ArgumentNullException, 2 ArgumentOutOfRangeException
  std::optional<std::string> message;
  std::optional<std::string> paramName;
};

struct PendingException {
  ModuleId module;
  int code;
  std::optional<std::string> message;
};

// Registers the recording callbacks of all three modules (again) and clears
// what was recorded.
void registerAll();

std::vector<PendingArgument>& pendingArguments();
std::vector<PendingException>& pendingExceptions();

// Takes the one pending argument exception recorded since the last call;
// fails the current test if there is not exactly one.
PendingArgument takePending();
bool nothingPending();

// The recording string callback hands out a pointer to a std::string that
// lives until the next registerAll(); a null text becomes a null pointer.
std::optional<std::string> managedString(void* handle);

// The interop library's export of that name, or null.
void* findExport(const char* name);

template <class Signature>
Signature* exported(const char* name) {
  void* symbol = findExport(name);
  if (symbol == nullptr) {
    throw std::runtime_error(std::string("not exported: ") + name);
  }
  return reinterpret_cast<Signature*>(symbol);
}

// Calls an export by name: harness::call<float(void*, void*)>("...", a, b).
template <class Signature, class... A>
auto call(const char* name, A... arguments) {
  return exported<Signature>(name)(arguments...);
}

}  // namespace harness

#include <gtest/gtest.h>

namespace harness {

// Base fixture: fresh recording callbacks for every test, and nothing left
// pending at its end unless the test took it.
class ExportTest : public ::testing::Test {
 protected:
  void SetUp() override { registerAll(); }
  void TearDown() override { EXPECT_TRUE(nothingPending()) << "a pending exception was not expected"; }
};

// Expects exactly one ArgumentNullException with `message`.
inline void expectNull(const char* message) {
  PendingArgument pending = takePending();
  EXPECT_EQ(pending.code, 1);
  EXPECT_EQ(pending.message, message);
  EXPECT_FALSE(pending.paramName.has_value());
}

// Calls an export that must refuse a null operand: it returns nothing (null or
// zero) and raises exactly one ArgumentNullException with `message`.
template <class Signature, class... A>
void expectRefused(const char* message, const char* name, A... arguments) {
  SCOPED_TRACE(name);
  using R = std::invoke_result_t<Signature*, A...>;
  if constexpr (std::is_void_v<R>) {
    call<Signature>(name, arguments...);
  } else {
    EXPECT_EQ(call<Signature>(name, arguments...), R{});
  }
  expectNull(message);
}

}  // namespace harness
