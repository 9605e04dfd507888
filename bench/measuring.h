// Common parts of the benchmarks: command line, CPU time, fresh processes, and tables of results.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tvx::bench {

// Command-line options of every benchmark.
struct BenchOptions {
  std::vector<uint64_t> sizes = {100'000, 1'000'000, 5'000'000};  // lines or blocks
  int repetitions = 5;                                            // each figure is their median
  double spacing = 0.1;  // distance between points of the generated programs, mm
};

// Parses --quick (one small size), --sizes N[,N...], --repetitions N and --spacing MM.
// Prints a usage line and exits with status 2 on any other argument.
BenchOptions ReadBenchOptions(int argc, char** argv);

// CPU seconds, user and system, that `work` takes in this process. Unlike wall-clock time this does
// not include the time of other processes.
double Seconds(const std::function<void()>& work);

// The median; the upper of the two middle values if their number is even.
double Median(std::vector<double> values);

// Runs `work` in a forked child process and returns its numbers, so that `work` starts with memory
// that was never used. Exits if the child fails.
std::vector<double> InFreshProcess(const std::function<std::vector<double>()>& work);

// Runs `work` in several fresh processes and returns the median of each of its numbers.
std::vector<double> MediansOfFreshProcesses(int repetitions,
                                            const std::function<std::vector<double>()>& work);

// Prints the sentence and exits with status 1 if the condition is false: a wrong measurement is
// worse than none.
void Require(bool condition, std::string_view sentence);

// Prevents the compiler from removing the computation of a value.
template <typename Value>
void Keep(const Value& value) {
  asm volatile("" : : "r,m"(value) : "memory");
}

// A table on standard output: a row of headings, then rows of cells. A column is as wide as its
// heading, but at least kCellWidth.
class Table {
 public:
  explicit Table(std::vector<std::string> headings);
  void Row(const std::vector<std::string>& cells) const;

 private:
  std::vector<std::string> headings_;
};

// A number with the given decimals; an integer with digits in groups of three ("5 000 000").
std::string Fixed(double value, int decimals);
std::string Grouped(uint64_t value);

}  // namespace tvx::bench
