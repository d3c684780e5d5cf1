// An array whose last byte is followed, or whose first byte is preceded, by an inaccessible page,
// so that the least overrun of a kernel, read or write, ends the test program.
#pragma once

#include <sys/mman.h>

#include <cstddef>
#include <cstdint>
#include <new>

namespace test {

enum class Guard { before, after };

class GuardedBytes {
 public:
  GuardedBytes(std::size_t bytes, Guard side) {
    const std::size_t room = (bytes + page - 1) / page * page;
    mapped_ = room + 2 * page;
    void* base = mmap(nullptr, mapped_, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (base == MAP_FAILED) throw std::bad_alloc();
    base_ = static_cast<std::byte*>(base);
    if (room && mprotect(base_ + page, room, PROT_READ | PROT_WRITE)) throw std::bad_alloc();
    data_ = base_ + page + (side == Guard::after ? room - bytes : 0);
  }
  ~GuardedBytes() { munmap(base_, mapped_); }
  GuardedBytes(const GuardedBytes&) = delete;
  GuardedBytes& operator=(const GuardedBytes&) = delete;

  std::byte* data() const { return data_; }

 private:
  static constexpr std::size_t page = 4096;
  std::byte* base_;
  std::byte* data_;
  std::size_t mapped_;
};

template <class E>
class GuardedArray {
 public:
  explicit GuardedArray(std::size_t len, Guard side = Guard::after)
      : bytes_(len * sizeof(E), side), len_(len) {}

  E* data() const { return reinterpret_cast<E*>(bytes_.data()); }
  E& operator[](std::size_t i) const { return data()[i]; }
  std::size_t size() const { return len_; }
  E* begin() const { return data(); }
  E* end() const { return data() + len_; }

 private:
  GuardedBytes bytes_;
  std::size_t len_;
};

}  // namespace test
