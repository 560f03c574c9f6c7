// Time-point streaming: the emission callback wrapper that managed code
// subclasses, and the emitter's connection to it.
//
// The arrays handed to `callback` cross as raw addresses: the hand-written
// EmissionCallback (managed/Velarion) turns them into spans of blittable
// structs, so no proxy object is made per time point or record.
%feature("director") EmissionCallbackWrapper;

%apply void *VOID_INT_PTR {
  const Velarion::HostTimePoint* callbackTime,
  Velarion::HostTimePoint* timepoints,
  EmissionControlPointRecord* controlpoints
};

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

namespace Velarion {
namespace TimePointStreaming {

%rename(TimePointStreamingEmitter) Emitter;
%nodefaultctor Emitter;
%nodefaultdtor Emitter;
class Emitter {
 public:
  %extend {
    bool setManagedEmissionCallback(EmissionCallbackWrapper* wrapper);
  }
};

}  // namespace TimePointStreaming
}  // namespace Velarion
