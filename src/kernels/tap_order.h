#pragma once

namespace mox::kernels {

// Whether the first tap belongs to the newest sample or, reversed, to the oldest one.
enum class TapOrder { forward, reversed };

// Where lane i of a register comes from whose elements of `width` lanes change their order.
template <int lanes, int width>
constexpr int backward(int i) {
  return lanes - width - i / width * width + i % width;
}

}  // namespace mox::kernels
