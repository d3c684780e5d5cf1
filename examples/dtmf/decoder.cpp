#include "decoder.h"

#include <algorithm>
#include <cmath>

#include "support/require.h"

namespace {

constexpr int groupSize = 4;
constexpr double lowTones[groupSize] = {697, 770, 852, 941},
                 highTones[groupSize] = {1209, 1336, 1477, 1633};
constexpr char symbols[groupSize][groupSize + 1] = {"123A", "456B", "789C", "*0#D"};

// A frame is short enough to fit twice into the shortest tone and its pause, 40 ms each, and long
// enough to tell neighbouring tones apart.
constexpr double frameSeconds = 0.0256;
constexpr int hopsPerFrame = 4;
constexpr double filled = 0.4;  // of a frame in which a tone is heard, about

// Energies of a frame, as ratios.
constexpr double leastTone = 1e-5;       // of a full-scale tone's
constexpr double mostNormalTwist = 8;    // low over high
constexpr double mostReverseTwist = 6;   // high over low
constexpr double leastLead = 4;          // of a tone over the others of its group
constexpr double leastOverHarmonic = 4;  // of a tone over twice its frequency
constexpr double leastShare = 0.25;      // of both tones in all that sounds

// Rules of duration, in hops.
constexpr long leastHeard = 6;  // more than 20 ms of tone
constexpr long mostMissed = 3;  // a longer gap is a pause

struct Peak {
  int index;
  double energy, next;
};
Peak peakOf(const double (&energies)[groupSize]) {
  const int index = int(std::max_element(energies, energies + groupSize) - energies);
  Peak peak = {index, energies[index], 0};
  for (int i = 0; i < groupSize; ++i)
    if (i != index) peak.next = std::max(peak.next, energies[i]);
  return peak;
}

double energyOf(Mox32fc bin, int length) {
  return 2 * (double(bin.re) * bin.re + double(bin.im) * bin.im) / length;
}

}  // namespace

Decoder::Decoder(double rate)
    : rate_(rate),
      length_(int(std::lround(rate * frameSeconds / hopsPerFrame)) * hopsPerFrame),
      hop_(length_ / hopsPerFrame),
      pending_(std::size_t(length_ - hop_)) {}

void Decoder::write(const float* samples, long count) {
  pending_.insert(pending_.end(), samples, samples + count);
  std::size_t at = 0;
  for (; at + std::size_t(length_) <= pending_.size(); at += std::size_t(hop_))
    hear(symbolIn(pending_.data() + at));
  pending_.erase(pending_.begin(), pending_.begin() + long(at));
}

void Decoder::finish() {
  const std::vector<float> silence(std::size_t(length_ + hop_ * (mostMissed + 1)));
  write(silence.data(), long(silence.size()));
}

// What a frame sounds like, 0 for no digit.
char Decoder::symbolIn(const float* frame) const {
  const auto energiesAt = [&](double low, double high, double& ofLow, double& ofHigh) {
    const Mox32f relFreq[] = {Mox32f(low / rate_), Mox32f(high / rate_)};
    Mox32fc bins[2];
    require(moxsGoertzTwo_32f(frame, length_, bins, relFreq), "moxsGoertzTwo_32f");
    ofLow = energyOf(bins[0], length_), ofHigh = energyOf(bins[1], length_);
  };
  double low[groupSize], high[groupSize];
  for (int i = 0; i < groupSize; ++i) energiesAt(lowTones[i], highTones[i], low[i], high[i]);
  const Peak l = peakOf(low), h = peakOf(high);

  if (std::min(l.energy, h.energy) < leastTone * length_ / 2) return 0;
  if (l.energy > mostNormalTwist * h.energy || h.energy > mostReverseTwist * l.energy) return 0;
  if (l.energy < leastLead * l.next || h.energy < leastLead * h.next) return 0;

  Mox64f whole = 0;
  require(moxsDotProd_32f64f(frame, frame, length_, &whole), "moxsDotProd_32f64f");
  if (l.energy + h.energy < leastShare * whole) return 0;

  double ofLow, ofHigh;
  energiesAt(2 * lowTones[l.index], std::min(2 * highTones[h.index], rate_ / 2), ofLow, ofHigh);
  if (l.energy < leastOverHarmonic * ofLow || h.energy < leastOverHarmonic * ofHigh) return 0;
  return symbols[l.index][h.index];
}

// The rules of duration and silence.
void Decoder::hear(char symbol) {
  if (symbol_ && symbol != symbol_ && frame_ - last_ > mostMissed) endTone();
  if (symbol && symbol == symbol_) {
    last_ = frame_, ++heard_;
  } else if (symbol && heard_ < leastHeard) {
    symbol_ = symbol, first_ = last_ = frame_, heard_ = 1;
  }
  ++frame_;
}

void Decoder::endTone() {
  if (symbol_ && heard_ >= leastHeard) {
    const double hop = hop_ / rate_;
    digits_.push_back({symbol_, double(first_ + 1) * hop - filled * frameSeconds,
                       double(last_ - first_) * hop + (2 * filled - 1) * frameSeconds});
  }
  symbol_ = 0, heard_ = 0;
}
