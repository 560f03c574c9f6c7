// Time-point streaming: the emission callback wrapper that managed code
// subclasses, and the emitter's connection to it.
//
// The arrays handed to `callback` cross as raw addresses: the hand-written
// EmissionCallback (managed/VelarionSharp) turns them into spans of blittable
// structs, so no proxy object is made per time point or record.

// Generated members are internal here; see common.i.
VELARION_INTERNAL_MEMBERS
%feature("director") EmissionCallbackWrapper;

%apply void *VOID_INT_PTR {
  const Velarion::HostTimePoint* callbackTime,
  Velarion::HostTimePoint* timepoints,
  EmissionControlPointRecord* controlpoints
};

// Abstract in C# as natively: an interval reaching a wrapper without a
// `callback` override would throw a native exception on the emission thread
// and end the process. Only EmissionCallback derives from it, which keeps
// exceptions of the application's overrides out of that thread as well.
// The generated members look for overrides by reflection on GetType(): the
// annotation keeps what they look for when trimmed (NativeAOT).
%typemap(csclassmodifiers) EmissionCallbackWrapper
    "/// <summary>The native side of an emission callback; derive from <see cref=\"EmissionCallback\"/>.</summary>\n"
    "#if NET5_0_OR_GREATER\n"
    "[global::System.Diagnostics.CodeAnalysis.DynamicallyAccessedMembers("
    "global::System.Diagnostics.CodeAnalysis.DynamicallyAccessedMemberTypes.PublicMethods | "
    "global::System.Diagnostics.CodeAnalysis.DynamicallyAccessedMemberTypes.NonPublicMethods)]\n"
    "#endif\n"
    "public abstract class"
%feature("csdirectordelegatemodifiers") EmissionCallbackWrapper::setSuspended "internal";
%feature("csdirectordelegatemodifiers") EmissionCallbackWrapper::isSuspended "internal";
%feature("csdirectordelegatemodifiers") EmissionCallbackWrapper::callback "internal";
%csmethodmodifiers EmissionCallbackWrapper::EmissionCallbackWrapper "internal";
%csmethodmodifiers EmissionCallbackWrapper::callback "internal abstract";
%csmethodmodifiers EmissionCallbackWrapper::setSuspended "internal virtual";
%csmethodmodifiers EmissionCallbackWrapper::isSuspended "internal virtual";
%csmethodmodifiers EmissionCallbackWrapper::emitter "internal";
%typemap(csout) void callback ";"
// SWIG's own connection hands native code instance delegates; the subclass
// connects static entries instead (Interop/DirectorEntries.cs).
%typemap(csconstruct, excode=SWIGEXCODE, directorconnect="") EmissionCallbackWrapper %{: this($imcall, true) {$excode
  }
%}

class EmissionCallbackWrapper {
 public:
  // `emitter` is the emitter the wrapper serves; kept, never used by the bridge.
  EmissionCallbackWrapper(void* emitter);
  virtual ~EmissionCallbackWrapper();
  virtual void setSuspended(bool suspended);
  virtual bool isSuspended();
  virtual void callback(unsigned int timepointCount, unsigned int controlpointCount, unsigned int controlpointStride,
                        const Velarion::HostTimePoint* callbackTime, Velarion::HostTimePoint* timepoints,
                        EmissionControlPointRecord* controlpoints) = 0;
  void* emitter;
};

%clear void callback;

// --- The emitter ------------------------------------------------------------
// Opened on a device by identifier and transform; calls the installed
// EmissionCallbackWrapper from the device library's emission thread once
// started. The emitter and its callback may be disposed in any order, also
// from inside the callback (the emitter is then freed from another thread,
// its callback uninstalled at once).
%include <arrays_csharp.i>

