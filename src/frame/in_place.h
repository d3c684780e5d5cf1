// The forms that work in place, made from the bodies of those that don't.
#pragma once

#include <moxsp/types.h>

#include <type_traits>

namespace mox {
namespace detail {

template <auto body, class = decltype(body)>
struct InPlace;

// dst = f(src)
template <auto body, class S, class D, class... Rest>
requires(!std::is_const_v<D>)  //
    struct InPlace<body, MoxStatus (*)(const S*, D*, Rest...)> {
  static MoxStatus run(D* srcDst, Rest... rest) { return body(srcDst, srcDst, rest...); }
};

// dst = f(src, val)
template <auto body, class S, class C, class D, class... Rest>
requires(!std::is_pointer_v<C>)  //
    struct InPlace<body, MoxStatus (*)(const S*, C, D*, Rest...)> {
  static MoxStatus run(C val, D* srcDst, Rest... rest) {
    return body(srcDst, val, srcDst, rest...);
  }
};

// dst = f(src1, src2)
template <auto body, class A, class B, class D, class... Rest>
struct InPlace<body, MoxStatus (*)(const A*, const B*, D*, Rest...)> {
  static MoxStatus run(const A* src, D* srcDst, Rest... rest) {
    return body(src, srcDst, srcDst, rest...);
  }
};

}  // namespace detail

// The destination takes the place of the source, of two sources that of the second.
template <auto body>
inline constexpr auto inPlace = detail::InPlace<body>::run;

}  // namespace mox
