// statuses: what a call reports, and four names that are easily misread.
#include <moxsp.h>
#include <stdio.h>

int main(void) {
  // A warning is above 0, and all elements are done. An error is below 0, and nothing is written.
  Mox32f x[4] = {1, 0, 2.7182818f, -3}, y[4] = {0};
  MoxStatus status = moxsLn_32f(x, y, 4);
  printf("Ln of a zero and a negative element: %d, %s; results %g %g %g %s\n", status,
         status < 0 ? "an error" : "a warning", y[0], y[1], y[2], y[3] != y[3] ? "nan" : "?");
  status = moxsLn_32f(x, NULL, 4);
  printf("Ln into a null pointer: %d, %s\n", status, status < 0 ? "an error" : "a warning");

  // So silence a warning that is expected by a floor, or let it pass: `if (status < 0)`.
  moxsThreshold_LT_32f_I(x, 4, 1e-10f);
  printf("Ln behind a floor: %d\n", moxsLn_32f(x, y, 4));

  // Sub and Div take the first source from the second: b - a, b / a.
  const Mox32f a[1] = {2}, b[1] = {10};
  moxsSub_32f(a, b, y, 1);
  moxsDiv_32f(a, b, y + 1, 1);
  printf("Sub(a, b) = %g, Div(a, b) = %g\n", y[0], y[1]);

  // A positive scale factor divides.
  Mox16s n[2] = {100, 101};
  moxsAddC_16s_ISfs(0, n, 2, 1);
  printf("100 and 101 with the factor 1: %d %d (ties to even)\n", n[0], n[1]);

  // MaxAbs is for integers; the largest magnitude of floats is a norm.
  const Mox32f z[3] = {1, -7, 3};
  moxsMax_32f(z, 3, y);
  moxsNorm_Inf_32f(z, 3, y + 1);
  printf("Max %g, Norm_Inf %g\n", y[0], y[1]);
}
