#include "support/compare.h"

#include <benchmark/benchmark.h>
#include <moxsp.h>
#include <sched.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "support/limits.h"

namespace bench {
namespace {

struct Registered : Case {
  std::string group;
};

std::vector<Registered>& cases() {
  static std::vector<Registered> all;
  return all;
}

std::string& currentGroup() {
  static std::string name = "others";
  return name;
}

std::string label(const Registered& c, const std::string& side) {
  return c.group + "/" + c.family + "/" + std::to_string(c.size) + "/" + side;
}

// Collects the lowest time of every side and prints a line a case once all are there.
class Table : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context&) override {
    std::printf("%s\n%7s  %-20s %-26s %10s %12s  %-20s %12s %9s\n", moxsGetLibVersion()->name,
                "ratio", "group", "family", "size", "ours ns", "best peer", "peer ns", "of limit");
    return true;
  }

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs)
      if (run.aggregate_name == "lowest")
        lowest_[run.run_name.function_name] = run.GetAdjustedRealTime();
  }

  void Finalize() override {
    for (const Registered& c : cases())
      if (lowest_.contains(label(c, "moxsp"))) print(c);  // not left out by a filter
  }

 private:
  void print(const Registered& c) const {
    const double ours = lowest_.at(label(c, "moxsp"));
    std::vector<std::pair<double, std::string>> peers;
    for (const auto& [name, call] : c.peers) peers.emplace_back(lowest_.at(label(c, name)), name);
    std::sort(peers.begin(), peers.end());
    const auto printRatio = [=](double peer) { std::printf("%7.2f  ", peer / ours); };
    const auto printPeer = [](const auto& peer) {
      std::printf("  %-20s %12.1f", peer.second.c_str(), peer.first);
    };
    peers.empty() ? void(std::printf("%7s  ", "-")) : printRatio(peers[0].first);
    std::printf("%-20s %-26s %10ld %12.1f", c.group.c_str(), c.family.c_str(), c.size, ours);
    peers.empty() ? void(std::printf("  %-20s %12s", "-", "-")) : printPeer(peers[0]);
    if (const double limit = limitSeconds(c.work); limit > 0)
      std::printf(" %8.0f%%", 100 * limit * 1e9 / ours);
    std::printf("\n");
    for (std::size_t i = 1; i < peers.size(); ++i) {
      printRatio(peers[i].first);
      std::printf("%70s", "");
      printPeer(peers[i]);
      std::printf("\n");
    }
    std::fflush(stdout);
  }

  std::map<std::string, double> lowest_;
};

void registerSide(const std::string& name, const Call& call) {
  benchmark::RegisterBenchmark(name.c_str(), [call](benchmark::State& state) {
    call();  // plans, pages and caches are ready before the clock runs
    for (auto _ : state) call();
  })->ComputeStatistics("lowest", [](const std::vector<double>& times) {
    return *std::min_element(times.begin(), times.end());
  });
}

void stayOnThisCore() {
  cpu_set_t set;
  CPU_ZERO(&set);
  CPU_SET(sched_getcpu(), &set);
  sched_setaffinity(0, sizeof set, &set);
}

}  // namespace

Group::Group(std::string name) { currentGroup() = std::move(name); }
Group::~Group() { currentGroup() = "others"; }

void add(Case c) { cases().push_back({std::move(c), currentGroup()}); }

}  // namespace bench

int main(int argc, char** argv) {
  // Nine interleaved repetitions, and no more than their summary, unless the command line says
  // otherwise. A word that is no option is the beginning of the names of what is to run.
  std::vector<std::string> words = {
      argv[0], "--benchmark_repetitions=9", "--benchmark_report_aggregates_only=true",
      "--benchmark_enable_random_interleaving=true", "--benchmark_min_time=0.02"};
  for (const std::string word : std::vector(argv + 1, argv + argc))
    words.push_back(word.starts_with("-") ? word : "--benchmark_filter=^" + word);
  std::vector<char*> pointers;
  for (std::string& word : words) pointers.push_back(word.data());
  int count = int(pointers.size());

  bench::stayOnThisCore();
  benchmark::Initialize(&count, pointers.data());
  for (const bench::Registered& c : bench::cases()) {
    bench::registerSide(bench::label(c, "moxsp"), c.ours);
    for (const auto& [name, call] : c.peers) bench::registerSide(bench::label(c, name), call);
  }
  bench::Table table;
  benchmark::RunSpecifiedBenchmarks(&table);
}
