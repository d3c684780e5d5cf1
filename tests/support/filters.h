// What tests of all filters share.
#pragma once

#include <complex>
#include <memory>

#include "frame/elements.h"
#include "support/guarded_array.h"
#include "support/test.h"

namespace test {

// Functions of floats with the signature of the scaled ones, so that tests are written once.
template <auto f>
struct WithoutScale;
template <class... P, MoxStatus (*f)(P...)>
struct WithoutScale<f> {
  static MoxStatus call(P... p, int) { return f(p...); }
};

// A state that its family's function releases.
template <class State>
struct Release {
  MoxStatus (*free)(State*);
  void operator()(State* s) const { free(s); }
};
template <class State>
using Handle = std::unique_ptr<State, Release<State>>;

using Exact = std::complex<long double>;
template <class E>
Exact exactly(E e) {
  if constexpr (mox::Complex<E>)
    return Exact(e.re, e.im);
  else
    return Exact(e);
}

// A sum, the sum of the magnitudes of its terms, and how many it has.
struct Sum {
  Exact value = 0;
  long double magnitude = 0;
  long terms = 0;

  void add(Exact x, Exact y) {
    value +=
        Exact(x.real() * y.real() - x.imag() * y.imag(), x.real() * y.imag() + x.imag() * y.real());
    magnitude += std::sqrt(std::norm(x) * std::norm(y)), ++terms;
  }
};

template <class E>
E one() {
  E e{};
  *mox::parts(&e) = 1;
  return e;
}
inline Exact eachPart(Exact z, auto f) { return Exact(f(z.real()), f(z.imag())); }

// Within the range of integers D.
template <class D>
Exact inRange(Exact value) {
  using L = std::numeric_limits<mox::Part<D>>;
  if constexpr (!L::is_integer) return value;
  return eachPart(value, [](auto v) { return std::clamp<long double>(v, L::min(), L::max()); });
}

enum class Way { block, inPlace, singly };
struct Piece {
  Way way;
  int len;
  long at = 0;
};

// Pieces of all ways and of at most `longest`.
inline std::vector<Piece> cut(Random& random, int len, int longest) {
  std::vector<Piece> pieces;
  for (long at = 0; at < len; at += pieces.back().len)
    pieces.push_back(
        {Way(random.below(3)), int(std::min<long>(len - at, 1 + random.below(longest))), at});
  return pieces;
}

// Results of a piece, by arrays that end at inaccessible pages.
template <class F, class D>
void run(auto* state, const Piece& piece, const D* src, long inputs, std::vector<D>& got,
         int scale) {
  const bool inPlace = piece.way == Way::inPlace;
  const long outputs = long(got.size());
  const GuardedArray<D> in(inPlace ? std::max(inputs, outputs) : inputs), out(outputs);
  std::copy_n(src, inputs, in.begin());
  if (piece.way == Way::singly)
    for (int i = 0; i < piece.len; ++i) ASSERT_OK(F::one(in[i], &out[i], state, scale));
  else if (inPlace && piece.len % 2)
    ASSERT_OK(F::inPlace(in.data(), piece.len, state, scale));
  else
    ASSERT_OK(F::run(in.data(), inPlace ? in.data() : out.data(), piece.len, state, scale));
  std::copy_n(inPlace ? in.begin() : out.begin(), outputs, got.begin());
}

// A filter that changes nothing gives its samples under all kinds of factors, to nearest with ties
// to even and saturated.
template <class F>
void expectScaledOutputs(auto* state) {
  using D = typename F::Data;
  auto x = Random(4).vector<D>(200);
  for (long i = 0; i < 100; ++i) mox::parts(x.data())[i] %= 100;
  for (const int scale : {INT_MIN, -40, -9, -1, 0, 1, 2, 5, 40, INT_MAX})
    for (const Way way : {Way::block, Way::singly}) {
      std::vector<D> y(x.size());
      run<F>(state, {way, int(x.size())}, x.data(), long(x.size()), y, scale);
      for (std::size_t i = 0; i < x.size(); ++i) {
        const Exact scaled = eachPart(exactly(x[i]), [=](long double v) {
          return std::nearbyint(std::ldexp(v, -std::clamp(scale, -100, 100)));
        });
        ASSERT_EQ(exactly(y[i]), inRange<D>(scaled)) << "output " << i << ", factor " << scale;
      }
    }
}

}  // namespace test
