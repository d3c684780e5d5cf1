#include "support/stream.h"

#include <CLI/CLI.hpp>
#include <map>
#include <stdexcept>

bool StreamJob::runsOnIntegers(const SndfileHandle& sound) const {
  const bool has16Bits = (sound.format() & SF_FORMAT_SUBMASK) == SF_FORMAT_PCM_16;
  return arithmetic == Arithmetic::automatic ? has16Bits : arithmetic == Arithmetic::integer16;
}

void declareFiles(CLI::App& app, StreamJob& job) {
  app.add_option("input", job.input, "Sound file: WAV, FLAC, Ogg, any rate and channel count")
      ->required();
  app.add_option("output", job.output, "Result: .wav, .flac or .ogg")
      ->check(extension(writableExtensions()));
}

void declareStream(CLI::App& app, StreamJob& job) {
  declareFiles(app, job);
  app.add_option("--block", job.block, "Frames to a block of the stream")
      ->capture_default_str()
      ->check(CLI::Range(1, 1 << 22));
  const std::map<std::string, Arithmetic> names = {{"auto", Arithmetic::automatic},
                                                   {"int16", Arithmetic::integer16},
                                                   {"float", Arithmetic::single}};
  app.add_option("--arithmetic", job.arithmetic, "Samples to run on: auto, int16 or float")
      ->transform(CLI::CheckedTransformer(names, CLI::ignore_case));
}

void requireTwoFiles(const StreamJob& job) {
  std::error_code ignored;
  if (std::filesystem::equivalent(job.input, job.output, ignored))
    throw std::runtime_error("input and output are the same file: " + job.input.string());
}
