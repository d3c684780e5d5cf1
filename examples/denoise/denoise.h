#pragma once

#include "wavelet.h"

struct Denoising {
  int levels = 6;
  double strength = 1.5;  // 0 leaves everything
};

// Takes noise out of a signal: in each octave what is not above the noise goes, and what is above
// comes down by as much (D. Donoho, De-noising by soft-thresholding, IEEE Trans. Information Theory
// 41 (1995), 613-627).
Band denoised(const Band& signal, const Denoising& how);
