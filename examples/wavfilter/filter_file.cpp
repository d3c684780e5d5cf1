#include "filter_file.h"

#include <algorithm>
#include <stdexcept>

#include "channel_filter.h"
#include "support/program.h"
#include "support/sound_file.h"

namespace {

template <class Sample>
void stream(const FilterJob& job, SndfileHandle& input, SoundWriter& output) {
  const int channels = input.channels();
  const std::vector<float> taps = windowedSinc(job.band);
  std::vector<ChannelFilter<Sample>> filters;
  for (int c = 0; c < channels; ++c) filters.emplace_back(taps);

  // A linear-phase filter is late by half its length: that much is dropped at the start, and
  // as many zeros push the last of the sound out at the end.
  const sf_count_t total = input.frames();
  sf_count_t toDrop = job.band.taps / 2, written = 0;
  std::vector<Sample> frames(std::size_t(job.block) * channels), channel(job.block),
      filtered(job.block);
  while (written < total) {
    checkInterrupt();
    const sf_count_t got = input.readf(frames.data(), job.block);
    std::fill(frames.begin() + got * channels, frames.end(), Sample(0));
    for (int c = 0; c < channels; ++c) {
      for (int i = 0; i < job.block; ++i) channel[i] = frames[std::size_t(i) * channels + c];
      filters[c].run(channel, filtered);
      for (int i = 0; i < job.block; ++i) frames[std::size_t(i) * channels + c] = filtered[i];
    }
    const sf_count_t skip = std::min<sf_count_t>(toDrop, job.block);
    const sf_count_t count = std::min(job.block - skip, total - written);
    toDrop -= skip;
    output.write(frames.data() + skip * channels, count);
    written += count;
    if (job.progress) job.progress(double(written) / double(total));
  }
}

}  // namespace

void filterFile(const FilterJob& job) {
  std::error_code ignored;
  if (std::filesystem::equivalent(job.input, job.output, ignored))
    throw std::runtime_error("input and output are the same file: " + job.input.string());
  SndfileHandle input = openSound(job.input);
  SoundWriter output(job.output, input);
  const bool has16Bits = (input.format() & SF_FORMAT_SUBMASK) == SF_FORMAT_PCM_16;
  const bool integer =
      job.arithmetic == Arithmetic::automatic ? has16Bits : job.arithmetic == Arithmetic::integer16;
  if (integer)
    stream<Mox16s>(job, input, output);
  else
    stream<Mox32f>(job, input, output);
  output.finish();
}
