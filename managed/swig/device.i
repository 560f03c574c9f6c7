// The device library: library handle, device descriptions, transducer
// layouts, alignment, version information and the interface constants.
%include <arrays_csharp.i>

// --- interface version constants: read from the native library, so that the
// managed side reports what the native side was built against.
%csconst(0) VL_SDK_VERSION;
%csconst(0) VL_SDK_VERSION_LONG;
%csconst(0) VL_SDK_BUILD_DATE;
%csconst(0) VL_SDK_PLATFORM_NAME;
%csconst(0) VL_SDK_VARIANT;
// The text constants come back through the string callback like any string.
%csconstvalue("global::Velarion.Interop.NativeStrings.Take(velarionPINVOKE.VL_SDK_VERSION_get())") VL_SDK_VERSION;
%csconstvalue("global::Velarion.Interop.NativeStrings.Take(velarionPINVOKE.VL_SDK_VERSION_LONG_get())") VL_SDK_VERSION_LONG;
%csconstvalue("global::Velarion.Interop.NativeStrings.Take(velarionPINVOKE.VL_SDK_BUILD_DATE_get())") VL_SDK_BUILD_DATE;
%csconstvalue("global::Velarion.Interop.NativeStrings.Take(velarionPINVOKE.VL_SDK_PLATFORM_NAME_get())") VL_SDK_PLATFORM_NAME;
%csconstvalue("global::Velarion.Interop.NativeStrings.Take(velarionPINVOKE.VL_SDK_VARIANT_get())") VL_SDK_VARIANT;
%csconst(0) VL_SDK_VERSION_MAJOR;
%csconst(0) VL_SDK_VERSION_MINOR;
%csconst(0) VL_SDK_VERSION_PATCH;
%csconst(0) VL_SDK_VERSION_INT;
#define VL_SDK_VERSION "2.6.4-ST"
#define VL_SDK_VERSION_LONG "2.6.4-ST-Windows-Win64"
#define VL_SDK_BUILD_DATE "2019-01-16"
#define VL_SDK_PLATFORM_NAME "Windows-Win64"
#define VL_SDK_VARIANT "Public"
#define VL_SDK_VERSION_MAJOR 2
#define VL_SDK_VERSION_MINOR 6
#define VL_SDK_VERSION_PATCH 4
#define VL_SDK_VERSION_INT 132612

// The generated members of the description classes are internal; their public
// surface is in managed/VelarionSharp/Devices.
%include "docs.i"

%define VELARION_ENUM_DOC(value, text)
%csattributes value "/// <summary>" text "</summary>";
%enddef

namespace Velarion {

%typemap(csclassmodifiers) DeviceFeatures
    "/// <summary>Optional capabilities of a device, combined as bits.</summary>\n[global::System.Flags]\ninternal enum"
VELARION_ENUM_DOC(DeviceFeatures::None, "No optional capability.")
VELARION_ENUM_DOC(DeviceFeatures::AmplitudeModulation, "Amplitude-modulated control points (the amplitude modulation emitter).")
VELARION_ENUM_DOC(DeviceFeatures::TimePointStreaming, "Time-point streaming (the time-point streaming emitter).")
VELARION_ENUM_DOC(DeviceFeatures::MultiDeviceSynchronization, "Several devices of this model driven by one emitter in lockstep.")
enum class DeviceFeatures {
  None = 0,
  AmplitudeModulation = 1,
  TimePointStreaming = 2,
  MultiDeviceSynchronization = 4
};

%typemap(csclassmodifiers) DeviceSelectionMode
    "/// <summary>How an emitter picks the devices it drives.</summary>\ninternal enum"
VELARION_ENUM_DOC(DeviceSelectionMode::SingleDevice, "One device: the one named at construction, or the first free one.")
VELARION_ENUM_DOC(DeviceSelectionMode::MultipleDevices, "Every device added to the emitter, each placed by its own transform.")
enum class DeviceSelectionMode {
  SingleDevice = 0,
  MultipleDevices = 1
};

%typemap(csclassmodifiers) Transducer, TransducerContainer, Alignment, DeviceInfo, VersionInfo "internal partial class"

}  // namespace Velarion

