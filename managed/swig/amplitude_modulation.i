// Amplitude modulation: control points, the collection handed to the emitter
// in one call, and the emitter.

// Generated members are internal here; see common.i.
VELARION_INTERNAL_MEMBERS
%include <arrays_csharp.i>

// Read through its export rather than compiled into the C#.
%csconst(0) DEFAULT_CONTROL_POINT_FREQUENCY;
#define DEFAULT_CONTROL_POINT_FREQUENCY 125

namespace Velarion {
namespace AmplitudeModulation {

%rename(AmplitudeModulationControlPoint) ControlPoint;
%typemap(csclassmodifiers) ControlPoint, ControlPointCollection, Emitter "public partial class"
%csmethodmodifiers ControlPoint::ControlPoint "public";
%csmethodmodifiers ControlPointCollection::ControlPointCollection "public";
%csmethodmodifiers Emitter::Emitter "public";
// Disposed from a log handler on its own thread, the emitter is freed from another.
%typemap(csconstruct, excode=SWIGEXCODE) Emitter %{: this($imcall, true) {
    global::Velarion.Interop.DirectorEntries.FreeOffDirectorThreads(swigHandle);
    global::Velarion.Interop.ScriptReload.Track(swigHandle, global::Velarion.Interop.ScriptReload.Kind.Emitter);$excode
  }
%}
%csattributes ControlPoint::ControlPoint
    "/// <summary>A point at a position in metres (x, y, z or a vector), with an optional direction, an intensity from 0 to 1, a modulation frequency in hertz (125 Hz unless given) and a phase angle in radians; or a copy of other.</summary>";
%csattributes ControlPointCollection::ControlPointCollection "/// <summary>An empty collection.</summary>";
%csattributes Emitter::Emitter
    "/// <summary>An emitter without a device, on the device identifier (placed by transform, device to emitter space), or taking over other (which keeps only an empty emitter to dispose).</summary>";
%typemap(csclassmodifiers) Emitter::ReEmitPoints
    "/// <summary>What a device move does to the points being emitted.</summary>\npublic enum"
%csattributes Emitter::ReEmitInEmitterSpace "/// <summary>They stay where they are in emitter space.</summary>";
%csattributes Emitter::ReEmitFollowingDevice "/// <summary>They move with the device.</summary>";
%csattributes Emitter::DoNotReEmit "/// <summary>They stop until the next update.</summary>";
%pragma(csharp) moduleclassmodifiers="internal class"

// The shortened forms default the modulation frequency to 125 Hz.
class ControlPoint {
 public:
  ControlPoint(float x, float y, float z, float intensity, float frequency = 125.0f);
  ControlPoint(const Vector3& position, float intensity, float frequency = 125.0f);
  ControlPoint(const Vector3& position, const Vector3& direction, float intensity, float frequency = 125.0f);
  ControlPoint(float x, float y, float z, float intensity, float frequency, float phaseAngle);
  ControlPoint(const Vector3& position, float intensity, float frequency, float phaseAngle);
  ControlPoint(const ControlPoint& other);
  ~ControlPoint();
  Vector3 getPosition() const;
  Vector3 getDirection() const;
  void setPosition(const Vector3& position);
  void setDirection(const Vector3& direction);
  float getIntensity() const;
  void setIntensity(float intensity);
  float getFrequency() const;
  void setFrequency(float frequency);
  float getPhaseAngle() const;
  void setPhaseAngle(float phaseAngle);
  void autoPhaseAngle();
};

// data() lends out the first point, or null when there is none (natively,
// a cleared collection still gives the address of its destroyed points).
// Lent points are disposed by any change that may move or destroy them.
%typemap(csout, excode=SWIGEXCODE) ControlPoint* data {
    global::System.IntPtr cPtr = $imcall;$excode
    if (cPtr == global::System.IntPtr.Zero || length() == 0) return null;
    return new $csclassname(global::Velarion.Interop.NativeHandle.Borrow(cPtr, swigCPtr));
  }
%typemap(csout, excode=SWIGEXCODE) void add, void clear, void remove {
    $imcall;$excode
    swigHandle.CloseBorrowers();
  }

class ControlPointCollection {
 public:
  ControlPointCollection();
  virtual ~ControlPointCollection();
  void add(const ControlPoint& point);
  void clear();
  ControlPoint* data();
  size_t length() const;
  // Any index but 0 is simply ignored.
  void remove(unsigned int index);

  // Natively, get() past the end throws a C++ exception, which cannot cross
  // into managed code, and set() past the end writes outside the points: the
  // proxy checks the index first.
  %typemap(csin, pre="    if ($csinput >= length()) throw new global::System.ArgumentOutOfRangeException(\"$csinput\");") unsigned int index "$csinput"
  ControlPoint get(unsigned int index) const;
  void set(unsigned int index, const ControlPoint& point);
  %clear unsigned int index;
};

%clear ControlPoint* data;
%clear void add, void clear, void remove;

%rename(AmplitudeModulationEmitter) Emitter;

// A moved-from emitter stays with its managed owner, which still disposes it.
%typemap(csin) Emitter&& "$csclassname.getCPtr($csinput)"

// The _internal members are wrapped by friendlier C# below.
%rename(getExtendedOption_internal) Emitter::getExtendedOption;
%rename(update_internal) Emitter::update;

// The caller's byte buffer is filled in place; null asks for the size.
// The device library trusts `size`, so it may not exceed the buffer.
%apply unsigned char OUTPUT[] { char* buffer }
%typemap(csin, pre="    if (size > ($csinput?.Length ?? 0)) throw new global::System.ArgumentOutOfRangeException(\"size\", \"size exceeds the buffer's length\");")
    char* buffer "$csinput"

%typemap(cscode) Emitter %{
  internal bool update(ControlPointCollection points) {
    return update_internal(points);
  }

  internal string getExtendedOption(string name) {
    return getManagedExtendedOption(name);
  }
%}

class Emitter {
 public:
  enum ReEmitPoints {
    ReEmitInEmitterSpace = 0,
    ReEmitFollowingDevice = 1,
    DoNotReEmit = 2
  };

  Emitter();
  Emitter(const char* identifier);
  Emitter(const char* identifier, Transform transform);
  Emitter(Emitter&& other);
  virtual ~Emitter();
  virtual void initialize();

  bool addDevice(const char* identifier, Transform transform = Transform());
  bool removeDevice(const char* identifier);
  bool setDeviceTransform(const char* identifier, Transform transform, ReEmitPoints reEmit = ReEmitInEmitterSpace);
  Transform getDeviceTransform(const char* identifier) const;
  bool setDeviceSelectionMode(DeviceSelectionMode mode);
  DeviceSelectionMode getDeviceSelectionMode() const;
  bool isConnected();
  %extend {
    bool update(const ControlPointCollection& points);
  }
  bool stop();
  bool reset();
  float arrayWidth() const;
  float arrayDepth() const;
  float interactionSpaceWidth() const;
  float interactionSpaceHeight() const;
  float interactionSpaceDepth() const;
  unsigned int getMaximumControlPointLimit() const;
  unsigned int setSampleRate(unsigned int rate);
  unsigned int getSampleRate() const;
  unsigned int getSampleRateLimit() const;
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

}  // namespace AmplitudeModulation
}  // namespace Velarion

VELARION_PUBLIC_MEMBERS
