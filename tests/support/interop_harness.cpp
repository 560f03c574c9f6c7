#include "support/interop_harness.h"

#include <gtest/gtest.h>

#include <deque>

#if defined(_WIN32)
#ifndef NOMINMAX
#define NOMINMAX
#endif
#define WIN32_LEAN_AND_MEAN
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace harness {

void* findExport(const char* name) {
#if defined(_WIN32)
  // Loaded once, beside the test program, and kept for the whole run.
  static const HMODULE library = LoadLibraryA("VelarionCSharp.dll");
  return library == nullptr ? nullptr : reinterpret_cast<void*>(GetProcAddress(library, name));
#else
  return dlsym(RTLD_DEFAULT, name);
#endif
}

namespace {

using ExceptionCallback = void (*)(const char*);
using ArgumentCallback = void (*)(const char*, const char*);
using StringCallback = void* (*)(const char*);

std::vector<PendingArgument> argumentsSeen;
std::vector<PendingException> exceptionsSeen;
std::deque<std::string> strings;

std::optional<std::string> optionalText(const char* text) {
  return text == nullptr ? std::nullopt : std::optional<std::string>(text);
}

template <int Module, int Code>
void onArgument(const char* message, const char* paramName) {
  argumentsSeen.push_back({static_cast<ModuleId>(Module), Code, optionalText(message), optionalText(paramName)});
}

template <int Module, int Code>
void onException(const char* message) {
  exceptionsSeen.push_back({static_cast<ModuleId>(Module), Code, optionalText(message)});
}

void* onString(const char* text) {
  if (text == nullptr) {
    return nullptr;
  }
  strings.emplace_back(text);
  return &strings.back();
}

template <int Module, int... Codes>
void registerExceptions(const char* name, std::integer_sequence<int, Codes...>) {
  call<void(std::conditional_t<true, ExceptionCallback, decltype(Codes)>...)>(name, &onException<Module, Codes>...);
}

template <int Module>
void registerModule(const std::string& suffix) {
  registerExceptions<Module>(("SWIGRegisterExceptionCallbacks_" + suffix).c_str(),
                             std::make_integer_sequence<int, 11>());
  call<void(ArgumentCallback, ArgumentCallback, ArgumentCallback)>(
      ("SWIGRegisterExceptionArgumentCallbacks_" + suffix).c_str(), &onArgument<Module, 0>, &onArgument<Module, 1>,
      &onArgument<Module, 2>);
  call<void(StringCallback)>(("SWIGRegisterStringCallback_" + suffix).c_str(), &onString);
}

}  // namespace

void registerAll() {
  registerModule<velarion>("velarion");
  registerModule<amplitudemodulation>("velarion_amplitudemodulation");
  registerModule<timepointstreaming>("velarion_timepointstreaming");
  argumentsSeen.clear();
  exceptionsSeen.clear();
  strings.clear();
}

std::vector<PendingArgument>& pendingArguments() { return argumentsSeen; }
std::vector<PendingException>& pendingExceptions() { return exceptionsSeen; }

PendingArgument takePending() {
  EXPECT_EQ(argumentsSeen.size(), 1u) << "expected exactly one pending argument exception";
  if (argumentsSeen.empty()) {
    return {velarion, -1, std::nullopt, std::nullopt};
  }
  PendingArgument pending = argumentsSeen.front();
  argumentsSeen.clear();
  return pending;
}

bool nothingPending() { return argumentsSeen.empty() && exceptionsSeen.empty(); }

std::optional<std::string> managedString(void* handle) {
  if (handle == nullptr) {
    return std::nullopt;
  }
  return *static_cast<std::string*>(handle);
}

}  // namespace harness
