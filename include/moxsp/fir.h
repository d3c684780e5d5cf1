/**
 * @file
 * FIR filters.
 */
#ifndef MOXSP_FIR_H
#define MOXSP_FIR_H

#include <moxsp/types.h>

/** A FIR filter: taps, delay line and scratch. One thread at a time. */
typedef struct MoxsFIRState MoxsFIRState;

#endif
