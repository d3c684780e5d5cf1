// The sound of a room in the shape of a box: what arrives where a listener stands.
#pragma once

#include <vector>

struct Room {
  double length = 9, width = 7, height = 3.5;  // metres
  double seconds = 1.2;                        // until the sound has fallen by 60 dB
};

// An impulse response in two parts, of the same energy in sum as a unit impulse. The first sound
// arrives at once.
struct RoomResponse {
  std::vector<int> positions;  // the direct sound, and reflections that are heard one by one
  std::vector<float> early;    // how loud each is
  std::vector<float> tail;     // the dense rest, from the first sound on
};

// Responses of different channels have different tails.
RoomResponse responseOf(const Room& room, double rate, int channel);
