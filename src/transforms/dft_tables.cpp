// Tables are the same in every rounding mode of the caller.
#include "transforms/dft_tables.h"

#include "frame/rounding_control.h"
#include "transforms/dft_roots.h"
#include "transforms/dft_run.h"

namespace mox::transforms {
namespace {

template <class F>
F* put(F* table, Twiddle<F> w) {
  table[0] = w.re;
  table[1] = w.im;
  return table + 2;
}

// In the order in which the passes read them.
template <class F>
void writePassTwiddles(const DftPass<F>& pass, bool realOdd, const Roots<F>& roots) {
  const long length = long(pass.radix) * pass.rows;
  F* table = pass.twiddle;
  if (pass.columns > 1) {
    for (long k = 1; k < pass.rows; ++k)
      for (long j = 1; j < pass.radix; ++j) table = put(table, roots.of(j * k, length));
    return;
  }
  forVectors<F>(realOdd ? pass.rows / 2 + 1 : pass.rows, [&](long k) {
    for (long j = 1; j < pass.radix; ++j)
      for (long i = 0; i < lanesOf<F> / 2; ++i) table = put(table, roots.of(j * (k + i), length));
  });
}

int powerMod(long base, int exponent, int p) {
  long power = 1;
  for (; exponent > 0; --exponent) power = power * base % p;
  return int(power);
}
// No power of a generator of the residues comes to 1 before the last.
int generatorOf(int p) {
  for (int g = 2;; ++g) {
    int order = 1;
    for (long power = g; power != 1; power = power * g % p) ++order;
    if (order == p - 1) return g;
  }
}

template <class F>
void writePrimeTable(const PrimeTable<F>& table, const Roots<F>& roots) {
  const int p = table.prime(), g = generatorOf(p);
  for (int i = 0; i < table.half; ++i) table.power[i] = powerMod(g, i, p);
  for (int i = 0, power = 1; i < PrimeTable<F>::roots(p); ++i, power = power * g % p) {
    const Twiddle<F> w = roots.of(power, p);
    table.cosines[i] = w.re;
    table.sines[i] = -w.im;
  }
}

// For k from 1 on: (cos / 2, 1/2 - sin / 2) of 2 pi k / len, and exp(-2 pi i k / len).
template <class F>
void writeRealTwiddles(const DftSpec<F>& plan, long pairs, const Roots<F>& roots) {
  F *forward = plan.realFwdTwiddle, *inverse = plan.realInvTwiddle;
  for (long k = 1; k <= pairs; ++k) {
    const Twiddle<F> w = roots.of(k, plan.len);
    forward = put(forward, {F(0.5) * w.re, F(0.5 + 0.5 * Mox64f(w.im))});
    inverse = put(inverse, w);
  }
}

// chirp[k] = exp(-pi i k^2 / n), and the spectrum of its conjugate, wrapped around.
template <class F>
void writeChirp(const DftSpec<F>& plan, const Roots<F>& roots) {
  const long n = plan.core, length = plan.convLen;
  F* const filter = plan.filterSpectrum;
  std::fill(filter, filter + 2 * length, F(0));
  for (long k = 0, square = 0; k < n; square = (square + 2 * k + 1) % (2 * n), ++k) {
    const Twiddle<F> w = roots.of(square, 2 * n), conjugate = {w.re, -w.im};
    put(plan.chirp + 2 * k, w);
    put(filter + 2 * k, conjugate);
    if (k > 0) put(filter + 2 * (length - k), conjugate);
  }
}

template <class F>
void finishChirp(const DftSpec<F>& plan, Mox8u* initBuf) {
  using C = ComplexOf<F>;
  fillDft(*plan.conv, false, 8, 0, initBuf);
  const Array<C> filter = {reinterpret_cast<C*>(plan.filterSpectrum)};
  ownDftRun<Direction::forward, Array<C>>(*plan.conv, {filter.p}, filter,
                                          reinterpret_cast<F*>(alignUp(initBuf, fftAlignment)));
  scale(filter, F(1) / F(plan.convLen), plan.convLen);
}

}  // namespace

template <class F>
void fillDft(DftSpec<F>& plan, bool isReal, int flag, int hint, Mox8u* initBuf) {
  const RoundingScope toNearest(Rounding::nearEven);
  const DftShape<F> shape{plan.len, isReal};
  const FftNorm norm = fftNorm(flag);
  plan.hint = hint;
  plan.fwdNorm = norm.fwd;
  plan.invNorm = norm.inv;
  plan.normFactor = fftNormFactor<F>(flag, plan.len);
  plan.bufSize = Mox32s(shape.sizes().work);
  if (plan.method == DftMethod::fft) {
    withFft<F>(isReal, [&]<class Kind>(Kind) {
      fillSpec<Kind>(*plan.fft, orderOf(plan.len), flag, hint, initBuf);
    });
    return;
  }
  if (plan.len <= DftLimits<F>::mostSmall) return;
  const Roots<F> roots(reinterpret_cast<Twiddle<F>*>(alignUp(initBuf, fftAlignment)),
                       shape.roots());
  if (shape.isHalved()) writeRealTwiddles(plan, shape.realPairs(), roots);
  if (plan.method == DftMethod::direct) writePrimeTable(*plan.direct, roots);
  if (plan.method == DftMethod::mixed)
    for (int i = 0; i < plan.passes; ++i) {
      writePassTwiddles(plan.pass[i], plan.realOdd, roots);
      if (plan.pass[i].prime) writePrimeTable(*plan.pass[i].prime, roots);
    }
  if (plan.method == DftMethod::chirp) {
    writeChirp(plan, roots);
    finishChirp(plan, initBuf);
  }
}

template void fillDft(DftSpec<Mox32f>&, bool, int, int, Mox8u*);
template void fillDft(DftSpec<Mox64f>&, bool, int, int, Mox8u*);

}  // namespace mox::transforms
