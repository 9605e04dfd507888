// The tables of cutting speeds, power constants and factors, and the lookups in them.
#include "getfeed/condition_tables.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

#include "base/numbers.h"

namespace tvx {

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

// Rows of the tables by work material. Steel grades without a row of their own use that of SS41.
enum Row {
  kGraphite,
  kAluminium,
  kCopper,
  kBrass,
  kCastIron,
  kSs41,
  kSk7,
  kSkd11,
  kSkd61,
  kHardSkd61,
  kRows,
};

struct WorkMaterial {
  Row row;
  double speedShare;  // of the row's cutting speed
};

constexpr std::string_view kWorkNames[] = {"흑연", "알루미늄", "동",    "황동",       "주철",
                                           "SS41", "KP1",      "KP4",   "KP4M",       "NAK80",
                                           "SK7",  "SKD61",    "SKD11", "얄처리SKD61"};

constexpr WorkMaterial kWorkMaterials[] = {
    {kGraphite, 1.0}, {kAluminium, 1.0}, {kCopper, 1.0}, {kBrass, 1.0},    {kCastIron, 1.0},
    {kSs41, 1.0},     {kSs41, 1.0},      {kSs41, 0.9},   {kSs41, 0.7},     {kSs41, 0.5},
    {kSk7, 1.0},      {kSkd61, 1.0},     {kSkd11, 1.0},  {kHardSkd61, 1.0}};
static_assert(std::size(kWorkNames) == std::size(kWorkMaterials));

constexpr std::string_view kToolNames[] = {"하이스", "코팅하이스", "초경", "고속초경",
                                           "고속코팅초경"};
constexpr size_t kHighSpeedSteels = 2;  // the first two; the others are carbide

constexpr std::string_view kFluteCounts[] = {"2", "3", "4", "6"};

// Base cutting speed in m/min by tool material, in the order of kToolNames.
constexpr float kBaseSpeed[kRows][std::size(kToolNames)] = {
    {80, 120, 140, 280, 840},  // kGraphite
    {60, 80, 85, 170, 510},    // kAluminium
    {50, 70, 70, 140, 420},    // kCopper
    {37, 52, 75, 150, 450},    // kBrass
    {35, 45, 53, 110, 330},    // kCastIron
    {33, 40, 48, 100, 300},    // kSs41
    {27, 35, 40, 80, 240},     // kSk7
    {13, 20, 20, 40, 120},     // kSkd11
    {20, 28, 30, 60, 180},     // kSkd61
    {10, 18, 18, 36, 108},     // kHardSkd61
};

constexpr PowerLaw kPower[kRows] = {
    {3.5F, 0.5F},     // kGraphite
    {5.47F, 0.74F},   // kAluminium
    {7.29F, 0.67F},   // kCopper
    {7.38F, 0.71F},   // kBrass
    {5.68F, 0.73F},   // kCastIron
    {9.4F, 0.81F},    // kSs41
    {11.1F, 0.81F},   // kSk7
    {13.3F, 0.87F},   // kSkd11
    {12.11F, 0.82F},  // kSkd61
    {14.5F, 0.9F},    // kHardSkd61
};

// Material factor at support diameters in mm, linear between them, for all rows but the last one.
struct FactorSupport {
  float diameter;
  float factor[kHardSkd61];
};

constexpr FactorSupport kFactors[] = {
    // graphite, aluminium, copper, brass, cast iron, SS41, SK7, SKD11, SKD61
    {1, {4.5F, 3.1F, 2.7F, 2.0F, 3.4F, 1.5F, 1.4F, 1.0F, 0.8F}},
    {2, {7.7F, 5.3F, 4.6F, 3.4F, 5.8F, 2.6F, 2.4F, 1.7F, 1.4F}},
    {3, {12.2F, 8.4F, 7.2F, 5.3F, 9.1F, 4.2F, 3.8F, 2.7F, 2.3F}},
    {5, {19.8F, 13.6F, 11.8F, 8.7F, 14.9F, 6.8F, 6.2F, 4.3F, 3.7F}},
    {6, {24.3F, 16.7F, 14.4F, 10.6F, 18.2F, 8.4F, 7.6F, 5.3F, 4.6F}},
    {8, {32.0F, 22.0F, 19.0F, 14.0F, 24.0F, 11.0F, 10.0F, 7.0F, 6.0F}},
    {10, {41.3F, 28.4F, 24.5F, 18.1F, 31.0F, 14.2F, 12.9F, 9.0F, 7.7F}},
    {12, {49.0F, 33.7F, 29.1F, 21.4F, 36.7F, 16.8F, 15.3F, 10.7F, 9.2F}},
    {15, {61.1F, 42.0F, 36.3F, 26.7F, 45.8F, 21.0F, 19.1F, 13.4F, 11.5F}},
    {18, {73.3F, 50.4F, 43.5F, 32.1F, 55.0F, 25.2F, 22.9F, 16.0F, 13.7F}},
    {20, {76.5F, 52.6F, 45.4F, 33.5F, 57.4F, 26.3F, 23.9F, 16.7F, 14.3F}},
    {25, {73.3F, 50.4F, 43.5F, 32.1F, 55.0F, 25.2F, 22.9F, 16.0F, 13.7F}},
    {30, {70.4F, 48.4F, 41.8F, 30.8F, 52.8F, 24.2F, 22.0F, 15.4F, 13.2F}},
    {35, {68.8F, 47.3F, 40.9F, 30.1F, 51.6F, 23.7F, 21.5F, 15.1F, 12.9F}},
    {40, {64.3F, 44.2F, 38.2F, 28.1F, 48.2F, 22.1F, 20.1F, 14.1F, 12.1F}},
    {45, {50.6F, 34.8F, 30.0F, 22.1F, 37.9F, 17.4F, 15.8F, 11.1F, 9.5F}},
    {50, {41.3F, 28.4F, 24.5F, 18.1F, 31.0F, 14.2F, 12.9F, 9.0F, 7.7F}},
};

// A linear piece of a curve over the diameter: start + (diameter - from) * slope, up to and
// including the diameter upTo.
struct Piece {
  double upTo;
  double start;
  double from;
  double slope;
};

constexpr double ValueAt(const Piece& piece, double diameter) {
  return piece.start + (diameter - piece.from) * piece.slope;
}

// Ranges of the material factor that are not the straight line between the neighbouring supports.
// Proposals of the calculator depend on these values; do not smooth them out.
struct ExceptionalPiece {
  Row row;
  float above;
  Piece piece;
};

constexpr ExceptionalPiece kExceptionalPieces[] = {
    {kGraphite, 6, {8, 24.3, 5, 2.5666668F}},
    {kAluminium, 12, {15, 4.5, 12, 12.5}},
    {kSk7, 15, {18, 19.1, 15, 0.76}},
};

constexpr Piece kToothCurve[] = {
    {2, 0, 0, 0.0035},     {4, 0.007, 2, 0.0015}, {5, 0.013, 4, 0.007},
    {6, 0.02, 0, 0},       {8, 0.02, 6, 0.005},   {10, 0.03, 8, 0.005},
    {12, 0.04, 10, 0.005}, {16, 0.05, 12, 0.005}, {kInfinity, 0.09, 0, 0},
};

constexpr Piece kRoughToothCurve[] = {
    {0.3, 0.003, 0, 0},     {2, 0.003, 0.3, 0.01},   {4, 0.02, 2, 0.01},   {5, 0.04, 4, 0.02},
    {6, 0.06, 0, 0},        {8, 0.06, 6, 0.015},     {10, 0.09, 8, 0.015}, {12, 0.12, 10, 0.015},
    {16, 0.15, 12, 0.0125}, {kInfinity, 0.12, 0, 0},
};

struct FactorStep {
  float upTo;
  float factor;
};

constexpr FactorStep kLengthFactors[] = {{5, 1.0F},  {6, 0.95F}, {7, 0.9F},
                                         {8, 0.75F}, {9, 0.5F},  {10, 0.2F}};

// Index of a name in a list; the size of the list if it is not there.
size_t IndexOf(std::span<const std::string_view> names, std::string_view name) {
  return static_cast<size_t>(std::ranges::find(names, name) - names.begin());
}

const WorkMaterial* FindWorkMaterial(std::string_view name) {
  const size_t index = IndexOf(kWorkNames, name);
  return index < std::size(kWorkMaterials) ? &kWorkMaterials[index] : nullptr;
}

// Form factor of a high-speed steel tool by the whole number of diameters in its flute length.
float HighSpeedSteelFactor(int32_t wholeDiameters, float fluteCount, float previousFactor) {
  if (wholeDiameters <= 2) return 1.2F;
  if (wholeDiameters == 3) return fluteCount <= 3 ? 1.0F : fluteCount <= 4 ? 1.5F : 2.0F;
  if (wholeDiameters <= 5) return 0.5F;
  return previousFactor;
}

}  // namespace

