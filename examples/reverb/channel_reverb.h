// One channel in a room: reflections by a sparse filter, the tail by transforms. All memory is
// taken at the start.
#pragma once

#include <moxsp.h>

#include <vector>

#include "room.h"

class ChannelReverb {
 public:
  // Blocks have at most `block` samples.
  ChannelReverb(const RoomResponse& response, int block);
  ChannelReverb(ChannelReverb&&) = default;  // what has been set up stays where it is

  // Filters one block in place; both histories carry over to the next.
  void run(std::vector<float>& block);

 private:
  MoxsFIRSRSpec* spec() { return reinterpret_cast<MoxsFIRSRSpec*>(tailMemory_.data()); }

  std::vector<Mox8u> earlyMemory_, tailMemory_, buffer_;
  MoxsFIRSparseState* early_ = nullptr;
  std::vector<float> history_, tail_;  // the samples before a block; what the tail adds to it
};
