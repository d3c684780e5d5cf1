// The decoder of dial tones on files made here.
#include "example_test.h"

namespace {

using Samples = std::vector<double>;

constexpr double low[] = {697, 770, 852, 941}, high[] = {1209, 1336, 1477, 1633};
const std::string symbols = "123A456B789C*0#D";

// How a digit is dialled: rate of the file, amplitudes, seconds, deviation of the frequencies, and
// the amplitudes of what else sounds: an octave over the low tone, a hum of 400 Hz.
struct Dial {
  double rate = 8000, ofLow = 0.1, ofHigh = 0.1, tone = 0.06, pause = 0.06, detuning = 0,
         octave = 0, hum = 0;
};

void append(Samples& x, char symbol, const Dial& d) {
  const auto at = symbols.find(symbol);
  const double wLow = 2 * M_PI * low[at / 4] * (1 + d.detuning) / d.rate,
               wHigh = 2 * M_PI * high[at % 4] * (1 + d.detuning) / d.rate;
  const long count = std::lround(d.tone * d.rate);
  for (long i = 0; i < count; ++i)
    x.push_back(d.ofLow * std::sin(wLow * double(i)) + d.ofHigh * std::sin(wHigh * double(i)) +
                d.octave * std::sin(2 * wLow * double(i)) +
                d.hum * std::sin(2 * M_PI * 400 / d.rate * double(i)));
  x.resize(x.size() + std::size_t(std::lround(d.pause * d.rate)));
}

class Dtmf : public ExampleTest {
 protected:
  // What the program prints of a file, but for the end of the line.
  std::string decoded(const Samples& x, int rate = 8000, int channels = 1,
                      const std::string& options = "") const {
    write("in.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16, {rate, channels, x});
    const std::string text = outputOf(DTMF, path("in.wav") + options);
    return text.substr(0, text.size() - 1);
  }
};

// As fast and as far off as the standard allows, with 10 dB of noise.
TEST_F(Dtmf, HearsDetunedDigitsUnderNoise) {
  std::mt19937 engine(23);
  const auto between = [&](double a, double b) {
    return std::uniform_real_distribution<double>(a, b)(engine);
  };
  std::normal_distribution<double> noise(0, 0.0316);  // beside tones of amplitude 0.1
  Samples x(800);
  std::string sent;
  for (int i = 0; i < 200; ++i) {
    sent += symbols[engine() % 16];
    const double twist = std::pow(10, between(-3, 3) / 40);
    append(x, sent.back(),
           {8000, 0.1 * twist, 0.1 / twist, between(0.05, 0.1), between(0.05, 0.1),
            between(-0.015, 0.015)});
  }
  for (double& v : x) v += noise(engine);
  EXPECT_EQ(decoded(x), sent);
}

TEST_F(Dtmf, HearsNothingInSpeech) {
  for (const char* name : {"Front_Center", "Side_Left", "Rear_Right", "Rear_Center"}) {
    Sound voice = readSound(sounds + name + ".wav");
    const auto [least, most] = std::ranges::minmax(voice.samples);
    for (double& v : voice.samples) v *= 0.9 / std::max(most, -least);
    EXPECT_EQ(decoded(voice.samples, voice.rate), "") << name;
  }
}

TEST_F(Dtmf, HearsTheShortestTonesOfAllDigitsAtAnyRate) {
  for (const int rate : {4000, 8000, 11025, 44100, 96000}) {
    Samples x;
    for (const char symbol : symbols)
      append(x, symbol, {.rate = double(rate), .tone = 0.04, .pause = 0.04});
    EXPECT_EQ(decoded(x, rate), symbols) << rate << " Hz";
  }
}

// Too short, too unequal, of one tone alone, as of a voice, or amid louder sound is no digit; a
// short gap does not make it two.
TEST_F(Dtmf, KeepsTheRulesOfTwistDurationAndSilence) {
  Samples x(800);
  append(x, '1', {.tone = 0.018});
  append(x, '2', {.ofLow = 0.4, .ofHigh = 0.1});
  append(x, '3', {.ofLow = 0.1, .ofHigh = 0.3});
  append(x, '4', {.ofLow = 0.1, .ofHigh = 0});
  append(x, '8', {.octave = 0.2});
  append(x, '9', {.hum = 0.5});
  append(x, '5', {.pause = 0.008});
  append(x, '5', {});
  append(x, '6', {.ofLow = 0.2, .ofHigh = 0.1});
  append(x, '7', {.ofLow = 0.1, .ofHigh = 0.15});
  append(x, '7', {});
  EXPECT_EQ(decoded(x), "5677");
}

TEST_F(Dtmf, TellsTimesOfTheChosenChannel) {
  Samples tones(4000), both;
  append(tones, '9', {.tone = 0.1, .pause = 0.1});
  for (const double v : tones) both.insert(both.end(), {0, v});
  EXPECT_EQ(decoded(both, 8000, 2), "");
  const std::string text = decoded(both, 8000, 2, " --times --channel 2");
  EXPECT_NEAR(figureBehind("9 at ", text), 0.5, 0.01);
  EXPECT_NEAR(figureBehind(" for ", text), 0.1, 0.015);
}

}  // namespace
