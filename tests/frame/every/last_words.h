// Says which case was running when a sanitizer ends the program.
#pragma once

#include <functional>
#include <string>
#include <utility>

#if defined(MOXSP_SANITIZED)
#include <sanitizer/common_interface_defs.h>

#include <cstdio>
#endif

namespace every {

class LastWords {
 public:
  explicit LastWords(std::function<std::string()> words) {
    words_ = std::move(words);
#if defined(MOXSP_SANITIZED)
    __sanitizer_set_death_callback([] {
      if (words_) std::fprintf(stderr, "%s\n", words_().c_str());
    });
#endif
  }
  ~LastWords() { words_ = nullptr; }
  LastWords(const LastWords&) = delete;
  LastWords& operator=(const LastWords&) = delete;

 private:
  static inline std::function<std::string()> words_;
};

}  // namespace every
