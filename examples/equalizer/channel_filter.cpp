#include "channel_filter.h"

#include "support/require.h"

namespace {

void widen(const Mox16s* x, Mox64f* y, int len) {
  require(moxsConvert_16s64f_Sfs(x, y, len, 0), "moxsConvert_16s64f_Sfs");
}
void widen(const Mox32f* x, Mox64f* y, int len) {
  require(moxsConvert_32f64f(x, y, len), "moxsConvert_32f64f");
}
void narrow(const Mox64f* x, Mox16s* y, int len) {
  require(moxsConvert_64f16s_Sfs(x, y, len, moxRoundNearEven, 0), "moxsConvert_64f16s_Sfs");
}
void narrow(const Mox64f* x, Mox32f* y, int len) {
  require(moxsConvert_64f32f(x, y, len), "moxsConvert_64f32f");
}

}  // namespace

template <class Sample>
ChannelFilter<Sample>::ChannelFilter(const std::vector<Taps>& bands) {
  for (const Taps& taps : bands) {
    const int order = int(taps.size()) / 2 - 1;
    int bytes;
    require(moxsIIRGetStateSize_64f(order, &bytes), "moxsIIRGetStateSize_64f");
    memory_.emplace_back(bytes);
    require(moxsIIRInit_64f(&states_.emplace_back(), taps.data(), order, nullptr,
                            memory_.back().data()),
            "moxsIIRInit_64f");
  }
}

template <class Sample>
void ChannelFilter<Sample>::run(std::vector<Sample>& block) {
  const int len = int(block.size());
  wide_.resize(block.size());
  widen(block.data(), wide_.data(), len);
  for (MoxsIIRState* state : states_)
    require(moxsIIR_64f_I(wide_.data(), len, state), "moxsIIR_64f_I");
  narrow(wide_.data(), block.data(), len);
}

template class ChannelFilter<Mox16s>;
template class ChannelFilter<Mox32f>;
