#include "support/sound_file.h"

#include <stdexcept>

#include "support/program.h"

namespace {

int formatFor(const std::filesystem::path& path, int inputFormat) {
  const int subtype = inputFormat & SF_FORMAT_SUBMASK;
  const std::string extension = extensionOf(path);
  if (extension == ".ogg") return SF_FORMAT_OGG | SF_FORMAT_VORBIS;
  if (extension == ".flac")
    return SF_FORMAT_FLAC | (subtype == SF_FORMAT_PCM_16 ? SF_FORMAT_PCM_16 : SF_FORMAT_PCM_24);
  const bool pcm =
      subtype == SF_FORMAT_PCM_16 || subtype == SF_FORMAT_PCM_24 || subtype == SF_FORMAT_PCM_32;
  return SF_FORMAT_WAV | (pcm ? subtype : SF_FORMAT_FLOAT);
}

}  // namespace

SndfileHandle openSound(const std::filesystem::path& path) {
  SndfileHandle file(path.string());
  if (file.error())
    throw std::runtime_error("cannot read " + path.string() + ": " + file.strError());
  if (file.frames() < 1) throw std::runtime_error(path.string() + " holds no sound");
  return file;
}

const std::vector<std::string>& writableExtensions() {
  static const std::vector<std::string> all = {".wav", ".flac", ".ogg"};
  return all;
}

SoundWriter::SoundWriter(const std::filesystem::path& path, const SndfileHandle& like, int rate)
    : path_(path),
      result_(path),
      file_(result_.temporary().string(), SFM_WRITE, formatFor(path, like.format()),
            like.channels(), rate ? rate : like.samplerate()) {
  if (file_.error()) fail();
  file_.command(SFC_SET_CLIPPING, nullptr, SF_TRUE);
}

void SoundWriter::finish() {
  file_.writeSync();
  if (file_.error()) fail();
  file_ = SndfileHandle();  // closes it
  result_.commit();
}

void SoundWriter::fail() const {
  throw std::runtime_error("cannot write " + path_.string() + ": " + file_.strError());
}
