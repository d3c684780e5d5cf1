#include "resample_file.h"

#include <algorithm>
#include <stdexcept>

#include "support/program.h"
#include "support/sound_file.h"

namespace {

// The same count of samples of every channel, as frames.
std::vector<float> interleaved(const std::vector<std::vector<float>>& channels) {
  std::vector<float> frames(channels.size() * channels[0].size());
  for (std::size_t c = 0; c < channels.size(); ++c)
    for (std::size_t i = 0; i < channels[c].size(); ++i)
      frames[i * channels.size() + c] = channels[c][i];
  return frames;
}

}  // namespace

void resampleFile(const ResampleJob& job) {
  std::error_code ignored;
  if (std::filesystem::equivalent(job.input, job.output, ignored))
    throw std::runtime_error("input and output are the same file: " + job.input.string());
  SndfileHandle input = openSound(job.input);
  SoundWriter output(job.output, input, job.rate);
  const int channels = input.channels(), inRate = input.samplerate();
  const sf_count_t total = input.frames();
  // As long as the input, rounded up to whole frames.
  sf_count_t left = (total * job.rate + inRate - 1) / inRate;

  std::vector<ChannelResampler> resamplers;
  for (int c = 0; c < channels; ++c) resamplers.emplace_back(inRate, job.rate, job.quality);
  std::vector<float> frames(std::size_t(job.block) * channels);
  std::vector<std::vector<float>> resampled(channels);
  const auto write = [&] {
    const auto out = interleaved(resampled);
    const sf_count_t count = std::min(left, sf_count_t(resampled[0].size()));
    output.write(out.data(), count);
    left -= count;
  };
  for (sf_count_t taken = 0, got; (got = input.readf(frames.data(), job.block)) > 0;) {
    checkInterrupt();
    std::vector<float> channel(got);
    for (int c = 0; c < channels; ++c) {
      for (sf_count_t i = 0; i < got; ++i) channel[i] = frames[i * channels + c];
      resamplers[c].push(channel, resampled[c]);
    }
    write();
    taken += got;
    if (job.progress) job.progress(double(taken) / double(total));
  }
  for (int c = 0; c < channels; ++c) resamplers[c].finish(resampled[c]);
  write();
  output.finish();
}
