/**
 * @file
 * moxSP, signal-processing primitives on plain arrays: all public declarations.
 */
#ifndef MOXSP_H
#define MOXSP_H

#include <moxsp/arith.h>
#include <moxsp/convert.h>
#include <moxsp/fir.h>
#include <moxsp/frame.h>
#include <moxsp/sorting.h>
#include <moxsp/stats.h>
#include <moxsp/transforms.h>
#include <moxsp/types.h>

#endif
