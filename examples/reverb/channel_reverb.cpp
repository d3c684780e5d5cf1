#include "channel_reverb.h"

#include "support/require.h"

ChannelReverb::ChannelReverb(const RoomResponse& r, int block)
    : history_(r.tail.size() - 1), tail_(block) {
  const int reflections = int(r.positions.size()), tailLen = int(r.tail.size());
  int size, bufferSize;
  require(moxsFIRSparseGetStateSize_32f(reflections, r.positions.back(), &size),
          "moxsFIRSparseGetStateSize_32f");
  earlyMemory_.resize(size);
  require(moxsFIRSparseInit_32f(&early_, r.early.data(), r.positions.data(), reflections, nullptr,
                                earlyMemory_.data()),
          "moxsFIRSparseInit_32f");
  require(moxsFIRSRGetSize(tailLen, moxType32f, &size, &bufferSize), "moxsFIRSRGetSize");
  tailMemory_.resize(size);
  buffer_.resize(bufferSize);
  require(moxsFIRSRInit_32f(r.tail.data(), tailLen, moxAlgAuto, spec()), "moxsFIRSRInit_32f");
}

void ChannelReverb::run(std::vector<float>& block) {
  const int len = int(block.size());
  require(moxsFIRSR_32f(block.data(), tail_.data(), len, history_.data(), history_.data(), spec(),
                        buffer_.data()),
          "moxsFIRSR_32f");
  require(moxsFIRSparse_32f(block.data(), block.data(), len, early_), "moxsFIRSparse_32f");
  require(moxsAdd_32f_I(tail_.data(), block.data(), len), "moxsAdd_32f_I");
}
