// The spectrum at one or two frequencies, by Goertzel's recurrence.
#include <moxsp/goertzel.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>

#include "convert/convert.h"
#include "frame/export.h"
#include "frame/pair.h"
#include "frame/widen.h"

namespace mox::transforms {
namespace {

using Turn = Pair<Mox64f>;  // exp(i w)

// Real numbers are complex ones without an imaginary part.
Turn lessTurned(Mox64f z, Turn t, Mox64f less) { return {z * t.re - less, z * t.im}; }
Turn lessTurned(Pair<Mox64f> z, Turn t, Pair<Mox64f> less) { return product(z, t) - less; }

// The sum of x[n] exp(i w (N - n)) over the N numbers so far. Z is a number, real or complex, or a
// vector of parts of numbers, each with a sum of its own.
template <class Z>
struct Recurrence {
  Z s1{}, s2{};

  [[gnu::always_inline]] void step(Z x, Mox64f twiceCosine) {
    const Z s = s1 * twiceCosine + (x - s2);
    s2 = s1, s1 = s;
  }
  Turn sum(Turn t) const { return lessTurned(s1, t, s2); }
};

template <class E>
using Number = std::conditional_t<Complex<E>, Pair<Mox64f>, Mox64f>;
template <class E>
Number<E> numberAt(const void* parts) {
  const auto* p = static_cast<const Mox64f*>(parts);
  if constexpr (Complex<E>)
    return {load<Mox64f>(p), load<Mox64f>(p + 1)};
  else
    return load<Mox64f>(p);
}

// The recurrence as it stands.
template <class E, int frequencies>
class InOrder {
 public:
  explicit InOrder(const Turn* turns) { std::copy_n(turns, frequencies, turns_); }
  void run(const E* src, long len) {
    for (long i = 0; i < len; ++i)
      for (int f = 0; f < frequencies; ++f)
        sums_[f].step(numberAt<E>(src + i), turns_[f].re + turns_[f].re);
  }
  Turn sum(int f) const { return sums_[f].sum(turns_[f]); }

 private:
  Turn turns_[frequencies];
  Recurrence<Number<E>> sums_[frequencies];
};

// Consecutive numbers go to different lanes, which see a frequency as much higher as there are
// lanes, and whose sums are joined in the end.
template <class E, int frequencies>
class InLanes {
  static constexpr long parts = partsPerElement<E>;
  static constexpr long numbers = lanesOf<Mox64f> / parts;  // in a vector
  static constexpr long vectors = 4 / frequencies;          // enough to hide latencies
  static constexpr long size = numbers * vectors;

 public:
  explicit InLanes(const Turn* turns) {
    const auto power = [](Turn t, long n) {
      for (; n > 1; n /= 2) t = product(t, t);
      return t;
    };
    for (int f = 0; f < frequencies; ++f) {
      number_[f] = turns[f];
      vector_[f] = power(turns[f], numbers);
      step_[f] = power(vector_[f], vectors);
    }
  }

  // Zeros in front make whole steps of any length.
  void run(const E* src, long len) {
    if (const long rest = len % size) {
      E first[size] = {};
      std::memcpy(first + size - rest, src, std::size_t(rest) * sizeof(E));
      step(first);
      src += rest, len -= rest;
    }
    for (long i = 0; i < len; i += size) step(src + i);
  }

  Turn sum(int f) const {
    Turn sum = {0, 0};
    for (long v = vectors - 1; v >= 0; --v) {
      Turn ofVector = {0, 0};
      for (long i = numbers - 1; i >= 0; --i) {
        const Recurrence<Number<E>> one = {number(sums_[f][v].s1, i), number(sums_[f][v].s2, i)};
        ofVector = conjugateProduct(ofVector, number_[f]) + one.sum(step_[f]);
      }
      sum = conjugateProduct(sum, vector_[f]) + ofVector;
    }
    return sum;
  }

 private:
  using Vector = V<Mox64f>;

  static Number<E> number(const Vector& v, long i) {
    return numberAt<E>(reinterpret_cast<const Mox64f*>(&v) + i * parts);
  }
  [[gnu::always_inline]] void step(const E* src) {
    for (long v = 0; v < vectors; ++v) {
      const auto x = loadWidened<Vector>(mox::parts(src + v * numbers));
      for (int f = 0; f < frequencies; ++f) sums_[f][v].step(x, 2 * step_[f].re);
    }
  }

