// qelstd get prints arrays and colours whole, whatever their length: every element the standard
// object has for the path, and no more.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "QelstdRun.h"
#include "ZOLDftStdNamespace.h"
#include "ZOLScratch.h"

namespace {

std::string Counting(int n, const char* separator = " ") {
  std::string text;
  for (int i = 1; i <= n; ++i) text += (i > 1 ? separator : "") + std::to_string(i);
  return text;
}

std::string Colour(const std::string& style, int components) {
  return "<std:node name=\"" + style + "\"><std:node name=\"Color\"><std:colorval>" + Counting(components) +
         "</std:colorval></std:node></std:node>";
}

}  // namespace

TEST(QelstdGetArrays, ColoursAndArraysOfAnyLengthArePrintedWhole) {
  QELSTD_REQUIRE_BINARY();
  qeltest::ScratchDir dir;
  std::string text = "<std:node xmlns:std=\"" + std::string(ZOLDftStdNamespaceURI) + "\" name=\"drafting\">" +
                     "<std:node name=\"Version\"><std:intval>290</std:intval></std:node><std:node name=\"Styles\"><std:node name=\"Curve\">" + Colour("Big", 4000) + Colour("Odd", 33) +
                     Colour("Two", 2) + Colour("One", 1) + "</std:node></std:node>";
  // 500 namesakes of two integers each: the standard files them as one array of 1000.
  for (int i = 0; i < 500; ++i) text += "<std:node name=\"X\"><std:intval>1</std:intval><std:intval>2</std:intval></std:node>";
  text += "<std:node name=\"Reals\">";
  for (int i = 0; i < 40; ++i) text += "<std:floatval>0.5</std:floatval>";
  text += "</std:node></std:node>";
  const std::string file = dir / "Arrays.xml";
  qeltest::WriteText(file, text);

  std::string pairs;
  for (int i = 0; i < 500; ++i) pairs += i ? " 1 2" : "1 2";
  struct Case {
    const char* path;
    std::string printed;
  };
  const std::vector<Case> cases = {{"Curve.Big.Color", Counting(4000) + "\ttype 0 colour"},
                                   {"Curve.Odd.Color", Counting(33) + "\ttype 0 colour"},
                                   {"Curve.Two.Color", "1 2\ttype 0 colour"},
                                   {"Curve.One.Color", "1\ttype 3 integer"},
                                   {"X", pairs + "\ttype 3 integers"}};
  for (const Case& c : cases) {
    QelstdRun run = RunQelstd("get '" + file + "' " + c.path + " 2>&1");
    EXPECT_EQ(run.status, 0) << c.path;
    // Compared whole, shown in part: a colour of 4000 components prints 19 KB.
    EXPECT_TRUE(run.out == c.printed + "\n") << c.path << ": " << run.out.size() << " bytes, ending with "
                                              << run.out.substr(run.out.size() > 60 ? run.out.size() - 60 : 0);
  }
  QelstdRun run = RunQelstd("get --json '" + file + "' Curve.Big.Color 2>&1");
  ASSERT_EQ(run.status, 0);
  nlohmann::json j = nlohmann::json::parse(run.out);
  ASSERT_EQ(j["value"].size(), 4000u);
  EXPECT_EQ(j["value"][3999], 4000);
  run = RunQelstd("get --json '" + file + "' Reals 2>&1");
  ASSERT_EQ(run.status, 0);
  EXPECT_EQ(nlohmann::json::parse(run.out)["value"].size(), 40u);
}
