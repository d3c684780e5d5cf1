// Norms of floating vectors, and of the differences of two.
#include <moxsp/reductions.h>

#include <cmath>

#include "frame/export.h"
#include "stats/terms.h"

namespace mox::stats {
namespace {

enum class Norm { Inf, L1, L2 };

// Two accumulators of 16 bytes.
template <class F>
constexpr Order realNorm = {.lanes = 32 / sizeof(F), .tail = Tail::halves};

// One accumulator of 16 bytes, for terms that each stand for a complex number; of floats the sum
// is a double at the end.
template <class F>
constexpr Order complexNorm = {.lanes = 16 / sizeof(F), .tail = Tail::single};
constexpr Order complexL1 = {.lanes = 4, .tail = Tail::single, .widenAt = 4};
// Squares of parts, each for itself.
constexpr Order complexL2 = {.lanes = 8, .tail = Tail::pairs, .widenAt = 4};

constexpr long peelAlignment = 16;

template <class T>
T magnitude(T x) {
  if constexpr (std::is_arithmetic_v<T>)
    return std::fabs(x);
  else
    return absolute(x);
}

template <Norm kind, class E, class... Second>
E normOf(long len, const E* src, const Second*... second) {
  const auto numbers = numbersOf(src, second...);
  const auto terms = [numbers]<class T>(std::type_identity<T> type, long i) {
    const T x = numbers(type, i);
    return std::array{kind == Norm::L2 ? x * x : magnitude(x)};
  };
  using Combine = std::conditional_t<kind == Norm::Inf, Max, Plus>;
  const long peel = peelCount<peelAlignment>(src);
  const E folded =
      fold<realNorm<E>, E, 1, Combine>(ofSources(terms, src, second...), len, peel).of[0][0];
  return kind == Norm::L2 ? squareRoot(folded) : folded;
}

// re * re + im * im
template <class Numbers>
auto squaredMagnitudes(const Numbers& numbers) {
  return [numbers]<class T>(std::type_identity<T> type, long i) {
    if constexpr (std::is_arithmetic_v<T>) {
      const T re = numbers(type, 2 * i), im = numbers(type, 2 * i + 1);
      return re * re + im * im;
    } else {
      const T a = numbers(type, 2 * i), b = numbers(type, 2 * i + laneCount<T>);
      const T aa = a * a, bb = b * b;
      return shuffle<[](int j) { return 2 * j; }>(aa, bb) +
             shuffle<[](int j) { return 2 * j + 1; }>(aa, bb);
    }
  };
}

// The square root of four numbers, of which floats make do with the processor's estimate and one
// step of Newton's iteration, unless there is a zero among them.
template <class T>
[[gnu::always_inline]] inline T quickRoot(T squared) {
  if constexpr (std::is_same_v<T, V<Mox32f, 4>>) {
    if (anyLane(V<Mox32s, 4>(squared) == 0)) return squareRoot(squared);
    const T estimate = reciprocalRootEstimate(squared);
    const T root = squared * estimate, one = root * estimate;
    return 0.5f * (3.0f - one) * root;
  } else {
    return squareRoot(squared);
  }
}

template <Norm kind, Complex E, class... Second>
auto normOf(long len, const E* src, const Second*... second) {
  using F = Part<E>;
  const long peel = peelCount<peelAlignment>(src);
  const auto numbers = numbersOf(src, second...);
  if constexpr (kind == Norm::L2 && sizeof(F) == 4) {
    const auto squares = [numbers]<class T>(std::type_identity<T> type, long i) {
      const T x = numbers(type, i);
      return std::array{x * x};
    };
    const auto sums =
        fold<complexL2, F, 2>(ofSources(squares, parts(src), parts(second)...), 2 * len, 2 * peel);
    return squareRoot(sums.of[0][0] + sums.of[0][1]);
  } else {
    const auto terms = [squared = squaredMagnitudes(numbers)]<class T>(std::type_identity<T> type,
                                                                       long i) {
      return std::array{kind == Norm::L1 ? quickRoot(squared(type, i)) : squared(type, i)};
    };
    constexpr Order order = kind == Norm::L1 && sizeof(F) == 4 ? complexL1 : complexNorm<F>;
    using Combine = std::conditional_t<kind == Norm::Inf, Max, Plus>;
    const auto folded =
        fold<order, F, 1, Combine>(ofSources(terms, src, second...), len, peel).of[0][0];
    return kind == Norm::L1 ? folded : squareRoot(folded);
  }
}

template <Norm kind, class E, class D>
MoxStatus norm(const E* src, int len, D* result) {
  if (MoxStatus s = checkArrays(len, src, result)) return s;
  store(result, D(normOf<kind>(len, src)));
  return moxOk;
}

template <Norm kind, class E, class D>
MoxStatus normDiff(const E* src1, const E* src2, int len, D* result) {
  if (MoxStatus s = checkArrays(len, src1, src2, result)) return s;
  store(result, D(normOf<kind>(len, src1, src2)));
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsNorm_Inf_32f, norm<Norm::Inf>);
MOX_EXPORT(moxsNorm_Inf_64f, norm<Norm::Inf>);
MOX_EXPORT(moxsNorm_Inf_32fc32f, norm<Norm::Inf>);
MOX_EXPORT(moxsNorm_Inf_64fc64f, norm<Norm::Inf>);
MOX_EXPORT(moxsNorm_L1_32f, norm<Norm::L1>);
MOX_EXPORT(moxsNorm_L1_64f, norm<Norm::L1>);
MOX_EXPORT(moxsNorm_L1_32fc64f, norm<Norm::L1>);
MOX_EXPORT(moxsNorm_L1_64fc64f, norm<Norm::L1>);
MOX_EXPORT(moxsNorm_L2_32f, norm<Norm::L2>);
MOX_EXPORT(moxsNorm_L2_64f, norm<Norm::L2>);
MOX_EXPORT(moxsNorm_L2_32fc64f, norm<Norm::L2>);
MOX_EXPORT(moxsNorm_L2_64fc64f, norm<Norm::L2>);

MOX_EXPORT(moxsNormDiff_Inf_32f, normDiff<Norm::Inf>);
MOX_EXPORT(moxsNormDiff_Inf_64f, normDiff<Norm::Inf>);
MOX_EXPORT(moxsNormDiff_Inf_32fc32f, normDiff<Norm::Inf>);
MOX_EXPORT(moxsNormDiff_Inf_64fc64f, normDiff<Norm::Inf>);
MOX_EXPORT(moxsNormDiff_L1_32f, normDiff<Norm::L1>);
MOX_EXPORT(moxsNormDiff_L1_64f, normDiff<Norm::L1>);
MOX_EXPORT(moxsNormDiff_L1_32fc64f, normDiff<Norm::L1>);
MOX_EXPORT(moxsNormDiff_L1_64fc64f, normDiff<Norm::L1>);
MOX_EXPORT(moxsNormDiff_L2_32f, normDiff<Norm::L2>);
MOX_EXPORT(moxsNormDiff_L2_64f, normDiff<Norm::L2>);
MOX_EXPORT(moxsNormDiff_L2_32fc64f, normDiff<Norm::L2>);
MOX_EXPORT(moxsNormDiff_L2_64fc64f, normDiff<Norm::L2>);

}  // namespace mox::stats
