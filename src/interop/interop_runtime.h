// Per-module callback storage of the managed binding and the two ways back to
// managed code: a pending argument exception, and a managed string.
#pragma once

#include <cstdint>

#if defined(_WIN32)
#define VL_CSHARP_EXPORT extern "C" __declspec(dllexport)
#define VL_CSHARP_CALL __stdcall
#else
#define VL_CSHARP_EXPORT extern "C" __attribute__((visibility("default")))
#define VL_CSHARP_CALL
#endif

namespace vlcs {

// The three interop modules. Each has its own tables; an export raises only
// through the tables of the module it belongs to.
enum class Module { velarion, amplitudemodulation, timepointstreaming };

using ExceptionCallback = void(VL_CSHARP_CALL*)(const char* message);
using ArgumentExceptionCallback = void(VL_CSHARP_CALL*)(const char* message, const char* paramName);
using StringCallback = void*(VL_CSHARP_CALL*)(const char* text);

// Codes of the argument-exception table, in table order.
enum class ArgumentCode : int { argument = 0, argumentNull = 1, argumentOutOfRange = 2 };

constexpr int kExceptionCount = 11;
constexpr int kArgumentExceptionCount = 3;

struct ExceptionEntry {
  int code;
  ExceptionCallback callback;
};

struct ArgumentExceptionEntry {
  int code;
  ArgumentExceptionCallback callback;
};

// Plain static storage, empty at load, written by registration and read
// without locking afterwards.
struct ModuleTables {
  ExceptionEntry exceptions[kExceptionCount];
  ArgumentExceptionEntry argumentExceptions[kArgumentExceptionCount];
  StringCallback makeString;
};

template <Module M>
ModuleTables& tables() {
  static ModuleTables storage = {
      {{0, nullptr}, {1, nullptr}, {2, nullptr}, {3, nullptr}, {4, nullptr}, {5, nullptr},
       {6, nullptr}, {7, nullptr}, {8, nullptr}, {9, nullptr}, {10, nullptr}},
      {{0, nullptr}, {1, nullptr}, {2, nullptr}},
      nullptr};
  return storage;
}

// Calls the module's argument-exception callback for `code`; codes of 3 or
// more fall back to entry 0. Registration is a precondition, not checked.
template <Module M>
void setPendingArgumentException(int code, const char* message, const char* paramName) {
  const ArgumentExceptionEntry* table = tables<M>().argumentExceptions;
  ArgumentExceptionCallback callback = table[0].callback;
  if (static_cast<unsigned>(code) < static_cast<unsigned>(kArgumentExceptionCount)) {
    callback = table[code].callback;
  }
  callback(message, paramName);
}

template <Module M>
void setPendingArgumentException(ArgumentCode code, const char* message, const char* paramName) {
  setPendingArgumentException<M>(static_cast<int>(code), message, paramName);
}

// Hands `text` (null included) to the module's string callback.
template <Module M>
void* makeManagedString(const char* text) {
  return tables<M>().makeString(text);
}

}  // namespace vlcs
