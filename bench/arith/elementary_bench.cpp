// The elementary functions on floats beside SLEEF, in its form for the same instruction set and in
// the one that has wider integers and fused operations, and beside what a compiler makes of a loop.
#include <moxsp.h>
#include <sleef.h>
#include <volk/volk.h>

// The square root that IEEE 754 defines, as all others here compute it, not an estimate refined
// once.
#define EIGEN_FAST_MATH 0
#include <Eigen/Core>
#include <cmath>
#include <memory>
#include <vector>

#include "support/compare.h"

namespace {

template <class F>
struct Data {
  std::vector<F> src, dst;
};

// Arguments spread over `from` to `to`.
template <class F>
auto spread(long len, F from, F to) {
  auto data = std::make_shared<Data<F>>(Data<F>{std::vector<F>(len), std::vector<F>(len)});
  for (long i = 0; i < len; ++i) data->src[i] = from + (to - from) * F(i * 7919 % len) / F(len);
  return data;
}

template <auto function>
bench::Call sleef(std::shared_ptr<Data<float>> data) {
  return [data] {
    const float* src = data->src.data();
    float* dst = data->dst.data();
    for (std::size_t i = 0; i < data->src.size(); i += 8)
      _mm256_storeu_ps(dst + i, function(_mm256_loadu_ps(src + i)));
    bench::clobber(dst);
  };
}
template <auto function>
bench::Call sleefDouble(std::shared_ptr<Data<double>> data) {
  return [data] {
    const double* src = data->src.data();
    double* dst = data->dst.data();
    for (std::size_t i = 0; i < data->src.size(); i += 4)
      _mm256_storeu_pd(dst + i, function(_mm256_loadu_pd(src + i)));
    bench::clobber(dst);
  };
}

template <class F>
bench::Work passOver(long len) {
  const double bytes = double(len) * sizeof(F);
  return {.bytesRead = bytes, .bytesWritten = bytes};
}

template <auto function, class F>
bench::Call ours(std::shared_ptr<Data<F>> data) {
  return [data] { function(data->src.data(), data->dst.data(), int(data->src.size())); };
}

void addFloat(long len) {
  const auto argument = spread<float>(len, -80, 80), positive = spread<float>(len, 1e-3f, 1e3f),
             tangent = spread<float>(len, -8, 8);
  bench::add({.family = "exp_32f",
              .size = len,
              .work = passOver<float>(len),
              .ours = ours<moxsExp_32f>(argument),
              .peers = {{"sleef avx", sleef<Sleef_expf8_u10avx>(argument)},
                        {"sleef avx2", sleef<Sleef_expf8_u10avx2>(argument)}}});
  bench::add({.family = "ln_32f",
              .size = len,
              .work = passOver<float>(len),
              .ours = ours<moxsLn_32f>(positive),
              .peers = {{"sleef avx", sleef<Sleef_logf8_u10avx>(positive)},
                        {"sleef avx u35", sleef<Sleef_logf8_u35avx>(positive)},
                        {"sleef avx2", sleef<Sleef_logf8_u10avx2>(positive)},
                        {"sleef avx2 u35", sleef<Sleef_logf8_u35avx2>(positive)}}});
  bench::add({.family = "arctan_32f",
              .size = len,
              .work = passOver<float>(len),
              .ours = ours<moxsArctan_32f>(tangent),
              .peers = {{"sleef avx", sleef<Sleef_atanf8_u10avx>(tangent)},
                        {"sleef avx u35", sleef<Sleef_atanf8_u35avx>(tangent)},
                        {"sleef avx2", sleef<Sleef_atanf8_u10avx2>(tangent)},
                        {"sleef avx2 u35", sleef<Sleef_atanf8_u35avx2>(tangent)}}});
  bench::add({.family = "cubrt_32f",
              .size = len,
              .work = passOver<float>(len),
              .ours = ours<moxsCubrt_32f>(tangent),
              .peers = {{"sleef avx u35", sleef<Sleef_cbrtf8_u35avx>(tangent)},
                        {"sleef avx2 u35", sleef<Sleef_cbrtf8_u35avx2>(tangent)}}});
}

void addDouble(long len) {
  const auto argument = spread<double>(len, -500, 500), positive = spread<double>(len, 1e-3, 1e3),
             tangent = spread<double>(len, -8, 8);
  bench::add({.family = "exp_64f",
              .size = len,
              .work = passOver<double>(len),
              .ours = ours<moxsExp_64f>(argument),
              .peers = {{"sleef avx", sleefDouble<Sleef_expd4_u10avx>(argument)},
                        {"sleef avx2", sleefDouble<Sleef_expd4_u10avx2>(argument)}}});
  bench::add({.family = "ln_64f",
              .size = len,
              .work = passOver<double>(len),
              .ours = ours<moxsLn_64f>(positive),
              .peers = {{"sleef avx", sleefDouble<Sleef_logd4_u10avx>(positive)},
                        {"sleef avx2", sleefDouble<Sleef_logd4_u10avx2>(positive)}}});
  bench::add({.family = "arctan_64f",
              .size = len,
              .work = passOver<double>(len),
              .ours = ours<moxsArctan_64f>(tangent),
              .peers = {{"sleef avx", sleefDouble<Sleef_atand4_u10avx>(tangent)},
                        {"sleef avx2", sleefDouble<Sleef_atand4_u10avx2>(tangent)}}});
}

void addSqrt(long len) {
  const auto data = spread<float>(len, 0, 100);
  const auto loop = [data] {
    const float* src = data->src.data();
    float* dst = data->dst.data();
    for (std::size_t i = 0; i < data->src.size(); ++i) dst[i] = std::sqrt(src[i]);
    bench::clobber(dst);
  };
  const auto eigen = [data] {
    const long n = long(data->src.size());
    Eigen::Map<Eigen::ArrayXf>(data->dst.data(), n) =
        Eigen::Map<const Eigen::ArrayXf>(data->src.data(), n).sqrt();
    bench::clobber(data->dst.data());
  };
  const auto volk = [data] {
    volk_32f_sqrt_32f(data->dst.data(), data->src.data(), unsigned(data->src.size()));
  };
  bench::add({.family = "sqrt_32f",
              .size = len,
              .work = passOver<float>(len),
              .ours = ours<moxsSqrt_32f>(data),
              .peers = {{"volk", volk}, {"eigen", eigen}, {"loop", loop}}});
}

const bool registered = [] {
  addFloat(4096);
  addDouble(4096);
  for (const long len : {1024L, 65536L, 16L << 20}) addSqrt(len);
  return true;
}();

}  // namespace