// Outside the namespace: a global feature inside it would only match names
// prefixed with it.
VELARION_INTERNAL_BEGIN

namespace Velarion {

%csmethodmodifiers ~Transducer "protected virtual";
%csmethodmodifiers ~TransducerContainer "protected virtual";
%csmethodmodifiers ~Alignment "protected virtual";
%csmethodmodifiers ~DeviceInfo "protected virtual";
%csmethodmodifiers ~VersionInfo "protected virtual";

VELARION_DOC(Transducer::Transducer(), "An element at the origin, facing nowhere, disabled (every field 0).")
VELARION_DOC(Transducer::Transducer(float, float, float, float, float, float, float), "An element at (<paramref name=\"x_position\"/>, <paramref name=\"y_position\"/>, <paramref name=\"z_position\"/>) metres in the device frame, facing (<paramref name=\"x_upvector\"/>, <paramref name=\"y_upvector\"/>, <paramref name=\"z_upvector\"/>), with this output multiplier (0 disables it).")
VELARION_DOC(TransducerContainer::TransducerContainer(), "An empty layout.")
VELARION_DOC(TransducerContainer::TransducerContainer(const TransducerContainer&), "A layout of copies of the elements of <paramref name=\"other\"/>.")
VELARION_DOC(Alignment::Alignment(), "The identity: device and tracking frames coincide.")
VELARION_DOC(Alignment::Alignment(float, float, float, float, float, float, float, float, float, float, float, float), "Device to tracking: p_tracking = R · p_device + t, with R given row by row (<paramref name=\"r00\"/> to <paramref name=\"r22\"/>) and t in metres (<paramref name=\"tx\"/>, <paramref name=\"ty\"/>, <paramref name=\"tz\"/>).")
VELARION_DOC(Alignment::Alignment(const char*), "The alignment read from the file at <paramref name=\"path\"/>; what a missing or malformed file gives is the device library's (the emulator: the identity).")
VELARION_DOC(Alignment::Alignment(const Alignment&), "A copy of <paramref name=\"other\"/>.")
VELARION_DOC(DeviceInfo::DeviceInfo(const DeviceInfo&), "A copy of the description <paramref name=\"other\"/>, owned by the caller.")
VELARION_DOC(VersionInfo::VersionInfo(), "The version of the device library loaded in this process.")
VELARION_DOC(VersionInfo::VersionString, "The loaded device library's short version, for instance \"2.6.4-ST\".")
VELARION_DOC(VersionInfo::LongVersionString, "The loaded device library's long version (short version, hyphen, platform).")
VELARION_DOC(VersionInfo::BuildDate, "The loaded device library's build date.")
VELARION_DOC(VersionInfo::PlatformName, "The platform the loaded device library was built for.")
VELARION_DOC(VersionInfo::VariantName, "The loaded device library's variant.")
VELARION_DOC(VersionInfo::MajorVersion, "The loaded device library's major version.")
VELARION_DOC(VersionInfo::MinorVersion, "The loaded device library's minor version.")
VELARION_DOC(VersionInfo::PatchVersion, "The loaded device library's patch version.")

// An element lent out by a container is disposed with the container and by
// any change that may move its storage (the proxy would reach freed memory).
%typemap(cscode) Transducer %{
  // The raw forms take one element: a count beyond what was given would be
  // read past it.
  internal static Transducer Provided(Transducer array, uint count) {
    if (count > (array == null ? 0u : 1u))
      throw new global::System.ArgumentOutOfRangeException("count", count,
          "more elements than were given; pass an array of Transducer to copy several");
    return array;
  }
%}

struct Transducer {
  float x_position;
  float y_position;
  float z_position;
  float x_upvector;
  float y_upvector;
  float z_upvector;
  float multiplier;
  Transducer();
  Transducer(float x_position, float y_position, float z_position, float x_upvector, float y_upvector,
             float z_upvector, float multiplier);
  bool isEnabled() const;
};

// at() of the device library throws past the end, which no managed caller
// could catch: the proxy checks the index first. Elements are lent out.
%typemap(csin, pre="    if ($csinput >= size()) throw new global::System.ArgumentOutOfRangeException(\"$csinput\");")
    unsigned int TRANSDUCER_INDEX "$csinput"
%apply unsigned int TRANSDUCER_INDEX { unsigned int index }
%typemap(csout, excode=SWIGEXCODE) const Transducer& at {
    global::System.IntPtr cPtr = $imcall;$excode
    return new Transducer(global::Velarion.Interop.NativeHandle.Borrow(cPtr, swigCPtr));
  }
%typemap(csout, excode=SWIGEXCODE) const Transducer* data {
    global::System.IntPtr cPtr = $imcall;$excode
    return cPtr == global::System.IntPtr.Zero ? null : new Transducer(global::Velarion.Interop.NativeHandle.Borrow(cPtr, swigCPtr));
  }

// The raw (count, element) forms read `count` elements from where the one
// proxy points: they are refused beyond what was given, and insert copies
// first, since the element may be the container's own. Arrays go through the
// overloads below, copied into one native block.
%csattributes TransducerContainer::TransducerContainer(unsigned int, const Transducer*)
    "[global::System.ComponentModel.EditorBrowsable(global::System.ComponentModel.EditorBrowsableState.Never)]";
%csattributes TransducerContainer::insert
    "[global::System.ComponentModel.EditorBrowsable(global::System.ComponentModel.EditorBrowsableState.Never)]";
%typemap(csin) const Transducer* array "Transducer.getCPtr(Transducer.Provided($csinput, count))"
%typemap(csout, excode=SWIGEXCODE) bool insert {
    Transducer element = Transducer.Provided(array, count);
    return insert(position, count == 0 ? global::System.Array.Empty<Transducer>() : new[] { element });
  }
%typemap(csout, excode=SWIGEXCODE) bool erase {
    bool ret = $imcall;$excode
    if (ret) swigHandle.CloseBorrowers();
    return ret;
  }

%typemap(cscode) TransducerContainer %{
  // Inserts copies of the elements before the position (size() appends).
  // False, and nothing changes, when the position lies past the end.
  internal unsafe bool insert(uint position, Transducer[] elements) {
    Element[] copies = Copy(elements);
    bool inserted;
    fixed (Element* first = copies) {
      inserted = velarionPINVOKE.TransducerContainer_insert(swigCPtr, position, (uint)copies.Length,
          global::Velarion.Interop.NativeHandle.Unowned((global::System.IntPtr)first));
    }
    if (inserted) swigHandle.CloseBorrowers();
    return inserted;
  }

  // The native element: seven packed floats.
  [global::System.Runtime.InteropServices.StructLayout(global::System.Runtime.InteropServices.LayoutKind.Sequential, Size = 28)]
  private struct Element {
    public float xPosition, yPosition, zPosition, xUp, yUp, zUp, multiplier;
  }

  private static unsafe global::System.IntPtr Create(Element[] copies) {
    fixed (Element* first = copies) {
      return velarionPINVOKE.new_TransducerContainer__SWIG_1((uint)copies.Length,
          global::Velarion.Interop.NativeHandle.Unowned((global::System.IntPtr)first));
    }
  }

  private static unsafe Element[] Copy(Transducer[] elements) {
    if (elements == null) throw new global::System.ArgumentNullException(nameof(elements));
    var copies = new Element[elements.Length];
    for (int i = 0; i < elements.Length; ++i) {
      Transducer element = elements[i];
      if (element == null) throw new global::System.ArgumentException($"element {i} is null", nameof(elements));
      global::System.IntPtr native = Transducer.getCPtr(element).Handle;
      if (native == global::System.IntPtr.Zero) throw new global::System.ObjectDisposedException(nameof(Transducer));
      copies[i] = *(Element*)native;
      global::System.GC.KeepAlive(element);
    }
    return copies;
  }
%}

// Counts and indices cross as 32-bit values; size() as 64-bit.
class TransducerContainer {
 public:
  TransducerContainer();
  TransducerContainer(unsigned int count, const Transducer* array);
  TransducerContainer(const TransducerContainer& other);
  ~TransducerContainer();
  unsigned long long size() const;
  const Transducer& at(unsigned int index) const;
  const Transducer* data() const;
  bool insert(unsigned int position, unsigned int count, const Transducer* array);
  bool erase(unsigned int first, unsigned int count);
};

%clear unsigned int index;
%clear const Transducer* array;
%clear bool insert;
%clear bool erase;

// The 4 x 4 exports fill a caller-provided array of sixteen values. The
// native side writes all sixteen unchecked, so a short array is refused here
// rather than overrun.
%apply float OUTPUT[] { float* matrix }
%apply double OUTPUT[] { double* matrix }
%typemap(csin, pre="    if ($csinput == null) throw new global::System.ArgumentNullException(\"$csinput\");\n"
                   "    if ($csinput.Length < 16) throw new global::System.ArgumentException(\"the array must hold sixteen elements\", \"$csinput\");")
    float* matrix, double* matrix "$csinput"

class Alignment {
 public:
  Alignment();
  Alignment(float r00, float r01, float r02, float r10, float r11, float r12, float r20, float r21, float r22,
            float tx, float ty, float tz);
  Alignment(const char* path);
  Alignment(const Alignment& other);
  ~Alignment();
  Vector3 fromDevicePositionToTrackingPosition(const Vector3& position) const;
  Vector3 fromDeviceDirectionToTrackingDirection(const Vector3& direction) const;
  Vector3 fromTrackingPositionToDevicePosition(const Vector3& position) const;
  Vector3 fromTrackingDirectionToDeviceDirection(const Vector3& direction) const;
  void fromDeviceToTrackingTransformToArray4x4(float* matrix) const;
  void fromDeviceToTrackingTransformToArray4x4(double* matrix) const;
  void fromTrackingToDeviceTransformToArray4x4(float* matrix) const;
  void fromTrackingToDeviceTransformToArray4x4(double* matrix) const;
  bool loadAlignment(const char* path);
  bool saveAlignment(const char* path) const;
};

%clear float* matrix;
%clear double* matrix;

// Descriptions only ever come from the device library, then get copied.
%nodefaultctor DeviceInfo;

class DeviceInfo {
 public:
  DeviceInfo(const DeviceInfo& other);
  ~DeviceInfo();
  float arrayWidth() const;
  float arrayDepth() const;
  const char* getDeviceIdentifier() const;
  const char* getFirmwareBuildDate() const;
  const char* getFirmwareVersion() const;
  const char* getModelDescription() const;
  const char* getModelIdentifier() const;
  const char* getSerialNumber() const;
  const char* getTransducerLayoutName() const;
  DeviceFeatures getSupportedFeatures() const;
  bool hasSupportFor(DeviceFeatures feature) const;
  Alignment getDefaultAlignment() const;
  TransducerContainer getTransducerConfiguration() const;
};

// Read-only to the managed side.
%immutable VersionInfo::VersionString;
%immutable VersionInfo::LongVersionString;
%immutable VersionInfo::BuildDate;
%immutable VersionInfo::PlatformName;
%immutable VersionInfo::VariantName;
%immutable VersionInfo::MajorVersion;
%immutable VersionInfo::MinorVersion;
%immutable VersionInfo::PatchVersion;

class VersionInfo {
 public:
  VersionInfo();
  const char* VersionString;
  const char* LongVersionString;
  const char* BuildDate;
  const char* PlatformName;
  const char* VariantName;
  unsigned int MajorVersion;
  unsigned int MinorVersion;
  unsigned int PatchVersion;
  static void checkVersion();
  static void checkVersion(unsigned int major, unsigned int minor, unsigned int patch);
};

}  // namespace Velarion

VELARION_INTERNAL_END
