// Routes the device library's log into managed code: a wrapper with one
// callback method that a managed subclass overrides through its director.
#pragma once

#include "interop/director.h"
#include "interop/interop_runtime.h"

// Abstract: the managed subclass supplies `callback`.
class LoggingCallbackWrapper {
 public:
  virtual ~LoggingCallbackWrapper() = default;
  virtual void callback(const char* message, unsigned int first_number, unsigned int second_number,
                        const char* second_text) = 0;
};

class SwigDirector_LoggingCallbackWrapper : public LoggingCallbackWrapper, public Swig::Director {
 public:
  // The managed override receives managed strings made by the `velarion`
  // string callback.
  using CallbackOverride = void(VL_CSHARP_CALL*)(void* message, unsigned int first_number,
                                                 unsigned int second_number, void* second_text);

  SwigDirector_LoggingCallbackWrapper() : callback_(nullptr) {}
  void callback(const char* message, unsigned int first_number, unsigned int second_number,
                const char* second_text) override;
  void swig_connect_director(CallbackOverride callback) { callback_ = callback; }

 private:
  CallbackOverride callback_;
};

namespace vlcs {

// The device library's log callback shape; `user_data` is the wrapper.
void loggingBridge(const char* message, unsigned int first_number, unsigned int second_number,
                   const char* second_text, void* user_data);

}  // namespace vlcs
