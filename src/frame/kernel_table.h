// Kernels that are compiled for a number, chosen by one that is known at run time.
#pragma once

#include <array>
#include <utility>

namespace mox {

// {make(0), make(1) ... make(count - 1)}, each number a constant of its type.
template <class Kernel, int count, class Make>
constexpr std::array<Kernel, count> kernelTable(Make make) {
  return [=]<int... i>(std::integer_sequence<int, i...>) {
    return std::array<Kernel, count>{make(std::integral_constant<int, i>())...};
  }
  (std::make_integer_sequence<int, count>());
}

}  // namespace mox
