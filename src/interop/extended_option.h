// The managed form of an emitter's extended-option query, shared by both
// emitters: a size query, then one read into a buffer of exactly that size.
#pragma once

#include <cstddef>
#include <memory>
#include <string>

namespace vlcs {

// No retry: the bytes the read reports are kept as they are, NUL included. A
// value that grew between the two calls reports more than the buffer holds,
// so the text stops at the buffer's end.
template <class Emitter>
std::string managedExtendedOption(const Emitter& emitter, const char* name) {
  const std::size_t size = emitter.getExtendedOption(name, nullptr, 0);
  if (size == 0) {
    return std::string();
  }
  std::unique_ptr<char[]> buffer(new char[size]);
  const std::size_t written = emitter.getExtendedOption(name, buffer.get(), size);
  return std::string(buffer.get(), written < size ? written : size);
}

}  // namespace vlcs