namespace Velarion {
namespace TimePointStreaming {

%rename(TimePointStreamingEmitter) Emitter;
%typemap(csclassmodifiers) Emitter "public partial class"
%csmethodmodifiers Emitter::Emitter "public";
%csattributes Emitter::Emitter
    "/// <summary>An emitter without a device, on the device identifier (placed by transform, device to emitter space), or taking over other with its installed callback (other keeps only an empty emitter to dispose).</summary>";
%pragma(csharp) moduleclassmodifiers="internal class"

// A moved-from emitter stays with its managed owner, which still disposes it.
// Its installed emission callback moves with the native registration: the new
// proxy takes it over as it is constructed, on the same thread.
%typemap(csin) Emitter&& "$csclassname.getCPtr($csclassname.MovingFrom($csinput))"
%typemap(csconstruct, excode=SWIGEXCODE) Emitter %{: this($imcall, true) {
    AdoptMovedEmissionCallback();
    global::Velarion.Interop.DirectorEntries.FreeOffDirectorThreads(swigHandle,
        global::Velarion.Interop.DirectorEntries.UninstallEmissionCallback);
    global::Velarion.Interop.ScriptReload.Track(swigHandle, global::Velarion.Interop.ScriptReload.Kind.Emitter);$excode
  }
%}

%rename(getExtendedOption_internal) Emitter::getExtendedOption;

// The caller's byte buffer is filled in place; null asks for the size.
// The device library trusts `size`, so it may not exceed the buffer.
%apply unsigned char OUTPUT[] { char* buffer }
%typemap(csin, pre="    if (size > ($csinput?.Length ?? 0)) throw new global::System.ArgumentOutOfRangeException(\"size\", \"size exceeds the buffer's length\");")
    char* buffer "$csinput"

// The device library keeps only the native pointer of the installed wrapper:
// the emitter's handle holds the wrapper (native object and managed proxy)
// from the moment it is installed until another one is, or until the native
// emitter is gone. Disposing an installed callback only stops it being called.
%typemap(csout, excode=SWIGEXCODE) bool setManagedEmissionCallback {
    var held = wrapper == null ? null : EmissionCallbackWrapper.getCPtr(wrapper);
    global::Velarion.Interop.NativeHandle.Hold(held);
    bool ret = false;
    try {
      ret = $imcall;$excode
    } finally {
      if (ret) swigHandle.KeepHeld(InstalledCallbackKey, held, wrapper);
      else global::Velarion.Interop.NativeHandle.Unhold(held);
    }
    return ret;
  }

%typemap(cscode) Emitter %{
  private static readonly object InstalledCallbackKey = new object();

  [global::System.ThreadStatic]
  private static global::Velarion.Interop.NativeHandle movingFrom;

  private static TimePointStreamingEmitter MovingFrom(TimePointStreamingEmitter other) {
    movingFrom = other?.SwigHandle;
    return other;
  }

  private void AdoptMovedEmissionCallback() {
    movingFrom?.MoveKeptTo(swigHandle);
    movingFrom = null;
  }

  internal string getExtendedOption(string name) {
    return getManagedExtendedOption(name);
  }
%}

class Emitter {
 public:
  Emitter();
  Emitter(const char* identifier);
  Emitter(const char* identifier, Transform transform);
  Emitter(Emitter&& other);
  virtual ~Emitter();
  virtual void initialize();

  bool addDevice(const char* identifier, Transform transform = Transform());
  bool removeDevice(const char* identifier);
  bool setDeviceTransform(const char* identifier, Transform transform);
  Transform getDeviceTransform(const char* identifier) const;
  bool setDeviceSelectionMode(DeviceSelectionMode mode);
  DeviceSelectionMode getDeviceSelectionMode() const;
  %extend {
    // Null uninstalls: the device library then leaves every interval as it is.
    bool setManagedEmissionCallback(EmissionCallbackWrapper* wrapper);
  }
  bool start();
  bool stop();
  bool reset();
  bool isConnected();
  unsigned int setMaximumControlPointCount(unsigned int count);
  unsigned int getMaximumControlPointCount() const;
  unsigned int getMaximumControlPointLimit() const;
  unsigned int setSampleRate(unsigned int rate);
  unsigned int getSampleRate() const;
  unsigned int getSampleRateLimit() const;
  %extend {
    const HostDuration& getManagedSamplingInterval() const;
    const HostTimePoint& getManagedLastSampleTime() const;
  }
  float arrayWidth() const;
  float arrayDepth() const;
  float interactionSpaceWidth() const;
  float interactionSpaceHeight() const;
  float interactionSpaceDepth() const;
  bool setExtendedOption(const char* name, const char* value);
  size_t getExtendedOption(const char* name, char* buffer, size_t size) const;
  %extend {
    std::string getManagedExtendedOption(const char* name) const;
  }
  DeviceInfo getDeviceInfo() const;
  DeviceInfo getDeviceInfo(const std::string& identifier) const;
  void* getStateEmitter();
  void* getStateEmitter(const std::string& identifier);
};

%clear char* buffer;
%clear bool setManagedEmissionCallback;

}  // namespace TimePointStreaming
}  // namespace Velarion

VELARION_PUBLIC_MEMBERS
