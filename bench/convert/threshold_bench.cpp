#include <moxsp.h>

#include <Eigen/Core>
#include <algorithm>
#include <cmath>
#include <random>
#include <string>

#include "support/vectors.h"

namespace {

// Numbers of either sign below 1, or below 1000 for integers, of which about half change.
template <class F>
constexpr F level = F(sizeof(F) == 2 ? 500 : 0.5);
template <class F>
constexpr F value = F(sizeof(F) == 2 ? 7 : 0.25);

template <class E, class F>
struct Data {
  explicit Data(long len) : src(len), dst(len) {
    std::minstd_rand engine;
    auto* parts = reinterpret_cast<F*>(src.data());
    for (long i = 0; i < len * long(sizeof(E) / sizeof(F)); ++i)
      parts[i] = F((double(engine()) / double(engine.max()) - 0.5) * (sizeof(F) == 2 ? 2000 : 2));
  }
  bench::Vector<E> src, dst;
};

using bench::Sides;

// `sides` makes the calls for the arrays of one size.
template <class E, class F, class MakeSides>
void addSizes(const std::string& family, MakeSides sides) {
  for (const long bytes : bench::arraySizes) {
    const long len = bytes / long(sizeof(E));
    const auto data = std::make_shared<Data<E, F>>(len);
    bench::add(family, bytes, {.bytesRead = double(bytes), .bytesWritten = double(bytes)}, data,
               sides(data->src.data(), data->dst.data(), int(len)));
  }
}

// A plain loop over `op`.
template <class E, class Op>
bench::Call loop(const E* src, E* dst, int len, Op op) {
  return [=] {
    for (int i = 0; i < len; ++i) dst[i] = op(src[i]);
    bench::clobber(dst);
  };
}

template <class E>
auto view(const E* p, int len) {
  return Eigen::Map<const Eigen::Array<E, Eigen::Dynamic, 1>, Eigen::AlignedMax>(p, len);
}
template <class E>
auto view(E* p, int len) {
  return Eigen::Map<Eigen::Array<E, Eigen::Dynamic, 1>, Eigen::AlignedMax>(p, len);
}

template <class F>
void addReal(const std::string& type, auto lt, auto ltVal, auto gtAbs) {
  {
    const bench::Group group("vectors");
    addSizes<F, F>("threshold_LT_" + type, [=](const F* src, F* dst, int len) -> Sides {
      return {
          {"moxsp", [=] { lt(src, dst, len, level<F>); }},
          {"eigen", [=] { view(dst, len) = view(src, len).max(level<F>), bench::clobber(dst); }},
          {"loop", loop(src, dst, len, [](F x) { return x > level<F> ? x : level<F>; })}};
    });
  }
  addSizes<F, F>("threshold_LTVal_" + type, [=](const F* src, F* dst, int len) -> Sides {
    return {{"moxsp", [=] { ltVal(src, dst, len, level<F>, value<F>); }},
            {"eigen",
             [=] {
               view(dst, len) = (view(src, len) < level<F>).select(value<F>, view(src, len));
               bench::clobber(dst);
             }},
            {"loop", loop(src, dst, len, [](F x) { return level<F> <= x ? x : value<F>; })}};
  });
  addSizes<F, F>("threshold_GTAbs_" + type, [=](const F* src, F* dst, int len) -> Sides {
    return {{"moxsp", [=] { gtAbs(src, dst, len, level<F>); }},
            {"eigen",
             [=] {
               view(dst, len) = view(src, len).min(level<F>).max(F(-level<F>));
               bench::clobber(dst);
             }},
            {"loop", loop(src, dst, len, [](F x) {
               const F y = x < level<F> ? x : level<F>;
               return -level<F> > y ? F(-level<F>) : y;
             })}};
  });
}

template <class E, class F>
void addComplex(const std::string& type, auto gt, auto gtVal) {
  addSizes<E, F>("threshold_GT_" + type, [=](const E* src, E* dst, int len) -> Sides {
    return {{"moxsp", [=] { gt(src, dst, len, level<F>); }},
            {"loop", loop(src, dst, len, [](E z) {
               const F m = z.re * z.re + z.im * z.im, s = level<F> / std::sqrt(m);
               return m > level<F> * level<F> ? E{z.re * s, z.im * s} : z;
             })}};
  });
  addSizes<E, F>("threshold_GTVal_" + type, [=](const E* src, E* dst, int len) -> Sides {
    const E other = {value<F>, value<F>};
    return {{"moxsp", [=] { gtVal(src, dst, len, level<F>, other); }},
            {"loop", loop(src, dst, len, [other](E z) {
               return z.re * z.re + z.im * z.im <= level<F> * level<F> ? z : other;
             })}};
  });
}

template <class E, class F>
void addInverse(const std::string& type, auto inverse, auto model) {
  addSizes<E, F>("threshold_LTInv_" + type, [=](const E* src, E* dst, int len) -> Sides {
    return {{"moxsp", [=] { inverse(src, dst, len, level<F>); }},
            {"loop", loop(src, dst, len, model)}};
  });
}

constexpr auto inverseOfReal = [](auto x) {
  using F = decltype(x);
  const F y = std::fabs(x);
  return std::copysign(1 / (y > level<F> ? y : level<F>), x);
};

const bool registered = [] {
  addReal<float>("32f", moxsThreshold_LT_32f, moxsThreshold_LTVal_32f, moxsThreshold_GTAbs_32f);
  addReal<double>("64f", moxsThreshold_LT_64f, moxsThreshold_LTVal_64f, moxsThreshold_GTAbs_64f);
  addReal<Mox16s>("16s", moxsThreshold_LT_16s, moxsThreshold_LTVal_16s, moxsThreshold_GTAbs_16s);

  addSizes<float, float>("threshold_LTAbs_32f", [](const float* src, float* dst, int len) -> Sides {
    return {{"moxsp", [=] { moxsThreshold_LTAbs_32f(src, dst, len, 0.5f); }},
            {"loop", loop(src, dst, len, [](float x) {
               return 0.5f > std::fabs(x) ? (x >= 0 ? 0.5f : -0.5f) : x;
             })}};
  });
  addSizes<float, float>(
      "threshold_LTValGTVal_32f", [](const float* src, float* dst, int len) -> Sides {
        return {{"moxsp", [=] { moxsThreshold_LTValGTVal_32f(src, dst, len, -0.5f, 0, 0.5f, 1); }},
                {"loop", loop(src, dst, len, [](float x) {
                   return x < -0.5f ? 0.0f : x > 0.5f ? 1.0f : x;
                 })}};
      });

  addComplex<Mox32fc, float>("32fc", moxsThreshold_GT_32fc, moxsThreshold_GTVal_32fc);
  addComplex<Mox64fc, double>("64fc", moxsThreshold_GT_64fc, moxsThreshold_GTVal_64fc);
  addSizes<Mox16sc, Mox16s>(
      "threshold_GT_16sc", [](const Mox16sc* src, Mox16sc* dst, int len) -> Sides {
        return {{"moxsp", [=] { moxsThreshold_GT_16sc(src, dst, len, 500); }},
                {"loop in 32f", loop(src, dst, len, [](Mox16sc z) {
                   const float re = z.re, im = z.im, m = re * re + im * im;
                   const float s = 500 / std::sqrt(m);
                   return m > 500 * 500 ? Mox16sc{Mox16s(re * s), Mox16s(im * s)} : z;
                 })}};
      });

  addInverse<float, float>("32f", moxsThreshold_LTInv_32f, inverseOfReal);
  addInverse<double, double>("64f", moxsThreshold_LTInv_64f, inverseOfReal);
  addInverse<Mox32fc, float>("32fc", moxsThreshold_LTInv_32fc, [](Mox32fc z) {
    const float m = z.re * z.re + z.im * z.im;
    const float s = 1 / (m > 0.25f ? m : 0.5f * std::sqrt(m));
    return Mox32fc{z.re * s, -z.im * s};
  });
  return true;
}();

}  // namespace
