// Reports of benchmarks that are repeated, shared by the benchmark programs.
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

/// Prints the median of each benchmark's repetitions, without the repetitions themselves, and keeps it.
class MedianReporter final : public benchmark::ConsoleReporter {
 public:
  MedianReporter() : ConsoleReporter(OO_None) {}

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Aggregate || run.aggregate_name != "median") continue;
      ConsoleReporter::ReportRuns({run});
      medians_[run.run_name.function_name] = run.GetAdjustedCPUTime();
    }
  }

  /// The processor time of one iteration, in the benchmark's unit; nothing when `name` was not run.
  std::optional<double> median(const std::string& name) const {
    const auto found = medians_.find(name);
    return found == medians_.end() ? std::nullopt : std::optional(found->second);
  }

 private:
  std::map<std::string, double> medians_;
};
