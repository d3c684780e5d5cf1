// Element-wise arithmetic beside VOLK and beside what a user would write, at -O3 for the same
// instruction set.
#include <moxsp.h>
#include <volk/volk.h>

#include <algorithm>
#include <complex>
#include <cstdint>
#include <memory>
#include <vector>

#include "support/vectors.h"

namespace {

using Complex = std::complex<float>;

// Plain loops, with the whole vectors told apart for the compiler.
template <class T, class Op>
[[gnu::noinline]] void loop2(Op op, const T* __restrict a, const T* __restrict b, T* __restrict dst,
                             int len) {
  for (int i = 0; i < len; ++i) dst[i] = op(a[i], b[i]);
}

// The complex product without the repair of NaN that the language's own has.
struct Z {
  float re, im;
};
Z times(Z a, Z b) { return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re}; }

struct Floats {
  explicit Floats(long bytes)
      : len(int(bytes / 4)), a(len, 1.5f), b(len, 2.5f), dst(len), half(len / 2) {}
  int len;
  std::vector<float> a, b, dst;
  int half;  // as complex numbers
  template <class T>
  T* as(std::vector<float>& v) {
    return reinterpret_cast<T*>(v.data());
  }
};

struct Traffic {
  double read, written;
};

void addFloatCase(const char* family, long bytes, Traffic arrays, double opsPerFloat,
                  void (*ours)(Floats&), void (*volk)(Floats&), void (*loop)(Floats&)) {
  auto data = std::make_shared<Floats>(bytes);
  bench::Case c{.family = family,
                .size = bytes,
                .work = {.bytesRead = arrays.read * double(bytes),
                         .bytesWritten = arrays.written * double(bytes),
                         .floatOps = opsPerFloat * double(bytes) / 4},
                .ours = [=] { ours(*data); },
                .peers = {}};
  if (volk) c.peers.push_back({"volk", [=] { volk(*data); }});
  c.peers.push_back({"loop", [=] {
                       loop(*data);
                       bench::clobber(data->dst.data());
                     }});
  bench::add(std::move(c));
}

