#include "filter_file.h"

#include <algorithm>
#include <sndfile.hh>
#include <stdexcept>
#include <string>

#include "channel_filter.h"

namespace {

SndfileHandle openInput(const std::filesystem::path& path) {
  SndfileHandle file(path.string());
  if (file.error())
    throw std::runtime_error("cannot read " + path.string() + ": " + file.strError());
  if (file.frames() < 1) throw std::runtime_error(path.string() + " holds no sound");
  return file;
}

// The container that the name asks for, with the input's sample format where it can hold it.
int outputFormat(const std::filesystem::path& path, int inputFormat) {
  const std::string extension = path.extension().string();
  const int subtype = inputFormat & SF_FORMAT_SUBMASK;
  if (extension == ".ogg") return SF_FORMAT_OGG | SF_FORMAT_VORBIS;
  if (extension == ".flac")
    return SF_FORMAT_FLAC | (subtype == SF_FORMAT_PCM_16 ? SF_FORMAT_PCM_16 : SF_FORMAT_PCM_24);
  const bool pcm =
      subtype == SF_FORMAT_PCM_16 || subtype == SF_FORMAT_PCM_24 || subtype == SF_FORMAT_PCM_32;
  return SF_FORMAT_WAV | (pcm ? subtype : SF_FORMAT_FLOAT);
}

SndfileHandle openOutput(const std::filesystem::path& path, const SndfileHandle& input) {
  SndfileHandle file(path.string(), SFM_WRITE, outputFormat(path, input.format()), input.channels(),
                     input.samplerate());
  if (file.error())
    throw std::runtime_error("cannot write " + path.string() + ": " + file.strError());
  // A filter overshoots on loud sound, and integers would wrap.
  file.command(SFC_SET_CLIPPING, nullptr, SF_TRUE);
  return file;
}

template <class Sample>
void stream(const FilterJob& job, SndfileHandle input, SndfileHandle output) {
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
    if (output.writef(frames.data() + skip * channels, count) != count)
      throw std::runtime_error("cannot write " + job.output.string() + ": " + output.strError());
    written += count;
    if (job.progress) job.progress(double(written) / double(total));
  }
}

}  // namespace

double sampleRate(const std::filesystem::path& file) { return openInput(file).samplerate(); }

void filterFile(const FilterJob& job) {
  std::error_code ignored;
  if (std::filesystem::equivalent(job.input, job.output, ignored))
    throw std::runtime_error("input and output are the same file: " + job.input.string());
  SndfileHandle input = openInput(job.input);
  SndfileHandle output = openOutput(job.output, input);
  const bool has16Bits = (input.format() & SF_FORMAT_SUBMASK) == SF_FORMAT_PCM_16;
  const bool integer =
      job.arithmetic == Arithmetic::automatic ? has16Bits : job.arithmetic == Arithmetic::integer16;
  if (integer)
    stream<Mox16s>(job, input, output);
  else
    stream<Mox32f>(job, input, output);
}
