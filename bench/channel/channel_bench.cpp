// FM demodulation beside a loop of atan2f.
#include <moxsp.h>

#include <cmath>
#include <memory>

#include "fir/signals.h"
#include "support/compare.h"

namespace {

void loop(const short* __restrict re, const short* __restrict im, short* __restrict y, int len,
          Mox16sc before) {
  for (int i = 0; i < len; ++i) {
    const float a = re[i], b = im[i], c = before.re, d = before.im;
    const float turns = std::atan2(b * c - a * d, a * c + b * d) * (32768 / 3.14159265f);
    y[i] = short(std::lrint(turns > 32767 ? 32767 : turns));
    before = {re[i], im[i]};
  }
}

const bool registered = [] {
  for (const int len : {1 << 11, 1 << 17}) {
    struct Data {
      explicit Data(int n) : re(bench::noise<short>(n)), im(re.rbegin(), re.rend()), y(n) {}
      std::vector<short> re, im, y;
      Mox16sc before = {1, 0};
    };
    const auto d = std::make_shared<Data>(len);
    bench::add({"demodulatefm_16s",
                len,
                {.bytesRead = 4.0 * len, .bytesWritten = 2.0 * len},
                [=] {
                  moxsDemodulateFM_CToR_16s(d->re.data(), d->im.data(), d->y.data(), len,
                                            &d->before);
                },
                {{"atan2f loop", [=] {
                    loop(d->re.data(), d->im.data(), d->y.data(), len, d->before);
                    bench::clobber(d->y.data());
                  }}}});
  }
  return true;
}();

}  // namespace
