// Values of each table, at and beside the bounds of its pieces.
#include "getfeed/condition_tables.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace tvx {
namespace {

constexpr float kNone = -1;  // where the table has no value

TEST(ConditionTables, BaseCutSpeed) {
  const std::pair<const char*, std::vector<std::pair<const char*, float>>> cases[] = {
      {"하이스", {{"흑연", 80}, {"KP4M", 23.1F}}},
      {"코팅하이스", {{"SKD11", 20}, {"SKD61", 28}}},
      {"초경", {{"KP1", 48}, {"KP4", 43.2F}, {"STEEL(S45C)", 0}}},
      {"고속초경", {{"얄처리SKD61", 36}}},
      {"고속코팅초경", {{"흑연", 840}, {"NAK80", 150}}},
      {"강철", {{"SS41", 0}}},
  };
  for (const auto& [tool, speeds] : cases) {
    for (const auto& [work, speed] : speeds) EXPECT_EQ(BaseCutSpeed(tool, work), speed) << work;
  }
}

TEST(ConditionTables, PowerConstants) {
  const std::tuple<const char*, float, float> cases[] = {{"흑연", 3.5F, 0.5F},
                                                         {"KP4M", 9.4F, 0.81F},
                                                         {"SKD61", 12.11F, 0.82F},
                                                         {"SKD11", 13.3F, 0.87F},
                                                         {"얄처리SKD61", 14.5F, 0.9F}};
  for (const auto& [work, coefficient, exponent] : cases) {
    const PowerLaw power = PowerConstants(work).value_or(PowerLaw());
    EXPECT_EQ(power.coefficient, coefficient) << work;
    EXPECT_EQ(power.exponent, exponent) << work;
  }
  EXPECT_FALSE(PowerConstants("STEEL(S45C)"));
}

TEST(ConditionTables, MaterialFactor) {
  const std::pair<const char*, std::vector<std::pair<float, float>>> cases[] = {
      {"KP4", {{10, 14.2F}, {11, 15.5F}, {0.5F, 1.5F}, {-3, 1.5F}, {50, 14.2F}}},
      {"KP4", {{50.01F, kNone}, {60, kNone}, {NAN, kNone}}},
      {"SKD11", {{25, 16.0F}}},
      {"SKD61", {{25, 13.7F}, {4, 3.0F}}},
      {"얄처리SKD61", {{10, kNone}}},
      {"STEEL(S45C)", {{10, kNone}}},
      // The exceptional pieces; copper has none.
      {"흑연", {{6, 24.3F}, {6.5F, 28.15F}, {8, 32.0F}, {9, 36.65F}}},
      {"알루미늄", {{12, 33.7F}, {12.1F, 5.75F}, {15, 42.0F}, {16.5F, 46.2F}}},
      {"SK7", {{15, 19.1F}, {18, 21.38F}, {19, 23.4F}}},
      {"동", {{7, 16.7F}}},
  };
  for (const auto& [work, factors] : cases) {
    for (const auto& [diameter, factor] : factors) {
      // The difference of two diameters loses up to two digits of a float.
      EXPECT_NEAR(MaterialFactor(work, diameter).value_or(kNone), factor, 1e-5)
          << work << " at " << diameter;
    }
  }
}

TEST(ConditionTables, ToothFeedLimit) {
  const std::pair<float, float> curve[] = {
      {1, 0.0035F}, {2, 0.007F},    {4, 0.01F},   {4.001F, 0.013007F}, {5, 0.02F},
      {6, 0.02F},   {7, 0.025F},    {8, 0.03F},   {10, 0.04F},         {12, 0.05F},
      {16, 0.07F},  {16.5F, 0.09F}, {1000, 0.09F}};
  const std::pair<float, float> roughCurve[] = {
      {0.3F, 0.003F}, {1, 0.01F}, {2, 0.02F},     {4, 0.04F},   {4.001F, 0.04002F},
      {5, 0.06F},     {6, 0.06F}, {7, 0.075F},    {8, 0.09F},   {10, 0.12F},
      {12, 0.15F},    {16, 0.2F}, {16.5F, 0.12F}, {1000, 0.12F}};
  // The differences of diameters lose up to two digits of a float.
  for (const auto& [diameter, value] : curve) {
    EXPECT_NEAR(ToothFeedLimit(diameter, false), 4 * value, 1e-7) << diameter;
  }
  for (const auto& [diameter, value] : roughCurve) {
    EXPECT_NEAR(ToothFeedLimit(diameter, true), value * 8 / 3, 1e-7) << diameter;
  }
}

TEST(ConditionTables, LengthFactor) {
  const std::pair<float, float> cases[] = {
      {-1, 1.0F}, {5, 1.0F},  {5.01F, 0.95F},  {6, 0.95F},        {6.25F, 0.9F}, {8, 0.75F},
      {9, 0.5F},  {10, 0.2F}, {10.01F, 0.77F}, {INFINITY, 0.77F}, {NAN, 0.77F}};
  for (const auto& [ratio, factor] : cases) EXPECT_EQ(LengthFactor(ratio, 0.77F), factor) << ratio;
}

TEST(ConditionTables, ToolFormFactor) {
  constexpr float kBefore = 0.77F;
  const struct {
    const char* tool;
    float fluteLength, diameter, flutes, factor;
  } cases[] = {{"하이스", 29.9F, 10, 6, 1.2F},  {"하이스", 30, 10, 3, 1.0F},
               {"코팅하이스", 39, 10, 4, 1.5F}, {"하이스", 30, 10, 6, 2.0F},
               {"하이스", 40, 10, 2, 0.5F},     {"하이스", 59, 10, 6, 0.5F},
               {"하이스", 60, 10, 2, kBefore},  {"하이스", 60, 0, 2, kBefore},
               {"하이스", 0, 0, 2, kBefore},    {"하이스", 1e30F, 1e-9F, 2, kBefore},
               {"초경", 90, 10, 3, 0.8F},       {"고속코팅초경", 90, 10, 4, 1.2F},
               {"고속초경", 90, 0, 4, 1.2F},    {"강철", 30, 10, 2, kBefore}};
  for (const auto& c : cases) {
    EXPECT_EQ(ToolFormFactor(c.tool, c.fluteLength, c.diameter, c.flutes, kBefore), c.factor)
        << c.tool << " " << c.fluteLength << "/" << c.diameter << " with " << c.flutes;
  }
}

}  // namespace
}  // namespace tvx
