#include "common/ExtendedOption.h"

#include <cstring>

#include "common/EmitterDevices.h"

namespace VelarionEmulator {
namespace internal {

std::string extendedOptionQuery(const char* name, const char* buffer, std::size_t size) {
  return "getExtendedOption(" + quoted(name) + ", " + (buffer == nullptr ? "null" : "buffer") + ", " +
         std::to_string(size) + ")";
}

std::size_t answerExtendedOption(const std::optional<std::string>& value, char* buffer, std::size_t size) {
  if (!value) return 0;
  const std::size_t needed = value->size() + 1;
  if (buffer != nullptr && size >= needed) std::memcpy(buffer, value->c_str(), needed);
  return needed;
}

}  // namespace internal
}  // namespace VelarionEmulator
