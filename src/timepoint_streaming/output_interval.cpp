// OutputInterval's constructor, destructor and virtual table, which the
// device library's headers leave to every binary that includes them.
#include "Velarion/TimePointStreaming/OutputInterval.h"

namespace Velarion {
namespace TimePointStreaming {

OutputInterval::OutputInterval() {}
OutputInterval::~OutputInterval() {}

}  // namespace TimePointStreaming
}  // namespace Velarion
