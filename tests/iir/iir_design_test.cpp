#include <complex>

#include "support/test.h"

namespace {

using Real = long double;
using Complex = std::complex<Real>;
using Taps = std::vector<Real>;

// The polynomial in 1/z with these roots.
Taps withRoots(const std::vector<Complex>& roots) {
  std::vector<Complex> product = {1};
  for (const Complex& root : roots) {
    product.push_back(0);
    for (std::size_t k = product.size() - 1; k > 0; --k) product[k] -= root * product[k - 1];
  }
  Taps real;
  for (const Complex& c : product) real.push_back(c.real());
  return real;
}
Complex valueAt(Complex z, const std::vector<Complex>& roots) {
  Complex product = 1;
  for (const Complex& root : roots) product *= Real(1) - root / z;
  return product;
}

// By poles: those of the prototype lie where 1 + e^2 T(s / i)^2 or 1 + s^(2 order) is zero. The
// gain is set to what it must be at the edge.
Taps designed(Real edge, Real ripple, int order, bool isChebyshev, bool isHighpass) {
  const Real pi = std::acos(Real(-1)), w = std::tan(pi * edge);
  const Real e = std::sqrt(std::pow(Real(10), ripple / 10) - 1);
  std::vector<Complex> poles;
  for (int k = 1; k <= order; ++k) {
    const Real t = pi * (2 * k - 1) / (2 * order);
    Complex s = isChebyshev ? Complex(0, 1) * std::cos(Complex(t, -std::asinh(1 / e) / order))
                            : Complex(-std::sin(t), std::cos(t));
    s = isHighpass ? w / s : w * s;
    poles.push_back((Real(1) + s) / (Real(1) - s));
  }
  const std::vector<Complex> zeros(order, isHighpass ? 1 : -1);
  Taps b = withRoots(zeros), a = withRoots(poles);
  const Complex z = std::polar(Real(1), 2 * pi * edge);
  const Real wanted = isChebyshev ? std::pow(Real(10), -ripple / 20) : 1 / std::sqrt(Real(2));
  const Real gain = wanted * std::abs(valueAt(z, poles) / valueAt(z, zeros));
  for (Real& tap : b) tap *= gain;
  b.insert(b.end(), a.begin(), a.end());
  return b;
}

TEST(IirDesign, HasThePolesAndTheGainOfTheFilter) {
  std::vector<Mox8u> buffer;
  for (int order = 1; order <= 12; ++order)
    for (const double edge : {0.001, 0.02, 0.1, 0.25, 0.4, 0.499})
      for (const double ripple : {0.0, 0.01, 1.0, 60.0})
        for (const auto gen : {moxsIIRGenLowpass_64f, moxsIIRGenHighpass_64f}) {
          const bool isHighpass = gen == moxsIIRGenHighpass_64f;
          SCOPED_TRACE(testing::Message() << order << ", " << edge << ", " << ripple << " dB, "
                                          << (isHighpass ? "highpass" : "lowpass"));
          int bytes;
          ASSERT_OK(moxsIIRGenGetBufferSize(order, &bytes));
          buffer.resize(bytes);
          std::vector<double> taps(2 * order + 2);
          ASSERT_OK(gen(edge, ripple, taps.data(), order, ripple > 0, buffer.data()));
          const Taps exact = designed(edge, ripple, order, ripple > 0, isHighpass);
          Real largest = 0;
          for (int k = 0; k <= order; ++k)
            largest = std::max(largest, std::abs(exact[order + 1 + k]));
          for (int k = 0; k <= order; ++k) {
            ASSERT_NEAR(double(taps[k] / exact[k]), 1, 1e-13) << k;
            ASSERT_NEAR(double((taps[order + 1 + k] - exact[order + 1 + k]) / largest), 0, 1e-13);
          }
        }
}

}  // namespace
