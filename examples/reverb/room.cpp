#include "room.h"

#include <array>
#include <cmath>
#include <map>
#include <numbers>
#include <random>

namespace {

constexpr double speedOfSound = 343;
constexpr int mostReflections = 3;  // of an early path

using Point = std::array<double, 3>;

double volume(const Room& r) { return r.length * r.width * r.height; }

// What walls leave of an amplitude, by the formula of Norris and Eyring.
double reflection(const Room& r) {
  const double surface = 2 * (r.length * r.width + (r.length + r.width) * r.height);
  return std::exp(-12 * std::numbers::ln10 * volume(r) / (surface * speedOfSound * r.seconds));
}

// The amplitude left after a time.
double decay(const Room& r, double seconds) { return std::pow(10, -3 * seconds / r.seconds); }

// Mirror images of the source send what walls reflect (Allen and Berkley, Image method for
// efficiently simulating small-room acoustics). each(metres, reflections) for every near one.
template <class Each>
void forImages(const Room& r, Each each) {
  const Point size = {r.length, r.width, r.height};
  const Point source = {0.3 * r.length, 0.4 * r.width, 0.4 * r.height};
  const Point listener = {0.62 * r.length, 0.55 * r.width, 0.45 * r.height};
  // Image n along a wall's axis is the source shifted by n rooms, mirrored where n is odd.
  const auto offset = [&](int axis, int n) {
    const double place = n % 2 ? size[axis] - source[axis] : source[axis];
    return n * size[axis] + place - listener[axis];
  };
  for (int x = -mostReflections; x <= mostReflections; ++x)
    for (int y = -mostReflections; y <= mostReflections; ++y)
      for (int z = -mostReflections; z <= mostReflections; ++z)
        if (const int walls = std::abs(x) + std::abs(y) + std::abs(z); walls <= mostReflections)
          each(std::hypot(offset(0, x), offset(1, y), offset(2, z)), walls);
}

}  // namespace

RoomResponse responseOf(const Room& room, double rate, int channel) {
  const double left = reflection(room);
  std::map<int, double> early;
  double nearest = 1e9, mixed = 1e9;
  forImages(room, [&](double metres, int walls) {
    nearest = std::min(nearest, metres);
    if (walls == mostReflections) mixed = std::min(mixed, metres);
  });
  forImages(room, [&](double metres, int walls) {
    early[int(std::lround((metres - nearest) / speedOfSound * rate))] +=
        nearest / metres * std::pow(left, walls);
  });

  // From the first sound by three walls on, images are so dense that they make noise. Those that
  // arrive in a second are 4 pi c^3 t^2 / V, each with the energy of 1 / (c t) at one metre.
  const double first = mixed / speedOfSound, power = 4 * std::numbers::pi * speedOfSound /
                                                     (volume(room) * rate) * nearest * nearest;
  std::mt19937 engine(channel + 1);
  std::normal_distribution<double> noise(0, std::sqrt(power));
  std::vector<double> tail(std::size_t(room.seconds * rate) + 1);
  const double start = nearest / speedOfSound;
  for (std::size_t i = std::size_t((first - start) * rate); i < tail.size(); ++i)
    tail[i] = noise(engine) * decay(room, start + double(i) / rate);

  double energy = 0;
  for (const auto& [position, gain] : early) energy += gain * gain;
  for (const double sample : tail) energy += sample * sample;
  const double scale = 1 / std::sqrt(energy);
  RoomResponse response;
  for (const auto& [position, gain] : early) {
    response.positions.push_back(position);
    response.early.push_back(float(gain * scale));
  }
  for (const double sample : tail) response.tail.push_back(float(sample * scale));
  return response;
}
