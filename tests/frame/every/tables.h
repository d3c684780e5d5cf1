// How the tables of the harness are read. A row names functions by shell patterns without their
// "moxs" and parameters by name, or by "*NAME" what they point to, several of each between spaces.
// Rows for "*" hold where no row of
// the same table names the function. So the order of rows does not matter, and two rules keep the
// tables true when functions come and go: each pattern and each name serves some function, and no
// two rows of the same rank claim the same parameter of one function.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "frame/every/functions.h"

namespace every {

// What a row says of itself; rows of different kinds may claim the same.
struct Claim {
  std::string functions;
  std::string parameters;  // none: the row is about the function as a whole
  int kind = 0;

  bool isGeneral() const { return functions == "*"; }
};

// The words of a row's text.
const std::vector<std::string>& words(const std::string& text);

// Patterns and names that serve nothing, and double claims, in words.
std::vector<std::string> faultsOf(const std::string& table, const std::vector<Claim>& rows);

// The numbers of the rows that hold for a parameter of a function.
std::vector<std::size_t> rowsFor(const std::vector<Claim>& rows, const Function& function,
                                 const std::string& parameter);

std::vector<std::pair<std::string, const std::vector<Claim>*>>& allTables();

// A table of rows that begin with a Claim.
template <class Row>
class Table {
 public:
  Table(const char* name, std::vector<Row> rows) : rows_(std::move(rows)) {
    for (const Row& row : rows_) claims_.push_back(row.claim);
    allTables().emplace_back(name, &claims_);
  }
  Table(const Table&) = delete;
  Table& operator=(const Table&) = delete;

  // Those for a parameter, or for the function as a whole. A sweep asks again and again.
  const std::vector<const Row*>& all(const Function& f, const std::string& parameter = "") const {
    const auto [at, isNew] = found_.try_emplace({&f, parameter});
    if (isNew)
      for (const std::size_t i : rowsFor(claims_, f, parameter)) at->second.push_back(&rows_[i]);
    return at->second;
  }
  const Row* first(const Function& f, const std::string& parameter = "") const {
    const auto& rows = all(f, parameter);
    return rows.empty() ? nullptr : rows[0];
  }

 private:
  std::vector<Row> rows_;
  std::vector<Claim> claims_;
  mutable std::map<std::pair<const Function*, std::string>, std::vector<const Row*>> found_;
};

// The faults of all tables of the harness, and of the rows of objects.cpp.
std::vector<std::string> faultsOfAllTables();
std::vector<std::string> faultsOfObjects();

}  // namespace every
