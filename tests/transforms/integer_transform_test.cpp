// FFTs and DFTs of integers against the transform in long double, within the stated bound.
#include "support/accuracy.h"
#include "transforms/forms.h"

namespace {

using test::Complex;
using test::Layout;

template <class Form, auto init, auto size, auto free>
struct Fft : Form {
  static constexpr test::Life<MoxsFFTSpec> life = {init, size, free};
  static constexpr bool isFft = true;
  static constexpr int slope = 4;
  static int sizeOf(long n) { return int(std::log2(n)); }
  static std::vector<long> lengths() {
    std::vector<long> all;
    for (const int order : {0, 1, 2, 3, 4, 5, 6, 7, 8, 10, 13, 16, 19}) all.push_back(1L << order);
    return all;
  }
};
template <class Form, auto init, auto size, auto free>
struct Dft : Form {
  static constexpr test::Life<MoxsDFTSpec> life = {init, size, free};
  static constexpr bool isFft = false;
  static constexpr int slope = 16;
  static int sizeOf(long n) { return int(n); }
  static std::vector<long> lengths() {
    std::vector<long> all = {256, 509, 1000, 2002};
    for (long n = 1; n <= 233; ++n) all.push_back(n);
    return all;
  }
};

#define FORM(Case, family, T, S, kind, layout, to, back, up, down)           \
  Case<test::Form<T, S, Layout::layout, moxs##family##Fwd_##to##_##up##_Sfs, \
                  moxs##family##Inv_##back##_##down##_Sfs>,                  \
       moxs##family##InitAlloc_##kind, moxs##family##GetBufSize_##kind, moxs##family##Free_##kind>
#define FORMS_16(Case, family)                                                     \
  FORM(Case, family, Mox16sc, Mox16sc, C_16sc, complex, CToC, CToC, 16sc, 16sc),   \
      FORM(Case, family, Mox16s, Mox16s, C_16s, complex, CToC, CToC, 16s, 16s),    \
      FORM(Case, family, Mox16s, Mox16s, R_16s, perm, RToPerm, PermToR, 16s, 16s), \
      FORM(Case, family, Mox16s, Mox16s, R_16s, pack, RToPack, PackToR, 16s, 16s), \
      FORM(Case, family, Mox16s, Mox16s, R_16s, ccs, RToCCS, CCSToR, 16s, 16s)
using Forms =
    testing::Types<FORMS_16(Fft, FFT), FORMS_16(Dft, DFT),
                   FORM(Fft, FFT, Mox32sc, Mox32sc, C_32sc, complex, CToC, CToC, 32sc, 32sc),
                   FORM(Fft, FFT, Mox32s, Mox32s, C_32s, complex, CToC, CToC, 32s, 32s),
                   FORM(Fft, FFT, Mox32s, Mox32s, R_32s, ccs, RToCCS, CCSToR, 32s, 32s),
                   FORM(Fft, FFT, Mox16s, Mox32s, R_16s32s, ccs, RToCCS, CCSToR, 16s32s, 32s16s)>;

template <class T>
class IntegerTransform : public testing::Test {};
TYPED_TEST_SUITE(IntegerTransform, Forms);

enum class Signal { noise, tone, square, impulse };

template <class E>
std::vector<E> signalOf(Signal kind, long count) {
  using P = mox::Part<E>;
  static test::Random random;
  auto x = random.vector<E>(count);
  const double full = std::numeric_limits<P>::max();
  for (long i = 0; i < count && kind != Signal::noise; ++i)
    for (int part = 0; part < mox::partsPerElement<E>; ++part)
      mox::parts(&x[i])[part] = kind == Signal::tone ? P(full * std::cos(2 * M_PI * 0.1 * i - part))
                                : kind == Signal::square ? P(i / 3 % 2 ? -full : full)
                                                         : P(i == 0 ? full : 0);
  return x;
}

// What a direction makes of its input, and the bound for what it gives.
struct Exact {
  std::vector<Complex> values;
  long double norm = 0, most = 0;

  Exact(const std::vector<Complex>& in, bool inverse) : values(test::exactTransform(in, inverse)) {
    for (const Complex z : in) norm += std::norm(z);
    for (const Complex z : values) most = std::max(most, std::abs(z));
  }
  template <class P, class At>
  void expect(long count, At at, long double scale, long double unit) const {
    const long double steps = std::log2((long double)values.size());
    const long double bound = unit * scale * (std::sqrt(steps * norm) + most);
    for (long i = 0; i < count; ++i) {
      const Complex got = at(i);
      test::expectRounded<P>(got.real(), scale * values[i].real(), bound);
      test::expectRounded<P>(got.imag(), scale * values[i].imag(), bound);
    }
  }
};

TYPED_TEST(IntegerTransform, IsTheRoundedOneWithEveryFlagAndFactor) {
  using T = TypeParam;
  using E = typename T::T;
  using S = typename T::S;
  for (const long n : T::lengths())
    for (const Signal kind : {Signal::noise, Signal::tone, Signal::square, Signal::impulse}) {
      if (n > 1024 && kind != Signal::noise) continue;
      const auto x = signalOf<E>(kind, T::samples(n));
      const auto y = signalOf<S>(kind, T::places(n));
      std::vector<Complex> signal(n), spectrum(n);
      for (long i = 0; i < n; ++i) {
        signal[i] = T::at(x.data(), n, i), spectrum[i] = T::bin(y.data(), n, i);
        if (T::real && 2 * i % n == 0) spectrum[i] = spectrum[i].real();
      }
      const Exact X(signal, false), Y(spectrum, true);
      const int turn = T::sizeOf(n), order = int(std::log2(n));
      for (const test::Flag& flag : test::flags) {
        if (n > 128 && &flag != &test::flags[turn % 4]) continue;
        const bool isExact = ((n <= 2 || n == 4) && !(n == 2 && flag.value == 4)) ||
                             (T::isFft && kind == Signal::impulse && flag.value == 8);
        const long double eps = sizeof(mox::Part<E>) == 2 ? 0x1p-24L : 0x1p-53L;
        const long double unit = isExact ? 0 : T::slope * eps;
        const bool roundsFirst = sizeof(S) > sizeof(E);  // parts of the spectrum, to floats
        test::Object object(T::life, T::sizeOf(n), flag.value, flag.value & 3);
        for (const int factor : {0, order / 2, order, -3, -20, 40, 64, INT_MAX, INT_MIN}) {
          if (n > 1024 && factor != order / 2) continue;
          SCOPED_TRACE(testing::Message() << "length " << n << " signal " << int(kind) << " flag "
                                          << flag.value << " factor " << factor);
          const long double power = std::exp2(-(long double)std::clamp(factor, -300, 300));
          std::vector<S> up(T::places(n));
          std::vector<E> down(T::samples(n));
          ASSERT_OK(T::forward(x.data(), up.data(), n, object, factor, nullptr));
          ASSERT_OK(T::inverse(y.data(), down.data(), n, object, factor, object.buffer()));
          X.template expect<mox::Part<S>>(
              T::bins(n), [&](long k) { return T::bin(up.data(), n, k); },
              power * std::pow((long double)n, flag.forward), unit);
          Y.template expect<mox::Part<E>>(
              n, [&](long i) { return T::at(down.data(), n, i); },
              power * std::pow((long double)n, flag.inverse), roundsFirst ? T::slope * eps : unit);
        }
      }
    }
}

}  // namespace
