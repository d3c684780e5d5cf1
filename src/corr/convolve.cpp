// Linear convolution: the shorter signal is the taps of the longer one.
#include <moxsp/corr.h>

#include "corr/fft_sum.h"
#include "corr/float_signal.h"

namespace mox::corr {
namespace {

struct Lengths {
  long longer, shorter;
  Lengths(long len1, long len2) : longer(std::max(len1, len2)), shorter(std::min(len1, len2)) {}

  long outputs() const { return longer + shorter - 1; }
  bool takeFft(Method method) const {
    if (method == Method::automatic) return outputs() >= 512 && shorter >= 64;
    return method == Method::fft;
  }
  FftPlan plan() const { return fftPlan(longer, shorter, 2); }
};

template <class E>
MoxStatus convolveBy(Method method, const E* src1, long len1, const E* src2, long len2, E* dst,
                     Mox8u* buffer = nullptr) {
  if (len1 < len2) std::swap(src1, src2), std::swap(len1, len2);
  const Lengths lengths(len1, len2);
  const SlidingSum<E> sum{Kind::convolution, src2, len2, src1, len1, 1 - len2};
  if (!lengths.takeFft(method)) {
    sumDirectly(sum, dst, lengths.outputs());
    return moxOk;
  }
  const FftPlan plan = lengths.plan();
  return inFftBuffer<E>(plan.order, sumArrays, buffer, [&](Arena arena) {
    sumByFft(sum, plan, arena, lengths.outputs(),
             [=](const E* results, long i, long n) { convert::takeIn(results, dst + i, n); });
  });
}

template <class... P>
MoxStatus check(int len1, int len2, const P*... pointers) {
  return checkArrays(std::min(len1, len2), pointers...);
}

template <class E>
MoxStatus conv(const E* src1, int len1, const E* src2, int len2, E* dst) {
  if (MoxStatus s = check(len1, len2, src1, src2, dst)) return s;
  return convolveBy(Method::automatic, src1, len1, src2, len2, dst);
}

MoxStatus convScaled(const Mox16s* src1, int len1, const Mox16s* src2, int len2, Mox16s* dst,
                     int scaleFactor) {
  if (MoxStatus s = check(len1, len2, src1, src2, dst)) return s;
  const HiddenExceptions scope;
  const FloatSignal a(src1, len1), b(src2, len2), c(long(len1) + len2 - 1);
  if (a.failed() || b.failed() || c.failed()) return moxErrMemAlloc;
  if (MoxStatus s =
          convolveBy(Method::automatic, a.samples(), len1, b.samples(), len2, c.samples()))
    return s;
  c.giveOut(dst, scaleFactor);
  return moxOk;
}

template <class E>
MoxStatus convolve(const E* src1, int len1, const E* src2, int len2, E* dst, Mox8u algType,
                   Mox8u* buffer) {
  if (MoxStatus s = check(len1, len2, src1, src2, dst, buffer)) return s;
  if (!isMethod(algType)) return moxErrAlgType;
  return convolveBy(Method(algType), src1, len1, src2, len2, dst, buffer);
}

MoxStatus convolveGetBufferSize(int len1, int len2, int dataType, Mox8u algType, int* bufferSize) {
  if (MoxStatus s = check(len1, len2, bufferSize)) return s;
  if (!isMethod(algType)) return moxErrAlgType;
  const Lengths lengths(len1, len2);
  store(bufferSize, 0);
  return reportSize<Mox32f, Mox64f>(dataType, bufferSize, [&]<class E>(E) -> long {
    if (!lengths.takeFft(Method(algType))) return WorkBuffer::alignment;
    return fftFigure<E>(lengths.plan().order, sumArrays);
  });
}

MoxStatus convBiased(const Mox32f* src1, int len1, const Mox32f* src2, int len2, Mox32f* dst,
                     int dstLen, int bias) {
  if (MoxStatus s = checkArrays(std::min({len1, len2, dstLen}), src1, src2, dst)) return s;
  sumDirectly<Mox32f>({Kind::convolution, src1, len1, src2, len2, long(bias) - len1 + 1}, dst,
                      dstLen);
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsConv_32f, conv<Mox32f>);
MOX_EXPORT(moxsConv_64f, conv<Mox64f>);
MOX_EXPORT(moxsConv_16s_Sfs, convScaled);
MOX_EXPORT(moxsConvolve_32f, convolve<Mox32f>);
MOX_EXPORT(moxsConvolve_64f, convolve<Mox64f>);
MOX_EXPORT(moxsConvolveGetBufferSize, convolveGetBufferSize);
MOX_EXPORT(moxsConvBiased_32f, convBiased);

}  // namespace mox::corr
