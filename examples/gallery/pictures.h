// The pictures of the gallery, each a file in `folder`.
#pragma once

#include <filesystem>

void drawWindows(const std::filesystem::path& folder);
void drawFilters(const std::filesystem::path& folder);
void drawIirFilters(const std::filesystem::path& folder);
void drawSparseFilters(const std::filesystem::path& folder);
void drawResampling(const std::filesystem::path& folder);
