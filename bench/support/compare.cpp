#include "support/compare.h"

#include <benchmark/benchmark.h>
#include <sched.h>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "support/limits.h"

namespace bench {
namespace {

std::vector<Case>& cases() {
  static std::vector<Case> all;
  return all;
}

std::string label(const Case& c, const std::string& side) {
  return c.family + "/" + std::to_string(c.size) + "/" + side;
}

// Collects the median of every side and prints a line a case once all are there.
class Table : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context&) override {
    std::printf("%-26s %10s %12s  %-14s %12s %7s %9s\n", "family", "size", "ours ns", "best peer",
                "peer ns", "ratio", "of limit");
    return true;
  }

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs)
      if (run.aggregate_name == "median")
        medians_[run.run_name.function_name] = run.GetAdjustedRealTime();
  }

  void Finalize() override {
    for (const Case& c : cases()) print(c);
  }

 private:
  void print(const Case& c) const {
    const auto ours = medians_.find(label(c, "moxsp"));
    if (ours == medians_.end()) return;  // left out by --benchmark_filter
    std::printf("%-26s %10ld %12.1f  ", c.family.c_str(), c.size, ours->second);
    const std::string* best = nullptr;
    double bestTime = 0;
    for (const auto& [name, call] : c.peers)
      if (const double t = medians_.at(label(c, name)); !best || t < bestTime)
        best = &name, bestTime = t;
    if (best)
      std::printf("%-14s %12.1f %7.2f", best->c_str(), bestTime, bestTime / ours->second);
    else
      std::printf("%-14s %12s %7s", "-", "-", "-");
    if (const double limit = limitSeconds(c.work); limit > 0)
      std::printf(" %8.0f%%", 100 * limit * 1e9 / ours->second);
    std::printf("\n");
    for (const auto& [name, call] : c.peers)
      if (&name != best)
        std::printf("%-26s %10s %12s  %-14s %12.1f %7.2f\n", "", "", "", name.c_str(),
                    medians_.at(label(c, name)), medians_.at(label(c, name)) / ours->second);
  }

  std::map<std::string, double> medians_;
};

void registerSide(const std::string& name, const Call& call) {
  benchmark::RegisterBenchmark(name.c_str(), [call](benchmark::State& state) {
    call();  // plans, pages and caches are ready before the clock runs
    for (auto _ : state) call();
  });
}

void stayOnThisCore() {
  cpu_set_t set;
  CPU_ZERO(&set);
  CPU_SET(sched_getcpu(), &set);
  sched_setaffinity(0, sizeof set, &set);
}

}  // namespace

void add(Case c) { cases().push_back(std::move(c)); }

}  // namespace bench

int main(int argc, char** argv) {
  // Nine interleaved repetitions, medians only, unless the command line says otherwise.
  std::vector<std::string> words = {
      argv[0], "--benchmark_repetitions=9", "--benchmark_report_aggregates_only=true",
      "--benchmark_enable_random_interleaving=true", "--benchmark_min_time=0.02"};
  words.insert(words.end(), argv + 1, argv + argc);
  std::vector<char*> pointers;
  for (std::string& word : words) pointers.push_back(word.data());
  int count = int(pointers.size());

  bench::stayOnThisCore();
  benchmark::Initialize(&count, pointers.data());
  for (const bench::Case& c : bench::cases()) {
    bench::registerSide(bench::label(c, "moxsp"), c.ours);
    for (const auto& [name, call] : c.peers) bench::registerSide(bench::label(c, name), call);
  }
  bench::Table table;
  benchmark::RunSpecifiedBenchmarks(&table);
}
