// Signals for the benchmarks of filters.
#pragma once

#include <memory>
#include <random>
#include <type_traits>
#include <vector>

namespace bench {

// Noise over -1 to 1; integers over their whole range.
template <class E>
std::vector<E> noise(int count) {
  std::mt19937 engine(1);
  std::vector<E> v(count);
  using Part = std::conditional_t<std::is_integral_v<E>, E,
                                  std::conditional_t<sizeof(E) == 16, double, float>>;
  std::uniform_real_distribution<double> uniform(-1, 1);
  auto* p = reinterpret_cast<Part*>(v.data());
  for (std::size_t i = 0; i < count * sizeof(E) / sizeof(Part); ++i)
    p[i] = Part(uniform(engine) *
                (std::is_integral_v<E> ? double(1ULL << (8 * sizeof(Part) - 1)) - 1 : 1));
  return v;
}

template <class Object, class Destroy>
std::shared_ptr<Object> shared(Object* object, Destroy destroy) {
  return std::shared_ptr<Object>(object, destroy);
}

}  // namespace bench
