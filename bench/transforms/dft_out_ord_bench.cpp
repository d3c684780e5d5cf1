// Out-of-order DFTs in place, forward and back, beside the DFT in natural order and FFTW's.
#include <fftw3.h>
#include <moxsp.h>

#include <algorithm>
#include <cmath>
#include <memory>

#include "support/compare.h"

namespace {

#define FORM(name, C, t, w)                                            \
  struct name {                                                        \
    using Number = C;                                                  \
    static constexpr auto initAlloc = moxsDFTOutOrdInitAlloc_C_##t;    \
    static constexpr auto getBufSize = moxsDFTOutOrdGetBufSize_C_##t;  \
    static constexpr auto forward = moxsDFTOutOrdFwd_CToC_##t;         \
    static constexpr auto inverse = moxsDFTOutOrdInv_CToC_##t;         \
    static constexpr auto initOrdered = moxsDFTInitAlloc_C_##t;        \
    static constexpr auto getBufSizeOrdered = moxsDFTGetBufSize_C_##t; \
    static constexpr auto forwardOrdered = moxsDFTFwd_CToC_##t;        \
    static constexpr auto inverseOrdered = moxsDFTInv_CToC_##t;        \
    using Plan = w##_plan;                                             \
    static Plan plan(int n, C* x, int sign) {                          \
      auto* const z = reinterpret_cast<w##_complex*>(x);               \
      return w##_plan_dft_1d(n, z, z, sign, FFTW_MEASURE);             \
    }                                                                  \
    static constexpr auto execute = w##_execute;                       \
  }
FORM(Single, Mox32fc, 32fc, fftwf);
FORM(Double, Mox64fc, 64fc, fftw);

// Plans and data live to the end of the process.
template <class Form>
struct Data {
  MoxsDFTOutOrdSpec* outOrd;
  MoxsDFTSpec* ordered;
  typename Form::Plan forward, inverse;
  typename Form::Number* x;
  Mox8u* buffer;

  explicit Data(int n) {
    constexpr int inverseByN = 2;
    int bytes, bytesOrdered;
    Form::initAlloc(&outOrd, n, inverseByN, 0);
    Form::initOrdered(&ordered, n, inverseByN, 0);
    Form::getBufSize(outOrd, &bytes);
    Form::getBufSizeOrdered(ordered, &bytesOrdered);
    buffer = moxsMalloc_8u(std::max({bytes, bytesOrdered, 1}));
    x = reinterpret_cast<typename Form::Number*>(moxsMalloc_8u(n * int(sizeof *x)));
    forward = Form::plan(n, x, FFTW_FORWARD);
    inverse = Form::plan(n, x, FFTW_BACKWARD);
    clear(n);
  }
  // FFTW's way back multiplies by n: zeros stay what they are.
  void clear(int n) { std::fill(x, x + n, typename Form::Number{}); }
};

template <class Form>
void addCase(const char* family, int n) {
  const auto holder = std::make_shared<std::unique_ptr<Data<Form>>>();
  const auto data = [=]() -> const Data<Form>& {
    if (!*holder) *holder = std::make_unique<Data<Form>>(n);
    return **holder;
  };
  constexpr int bytes = sizeof(typename Form::Number);
  bench::Work work{.bytesRead = 2.0 * bytes * n, .bytesWritten = 2.0 * bytes * n};
  (bytes == 8 ? work.floatOps : work.doubleOps) = 10.0 * n * std::log2(n);
  bench::add({.family = family,
              .size = n,
              .work = work,
              .ours =
                  [=] {
                    const auto& d = data();
                    Form::forward(d.x, d.x, d.outOrd, d.buffer);
                    Form::inverse(d.x, d.x, d.outOrd, d.buffer);
                  },
              .peers = {{"ordered",
                         [=] {
                           const auto& d = data();
                           Form::forwardOrdered(d.x, d.x, d.ordered, d.buffer);
                           Form::inverseOrdered(d.x, d.x, d.ordered, d.buffer);
                         }},
                        {"fftw", [=] {
                           Form::execute(data().forward);
                           Form::execute(data().inverse);
                         }}}});
}

const bool registered = [] {
  for (const int n : {360, 1000, 5040, 10080, 1 << 10, 1 << 11, 1 << 12, 1 << 13, 1 << 14, 1 << 15,
                      1 << 16, 1 << 17, 1 << 18, 1 << 19, 1 << 20}) {
    addCase<Single>("dft_out_ord_32fc", n);
    addCase<Double>("dft_out_ord_64fc", n);
  }
  return true;
}();

}  // namespace
