// reverb: plays a sound file in a room.
#include <CLI/CLI.hpp>
#include <cstdio>

#include "channel_reverb.h"
#include "support/program.h"
#include "support/stream.h"

namespace {

struct Options {
  StreamJob job;
  Room room;
};

void declare(CLI::App& app, Options& o) {
  declareFiles(app, o.job);
  app.get_option("output")->required();
  const auto metres = [&](const char* name, double& value, const char* what) {
    app.add_option(name, value, what)->capture_default_str()->check(CLI::Range(1.0, 200.0));
  };
  metres("--length", o.room.length, "Length of the room in metres");
  metres("--width", o.room.width, "Width of the room in metres");
  metres("--height", o.room.height, "Height of the room in metres");
  app.add_option("--time", o.room.seconds, "Seconds until the sound has fallen by 60 dB")
      ->capture_default_str()
      ->check(CLI::Range(0.1, 20.0));
}

void run(Options& o) {
  requireTwoFiles(o.job);
  SndfileHandle input = openSound(o.job.input);
  const double rate = input.samplerate();
  std::vector<RoomResponse> responses;
  for (int c = 0; c < input.channels(); ++c) responses.push_back(responseOf(o.room, rate, c));
  const RoomResponse& first = responses.front();

  // A transform of the tail pays when a block is a few times as long as the tail.
  o.job.tail = int(std::max(first.tail.size(), std::size_t(first.positions.back()) + 1)) - 1;
  o.job.block = std::max(4096, 3 * o.job.tail);
  o.job.progress = progressOf("playing", double(input.frames() + o.job.tail) / rate);
  std::vector<ChannelReverb> channels;
  for (const RoomResponse& r : responses) channels.emplace_back(r, o.job.block);
  SoundWriter output(o.job.output, input);
  streamThrough(channels, std::vector<float>(o.job.block), o.job, input, output);
  output.finish();
  std::printf("%s\n  %zu reflections within %.0f ms, then a tail of %.2f s\n", o.job.output.c_str(),
              first.positions.size() - 1, 1000 * first.positions.back() / rate,
              double(first.tail.size()) / rate);
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app("Plays a sound file in a room of a given size and reverberation time.", "reverb");
  Options options;
  declare(app, options);
  return runProgram(app, argc, argv, [&] { run(options); });
}
