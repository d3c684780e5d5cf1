// Integer arithmetic by the scale rule beside Highway, VOLK and what a user would write, at -O3.
// Highway rounds halves up, VOLK does not scale.
#include <hwy/highway.h>
#include <moxsp.h>
#include <volk/volk.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>

#include "support/vectors.h"

namespace {

// The scale rule around a loop, as one would write it by hand.
template <class T>
T held(int r) {
  return T(std::clamp<int>(r, std::numeric_limits<T>::min(), std::numeric_limits<T>::max()));
}
int scaledDown(int r, int n) { return (r + (1 << (n - 1)) - 1 + ((r >> n) & 1)) >> n; }

template <class T, class Op>
[[gnu::noinline]] void scaledLoop(Op op, const T* __restrict a, const T* __restrict b,
                                  T* __restrict dst, int len, int factor) {
  if (factor == 0)
    for (int i = 0; i < len; ++i) dst[i] = held<T>(op(a[i], b[i], dst[i]));
  else if (factor > 0)
    for (int i = 0; i < len; ++i) dst[i] = held<T>(scaledDown(op(a[i], b[i], dst[i]), factor));
  else
    for (int i = 0; i < len; ++i) dst[i] = held<T>(op(a[i], b[i], dst[i]) << -factor);
}

// dst = op(a, b, dst) in Highway's registers.
namespace hn = hwy::HWY_NAMESPACE;
template <class T, class Op>
[[gnu::noinline]] void highway(Op op, const T* a, const T* b, T* dst, int len) {
  const hn::ScalableTag<T> d;
  for (int i = 0; i < len; i += int(hn::Lanes(d)))
    hn::Store(op(hn::Load(d, a + i), hn::Load(d, b + i), hn::Load(d, dst + i)), d, dst + i);
}

template <class T>
struct Integers {
  explicit Integers(long len) : a(len), b(len), dst(len) {
    for (long i = 0; i < len * long(sizeof(T) / sizeof(Part)); ++i)
      part(a)[i] = Part(i * 7919), part(b)[i] = Part(i * 104729 + 3);
  }
  using Part = std::conditional_t<sizeof(T) == 1, Mox8u, Mox16s>;
  static Part* part(bench::Vector<T>& v) { return reinterpret_cast<Part*>(v.data()); }
  bench::Vector<T> a, b, dst;
};

// `sides` makes the calls for the arrays of one size and the factor.
template <class T, class MakeSides>
void addCase(const std::string& family, int factor, long bytes, MakeSides sides) {
  const int len = int(bytes / long(sizeof(T)));
  const auto data = std::make_shared<Integers<T>>(len);
  bench::add(family + " factor " + std::to_string(factor), bytes,
             {.bytesRead = 2.0 * double(bytes), .bytesWritten = double(bytes)}, data,
             sides(data->a.data(), data->b.data(), data->dst.data(), len, factor));
}

using bench::Sides;
constexpr auto sum = [](int a, int b, int) { return a + b; };
constexpr auto product = [](int a, int b, int) { return a * b; };
constexpr auto sumWithProduct = [](int a, int b, int dst) { return dst + a * b; };

// A function of two sources beside a loop over `op`.
template <auto ours, class Op>
auto besideLoop(Op op) {
  return [=](auto* a, auto* b, auto* dst, int len, int factor) -> Sides {
    return {{"moxsp", [=] { ours(a, b, dst, len, factor); }},
            {"loop", [=] { scaledLoop(op, a, b, dst, len, factor), bench::clobber(dst); }}};
  };
}

// The same with a peer of Highway.
template <auto ours, class Op, class Peer>
auto besideHighway(Op op, Peer peer) {
  return [=](auto* a, auto* b, auto* dst, int len, int factor) -> Sides {
    Sides sides = besideLoop<ours>(op)(a, b, dst, len, factor);
    sides.push_back({"highway", [=] { highway(peer, a, b, dst, len), bench::clobber(dst); }});
    return sides;
  };
}

[[gnu::noinline]] void complexLoop(const Mox16sc* __restrict a, const Mox16sc* __restrict b,
                                   Mox16sc* __restrict dst, int len, int factor) {
  const auto result = [=](std::int64_t r) {
    if (factor > 0) r = (r + (1LL << (factor - 1)) - 1 + ((r >> factor) & 1)) >> factor;
    if (factor < 0) r <<= -factor;
    return Mox16s(std::clamp<std::int64_t>(r, -32768, 32767));
  };
  for (int i = 0; i < len; ++i)
    dst[i] = {result(std::int64_t(a[i].re) * b[i].re - std::int64_t(a[i].im) * b[i].im),
              result(std::int64_t(a[i].re) * b[i].im + std::int64_t(a[i].im) * b[i].re)};
}

Sides complexSides(Mox16sc* a, Mox16sc* b, Mox16sc* dst, int len, int factor) {
  const auto volk = [](Mox16sc* z) { return reinterpret_cast<lv_16sc_t*>(z); };
  return {
      {"moxsp", [=] { moxsMul_16sc_Sfs(a, b, dst, len, factor); }},
      {"loop", [=] { complexLoop(a, b, dst, len, factor), bench::clobber(dst); }},
      {"volk", [=] { volk_16ic_x2_multiply_16ic(volk(dst), volk(a), volk(b), unsigned(len)); }}};
}

const bool registered = [] {
  for (const long bytes : bench::arraySizes) {
    const bench::Group group("vectors");
    addCase<Mox16s>("add_16s", 0, bytes,
                    besideHighway<moxsAdd_16s_Sfs>(
                        sum, [](auto a, auto b, auto) { return hn::SaturatedAdd(a, b); }));
    addCase<Mox16s>("mul_16s", 15, bytes,
                    besideHighway<moxsMul_16s_Sfs>(
                        product, [](auto a, auto b, auto) { return hn::MulFixedPoint15(a, b); }));
    addCase<Mox16s>(
        "addproduct_16s", 15, bytes,
        besideHighway<moxsAddProduct_16s_Sfs>(sumWithProduct, [](auto a, auto b, auto dst) {
          return hn::SaturatedAdd(dst, hn::MulFixedPoint15(a, b));
        }));
    addCase<Mox16sc>("mul_16sc", 15, bytes, complexSides);
  }
  for (const int factor : {0, 1, -1}) {
    constexpr long bytes = bench::arraySizes[0];
    if (factor != 0) addCase<Mox16s>("add_16s", factor, bytes, besideLoop<moxsAdd_16s_Sfs>(sum));
    addCase<Mox8u>("add_8u", factor, bytes, besideLoop<moxsAdd_8u_Sfs>(sum));
    addCase<Mox16s>("mul_16s", factor, bytes, besideLoop<moxsMul_16s_Sfs>(product));
    addCase<Mox8u>("mul_8u", factor, bytes, besideLoop<moxsMul_8u_Sfs>(product));
    addCase<Mox16sc>("mul_16sc", factor, bytes, complexSides);
  }
  return true;
}();

}  // namespace
