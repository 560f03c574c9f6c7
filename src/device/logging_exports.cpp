// LoggingExternalInterface and LoggingCallbackWrapper: log level, redirection
// and per-level delivery of the device library's log to managed code.
#include "Velarion/LoggingExternalInterface.h"
#include "device/logging_bridge.h"
#include "interop/casting.h"

using Velarion::LoggingExternalInterface;
using namespace vlcs;
using E = Exports<Module::velarion>;

void SwigDirector_LoggingCallbackWrapper::callback(const char* message, unsigned int first_number,
                                                   unsigned int second_number, const char* second_text) {
  dispatch(
      callback_,
      [&](CallbackOverride managed) {
        void* managedMessage = makeManagedString<Module::velarion>(message);
        void* managedSecondText = makeManagedString<Module::velarion>(second_text);
        managed(managedMessage, first_number, second_number, managedSecondText);
      },
      [] { pureVirtual("LoggingCallbackWrapper::callback"); });
}

void vlcs::loggingBridge(const char* message, unsigned int first_number, unsigned int second_number,
                         const char* second_text, void* user_data) {
  if (user_data == nullptr) {
    return;
  }
  static_cast<LoggingCallbackWrapper*>(user_data)->callback(message, first_number, second_number, second_text);
}

VL_CSHARP_EXPORT int VL_CSHARP_CALL CSharp_Velarion_LoggingExternalInterface_getLogLevel(void* self) {
  return E::call([](const LoggingExternalInterface& log) { return log.getLogLevel(); },
                 Self<LoggingExternalInterface>{self});
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_LoggingExternalInterface_setLogLevel(void* self,
                                                                                              int level) {
  return E::call([](LoggingExternalInterface& log, int l) { return log.setLogLevel(l); },
                 Self<LoggingExternalInterface>{self}, level);
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL
CSharp_Velarion_LoggingExternalInterface_redirectLoggingToFile(void* self, const char* path) {
  return E::call([](LoggingExternalInterface& log, const char* p) { return log.redirectLoggingToFile(p); },
                 Self<LoggingExternalInterface>{self}, path);
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL CSharp_Velarion_LoggingExternalInterface_redirectLoggingToNull(void* self) {
  return E::call([](LoggingExternalInterface& log) { return log.redirectLoggingToNull(); },
                 Self<LoggingExternalInterface>{self});
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL
CSharp_Velarion_LoggingExternalInterface_redirectLoggingToStdOut(void* self) {
  return E::call([](LoggingExternalInterface& log) { return log.redirectLoggingToStdOut(); },
                 Self<LoggingExternalInterface>{self});
}

VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL
CSharp_Velarion_LoggingExternalInterface_redirectLoggingToStdErr(void* self) {
  return E::call([](LoggingExternalInterface& log) { return log.redirectLoggingToStdErr(); },
                 Self<LoggingExternalInterface>{self});
}

// The device library keeps the raw wrapper pointer as the callback's user data.
VL_CSHARP_EXPORT unsigned int VL_CSHARP_CALL
CSharp_Velarion_LoggingExternalInterface_setManagedLoggingCallback(void* self, unsigned int level, void* wrapper) {
  return E::call(
      [](LoggingExternalInterface& log, unsigned int l, void* w) {
        return log.setCallbackForLogLevel(l, &loggingBridge, w);
      },
      Self<LoggingExternalInterface>{self}, level, wrapper);
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_delete_LoggingExternalInterface(void* self) {
  destroy<LoggingExternalInterface>(self);
}

VL_CSHARP_EXPORT void* VL_CSHARP_CALL CSharp_Velarion_new_LoggingCallbackWrapper() {
  return static_cast<LoggingCallbackWrapper*>(new SwigDirector_LoggingCallbackWrapper());
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_LoggingCallbackWrapper_director_connect(
    void* self, SwigDirector_LoggingCallbackWrapper::CallbackOverride callback) {
  connectDirector<SwigDirector_LoggingCallbackWrapper, LoggingCallbackWrapper>(self, callback);
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_LoggingCallbackWrapper_callback(void* self, const char* message,
                                                                                   unsigned int first_number,
                                                                                   unsigned int second_number,
                                                                                   const char* second_text) {
  E::call([](LoggingCallbackWrapper& wrapper, const char* m, unsigned int first, unsigned int second,
             const char* text) { wrapper.callback(m, first, second, text); },
          Self<LoggingCallbackWrapper>{self}, message, first_number, second_number, second_text);
}

VL_CSHARP_EXPORT void VL_CSHARP_CALL CSharp_Velarion_delete_LoggingCallbackWrapper(void* self) {
  destroy<LoggingCallbackWrapper>(self);
}
