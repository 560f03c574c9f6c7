// The one idiom every export follows: arguments are wrapped in small casters
// that know their null check and its message, `Exports<M>::call` checks them in
// argument order, raises the first failure through module M's tables and
// returns the neutral result; otherwise it runs the operation and converts the
// result for the boundary.
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>

#include "interop/interop_runtime.h"

namespace vlcs {

// The native type name a null-argument message names. Specialise it once per
// type with VLCS_NATIVE_NAME, next to the type's exports.
template <class T>
struct NativeName;

#define VLCS_NATIVE_NAME(Type, text)                 \
  template <>                                        \
  struct NativeName<Type> {                          \
    static constexpr const char* value = text;       \
  };

constexpr const char* kNullStringMessage = "null string";

// The three shapes of null-argument message, built once per type.
template <class T>
const char* constRefNullMessage() {
  static const std::string message = std::string(NativeName<T>::value) + " const & type is null";
  return message.c_str();
}

template <class T>
const char* byValueNullMessage() {
  static const std::string message = std::string("Attempt to dereference null ") + NativeName<T>::value;
  return message.c_str();
}

template <class T>
const char* movedNullMessage() {
  static const std::string message = std::string(NativeName<T>::value) + " && type is null";
  return message.c_str();
}

// --- argument casters ------------------------------------------------------

// `self`: never checked.
template <class T>
struct Self {
  void* handle;
  static constexpr bool checked = false;
  T& get() const { return *static_cast<T*>(handle); }
};

// A class passed by `const &`.
template <class T>
struct ConstRef {
  const void* handle;
  static constexpr bool checked = true;
  const char* nullMessage() const { return constRefNullMessage<T>(); }
  const T& get() const { return *static_cast<const T*>(handle); }
};

// A class passed by value: the callee gets its own copy.
template <class T>
struct ByValue {
  const void* handle;
  static constexpr bool checked = true;
  const char* nullMessage() const { return byValueNullMessage<T>(); }
  T get() const { return *static_cast<const T*>(handle); }
};

// A class passed by `&&`: moved from, the source stays with the caller.
template <class T>
struct Moved {
  void* handle;
  static constexpr bool checked = true;
  const char* nullMessage() const { return movedNullMessage<T>(); }
  T&& get() const { return std::move(*static_cast<T*>(handle)); }
};

// A narrow string where a std::string is required.
struct String {
  const char* text;
  static constexpr bool checked = true;
  const void* handle() const { return text; }
  const char* nullMessage() const { return kNullStringMessage; }
  std::string get() const { return std::string(text); }
};

// A bool argument: any non-zero value is true.
struct Flag {
  unsigned int value;
  static constexpr bool checked = false;
  bool get() const { return value != 0; }
};

namespace detail {

template <class A, class = void>
struct IsCaster : std::false_type {};
template <class A>
struct IsCaster<A, std::void_t<decltype(A::checked)>> : std::true_type {};

template <class A>
decltype(auto) unwrap(const A& argument) {
  if constexpr (IsCaster<A>::value) {
    return argument.get();
  } else {
    return (argument);
  }
}

template <class A>
const void* handleOf(const A& argument) {
  if constexpr (std::is_same_v<A, String>) {
    return argument.handle();
  } else {
    return argument.handle;
  }
}

template <Module M, class A>
bool check(const A& argument) {
  if constexpr (IsCaster<A>::value) {
    if constexpr (A::checked) {
      if (handleOf(argument) == nullptr) {
        setPendingArgumentException<M>(ArgumentCode::argumentNull, argument.nullMessage(), nullptr);
        return false;
      }
    }
  }
  (void)argument;
  return true;
}

// How a native result crosses the boundary.
template <class R, class = void>
struct Boundary {
  // A class by value: a new heap copy the caller owns.
  using type = void*;
};
template <>
struct Boundary<void> {
  using type = void;
};
template <>
struct Boundary<bool> {
  using type = unsigned int;
};
template <class R>
struct Boundary<R, std::enable_if_t<std::is_arithmetic_v<R> && !std::is_same_v<R, bool>>> {
  using type = R;
};
template <class R>
struct Boundary<R, std::enable_if_t<std::is_enum_v<R>>> {
  using type = int;
};
template <class R>
struct Boundary<R*> {
  using type = void*;
};

}  // namespace detail

template <Module M>
struct Exports {
  template <class Fn, class... A>
  using NativeResult = std::invoke_result_t<Fn, decltype(detail::unwrap(std::declval<const A&>()))...>;

