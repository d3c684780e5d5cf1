#include "channel_filter.h"

#include "support/require.h"

template <>
ChannelFilter<Mox32f>::ChannelFilter(const std::vector<Section>& cascade) {
  const int sections = int(cascade.size());
  int bytes;
  require(moxsIIRGetStateSize64f_BiQuad_32f(sections, &bytes), "moxsIIRGetStateSize64f_BiQuad_32f");
  memory_.resize(bytes);
  require(moxsIIRInit64f_BiQuad_32f(&state_, cascade[0].data(), sections, nullptr, memory_.data()),
          "moxsIIRInit64f_BiQuad_32f");
}

template <>
void ChannelFilter<Mox32f>::run(std::vector<Mox32f>& block) {
  require(moxsIIR64f_32f_I(block.data(), int(block.size()), state_), "moxsIIR64f_32f_I");
}

template <>
ChannelFilter<Mox16s>::ChannelFilter(const std::vector<Section>& cascade) {
  const int sections = int(cascade.size());
  int bytes;
  require(moxsIIRGetStateSize64f_BiQuad_16s(sections, &bytes), "moxsIIRGetStateSize64f_BiQuad_16s");
  memory_.resize(bytes);
  require(moxsIIRInit64f_BiQuad_16s(&state_, cascade[0].data(), sections, nullptr, memory_.data()),
          "moxsIIRInit64f_BiQuad_16s");
}

template <>
void ChannelFilter<Mox16s>::run(std::vector<Mox16s>& block) {
  require(moxsIIR64f_16s_ISfs(block.data(), int(block.size()), state_, 0), "moxsIIR64f_16s_ISfs");
}
