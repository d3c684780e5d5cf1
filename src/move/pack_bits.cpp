#include <moxsp/move.h>

#include <algorithm>
#include <limits>

#include "frame/export.h"
#include "frame/vec/vec.h"

namespace mox::move {
namespace {

// Gathers a bit string, the most significant bit first, and writes it out by words of 32 bits as
// they fill up.
class BitWriter {
 public:
  // The top `kept` bits of *dst begin the string.
  BitWriter(Mox8u* dst, int kept) : dst_(dst), count_(kept) {
    if (kept) bits_ = *dst >> (8 - kept);
  }

  // Up to 32 bits; those of `value` above them are ignored.
  void put(Mox32u value, int width) {
    bits_ = bits_ << width | (value & ((Mox64u(1) << width) - 1));
    count_ += width;
    if (count_ >= 32) {
      count_ -= 32;
      store(dst_, __builtin_bswap32(Mox32u(bits_ >> count_)));
      dst_ += 4;
    }
  }

  // Writes what is left, and leaves the bits behind it in the last byte alone.
  void finish() {
    for (; count_ >= 8; count_ -= 8) *dst_++ = Mox8u(bits_ >> (count_ - 8));
    if (count_ == 0) return;
    const int free = 8 - count_, behind = (1 << free) - 1;
    *dst_ = Mox8u(Mox8u(bits_ << free) | (*dst_ & behind));
  }

 private:
  Mox8u* dst_;
  Mox64u bits_ = 0;  // the low count_ bits are yet to be written
  int count_;        // below 32 between calls
};

MoxStatus packBits(const Mox32u* src, const int* bitWidths, int len, Mox8u* dst, int dstBitOffset,
                   int* dstBitLen) {
  if (MoxStatus s = checkArrays(len, src, bitWidths, dst, dstBitLen)) return s;
  if (dstBitOffset < 0) return moxErrSize;
  BitWriter writer(dst, dstBitOffset & 7);
  MoxStatus status = moxOk;
  long total = 0;
  for (long i = 0; i < len; ++i) {
    const int asked = load<int>(bitWidths + i), width = std::clamp(asked, 0, 32);
    if (width != asked) status = moxWarnBitWidth;
    writer.put(load<Mox32u>(src + i), width);
    total += width;
  }
  writer.finish();
  store(dstBitLen, int(std::min(total, long(std::numeric_limits<int>::max()))));
  return status;
}

}  // namespace

MOX_EXPORT(moxsPackBits_32u8u, packBits);

}  // namespace mox::move
