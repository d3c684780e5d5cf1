// What a user would build of FFTW to filter, to convolve and to correlate.
#pragma once

#include <fftw3.h>
#include <moxsp.h>

#include <algorithm>
#include <vector>

namespace bench {

// Overlap-save with transforms of `size` points, planned by measurement.
class FftwFilter {
 public:
  FftwFilter(const float* taps, int tapsLen, int size)
      : tapsLen_(tapsLen),
        size_(size),
        time_(fftwf_alloc_real(size)),
        spectrum_(fftwf_alloc_complex(size / 2 + 1)),
        response_(size / 2 + 1),
        forward_(fftwf_plan_dft_r2c_1d(size, time_, spectrum_, FFTW_MEASURE)),
        inverse_(fftwf_plan_dft_c2r_1d(size, spectrum_, time_, FFTW_MEASURE)) {
    setTaps(taps);
  }
  ~FftwFilter() {
    fftwf_destroy_plan(forward_);
    fftwf_destroy_plan(inverse_);
    fftwf_free(time_);
    fftwf_free(spectrum_);
  }
  FftwFilter(const FftwFilter&) = delete;
  FftwFilter& operator=(const FftwFilter&) = delete;

  void setTaps(const float* taps) {
    for (int k = 0; k < tapsLen_; ++k) time_[k] = taps[k] / float(size_);
    std::fill(time_ + tapsLen_, time_ + size_, 0.0f);
    fftwf_execute(forward_);
    for (int k = 0; k <= size_ / 2; ++k) response_[k] = {spectrum_[k][0], spectrum_[k][1]};
  }

  // x has tapsLen - 1 samples before it.
  void run(const float* x, float* y, int len) {
    const int outputs = size_ - tapsLen_ + 1;
    for (int i = 0; i < len; i += outputs) {
      const int count = std::min(outputs, len - i), samples = count + tapsLen_ - 1;
      std::copy_n(x + i - tapsLen_ + 1, samples, time_);
      std::fill(time_ + samples, time_ + size_, 0.0f);
      fftwf_execute(forward_);
      for (int k = 0; k <= size_ / 2; ++k) {
        const float re = spectrum_[k][0], im = spectrum_[k][1];
        spectrum_[k][0] = re * response_[k].re - im * response_[k].im;
        spectrum_[k][1] = re * response_[k].im + im * response_[k].re;
      }
      fftwf_execute(inverse_);
      std::copy_n(time_ + tapsLen_ - 1, count, y + i);
    }
  }

  // The autocorrelation of `len` samples, which leave room for `lags` zeros behind them.
  void correlate(const float* x, int len, float* y, int lags) {
    std::copy_n(x, len, time_);
    std::fill(time_ + len, time_ + size_, 0.0f);
    fftwf_execute(forward_);
    for (int k = 0; k <= size_ / 2; ++k) {
      const float re = spectrum_[k][0], im = spectrum_[k][1];
      spectrum_[k][0] = re * re + im * im;
      spectrum_[k][1] = 0;
    }
    fftwf_execute(inverse_);
    for (int i = 0; i < lags; ++i) y[i] = time_[i] / float(size_);
  }

 private:
  int tapsLen_, size_;
  float* time_;
  fftwf_complex* spectrum_;
  std::vector<Mox32fc> response_;
  fftwf_plan forward_, inverse_;
};

}  // namespace bench
