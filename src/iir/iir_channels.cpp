// Channels: the cascades of as many as there are lanes are filtered side by side.
#include "frame/checks.h"
#include "frame/export.h"
#include "iir/iir_filter.h"
#include "iir/iir_steps.h"
#include "iir/second_order.h"

namespace mox::iir {
namespace {

using F = Mox32f;

constexpr int mostChannels = stretchesOf<F>;

// With fewer channels one after the other takes less time.
constexpr int leastChannels = 6;

struct Channel {
  State<F>* state;
  const F* src;
  F* dst;
};

// Channels of equal shape. Lanes that are left over repeat the last one.
class Group {
 public:
  Group(const Channel* channels, int count) : channels_(channels), last_(count - 1) {}

  const Channel& operator()(int lane) const { return channels_[std::min(lane, last_)]; }
  void each(auto f) const {
    for (int i = 0; i <= last_; ++i) f(channels_[i]);
  }

 private:
  const Channel* channels_;
  int last_;
};

void filterSections(Group group, Row<F>* rows, long length) {
  const int sections = group(0).state->sections;
  for (int k = 0; k < sections; ++k) {
    Row<F> taps[tileNumbers], past[tileNumbers];
    const auto pastOf = [=](int lane) {
      const State<F>& s = *group(lane).state;
      return s.past + s.pastOf(k);
    };
    const auto tapsOf = [=](int lane) {
      const State<F>& s = *group(lane).state;
      return s.taps + s.tapsOf(k);
    };
    loadRows(tapsOf, tileNumbers, taps);
    loadRows(pastOf, tileNumbers, past);
    filterSecondOrder([&](int tap, int r) { return taps[tap].lanes[r]; }, past, rows, length,
                      asItIs);
    storeRows(past, tileNumbers, pastOf);
  }
}

void filterSideBySide(Group group, long len) {
  Row<F>* const rows = group(0).state->rows;
  group.each([](const Channel& c) { setOff(*c.state, c.src, c.dst); });
  long i = samplesToSetOff(*group(0).state);
  while (len - i >= tileRows<F>) {
    const long length = std::min<long>(mostLength, len - i);
    loadRows([=](int lane) { return group(lane).src + i; }, length, rows);
    filterSections(group, rows, length);
    storeRows(rows, length, [=](int lane) { return group(lane).dst + i; });
    i += length;
  }
  group.each([=](const Channel& c) {
    refillDelayLine(*c.state);
    filterInSteps(*c.state, c.src + i, c.dst + i, len - i);
  });
}

void filterGroup(const Channel* channels, int count, long len) {
  const bool equal = std::all_of(channels, channels + count, [=](const Channel& c) {
    return c.state->sections == channels->state->sections;
  });
  if (equal && count >= leastChannels && len >= 2 + tileRows<F>)
    filterSideBySide({channels, count}, len);
  else
    for (int i = 0; i < count; ++i)
      filterBlock(*channels[i].state, channels[i].src, channels[i].dst, len);
}

template <class T>
T* pointerAt(T* const* array, int i) {
  return load<T*>(array + i);
}

// Cascades go in pairs: both of a pair are good, or neither is filtered.
MoxStatus filterCascades(const F* const* src, F* const* dst, long len, int channels,
                         MoxsIIRState* const* state) {
  for (int done = 0; done < channels;) {
    Channel group[mostChannels];
    int count = 0;
    MoxStatus status = moxOk;
    while (!status && done + count < channels && count < mostChannels) {
      const int pair = std::min(2, channels - done - count);
      for (int i = 0; i < pair && !status; ++i) {
        const int c = done + count + i;
        MoxsIIRState* const s = pointerAt(state, c);
        group[count + i] = {nullptr, pointerAt(src, c), pointerAt(dst, c)};
        if (anyNull(s, group[count + i].src, group[count + i].dst))
          status = moxErrNullPtr;
        else if (!(status = requireId(s, Iir32f::biquad)))
          group[count + i].state = &stateOf<Iir32f>(s);
      }
      if (!status) count += pair;
    }
    if (count > 0) filterGroup(group, count, len);
    if (status) return status;
    done += count;
  }
  return moxOk;
}

// One channel after the other, each with a factor.
template <class C, class Factor>
MoxStatus filterOneByOne(const typename C::Data* const* src, typename C::Data* const* dst, long len,
                         int channels, MoxsIIRState* const* state, Factor factor) {
  for (int c = 0; c < channels; ++c) {
    MoxsIIRState* const s = pointerAt(state, c);
    const auto* from = pointerAt(src, c);
    auto* to = pointerAt(dst, c);
    if (anyNull(s, from, to)) return moxErrNullPtr;
    if (MoxStatus e = requireId(s, C::ar, C::biquad, C::directForm1)) return e;
    filter<C>(stateOf<C>(s), from, to, len, factor(c));
  }
  return moxOk;
}

template <class... Arrays>
MoxStatus checkChannels(long len, int channels, MoxStatus tooFew, MoxsIIRState* const* state,
                        Arrays... arrays) {
  if (MoxStatus e = checkArrays(len, state, arrays...)) return e;
  if (channels < 1) return tooFew;
  return anyNull(pointerAt(state, 0)) ? MoxStatus(moxErrNullPtr) : moxOk;
}

// The first state decides whether all must be cascades.
MoxStatus iir32f(const F* const* src, F* const* dst, int len, int channels,
                 MoxsIIRState* const* state) {
  if (MoxStatus e = checkChannels(len, channels, moxErrChannel, state, src, dst)) return e;
  if (isOneOf(pointerAt(state, 0), Iir32f::biquad))
    return filterCascades(src, dst, len, channels, state);
  return filterOneByOne<Iir32f>(src, dst, len, channels, state, [](int) { return 0; });
}
MoxStatus iir32fInPlace(F* const* srcDst, int len, int channels, MoxsIIRState* const* state) {
  return iir32f(srcDst, srcDst, len, channels, state);
}

MoxStatus iir64f32s(const Mox32s* const* src, Mox32s* const* dst, int len, int channels,
                    MoxsIIRState* const* state, const int* scaleFactor) {
  if (MoxStatus e = checkChannels(len, channels, moxErrChannelCount, state, src, dst, scaleFactor))
    return e;
  return filterOneByOne<Iir64f32s>(src, dst, len, channels, state,
                                   [=](int c) { return load<int>(scaleFactor + c); });
}
MoxStatus iir64f32sInPlace(Mox32s* const* srcDst, int len, int channels, MoxsIIRState* const* state,
                           const int* scaleFactor) {
  return iir64f32s(srcDst, srcDst, len, channels, state, scaleFactor);
}

}  // namespace

MOX_EXPORT(moxsIIR_32f_P, iir32f);
MOX_EXPORT(moxsIIR_32f_IP, iir32fInPlace);
MOX_EXPORT(moxsIIR64f_32s_PSfs, iir64f32s);
MOX_EXPORT(moxsIIR64f_32s_IPSfs, iir64f32sInPlace);

}  // namespace mox::iir
