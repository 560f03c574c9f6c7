// The ordered list of control points that managed code fills and hands to an
// emitter in one call. Points are stored contiguously by value, so the array
// can go to Emitter::update as it is.
#pragma once

#include <cstddef>

#include "Velarion/AmplitudeModulation/ControlPoint.h"

namespace Velarion {
namespace AmplitudeModulation {

static_assert(sizeof(ControlPoint) == sizeof(void*), "control points are stored and handed over as one pointer each");

class ControlPointCollection {
 public:
  ControlPointCollection() = default;
  ControlPointCollection(const ControlPointCollection&) = delete;
  ControlPointCollection& operator=(const ControlPointCollection&) = delete;
  virtual ~ControlPointCollection();

  // Appends a copy. When full, grows to max(length + 1, capacity * 1.5): the
  // new point is built first, then the old ones are copied over. A throwing
  // copy leaves the collection as it was.
  void add(const ControlPoint& point);
  // Destroys the points; the storage stays for the next fill.
  void clear();
  // Null until storage was first allocated.
  ControlPoint* data() { return first_; }
  const ControlPoint* data() const { return first_; }
  size_t length() const { return static_cast<size_t>(last_ - first_); }
  size_t capacity() const { return static_cast<size_t>(end_ - first_); }
  // Checked read: std::out_of_range "invalid vector<T> subscript" past the end.
  const ControlPoint& get(unsigned int index) const;
  // Removes the first point when index is 0; any other index does nothing.
  void remove(unsigned int index);
  // Assigns without a bounds check: index must be below length().
  void set(unsigned int index, const ControlPoint& point) { first_[index] = point; }

  // The largest element count the storage can describe.
  static size_t maxLength();

 private:
  void grow(const ControlPoint& point);

  ControlPoint* first_ = nullptr;
  ControlPoint* last_ = nullptr;
  ControlPoint* end_ = nullptr;
};

}  // namespace AmplitudeModulation
}  // namespace Velarion
