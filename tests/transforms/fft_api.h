// The FFTs behind one shape: the six kinds of objects, and the ten forms of signal and spectrum.
#pragma once

#include <moxsp.h>

#include <vector>

#include "support/random.h"
#include "transforms/exact_transform.h"
#include "transforms/packed.h"

namespace test {

struct Kind {
  const char* name;
  Mox32s id;
  long part;  // bytes of a real number
  bool real;
  int maxOrder;
  decltype(moxsFFTGetSize_C_32fc)* getSize;
  decltype(moxsFFTInit_C_32fc)* init;
  decltype(moxsFFTInitAlloc_C_32fc)* initAlloc;
  decltype(moxsFFTGetBufSize_C_32fc)* getBufSize;
  decltype(moxsFFTFree_C_32fc)* free;
};

#define FFT_OBJECT(kind)                                                                        \
  moxsFFTGetSize_##kind, moxsFFTInit_##kind, moxsFFTInitAlloc_##kind, moxsFFTGetBufSize_##kind, \
      moxsFFTFree_##kind
constexpr Kind kinds[] = {{"C_32fc", 4, 4, false, 28, FFT_OBJECT(C_32fc)},
                          {"C_32f", 5, 4, false, 28, FFT_OBJECT(C_32f)},
                          {"R_32f", 6, 4, true, 29, FFT_OBJECT(R_32f)},
                          {"C_64fc", 7, 8, false, 27, FFT_OBJECT(C_64fc)},
                          {"C_64f", 8, 8, false, 27, FFT_OBJECT(C_64f)},
                          {"R_64f", 9, 8, true, 28, FFT_OBJECT(R_64f)}};
#undef FFT_OBJECT

// An object in library memory for its scope, and its work buffer at an odd address.
class Fft {
 public:
  Fft(const Kind& kind, int order, int flag) : kind_(kind) {
    if (kind.initAlloc(&spec_, order, flag, 0) != moxOk) return;
    int bytes = 0;
    kind.getBufSize(spec_, &bytes);
    buffer_.resize(bytes + 1);
  }
  ~Fft() {
    if (spec_) kind_.free(spec_);
  }
  Fft(const Fft&) = delete;
  Fft& operator=(const Fft&) = delete;

  operator const MoxsFFTSpec*() const { return spec_; }
  Mox8u* buffer() { return buffer_.data() + 1; }

 private:
  const Kind& kind_;
  MoxsFFTSpec* spec_ = nullptr;
  std::vector<Mox8u> buffer_;
};

template <class F>
constexpr int largeOrder = sizeof(F) == 4 ? 19 : 18;  // of complex transforms
template <class F>
constexpr int hugeOrder = largeOrder<F> + 4;

// The functions of a form, each run on arrays of numbers F for a transform of n samples.
template <class F_, class E, int kindIndex, auto fwd, auto inv, auto fwdInPlace, auto invInPlace>
struct Form {
  using F = F_;
  static constexpr const Kind& kind = kinds[kindIndex];
  static constexpr bool split = !kind.real && sizeof(E) == sizeof(F);

  static MoxStatus run(bool forward, const F* src, F* dst, [[maybe_unused]] long n,
                       const auto& spec, Mox8u* buffer) {
    const auto f = forward ? fwd : inv;
    if constexpr (split)
      return f(src, src + n, dst, dst + n, spec, buffer);
    else
      return f(reinterpret_cast<const E*>(src), reinterpret_cast<E*>(dst), spec, buffer);
  }
  static MoxStatus runSplit(const F* re, const F* im, F* dstRe, F* dstIm,
                            const MoxsFFTSpec* spec) requires split {
    return fwd(re, im, dstRe, dstIm, spec, nullptr);
  }
  static MoxStatus runInPlace(bool forward, F* data, [[maybe_unused]] long n,
                              const MoxsFFTSpec* spec, Mox8u* buffer) {
    const auto f = forward ? fwdInPlace : invInPlace;
    if constexpr (split)
      return f(data, data + n, spec, buffer);
    else
      return f(reinterpret_cast<E*>(data), spec, buffer);
  }
};

// Where numbers are found: place() of a part of a sample, bin() of a spectrum of numbers().
template <class E, int kindIndex, auto... functions>
struct ComplexForm : Form<mox::Part<E>, E, kindIndex, functions...> {
  using typename Form<mox::Part<E>, E, kindIndex, functions...>::F;
  static constexpr int parts = 2;
  static long place(long n, long i, int part) {
    return ComplexForm::split ? part * n + i : 2 * i + part;
  }
  static long bins(long n) { return n; }
  static long numbers(long n) { return 2 * n; }
  static Complex bin(const F* p, long n, long k) { return {p[place(n, k, 0)], p[place(n, k, 1)]}; }
};
template <class F, Layout layout, int kindIndex, auto... functions>
struct RealForm : Form<F, F, kindIndex, functions...> {
  static constexpr int parts = 1;
  static long place(long, long i, int) { return i; }
  static long bins(long n) { return n / 2 + 1; }
  static long numbers(long n) { return packedSize(layout, n); }
  static Complex bin(const F* p, long n, long k) {
    const long at = realPlace(layout, n, k);
    return {p[at], hasImaginaryPlace(layout, n, k) ? p[at + 1] : F(0)};
  }
};

#define FFT_FORM(to, back, t)                                                \
  moxsFFTFwd_##to##_##t, moxsFFTInv_##back##_##t, moxsFFTFwd_##to##_##t##_I, \
      moxsFFTInv_##back##_##t##_I
using Forms = ::testing::Types<ComplexForm<Mox32fc, 0, FFT_FORM(CToC, CToC, 32fc)>,
                               ComplexForm<Mox32f, 1, FFT_FORM(CToC, CToC, 32f)>,
                               ComplexForm<Mox64fc, 3, FFT_FORM(CToC, CToC, 64fc)>,
                               ComplexForm<Mox64f, 4, FFT_FORM(CToC, CToC, 64f)>,
                               RealForm<Mox32f, Layout::perm, 2, FFT_FORM(RToPerm, PermToR, 32f)>,
                               RealForm<Mox32f, Layout::pack, 2, FFT_FORM(RToPack, PackToR, 32f)>,
                               RealForm<Mox32f, Layout::ccs, 2, FFT_FORM(RToCCS, CCSToR, 32f)>,
                               RealForm<Mox64f, Layout::perm, 5, FFT_FORM(RToPerm, PermToR, 64f)>,
                               RealForm<Mox64f, Layout::pack, 5, FFT_FORM(RToPack, PackToR, 64f)>,
                               RealForm<Mox64f, Layout::ccs, 5, FFT_FORM(RToCCS, CCSToR, 64f)>>;
#undef FFT_FORM

}  // namespace test
