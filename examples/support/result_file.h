// A result that appears under its name only when it is whole.
#pragma once

#include <filesystem>

class ResultFile {
 public:
  explicit ResultFile(std::filesystem::path name);
  ~ResultFile();  // without a commit, nothing of it is left
  ResultFile(const ResultFile&) = delete;
  ResultFile& operator=(const ResultFile&) = delete;

  // Where to write meanwhile: beside the result, with an ending of its own.
  const std::filesystem::path& temporary() const { return temporary_; }
  // Gives the file its name, in the place of an earlier one.
  void commit();

 private:
  std::filesystem::path name_, temporary_;
};
