// The DFTs behind the shapes of the FFTs.
#pragma once

#include <map>

#include "transforms/fft_data.h"

namespace test {

struct DftApi {
  decltype(moxsDFTGetSize_C_32fc)* getSize;
  decltype(moxsDFTInit_C_32fc)* init;
  decltype(moxsDFTInitAlloc_C_32fc)* initAlloc;
  decltype(moxsDFTGetBufSize_C_32fc)* getBufSize;
  decltype(moxsDFTFree_C_32fc)* free;
};

#define DFT_OBJECT(kind)                                                                        \
  moxsDFTGetSize_##kind, moxsDFTInit_##kind, moxsDFTInitAlloc_##kind, moxsDFTGetBufSize_##kind, \
      moxsDFTFree_##kind
#define DFT_INTEGER_OBJECT(kind) \
  nullptr, nullptr, moxsDFTInitAlloc_##kind, moxsDFTGetBufSize_##kind, moxsDFTFree_##kind
// In the order of test::kinds.
constexpr DftApi dftKinds[] = {{DFT_OBJECT(C_32fc)}, {DFT_OBJECT(C_32f)}, {DFT_OBJECT(R_32f)},
                               {DFT_OBJECT(C_64fc)}, {DFT_OBJECT(C_64f)}, {DFT_OBJECT(R_64f)}};
constexpr DftApi dft16sc = {DFT_INTEGER_OBJECT(C_16sc)}, dft16s = {DFT_INTEGER_OBJECT(C_16s)},
                 dftReal16s = {DFT_INTEGER_OBJECT(R_16s)};
#undef DFT_OBJECT
#undef DFT_INTEGER_OBJECT

// An object in library memory for its scope, and its work buffer at an odd address.
class Dft {
 public:
  Dft(const DftApi& api, int len, int flag) : api_(api) {
    if (api.initAlloc(&spec_, len, flag, 0) != moxOk) return;
    int bytes = 0;
    api.getBufSize(spec_, &bytes);
    buffer_.resize(std::size_t(bytes) + 65);
  }
  ~Dft() {
    if (spec_) api_.free(spec_);
  }
  Dft(const Dft&) = delete;
  Dft& operator=(const Dft&) = delete;

  operator const MoxsDFTSpec*() const { return spec_; }
  Mox8u* buffer() { return buffer_.data() + 1; }

 private:
  const DftApi& api_;
  MoxsDFTSpec* spec_ = nullptr;
  std::vector<Mox8u> buffer_;
};

#define DFT_FORM(to, back, t) moxsDFTFwd_##to##_##t, moxsDFTInv_##back##_##t, nullptr, nullptr
using DftForms =
    ::testing::Types<ComplexForm<Mox32fc, 0, DFT_FORM(CToC, CToC, 32fc)>,
                     ComplexForm<Mox32f, 1, DFT_FORM(CToC, CToC, 32f)>,
                     ComplexForm<Mox64fc, 3, DFT_FORM(CToC, CToC, 64fc)>,
                     ComplexForm<Mox64f, 4, DFT_FORM(CToC, CToC, 64f)>,
                     RealForm<Mox32f, Layout::perm, 2, DFT_FORM(RToPerm, PermToR, 32f)>,
                     RealForm<Mox32f, Layout::pack, 2, DFT_FORM(RToPack, PackToR, 32f)>,
                     RealForm<Mox32f, Layout::ccs, 2, DFT_FORM(RToCCS, CCSToR, 32f)>,
                     RealForm<Mox64f, Layout::perm, 5, DFT_FORM(RToPerm, PermToR, 64f)>,
                     RealForm<Mox64f, Layout::pack, 5, DFT_FORM(RToPack, PackToR, 64f)>,
                     RealForm<Mox64f, Layout::ccs, 5, DFT_FORM(RToCCS, CCSToR, 64f)>>;
#undef DFT_FORM

// Noise of a length, of 16-bit integers, and its spectrum by the defining sum.
struct Noise {
  std::vector<Complex> signal, spectrum;
};
inline const Noise& noise(long n) {
  static std::map<long, Noise> made;
  Noise& noise = made[n];
  if (!noise.signal.empty()) return noise;
  Random random;
  for (long i = 0; i < n; ++i)
    noise.signal.emplace_back(random.value<Mox16s>(), random.value<Mox16s>());
  noise.spectrum = exactTransform(noise.signal);
  return noise;
}
// Bin k for the samples, or for their real parts alone.
inline Complex bin(const Noise& noise, long k, bool real) {
  const long n = long(noise.signal.size());
  if (!real) return noise.spectrum[k];
  return (noise.spectrum[k] + std::conj(noise.spectrum[(n - k) % n])) / 2.0L;
}

}  // namespace test
