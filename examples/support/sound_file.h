// Sound files: any that libsndfile reads, and WAV, FLAC and Ogg to write.
#pragma once

#include <filesystem>
#include <sndfile.hh>
#include <string>
#include <vector>

#include "support/result_file.h"

// Throws std::runtime_error with the reason where the file can't be read or holds no sound.
SndfileHandle openSound(const std::filesystem::path& path);

const std::vector<std::string>& writableExtensions();

// A sound file that is being written, of the channels and, where the container can hold it, the
// sample format of `like`, and of its rate, unless another is given. What leaves full scale is
// clipped.
class SoundWriter {
 public:
  SoundWriter(const std::filesystem::path& path, const SndfileHandle& like, int rate = 0);

  template <class Sample>
  void write(const Sample* frames, sf_count_t count) {
    if (file_.writef(frames, count) != count) fail();
  }
  // Without it the destructor leaves no file.
  void finish();

 private:
  [[noreturn]] void fail() const;

  std::filesystem::path path_;
  ResultFile result_;
  SndfileHandle file_;
};
