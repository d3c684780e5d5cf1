// The transforms: y[k] = scale * sum of x[n] cos((2n + 1) k pi / 2N), and back.
#include "transforms/dct_run.h"

#include "transforms/dct_small.h"
#include "transforms/fronts.h"

namespace mox::transforms {
namespace {

template <Direction d, class F>
void runSmall(int len, const F* src, F* dst) {
  if (len == 1) return ownDctSmall<d, 1>(src, dst);
  if (len == 2) return ownDctSmall<d, 2>(src, dst);
  if (len == 4) return ownDctSmall<d, 4>(src, dst);
  ownDctSmall<d, 8>(src, dst);
}

// The sum of v[i] cos((first + i step) pi / 2N) by a table of 4N cosines; first and step are below
// 4N.
template <class F>
F cosineSum(const F* table, long len, const F* v, long count, long first, long step, long stride) {
  F sum = 0;
  for (long i = 0, at = first; i < count; ++i) {
    sum += v[i * stride] * table[at];
    if ((at += step) >= 4 * len) at -= 4 * len;
  }
  return sum;
}

// Sums of samples on either side of the centre go to even results, differences to odd ones.
template <class F>
void runDirectForward(const DctSpec<F>& spec, const F* src, F* dst, F* work) {
  const long n = spec.len, half = n / 2;
  F *const sums = work, *const differences = work + half;
  const F centre = n % 2 ? load<F>(src + half) : F(0);
  for (long i = 0; i < half; ++i) {
    const F a = load<F>(src + i), b = load<F>(src + n - 1 - i);
    sums[i] = a + b, differences[i] = a - b;
  }
  for (long k = 0; k < n; ++k) {
    F y = cosineSum(spec.table, n, k % 2 ? differences : sums, half, k, 2 * k, 1);
    if (k % 2 == 0) y += k % 4 ? -centre : centre;
    store(dst + k, y * (k ? spec.scaleK : spec.scale0));
  }
}

template <class F>
void runDirectInverse(const DctSpec<F>& spec, const F* src, F* dst, F* work) {
  const long n = spec.len;
  for (long k = 0; k < n; ++k) work[k] = load<F>(src + k) * (k ? spec.scaleK : spec.scale0);
  for (long i = 0; 2 * i < n; ++i) {
    const long angle = 2 * i + 1;
    const F even = cosineSum(spec.table, n, work, (n + 1) / 2, 0, 2 * angle, 2);
    const F odd = cosineSum(spec.table, n, work + 1, n / 2, angle, 2 * angle, 2);
    if (angle == n) {
      store(dst + i, even);
    } else {
      store(dst + i, even + odd);
      store(dst + n - 1 - i, even - odd);
    }
  }
}

// The samples 0, 2, 4 .. 5, 3, 1 have a DFT of which X[k] exp(-i pi k / 2N) has the parts y[k] and
// -y[N - k], but for scaling (Makhoul, A fast cosine transform in one and two dimensions, 1980).
template <Direction d, class F>
void runByDft(const DctSpec<F>& spec, const F* src, F* dst, F* work) {
  const long n = spec.len, half = n / 2, pairs = dctPairs(n);
  F* const data = work;  // the samples, and the spectrum in CCS layout
  auto* const dftWork = reinterpret_cast<Mox8u*>(work) + dctSpectrumBytes<F>(n);
  const F *const cosines = spec.table, *const sines = cosines + pairs;
  const auto asIs = [](auto z, long) { return z; };
  const auto reflected = [=]<class T>(Pair<T> z, long i) {
    const T c = load<T>(cosines + i), s = load<T>(sines + i);
    return Pair<T>{c * z.re + s * z.im, s * z.re - c * z.im};
  };
  if constexpr (d == Direction::forward) {
    pairsToFronts(src, data, data + n - 1, half, asIs);
    if (n % 2) data[half] = load<F>(src + n - 1);
    spec.dft.forward(data, data, dftWork);
    store(dst, data[0] * spec.scale0);
    if (n % 2 == 0) store(dst + half, data[n] * spec.scale0);
    pairsToFronts(data + 2, dst + 1, dst + n - 1, pairs, reflected);
  } else {
    data[0] = load<F>(src) * spec.scale0, data[1] = 0;
    if (n % 2 == 0) data[n] = load<F>(src + half) * spec.scale0, data[n + 1] = 0;
    frontsToPairs(src + 1, src + n - 1, data + 2, pairs, reflected);
    spec.dft.inverse(data, data, dftWork);
    if (n % 2) store(dst + n - 1, data[half]);
    frontsToPairs(data, data + n - 1, dst, half, asIs);
  }
}

}  // namespace

template <Direction d, class F>
void ownDctRun(const DctSpec<F>& spec, const F* src, F* dst, F* work) {
  switch (dctMethod(spec.len)) {
    case DctMethod::small:
      return runSmall<d>(spec.len, src, dst);
    case DctMethod::direct:
      return d == Direction::forward ? runDirectForward(spec, src, dst, work)
                                     : runDirectInverse(spec, src, dst, work);
    case DctMethod::dft:
      return runByDft<d>(spec, src, dst, work);
  }
}

#define MOX_INSTANTIATE(F)                                                          \
  template void ownDctRun<Direction::forward>(const DctSpec<F>&, const F*, F*, F*); \
  template void ownDctRun<Direction::inverse>(const DctSpec<F>&, const F*, F*, F*)
MOX_INSTANTIATE(Mox32f);
MOX_INSTANTIATE(Mox64f);

}  // namespace mox::transforms
