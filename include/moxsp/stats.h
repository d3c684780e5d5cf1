/**
 * @file
 * Statistics, search and sort.
 */
#ifndef MOXSP_STATS_H
#define MOXSP_STATS_H

#include <moxsp/extrema.h>
#include <moxsp/measures.h>
#include <moxsp/reductions.h>
#include <moxsp/sorting.h>

#endif
