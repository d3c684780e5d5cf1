// Element-wise arithmetic of floats and complex numbers beside VOLK, Eigen, OpenBLAS and a plain
// loop at -O3.
#include <cblas.h>
#include <moxsp.h>
#include <volk/volk.h>

#include <Eigen/Core>
#include <algorithm>
#include <complex>

#include "support/vectors.h"

namespace {

// A complex number whose product does without the repair of NaN that the language's own has.
template <class F>
struct Plain {
  F re, im;
  friend Plain operator+(Plain a, Plain b) { return {a.re + b.re, a.im + b.im}; }
  friend Plain operator*(Plain a, Plain b) {
    return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
  }
};

// What the loop and Eigen call an element of ours.
template <class E>
struct Peers {
  using Loop = E;
  using Eigen = E;
  static constexpr int parts = 1;
};
template <class E>
requires requires(E z) { z.re; }
struct Peers<E> {
  using Loop = Plain<decltype(E::re)>;
  using Eigen = std::complex<decltype(E::re)>;
  static constexpr int parts = 2;
};

template <class E>
struct Arrays {
  explicit Arrays(long len) : a(len), b(len), dst(len) {
    using Part = decltype(std::real(typename Peers<E>::Eigen()));
    const auto fill = [=](bench::Vector<E>& v, Part value) {
      const auto p = reinterpret_cast<Part*>(v.data());
      std::fill(p, p + len * Peers<E>::parts, value);
    };
    fill(a, Part(1.5)), fill(b, Part(2.5)), fill(dst, 0);
  }
  bench::Vector<E> a, b, dst;
};

// dst = op(dst, a, b, constant), element by element.
template <class E, class Op>
[[gnu::noinline]] void loop(Op op, const E* __restrict a, const E* __restrict b, E* __restrict dst,
                            int len, E constant) {
  for (int i = 0; i < len; ++i) op(dst[i], a[i], b[i], constant);
}
template <class E, class Op>
[[gnu::noinline]] void eigen(Op op, const E* a, const E* b, E* dst, int len, E constant) {
  using Array = Eigen::Array<E, Eigen::Dynamic, 1>;
  const Eigen::Map<const Array, Eigen::Aligned32> x(a, len), y(b, len);
  Eigen::Map<Array, Eigen::Aligned32> result(dst, len);
  op(result, x, y, constant);
}

// The calls take (a, b, dst, len); that of a library may be nullptr, `op` serves the loop and
// Eigen.
template <class E, class Ours, class Library, class Op>
void addFamily(const std::string& family, int arraysRead, double opsPerPart, Ours ours,
               Library library, Op op, const char* peer = "volk") {
  for (const long bytes : bench::arraySizes) {
    const int len = int(bytes / long(sizeof(E)));
    const auto data = std::make_shared<Arrays<E>>(len);
    E* const a = data->a.data();
    E* const b = data->b.data();
    E* const dst = data->dst.data();
    const auto on = [=]<class T>(std::type_identity<T>, auto run) {
      return [=] {
        const auto x = reinterpret_cast<T*>(a), y = reinterpret_cast<T*>(b);
        run(op, x, y, reinterpret_cast<T*>(dst), len, x[0]);
        bench::clobber(dst);
      };
    };
    using Loop = typename Peers<E>::Loop;
    using OfEigen = typename Peers<E>::Eigen;
    bench::Sides sides = {
        {"moxsp", [=] { ours(a, b, dst, len); }},
        {"eigen", on(std::type_identity<OfEigen>(), eigen<OfEigen, Op>)},
        {"loop", on(std::type_identity<Loop>(), loop<Loop, Op>)},
    };
    if constexpr (!std::is_same_v<Library, std::nullptr_t>)
      sides.push_back({peer, [=] { library(dst, a, b, unsigned(len)); }});
    const double ops = opsPerPart * double(len * Peers<E>::parts);
    const bool isDouble = sizeof(E) / Peers<E>::parts == 8;
    bench::add(family, bytes,
               {.bytesRead = arraysRead * double(bytes),
                .bytesWritten = double(bytes),
                .floatOps = isDouble ? 0 : ops,
                .doubleOps = isDouble ? ops : 0},
               data, sides);
  }
}

const auto sum = [](auto& dst, const auto& a, const auto& b, auto) { dst = a + b; };
const auto product = [](auto& dst, const auto& a, const auto& b, auto) { dst = a * b; };
const auto timesConstant = [](auto& dst, const auto& a, const auto&, auto c) { dst = a * c; };
const auto addProduct = [](auto& dst, const auto& a, const auto& b, auto) { dst = dst + a * b; };
const auto addTimesConstant = [](auto& dst, const auto& a, const auto&, auto c) {
  dst = dst + a * c;
};

// The first element is as good a constant as any.
template <auto call>
const auto withConstant = [](auto* a, auto*, auto* dst, int len) { call(a, a[0], dst, len); };

const auto asVolk = [](Mox32fc* z) { return reinterpret_cast<lv_32fc_t*>(z); };

const bool registered = [] {
  const bench::Group group("vectors");
  openblas_set_num_threads(1);
  addFamily<float>("add_32f", 2, 1, moxsAdd_32f, volk_32f_x2_add_32f, sum);
  addFamily<float>("mul_32f", 2, 1, moxsMul_32f, volk_32f_x2_multiply_32f, product);
  addFamily<float>(
      "mulc_32f", 1, 1, withConstant<moxsMulC_32f>,
      [](float* dst, float* a, float*, unsigned len) {
        volk_32f_s32f_multiply_32f(dst, a, a[0], len);
      },
      timesConstant);
  addFamily<float>(
      "addproductc_32f", 2, 2, withConstant<moxsAddProductC_32f>,
      [](float* dst, float* a, float*, unsigned len) { cblas_saxpy(int(len), a[0], a, 1, dst, 1); },
      addTimesConstant, "openblas");
  addFamily<float>("addproduct_32f", 3, 2, moxsAddProduct_32f, nullptr, addProduct);

  addFamily<double>("add_64f", 2, 1, moxsAdd_64f, volk_64f_x2_add_64f, sum);
  addFamily<double>("mul_64f", 2, 1, moxsMul_64f, volk_64f_x2_multiply_64f, product);
  addFamily<double>("mulc_64f", 1, 1, withConstant<moxsMulC_64f>, nullptr, timesConstant);
  addFamily<double>("addproduct_64f", 3, 2, moxsAddProduct_64f, nullptr, addProduct);

  addFamily<Mox32fc>(
      "add_32fc", 2, 1, moxsAdd_32fc,
      [](Mox32fc* dst, Mox32fc* a, Mox32fc* b, unsigned len) {
        volk_32fc_x2_add_32fc(asVolk(dst), asVolk(a), asVolk(b), len);
      },
      sum);
  addFamily<Mox32fc>(
      "mul_32fc", 2, 3, moxsMul_32fc,
      [](Mox32fc* dst, Mox32fc* a, Mox32fc* b, unsigned len) {
        volk_32fc_x2_multiply_32fc(asVolk(dst), asVolk(a), asVolk(b), len);
      },
      product);
  addFamily<Mox32fc>(
      "mulc_32fc", 1, 3, withConstant<moxsMulC_32fc>,
      [](Mox32fc* dst, Mox32fc* a, Mox32fc*, unsigned len) {
        volk_32fc_s32fc_multiply_32fc(asVolk(dst), asVolk(a), *asVolk(a), len);
      },
      timesConstant);
  addFamily<Mox32fc>("addproduct_32fc", 3, 4, moxsAddProduct_32fc, nullptr, addProduct);

  addFamily<Mox64fc>("add_64fc", 2, 1, moxsAdd_64fc, nullptr, sum);
  addFamily<Mox64fc>("mul_64fc", 2, 3, moxsMul_64fc, nullptr, product);
  addFamily<Mox64fc>("mulc_64fc", 1, 3, withConstant<moxsMulC_64fc>, nullptr, timesConstant);
  addFamily<Mox64fc>("addproduct_64fc", 3, 4, moxsAddProduct_64fc, nullptr, addProduct);
  return true;
}();

}  // namespace
