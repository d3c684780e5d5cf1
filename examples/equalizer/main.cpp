// equalizer: changes the tone of a sound file band by band and measures what came out.
#include <CLI/CLI.hpp>
#include <cmath>
#include <cstdio>
#include <stdexcept>
#include <string>

#include "band.h"
#include "channel_filter.h"
#include "response.h"
#include "response_picture.h"
#include "support/program.h"
#include "support/stream.h"

namespace {

struct Options {
  StreamJob job;
  std::vector<std::string> bands;
  std::filesystem::path picture;
};

void declare(CLI::App& app, Options& o) {
  declareStream(app, o.job);
  app.get_option("output")->required();
  app.add_option("--band", o.bands, "Once for each band: " + bandSyntax())
      ->required()
      ->allow_extra_args(false);
  app.add_option("--picture", o.picture, "PNG file for the response asked for and measured")
      ->check(extension({".png"}));
}

void run(Options& o) {
  const SndfileHandle sound = openSound(o.job.input);
  const double rate = sound.samplerate();
  std::vector<Taps> bands;
  for (const std::string& text : o.bands) bands.push_back(bandTaps(text, rate));
  o.job.progress = progressOf("equalizing", double(sound.frames()) / rate);
  filterFile<ChannelFilter>(o.job, bands);
  std::printf("%s\n", o.job.output.c_str());

  const std::vector<Measured> measured = measureResponse(o.job.input, o.job.output);
  double difference = 0;
  for (const Measured& m : measured)
    difference = std::max(difference, std::abs(m.db - gainDb(bands, m.hz, rate)));
  if (measured.empty())
    std::printf("  too little sound to measure the response\n");
  else
    std::printf("  measured from %.0f to %.0f Hz, at most %.2f dB from what was asked for\n",
                measured.front().hz, measured.back().hz, difference);
  if (o.picture.empty()) return;
  drawResponse(o.picture, o.job.output.filename().string(), bands, rate, measured);
  std::printf("%s\n", o.picture.c_str());
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app("A parametric equalizer for sound files.", "equalizer");
  Options options;
  declare(app, options);
  return runProgram(app, argc, argv, [&] { run(options); });
}
