// denoise: takes steady noise out of a sound file.
#include <CLI/CLI.hpp>
#include <cmath>
#include <cstdio>
#include <stdexcept>

#include "denoise.h"
#include "support/program.h"
#include "support/whole_sound.h"

namespace {

struct Options {
  std::filesystem::path input, output, clean;
  Denoising how;
};

void declare(CLI::App& app, Options& o) {
  app.add_option("input", o.input, "Sound file: WAV, FLAC, Ogg, any rate and channel count")
      ->required();
  app.add_option("output", o.output, "File without noise: .wav, .flac or .ogg")
      ->required()
      ->check(extension(writableExtensions()));
  app.add_option("--levels", o.how.levels, "Octaves that are cleaned, from the top")
      ->capture_default_str()
      ->check(CLI::Range(1, 12));
  app.add_option("--strength", o.how.strength, "Threshold in standard deviations of the noise")
      ->capture_default_str()
      ->check(CLI::Range(0.0, 10.0));
  app.add_option("--clean", o.clean, "The sound before noise came to it, to tell what was gained");
}

// Of a sound beside the one without noise, in dB.
double signalToNoise(const WholeSound& sound, const WholeSound& clean) {
  double signal = 0, noise = 0;
  for (std::size_t c = 0; c < clean.channels.size(); ++c)
    for (long i = 0; i < clean.frames(); ++i) {
      const double s = clean.channels[c][i];
      signal += s * s;
      noise += std::pow(sound.channels[c][i] - s, 2);
    }
  return 10 * std::log10(signal / noise);
}

void run(const Options& o) {
  WholeSound sound = readWhole(o.input);
  double before = 0;
  if (!o.clean.empty()) {
    const WholeSound clean = readWhole(o.clean);
    if (clean.frames() != sound.frames() || clean.channels.size() != sound.channels.size())
      throw std::runtime_error("the clean sound has another length or other channels");
    before = signalToNoise(sound, clean);
  }
  for (Channel& channel : sound.channels) {
    checkInterrupt();
    channel = denoised(channel, o.how);
  }
  writePart(o.output, sound, 0, sound.frames());
  std::printf("%s\n", o.output.c_str());
  if (!o.clean.empty())
    std::printf("signal to noise %.1f dB before, %.1f dB after\n", before,
                signalToNoise(sound, readWhole(o.clean)));
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app("Takes steady noise out of a sound file.", "denoise");
  Options options;
  declare(app, options);
  return runProgram(app, argc, argv, [&] { run(options); });
}
