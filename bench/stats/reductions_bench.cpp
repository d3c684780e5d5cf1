// Reductions beside VOLK, Eigen, OpenBLAS and what a user would write, at -O3 for the same
// instruction set.
#include <cblas.h>
#include <moxsp.h>
#include <volk/volk.h>

#include <Eigen/Core>
#include <cmath>
#include <complex>
#include <cstdint>
#include <vector>

#include "support/vectors.h"

namespace {

using bench::Vector;

// Two vectors of `bytes` each, and a place for the result.
template <class T>
struct Data {
  explicit Data(long bytes) : len(int(bytes / long(sizeof(T)))), a(len), b(len) {
    for (int i = 0; i < len; ++i) a.data()[i] = T(i % 1000 - 500), b.data()[i] = T(i % 777 - 300);
  }
  int len;
  Vector<T> a, b;
  alignas(16) char result[16];
  template <class R = T>
  R* out() {
    return reinterpret_cast<R*>(result);
  }
  auto eigen(const Vector<T>& v) {
    return Eigen::Map<const Eigen::Array<T, Eigen::Dynamic, 1>>(v.data(), len);
  }
};

template <class T, class Term, class Sum>
[[gnu::noinline]] void plainLoop(Data<T>& d, Term term, Sum sum) {
  const T *a = d.a.data(), *b = d.b.data();
  for (int i = 0; i < d.len; ++i) sum += term(a[i], b[i]);
  *d.template out<Sum>() = sum;
}

template <class T>
using Run = void (*)(Data<T>&);

template <class T>
void addCase(const char* family, long bytes, int sources, Run<T> ours,
             std::vector<std::pair<const char*, Run<T>>> peers) {
  auto data = std::make_shared<Data<T>>(bytes);
  bench::Sides sides = {{"moxsp", [=] { ours(*data); }}};
  for (const auto& [name, run] : peers)
    sides.push_back({name, [data, run = run] {
                       run(*data);
                       bench::clobber(data->result);
                     }});
  bench::add(family, bytes, {.bytesRead = double(sources) * double(bytes)}, data, sides);
}

template <class T>
T value(T a, T) {
  return a;
}
template <class T>
T product(T a, T b) {
  return a * b;
}
template <class T>
T magnitude(T a, T) {
  return std::abs(a);
}
template <class T>
T square(T a, T) {
  return a * a;
}
double widened(float a, float) { return a; }
double widenedProduct(float a, float b) { return double(a) * b; }

void addSums(long bytes) {
  const bench::Group group("reductions-in-order");
  using F = Data<float>&;
  using D = Data<double>&;
  addCase<float>("sum_32f fast", bytes, 1, [](F d) { moxsSum_32f(d.a.data(), d.len, d.out(), 1); },
                 {{"volk", [](F d) { volk_32f_accumulator_s32f(d.out(), d.a.data(), d.len); }},
                  {"eigen", [](F d) { *d.out() = d.eigen(d.a).sum(); }},
                  {"loop", [](F d) { plainLoop(d, value<float>, 0.0f); }}});
  addCase<float>(
      "sum_32f accurate", bytes, 1, [](F d) { moxsSum_32f(d.a.data(), d.len, d.out(), 0); },
      {{"volk", [](F d) { volk_32f_accumulator_s32f(d.out(), d.a.data(), d.len); }},
       {"eigen", [](F d) { *d.out() = d.eigen(d.a).sum(); }},
       {"eigen double", [](F d) { *d.out() = float(d.eigen(d.a).cast<double>().sum()); }},
       {"loop double", [](F d) { plainLoop(d, widened, 0.0); }}});
  addCase<float>("mean_32f fast", bytes, 1,
                 [](F d) { moxsMean_32f(d.a.data(), d.len, d.out(), 1); },
                 {{"eigen", [](F d) { *d.out() = d.eigen(d.a).mean(); }},
                  {"loop", [](F d) { plainLoop(d, value<float>, 0.0f); }}});
  addCase<double>("sum_64f", bytes, 1, [](D d) { moxsSum_64f(d.a.data(), d.len, d.out()); },
                  {{"eigen", [](D d) { *d.out() = d.eigen(d.a).sum(); }},
                   {"loop", [](D d) { plainLoop(d, value<double>, 0.0); }}});
  addCase<double>("mean_64f", bytes, 1, [](D d) { moxsMean_64f(d.a.data(), d.len, d.out()); },
                  {{"eigen", [](D d) { *d.out() = d.eigen(d.a).mean(); }},
                   {"loop", [](D d) { plainLoop(d, value<double>, 0.0); }}});
}

void addDots(long bytes) {
  const bench::Group group("reductions-in-order");
  using F = Data<float>&;
  using D = Data<double>&;
  using Z = std::complex<float>;
  using C = Data<Z>&;
  addCase<float>(
      "dotprod_32f", bytes, 2, [](F d) { moxsDotProd_32f(d.a.data(), d.b.data(), d.len, d.out()); },
      {{"volk",
        [](F d) { volk_32f_x2_dot_prod_32f(d.out(), d.a.data(), d.b.data(), unsigned(d.len)); }},
       {"eigen", [](F d) { *d.out() = d.eigen(d.a).matrix().dot(d.eigen(d.b).matrix()); }},
       {"openblas", [](F d) { *d.out() = cblas_sdot(d.len, d.a.data(), 1, d.b.data(), 1); }},
       {"loop", [](F d) { plainLoop(d, product<float>, 0.0f); }}});
  addCase<float>(
      "dotprod_32f64f", bytes, 2,
      [](F d) { moxsDotProd_32f64f(d.a.data(), d.b.data(), d.len, d.out<double>()); },
      {{"eigen",
        [](F d) {
          *d.out<double>() = (d.eigen(d.a).cast<double>() * d.eigen(d.b).cast<double>()).sum();
        }},
       {"openblas",
        [](F d) { *d.out<double>() = cblas_dsdot(d.len, d.a.data(), 1, d.b.data(), 1); }},
       {"loop", [](F d) { plainLoop(d, widenedProduct, 0.0); }}});
  addCase<double>(
      "dotprod_64f", bytes, 2, [](D d) { moxsDotProd_64f(d.a.data(), d.b.data(), d.len, d.out()); },
      {{"eigen", [](D d) { *d.out() = d.eigen(d.a).matrix().dot(d.eigen(d.b).matrix()); }},
       {"openblas", [](D d) { *d.out() = cblas_ddot(d.len, d.a.data(), 1, d.b.data(), 1); }},
       {"loop", [](D d) { plainLoop(d, product<double>, 0.0); }}});
  addCase<Z>(
      "dotprod_32fc", bytes, 2,
      [](C d) {
        moxsDotProd_32fc(reinterpret_cast<Mox32fc*>(d.a.data()),
                         reinterpret_cast<Mox32fc*>(d.b.data()), d.len, d.out<Mox32fc>());
      },
      {{"volk",
        [](C d) { volk_32fc_x2_dot_prod_32fc(d.out(), d.a.data(), d.b.data(), unsigned(d.len)); }},
       {"eigen", [](C d) { *d.out() = (d.eigen(d.a) * d.eigen(d.b)).sum(); }},
       {"openblas", [](C d) { cblas_cdotu_sub(d.len, d.a.data(), 1, d.b.data(), 1, d.out()); }}});
}

void addMoments(long bytes) {
  const bench::Group group("reductions-in-order");
  using F = Data<float>&;
  const std::vector<std::pair<const char*, Run<float>>> peers = {
      {"volk",
       [](F d) {
         volk_32f_stddev_and_mean_32f_x2(d.out(), d.out() + 1, d.a.data(), unsigned(d.len));
       }},
      {"eigen", [](F d) {
         const float mean = d.eigen(d.a).mean();
         d.out()[0] = std::sqrt((d.eigen(d.a) - mean).square().sum() / float(d.len - 1));
         d.out()[1] = mean;
       }}};
  addCase<float>(
      "stddev_32f fast", bytes, 1, [](F d) { moxsStdDev_32f(d.a.data(), d.len, d.out(), 1); },
      peers);
  addCase<float>(
      "meanstddev_32f", bytes, 1,
      [](F d) { moxsMeanStdDev_32f(d.a.data(), d.len, d.out(), d.out() + 1, 0); }, peers);
}

void addExactSums(long bytes) {
  const bench::Group group("reductions");
  using S = Data<std::int16_t>&;
  addCase<std::int16_t>(
      "dotprod_16s64s", bytes, 2,
      [](S d) { moxsDotProd_16s64s(d.a.data(), d.b.data(), d.len, d.out<Mox64s>()); },
      {{"eigen",
        [](S d) {
          *d.out<std::int64_t>() =
              (d.eigen(d.a).cast<std::int64_t>() * d.eigen(d.b).cast<std::int64_t>()).sum();
        }},
       {"loop", [](S d) {
          plainLoop(
              d, [](int a, int b) { return a * b; }, std::int64_t(0));
        }}});
}

void addNorms(long bytes) {
  const bench::Group group("reductions-in-order");
  using F = Data<float>&;
  using D = Data<double>&;
  addCase<float>("norm_l1_32f", bytes, 1, [](F d) { moxsNorm_L1_32f(d.a.data(), d.len, d.out()); },
                 {{"eigen", [](F d) { *d.out() = d.eigen(d.a).abs().sum(); }},
                  {"openblas", [](F d) { *d.out() = cblas_sasum(d.len, d.a.data(), 1); }},
                  {"loop", [](F d) { plainLoop(d, magnitude<float>, 0.0f); }}});
  addCase<float>("norm_l2_32f", bytes, 1, [](F d) { moxsNorm_L2_32f(d.a.data(), d.len, d.out()); },
                 {{"eigen", [](F d) { *d.out() = d.eigen(d.a).matrix().norm(); }},
                  {"openblas", [](F d) { *d.out() = cblas_snrm2(d.len, d.a.data(), 1); }},
                  {"loop", [](F d) { plainLoop(d, square<float>, 0.0f); }}});
  addCase<double>("norm_l1_64f", bytes, 1, [](D d) { moxsNorm_L1_64f(d.a.data(), d.len, d.out()); },
                  {{"eigen", [](D d) { *d.out() = d.eigen(d.a).abs().sum(); }},
                   {"openblas", [](D d) { *d.out() = cblas_dasum(d.len, d.a.data(), 1); }},
                   {"loop", [](D d) { plainLoop(d, magnitude<double>, 0.0); }}});
  addCase<double>("norm_l2_64f", bytes, 1, [](D d) { moxsNorm_L2_64f(d.a.data(), d.len, d.out()); },
                  {{"eigen", [](D d) { *d.out() = d.eigen(d.a).matrix().norm(); }},
                   {"openblas", [](D d) { *d.out() = cblas_dnrm2(d.len, d.a.data(), 1); }},
                   {"loop", [](D d) { plainLoop(d, square<double>, 0.0); }}});
}

const bool registered = [] {
  openblas_set_num_threads(1);
  for (const long bytes : bench::arraySizes) {
    addSums(bytes), addDots(bytes), addNorms(bytes), addMoments(bytes), addExactSums(bytes);
  }
  return true;
}();

}  // namespace
