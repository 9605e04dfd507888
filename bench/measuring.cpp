// Options, time measurement, fresh processes and tables of the benchmarks.
#include "measuring.h"

#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>

namespace tvx::bench {

namespace {

constexpr size_t kCellWidth = 9;

[[noreturn]] void ShowUsage(const char* program) {
  std::fprintf(stderr, "usage: %s [--quick] [--sizes N[,N...]] [--repetitions N] [--spacing MM]\n",
               program);
  std::exit(2);
}

template <typename Number>
bool ReadNumber(std::string_view text, Number* number) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), *number);
  return error == std::errc{} && end == text.data() + text.size() && *number > 0;
}

bool ReadSizes(std::string_view text, std::vector<uint64_t>* sizes) {
  sizes->clear();
  for (size_t start = 0; start <= text.size();) {
    const size_t comma = std::min(text.find(',', start), text.size());
    uint64_t size = 0;
    if (!ReadNumber(text.substr(start, comma - start), &size)) return false;
    sizes->push_back(size);
    start = comma + 1;
  }
  return true;
}

double ProcessorSeconds() {
  timespec now{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

std::string Padded(const std::string& text, size_t width) {
  return std::string(width > text.size() ? width - text.size() : 0, ' ') + text;
}

}  // namespace

BenchOptions ReadBenchOptions(int argc, char** argv) {
  BenchOptions options;
  for (int i = 1; i < argc; ++i) {
    const std::string_view name = argv[i];
    if (name == "--quick") {
      options.sizes = {100'000};
      continue;
    }
    if (++i == argc) ShowUsage(argv[0]);
    const bool good = name == "--sizes"         ? ReadSizes(argv[i], &options.sizes)
                      : name == "--repetitions" ? ReadNumber(argv[i], &options.repetitions)
                      : name == "--spacing"     ? ReadNumber(argv[i], &options.spacing)
                                                : false;
    if (!good) ShowUsage(argv[0]);
  }
  return options;
}

double Seconds(const std::function<void()>& work) {
  const double start = ProcessorSeconds();
  work();
  return ProcessorSeconds() - start;
}

double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

std::vector<double> InFreshProcess(const std::function<std::vector<double>()>& work) {
  int ends[2];
  Require(pipe(ends) == 0, "no pipe");
  std::fflush(stdout);
  const pid_t child = fork();
  Require(child >= 0, "no new process");
  if (child == 0) {
    const std::vector<double> numbers = work();
    const size_t size = numbers.size() * sizeof(double);
    // The few numbers fit in the pipe buffer, so one write is enough.
    const bool written = write(ends[1], numbers.data(), size) == static_cast<ssize_t>(size);
    _exit(written ? 0 : 1);
  }
  close(ends[1]);
  std::vector<double> numbers;
  for (double number = 0; read(ends[0], &number, sizeof number) == sizeof number;) {
    numbers.push_back(number);
  }
  close(ends[0]);
  int status = 0;
  Require(waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0,
          "the measuring process failed");
  return numbers;
}

std::vector<double> MediansOfFreshProcesses(int repetitions,
                                            const std::function<std::vector<double>()>& work) {
  std::vector<std::vector<double>> columns;
  for (int i = 0; i < repetitions; ++i) {
    const std::vector<double> numbers = InFreshProcess(work);
    columns.resize(numbers.size());
    for (size_t n = 0; n < numbers.size(); ++n) columns[n].push_back(numbers[n]);
  }
  std::vector<double> medians;
  medians.reserve(columns.size());
  for (std::vector<double>& column : columns) medians.push_back(Median(std::move(column)));
  return medians;
}

void Require(bool condition, std::string_view sentence) {
  if (condition) return;
  std::fprintf(stderr, "benchmark: %.*s\n", static_cast<int>(sentence.size()), sentence.data());
  std::fflush(stdout);
  _exit(1);
}

Table::Table(std::vector<std::string> headings) : headings_(std::move(headings)) {
  Row(headings_);
}

void Table::Row(const std::vector<std::string>& cells) const {
  for (size_t i = 0; i < cells.size(); ++i) {
    const size_t width = std::max(kCellWidth, headings_[i].size());
    const std::string cell =
        i == 0 ? cells[i] + std::string(width > cells[i].size() ? width - cells[i].size() : 0, ' ')
               : Padded(cells[i], width);
    std::printf("%s%s", i == 0 ? "" : "  ", cell.c_str());
  }
  std::printf("\n");
  std::fflush(stdout);
}

std::string Fixed(double value, int decimals) {
  char text[64];
  std::snprintf(text, sizeof text, "%.*f", decimals, value);
  return text;
}

std::string Grouped(uint64_t value) {
  std::string digits = std::to_string(value);
  for (size_t i = digits.size(); i > 3; i -= 3) digits.insert(i - 3, " ");
  return digits;
}

}  // namespace tvx::bench
