/**
 * @file
 * Conversions between element types.
 */
#ifndef MOXSP_CONVERT_H
#define MOXSP_CONVERT_H

#include <moxsp/types.h>

#endif
