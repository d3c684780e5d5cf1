// dtmf: writes the digits that were dialled in a sound file.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <filesystem>
#include <stdexcept>
#include <vector>

#include "decoder.h"
#include "support/program.h"
#include "support/sound_file.h"

namespace {

struct Options {
  std::filesystem::path input;
  int channel = 1;
  bool times = false;
};

void run(const Options& o) {
  SndfileHandle file = openSound(o.input);
  const int channels = file.channels();
  if (o.channel > channels)
    throw std::runtime_error(o.input.string() + " has " + std::to_string(channels) + " channels");
  if (file.samplerate() < Decoder::leastRate)
    throw std::runtime_error(o.input.string() + ": its rate is too low for dial tones");

  Decoder decoder(file.samplerate());
  constexpr sf_count_t block = 4096;
  std::vector<float> frames(std::size_t(block * channels)), samples(block);
  for (sf_count_t count; (count = file.readf(frames.data(), block)) > 0;) {
    checkInterrupt();
    for (sf_count_t i = 0; i < count; ++i) samples[i] = frames[i * channels + o.channel - 1];
    decoder.write(samples.data(), count);
  }
  decoder.finish();

  for (const Digit& d : decoder.digits())
    if (o.times)
      std::printf("%c at %.3f s for %.3f s\n", d.symbol, d.start, d.seconds);
    else
      std::putchar(d.symbol);
  if (!o.times) std::putchar('\n');
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app("Writes the digits that were dialled in a sound file.", "dtmf");
  Options options;
  app.add_option("input", options.input, "Sound file: WAV, FLAC, Ogg, any rate from 4000 Hz on")
      ->required();
  app.add_option("--channel", options.channel, "Channel to listen to")
      ->capture_default_str()
      ->check(CLI::PositiveNumber);
  app.add_flag("--times", options.times, "One line a digit, with its time");
  return runProgram(app, argc, argv, [&] { run(options); });
}