void addFloatCases(long bytes) {
  using F = Floats&;
  addFloatCase(
      "add_32f", bytes, {2, 1}, 1,
      [](F d) { moxsAdd_32f(d.a.data(), d.b.data(), d.dst.data(), d.len); },
      [](F d) { volk_32f_x2_add_32f(d.dst.data(), d.a.data(), d.b.data(), d.len); },
      [](F d) {
        loop2([](float x, float y) { return x + y; }, d.a.data(), d.b.data(), d.dst.data(), d.len);
      });
  addFloatCase(
      "mul_32f", bytes, {2, 1}, 1,
      [](F d) { moxsMul_32f(d.a.data(), d.b.data(), d.dst.data(), d.len); },
      [](F d) { volk_32f_x2_multiply_32f(d.dst.data(), d.a.data(), d.b.data(), d.len); },
      [](F d) {
        loop2([](float x, float y) { return x * y; }, d.a.data(), d.b.data(), d.dst.data(), d.len);
      });
  addFloatCase(
      "mulc_32f", bytes, {1, 1}, 1,
      [](F d) { moxsMulC_32f(d.a.data(), 1.25f, d.dst.data(), d.len); },
      [](F d) { volk_32f_s32f_multiply_32f(d.dst.data(), d.a.data(), 1.25f, d.len); },
      [](F d) {
        loop2([](float x, float) { return x * 1.25f; }, d.a.data(), d.b.data(), d.dst.data(),
              d.len);
      });
  addFloatCase(
      "addproduct_32f", bytes, {3, 1}, 2,
      [](F d) { moxsAddProduct_32f(d.a.data(), d.b.data(), d.dst.data(), d.len); }, nullptr,
      [](F d) {
        float* __restrict dst = d.dst.data();
        const float* __restrict a = d.a.data(), * __restrict b = d.b.data();
        for (int i = 0; i < d.len; ++i) dst[i] += a[i] * b[i];
      });
  addFloatCase(
      "add_32fc", bytes, {2, 1}, 1,
      [](F d) {
        moxsAdd_32fc(d.as<Mox32fc>(d.a), d.as<Mox32fc>(d.b), d.as<Mox32fc>(d.dst), d.half);
      },
      [](F d) {
        volk_32fc_x2_add_32fc(d.as<lv_32fc_t>(d.dst), d.as<lv_32fc_t>(d.a), d.as<lv_32fc_t>(d.b),
                              d.half);
      },
      [](F d) {
        loop2(
            [](Z x, Z y) {
              return Z{x.re + y.re, x.im + y.im};
            },
            d.as<Z>(d.a), d.as<Z>(d.b), d.as<Z>(d.dst), d.half);
      });
  addFloatCase(
      "mul_32fc", bytes, {2, 1}, 3,
      [](F d) {
        moxsMul_32fc(d.as<Mox32fc>(d.a), d.as<Mox32fc>(d.b), d.as<Mox32fc>(d.dst), d.half);
      },
      [](F d) {
        volk_32fc_x2_multiply_32fc(d.as<lv_32fc_t>(d.dst), d.as<lv_32fc_t>(d.a),
                                   d.as<lv_32fc_t>(d.b), d.half);
      },
      [](F d) { loop2(times, d.as<Z>(d.a), d.as<Z>(d.b), d.as<Z>(d.dst), d.half); });
  addFloatCase(
      "mulc_32fc", bytes, {1, 1}, 3,
      [](F d) {
        moxsMulC_32fc(d.as<Mox32fc>(d.a), {1.25f, 0.5f}, d.as<Mox32fc>(d.dst), d.half);
      },
      [](F d) {
        volk_32fc_s32fc_multiply_32fc(d.as<lv_32fc_t>(d.dst), d.as<lv_32fc_t>(d.a),
                                      lv_32fc_t(1.25f, 0.5f), d.half);
      },
      [](F d) {
        loop2(
            [](Z x, Z) {
              return times(x, {1.25f, 0.5f});
            },
            d.as<Z>(d.a), d.as<Z>(d.b), d.as<Z>(d.dst), d.half);
      });
  addFloatCase(
      "addproduct_32fc", bytes, {3, 1}, 4,
      [](F d) {
        moxsAddProduct_32fc(d.as<Mox32fc>(d.a), d.as<Mox32fc>(d.b), d.as<Mox32fc>(d.dst), d.half);
      },
      nullptr,
      [](F d) {
        Z* __restrict dst = d.as<Z>(d.dst);
        const Z* __restrict a = d.as<Z>(d.a), * __restrict b = d.as<Z>(d.b);
        for (int i = 0; i < d.half; ++i) {
          const Z p = times(a[i], b[i]);
          dst[i] = {dst[i].re + p.re, dst[i].im + p.im};
        }
      });
}

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
    for (int i = 0; i < len; ++i) dst[i] = held<T>(op(a[i], b[i]));
  else if (factor > 0)
    for (int i = 0; i < len; ++i) dst[i] = held<T>(scaledDown(op(a[i], b[i]), factor));
  else
    for (int i = 0; i < len; ++i) dst[i] = held<T>(op(a[i], b[i]) << -factor);
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
  for (const long bytes : bench::arraySizes) addFloatCases(bytes);
  const auto sum = [](int a, int b) { return a + b; };
  const auto product = [](int a, int b) { return a * b; };
  for (const int factor : {0, 1, -1}) {
    addScaledCase<Mox16s>("add_16s", moxsAdd_16s_Sfs, sum, factor);
    addScaledCase<Mox8u>("add_8u", moxsAdd_8u_Sfs, sum, factor);
    addScaledCase<Mox16s>("mul_16s", moxsMul_16s_Sfs, product, factor);
    addScaledCase<Mox8u>("mul_8u", moxsMul_8u_Sfs, product, factor);
    addComplexCase(factor);
  }
  return true;
}();

}  // namespace
