// The 16-bit DFTs within their bound of the exact transform.
#include <gtest/gtest.h>

#include "transforms/dft_api.h"

namespace {

using test::bin;
using test::Complex;
using test::Dft;
using test::Flag;
using test::Noise;
using test::noise;

// A result against the exact one times 2^-scaleFactor, both spectra or both signals. Lengths 1, 2
// and 4 are exact unless the factor isn't.
class Check {
 public:
  Check(long n, int scaleFactor, long double factor, long double norm, long double greatest)
      : scale_(factor * std::ldexp(1.0L, -scaleFactor)) {
    int exponent;
    const bool isExact = (n <= 2 || n == 4) && std::frexp(factor, &exponent) == 0.5L;
    const long double unit = isExact ? 1e-12L : 16 * 0x1p-24L;
    slack_ = 0.5L + unit * scale_ * (std::sqrt(std::log2((long double)n)) * norm + greatest);
  }

  void expect(Mox16s got, long double exact) const {
    const long double wanted = std::clamp(scale_ * exact, -32768.0L, 32767.0L);
    ASSERT_LE(std::fabs(got - wanted), slack_);
  }

 private:
  long double scale_, slack_;
};

struct Norms {
  long double sum = 0, greatest = 0;
  void add(Complex z) {
    sum += std::norm(z);
    greatest = std::max({greatest, std::fabs(z.real()), std::fabs(z.imag())});
  }
};

// Both directions of complex noise; the exact inverse is the forward transform read backwards.
void expectComplex(long n, const Flag& flag, int scaleFactor) {
  const Noise& data = noise(n);
  Norms source, result;
  std::vector<Mox16sc> x(n), y(n);
  std::vector<Mox16s> re(n), im(n);
  for (long i = 0; i < n; ++i) {
    x[i] = {Mox16s(data.signal[i].real()), Mox16s(data.signal[i].imag())};
    source.add(data.signal[i]), result.add(data.spectrum[i]);
  }
  Dft dft(test::dft16sc, int(n), flag.value), split(test::dft16s, int(n), flag.value);
  for (const bool forward : {true, false}) {
    const auto run = forward ? moxsDFTFwd_CToC_16sc_Sfs : moxsDFTInv_CToC_16sc_Sfs;
    const auto runSplit = forward ? moxsDFTFwd_CToC_16s_Sfs : moxsDFTInv_CToC_16s_Sfs;
    const Check check(n, scaleFactor, std::pow(n, forward ? flag.forward : flag.inverse),
                      std::sqrt(source.sum), result.greatest);
    ASSERT_EQ(run(x.data(), y.data(), dft, scaleFactor, dft.buffer()), moxOk);
    for (long i = 0; i < n; ++i) re[i] = x[i].re, im[i] = x[i].im;
    ASSERT_EQ(runSplit(re.data(), im.data(), re.data(), im.data(), split, scaleFactor, nullptr),
              moxOk);
    for (long k = 0; k < n; ++k) {
      const Complex exact = data.spectrum[forward ? k : (n - k) % n];
      check.expect(y[k].re, exact.real());
      check.expect(y[k].im, exact.imag());
      check.expect(re[k], exact.real());
      check.expect(im[k], exact.imag());
    }
  }
}

// Real noise to its spectrum, and the spectrum that stands there back.
void expectReal(long n, const Flag& flag, int scaleFactor, test::Layout layout) {
  constexpr decltype(&moxsDFTFwd_RToPerm_16s_Sfs) functions[][2] = {
      {moxsDFTFwd_RToPerm_16s_Sfs, moxsDFTInv_PermToR_16s_Sfs},
      {moxsDFTFwd_RToPack_16s_Sfs, moxsDFTInv_PackToR_16s_Sfs},
      {moxsDFTFwd_RToCCS_16s_Sfs, moxsDFTInv_CCSToR_16s_Sfs}};
  const auto& run = functions[int(layout)];
  const Noise& data = noise(n);
  Norms source, result;
  std::vector<Mox16s> x(test::packedSize(layout, n));
  for (long i = 0; i < n; ++i) {
    x[i] = Mox16s(data.signal[i].real());
    source.add(x[i]), result.add(bin(data, i, true));
  }
  const Check check(n, scaleFactor, std::pow(n, flag.forward), std::sqrt(source.sum),
                    result.greatest);
  Dft dft(test::dftReal16s, int(n), flag.value);
  ASSERT_EQ(run[0](x.data(), x.data(), dft, scaleFactor, nullptr), moxOk);
  std::vector<Complex> spectrum(n);
  for (long k = 0; 2 * k <= n; ++k) {
    const Complex exact = bin(data, k, true);
    const long at = test::realPlace(layout, n, k);
    const Mox16s im = test::hasImaginaryPlace(layout, n, k) ? x[at + 1] : Mox16s(0);
    check.expect(x[at], exact.real());
    check.expect(im, exact.imag());
    spectrum[(n - k) % n] = Complex(x[at], -im);
    spectrum[k] = Complex(x[at], im);
  }
  Norms back;
  const auto samples = test::exactTransform(spectrum, true);
  for (long i = 0; i < n; ++i) {
    back.greatest = std::max(back.greatest, std::fabs(samples[i].real()));
    back.sum += std::norm(spectrum[i]);
  }
  const Check inverse(n, scaleFactor, std::pow(n, flag.inverse), std::sqrt(back.sum),
                      back.greatest);
  ASSERT_EQ(run[1](x.data(), x.data(), dft, scaleFactor, dft.buffer()), moxOk);
  for (long i = 0; i < n; ++i) inverse.expect(x[i], samples[i].real());
}

TEST(DftInteger, ResultsAreWithinTheBound) {
  SCOPED_TRACE(test::seedNote());
  for (long n = 1; n <= 233; ++n) {
    const Flag& flag = test::flags[n % 4];
    for (const int scaleFactor : {0, 5, -3, 40}) {
      SCOPED_TRACE(testing::Message()
                   << "length " << n << " flag " << flag.value << " factor " << scaleFactor);
      ASSERT_NO_FATAL_FAILURE(expectComplex(n, flag, scaleFactor));
      ASSERT_NO_FATAL_FAILURE(expectReal(n, flag, scaleFactor, test::layouts[n % 3]));
    }
  }
  for (const long n : {256, 509, 1000, 2002}) expectComplex(n, test::flags[1], -2);
}

}  // namespace
