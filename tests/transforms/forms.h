// The transforms of all families behind one shape: objects, and runs between samples and spectra.
#pragma once

#include "frame/elements.h"
#include "support/test.h"
#include "transforms/exact_transform.h"
#include "transforms/packed.h"

namespace test {

template <class Spec>
struct Life {
  MoxStatus (*initAlloc)(Spec**, int size, int flag, int hint);
  MoxStatus (*getBufSize)(const Spec*, int*);
  MoxStatus (*free)(Spec*);
};
#define TRANSFORM_LIFE(family, kind) \
  { moxs##family##InitAlloc_##kind, moxs##family##GetBufSize_##kind, moxs##family##Free_##kind }

// An object in library memory for its scope, and its work buffer at an odd address.
template <class Spec>
class Object {
 public:
  Object(const Life<Spec>& life, int size, int flag, int hint = 0) : free_(life.free) {
    EXPECT_OK(life.initAlloc(&spec_, size, flag, hint));
    EXPECT_OK(life.getBufSize(spec_, &bytes_));
    buffer_.resize(std::size_t(bytes_) + 65);
  }
  ~Object() { EXPECT_OK(free_(spec_)); }
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;

  operator const Spec*() const { return spec_; }
  int bytes() const { return bytes_; }  // of the work buffer, as the query tells
  Mox8u* buffer() { return buffer_.data() + 1; }

 private:
  MoxStatus (*free_)(Spec*);
  Spec* spec_ = nullptr;
  int bytes_ = 0;
  std::vector<Mox8u> buffer_;
};

// Objects that can also lie in the caller's memory.
template <class Spec, class Init>
struct Kind {
  const char* name;
  long part;  // bytes of a real number
  bool real;
  int maxOrder;
  MoxStatus (*getSize)(int size, int flag, int hint, int* spec, int* init, int* work);
  Init* init;
  Life<Spec> life;
};
#define TRANSFORM_KIND(family, kind, part, real, maxOrder)                                \
  {                                                                                       \
#kind, part, real, maxOrder, moxs##family##GetSize_##kind, moxs##family##Init_##kind, \
        TRANSFORM_LIFE(family, kind)                                                      \
  }
#define TRANSFORM_KINDS(family)                                                                   \
  {                                                                                               \
    TRANSFORM_KIND(family, C_32fc, 4, false, 28), TRANSFORM_KIND(family, C_32f, 4, false, 28),    \
        TRANSFORM_KIND(family, R_32f, 4, true, 29), TRANSFORM_KIND(family, C_64fc, 8, false, 27), \
        TRANSFORM_KIND(family, C_64f, 8, false, 27), TRANSFORM_KIND(family, R_64f, 8, true, 28)   \
  }
constexpr Kind<MoxsFFTSpec, decltype(moxsFFTInit_C_32fc)> fftKinds[] = TRANSFORM_KINDS(FFT);
constexpr Kind<MoxsDFTSpec, decltype(moxsDFTInit_C_32fc)> dftKinds[] = TRANSFORM_KINDS(DFT);

struct Sizes {
  int spec, init, work;
  bool operator==(const Sizes&) const = default;
};

// Runs from n samples of elements T to a spectrum of elements S and back. Where parts have arrays
// of their own, those of imaginary parts follow the others.
template <class T_, class S_, Layout layout_, auto fwd, auto inv>
struct Form {
  using T = T_;
  using S = S_;
  static constexpr auto forwardFunction = fwd;
  static constexpr Layout layout = layout_;
  static constexpr bool real = layout != Layout::complex;
  static constexpr bool split = !real && !mox::Complex<T>;

  static long samples(long n) { return split ? 2 * n : n; }
  static long places(long n) { return real ? packedSize(layout, n) : samples(n); }
  static long bins(long n) { return real ? n / 2 + 1 : n; }

  static void put(T* p, long n, long i, Complex z) {
    using P = mox::Part<T>;
    if constexpr (mox::Complex<T>)
      p[i] = {P(z.real()), P(z.imag())};
    else
      p[i] = P(z.real());
    if constexpr (split) p[n + i] = P(z.imag());
  }
  template <class A>
  static Complex at(const A* p, long n, long i) {
    if constexpr (mox::Complex<A>)
      return {(long double)p[i].re, (long double)p[i].im};
    else
      return {(long double)p[i], split ? (long double)p[n + i] : 0};
  }
  // Of a packed spectrum with what its places hold.
  static Complex bin(const S* p, long n, long k) {
    if constexpr (!real) {
      return at(p, n, k);
    } else {
      if (2 * k > n) return std::conj(bin(p, n, n - k));
      const S* const place = p + realPlace(layout, n, k);
      return {(long double)*place, hasImaginaryPlace(layout, n, k) ? (long double)place[1] : 0};
    }
  }

  template <class... Args>
  static MoxStatus forward(const T* src, S* dst, long n, const Args&... args) {
    return run<fwd>(src, dst, n, args...);
  }
  template <class... Args>
  static MoxStatus inverse(const S* src, T* dst, long n, const Args&... args) {
    return run<inv>(src, dst, n, args...);
  }
  template <auto f, class A, class B, class... Args>
  static MoxStatus run(const A* src, B* dst, [[maybe_unused]] long n, const Args&... args) {
    if constexpr (split)
      return f(src, src + n, dst, dst + n, args...);
    else
      return f(src, dst, args...);
  }
};

}  // namespace test
