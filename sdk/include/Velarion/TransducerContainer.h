// One ultrasonic element, and the ordered layout of an array's elements.
#pragma once

#include <cstddef>

#include "Velarion/Export.h"

namespace Velarion {

// Plain 28-byte record: arrays of it cross the managed boundary as raw memory.
// Positions are metres in the device frame; the up vector is the direction
// the element faces.
struct Transducer {
  float x_position;
  float y_position;
  float z_position;
  float x_upvector;
  float y_upvector;
  float z_upvector;
  // Output multiplier; 0 disables the element.
  float multiplier;

  Transducer()
      : x_position(0.0f), y_position(0.0f), z_position(0.0f), x_upvector(0.0f), y_upvector(0.0f), z_upvector(0.0f),
        multiplier(0.0f) {}
  Transducer(float x_position_, float y_position_, float z_position_, float x_upvector_, float y_upvector_,
             float z_upvector_, float multiplier_)
      : x_position(x_position_), y_position(y_position_), z_position(z_position_), x_upvector(x_upvector_),
        y_upvector(y_upvector_), z_upvector(z_upvector_), multiplier(multiplier_) {}

  // -0.0 compares equal to 0 (disabled); NaN does not (enabled).
  bool isEnabled() const { return multiplier != 0.0f; }
};

static_assert(sizeof(Transducer) == 28, "Transducer must be seven packed floats");

struct TransducerContainerImplementation;

class VELARION_API TransducerContainer {
 public:
  TransducerContainer();
  // Copies `count` elements from `array` (which may be null when count is 0).
  TransducerContainer(size_t count, const Transducer* array);
  TransducerContainer(const TransducerContainer& other);
  TransducerContainer(TransducerContainer&& other) noexcept;
  TransducerContainer& operator=(const TransducerContainer& other);
  TransducerContainer& operator=(TransducerContainer&& other) noexcept;
  ~TransducerContainer();

  size_t size() const;
  // Throws std::out_of_range past the end.
  const Transducer& at(size_t index) const;
  // The contiguous elements; null when empty.
  const Transducer* data() const;

  // Inserts `count` elements before `position` (position == size() appends).
  // False, and nothing changes, when position > size() or array is null with
  // count > 0.
  bool insert(size_t position, size_t count, const Transducer* array);
  // Erases `count` elements starting at `first`. False, and nothing changes,
  // when the range does not lie inside the container.
  bool erase(size_t first, size_t count);

 private:
  TransducerContainerImplementation* implementation_;
};

}  // namespace Velarion
