// The decoder of dial tones on files made here, beside spandsp's on the same files.
#include <spandsp.h>

#include <algorithm>

#include "example_test.h"

namespace {

using Samples = std::vector<double>;

constexpr double low[] = {697, 770, 852, 941}, high[] = {1209, 1336, 1477, 1633};
const std::string symbols = "123A456B789C*0#D";

std::mt19937 engine(23);
double between(double a, double b) { return std::uniform_real_distribution<double>(a, b)(engine); }

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

double power(const Samples& x) {
  double sum = 0;
  for (const double v : x) sum += v * v;
  return sum / double(x.size());
}

void add(Samples& x, const Samples& disturbance, double itsPower) {
  const double factor = std::sqrt(itsPower / power(disturbance));
  for (std::size_t i = 0; i < x.size(); ++i) x[i] += factor * disturbance[i];
}

class Dtmf : public ExampleTest {
 protected:
  // The recorded voice at 8000 Hz, over and over.
  Samples speech(std::size_t count) const {
    Samples x;
    for (const char* name : {"Front_Center", "Side_Left", "Rear_Right", "Rear_Center"}) {
      outputOf(RESAMPLE, sounds + name + ".wav " + path("voice.wav") + " --rate 8000");
      const Samples part = readSound(path("voice.wav")).samples;
      x.insert(x.end(), part.begin(), part.end());
    }
    for (std::size_t i = 0; x.size() < count; ++i) x.push_back(x[i]);
    x.resize(count);
    return x;
  }
  void write(const Samples& x, int rate = 8000, int channels = 1) const {
    ExampleTest::write("in.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16, {rate, channels, x});
  }
  std::string output(const std::string& options = "") const {
    return outputOf(DTMF, path("in.wav") + " " + options);
  }
  std::string decoded() const {
    const std::string line = output();
    return line.substr(0, line.size() - 1);
  }
  std::string decodedByPeer() const {
    std::vector<short> x;
    for (const double v : readSound(path("in.wav")).samples) x.push_back(short(v * 32768));
    std::string all;
    dtmf_rx_state_t* peer = dtmf_rx_init(nullptr, nullptr, nullptr);
    for (std::size_t i = 0; i < x.size(); i += 160) {
      std::array<char, 130> digits;
      dtmf_rx(peer, &x[i], int(std::min<std::size_t>(160, x.size() - i)));
      all.append(digits.data(), dtmf_rx_get(peer, digits.data(), 128));
    }
    dtmf_rx_free(peer);
    return all;
  }
};

struct Score {
  long right = 0, wrong = 0;

  // The longest sequence that both have counts as right, what else was heard as wrong.
  void add(const std::string& sent, const std::string& heard) {
    std::vector<long> best(heard.size() + 1);
    for (const char s : sent) {
      long diagonal = 0;
      for (std::size_t i = 0; i < heard.size(); ++i) {
        const long above = best[i + 1];
        best[i + 1] = heard[i] == s ? diagonal + 1 : std::max(above, best[i]);
        diagonal = above;
      }
    }
    right += best.back(), wrong += long(heard.size()) - best.back();
  }
};

// 700 digits under noise and under speech, from 0 to 30 dB.
TEST_F(Dtmf, HearsNoLessAndImaginesNoMoreThanThePeer) {
  Score ours, peers;
  for (const bool voice : {false, true})
    for (int decibels = 0; decibels <= 30; decibels += 5) {
      Samples x(800), noise;
      std::string sent;
      for (int i = 0; i < 50; ++i) {
        sent += symbols[engine() % 16];
        const double level = between(0.05, 0.2), twist = std::pow(10, between(-3, 3) / 40);
        append(x, sent.back(),
               {8000, level * twist, level / twist, between(0.05, 0.1), between(0.05, 0.1),
                between(-0.015, 0.015)});
      }
      const double ofTones = 0.01;  // the power of amplitudes of 0.1
      std::normal_distribution<double> normal;
      std::generate_n(std::back_inserter(noise), x.size(), [&] { return normal(engine); });
      add(x, voice ? speech(x.size()) : noise, ofTones / std::pow(10, decibels / 10.0));
      write(x);
      const long before = peers.right - ours.right;
      ours.add(sent, decoded()), peers.add(sent, decodedByPeer());
      EXPECT_LE(peers.right - ours.right - before, 1) << decibels << " dB, voice " << voice;
    }
  EXPECT_GE(ours.right, peers.right);
  EXPECT_LE(ours.wrong, peers.wrong);
  EXPECT_GE(ours.right, 670);
}

TEST_F(Dtmf, HearsNothingInSpeech) {
  Samples x = speech(8000 * 20);
  const double loudest =
      std::abs(*std::ranges::max_element(x, {}, [](double v) { return std::abs(v); }));
  for (double& v : x) v *= 0.9 / loudest;
  write(x);
  EXPECT_EQ(decoded(), "");
}

TEST_F(Dtmf, HearsTheShortestTonesOfAllDigitsAtAnyRate) {
  for (const int rate : {4000, 8000, 11025, 44100, 96000}) {
    Samples x;
    for (const char symbol : symbols)
      append(x, symbol, {.rate = double(rate), .tone = 0.04, .pause = 0.04});
    write(x, rate);
    EXPECT_EQ(decoded(), symbols) << rate << " Hz";
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
  write(x);
  EXPECT_EQ(decoded(), "5677");
}

TEST_F(Dtmf, TellsTimesOfTheChosenChannel) {
  Samples tones(4000), both;
  append(tones, '9', {.tone = 0.1, .pause = 0.1});
  append(tones, '#', {.tone = 0.05});
  for (const double v : tones) both.insert(both.end(), {0, v});
  write(both, 8000, 2);
  EXPECT_EQ(output(), "\n");
  const std::string text = output("--times --channel 2");
  for (const auto& [symbol, start, seconds] : {std::tuple('9', 0.5, 0.1), {'#', 0.7, 0.05}}) {
    const std::string line = text.substr(std::min(text.find(symbol), text.size()));
    EXPECT_NEAR(figureBehind(" at ", line), start, 0.01) << text;
    EXPECT_NEAR(figureBehind(" for ", line), seconds, 0.015) << text;
  }
}

}  // namespace
