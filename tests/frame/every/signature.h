// A function's signature as data: what each argument is, and a trampoline that calls any function
// of that signature with arguments taken from an array. One of each per distinct signature, so that
// two thousand functions cost the compiler some hundreds of small instantiations.
#pragma once

#include <moxsp/types.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>
#include <utility>

#include "frame/elements.h"

namespace every {

struct ElementType {
  int bytes;      // of one element
  int partBytes;  // of its real or imaginary part
  bool isFloat;
  void (*store)(std::byte* element, double value);  // into every part
  std::uint64_t (*bits)(const std::byte* part);     // the same for all NaN
  // NaN is close to NaN, another float within a relative tolerance.
  bool (*areClose)(const std::byte* part, const std::byte* other, double tolerance);
};

template <class T>
T read(const std::byte* at) {
  T value;
  std::memcpy(&value, at, sizeof value);
  return value;
}

template <class E, class P = mox::Part<E>>
constexpr ElementType elementType = {
    sizeof(E),
    sizeof(P),
    std::is_floating_point_v<P>,
    [](std::byte* element, double value) {
      const P part = std::is_floating_point_v<P> ? P(value) : P(std::int64_t(value));
      for (std::size_t i = 0; i < sizeof(E); i += sizeof(P))
        std::memcpy(element + i, &part, sizeof part);
    },
    [](const std::byte* part) -> std::uint64_t {
      const P value = read<P>(part);
      std::uint64_t bits = 0x7FF8;
      if (value == value) bits = 0, std::memcpy(&bits, part, sizeof value);
      return bits;
    },
    [](const std::byte* part, const std::byte* other, double tolerance) {
      const P x = read<P>(part), y = read<P>(other);
      if constexpr (!std::is_floating_point_v<P>) return x == y;
      if (x != x || y != y) return x != x && y != y;
      return x == y ||
             std::fabs(double(x) - double(y)) <= tolerance * std::max(1.0, std::fabs(double(y)));
    }};

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