std::span<const std::string_view> WorkMaterials() {
  return kWorkNames;
}

std::span<const std::string_view> ToolMaterials() {
  return kToolNames;
}

std::span<const std::string_view> FluteCounts() {
  return kFluteCounts;
}

bool IsWorkMaterial(std::string_view name) {
  return FindWorkMaterial(name) != nullptr;
}

float BaseCutSpeed(std::string_view toolMaterial, std::string_view workMaterial) {
  const WorkMaterial* work = FindWorkMaterial(workMaterial);
  const size_t tool = IndexOf(kToolNames, toolMaterial);
  if (work == nullptr || tool == std::size(kToolNames)) return 0;
  return static_cast<float>(kBaseSpeed[work->row][tool] * work->speedShare);
}

std::optional<PowerLaw> PowerConstants(std::string_view workMaterial) {
  const WorkMaterial* work = FindWorkMaterial(workMaterial);
  if (work == nullptr) return std::nullopt;
  return kPower[work->row];
}

std::optional<float> MaterialFactor(std::string_view workMaterial, float toolDiameter) {
  const WorkMaterial* work = FindWorkMaterial(workMaterial);
  if (work == nullptr || work->row == kHardSkd61) return std::nullopt;
  const Row row = work->row;
  if (toolDiameter <= kFactors[0].diameter) return kFactors[0].factor[row];
  for (const auto& [pieceRow, above, piece] : kExceptionalPieces) {
    if (pieceRow == row && toolDiameter > above && toolDiameter <= piece.upTo) {
      return static_cast<float>(ValueAt(piece, toolDiameter));
    }
  }
  for (size_t i = 1; i < std::size(kFactors); ++i) {
    const FactorSupport& lower = kFactors[i - 1];
    const FactorSupport& upper = kFactors[i];
    if (toolDiameter <= upper.diameter) {
      const double diameter = toolDiameter;
      const double share = (diameter - lower.diameter) / (upper.diameter - lower.diameter);
      const double lowerFactor = lower.factor[row];
      return static_cast<float>(std::lerp(lowerFactor, upper.factor[row], share));
    }
  }
  return std::nullopt;
}

