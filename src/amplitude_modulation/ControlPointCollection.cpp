#include "amplitude_modulation/ControlPointCollection.h"

#include <limits>
#include <new>
#include <stdexcept>

namespace Velarion {
namespace AmplitudeModulation {

namespace {

ControlPoint* allocate(size_t count) {
  return static_cast<ControlPoint*>(::operator new(count * sizeof(ControlPoint)));
}

void destroyRange(ControlPoint* first, ControlPoint* last) {
  for (; first != last; ++first) {
    first->~ControlPoint();
  }
}

}  // namespace

ControlPointCollection::~ControlPointCollection() {
  destroyRange(first_, last_);
  ::operator delete(first_);
}

size_t ControlPointCollection::maxLength() {
  return static_cast<size_t>(std::numeric_limits<std::ptrdiff_t>::max()) / sizeof(ControlPoint);
}

void ControlPointCollection::add(const ControlPoint& point) {
  if (last_ != end_) {
    new (last_) ControlPoint(point);
    ++last_;
  } else {
    grow(point);
  }
}

void ControlPointCollection::grow(const ControlPoint& point) {
  const size_t length = this->length();
  const size_t limit = maxLength();
  if (length == limit) {
    throw std::length_error("vector<T> too long");
  }
  const size_t capacity = this->capacity();
  size_t newCapacity = capacity > limit - capacity / 2 ? limit : capacity + capacity / 2;
  if (newCapacity < length + 1) {
    newCapacity = length + 1;
  }

  ControlPoint* storage = allocate(newCapacity);
  // `point` may live in the old storage: build the new point before the old
  // ones are copied, and release the old storage only when all are copied.
  ControlPoint* const added = storage + length;
  try {
    new (added) ControlPoint(point);
  } catch (...) {
    ::operator delete(storage);
    throw;
  }
  ControlPoint* target = storage;
  try {
    for (ControlPoint* source = first_; source != last_; ++source, ++target) {
      new (target) ControlPoint(*source);
    }
  } catch (...) {
    destroyRange(storage, target);
    added->~ControlPoint();
    ::operator delete(storage);
    throw;
  }
  destroyRange(first_, last_);
  ::operator delete(first_);
  first_ = storage;
  last_ = storage + length + 1;
  end_ = storage + newCapacity;
}

void ControlPointCollection::clear() {
  destroyRange(first_, last_);
  last_ = first_;
}

const ControlPoint& ControlPointCollection::get(unsigned int index) const {
  if (index >= length()) {
    throw std::out_of_range("invalid vector<T> subscript");
  }
  return first_[index];
}

void ControlPointCollection::remove(unsigned int index) {
  if (first_ == last_ || index != 0) {
    return;
  }
  for (ControlPoint* p = first_ + 1; p != last_; ++p) {
    *(p - 1) = *p;
  }
  --last_;
  last_->~ControlPoint();
}

}  // namespace AmplitudeModulation
}  // namespace Velarion
