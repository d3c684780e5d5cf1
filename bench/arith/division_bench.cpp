// Division beside VOLK and Eigen, and beside what a user would write, at -O3 for the same
// instruction set.
#include <moxsp.h>
#include <volk/volk.h>

#include <Eigen/Core>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <vector>

#include "support/vectors.h"

namespace {

// Plain loops, with the whole vectors told apart for the compiler.
template <class A, class B, class D, class Op>
[[gnu::noinline]] void loop2(Op op, const A* __restrict a, const B* __restrict b, D* __restrict dst,
                             int len) {
  for (int i = 0; i < len; ++i) dst[i] = op(a[i], b[i]);
}

struct Z {
  float re, im;
};

template <class F>
struct Floats {
  explicit Floats(long bytes)
      : len(int(bytes / long(sizeof(F)))),
        half(len / 2),
        a(len, F(1.5)),
        b(len, F(2.5)),
        dst(len) {}
  int len, half;  // half of them as complex numbers
  std::vector<F> a, b, dst;
  auto array(std::vector<F>& v) { return Eigen::Map<Eigen::Array<F, -1, 1>>(v.data(), len); }
  template <class T>
  T* as(std::vector<F>& v) {
    return reinterpret_cast<T*>(v.data());
  }
};

template <class F>
void addFloatCase(const char* family, long bytes, double arraysRead, void (*ours)(Floats<F>&),
                  std::vector<std::pair<std::string, void (*)(Floats<F>&)>> peers) {
  auto data = std::make_shared<Floats<F>>(bytes);
  bench::Case c{.family = family,
                .size = bytes,
                .work = {.bytesRead = arraysRead * double(bytes), .bytesWritten = double(bytes)},
                .ours = [=] { ours(*data); },
                .peers = {}};
  for (const auto& peer : peers)
    c.peers.push_back({peer.first, [=] {
                         peer.second(*data);
                         bench::clobber(data->dst.data());
                       }});
  bench::add(std::move(c));
}

void addFloatCases(long bytes) {
  using D = Floats<float>&;
  using DD = Floats<double>&;
  addFloatCase<float>(
      "div_32f", bytes, 2, [](D d) { moxsDiv_32f(d.b.data(), d.a.data(), d.dst.data(), d.len); },
      {{"volk", [](D d) { volk_32f_x2_divide_32f(d.dst.data(), d.a.data(), d.b.data(), d.len); }},
       {"eigen", [](D d) { d.array(d.dst) = d.array(d.a) / d.array(d.b); }},
       {"loop", [](D d) {
          loop2([](float x, float y) { return x / y; }, d.a.data(), d.b.data(), d.dst.data(),
                d.len);
        }}});
  addFloatCase<double>("div_64f", bytes, 2,
                       [](DD d) { moxsDiv_64f(d.b.data(), d.a.data(), d.dst.data(), d.len); },
                       {{"eigen", [](DD d) { d.array(d.dst) = d.array(d.a) / d.array(d.b); }},
                        {"loop", [](DD d) {
                           loop2([](double x, double y) { return x / y; }, d.a.data(), d.b.data(),
                                 d.dst.data(), d.len);
                         }}});
  addFloatCase<float>("divc_32f", bytes, 1,
                      [](D d) { moxsDivC_32f(d.a.data(), 3, d.dst.data(), d.len); },
                      {{"eigen", [](D d) { d.array(d.dst) = d.array(d.a) / 3.0f; }},
                       {"loop", [](D d) {
                          loop2([](float x, float) { return x * (1 / 3.0f); }, d.a.data(),
                                d.b.data(), d.dst.data(), d.len);
                        }}});
  addFloatCase<float>(
      "divcrev_32f", bytes, 1, [](D d) { moxsDivCRev_32f(d.a.data(), 3, d.dst.data(), d.len); },
      {{"eigen", [](D d) { d.array(d.dst) = 3.0f / d.array(d.a); }},
       {"loop", [](D d) {
          loop2([](float x, float) { return 3 / x; }, d.a.data(), d.b.data(), d.dst.data(), d.len);
        }}});
  addFloatCase<float>(
      "div_32fc", bytes, 2,
      [](D d) {
        moxsDiv_32fc(d.as<Mox32fc>(d.b), d.as<Mox32fc>(d.a), d.as<Mox32fc>(d.dst), d.half);
      },
      {{"volk",
        [](D d) {
          volk_32fc_x2_divide_32fc(d.as<lv_32fc_t>(d.dst), d.as<lv_32fc_t>(d.a),
                                   d.as<lv_32fc_t>(d.b), d.half);
        }},
       {"loop", [](D d) {
          loop2(
              [](Z x, Z y) {
                const float n = y.re * y.re + y.im * y.im;
                return Z{(x.re * y.re + x.im * y.im) / n, (x.im * y.re - x.re * y.im) / n};
              },
              d.as<Z>(d.a), d.as<Z>(d.b), d.as<Z>(d.dst), d.half);
        }}});
}

template <class T, class F>
T held(F r) {
  return T(std::clamp<F>(r, std::numeric_limits<T>::min(), std::numeric_limits<T>::max()));
}
template <class T>
T overZero(T b) {
  return b == 0 ? T(0) : b > 0 ? std::numeric_limits<T>::max() : std::numeric_limits<T>::min();
}

// The rounded quotient with a factor, as one would write it by hand: in integers, and in floats.
template <class T>
T byIntegers(T a, T b, int up, int down) {
  if (a == 0) return overZero(b);
  const std::int64_t n = std::int64_t(b) << up, d = std::int64_t(a) << down;
  std::int64_t q = n / d;
  const std::int64_t twice = 2 * std::abs(n - q * d), size = std::abs(d);
  if (twice > size || (twice == size && q % 2 != 0)) q += (n < 0) != (d < 0) ? -1 : 1;
  return T(
      std::clamp<std::int64_t>(q, std::numeric_limits<T>::min(), std::numeric_limits<T>::max()));
}
template <class F, class T>
T byFloats(T a, T b, F scale) {
  const F q = std::nearbyint(F(b) * scale / F(a));
  return a == 0 ? overZero(b) : held<T>(q);
}

template <class T>
struct Integers {
  std::vector<T> a, b, dst;
  explicit Integers(int len) : a(len), b(len), dst(len) {
    for (int i = 0; i < len; ++i) a[i] = T(i * 7919 % 200 + 1), b[i] = T(i * 104729 + 3);
  }
};

template <class T>
void addScaledCase(const char* name, MoxStatus (*pair)(const T*, const T*, T*, int, int),
                   MoxStatus (*constant)(const T*, T, T*, int, int), int factor) {
  using F = std::conditional_t<sizeof(T) == 4, double, float>;
  constexpr long bytes = 4L << 10;
  constexpr int len = int(bytes / long(sizeof(T)));
  constexpr T divisor = 37;
  auto data = std::make_shared<Integers<T>>(len);
  const int up = std::max(-factor, 0), down = std::max(factor, 0);
  const F scale = F(std::ldexp(1.0, -factor));
  const auto addCase = [&](std::string family, double arraysRead, bench::Call ours,
                           auto divisorOf) {
    const auto peer = [=](auto quotient) {
      return [=] {
        loop2([=](T a, T b) { return quotient(divisorOf(a), b); }, data->a.data(), data->b.data(),
              data->dst.data(), len);
        bench::clobber(data->dst.data());
      };
    };
    bench::add(
        {.family = family + "_" + name + " factor " + std::to_string(factor),
         .size = bytes,
         .work = {.bytesRead = arraysRead * bytes, .bytesWritten = 1.0 * bytes},
         .ours = ours,
         .peers = {{"integer loop", peer([=](T a, T b) { return byIntegers(a, b, up, down); })},
                   {"float loop", peer([=](T a, T b) { return byFloats(a, b, scale); })}}});
  };
  addCase(
      "div", 2, [=] { pair(data->a.data(), data->b.data(), data->dst.data(), len, factor); },
      [](T a) { return a; });
  if (constant)
    addCase(
        "divc", 1, [=] { constant(data->b.data(), divisor, data->dst.data(), len, factor); },
        [](T) { return divisor; });
}

void addComplexCase() {
  constexpr int len = 1024;
  auto data = std::make_shared<Integers<Mox16s>>(2 * len);
  const auto z = [](std::vector<Mox16s>& v) { return reinterpret_cast<Mox16sc*>(v.data()); };
  bench::add({.family = "div_16sc factor 0",
              .size = 4096,
              .work = {.bytesRead = 8192, .bytesWritten = 4096},
              .ours = [=] { moxsDiv_16sc_Sfs(z(data->a), z(data->b), z(data->dst), len, 0); },
              .peers = {{"float loop", [=] {
                           loop2(
                               [](Mox16sc a, Mox16sc b) {
                                 const double n = double(a.re) * a.re + double(a.im) * a.im;
                                 const auto part = [=](double sum) {
                                   return held<Mox16s>(std::nearbyint(sum / n));
                                 };
                                 return Mox16sc{part(double(b.re) * a.re + double(b.im) * a.im),
                                                part(double(b.im) * a.re - double(b.re) * a.im)};
                               },
                               z(data->a), z(data->b), z(data->dst), len);
                           bench::clobber(data->dst.data());
                         }}}});
}

void addLongCase() {
  constexpr int len = 512;
  auto data = std::make_shared<Integers<Mox64s>>(len);
  bench::add({.family = "divc_64s factor 0",
              .size = 4096,
              .work = {.bytesRead = 4096, .bytesWritten = 4096},
              .ours = [=] { moxsDivC_64s_ISfs(37, data->dst.data(), len, 0); },
              .peers = {{"integer loop", [=] {
                           std::int64_t divisor = 37;
                           asm("" : "+r"(divisor));
                           for (Mox64s& x : data->dst) x = byIntegers<Mox64s>(divisor, x, 0, 0);
                           bench::clobber(data->dst.data());
                         }}}});
}

const bool registered = [] {
  for (const long bytes : bench::arraySizes) addFloatCases(bytes);
  for (const int factor : {0, 1, -1}) {
    addScaledCase<Mox8u>("8u", moxsDiv_8u_Sfs, moxsDivC_8u_Sfs, factor);
    addScaledCase<Mox16s>("16s", moxsDiv_16s_Sfs, moxsDivC_16s_Sfs, factor);
    addScaledCase<Mox16u>("16u", moxsDiv_16u_Sfs, moxsDivC_16u_Sfs, factor);
    addScaledCase<Mox32s>("32s", moxsDiv_32s_Sfs, nullptr, factor);
  }
  addComplexCase();
  addLongCase();
  return true;
}();

}  // namespace
