// The device library's log: level, redirection, and delivery into a managed
// subclass of LoggingCallbackWrapper.

// Generated members are internal here; see common.i.
VELARION_INTERNAL_MEMBERS
%feature("director") LoggingCallbackWrapper;

// The native director hands each text over as the string callback made it, a
// handle to a managed string that nobody else releases: the entry takes it
// (NativeStrings.Take), so a log line leaks nothing.
%typemap(imtype) const char* LOG_TEXT "global::System.IntPtr"
%typemap(cstype) const char* LOG_TEXT "string"
%typemap(csin) const char* LOG_TEXT "$csinput"
%typemap(csdirectorin) const char* LOG_TEXT "global::Velarion.Interop.NativeStrings.Take($iminput)"
%apply const char* LOG_TEXT { const char* message, const char* second_text }

// Abstract in C# as natively: without an override of `callback` the first log
// line would throw a native exception on the device library's logging thread
// and end the process. Only DelegateLoggingCallback derives from it, which
// keeps a throwing handler from unwinding into that thread as well.
%typemap(csclassmodifiers) LoggingCallbackWrapper
    "/// <summary>The native side of a log callback; use <see cref=\"DelegateLoggingCallback\"/>.</summary>\ninternal abstract class"
%feature("csdirectordelegatemodifiers") LoggingCallbackWrapper::callback "internal";
%csmethodmodifiers LoggingCallbackWrapper::LoggingCallbackWrapper "internal";
%csmethodmodifiers LoggingCallbackWrapper::callback "internal abstract";
%typemap(csout) void callback ";"
// SWIG's own connection hands native code instance delegates; the subclass
// connects static entries instead (Interop/DirectorEntries.cs).
%typemap(csconstruct, excode=SWIGEXCODE, directorconnect="") LoggingCallbackWrapper %{: this($imcall, true) {$excode
  }
%}

class LoggingCallbackWrapper {
 public:
  virtual ~LoggingCallbackWrapper();
  virtual void callback(const char* message, unsigned int first_number, unsigned int second_number,
                        const char* second_text) = 0;
};

%clear const char* message, const char* second_text;
%clear void callback;

namespace Velarion {

// Only ever reached through the library object that owns it.
%nodefaultctor LoggingExternalInterface;
%typemap(csclassmodifiers) LoggingExternalInterface "internal partial class"

// The device library keeps only the wrapper's native pointer: once installed,
// the library object this interface lives in holds the wrapper (native object
// and managed proxy) until another one is installed for the level, or until
// the native library is gone. Disposing an installed callback only stops it
// being called.
%typemap(csout, excode=SWIGEXCODE) bool setManagedLoggingCallback {
    var held = wrapper == null ? null : LoggingCallbackWrapper.getCPtr(wrapper);
    global::Velarion.Interop.NativeHandle.Hold(held);
    bool ret = false;
    try {
      ret = $imcall;$excode
    } finally {
      if (ret) swigHandle.Root.KeepHeld(level, held, wrapper);
      else global::Velarion.Interop.NativeHandle.Unhold(held);
    }
    return ret;
  }

class LoggingExternalInterface {
 public:
  ~LoggingExternalInterface();
  int getLogLevel() const;
  bool setLogLevel(int level);
  bool redirectLoggingToFile(const char* path);
  bool redirectLoggingToNull();
  bool redirectLoggingToStdOut();
  bool redirectLoggingToStdErr();
  %extend {
    bool setManagedLoggingCallback(unsigned int level, LoggingCallbackWrapper* wrapper);
  }
};

}  // namespace Velarion

VELARION_PUBLIC_MEMBERS
