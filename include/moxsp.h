/**
 * @file
 * moxSP, signal-processing primitives on plain arrays: all public declarations.
 */
#ifndef MOXSP_H
#define MOXSP_H

#include <moxsp/arith.h>
#include <moxsp/companding.h>
#include <moxsp/complex.h>
#include <moxsp/convert.h>
#include <moxsp/division.h>
#include <moxsp/elementary.h>
#include <moxsp/extrema.h>
#include <moxsp/fir.h>
#include <moxsp/logic.h>
#include <moxsp/measures.h>
#include <moxsp/move.h>
#include <moxsp/reductions.h>
#include <moxsp/sorting.h>
#include <moxsp/stats.h>
#include <moxsp/status.h>
#include <moxsp/threshold.h>
#include <moxsp/transforms.h>
#include <moxsp/types.h>

#endif
