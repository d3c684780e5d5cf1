// Streams a sound file through a filter, block by block and channel by channel, into another file.
#pragma once

#include <moxsp.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <vector>

#include "support/program.h"
#include "support/sound_file.h"

enum class Arithmetic { automatic, integer16, single };

struct StreamJob {
  std::filesystem::path input, output;
  int block = 4096;  // frames
  Arithmetic arithmetic = Arithmetic::automatic;
  int delay = 0;                              // frames by which the filter is late
  int tail = 0;                               // frames that it sounds on after the input
  std::function<void(double done)> progress;  // called with 0 to 1 after each block

  // 16-bit files run on 16-bit samples, others on floats, unless the user says otherwise.
  bool runsOnIntegers(const SndfileHandle& sound) const;
};

// The options for the names of the files.
void declareFiles(CLI::App& app, StreamJob& job);
// Those, and the options for the block and the arithmetic.
void declareStream(CLI::App& app, StreamJob& job);

// Throws std::runtime_error where both names lead to one file.
void requireTwoFiles(const StreamJob& job);

// The output has the length of the input and the tail: the delay is dropped at the start, and zeros
// push the last of the sound out at the end.
template <class Filter, class Sample>
void streamThrough(std::vector<Filter>& filters, std::vector<Sample> channel, const StreamJob& job,
                   SndfileHandle& input, SoundWriter& output) {
  const int channels = input.channels(), block = int(channel.size());
  const sf_count_t total = input.frames() + job.tail;
  sf_count_t toDrop = job.delay, written = 0;
  std::vector<Sample> frames(channel.size() * channels);
  while (written < total) {
    checkInterrupt();
    const sf_count_t got = input.readf(frames.data(), block);
    std::fill(frames.begin() + got * channels, frames.end(), Sample(0));
    for (int c = 0; c < channels; ++c) {
      for (int i = 0; i < block; ++i) channel[i] = frames[std::size_t(i) * channels + c];
      filters[c].run(channel);
      for (int i = 0; i < block; ++i) frames[std::size_t(i) * channels + c] = channel[i];
    }
    const sf_count_t skip = std::min<sf_count_t>(toDrop, block);
    const sf_count_t count = std::min(block - skip, total - written);
    toDrop -= skip;
    output.write(frames.data() + skip * channels, count);
    written += count;
    if (job.progress) job.progress(double(written) / double(total));
  }
}

// `Filter<Sample>` is made of `taps`, one for each channel, and runs in place over blocks. Throws
// std::runtime_error with a text for the user.
template <template <class> class Filter, class Taps>
void filterFile(const StreamJob& job, const Taps& taps) {
  requireTwoFiles(job);
  SndfileHandle input = openSound(job.input);
  SoundWriter output(job.output, input);
  const auto stream = [&]<class Sample>(Sample silence) {
    std::vector<Filter<Sample>> filters;
    for (int c = 0; c < input.channels(); ++c) filters.emplace_back(taps);
    streamThrough(filters, std::vector(job.block, silence), job, input, output);
  };
  if (job.runsOnIntegers(input))
    stream(Mox16s(0));
  else
    stream(Mox32f(0));
  output.finish();
}
