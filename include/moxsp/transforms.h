/**
 * @file
 * Fourier-family transforms and operations on packed spectra.
 */
#ifndef MOXSP_TRANSFORMS_H
#define MOXSP_TRANSFORMS_H

#include <moxsp/types.h>

/** A power-of-two transform: length, normalisation and tables. Read-only during runs. */
typedef struct MoxsFFTSpec MoxsFFTSpec;

#endif
