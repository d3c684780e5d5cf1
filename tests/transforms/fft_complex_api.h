// The complex transforms of both precisions and both layouts behind one shape, for tests that run
// over all of them.
#pragma once

#include <moxsp.h>

#include <complex>
#include <memory>
#include <vector>

#include "support/random.h"

namespace test {

struct Single {
  using F = Mox32f;
  using C = Mox32fc;
  static constexpr int largeOrder = 19, hugeOrder = 23;
  static constexpr double tolerance = 3e-7;  // relative L2 error over the root of the order
  static constexpr auto make = moxsFFTInitAlloc_C_32fc, splitMake = moxsFFTInitAlloc_C_32f;
  static constexpr auto free = moxsFFTFree_C_32fc, splitFree = moxsFFTFree_C_32f;
  static constexpr auto bufSize = moxsFFTGetBufSize_C_32fc, splitBufSize = moxsFFTGetBufSize_C_32f;
  static constexpr auto fwd = moxsFFTFwd_CToC_32fc, inv = moxsFFTInv_CToC_32fc;
  static constexpr auto fwdInPlace = moxsFFTFwd_CToC_32fc_I, invInPlace = moxsFFTInv_CToC_32fc_I;
  static constexpr auto splitFwd = moxsFFTFwd_CToC_32f, splitInv = moxsFFTInv_CToC_32f;
  static constexpr auto splitFwdInPlace = moxsFFTFwd_CToC_32f_I,
                        splitInvInPlace = moxsFFTInv_CToC_32f_I;
};

struct Double {
  using F = Mox64f;
  using C = Mox64fc;
  static constexpr int largeOrder = 18, hugeOrder = 22;
  static constexpr double tolerance = 6e-16;
  static constexpr auto make = moxsFFTInitAlloc_C_64fc, splitMake = moxsFFTInitAlloc_C_64f;
  static constexpr auto free = moxsFFTFree_C_64fc, splitFree = moxsFFTFree_C_64f;
  static constexpr auto bufSize = moxsFFTGetBufSize_C_64fc, splitBufSize = moxsFFTGetBufSize_C_64f;
  static constexpr auto fwd = moxsFFTFwd_CToC_64fc, inv = moxsFFTInv_CToC_64fc;
  static constexpr auto fwdInPlace = moxsFFTFwd_CToC_64fc_I, invInPlace = moxsFFTInv_CToC_64fc_I;
  static constexpr auto splitFwd = moxsFFTFwd_CToC_64f, splitInv = moxsFFTInv_CToC_64f;
  static constexpr auto splitFwdInPlace = moxsFFTFwd_CToC_64f_I,
                        splitInvInPlace = moxsFFTInv_CToC_64f_I;
};

enum class Way { forward, inverse };

using Complex = std::complex<long double>;

// One transform object with its work buffer; interleaved unless `split`.
template <class T>
class Fft {
  using F = typename T::F;
  using C = typename T::C;

 public:
  Fft(int order, int flag, bool split = false) : split_(split) {
    status_ = (split ? T::splitMake : T::make)(&spec_, order, flag, 0);
    if (status_ != moxOk) return;
    int bytes;
    (split ? T::splitBufSize : T::bufSize)(spec_, &bytes);
    buffer_.resize(bytes + 1);
  }
  ~Fft() {
    if (spec_) (split_ ? T::splitFree : T::free)(spec_);
  }
  Fft(const Fft&) = delete;
  Fft& operator=(const Fft&) = delete;

  MoxStatus status() const { return status_; }
  const MoxsFFTSpec* spec() const { return spec_; }
  Mox8u* buffer() { return buffer_.data() + 1; }  // at an odd address

  void run(Way way, const C* src, C* dst) {
    status_ = (way == Way::forward ? T::fwd : T::inv)(src, dst, spec_, buffer());
  }
  void run(Way way, const F* re, const F* im, F* dstRe, F* dstIm) {
    status_ =
        (way == Way::forward ? T::splitFwd : T::splitInv)(re, im, dstRe, dstIm, spec_, buffer());
  }

 private:
  bool split_;
  MoxStatus status_;
  MoxsFFTSpec* spec_ = nullptr;
  std::vector<Mox8u> buffer_;
};

// exp(-2 pi i k / n), its angle reduced in integers.
inline Complex turn(long k, long n) {
  const long double angle = 2 * 3.14159265358979323846264338327950288L * (long double)(k % n) / n;
  return {std::cos(angle), -std::sin(angle)};
}

}  // namespace test
