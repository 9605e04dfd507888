// The machining tables of the calculator: constants of the program, looked up by the names that its
// lists show. Results are 32-bit floats, computed in double.
#pragma once

#include <optional>
#include <span>
#include <string_view>

namespace tvx {

// The names in the order of the tables.
std::span<const std::string_view> WorkMaterials();
std::span<const std::string_view> ToolMaterials();
std::span<const std::string_view> FluteCounts();

// True if the name is one of WorkMaterials.
bool IsWorkMaterial(std::string_view name);

// Base cutting speed in m/min. Steel grades without a row of their own get a share of the speed of
// SS41. 0 for a name that is not in the tables.
float BaseCutSpeed(std::string_view toolMaterial, std::string_view workMaterial);

struct PowerLaw {
  float coefficient = 0;
  float exponent = 0;
};

// The power constants of a work material; nullopt for a name that is not in the tables.
std::optional<PowerLaw> PowerConstants(std::string_view workMaterial);

// The material factor at a tool diameter in mm. nullopt where the table has no value: above 50 mm,
// for heat-treated SKD61, and for a name that is not in the tables.
std::optional<float> MaterialFactor(std::string_view workMaterial, float toolDiameter);

// The highest tooth feed, in mm per tooth, of a tool of this diameter in mm.
float ToothFeedLimit(float toolDiameter, bool highSpeedRough);

// The factor for a tool length of lengthRatio diameters. previousFactor for a ratio above 10 or a
// NaN.
float LengthFactor(float lengthRatio, float previousFactor);

// The factor for the form of the tool, lengths in mm. previousFactor for a high-speed steel tool
// whose flutes are 6 diameters long or more or whose diameter is 0, and for a name that is not in
// the tables.
float ToolFormFactor(std::string_view toolMaterial, float fluteLength, float toolDiameter,
                     float fluteCount, float previousFactor);

}  // namespace tvx
