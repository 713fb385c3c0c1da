// Limit deviations of fits: the generated table against values of ISO 286, its size ranges, and
// what a miss leaves behind.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "QelStandardServices.h"
#include "ZOLReportCountTest.h"

namespace {

constexpr double kUnset = 99.0;

struct Fit {
  bool found;
  double upper, lower;
};

Fit Query(double size, const char* fit) {
  Fit f{false, kUnset, kUnset};
  EXPECT_EQ(QelStandardServices::GetNumericalTolerance(size, fit, "", f.upper, f.lower), S_OK);
  f.found = f.upper != kUnset || f.lower != kUnset;
  EXPECT_EQ(f.upper == kUnset, f.lower == kUnset) << "one out argument written alone";
  return f;
}

struct Case {
  double size;
  const char* fit;
  double upper, lower;  // mm
};

void ExpectCases(const std::vector<Case>& cases) {
  for (const Case& c : cases) {
    Fit f = Query(c.size, c.fit);
    ASSERT_TRUE(f.found) << c.fit << " at " << c.size;
    EXPECT_DOUBLE_EQ(f.upper, c.upper) << c.fit << " at " << c.size;
    EXPECT_DOUBLE_EQ(f.lower, c.lower) << c.fit << " at " << c.size;
  }
}

}  // namespace

// No query, hit or miss, raises a report.
class NumericalTolerance : public ZOLReportCountTest {};

// The first range, the range of 18 to 30 mm and the last range of every class; every class at one
// size; above 500 mm the grades follow the second tolerance factor, and IT9 above 1250 mm is where
// copied tables go wrong. The shafts of H6 to H8 and F7 are their mirrors, H7 the bounds' own test.
TEST_F(NumericalTolerance, ValuesOfISO286) {
  ExpectCases({
      {2, "H6", 0.006, 0}, {25, "H6", 0.013, 0}, {3000, "H6", 0.135, 0},
      {2, "H8", 0.014, 0}, {25, "H8", 0.033, 0}, {3000, "H8", 0.330, 0},
      {2, "H9", 0.025, 0}, {25, "H9", 0.052, 0}, {3000, "H9", 0.540, 0},
      {2, "F7", 0.016, 0.006}, {25, "F7", 0.041, 0.020}, {390, "F7", 0.119, 0.062},
      {2, "g6", -0.002, -0.008}, {25, "g6", -0.007, -0.020}, {390, "g6", -0.018, -0.054},
      {2, "P7", -0.006, -0.016}, {25, "P7", -0.014, -0.035}, {390, "P7", -0.041, -0.098},
      {240, "H6", 0.029, 0}, {240, "H8", 0.072, 0}, {240, "H9", 0.115, 0}, {240, "F7", 0.096, 0.050},
      {240, "g6", -0.015, -0.044}, {240, "P7", -0.033, -0.079}, {230, "F7", 0.096, 0.050}, {5, "H9", 0.030, 0},
      {600, "H6", 0.044, 0}, {700, "H6", 0.050, 0}, {900, "h6", 0, -0.056}, {1100, "H7", 0.105, 0},
      {1500, "H8", 0.195, 0}, {1300, "H9", 0.310, 0}, {1700, "H9", 0.370, 0}, {2100, "H9", 0.440, 0},
  });
}

// A size on a bound belongs to the range below it; the width of H7 is IT7 of ISO 286-1.
TEST_F(NumericalTolerance, SizeOnABoundBelongsToTheLowerRange) {
  struct Bound {
    double size, it7Below, it7Above;  // µm
  };
  const Bound bounds[] = {{3, 10, 12},      {6, 12, 15},      {10, 15, 18},     {18, 18, 21},    {30, 21, 25},
                          {50, 25, 30},     {65, 30, 30},     {80, 30, 35},     {100, 35, 35},   {120, 35, 40},
                          {140, 40, 40},    {160, 40, 40},    {180, 40, 46},    {200, 46, 46},   {225, 46, 46},
                          {250, 46, 52},    {280, 52, 52},    {315, 52, 57},    {355, 57, 57},   {400, 57, 63},
                          {500, 63, 70},    {630, 70, 80},    {800, 80, 90},    {1000, 90, 105}, {1250, 105, 125},
                          {1600, 125, 150}, {2000, 150, 175}, {2500, 175, 210}, {3150, 210, -1}};
  for (const Bound& b : bounds) {
    Fit on = Query(b.size, "H7");
    ASSERT_TRUE(on.found) << b.size;
    EXPECT_DOUBLE_EQ(on.upper, b.it7Below / 1000.0) << b.size;
    Fit above = Query(std::nextafter(b.size, 1e9), "H7");
    if (b.it7Above < 0) {
      EXPECT_FALSE(above.found) << b.size;
    } else {
      ASSERT_TRUE(above.found) << b.size;
      EXPECT_DOUBLE_EQ(above.upper, b.it7Above / 1000.0) << b.size;
    }
  }
  ExpectCases({{3.0000001, "H7", 0.012, 0}, {0.5, "H7", 0.010, 0}, {3150, "H7", 0.210, 0}});
}

// A shaft class mirrors its hole class of the same letter and grade, everywhere both reach.
TEST_F(NumericalTolerance, ShaftsMirrorHoles) {
  for (double size = 0.7; size <= 3150; size *= 1.13) {
    for (auto [hole, shaft] : {std::pair("H6", "h6"), {"H7", "h7"}, {"H8", "h8"}, {"F7", "f7"}}) {
      Fit h = Query(size, hole), s = Query(size, shaft);
      ASSERT_EQ(h.found, s.found) << hole << " at " << size;
      if (!h.found) continue;
      EXPECT_DOUBLE_EQ(h.upper, -s.lower) << hole << " at " << size;
      EXPECT_DOUBLE_EQ(h.lower, -s.upper) << hole << " at " << size;
    }
  }
}

TEST_F(NumericalTolerance, MissLeavesOutputsUntouched) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double inf = std::numeric_limits<double>::infinity();
  struct Miss {
    double size;
    const char* fit;
  };
  for (Miss m : std::vector<Miss>{{0, "H7"}, {-1, "H7"}, {nan, "H7"}, {inf, "H7"}, {3150.1, "H7"}, {500, "F7"},
                                  {401, "g6"}, {500, "P7"}, {450, "f7"}, {25, "K7"}, {25, "h9"}, {25, "h7 "},
                                  {25, "f"}, {25, ""}, {25, "quality05"}, {25, "H7\n"}}) {
    Fit f = Query(m.size, m.fit);
    EXPECT_FALSE(f.found) << '"' << m.fit << "\" at " << m.size;
  }
  // A miss does not poison a later query of a class.
  ExpectCases({{25, "H7", 0.021, 0}, {25, "h7", 0, -0.021}});
}
