// The NC programs that the benchmarks measure.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace tvx::bench {

// The measured tool paths. Numbers have three decimals, lines end in CR LF, and a word that repeats
// its last value is left out, as in the output of post-processors.
enum class ProgramKind {
  kRaster,  // word-address: rows along X over a wavy surface, straight cuts
  kArcs,    // word-address: the rows wave in Y; every other move is a short arc with I and J
  kConversational,  // the raster with numbered lines; rows are joined by arcs with a radius
};
inline constexpr ProgramKind kProgramKinds[] = {ProgramKind::kRaster, ProgramKind::kArcs,
                                                ProgramKind::kConversational};

// "raster", "arcs", "conversational".
std::string_view KindName(ProgramKind kind);
// Returns false and leaves *kind unchanged for any other name.
bool FindKind(std::string_view name, ProgramKind* kind);

struct ProgramOptions {
  ProgramKind kind = ProgramKind::kRaster;
  uint64_t lines = 100'000;  // total number of lines; at least 20
  double spacing = 0.1;      // distance between points of a row, mm; at least 0.001
};

// Passes a program to `sink` in pieces. The same options always produce the same bytes.
void GenerateProgram(const ProgramOptions& options,
                     const std::function<void(std::string_view)>& sink);

std::string ProgramText(const ProgramOptions& options);

// Creates or overwrites a host file. Returns false on failure.
bool WriteProgram(const ProgramOptions& options, const std::filesystem::path& file);

}  // namespace tvx::bench
