// How a DFT of a given length is computed, decided by the length alone.
#pragma once

#include <moxsp/types.h>

#include <bit>
#include <utility>

namespace mox::transforms {

enum class DftMethod : Mox32s {
  tooLong,
  small,   // one butterfly
  fft,     // the power-of-two transform
  mixed,   // passes of small radices
  direct,  // sums over a table of roots, for primes
  chirp    // a convolution with a chirp
};

template <class F>
struct DftLimits {
  static constexpr int mostSmall = 16;
  static constexpr int mostPrime =
      sizeof(F) == 4 ? 50 : 90;         // of a radix, and of the direct method
  static constexpr int mostLeaf = 150;  // of a length that 4 divides
  static constexpr int most = sizeof(F) == 4 ? 0x7FFFFFF : 0x3FFFFFF;
  static constexpr int mostChirp = most / 2;
};

// A length as a product: the radices of the levels from the outermost on, and the leaf.
struct DftFactors {
  int levels = 0;  // 0: there is no such product
  int radix[20] = {};
  int leaf = 1;

  constexpr void add(int r) { radix[levels++] = r; }
};

// A product with leaf 16, 8, 6, 4 or 2 where the length is even, and prime levels.
template <class F>
constexpr DftFactors dftFactors(int len) {
  DftFactors f;
  int rest = len;
  for (; rest % 4 == 0; rest /= 4) f.add(4);
  if (rest % 2 == 0) {
    f.add(4);
    f.radix[0] = 2;
    rest /= 2;
  }
  const bool hasFour = f.levels > 1;
  for (int p = 3; p * p <= rest;) {
    if (rest % p) {
      if ((p += 2) > DftLimits<F>::mostPrime) return {};
      continue;
    }
    rest /= p;
    if (p == 3 && f.radix[0] == 2 && !hasFour)
      f.radix[0] = 6;
    else
      f.add(p);
  }
  const int most = len % 4 ? DftLimits<F>::mostPrime : DftLimits<F>::mostLeaf;
  if (f.levels == 0 || rest > most) return {};
  f.leaf = rest;
  if (hasFour) {
    f.radix[0] *= 4;
    --f.levels;
    for (int i = 1; i < f.levels; ++i) f.radix[i] = f.radix[i + 1];
  }
  if (f.radix[0] % 2 == 0) std::swap(f.radix[0], f.leaf);
  return f;
}

// The length of the convolution that computes a chirp transform: one that is fast itself.
constexpr int dftConvLength(int len) {
  constexpr int lengths[] = {128,  144,  160,  192,  200,  256,  288,  320,  384,  400,  512,
                             576,  640,  768,  800,  1024, 1152, 1280, 1536, 1600, 2048, 2304,
                             2560, 3072, 3200, 4096, 4608, 5120, 6144, 6400, 8192};
  const int least = 2 * len - 1;
  for (int length : lengths)
    if (length >= least) return length;
  return int(std::bit_ceil(unsigned(least)));
}

struct DftAnalysis {
  DftMethod method;
  int core;  // length of the complex transform that the method computes
};

// A real transform of even length is a complex one of half the length over pairs of samples.
template <class F>
constexpr DftAnalysis analyseDft(int len, bool isReal) {
  if (len <= DftLimits<F>::mostSmall) return {DftMethod::small, len};
  if (std::has_single_bit(unsigned(len))) return {DftMethod::fft, len};
  if (len > DftLimits<F>::most) return {DftMethod::tooLong, len};
  const int core = isReal && len % 2 == 0 ? len / 2 : len;
  if (core <= DftLimits<F>::mostSmall) return {DftMethod::small, core};
  if (dftFactors<F>(core).levels > 0) return {DftMethod::mixed, core};
  if (core <= DftLimits<F>::mostPrime) return {DftMethod::direct, core};
  return {core <= DftLimits<F>::mostChirp ? DftMethod::chirp : DftMethod::tooLong, core};
}

}  // namespace mox::transforms
