#include "support/result_file.h"

#include <unistd.h>

#include <string>

ResultFile::ResultFile(std::filesystem::path name) : name_(std::move(name)), temporary_(name_) {
  temporary_ += ".";
  temporary_ += std::to_string(getpid());
  temporary_ += ".part";
}

ResultFile::~ResultFile() {
  std::error_code ignored;
  std::filesystem::remove(temporary_, ignored);
}

void ResultFile::commit() { std::filesystem::rename(temporary_, name_); }
