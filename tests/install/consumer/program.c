#include <moxsp.h>
#include <stdio.h>

/* A C program of a user: adds two vectors and prints the sum. */
int main(void) {
  const float a[3] = {1, 2, 3}, b[3] = {10, 20, 30};
  float sum[3] = {0};
  MoxStatus status = moxsAdd_32f(a, b, sum, 3);
  printf("%d %g %g %g %s\n", (int)status, sum[0], sum[1], sum[2], moxsGetLibVersion()->name);
  return 0;
}
