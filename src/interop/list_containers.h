// The managed list containers (StringList, DeviceInfoList): std::vector
// operations with the bounds rules and messages the managed list type expects.
//
// Indices and counts arrive as 32-bit signed ints. The list size is taken as
// an int for the comparisons and index + count is a 32-bit sum that wraps;
// a wrapped (negative) sum therefore passes the "> size" test. The range it
// then names, index up to the wrapped end, is empty, so such a call touches
// no element. SetRange alone compares in 64-bit unsigned and cannot wrap.
#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace vlcs {
namespace lists {

// The words a failure reports: out_of_range names the argument,
// invalid_argument says what is wrong.
constexpr const char* kIndex = "index";
constexpr const char* kCount = "count";
constexpr const char* kCapacity = "capacity";
constexpr const char* kInvalidRange = "invalid range";

// 32-bit two's complement arithmetic without signed overflow.
inline int wrappingSum(int a, int b) {
  return static_cast<int>(static_cast<uint32_t>(a) + static_cast<uint32_t>(b));
}

template <class T>
int sizeOf(const std::vector<T>& list) {
  return static_cast<int>(static_cast<uint32_t>(list.size()));
}

// Sizes cross as a 32-bit unsigned long.
template <class T>
uint32_t size(const std::vector<T>& list) {
  return static_cast<uint32_t>(list.size());
}

template <class T>
uint32_t capacity(const std::vector<T>& list) {
  return static_cast<uint32_t>(list.capacity());
}

template <class T>
void checkElement(const std::vector<T>& list, int index) {
  if (index < 0 || index >= sizeOf(list)) {
    throw std::out_of_range(kIndex);
  }
}

template <class T>
void checkInsertion(const std::vector<T>& list, int index) {
  if (index < 0 || index > sizeOf(list)) {
    throw std::out_of_range(kIndex);
  }
}

// The checks of GetRange, RemoveRange and Reverse(index, count), in order.
// Returns the end of the range as the wrapped sum; it may lie before index.
template <class T>
int checkRange(const std::vector<T>& list, int index, int count) {
  if (index < 0) {
    throw std::out_of_range(kIndex);
  }
  if (count < 0) {
    throw std::out_of_range(kCount);
  }
  const int size = sizeOf(list);
  const int end = wrappingSum(index, count);
  if (index >= wrappingSum(size, 1) || end > size) {
    throw std::invalid_argument(kInvalidRange);
  }
  return end;
}

// Iterators of a checked range; a wrapped end gives the empty range at index.
template <class Iterator>
std::pair<Iterator, Iterator> rangeOf(Iterator begin, int index, int end) {
  return {begin + index, begin + std::max(index, end)};
}

template <class T>
std::vector<T>* withCapacity(int capacity) {
  if (capacity < 0) {
    throw std::out_of_range(kCapacity);
  }
  auto list = std::make_unique<std::vector<T>>();
  list->reserve(static_cast<size_t>(capacity));
  return list.release();
}

template <class T>
void reserve(std::vector<T>& list, uint32_t n) {
  if (n > list.capacity()) {
    list.reserve(n);
  }
}

template <class T>
const T& getitem(const std::vector<T>& list, int index) {
  checkElement(list, index);
  return list[static_cast<size_t>(index)];
}

template <class T>
void setitem(std::vector<T>& list, int index, const T& value) {
  checkElement(list, index);
  list[static_cast<size_t>(index)] = value;
}

// A list may be given its own handle as the values: work from a copy then.
template <class T>
void addRange(std::vector<T>& list, const std::vector<T>& values) {
  if (&list == &values) {
    const std::vector<T> copy(values);
    list.insert(list.end(), copy.begin(), copy.end());
  } else {
    list.insert(list.end(), values.begin(), values.end());
  }
}

template <class T>
std::vector<T>* getRange(const std::vector<T>& list, int index, int count) {
  const int end = checkRange(list, index, count);
  const auto range = rangeOf(list.begin(), index, end);
  return new std::vector<T>(range.first, range.second);
}

template <class T>
void insert(std::vector<T>& list, int index, const T& value) {
  checkInsertion(list, index);
  list.insert(list.begin() + index, value);
}

template <class T>
void insertRange(std::vector<T>& list, int index, const std::vector<T>& values) {
  checkInsertion(list, index);
  if (&list == &values) {
    const std::vector<T> copy(values);
    list.insert(list.begin() + index, copy.begin(), copy.end());
  } else {
    list.insert(list.begin() + index, values.begin(), values.end());
  }
}

template <class T>
void removeAt(std::vector<T>& list, int index) {
  checkElement(list, index);
  list.erase(list.begin() + index);
}

template <class T>
void removeRange(std::vector<T>& list, int index, int count) {
  const int end = checkRange(list, index, count);
  const auto range = rangeOf(list.begin(), index, end);
  list.erase(range.first, range.second);
}

template <class T>
std::vector<T>* repeat(const T& value, int count) {
  if (count < 0) {
    throw std::out_of_range(kCount);
  }
  return new std::vector<T>(static_cast<size_t>(count), value);
}

template <class T>
void reverse(std::vector<T>& list) {
  std::reverse(list.begin(), list.end());
}

template <class T>
void reverse(std::vector<T>& list, int index, int count) {
  const int end = checkRange(list, index, count);
  const auto range = rangeOf(list.begin(), index, end);
  std::reverse(range.first, range.second);
}

template <class T>
void setRange(std::vector<T>& list, int index, const std::vector<T>& values) {
  if (index < 0) {
    throw std::out_of_range(kIndex);
  }
  if (static_cast<uint64_t>(index) + static_cast<uint64_t>(values.size()) > static_cast<uint64_t>(list.size())) {
    throw std::out_of_range(kIndex);
  }
  // Only index 0 gets past the check with the list itself: a no-op.
  if (&list != &values) {
    std::copy(values.begin(), values.end(), list.begin() + index);
  }
}

// Equality searches, for element types that have equality.
template <class T>
int indexOf(const std::vector<T>& list, const T& value) {
  const auto found = std::find(list.begin(), list.end(), value);
  return found == list.end() ? -1 : static_cast<int>(found - list.begin());
}

template <class T>
int lastIndexOf(const std::vector<T>& list, const T& value) {
  const auto found = std::find(list.rbegin(), list.rend(), value);
  return found == list.rend() ? -1 : static_cast<int>(list.rend() - found - 1);
}

template <class T>
bool contains(const std::vector<T>& list, const T& value) {
  return std::find(list.begin(), list.end(), value) != list.end();
}

template <class T>
bool remove(std::vector<T>& list, const T& value) {
  const auto found = std::find(list.begin(), list.end(), value);
  if (found == list.end()) {
    return false;
  }
  list.erase(found);
  return true;
}

}  // namespace lists
}  // namespace vlcs
