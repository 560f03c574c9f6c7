// The library handle: device enumeration, priority settings, the logging
// interface, and the gatherers that return managed-friendly lists.
//
// StringList and DeviceInfoList (lists.i) are declared before this file, so
// the gatherers below return them rather than opaque pointers.
namespace Velarion {

class LoggingExternalInterface;

// A moved-from library stays with its managed owner, which still disposes it.
// Its installed log callbacks move with the native registrations: the new
// proxy takes them over as it is constructed, on the same thread.
%typemap(csin) VelarionLibrary&& "$csclassname.getCPtr($csclassname.MovingFrom($csinput))"
%typemap(csconstruct, excode=SWIGEXCODE) VelarionLibrary %{: this($imcall, true) {
    AdoptMovedLoggingCallbacks();$excode
  }
%}

// The _internal members are wrapped by friendlier C# in managed/Velarion.
// The raw logging interface is not handed out: it would not keep the library
// (nor the callbacks installed through it) reachable.
%rename(getDeviceInfoByIdentifier_internal) VelarionLibrary::getDeviceInfoByIdentifier;
%rename(getLoggingInterface_internal) VelarionLibrary::getLoggingInterface;
%csmethodmodifiers VelarionLibrary::getLoggingInterface "internal";

// The caller's byte buffer is filled in place; (null, 0) asks for the size.
// The device library trusts `size`, so it may not exceed the buffer.
%apply unsigned char OUTPUT[] { char* buffer }
%typemap(csin, pre="    if (size > ($csinput?.Length ?? 0)) throw new global::System.ArgumentOutOfRangeException(\"size\", \"size exceeds the buffer's length\");")
    char* buffer "$csinput"

%typemap(cscode) VelarionLibrary %{
  public DeviceInfo getDeviceInfoByIdentifier(string identifier) {
    return getDeviceInfoByIdentifier_internal(identifier);
  }

  // The interface lives inside this library object, so the proxy holds on to
  // the library: the collector cannot free it while the interface is in use.
  public LoggingExternalInterface getLoggingInterface() {
    LoggingExternalInterface logging = getLoggingInterface_internal();
    logging.library = this;
    return logging;
  }

  // The device library keeps only the native pointer of each installed log
  // callback: the managed wrapper is held here, per level, until replaced.
  private global::System.Collections.Generic.Dictionary<uint, LoggingCallbackWrapper> loggingCallbacks =
      new global::System.Collections.Generic.Dictionary<uint, LoggingCallbackWrapper>();

  internal void KeepLoggingCallback(uint level, LoggingCallbackWrapper wrapper) {
    lock (loggingCallbacks) {
      if (wrapper == null) loggingCallbacks.Remove(level);
      else loggingCallbacks[level] = wrapper;
    }
  }

  [global::System.ThreadStatic]
  private static global::System.Collections.Generic.Dictionary<uint, LoggingCallbackWrapper> movingCallbacks;

  private static VelarionLibrary MovingFrom(VelarionLibrary other) {
    if (other != null) {
      lock (other.loggingCallbacks) {
        movingCallbacks = other.loggingCallbacks;
        other.loggingCallbacks = new global::System.Collections.Generic.Dictionary<uint, LoggingCallbackWrapper>();
      }
    }
    return other;
  }

  private void AdoptMovedLoggingCallbacks() {
    if (movingCallbacks != null) {
      loggingCallbacks = movingCallbacks;
      movingCallbacks = null;
    }
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
