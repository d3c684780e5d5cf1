// Integer arithmetic by the scale rule beside what a user would write, at -O3 for the same
// instruction set.
#include <moxsp.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <memory>
#include <vector>

#include "support/compare.h"

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

template <class T>
struct Integers {
  std::vector<T> a, b, dst;
  explicit Integers(int len) : a(len), b(len), dst(len) {
    for (int i = 0; i < len; ++i) a[i] = T(i * 7919), b[i] = T(i * 104729 + 3);
  }
};

template <class T, class Op>
void addScaledCase(const char* family, MoxStatus (*ours)(const T*, const T*, T*, int, int), Op op,
                   int factor) {
  constexpr long bytes = 4L << 10;
  constexpr int len = int(bytes / long(sizeof(T)));
  auto data = std::make_shared<Integers<T>>(len);
  bench::add({.family = std::string(family) + " factor " + std::to_string(factor),
              .size = bytes,
              .work = {.bytesRead = 2.0 * bytes, .bytesWritten = 1.0 * bytes},
              .ours = [=] { ours(data->a.data(), data->b.data(), data->dst.data(), len, factor); },
              .peers = {{"loop", [=] {
                           scaledLoop(op, data->a.data(), data->b.data(), data->dst.data(), len,
                                      factor);
                           bench::clobber(data->dst.data());
                         }}}});
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

void addComplexCase(int factor) {
  constexpr int len = 1024;
  auto data = std::make_shared<Integers<Mox16s>>(2 * len);
  const auto z = [](std::vector<Mox16s>& v) { return reinterpret_cast<Mox16sc*>(v.data()); };
  bench::add({.family = "mul_16sc factor " + std::to_string(factor),
              .size = 4096,
              .work = {.bytesRead = 8192, .bytesWritten = 4096},
              .ours = [=] { moxsMul_16sc_Sfs(z(data->a), z(data->b), z(data->dst), len, factor); },
              .peers = {{"loop", [=] {
                           complexLoop(z(data->a), z(data->b), z(data->dst), len, factor);
                           bench::clobber(data->dst.data());
                         }}}});
}

const bool registered = [] {
  const auto sum = [](int a, int b, int) { return a + b; };
  const auto product = [](int a, int b, int) { return a * b; };
  const auto productSum = [](int a, int b, int c) { return c + a * b; };
  for (const int factor : {0, 1, -1}) {
    addScaledCase<Mox16s>("add_16s", moxsAdd_16s_Sfs, sum, factor);
    addScaledCase<Mox8u>("add_8u", moxsAdd_8u_Sfs, sum, factor);
    addScaledCase<Mox16s>("mul_16s", moxsMul_16s_Sfs, product, factor);
    addScaledCase<Mox8u>("mul_8u", moxsMul_8u_Sfs, product, factor);
    addComplexCase(factor);
  }
  addScaledCase<Mox16s>("mul_16s", moxsMul_16s_Sfs, product, 15);
  addScaledCase<Mox16s>("addProduct_16s", moxsAddProduct_16s_Sfs, productSum, 15);
  addComplexCase(15);
  return true;
}();

}  // namespace