  // From number to number, from vector to vector, from step to step.
  Turn number_[frequencies], vector_[frequencies], step_[frequencies];
  Recurrence<Vector> sums_[frequencies][vectors];
};

// The sums at `frequencies` frequencies, of good arguments.
template <int frequencies, class E, class F>
void sumsAt(const F* relFreq, const E* src, long len, Turn* sums) {
  using Engine = std::conditional_t<std::is_same_v<Part<E>, Mox64f>, InOrder<E, frequencies>,
                                    InLanes<E, frequencies>>;
  Turn turns[frequencies];
  for (int f = 0; f < frequencies; ++f) {
    const Mox64f w = 2 * std::numbers::pi * Mox64f(relFreq[f]);
    turns[f] = {std::cos(w), std::sin(w)};
  }
  Engine engine(turns);
  engine.run(src, len);
  for (int f = 0; f < frequencies; ++f) sums[f] = engine.sum(f);
}

template <class F>
bool isRelative(F frequency) {
  return frequency >= 0 && frequency < 1;
}

template <int frequencies, class E, class C, class F, class Run>
MoxStatus checked(const E* src, int len, C* dst, const F* relFreq, Run run) {
  if (MoxStatus s = checkArrays(len, src, dst, relFreq)) return s;
  F known[frequencies];
  for (int f = 0; f < frequencies; ++f) known[f] = load<F>(relFreq + f);
  if (!std::all_of(known, known + frequencies, isRelative<F>)) return moxErrRelFreq;
  run(known);
  return moxOk;
}

template <int frequencies, class E, class C, class F>
MoxStatus toFloats(const E* src, int len, C* dst, const F* relFreq) {
  return checked<frequencies>(src, len, dst, relFreq, [=](const F* known) {
    Turn sums[frequencies];
    sumsAt<frequencies>(known, src, len, sums);
    for (int f = 0; f < frequencies; ++f)
      store(dst + f, C{Part<C>(sums[f].re), Part<C>(sums[f].im)});
  });
}

template <int frequencies, class E, class C, class F>
MoxStatus toIntegers(const E* src, int len, C* dst, const F* relFreq, int scaleFactor) {
  return checked<frequencies>(src, len, dst, relFreq, [=](const F* known) {
    const HiddenExceptions scope;
    Turn sums[frequencies];
    sumsAt<frequencies>(known, src, len, sums);
    convert::convertToInteger(&sums[0].re, parts(dst), 2 * frequencies, moxRoundNearEven,
                              scaleFactor);
  });
}

template <class E, class C, class F>
MoxStatus goertz(const E* src, int len, C* dst, F relFreq) {
  return toFloats<1>(src, len, dst, &relFreq);
}
template <class E>
MoxStatus goertzScaled(const E* src, int len, Mox16sc* dst, Mox32f relFreq, int scaleFactor) {
  return toIntegers<1>(src, len, dst, &relFreq, scaleFactor);
}

Mox32f fromQ15(Mox16s f) { return Mox32f(f) * 0x1p-15f; }

MoxStatus goertzQ15(const Mox16sc* src, int len, Mox16sc* dst, Mox16s relFreqQ15, int scaleFactor) {
  if (relFreqQ15 < 0) return moxErrRelFreq;
  return goertzScaled(src, len, dst, fromQ15(relFreqQ15), scaleFactor);
}
MoxStatus goertzTwoQ15(const Mox16sc* src, int len, Mox16sc* dst, const Mox16s* relFreqQ15,
                       int scaleFactor) {
  if (anyNull(relFreqQ15)) return moxErrNullPtr;
  Mox32f relFreq[2];
  for (int f = 0; f < 2; ++f) {
    const Mox16s q15 = load<Mox16s>(relFreqQ15 + f);
    if (q15 < 0) return moxErrRelFreq;
    relFreq[f] = fromQ15(q15);
  }
  return toIntegers<2>(src, len, dst, relFreq, scaleFactor);
}

}  // namespace

MOX_EXPORT(moxsGoertz_32f, goertz);
MOX_EXPORT(moxsGoertz_32fc, goertz);
MOX_EXPORT(moxsGoertz_64f, goertz);
MOX_EXPORT(moxsGoertz_64fc, goertz);
MOX_EXPORT(moxsGoertz_16s_Sfs, goertzScaled);
MOX_EXPORT(moxsGoertz_16sc_Sfs, goertzScaled);
MOX_EXPORT(moxsGoertzQ15_16sc_Sfs, goertzQ15);
MOX_EXPORT(moxsGoertzTwo_32f, toFloats<2>);
MOX_EXPORT(moxsGoertzTwo_32fc, toFloats<2>);
MOX_EXPORT(moxsGoertzTwo_64f, toFloats<2>);
MOX_EXPORT(moxsGoertzTwo_64fc, toFloats<2>);
MOX_EXPORT(moxsGoertzTwo_16sc_Sfs, toIntegers<2>);
MOX_EXPORT(moxsGoertzTwoQ15_16sc_Sfs, goertzTwoQ15);

}  // namespace mox::transforms
