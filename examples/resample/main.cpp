// resample: converts the sample rate of a sound file, and says how well.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <map>

#include "measure.h"
#include "resample_file.h"
#include "support/program.h"
#include "support/sound_file.h"

namespace {

const std::map<std::string, Quality> qualities = {
    {"fast", {64, 1, 7}}, {"good", {128, 0.96f, 12}}, {"best", {192, 0.957f, 13}}};

void declare(CLI::App& app, ResampleJob& job, std::string& quality) {
  app.add_option("input", job.input, "Sound file: WAV, FLAC, Ogg, any rate and channel count")
      ->required();
  app.add_option("output", job.output, "Resampled file: .wav, .flac or .ogg")
      ->required()
      ->check(extension(writableExtensions()));
  app.add_option("--rate", job.rate, "Samples a second of the output")
      ->capture_default_str()
      ->check(CLI::Range(1000, 768000));
  app.add_option("--quality", quality, "fast, good or best")
      ->capture_default_str()
      ->check(CLI::IsMember(qualities));
  app.add_option("--block", job.block, "Frames to a block of the stream")
      ->capture_default_str()
      ->check(CLI::Range(1, 1 << 20));
}

void run(ResampleJob& job, const std::string& quality) {
  job.quality = qualities.at(quality);
  const SndfileHandle input = openSound(job.input);
  const int from = input.samplerate();
  job.progress = progressOf("resampling", double(input.frames()) / from);
  resampleFile(job);

  const ChannelResampler resampler(from, job.rate, job.quality);
  const Measured m = measure(from, job.rate, job.quality);
  std::printf("%s\n", job.output.c_str());
  std::printf("  %d to %d Hz by %d filters of %d taps\n", from, job.rate, resampler.filters(),
              resampler.taps());
  std::printf("  noise of a sine  %6.1f dB below it, at worst\n", m.noise);
  if (m.rejected > 0)
    std::printf("  above the band   %6.1f dB down, 10 %% beyond half the new rate\n", m.rejected);
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app("Converts the sample rate of a sound file.", "resample");
  ResampleJob job;
  std::string quality = "good";
  declare(app, job, quality);
  return runProgram(app, argc, argv, [&] { run(job, quality); });
}
