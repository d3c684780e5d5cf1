// align: finds the delay between two recordings of one sound and cuts them to start together.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <stdexcept>

#include "delay.h"
#include "support/program.h"

namespace {

struct Options {
  std::filesystem::path first, second, into;
  double seconds = 60;
};

void declare(CLI::App& app, Options& o) {
  app.add_option("first", o.first, "A recording: WAV, FLAC, Ogg, any rate and channel count")
      ->required();
  app.add_option("second", o.second, "Another recording of the same sound, of any format")
      ->required();
  app.add_option("--into", o.into, "Folder for both recordings, cut to what they share");
  app.add_option("--within", o.seconds, "Seconds that the delay is below")
      ->capture_default_str()
      ->check(CLI::Range(0.001, 3600.0));
}

void run(const Options& o) {
  WholeSound first = readWhole(o.first), second = readWhole(o.second);
  if (second.rate != first.rate)
    std::printf("%s is resampled from %d Hz to %d Hz\n", o.second.c_str(), second.rate, first.rate);
  resample(second, first.rate);
  const Delay delay = findDelay(first, second, long(o.seconds * first.rate));
  std::printf("delay %+.6f s (%+ld frames), confidence %.2f, similarity %.2f%s\n",
              double(delay.frames) / first.rate, delay.frames, delay.confidence, delay.similarity,
              delay.isInverted ? ", inverted" : "");
  constexpr double leastConfidence = 0.15, sameSound = 0.5;
  if (delay.confidence < leastConfidence)
    std::puts(delay.similarity < sameSound
                  ? "these may be recordings of different sounds"
                  : "the delay is uncertain: the sound repeats itself, and others fit as well");

  if (o.into.empty()) return;
  const long skip1 = std::max(-delay.frames, 0L), skip2 = std::max(delay.frames, 0L);
  const long count = std::min(first.frames() - skip1, second.frames() - skip2);
  const auto write = [&](const std::filesystem::path& input, const char* what,
                         const WholeSound& sound, long skip) {
    const std::filesystem::path name = (o.into / resultName(input, what)).string() + ".wav";
    writePart(name, sound, skip, count);
    std::printf("%s\n", name.c_str());
  };
  write(o.first, "aligned-1", first, skip1);
  write(o.second, "aligned-2", second, skip2);
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app("Finds the delay between two recordings of one sound.", "align");
  Options options;
  declare(app, options);
  return runProgram(app, argc, argv, [&] { run(options); });
}
