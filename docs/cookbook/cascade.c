// cascade: a Butterworth low-pass of order 8 at a thousandth of the sample rate, as second-order
// sections and as one filter; their gains at 0, at the edge and an octave above.
#include <math.h>
#include <moxsp.h>
#include <stdio.h>
#include <stdlib.h>

enum { order = 8, sections = order / 2, len = 20000 };

static const double pi = 3.14159265358979, edge = 0.001;

// b0 b1 b2 a0 a1 a2 of a section: its two poles by the bilinear transform.
static void design(int section, Mox64f* taps) {
  const double k = tan(pi * edge), damping = 2 * sin(pi * (section + 0.5) / order);
  taps[0] = taps[2] = k * k;
  taps[1] = 2 * k * k;
  taps[3] = 1 + damping * k + k * k;
  taps[4] = 2 * (k * k - 1);
  taps[5] = 1 - damping * k + k * k;
}

static void show(const char* what, MoxsIIRState* filter) {
  static Mox64f response[len];
  moxsZero_64f(response, len);
  response[0] = 1;
  moxsIIR_64f_I(response, len, filter);
  printf("%-10s", what);
  if (fabs(response[len - 1]) > 1) {
    printf(" unstable\n");
    return;
  }
  for (int octave = 0; octave <= 2; ++octave) {
    Mox64fc bin;
    Mox64f gain;
    moxsGoertz_64f(response, len, &bin, octave * edge);
    moxsMagnitude_64fc(&bin, &gain, 1);
    printf(" %8.2f dB", 20 * log10(gain));
  }
  printf("\n");
}

int main(void) {
  Mox64f cascade[6 * sections], direct[2 * (order + 1)];
  for (int i = 0; i < sections; ++i) design(i, cascade + 6 * i);
  int size;
  moxsIIRGenGetBufferSize(order, &size);
  Mox8u* buffer = malloc((size_t)size);
  moxsIIRGenLowpass_64f(edge, 0, direct, order, 0, buffer);
  free(buffer);

  MoxsIIRState* filter;
  if (moxsIIRInitAlloc_BiQuad_64f(&filter, cascade, sections, NULL) < 0) return 1;
  show("sections", filter);
  moxsIIRFree_64f(filter);
  if (moxsIIRInitAlloc_64f(&filter, direct, order, NULL) < 0) return 1;
  show("one filter", filter);
  moxsIIRFree_64f(filter);
}
