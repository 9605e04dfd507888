#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tvx::bench {

// What every benchmark takes on its command line.
struct BenchOptions {
  std::vector<uint64_t> sizes = {100'000, 1'000'000, 5'000'000};  // lines or blocks
  int repetitions = 5;                                            // medians are taken of these
  double spacing = 0.1;  // of the points of generated programs, mm
};

// --quick for one small size, --sizes N[,N...], --repetitions N, --spacing MM.
// Ends the program with a usage line and status 2 on anything else.
BenchOptions ReadBenchOptions(int argc, char** argv);

// Seconds of processor time that `work` takes in this process, the system's share included. Unlike
// the time of day it does not count what other programs do meanwhile.
double Seconds(const std::function<void()>& work);

// The middle value; of an even number the upper one of the two.
double Median(std::vector<double> values);

// Runs `work` in a fresh copy of this process and returns the numbers it gave. Memory that the work
// touches is thus touched for the first time. Ends the program if the copy fails.
std::vector<double> InFreshProcess(const std::function<std::vector<double>()>& work);

// Medians, number by number, of what a work gives in several fresh processes.
std::vector<double> MediansOfFreshProcesses(int repetitions,
                                            const std::function<std::vector<double>()>& work);

// Ends the program with the sentence and status 1 if the condition does not hold: a measurement of
// the wrong thing is worse than none.
void Require(bool condition, std::string_view sentence);

// Keeps a value that the measured work computed from being optimised away.
template <typename Value>
void Keep(const Value& value) {
  asm volatile("" : : "r,m"(value) : "memory");
}

// A table on standard output: a row of headings, then rows of cells. Columns are as wide as their
// headings, at least kCellWidth.
class Table {
 public:
  explicit Table(std::vector<std::string> headings);
  void Row(const std::vector<std::string>& cells) const;

 private:
  std::vector<std::string> headings_;
};

// A number with so many decimals; whole numbers in groups of three ("5 000 000").
std::string Fixed(double value, int decimals);
std::string Grouped(uint64_t value);

}  // namespace tvx::bench