float ToothFeedLimit(float toolDiameter, bool highSpeedRough) {
  const std::span<const Piece> curve =
      highSpeedRough ? std::span<const Piece>(kRoughToothCurve) : kToothCurve;
  // The last piece is constant and also covers a NaN.
  const auto piece = std::ranges::find_if(curve.first(curve.size() - 1),
                                          [&](const Piece& p) { return toolDiameter <= p.upTo; });
  const auto value = static_cast<float>(ValueAt(*piece, toolDiameter));
  return static_cast<float>(highSpeedRough ? value * double{1.3333334F} * 2 : value * 4.0);
}

float LengthFactor(float lengthRatio, float previousFactor) {
  for (const FactorStep& step : kLengthFactors) {
    if (lengthRatio <= step.upTo) return step.factor;
  }
  return previousFactor;
}

float ToolFormFactor(std::string_view toolMaterial, float fluteLength, float toolDiameter,
                     float fluteCount, float previousFactor) {
  const size_t tool = IndexOf(kToolNames, toolMaterial);
  if (tool == std::size(kToolNames)) return previousFactor;
  if (tool >= kHighSpeedSteels) return fluteCount <= 3 ? 0.8F : 1.2F;
  if (toolDiameter == 0) return previousFactor;
  return HighSpeedSteelFactor(TruncateToInt(fluteLength / toolDiameter), fluteCount,
                              previousFactor);
}

}  // namespace tvx
