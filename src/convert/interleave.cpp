// JoinScaled and SplitScaled: rows of channels in floats of -1 to 1, and one interleaved array of
// full-scale integers.
#include <moxsp/convert.h>

#include "convert/convert.h"
#include "frame/export.h"
#include "frame/map.h"
#include "frame/packed24.h"
#include "frame/rounding.h"

namespace mox::convert {
namespace {

template <class Pointer>
constexpr int digits = Limits<std::remove_cvref_t<decltype(*Pointer())>>::digits;

template <class Row>
MoxStatus checkRows(const void* interleaved, Row* const* rows, int channels, int len) {
  if (anyNull(interleaved)) return moxErrNullPtr;
  if (channels < 1 || len < 1) return moxErrSize;
  if (anyNull(rows)) return moxErrNullPtr;
  for (int c = 0; c < channels; ++c)
    if (anyNull(rows[c])) return moxErrNullPtr;
  return moxOk;
}

// A stretch of the interleaved array: whole frames, or a part of one that is very wide. In between
// it stands in floats.
struct Stretch {
  static constexpr int size = 512;

  int frame, frames;      // the first one and how many
  int channel, channels;  // of each frame
  long start, count;      // in the interleaved array

  // Calls move(row element, float of the piece) for each sample, row by row.
  template <class Row, class Move>
  void eachSample(Row* const* rows, Mox32f* piece, Move move) const {
    for (int c = 0; c < channels; ++c) {
      Row* const row = rows[channel + c] + frame;
      for (int j = 0; j < frames; ++j) move(row + j, piece[j * channels + c]);
    }
  }
};

template <class Step>
void inStretches(int channels, int len, Step step) {
  const int frames = std::max(1, Stretch::size / channels);
  for (int frame = 0; frame < len; frame += std::min(frames, len - frame))
    for (int channel = 0; channel < channels;
         channel += std::min(Stretch::size, channels - channel)) {
      const int height = std::min(frames, len - frame);
      const int width = std::min(Stretch::size, channels - channel);
      step(Stretch{frame, height, channel, width, long(frame) * channels + channel,
                   long(height) * width});
    }
}

template <class Packed = void, class D>
MoxStatus join(const Mox32f* const* srcRows, int channels, int len, D* dst) {
  if (MoxStatus s = checkRows(dst, srcRows, channels, len)) return s;
  const HiddenExceptions scope;
  auto* const out = samples<Packed>(dst);
  alignas(vectorBytes) Mox32f piece[Stretch::size];
  inStretches(channels, len, [&](const Stretch& s) {
    s.eachSample(srcRows, piece, [](const Mox32f* x, Mox32f& p) { p = load<Mox32f>(x); });
    convertToInteger(piece, out + s.start, s.count, moxRoundNearEven, -digits<decltype(out)>);
  });
  return moxOk;
}

template <class Packed = void, class E>
MoxStatus split(const E* src, Mox32f* const* dstRows, int channels, int len) {
  if (MoxStatus s = checkRows(src, dstRows, channels, len)) return s;
  const auto* const in = samples<Packed>(src);
  const Mox32f scale = powerOfTwo<Mox32f>(-digits<decltype(in)>);
  alignas(vectorBytes) Mox32f piece[Stretch::size];
  inStretches(channels, len, [&](const Stretch& s) {
    mapWidened<V<Mox32f>>([=](auto v) { return v * scale; }, piece, s.count, in + s.start);
    s.eachSample(dstRows, piece, [](Mox32f* y, Mox32f p) { store(y, p); });
  });
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsJoinScaled_32f16s_D2L, join);
MOX_EXPORT(moxsJoinScaled_32f24s_D2L, join<Packed24s>);
MOX_EXPORT(moxsSplitScaled_16s32f_D2L, split);
MOX_EXPORT(moxsSplitScaled_24s32f_D2L, split<Packed24s>);

}  // namespace mox::convert
