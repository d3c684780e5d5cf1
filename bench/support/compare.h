// A benchmark case measures our function and its peers on the same data, in one process, on one
// core, interleaved; the report is one table of the lowest times with the ratio to the best peer
// and the fraction of the machine's limit.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace bench {

// What bounds a case: bytes that must move, or floating-point operations that must be done.
struct Work {
  double bytesRead = 0, bytesWritten = 0;
  double floatOps = 0, doubleOps = 0;
};

using Call = std::function<void()>;

struct Case {
  std::string family;  // such as "add_32f"
  long size;           // in the unit that the table is to show, as a rule elements or bytes
  Work work;
  Call ours;
  std::vector<std::pair<std::string, Call>> peers;
};

// While it lives, the cases that are registered belong to a group, such as "vectors".
class Group {
 public:
  explicit Group(std::string name);
  ~Group();
  Group(const Group&) = delete;
  Group& operator=(const Group&) = delete;
};

// Registers a case. Data that the calls use must outlive the run: hold it in a shared_ptr.
void add(Case c);

// Keeps the compiler from dropping or hoisting what a peer loop writes.
inline void clobber(const void* p) { asm volatile("" : : "g"(p) : "memory"); }

}  // namespace bench
