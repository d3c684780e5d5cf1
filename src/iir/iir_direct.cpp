// The forms without a state, on 16-bit samples and taps. Sections are b[0..order], s, a[1..order]:
// all taps are in units of 2^-s. Single samples are filtered in 32-bit arithmetic that wraps,
// blocks by way of floats.
#include "frame/checks.h"
#include "frame/export.h"
#include "frame/in_place.h"
#include "iir/iir_filter.h"
#include "iir/iir_taps.h"

namespace mox::iir {
namespace {

// What the caller passes, of one section after the other.
template <Form form>
struct Cascade {
  const Mox16s* taps;
  int count;
  Mox32s* dlyLine;
  int order = form == Form::ar ? count : 2, sections = form == Form::ar ? 1 : count;

  long stride() const { return 2L * (order + 1); }
  const Mox16s* tapsOf(int section) const { return taps + stride() * section; }
  Mox32s* sumsOf(int section) const { return dlyLine + long(order) * section; }
  int shiftOf(int section) const { return load<Mox16s>(tapsOf(section) + order + 1); }
};

// The lower 32 bits of a shifted sum, half to even; a shift of 0 adds 2^31 - 1 to an even sum.
Mox32s shifted(Mox32u sum, int shift) {
  const int places = shift & 31;
  const Mox32u lowBit = Mox32u(Mox32s(sum) >> places) & 1;
  return Mox32s(sum + lowBit + (1u << ((places + 31) & 31)) - 1) >> places;
}

// One sample through one section; unsigned arithmetic wraps.
Mox32s step(const Mox16s* taps, int order, int shift, Mox32s* d, Mox32s x) {
  const auto product = [=](long tap, Mox32s sample) {
    return Mox32u(Mox32s(load<Mox16s>(taps + tap))) * Mox32u(sample);
  };
  const auto sum = [=](int i) { return i < order ? load<Mox32u>(d + i) : 0; };
  const Mox32s y = shifted(product(0, x) + sum(0), shift);
  for (int i = 0; i < order; ++i)
    store(d + i, product(i + 1, x) - product(order + 2L + i, y) + sum(i + 1));
  return y;
}

// Sections before one with a negative shift have taken the sample in.
template <Form form>
MoxStatus one(Mox16s src, Mox16s* dst, const Mox16s* taps, int count, Mox32s* dlyLine) {
  if (count < 1) return moxErrIirOrder;
  if (anyNull(dst, taps, dlyLine)) return moxErrNullPtr;
  const Cascade<form> cascade = {taps, count, dlyLine};
  Mox32s x = src;
  for (int k = 0; k < cascade.sections; ++k) {
    const int shift = cascade.shiftOf(k);
    if (shift < 0) return moxErrIirTapFactor;
    x = step(cascade.tapsOf(k), cascade.order, shift, cascade.sumsOf(k), x);
  }
  store(dst, Mox16s(std::clamp(x, -32768, 32767)));
  return moxOk;
}
template <Form form>
MoxStatus oneInPlace(Mox16s* srcDst, const Mox16s* taps, int count, Mox32s* dlyLine) {
  if (count < 1) return moxErrIirOrder;
  if (anyNull(srcDst)) return moxErrNullPtr;
  return one<form>(load<Mox16s>(srcDst), srcDst, taps, count, dlyLine);
}

using C = Iir32f16s;

template <Form form>
MoxStatus writeContents(const Cascade<form>& cascade, StateOf<C>& s) {
  const long stride = cascade.stride();
  const WorkBuffer memory(nullptr, stride * cascade.sections * long(sizeof(Mox32f)));
  if (memory.failed()) return moxErrMemAlloc;
  Mox32f* const taps = memory.as<Mox32f>();
  for (int k = 0; k < cascade.sections; ++k) {
    const int order = cascade.order, shift = cascade.shiftOf(k);
    convert::convertScaledValues(cascade.tapsOf(k), taps + stride * k, stride, shift);
    taps[stride * k + order + 1] = 1;
    convert::convertScaledValues(cascade.sumsOf(k), s.dlyLine + long(order) * k, order, shift);
  }
  return setTaps<Mox32f>(s, taps, form == Form::biquad);
}

template <Form form>
MoxStatus block(const Mox16s* src, Mox16s* dst, int len, const Mox16s* taps, int count,
                Mox32s* dlyLine) {
  if (count < 1) return moxErrIirOrder;
  if (anyNull(src, dst, taps, dlyLine)) return moxErrNullPtr;
  const Cascade<form> cascade = {taps, count, dlyLine};
  for (int k = 0; k < cascade.sections; ++k)
    if (cascade.shiftOf(k) < 0) return moxErrIirTapFactor;
  if (MoxStatus e = checkLength(len)) return e;
  MoxsIIRState* state;
  if (MoxStatus e = initAlloc<Kind<C>>(&state, C::idOf(form), {form, count},
                                       [&](StateOf<C>& s) { return writeContents(cascade, s); }))
    return e;
  auto& s = stateOf<C>(state);
  filter<C>(s, src, dst, len, 0);
  for (int k = 0; k < cascade.sections; ++k)
    convert::convertToInteger(s.dlyLine + long(cascade.order) * k, cascade.sumsOf(k), cascade.order,
                              moxRoundNearEven, -cascade.shiftOf(k));
  return release<Kind<C>>(state, C::idOf(form));
}

}  // namespace

MOX_EXPORT(moxsIIR_Direct_16s, block<Form::ar>);
MOX_EXPORT_IN_PLACE(moxsIIR_Direct_16s_I, block<Form::ar>);
MOX_EXPORT(moxsIIROne_Direct_16s, one<Form::ar>);
MOX_EXPORT(moxsIIROne_Direct_16s_I, oneInPlace<Form::ar>);
MOX_EXPORT_BOTH(moxsIIR_BiQuadDirect_16s, moxsIIR_BiQuadDirect_16s_I, block<Form::biquad>);
MOX_EXPORT(moxsIIROne_BiQuadDirect_16s, one<Form::biquad>);
MOX_EXPORT(moxsIIROne_BiQuadDirect_16s_I, oneInPlace<Form::biquad>);

}  // namespace mox::iir
