// The pictures of the gallery, each a file in `folder`.
#pragma once

#include <filesystem>

void drawWindows(const std::filesystem::path& folder);
