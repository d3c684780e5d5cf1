// A function's signature as data: what each argument is, and a trampoline that calls any function
// of that signature with arguments taken from an array. One of each per distinct signature, so that
// two thousand functions cost the compiler some hundreds of small instantiations.
#pragma once

#include <moxsp/types.h>

#include <cstddef>
#include <cstring>
#include <type_traits>
#include <utility>

#include "frame/elements.h"

namespace every {

struct ElementType {
  int bytes;      // of one element
  int partBytes;  // of its real or imaginary part
  bool isFloat;
};

template <class E>
constexpr ElementType elementType = {sizeof(E), sizeof(mox::Part<E>),
                                     std::is_floating_point_v<mox::Part<E>>};

enum class Form {
  value,     // by value, of type `element`
  array,     // pointer to `element`s
  rows,      // pointer to unchanging pointers to `element`s or objects
  object,    // pointer to an opaque object
  objectOut  // where a pointer is stored
};

struct ArgumentType {
  Form form;
  const ElementType* element;  // null for objects
  bool isConst;                // what is pointed to
};

template <class T>
consteval ArgumentType argumentType() {
  if constexpr (std::is_pointer_v<T>) {
    using Target = std::remove_pointer_t<T>;
    using Bare = std::remove_cv_t<Target>;
    constexpr bool isConst = std::is_const_v<Target>;
    if constexpr (std::is_pointer_v<Bare>) {
      ArgumentType inner = argumentType<Bare>();
      inner.form = isConst ? Form::rows : Form::objectOut;
      return inner;
    } else if constexpr (requires { sizeof(Bare); }) {
      return {Form::array, &elementType<Bare>, isConst};
    } else {
      return {Form::object, nullptr, isConst};
    }
  } else {
    return {Form::value, &elementType<T>, true};
  }
}

// One argument, whatever its type.
struct Slot {
  alignas(16) std::byte bytes[16] = {};

  template <class T>
  T as() const {
    static_assert(sizeof(T) <= sizeof bytes);
    T value;
    std::memcpy(&value, bytes, sizeof value);
    return value;
  }
  template <class T>
  void set(T value) {
    static_assert(sizeof(T) <= sizeof bytes);
    std::memcpy(bytes, &value, sizeof value);
  }
};

using AnyFunction = void();

constexpr int maxArguments = 16;

struct Signature {
  bool returnsStatus;
  int count;
  ArgumentType arguments[maxArguments];
  MoxStatus (*call)(AnyFunction*, const Slot*);
};

namespace detail {
template <class R, class... A, std::size_t... i>
MoxStatus callWith(AnyFunction* f, [[maybe_unused]] const Slot* slots, std::index_sequence<i...>) {
  if constexpr (std::is_same_v<R, MoxStatus>)
    return reinterpret_cast<R (*)(A...)>(f)(slots[i].as<A>()...);
  else
    return moxOk;
}

template <class F>
struct SignatureOf;
template <class R, class... A>
struct SignatureOf<R (*)(A...)> {
  static_assert(sizeof...(A) <= maxArguments);
  static MoxStatus call(AnyFunction* f, const Slot* slots) {
    return callWith<R, A...>(f, slots, std::index_sequence_for<A...>());
  }
  static constexpr Signature value = {
      std::is_same_v<R, MoxStatus>, sizeof...(A), {argumentType<A>()...}, call};
};
}  // namespace detail

// The one record of a function pointer type; equal addresses mean equal types.
template <class F>
constexpr const Signature* signatureOf = &detail::SignatureOf<F>::value;

}  // namespace every
