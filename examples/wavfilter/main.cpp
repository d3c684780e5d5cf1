// wavfilter: filters a sound file and draws what the filter did.
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <map>
#include <string>

#include "filter_file.h"
#include "picture.h"
#include "spectrogram.h"

namespace {

struct Options {
  FilterJob job;
  std::string picture;
  double lowpass = 0, highpass = 0;
  std::vector<double> bandpass;
};

void declare(CLI::App& app, Options& o) {
  app.add_option("input", o.job.input, "Sound file: WAV, FLAC, Ogg, any rate and channel count")
      ->required();
  app.add_option("output", o.job.output, "Filtered file: .wav, .flac or .ogg")->required();
  auto* kind = app.add_option_group("filter", "The band to keep")->require_option(1);
  kind->add_option("--lowpass", o.lowpass, "Keep what lies below this frequency in Hz")
      ->check(CLI::PositiveNumber);
  kind->add_option("--highpass", o.highpass, "Keep what lies above this frequency in Hz")
      ->check(CLI::PositiveNumber);
  kind->add_option("--bandpass", o.bandpass, "Keep what lies between two frequencies in Hz")
      ->expected(2)
      ->allow_extra_args(false)
      ->check(CLI::PositiveNumber);
  app.add_option("--taps", o.job.band.taps, "Length of the filter, odd")
      ->capture_default_str()
      ->check(CLI::Range(3, 65535));
  app.add_option("--block", o.job.block, "Frames to a block of the stream")
      ->capture_default_str()
      ->check(CLI::Range(1, 1 << 22));
  const std::map<std::string, Arithmetic> names = {{"auto", Arithmetic::automatic},
                                                   {"int16", Arithmetic::integer16},
                                                   {"float", Arithmetic::single}};
  app.add_option("--arithmetic", o.job.arithmetic, "Samples to run on: auto, int16 or float")
      ->transform(CLI::CheckedTransformer(names, CLI::ignore_case));
  app.add_option("--picture", o.picture, "PNG file for the spectrograms before and after");
}

// The band in Hz, once the rate is known.
Band bandOf(const Options& o) {
  Band band = o.job.band;
  band.rate = sampleRate(o.job.input);
  const double half = band.rate / 2;
  if (o.lowpass > 0) {
    band.high = o.lowpass;
  } else if (o.highpass > 0) {
    band.low = o.highpass;
    band.high = half;
  } else {
    band.low = o.bandpass[0];
    band.high = o.bandpass[1];
    if (band.low >= band.high)
      throw std::runtime_error("--bandpass takes the lower frequency first");
  }
  const double cutOff = o.highpass > 0 ? o.highpass : band.high;
  if (cutOff >= half)
    throw std::runtime_error("the cut-off must lie below half the sample rate, " +
                             std::to_string(int(half)) + " Hz");
  if (band.taps % 2 == 0) throw std::runtime_error("--taps takes an odd number");
  return band;
}

void showProgress(double done) {
  std::fprintf(stderr, "\rfiltering %3d%%%s", int(100 * done), done >= 1 ? "\n" : "");
}

void run(Options& o) {
  constexpr double longInput = 60;  // seconds
  o.job.band = bandOf(o);
  const Spectrogram before = spectrogramOf(o.job.input, 900);
  if (before.seconds >= longInput && isatty(STDERR_FILENO)) o.job.progress = showProgress;
  filterFile(o.job);

  const Spectrogram after = spectrogramOf(o.job.output, 900);
  const BandLevels was = levelsOf(before, o.job.band), is = levelsOf(after, o.job.band);
  std::printf("%s\n", o.job.output.c_str());
  std::printf("  stop band %7.1f dB before, %7.1f dB after\n", was.stop, is.stop);
  std::printf("  pass band %7.1f dB before, %7.1f dB after\n", was.pass, is.pass);
  if (!o.picture.empty()) {
    drawPanels(o.picture, {"Before: " + o.job.input.filename().string(), before},
               {"After: " + o.job.output.filename().string(), after});
    std::printf("%s\n", o.picture.c_str());
  }
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app("Filters a sound file and shows what was removed.", "wavfilter");
  Options options;
  declare(app, options);
  CLI11_PARSE(app, argc, argv);
  try {
    run(options);
  } catch (const std::exception& e) {
    std::fprintf(stderr, "wavfilter: %s\n", e.what());
    return 1;
  }
  return 0;
}
