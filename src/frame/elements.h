// What templates need to know of an element type.
#pragma once

#include <moxsp/types.h>

#include <limits>
#include <type_traits>

namespace mox {

template <class E>
concept Complex = requires(E e) {
  e.re;
  e.im;
};

namespace detail {
template <class E>
struct PartOf {
  using type = E;
};
template <Complex E>
struct PartOf<E> {
  using type = decltype(E::re);
};
}  // namespace detail

namespace detail {
template <class F>
struct ComplexOf;
template <>
struct ComplexOf<Mox16s> {
  using type = Mox16sc;
};
template <>
struct ComplexOf<Mox32s> {
  using type = Mox32sc;
};
template <>
struct ComplexOf<Mox32f> {
  using type = Mox32fc;
};
template <>
struct ComplexOf<Mox64f> {
  using type = Mox64fc;
};
}  // namespace detail

// The complex element that has parts F.
template <class F>
using ComplexOf = typename detail::ComplexOf<F>::type;

// The type of one number: the real and imaginary part of a complex element, else the element.
template <class E>
using Part = typename detail::PartOf<E>::type;

template <class E>
constexpr int partsPerElement = Complex<E> ? 2 : 1;

// An array of complex elements seen as its parts, real part first.
template <class E>
const Part<E>* parts(const E* p) {
  return reinterpret_cast<const Part<E>*>(p);
}
template <class E>
Part<E>* parts(E* p) {
  return reinterpret_cast<Part<E>*>(p);
}

namespace detail {
template <int bytes>
struct UnsignedOf;
template <>
struct UnsignedOf<1> {
  using type = Mox8u;
};
template <>
struct UnsignedOf<2> {
  using type = Mox16u;
};
template <>
struct UnsignedOf<4> {
  using type = Mox32u;
};
template <>
struct UnsignedOf<8> {
  using type = Mox64u;
};
}  // namespace detail

// The unsigned integer that holds the bits of an element.
template <class E>
using BitsOf = typename detail::UnsignedOf<sizeof(E)>::type;

__extension__ typedef __int128 Int128;

// The range of an integer element: min to max, of which max is 2^digits - 1.
template <class T>
struct Limits {
  static constexpr int digits = std::numeric_limits<T>::digits;
  static constexpr Int128 max = std::numeric_limits<T>::max(), min = std::numeric_limits<T>::min();
};
}  // namespace mox
