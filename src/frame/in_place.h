// The forms that work in place, made from the bodies of those that don't. The destination takes
// the place of the source, of two sources that of the second.
#pragma once

#include <moxsp/types.h>

#include <type_traits>

#include "frame/export.h"

namespace mox::detail {

// By the type of the form in place, which tells the type of the body.
template <class Form>
struct InPlace;

// dst = f(src)
template <class D, class... Rest>
requires(!std::is_const_v<D>)  //
    struct InPlace<MoxStatus (*)(D*, Rest...)> {
  template <MoxStatus (*body)(const D*, D*, Rest...)>
  static MoxStatus run(D* srcDst, Rest... rest) {
    return body(srcDst, srcDst, rest...);
  }
};

// dst = f(src, val)
template <class C, class D, class... Rest>
requires(!std::is_pointer_v<C>)  //
    struct InPlace<MoxStatus (*)(C, D*, Rest...)> {
  template <MoxStatus (*body)(const D*, C, D*, Rest...)>
  static MoxStatus run(C val, D* srcDst, Rest... rest) {
    return body(srcDst, val, srcDst, rest...);
  }
};

// dst = f(src1, src2)
template <class A, class D, class... Rest>
struct InPlace<MoxStatus (*)(const A*, D*, Rest...)> {
  template <MoxStatus (*body)(const A*, const D*, D*, Rest...)>
  static MoxStatus run(const A* src, D* srcDst, Rest... rest) {
    return body(src, srcDst, srcDst, rest...);
  }
};

}  // namespace mox::detail

// Exports the form in place of a body. A body that is a template takes its types from the
// declaration.
#define MOX_EXPORT_IN_PLACE(name, ...) \
  MOX_EXPORT(name, mox::detail::InPlace<decltype(&::name)>::run<__VA_ARGS__>)

// Exports a function and its form in place.
#define MOX_EXPORT_BOTH(name, nameInPlace, ...) \
  MOX_EXPORT(name, __VA_ARGS__);                \
  MOX_EXPORT_IN_PLACE(nameInPlace, __VA_ARGS__)
