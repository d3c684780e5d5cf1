// Analytic signals beside FFTW's transforms, planned by measurement: to a half spectrum, whose
// positive frequencies are doubled, and back.
#include <fftw3.h>
#include <moxsp.h>

#include <algorithm>
#include <cmath>
#include <memory>

#include "support/compare.h"

namespace {

class Data {
 public:
  explicit Data(int n) : n_(n) {
    moxsHilbertInitAlloc_32f32fc(&spec_, n, 0);
    auto* const z = reinterpret_cast<fftwf_complex*>(dst_);
    forward_ = fftwf_plan_dft_r2c_1d(n, src_, z, FFTW_MEASURE);
    backward_ = fftwf_plan_dft_1d(n, z, z, FFTW_BACKWARD, FFTW_MEASURE);
    for (int i = 0; i < n; ++i) src_[i] = std::sin(0.1f * float(i));
  }
  ~Data() {
    fftwf_destroy_plan(forward_);
    fftwf_destroy_plan(backward_);
    moxsHilbertFree_32f32fc(spec_);
    moxsFree(src_);
    moxsFree(dst_);
  }
  Data(const Data&) = delete;
  Data& operator=(const Data&) = delete;

  void runOurs() const { moxsHilbert_32f32fc(src_, dst_, spec_); }
  void runPeer() const {
    fftwf_execute(forward_);
    const float once = 1 / float(n_), twice = 2 * once;
    const int positive = (n_ - 1) / 2;
    float* const z = reinterpret_cast<float*>(dst_);
    z[0] *= once, z[1] *= once;
    for (int i = 2; i < 2 * (positive + 1); ++i) z[i] *= twice;
    if (n_ % 2 == 0) z[n_] *= once, z[n_ + 1] *= once;
    std::fill(z + 2 * (n_ / 2 + 1), z + 2 * n_, 0.0f);
    fftwf_execute(backward_);
  }

 private:
  int n_;
  Mox32f* src_ = moxsMalloc_32f(n_);
  Mox32fc* dst_ = moxsMalloc_32fc(n_);
  MoxsHilbertSpec* spec_ = nullptr;
  fftwf_plan forward_, backward_;
};

const bool registered = [] {
  for (const int n : {64, 360, 1000, 1024, 4410, 16384, 65536}) {
    const auto holder = std::make_shared<std::unique_ptr<Data>>();
    const auto data = [=]() -> const Data& {
      if (!*holder) *holder = std::make_unique<Data>(n);
      return **holder;
    };
    bench::add({.family = "hilbert_32f32fc",
                .size = n,
                .work = {.bytesRead = 4.0 * n,
                         .bytesWritten = 8.0 * n,
                         .floatOps = 7.5 * n * std::log2(n)},
                .ours = [=] { data().runOurs(); },
                .peers = {{"fftw", [=] { data().runPeer(); }}}});
  }
  return true;
}();

}  // namespace