  template <class Fn, class... A>
  using Result = typename detail::Boundary<std::decay_t<NativeResult<Fn, A...>>>::type;

  // Checks the casters in argument order; the first null one is reported and
  // the neutral result returned before anything else happens.
  template <class Fn, class... A>
  static Result<Fn, A...> call(Fn&& fn, const A&... arguments) {
    if (!(detail::check<M>(arguments) && ...)) {
      return Result<Fn, A...>();
    }
    return convert(std::forward<Fn>(fn), arguments...);
  }

  // As `call`, for the list operations: a std::out_of_range becomes an
  // ArgumentOutOfRangeException (message null, parameter = what()), a
  // std::invalid_argument an ArgumentException (message = what(), parameter "").
  template <class Fn, class... A>
  static Result<Fn, A...> callList(Fn&& fn, const A&... arguments) {
    if (!(detail::check<M>(arguments) && ...)) {
      return Result<Fn, A...>();
    }
    try {
      return convert(std::forward<Fn>(fn), arguments...);
    } catch (const std::out_of_range& e) {
      setPendingArgumentException<M>(ArgumentCode::argumentOutOfRange, nullptr, e.what());
    } catch (const std::invalid_argument& e) {
      setPendingArgumentException<M>(ArgumentCode::argument, e.what(), "");
    }
    return Result<Fn, A...>();
  }

  // A narrow string result, through the module's string callback.
  static void* string(const char* text) { return makeManagedString<M>(text); }
  static void* string(const std::string& text) { return makeManagedString<M>(text.c_str()); }

 private:
  template <class Fn, class... A>
  static Result<Fn, A...> convert(Fn&& fn, const A&... arguments) {
    using R = std::decay_t<NativeResult<Fn, A...>>;
    if constexpr (std::is_void_v<R>) {
      std::forward<Fn>(fn)(detail::unwrap(arguments)...);
    } else if constexpr (std::is_same_v<R, bool>) {
      return std::forward<Fn>(fn)(detail::unwrap(arguments)...) ? 1u : 0u;
    } else if constexpr (std::is_enum_v<R>) {
      return static_cast<int>(std::forward<Fn>(fn)(detail::unwrap(arguments)...));
    } else if constexpr (std::is_same_v<R, std::string> || std::is_same_v<R, const char*>) {
      // The temporary string lives until the callback has returned.
      return string(std::forward<Fn>(fn)(detail::unwrap(arguments)...));
    } else if constexpr (std::is_pointer_v<R>) {
      return const_cast<void*>(static_cast<const void*>(std::forward<Fn>(fn)(detail::unwrap(arguments)...)));
    } else if constexpr (std::is_class_v<R> && std::is_lvalue_reference_v<NativeResult<Fn, A...>>) {
      // A class by reference: borrowed, the address of the referenced object.
      return const_cast<void*>(
          static_cast<const void*>(std::addressof(std::forward<Fn>(fn)(detail::unwrap(arguments)...))));
    } else if constexpr (std::is_arithmetic_v<R>) {
      return std::forward<Fn>(fn)(detail::unwrap(arguments)...);
    } else {
      return new R(std::forward<Fn>(fn)(detail::unwrap(arguments)...));
    }
  }
};

// --- members that need no checks -------------------------------------------

// delete_X: a null handle does nothing.
template <class T>
void destroy(void* handle) {
  delete static_cast<T*>(handle);
}

// Field `_set`: writes only when `self` is not null.
template <class T, class F>
void setField(void* self, F T::*field, F value) {
  if (self != nullptr) {
    static_cast<T*>(self)->*field = value;
  }
}

// Field `_set` of a class-typed field: copies from the handle. The handle is
// not checked by the convention; a null one is skipped rather than read.
template <class T, class F>
void setFieldFrom(void* self, F T::*field, const void* value) {
  if (self != nullptr && value != nullptr) {
    static_cast<T*>(self)->*field = *static_cast<const F*>(value);
  }
}

// Field `_set` of an array field: copies the whole array from `values`;
// without a target or a source nothing happens.
template <class T, class F, std::size_t N>
void setField(void* self, F (T::*field)[N], const F* values) {
  if (self != nullptr && values != nullptr) {
    std::copy(values, values + N, static_cast<T*>(self)->*field);
  }
}

template <class T, class F>
F getField(const void* self, F T::*field) {
  return static_cast<const T*>(self)->*field;
}

// Field `_get` of a class-typed or array field: a borrowed pointer into `self`.
template <class T, class F>
void* fieldAddress(void* self, F T::*field) {
  return &(static_cast<T*>(self)->*field);
}

}  // namespace vlcs
