// The export bodies shared by the list containers. `Value` is the caster of
// one element argument (a String for StringList, a ConstRef for
// DeviceInfoList) and `Arg` the raw argument it wraps.
#pragma once

#include <string>
#include <type_traits>
#include <vector>

#include "interop/casting.h"
#include "interop/list_containers.h"
#include "interop/native_names.h"

namespace vlcs {

template <class T, class Value, class Arg>
struct ListExports {
  using List = std::vector<T>;
  using E = Exports<Module::velarion>;
  using Other = ConstRef<List>;

  static void* create() { return new List(); }
  static void* copy(void* other) {
    return E::call([](const List& o) { return new List(o); }, Other{other});
  }
  static void* withCapacity(int capacity) {
    return E::callList([](int n) { return lists::withCapacity<T>(n); }, capacity);
  }

  static void clear(void* self) {
    E::call([](List& l) { l.clear(); }, Self<List>{self});
  }
  static void add(void* self, Arg value) {
    E::call([](List& l, const T& v) { l.push_back(v); }, Self<List>{self}, Value{value});
  }
  static uint32_t size(void* self) {
    return E::call([](const List& l) { return lists::size(l); }, Self<List>{self});
  }
  static uint32_t capacity(void* self) {
    return E::call([](const List& l) { return lists::capacity(l); }, Self<List>{self});
  }
  static void reserve(void* self, uint32_t n) {
    E::call([](List& l, uint32_t count) { lists::reserve(l, count); }, Self<List>{self}, n);
  }

  // A copy: a managed string, or a new heap element the caller owns.
  static void* getitemcopy(void* self, int index) {
    return E::callList([](const List& l, int i) { return T(lists::getitem(l, i)); }, Self<List>{self}, index);
  }
  // By reference: a managed string of the element, or a handle into the list.
  static void* getitem(void* self, int index) {
    if constexpr (std::is_same_v<T, std::string>) {
      return E::callList([](const List& l, int i) -> const T& { return lists::getitem(l, i); }, Self<List>{self},
                         index);
    } else {
      return E::callList(
          [](List& l, int i) {
            lists::checkElement(l, i);
            return &l[static_cast<size_t>(i)];
          },
          Self<List>{self}, index);
    }
  }
  static void setitem(void* self, int index, Arg value) {
    E::callList([](List& l, int i, const T& v) { lists::setitem(l, i, v); }, Self<List>{self}, index,
                Value{value});
  }

  static void addRange(void* self, void* values) {
    E::call([](List& l, const List& v) { lists::addRange(l, v); }, Self<List>{self}, Other{values});
  }
  static void* getRange(void* self, int index, int count) {
    return E::callList([](const List& l, int i, int n) { return lists::getRange(l, i, n); }, Self<List>{self},
                       index, count);
  }
  static void insert(void* self, int index, Arg value) {
    E::callList([](List& l, int i, const T& v) { lists::insert(l, i, v); }, Self<List>{self}, index, Value{value});
  }
  static void insertRange(void* self, int index, void* values) {
    E::callList([](List& l, int i, const List& v) { lists::insertRange(l, i, v); }, Self<List>{self}, index,
                Other{values});
  }
  static void removeAt(void* self, int index) {
    E::callList([](List& l, int i) { lists::removeAt(l, i); }, Self<List>{self}, index);
  }
  static void removeRange(void* self, int index, int count) {
    E::callList([](List& l, int i, int n) { lists::removeRange(l, i, n); }, Self<List>{self}, index, count);
  }
  static void* repeat(Arg value, int count) {
    return E::callList([](const T& v, int n) { return lists::repeat(v, n); }, Value{value}, count);
  }
  static void reverse(void* self) {
    E::call([](List& l) { lists::reverse(l); }, Self<List>{self});
  }
  static void reverse(void* self, int index, int count) {
    E::callList([](List& l, int i, int n) { lists::reverse(l, i, n); }, Self<List>{self}, index, count);
  }
  static void setRange(void* self, int index, void* values) {
    E::callList([](List& l, int i, const List& v) { lists::setRange(l, i, v); }, Self<List>{self}, index,
                Other{values});
  }

  // Equality searches (StringList only).
  static unsigned int contains(void* self, Arg value) {
    return E::call([](const List& l, const T& v) { return lists::contains(l, v); }, Self<List>{self}, Value{value});
  }
  static int indexOf(void* self, Arg value) {
    return E::call([](const List& l, const T& v) { return lists::indexOf(l, v); }, Self<List>{self}, Value{value});
  }
  static int lastIndexOf(void* self, Arg value) {
    return E::call([](const List& l, const T& v) { return lists::lastIndexOf(l, v); }, Self<List>{self},
                   Value{value});
  }
  static unsigned int remove(void* self, Arg value) {
    return E::call([](List& l, const T& v) { return lists::remove(l, v); }, Self<List>{self}, Value{value});
  }
};

}  // namespace vlcs
