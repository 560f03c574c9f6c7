// The director base through which managed subclasses override native virtual
// methods. A director holds plain managed function pointers, one per virtual
// method, null when the managed subclass does not override that method: the
// director's override calls the pointer when there is one and otherwise runs
// the native base behaviour, or throws for a method without one.
//
// Header-only on purpose: every director (logging, emission) and the tests use
// the same definitions.
#pragma once

#include <exception>
#include <string>
#include <utility>

namespace Swig {

// Marker base of every director class.
class Director {};

class DirectorException : public std::exception {
 public:
  explicit DirectorException(std::string message) : message_(std::move(message)) {}
  ~DirectorException() noexcept override {}
  const char* what() const noexcept override { return message_.c_str(); }

 private:
  std::string message_;
};

// Thrown by a director method whose base is pure virtual when no managed
// override is connected. `method` is "Class::method".
class DirectorPureVirtualException : public DirectorException {
 public:
  explicit DirectorPureVirtualException(const char* method)
      : DirectorException(std::string("Attempt to invoke pure virtual method ") + method) {}
};

}  // namespace Swig

namespace vlcs {

// director_connect: a checked downcast from the handle's static type `Base` to
// the director class; an object that is not a director is left alone, and so
// is a null handle. Each call replaces every pointer, nulls included.
template <class DirectorT, class Base, class... Pointers>
void connectDirector(void* handle, Pointers... pointers) {
  if (auto* director = dynamic_cast<DirectorT*>(static_cast<Base*>(handle))) {
    director->swig_connect_director(pointers...);
  }
}

// The override-or-base dispatch of one director method: the managed override
// when connected, otherwise the native behaviour `fallback` (the base method,
// or a throw for a pure virtual one).
template <class Managed, class Forward, class Fallback>
decltype(auto) dispatch(Managed managed, Forward&& forward, Fallback&& fallback) {
  if (managed != nullptr) {
    return std::forward<Forward>(forward)(managed);
  }
  return std::forward<Fallback>(fallback)();
}

// The fallback of a method without a native implementation.
template <class R = void>
R pureVirtual(const char* method) {
  throw Swig::DirectorPureVirtualException(method);
}

}  // namespace vlcs
