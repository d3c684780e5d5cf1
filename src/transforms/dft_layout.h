// Where the tables of a DFT lie, and how much memory its set-up and its runs need.
#pragma once

#include "transforms/dft_mixed.h"
#include "transforms/fft_object.h"

namespace mox::transforms {

// The power-of-two transform inside, real or complex.
template <class F, bool isReal>
using DftFft = std::conditional_t<isReal, RealKind<F>,
                                  ComplexKind<F, sizeof(F) == 4 ? fftComplex32fc : fftComplex64fc>>;
template <class F, class Visit>
constexpr auto withFft(bool isReal, Visit visit) {
  return isReal ? visit(DftFft<F, true>()) : visit(DftFft<F, false>());
}
constexpr int orderOf(int len) { return std::bit_width(unsigned(len)) - 1; }

namespace detail {

template <class F>
PrimeTable<F>* placePrimeTable(Arena& arena, int p) {
  auto* const table = arena.place<PrimeTable<F>>(1, fftAlignment);
  PrimeTable<F> measured;
  auto& [half, power, cosines, sines] = table ? *table : measured;
  half = p / 2;
  power = arena.place<int>(std::size_t(half));
  cosines = placeTable<F>(arena, PrimeTable<F>::roots(p));
  sines = placeTable<F>(arena, PrimeTable<F>::roots(p));
  return table;
}

template <class F>
void placePasses(Arena& arena, DftSpec<F>& plan, bool realOdd) {
  constexpr long numbers = lanesOf<F> / 2;
  const DftRadices radices = dftRadices(dftFactors<F>(plan.core), numbers, realOdd);
  plan.passes = radices.count;
  plan.realOdd = realOdd && halvesRows(radices, plan.core, numbers);
  int rows = 1, before = 0;
  for (int i = 0; i < radices.count; ++i) {
    DftPass<F>& pass = plan.pass[i];
    const int radix = radices.radix[i];
    pass = {radix, rows, plan.core / (rows * radix), nullptr, nullptr};
    rows *= radix;
    const bool last = i + 1 == radices.count;
    pass.twiddle = placeTable<F>(arena, last ? lastTwiddles(pass) : columnTwiddles(pass));
    if (hasButterfly(radix)) continue;
    pass.prime = radix == before ? plan.pass[i - 1].prime : placePrimeTable<F>(arena, radix);
    before = radix;
  }
}

}  // namespace detail

// Bytes for a DFT; `work` is what a run needs at a multiple of 64.
struct DftSizes {
  long spec, init, work;
};

template <class F>
struct DftShape {
  int len;
  bool isReal;
  DftAnalysis analysis = analyseDft<F>(len, isReal);

  bool isHalved() const { return isReal && len > DftLimits<F>::mostSmall && len % 2 == 0; }

  void layout(Arena& arena, DftSpec<F>& plan) const {
    plan.len = len;
    plan.method = analysis.method;
    plan.core = analysis.core;
    if (plan.method == DftMethod::fft) {
      withFft<F>(isReal, [&]<class Kind>(Kind) {
        Mox8u* const block =
            arena.place<Mox8u>(std::size_t(specFigure<Kind>(orderOf(len))), fftAlignment);
        if (block) plan.fft = &placeObject<Kind>(block, {orderOf(len)});
      });
      return;
    }
    if (isHalved()) {
      plan.realFwdTwiddle = detail::placeTable<F>(arena, 2 * realPairs());
      plan.realInvTwiddle = detail::placeTable<F>(arena, 2 * realPairs());
    }
    if (plan.method == DftMethod::mixed) detail::placePasses(arena, plan, isReal && len % 2);
    if (plan.method == DftMethod::direct)
      plan.direct = detail::placePrimeTable<F>(arena, plan.core);
    if (plan.method == DftMethod::chirp) {
      plan.convLen = dftConvLength(plan.core);
      plan.chirp = detail::placeTable<F>(arena, 2L * plan.core);
      plan.filterSpectrum = detail::placeTable<F>(arena, 2L * plan.convLen);
      plan.conv = placeRecord<DftSpec<F>>(arena, DftShape{plan.convLen, false});
    }
  }

  MoxStatus status() const {
    if (analysis.method == DftMethod::tooLong) return moxErrSize;
    if (analysis.method == DftMethod::fft)
      return withFft<F>(isReal, [this]<class Kind>(Kind) {
        return orderIsGood<Kind>(orderOf(len)) ? moxOk : MoxStatus(moxErrFftOrder);
      });
    const DftSizes bytes = sizes();
    return std::max({bytes.spec, bytes.init, bytes.work + fftAlignment}) <= INT_MAX
               ? moxOk
               : MoxStatus(moxErrSize);
  }

  // Pairs X[k], X[len/2 - k] of a real transform have k = 1 to len/4.
  long realPairs() const { return (len + 3L) / 4; }

  // Roots of unity that the tables are made of.
  long roots() const {
    return analysis.method == DftMethod::chirp ? 2L * analysis.core
           : isHalved()                        ? len
                                               : analysis.core;
  }

  DftSizes sizes() const {
    Arena parts;
    DftSpec<F> plan{};
    layout(parts, plan);
    const long spec = dftRecordFigure<F> + wholeLines(long(parts.used())) + fftAlignment;
    if (plan.method == DftMethod::fft)
      return withFft<F>(isReal, [&]<class Kind>(Kind) -> DftSizes {
        const int order = orderOf(len);
        if (order <= Kind::maxSmallOrder) return {spec, 0, 0};
        return {spec, fftInitSize<F>(order), Kind::workBytes(order)};
      });
    const long init = len > DftLimits<F>::mostSmall
                          ? wholeLines(2 * long(sizeof(F)) * roots()) + fftAlignment
                          : 0;
    switch (plan.method) {
      case DftMethod::mixed:
        return {spec, init,
                mixedWorkBytes(plan) + (isReal && !isHalved() ? 2 * long(sizeof(F)) * len : 0)};
      case DftMethod::direct:
        return {spec, init, (isReal && !isHalved() ? 1 : 2) * long(sizeof(F)) * plan.core + 64};
      case DftMethod::chirp: {
        const DftSizes conv = DftShape{plan.convLen, false}.sizes();
        return {spec, std::max({init, conv.init, conv.work + fftAlignment}),
                conv.work + 2 * long(sizeof(F)) * plan.convLen + 64};
      }
      default:
        return {spec, init, 0};
    }
  }
};

}  // namespace mox::transforms
