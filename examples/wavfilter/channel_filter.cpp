#include "channel_filter.h"

#include "support/require.h"

template <>
ChannelFilter<Mox32f>::ChannelFilter(const std::vector<float>& taps) {
  int bytes;
  require(moxsFIRGetStateSize_32f(int(taps.size()), &bytes), "moxsFIRGetStateSize_32f");
  memory_.resize(bytes);
  require(moxsFIRInit_32f(&state_, taps.data(), int(taps.size()), nullptr, memory_.data()),
          "moxsFIRInit_32f");
}

template <>
void ChannelFilter<Mox32f>::run(std::vector<Mox32f>& block) {
  require(moxsFIR_32f_I(block.data(), int(block.size()), state_), "moxsFIR_32f_I");
}

template <>
ChannelFilter<Mox16s>::ChannelFilter(const std::vector<float>& taps) {
  int bytes;
  require(moxsFIRGetStateSize32f_16s(int(taps.size()), &bytes), "moxsFIRGetStateSize32f_16s");
  memory_.resize(bytes);
  require(moxsFIRInit32f_16s(&state_, taps.data(), int(taps.size()), nullptr, memory_.data()),
          "moxsFIRInit32f_16s");
}

template <>
void ChannelFilter<Mox16s>::run(std::vector<Mox16s>& block) {
  require(moxsFIR32f_16s_ISfs(block.data(), int(block.size()), state_, 0), "moxsFIR32f_16s_ISfs");
}
