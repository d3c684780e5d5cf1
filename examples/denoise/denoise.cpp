#include "denoise.h"

#include <moxsp.h>

#include <cmath>

#include "support/require.h"

namespace {

// The standard deviation of the noise: half of its magnitudes are below 0.6745 of it, and few
// elements are more than noise.
double noiseOf(const Band& band) {
  Band magnitudes(band.size());
  const int len = int(band.size());
  require(moxsAbs_32f(band.data(), magnitudes.data(), len), "moxsAbs_32f");
  require(moxsSortAscend_32f_I(magnitudes.data(), len), "moxsSortAscend_32f_I");
  return magnitudes[len / 2] / 0.6745;
}

// Brings every element nearer to 0 by `threshold`.
void shrink(Band& band, float threshold) {
  Band held(band.size());
  const int len = int(band.size());
  require(moxsThreshold_LTValGTVal_32f(band.data(), held.data(), len, -threshold, -threshold,
                                       threshold, threshold),
          "moxsThreshold_LTValGTVal_32f");
  require(moxsSub_32f_I(held.data(), band.data(), len), "moxsSub_32f_I");
}

}  // namespace

Band denoised(const Band& signal, const Denoising& how) {
  // The mean over all shifts has fewer edges than one of them; a few come near to it.
  constexpr int shifts = 8;
  Band sum(signal.size());
  for (int shift = 0; shift < shifts; ++shift) {
    Band shifted(signal.size() + shift);
    std::copy(signal.begin(), signal.end(), shifted.begin() + shift);
    Decomposition bands = decompose(shifted, how.levels);
    for (Band& band : bands.details) shrink(band, float(how.strength * noiseOf(band)));
    const Band result = compose(bands);
    require(moxsAdd_32f_I(result.data() + shift, sum.data(), int(sum.size())), "moxsAdd_32f_I");
  }
  require(moxsMulC_32f_I(1.0f / shifts, sum.data(), int(sum.size())), "moxsMulC_32f_I");
  return sum;
}
