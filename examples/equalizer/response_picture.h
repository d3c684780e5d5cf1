// The response that was asked for, as a curve, and the measured one, as dots, in a PNG file.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "band.h"
#include "response.h"

void drawResponse(const std::filesystem::path& file, const std::string& title,
                  const std::vector<Taps>& bands, double rate,
                  const std::vector<Measured>& measured);
