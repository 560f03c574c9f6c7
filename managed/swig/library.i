// The library handle: device enumeration, priority settings, the logging
// interface, and the gatherers that return managed-friendly lists.
//
// StringList and DeviceInfoList (lists.i) are declared before this file, so
// the gatherers below return them rather than opaque pointers.

// Generated members are internal here; see common.i.
VELARION_INTERNAL_MEMBERS
namespace Velarion {

class LoggingExternalInterface;

// A moved-from library stays with its managed owner, which still disposes it.
// Its installed log callbacks move with the native registrations: the new
// proxy takes them over as it is constructed, on the same thread.
%typemap(csin) VelarionLibrary&& "$csclassname.getCPtr($csclassname.MovingFrom($csinput))"
%typemap(csconstruct, excode=SWIGEXCODE) VelarionLibrary %{: this($imcall, true) {
    AdoptMovedLoggingCallbacks();
    global::Velarion.Interop.ScriptReload.Track(swigHandle, global::Velarion.Interop.ScriptReload.Kind.Library);$excode
  }
%}

// The _internal members are wrapped by friendlier C# in managed/VelarionSharp.
%rename(getDeviceInfoByIdentifier_internal) VelarionLibrary::getDeviceInfoByIdentifier;
%rename(getLoggingInterface_internal) VelarionLibrary::getLoggingInterface;
%typemap(csclassmodifiers) VelarionLibrary "public partial class"
%csmethodmodifiers VelarionLibrary::VelarionLibrary "public";
%csattributes VelarionLibrary::VelarionLibrary
    "/// <summary>Opens the device library, or takes over other with its installed log callbacks (other keeps only an empty library to dispose).</summary>";

// The caller's byte buffer is filled in place; (null, 0) asks for the size.
// The device library trusts `size`, so it may not exceed the buffer.
%apply unsigned char OUTPUT[] { char* buffer }
%typemap(csin, pre="    if (size > ($csinput?.Length ?? 0)) throw new global::System.ArgumentOutOfRangeException(\"size\", \"size exceeds the buffer's length\");")
    char* buffer "$csinput"

%typemap(cscode) VelarionLibrary %{
  internal DeviceInfo getDeviceInfoByIdentifier(string identifier) {
    return getDeviceInfoByIdentifier_internal(identifier);
  }

  // Borrowed from this library object: disposed with it.
  internal LoggingExternalInterface getLoggingInterface() {
    return getLoggingInterface_internal();
  }

  // The installed log callbacks are kept by this object's handle, per level;
  // a move hands them to the new object with the native registrations.
  [global::System.ThreadStatic]
  private static global::Velarion.Interop.NativeHandle movingFrom;

  private static VelarionLibrary MovingFrom(VelarionLibrary other) {
    movingFrom = other?.SwigHandle;
    return other;
  }

  private void AdoptMovedLoggingCallbacks() {
    movingFrom?.MoveKeptTo(swigHandle);
    movingFrom = null;
  }
%}

class VelarionLibrary {
 public:
  VelarionLibrary();
  VelarionLibrary(VelarionLibrary&& other);
  ~VelarionLibrary();
  unsigned int getDeviceCount() const;
  unsigned int getDeviceIdentifier(unsigned int index, char* buffer, unsigned int size) const;
  DeviceInfo getDeviceInfoByIndex(unsigned int index) const;
  DeviceInfo getDeviceInfoByIdentifier(const char* identifier) const;
  bool isDeviceConnected(const char* identifier) const;
  bool isDeviceClaimed(const char* identifier) const;
  bool isProcessPriorityManagementAllowed() const;
  void setProcessPriorityManagementAllowed(bool allowed);
  bool isThreadPriorityManagementAllowed() const;
  void setThreadPriorityManagementAllowed(bool allowed);
  bool reloadHardwareConfigurations();
  bool reloadHardwareConfigurations(const char* path);
  LoggingExternalInterface& getLoggingInterface() const;
  %extend {
    std::vector<std::string> getManagedDeviceIdentifiers() const;
    std::vector<Velarion::DeviceInfo> getManagedDeviceInfos() const;
  }
};

%clear char* buffer;

}  // namespace Velarion

VELARION_PUBLIC_MEMBERS
