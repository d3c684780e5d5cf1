// wavfilter: filters a sound file and draws what the filter did.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <stdexcept>
#include <string>

#include "band.h"
#include "channel_filter.h"
#include "support/picture.h"
#include "support/program.h"
#include "support/spectrogram.h"
#include "support/stream.h"

namespace {

struct Options {
  StreamJob job;
  Band band;
  std::filesystem::path into, picture;
  double lowpass = 1000, highpass = 0;
  std::vector<double> bandpass;
};

void declare(CLI::App& app, Options& o) {
  declareStream(app, o.job);
  app.add_option("--into", o.into, "Folder for a result and a picture named after the input");
  auto* kind = app.add_option_group("filter", "The band to keep")->require_option(0, 1);
  kind->add_option("--lowpass", o.lowpass, "Keep what lies below this frequency in Hz")
      ->capture_default_str()
      ->check(frequency());
  kind->add_option("--highpass", o.highpass, "Keep what lies above this frequency in Hz")
      ->check(frequency());
  kind->add_option("--bandpass", o.bandpass, "Keep what lies between two frequencies in Hz")
      ->expected(2)
      ->allow_extra_args(false)
      ->check(frequency());
  app.add_option("--taps", o.band.taps, "Length of the filter, odd")
      ->capture_default_str()
      ->check(CLI::Range(5, 65535));
  app.add_option("--picture", o.picture, "PNG file for the spectrograms before and after")
      ->check(extension({".png"}));
}

// The band in Hz, once the rate is known.
Band bandOf(const Options& o) {
  Band band = o.band;
  band.rate = openSound(o.job.input).samplerate();
  const double half = band.rate / 2;
  if (!o.bandpass.empty()) {
    band.low = o.bandpass[0];
    band.high = o.bandpass[1];
    if (band.low >= band.high)
      throw std::runtime_error("--bandpass takes the lower frequency first");
  } else if (o.highpass > 0) {
    band.low = o.highpass;
    band.high = half;
  } else {
    band.high = o.lowpass;
  }
  const double cutOff = o.highpass > 0 ? o.highpass : band.high;
  if (cutOff >= half)
    throw std::runtime_error("the cut-off must lie below half the sample rate, " +
                             shortNumber(half) + " Hz");
  if (band.taps % 2 == 0) throw std::runtime_error("--taps takes an odd number");
  return band;
}

// Names for what the user has given none.
void nameResults(Options& o) {
  if (o.into.empty()) {
    if (o.job.output.empty()) throw std::runtime_error("a name for the output or --into is needed");
    return;
  }
  const std::filesystem::path name = o.into / resultName(o.job.input, o.band.name());
  if (o.job.output.empty()) o.job.output = name.string() + ".wav";
  if (o.picture.empty()) o.picture = name.string() + ".png";
}

void report(const Spectrogram& before, const Spectrogram& after, const Band& band) {
  const int channels = int(before.channelPower.size());
  for (int c = 0; c < channels; ++c) {
    const BandLevels was = levelsOf(before, c, band), is = levelsOf(after, c, band);
    if (channels > 1) std::printf("  channel %d\n", c + 1);
    std::printf("  stop band %7.1f dB before, %7.1f dB after\n", was.stop, is.stop);
    std::printf("  pass band %7.1f dB before, %7.1f dB after\n", was.pass, is.pass);
  }
}

void run(Options& o) {
  constexpr int columns = 900;
  o.band = bandOf(o);
  nameResults(o);
  const Spectrogram before = spectrogramOf(o.job.input, columns);
  o.job.progress = progressOf("filtering", before.seconds());
  o.job.delay = o.band.taps / 2;
  filterFile<ChannelFilter>(o.job, windowedSinc(o.band));

  const Spectrogram after = spectrogramOf(o.job.output, columns);
  std::printf("%s\n", o.job.output.c_str());
  report(before, after, o.band);
  if (!o.picture.empty()) {
    drawPanels(o.picture, {"Before: " + o.job.input.filename().string(), before},
               {"After: " + o.job.output.filename().string(), after}, o.band.edges());
    std::printf("%s\n", o.picture.c_str());
  }
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app("Filters a sound file and shows what was removed.", "wavfilter");
  Options options;
  declare(app, options);
  return runProgram(app, argc, argv, [&] { run(options); });
}
