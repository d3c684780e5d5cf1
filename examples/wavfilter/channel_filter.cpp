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
void ChannelFilter<Mox32f>::run(const std::vector<Mox32f>& samples, std::vector<Mox32f>& filtered) {
  require(moxsFIR_32f(samples.data(), filtered.data(), int(samples.size()), state_), "moxsFIR_32f");
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
void ChannelFilter<Mox16s>::run(const std::vector<Mox16s>& samples, std::vector<Mox16s>& filtered) {
  require(moxsFIR32f_16s_Sfs(samples.data(), filtered.data(), int(samples.size()), state_, 0),
          "moxsFIR32f_16s_Sfs");
}
