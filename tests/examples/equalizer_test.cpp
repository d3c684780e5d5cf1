#include <gmock/gmock.h>

#include <cmath>
#include <complex>
#include <cstdio>

#include "example_test.h"

namespace {

Outcome equalizer(const std::string& arguments) { return runProgram(EQUALIZER, arguments); }

using Equalizer = ExampleTest;

struct Band {
  std::string type;
  double hz, db, q = 0;  // of a designed filter the order and the ripple

  bool isButterworth() const { return type.starts_with("butterworth"); }
  std::string option() const {
    char numbers[64];
    std::snprintf(numbers, sizeof numbers, isButterworth() ? ":%g:%g" : ":%g:%g:%g", hz, db, q);
    return " --band " + type + numbers;
  }
};

// The squared magnitude is 1 / (1 + x^2n), or 1 / (1 + e^2 T(x)^2) with the Chebyshev polynomial T,
// of the analogue frequency x over that of the edge, or the edge's over it.
double designedDb(const Band& band, double rate, double w) {
  const double ratio = std::tan(w / 2) / std::tan(M_PI * band.hz / rate);
  const double x = band.type.ends_with("lowpass") ? ratio : 1 / ratio;
  const double T = x < 1 ? std::cos(band.db * std::acos(x)) : std::cosh(band.db * std::acosh(x));
  const double loss =
      band.isButterworth() ? std::pow(x, 2 * band.db) : (std::pow(10, band.q / 10) - 1) * T * T;
  return -10 * std::log10(1 + loss);
}

// The published formulas as they stand, of the response at angle w.
double publishedDb(const Band& band, double rate, double w) {
  if (band.type.find('-') != band.type.npos) return designedDb(band, rate, w);
  const double w0 = 2 * M_PI * band.hz / rate, c = std::cos(w0),
               alpha = std::sin(w0) / (2 * band.q);
  const double A = std::pow(10, band.db / 40), r = 2 * std::sqrt(A) * alpha;
  const double up = A + 1, down = A - 1;
  std::array<double, 3> b, a = {1 + alpha, -2 * c, 1 - alpha};
  double gain = band.db;
  if (band.type == "peak") {
    b = {1 + alpha * A, -2 * c, 1 - alpha * A};
    a = {1 + alpha / A, -2 * c, 1 - alpha / A};
    gain = 0;
  } else if (band.type == "lowshelf") {
    b = {A * (up - down * c + r), 2 * A * (down - up * c), A * (up - down * c - r)};
    a = {up + down * c + r, -2 * (down + up * c), up + down * c - r};
    gain = 0;
  } else if (band.type == "highshelf") {
    b = {A * (up + down * c + r), -2 * A * (down + up * c), A * (up + down * c - r)};
    a = {up - down * c + r, 2 * (down - up * c), up - down * c - r};
    gain = 0;
  } else if (band.type == "lowpass") {
    b = {(1 - c) / 2, 1 - c, (1 - c) / 2};
  } else if (band.type == "highpass") {
    b = {(1 + c) / 2, -(1 + c), (1 + c) / 2};
  } else if (band.type == "bandpass") {
    b = {alpha, 0, -alpha};
  } else {
    b = {1, -2 * c, 1};
  }
  const std::complex<double> z = std::polar(1.0, -w);
  return gain +
         20 * std::log10(std::abs((b[0] + z * (b[1] + z * b[2])) / (a[0] + z * (a[1] + z * a[2]))));
}

std::complex<double> spectrumAt(const Sound& sound, int channel, double w) {
  std::complex<double> sum = 0;
  const std::complex<double> turn = std::polar(1.0, -w);
  for (std::size_t i = sound.samples.size() / sound.channels; i-- > 0;)
    sum = sum * turn + sound.samples[i * sound.channels + channel];
  return sum;
}

// Of a sound that ends in silence, the spectrum after over the spectrum before is the response.
TEST_F(Equalizer, TheWrittenFileHasTheResponseThatWasAskedFor) {
  const struct {
    const char* name;
    int format, rate, channels;
    std::vector<Band> bands;
  } cases[] = {
      {"a.wav",
       SF_FORMAT_WAV | SF_FORMAT_PCM_16,
       48000,
       2,
       {{"lowshelf", 120, 5, 0.7}, {"peak", 1000, -12, 4}, {"highshelf", 8000, -6, 0.7}}},
      {"b.wav",
       SF_FORMAT_WAV | SF_FORMAT_FLOAT,
       44100,
       1,
       {{"peak", 40, 9, 3}, {"notch", 3000, -2, 1}}},
      {"c.flac",
       SF_FORMAT_FLAC | SF_FORMAT_PCM_24,
       96000,
       1,
       {{"highpass", 30, 0, 0.8}, {"lowpass", 9000, -3, 2}}},
      {"d.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 8000, 1, {{"bandpass", 700, 3, 0.5}}},
      {"e.wav",
       SF_FORMAT_WAV | SF_FORMAT_PCM_16,
       44100,
       2,
       {{"butterworth-highpass", 40, 3},
        {"peak", 700, -6, 2},
        {"chebyshev-lowpass", 16000, 2, 0.5}}},
      {"f.wav",
       SF_FORMAT_WAV | SF_FORMAT_FLOAT,
       48000,
       1,
       {{"chebyshev-highpass", 45, 3, 2}, {"butterworth-lowpass", 19000, 12}}},
  };
  for (const auto& c : cases) {
    writeSound(c.name, c.format, c.rate, c.channels, 100000, 40000);
    std::string command =
        path(c.name) + " " + path("out.wav") + " --block 1000 --picture " + path("out.png");
    for (const Band& band : c.bands) command += band.option();
    const Outcome r = equalizer(command);
    ASSERT_EQ(r.exitCode, 0) << r.output;

    const Sound before = readSound(path(c.name)), after = readSound(path("out.wav"));
    ASSERT_EQ(after.samples.size(), before.samples.size());
    for (double hz = 20; hz < 0.45 * c.rate; hz *= 1.1) {
      const double w = 2 * M_PI * hz / c.rate;
      double asked = 0;
      for (const Band& band : c.bands) asked += publishedDb(band, c.rate, w);
      if (asked < -40) continue;  // below the rounding of 16 bits
      for (int channel = 0; channel < c.channels; ++channel)
        EXPECT_NEAR(20 * std::log10(std::abs(spectrumAt(after, channel, w) /
                                             spectrumAt(before, channel, w))),
                    asked, 0.1)
            << c.name << " at " << hz << " Hz";
    }

    double from, to, difference;
    ASSERT_EQ(std::sscanf(r.output.substr(r.output.find("measured")).c_str(),
                          "measured from %lf to %lf Hz, at most %lf dB", &from, &to, &difference),
              3)
        << r.output;
    EXPECT_LT(from, 40) << c.name;
    EXPECT_GT(to, 0.4 * c.rate) << c.name;
    EXPECT_LT(difference, 0.1) << c.name;
    EXPECT_GT(std::filesystem::file_size(path("out.png")), 5000);
  }
}

TEST_F(Equalizer, RefusesWhatItCannotDoWithAReason) {
  writeSound("in.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 8000, 1, 500);
  const std::string in = path("in.wav"), out = " " + path("out.wav");
  const struct {
    std::string arguments, reason;
  } cases[] = {
      {in + out, "--band is required"},
      {in + " --band peak:100:1:1", "output is required"},
      {in + out + " --band bell:100:1:1", "one of peak, lowshelf"},
      {in + out + " --band peak", "TYPE:HZ:DB:Q"},
      {in + out + " --band peak:100:1", "TYPE:HZ:DB:Q"},
      {in + out + " --band peak:100:1:1x", "TYPE:HZ:DB:Q"},
      {in + out + " --band peak:0:1:1", "above 0"},
      {in + out + " --band peak:nan:1:1", "above 0"},
      {in + out + " --band peak:100:1:0", "above 0"},
      {in + out + " --band peak:100:61:1", "60 dB"},
      {in + out + " --band butterworth-lowpass:100:2:1", "TYPE:HZ:ORDER"},
      {in + out + " --band chebyshev-lowpass:100:2", "TYPE:HZ:ORDER:RIPPLE"},
      {in + out + " --band chebyshev-lowpass:100:2:0", "a ripple above 0"},
      {in + out + " --band butterworth-highpass:100:2.5", "order of 1 to 12"},
      {in + out + " --band butterworth-highpass:100:13", "order of 1 to 12"},
      {in + out + " --band butterworth-highpass:10:8", "order is too high"},
      {in + out + " --band peak:4000:1:1", "half the sample rate, 4000 Hz"},
      {in + " " + in + " --band peak:100:1:1", "same file"},
  };
  for (const auto& c : cases) {
    const Outcome r = equalizer(c.arguments);
    EXPECT_NE(r.exitCode, 0) << c.arguments;
    EXPECT_THAT(r.output, testing::HasSubstr(c.reason)) << c.arguments;
    EXPECT_FALSE(std::filesystem::exists(path("out.wav"))) << c.arguments;
  }
}

}  // namespace
