// The members of the time-point streaming emitter that this library builds
// itself. Defining the (identifier, Transform) constructor here also emits
// the class's virtual table and deleting destructor here, since the class
// has no key function.
#include "Velarion/TimePointStreaming/Emitter.h"
#include "Velarion/VersionInfo.h"

namespace Velarion {
namespace TimePointStreaming {

Emitter::Emitter(const char* identifier, Transform transform) : implementation_(nullptr) {
  init(identifier, transform);
  // The interface version these headers describe, announced on every
  // construction through this constructor.
  VersionInfo::checkVersion(VL_SDK_VERSION_MAJOR, VL_SDK_VERSION_MINOR, VL_SDK_VERSION_PATCH);
}

}  // namespace TimePointStreaming
}  // namespace Velarion
