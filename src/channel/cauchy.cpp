// The Cauchy loss and its derivatives.
#include <moxsp/channel.h>

#include "arith/ln.h"
#include "arith/mul_constant.h"
#include "frame/export.h"
#include "frame/map.h"

namespace mox::channel {
namespace {

template <class... P>
MoxStatus check(int len, Mox32f c, const P*... arrays) {
  if (MoxStatus s = checkArrays(len, arrays...)) return s;
  return c > 0 ? moxOk : MoxStatus(moxErrCauchyConst);
}

MoxStatus cauchy(Mox32f* srcDst, int len, Mox32f c) {
  if (MoxStatus s = check(len, c, srcDst)) return s;
  constexpr long piece = 2048;  // stays in the first-level cache
  const Same<Mox32f> reciprocal{1 / c};
  for (long i = 0; i < len; i += piece) {
    Mox32f* const x = srcDst + i;
    const long count = std::min(len - i, piece);
    mapElements(
        [](auto e, auto r) {
          const auto t = e * r;
          return t * t + 1.0f;
        },
        x, count, x, reciprocal);
    arith::lnOfFloats(x, count);
    arith::ownsMulC_I(0.5f, x, count);
  }
  return moxOk;
}

MoxStatus cauchyD(Mox32f* srcDst, int len, Mox32f c) {
  if (MoxStatus s = check(len, c, srcDst)) return s;
  mapElements([](auto x, auto square) { return x / (square + x * x); }, srcDst, long(len), srcDst,
              Same<Mox32f>{c * c});
  return moxOk;
}

MoxStatus cauchyDD2(Mox32f* srcDst, Mox32f* dst2, int len, Mox32f c) {
  if (MoxStatus s = check(len, c, srcDst, dst2)) return s;
  const auto put = [=]<class T>(T square, long i) {
    const T x = load<T>(srcDst + i), r = 1.0f / (square + x * x);
    store(srcDst + i, x * r);
    store(dst2 + i, r * r * (square - x * x));
  };
  long i = 0;
  for (; i <= len - lanesOf<Mox32f>; i += lanesOf<Mox32f>) put(broadcast<V<Mox32f>>(c * c), i);
  for (; i < len; ++i) put(c * c, i);
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsCauchy_32f_I, cauchy);
MOX_EXPORT(moxsCauchyD_32f_I, cauchyD);
MOX_EXPORT(moxsCauchyDD2_32f_I, cauchyDD2);

}  // namespace mox::channel
