#include <moxsp.h>

#include <iostream>
#include <vector>

// A C++ program of a user: the same as program.c.
int main() {
  const std::vector<float> a{1, 2, 3}, b{10, 20, 30};
  std::vector<float> sum(3);
  const MoxStatus status = moxsAdd_32f(a.data(), b.data(), sum.data(), 3);
  std::cout << status << ' ' << sum[0] << ' ' << sum[1] << ' ' << sum[2] << ' '
            << moxsGetLibVersion()->name << '\n';
}
