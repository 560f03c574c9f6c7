#include "Velarion/TransducerContainer.h"

#include <stdexcept>
#include <utility>
#include <vector>

namespace Velarion {

struct TransducerContainerImplementation {
  std::vector<Transducer> elements;
};

TransducerContainer::TransducerContainer() : implementation_(new TransducerContainerImplementation()) {}

TransducerContainer::TransducerContainer(size_t count, const Transducer* array)
    : implementation_(new TransducerContainerImplementation()) {
  if (array != nullptr && count > 0) {
    implementation_->elements.assign(array, array + count);
  }
}

TransducerContainer::TransducerContainer(const TransducerContainer& other)
    : implementation_(other.implementation_ != nullptr ? new TransducerContainerImplementation(*other.implementation_)
                                                       : new TransducerContainerImplementation()) {}

// The moved-from container is left empty but usable.
TransducerContainer::TransducerContainer(TransducerContainer&& other) noexcept
    : implementation_(other.implementation_) {
  other.implementation_ = nullptr;
  try {
    other.implementation_ = new TransducerContainerImplementation();
  } catch (...) {
  }
}

TransducerContainer& TransducerContainer::operator=(const TransducerContainer& other) {
  if (this != &other) {
    TransducerContainer copy(other);
    std::swap(implementation_, copy.implementation_);
  }
  return *this;
}

TransducerContainer& TransducerContainer::operator=(TransducerContainer&& other) noexcept {
  std::swap(implementation_, other.implementation_);
  return *this;
}

TransducerContainer::~TransducerContainer() { delete implementation_; }

size_t TransducerContainer::size() const { return implementation_ ? implementation_->elements.size() : 0; }

const Transducer& TransducerContainer::at(size_t index) const {
  if (implementation_ == nullptr || index >= implementation_->elements.size()) {
    throw std::out_of_range("TransducerContainer::at: index out of range");
  }
  return implementation_->elements[index];
}

const Transducer* TransducerContainer::data() const {
  if (implementation_ == nullptr || implementation_->elements.empty()) {
    return nullptr;
  }
  return implementation_->elements.data();
}

bool TransducerContainer::insert(size_t position, size_t count, const Transducer* array) {
  if (implementation_ == nullptr) {
    return false;
  }
  std::vector<Transducer>& elements = implementation_->elements;
  if (position > elements.size() || (count > 0 && array == nullptr)) {
    return false;
  }
  if (count > 0) {
    // Copy first: `array` may point into this container.
    const std::vector<Transducer> added(array, array + count);
    elements.insert(elements.begin() + static_cast<std::ptrdiff_t>(position), added.begin(), added.end());
  }
  return true;
}

bool TransducerContainer::erase(size_t first, size_t count) {
  if (implementation_ == nullptr) {
    return false;
  }
  std::vector<Transducer>& elements = implementation_->elements;
  if (first > elements.size() || count > elements.size() - first) {
    return false;
  }
  const auto begin = elements.begin() + static_cast<std::ptrdiff_t>(first);
  elements.erase(begin, begin + static_cast<std::ptrdiff_t>(count));
  return true;
}

}  // namespace Velarion
