// The Jaehne signal: a sine whose frequency grows from 0 to a half.
#include <moxsp/generators.h>

#include <algorithm>

#include "arith/vector_functions.h"
#include "frame/export.h"
#include "frame/rounding_control.h"
#include "gen/fill.h"

namespace mox::gen {
namespace {

// dst[n] = magn sin(n h n) with h = pi / (2 len); as many sines at once as the buffer holds.
template <class E>
void fillJaehne(E* dst, long len, Mox64f magn) {
  constexpr long stretch = 16 * blockLen;
  const Mox64f h = 1.5707963267948966 / Mox64f(len);
  RampBlocks index({0, 1});
  for (long i = 0; i < len; i += stretch) {
    Mox64f sines[stretch];
    const long count = std::min(stretch, len - i);
    const int whole = int((count + blockLen - 1) / blockLen * blockLen);
    fillBlocks(sines, whole, [&](int) {
      const auto n = index.next();
      return blockOf<Mox64f>([&](int j) { return n.v[j] * h * n.v[j]; });
    });
    arith::ownsSin(sines, sines, whole);
    const Mox64f* from = sines;
    fillRounded(dst + i, count, [&] {
      const auto block = blockOf<Mox64f>(
          [&](int j) { return load<V<Mox64f>>(from + j * lanesOf<Mox64f>) * magn; });
      from += blockLen;
      return block;
    });
  }
}

template <class E>
MoxStatus vectorJaehne(E* dst, int len, E magn) {
  if (MoxStatus s = checkArrays(len, dst)) return s;
  if (magn < 0) return moxErrJaehneMagn;
  const ResultScope<E> scope;
  fillJaehne(dst, len, Mox64f(magn));
  return moxOk;
}

// Half the amplitude, with a sign, raised by the most negative value.
template <class E>
MoxStatus vectorJaehneUnsigned(E* dst, int len, E magn) {
  if (MoxStatus s = checkArrays(len, dst)) return s;
  using Signed = std::make_signed_t<E>;
  const ResultScope<E> scope;
  fillJaehne(reinterpret_cast<Signed*>(dst), len, 0.5 * Mox64f(magn));
  Signed lowest = 0;
  for (int i = 0; i < len; ++i) lowest = std::min(lowest, load<Signed>(dst + i));
  for (int i = 0; i < len; ++i) store(dst + i, E(load<E>(dst + i) - E(lowest)));
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsVectorJaehne_8s, vectorJaehne);
MOX_EXPORT(moxsVectorJaehne_8u, vectorJaehneUnsigned);
MOX_EXPORT(moxsVectorJaehne_16s, vectorJaehne);
MOX_EXPORT(moxsVectorJaehne_16u, vectorJaehneUnsigned);
MOX_EXPORT(moxsVectorJaehne_32s, vectorJaehne);
MOX_EXPORT(moxsVectorJaehne_32u, vectorJaehneUnsigned);
MOX_EXPORT(moxsVectorJaehne_32f, vectorJaehne);
MOX_EXPORT(moxsVectorJaehne_64f, vectorJaehne);

}  // namespace mox::gen
