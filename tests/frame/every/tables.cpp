#include "frame/every/tables.h"

#include <algorithm>
#include <set>
#include <sstream>

namespace every {
namespace {

// The pattern and the name by which a row claims a parameter; empty where it does not.
std::pair<std::string, std::string> claimOf(const Claim& row, const std::string& function,
                                            const std::string& parameter) {
  const auto& names = words(row.parameters);
  if (names.empty() ? parameter.empty() : std::ranges::count(names, parameter) > 0)
    for (const std::string& pattern : words(row.functions))
      if (matches("moxs" + pattern, function)) return {pattern, parameter};
  return {};
}

}  // namespace

const std::vector<std::string>& words(const std::string& text) {
  static std::map<std::string, std::vector<std::string>> found;
  const auto [at, isNew] = found.try_emplace(text);
  if (isNew) {
    std::istringstream stream(text);
    for (std::string word; stream >> word;) at->second.push_back(word);
  }
  return at->second;
}

std::vector<std::pair<std::string, const std::vector<Claim>*>>& allTables() {
  static std::vector<std::pair<std::string, const std::vector<Claim>*>> tables;
  return tables;
}

std::vector<std::size_t> rowsFor(const std::vector<Claim>& rows, const Function& function,
                                 const std::string& parameter) {
  std::vector<std::size_t> certain, general;
  for (std::size_t i = 0; i < rows.size(); ++i)
    if (!claimOf(rows[i], function.name, parameter).first.empty())
      (rows[i].isGeneral() ? general : certain).push_back(i);
  return certain.empty() ? general : certain;
}

std::vector<std::string> faultsOf(const std::string& table, const std::vector<Claim>& rows) {
  std::vector<std::string> faults;
  std::vector<std::set<std::string>> used(rows.size());
  for (const Function& f : allFunctions()) {
    auto parameters = f.parameters;
    for (const std::string& name : f.parameters) parameters.push_back('*' + name);
    parameters.push_back("");
    for (const std::string& parameter : parameters) {
      std::set<int> kinds;
      for (const std::size_t i : rowsFor(rows, f, parameter)) {
        const auto [pattern, name] = claimOf(rows[i], f.name, parameter);
        used[i].insert({pattern, name});
        if (!kinds.insert(rows[i].kind).second)
          faults.push_back(table + ": two rows claim '" + parameter + "' of " + f.name);
      }
    }
  }
  for (std::size_t i = 0; i < rows.size(); ++i) {
    auto all = words(rows[i].functions);
    for (const std::string& name : words(rows[i].parameters)) all.push_back(name);
    for (const std::string& word : all)
      if (!used[i].count(word))
        faults.push_back(table + ": '" + word + "' serves no function in the row of '" +
                         rows[i].functions + "'");
  }
  return faults;
}

std::vector<std::string> faultsOfAllTables() {
  auto all = faultsOfObjects();
  for (const auto& [name, claims] : allTables())
    for (const std::string& fault : faultsOf(name, *claims)) all.push_back(fault);
  return all;
}

}  // namespace every
