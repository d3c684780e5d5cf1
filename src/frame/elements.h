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
auto partOf(E e) {
  if constexpr (Complex<E>)
    return e.re;
  else
    return e;
}
Mox16sc complexOf(Mox16s);
Mox32sc complexOf(Mox32s);
Mox32fc complexOf(Mox32f);
Mox64fc complexOf(Mox64f);
}  // namespace detail

// The type of one number: the real and imaginary part of a complex element, else the element.
template <class E>
using Part = decltype(detail::partOf(E()));

// The complex element that has parts F.
template <class F>
using ComplexOf = decltype(detail::complexOf(F()));

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

// The unsigned integer that holds the bits of an element.
template <class E>
using BitsOf = std::conditional_t<
    sizeof(E) == 1, Mox8u,
    std::conditional_t<sizeof(E) == 2, Mox16u, std::conditional_t<sizeof(E) == 4, Mox32u, Mox64u>>>;

__extension__ typedef __int128 Int128;

// The range of an integer element: min to max, of which max is 2^digits - 1.
template <class T>
struct Limits {
  static constexpr int digits = std::numeric_limits<T>::digits;
  static constexpr Int128 max = std::numeric_limits<T>::max(), min = std::numeric_limits<T>::min();
};
}  // namespace mox
