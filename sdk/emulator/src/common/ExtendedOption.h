// The getExtendedOption protocol both emitters share: a call with no buffer,
// or one too small, asks for the size the value needs.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace VelarionEmulator {
namespace internal {

// The journal's text of a getExtendedOption call.
std::string extendedOptionQuery(const char* name, const char* buffer, std::size_t size);

// The size `value` needs, NUL included (0 when there is no such option);
// the value is copied into `buffer` only when it fits.
std::size_t answerExtendedOption(const std::optional<std::string>& value, char* buffer, std::size_t size);

}  // namespace internal
}  // namespace VelarionEmulator
