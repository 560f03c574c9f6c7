// The getExtendedOption protocol both emitters share: a call with no buffer,
// or one too small, asks for the size the value needs.
#pragma once

#include <cstddef>
#include <mutex>
#include <optional>
#include <string>

#include "common/Refusals.h"

namespace VelarionEmulator {
namespace internal {

// The journal's text of a getExtendedOption call.
std::string extendedOptionQuery(const char* name, const char* buffer, std::size_t size);

// The size `value` needs, NUL included (0 when there is no such option);
// the value is copied into `buffer` only when it fits.
std::size_t answerExtendedOption(const std::optional<std::string>& value, char* buffer, std::size_t size);

// getExtendedOption of either emitter: `lookup(e, name)` under the emitter's
// lock; a null or unknown name is a refusal, logged under `area`.
template <class Implementation, class Lookup>
std::size_t queryExtendedOption(const Implementation* e, const char* area, const char* name, char* buffer,
                                std::size_t size, Lookup lookup) {
  if (e == nullptr) return 0;
  if (name == nullptr) {
    logRefusal(area, e, "option", "Extended option query refused: null name");
    return 0;
  }
  std::optional<std::string> value;
  {
    std::lock_guard<std::mutex> lock(e->mutex);
    value = lookup(*e, name);
  }
  if (!value) logRefusal(area, e, std::string("option:") + name, "Extended option \"" + std::string(name) + "\" is unknown");
  return answerExtendedOption(value, buffer, size);
}

}  // namespace internal
}  // namespace VelarionEmulator
