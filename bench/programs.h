#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace tvx::bench {

// The tool paths that are measured. Numbers have three decimals, lines end in CR LF, and a word
// that prints as before is left out, as post-processors write it.
enum class ProgramKind {
  kRaster,  // word-address: rows along X over a wavy surface, straight cuts
  kArcs,    // word-address: the rows wave in Y; every other move is a short arc with I and J
  kConversational,  // the raster with numbered lines; rows are joined by arcs with a radius
};
inline constexpr ProgramKind kProgramKinds[] = {ProgramKind::kRaster, ProgramKind::kArcs,
                                                ProgramKind::kConversational};

// "raster", "arcs", "conversational".
std::string_view KindName(ProgramKind kind);
// False, with *kind alone, for any other name.
bool FindKind(std::string_view name, ProgramKind* kind);

struct ProgramOptions {
  ProgramKind kind = ProgramKind::kRaster;
  uint64_t lines = 100'000;  // all lines, the first and the last one included; at least 20
  double spacing = 0.1;      // from one point of a row to the next, mm; at least 0.001
};

// Writes a program to `sink` piece by piece. The same options give the same bytes.
void GenerateProgram(const ProgramOptions& options,
                     const std::function<void(std::string_view)>& sink);

std::string ProgramText(const ProgramOptions& options);

// Creates or overwrites a file of the host. False if that fails.
bool WriteProgram(const ProgramOptions& options, const std::filesystem::path& file);

}  // namespace tvx::bench
