// The elementary functions on floats beside SLEEF, Eigen, VOLK and what a compiler makes of a loop.
#include <moxsp.h>
#include <volk/volk.h>

// The square root that IEEE 754 defines, as all others here compute it, not an estimate refined
// once.
#define EIGEN_FAST_MATH 0
#include <Eigen/Core>
#include <cmath>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "support/compare.h"
#include "support/sleef.h"

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

template <auto function, class F>
bench::Call sleef(std::shared_ptr<Data<F>> data) {
  return [data]<class Result, class Vector>(Result (*)(Vector)) {
    return [data] {
      const F* src = data->src.data();
      F* dst = data->dst.data();
      for (std::size_t i = 0; i < data->src.size(); i += sizeof(Vector) / sizeof(F)) {
        Vector x;
        std::memcpy(&x, src + i, sizeof x);
        x = function(x);
        std::memcpy(dst + i, &x, sizeof x);
      }
      bench::clobber(dst);
    };
  }(function);
}

// Eigen's function of an array.
template <class F, class Op>
bench::Call eigen(std::shared_ptr<Data<F>> data, Op op) {
  return [=] {
    using Array = Eigen::Array<F, Eigen::Dynamic, 1>;
    const long n = long(data->src.size());
    Eigen::Map<Array>(data->dst.data(), n) = op(Eigen::Map<const Array>(data->src.data(), n));
    bench::clobber(data->dst.data());
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

const auto exponential = [](const auto& x) { return x.exp(); };
const auto logarithm = [](const auto& x) { return x.log(); };
const auto arctangent = [](const auto& x) { return x.atan(); };
const auto root = [](const auto& x) { return x.sqrt(); };

// A case of one function over the numbers of `data`.
template <auto function, class F>
void addCase(const char* family, std::shared_ptr<Data<F>> data,
             std::vector<std::pair<std::string, bench::Call>> peers) {
  const long len = long(data->src.size());
  bench::add({.family = family,
              .size = len,
              .work = passOver<F>(len),
              .ours = ours<function>(data),
              .peers = std::move(peers)});
}

// SLEEF's functions have the bound nearest to ours.
void addFloat(long len) {
  const auto argument = spread<float>(len, -80, 80), positive = spread<float>(len, 1e-3f, 1e3f),
             tangent = spread<float>(len, -8, 8);
  addCase<moxsExp_32f>(
      "exp_32f", argument,
      {{"sleef", sleef<SLEEF_32F(exp, u10)>(argument)}, {"eigen", eigen(argument, exponential)}});
  addCase<moxsLn_32f>(
      "ln_32f", positive,
      {{"sleef", sleef<SLEEF_32F(log, u35)>(positive)}, {"eigen", eigen(positive, logarithm)}});
  addCase<moxsArctan_32f>(
      "arctan_32f", tangent,
      {{"sleef", sleef<SLEEF_32F(atan, u35)>(tangent)}, {"eigen", eigen(tangent, arctangent)}});
  addCase<moxsCubrt_32f>("cubrt_32f", tangent, {{"sleef", sleef<SLEEF_32F(cbrt, u35)>(tangent)}});
}

void addDouble(long len) {
  const auto argument = spread<double>(len, -500, 500), positive = spread<double>(len, 1e-3, 1e3),
             tangent = spread<double>(len, -8, 8);
  addCase<moxsExp_64f>(
      "exp_64f", argument,
      {{"sleef", sleef<SLEEF_64F(exp, u10)>(argument)}, {"eigen", eigen(argument, exponential)}});
  addCase<moxsLn_64f>(
      "ln_64f", positive,
      {{"sleef", sleef<SLEEF_64F(log, u10)>(positive)}, {"eigen", eigen(positive, logarithm)}});
  addCase<moxsArctan_64f>("arctan_64f", tangent, {{"sleef", sleef<SLEEF_64F(atan, u10)>(tangent)}});
}

void addSqrt(long len) {
  const auto data = spread<float>(len, 0, 100);
  const auto loop = [data] {
    const float* src = data->src.data();
    float* dst = data->dst.data();
    for (std::size_t i = 0; i < data->src.size(); ++i) dst[i] = std::sqrt(src[i]);
    bench::clobber(dst);
  };
  const auto volk = [data] {
    volk_32f_sqrt_32f(data->dst.data(), data->src.data(), unsigned(data->src.size()));
  };
  addCase<moxsSqrt_32f>("sqrt_32f", data,
                        {{"volk", volk}, {"eigen", eigen(data, root)}, {"loop", loop}});
}

const bool registered = [] {
  const bench::Group group("elementary");
  addFloat(4096);
  addDouble(4096);
  for (const long len : {1024L, 65536L, 16L << 20}) addSqrt(len);
  return true;
}();

}  // namespace
