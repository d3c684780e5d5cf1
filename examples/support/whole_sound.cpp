#include "support/whole_sound.h"

#include <climits>
#include <stdexcept>

#include "support/program.h"

WholeSound readWhole(const std::filesystem::path& path) {
  WholeSound sound{openSound(path), 0, {}};
  const long channels = sound.file.channels(), frames = long(sound.file.frames());
  if (frames > INT_MAX / 4) throw std::runtime_error(path.string() + " is too long");
  std::vector<float> interleaved(frames * channels);
  if (sound.file.readf(interleaved.data(), frames) != frames)
    throw std::runtime_error(path.string() + " ends too early");
  sound.rate = sound.file.samplerate();
  sound.channels.assign(channels, Channel(frames));
  for (long c = 0; c < channels; ++c)
    for (long i = 0; i < frames; ++i) sound.channels[c][i] = interleaved[i * channels + c];
  return sound;
}

void writePart(const std::filesystem::path& path, const WholeSound& sound, long first, long count) {
  const long channels = long(sound.channels.size());
  std::vector<float> interleaved(count * channels);
  for (long c = 0; c < channels; ++c)
    for (long i = 0; i < count; ++i) interleaved[i * channels + c] = sound.channels[c][first + i];
  SoundWriter writer(path, sound.file, sound.rate);
  writer.write(interleaved.data(), count);
  writer.finish();
}
