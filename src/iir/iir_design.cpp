// Lowpass and highpass filters: the poles of an analogue prototype, section by section through the
// bilinear transform.
#include <moxsp/iir_design.h>

#include <cmath>
#include <cstring>
#include <numbers>

#include "frame/checks.h"
#include "frame/export.h"
#include "frame/vec/vec.h"

namespace mox::iir {
namespace {

using std::numbers::pi;

enum FilterType { butterworth, chebyshev };
enum class Band { low, high };
constexpr int mostOrder = 12;

// The poles of the prototype lie on an ellipse around 0.
struct Prototype {
  double halfWidth = 1, halfHeight = 1;
  double gain = 1;  // at frequency 0
};
Prototype chebyshevPrototype(int order, double ripple) {
  const double e = std::sqrt(std::expm1(ripple * std::numbers::ln10 / 10));
  const double v = std::asinh(1 / e) / order;
  return {std::sinh(v), std::cosh(v), order % 2 ? 1 : std::pow(10, -ripple / 20)};
}

// Multiplies the polynomial a[0..order] by 1, a1, a2 and returns the new order.
int multiply(double* a, int order, double a1, double a2) {
  a[order + 1] = a[order + 2] = 0;
  for (int k = order + 2; k > 1; --k) a[k] += a1 * a[k - 1] + a2 * a[k - 2];
  a[1] += a1 * a[0];
  return order + 2;
}

template <Band band>
void design(double edge, const Prototype& p, int order, double* taps) {
  double* const a = taps + order + 1;
  double gain = p.gain;
  int done = 0;
  a[0] = 1;
  // A highpass filter has the reciprocal poles.
  if (order % 2) {
    const double c = edge * (band == Band::low ? p.halfWidth : 1 / p.halfWidth);
    a[++done] = (c - 1) / (1 + c);
    gain *= (band == Band::low ? c : 1) / (1 + c);
  }
  while (done < order) {
    const double t = pi * (order - done - 1) / (2 * order);
    double re = p.halfWidth * std::sin(t), im = p.halfHeight * std::cos(t);
    double square = re * re + im * im;
    if (band == Band::high) re /= square, square = 1 / square;
    const double c1 = 2 * re * edge, c0 = square * edge * edge, n = 1 + c1 + c0;
    gain *= (band == Band::low ? c0 : 1) / n;
    done = multiply(a, done, 2 * (c0 - 1) / n, (1 - c1 + c0) / n);
  }
  int binomial = 1;  // of (1 + z^-1)^order or (1 - z^-1)^order
  for (int k = 0; k <= order; ++k) {
    taps[k] = gain * binomial;
    binomial = (band == Band::low ? 1 : -1) * binomial * (order - k) / (k + 1);
  }
}

MoxStatus checkOrder(int order) {
  return order < 1 || order > mostOrder ? MoxStatus(moxErrIirGenOrder) : moxOk;
}

// Near half the sampling rate the rounding of the angle would tell.
double prewarped(double rFreq) {
  return rFreq < 0.25 ? std::tan(pi * rFreq) : 1 / std::tan(pi * (0.5 - rFreq));
}

template <Band band>
MoxStatus genFilter(double rFreq, double ripple, double* taps, int order, int filterType,
                    Mox8u* buffer) {
  if (anyNull(taps, buffer)) return moxErrNullPtr;
  if (MoxStatus s = checkOrder(order)) return s;
  if (!(rFreq > 0 && rFreq < 0.5)) return moxErrIirGenFreq;
  if (filterType != butterworth && filterType != chebyshev) return moxErrBadArg;
  if (filterType == chebyshev && !(ripple > 0 && ripple <= 60)) return moxErrIirGenRipple;
  const auto prototype = filterType == chebyshev ? chebyshevPrototype(order, ripple) : Prototype{};
  double result[2 * (mostOrder + 1)];
  design<band>(prewarped(rFreq), prototype, order, result);
  std::memcpy(taps, result, 2 * std::size_t(order + 1) * sizeof *taps);
  return moxOk;
}

// The polynomials are multiplied where they stand; the buffer is for designs that need more.
MoxStatus getBufferSize(int order, int* bufferSize) {
  if (anyNull(bufferSize)) return moxErrNullPtr;
  if (MoxStatus s = checkOrder(order)) return s;
  store(bufferSize, 64);
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsIIRGenGetBufferSize, getBufferSize);
MOX_EXPORT(moxsIIRGenLowpass_64f, genFilter<Band::low>);
MOX_EXPORT(moxsIIRGenHighpass_64f, genFilter<Band::high>);

}  // namespace mox::iir
