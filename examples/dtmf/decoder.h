// Dial tones in a stream of samples: pairs of one low and one high frequency (ITU-T Q.23).
#pragma once

#include <vector>

struct Digit {
  char symbol;
  double start, seconds;
};

class Decoder {
 public:
  static constexpr double leastRate = 4000;  // Hz, so that the band holds all tones

  explicit Decoder(double rate);

  // The next samples, full scale at 1.
  void write(const float* samples, long count);
  // Digits whose tones have ended.
  const std::vector<Digit>& digits() const { return digits_; }
  // Silence, for a tone that lasts until the end.
  void finish();

 private:
  char symbolIn(const float* frame) const;
  void hear(char symbol);
  void endTone();

  double rate_;
  int length_, hop_;
  std::vector<float> pending_;  // from the next frame on; silence before the first sample
  std::vector<Digit> digits_;
  long frame_ = 0;  // frames heard
  // The tone in progress: its symbol, the frames that it began with and was last heard in, and in
  // how many of those between it was heard.
  char symbol_ = 0;
  long first_ = 0, last_ = 0, heard_ = 0;
};
