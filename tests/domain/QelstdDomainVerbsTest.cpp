// qelstd fit and symbol, as a user and a script would run them.
#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <string>

#include "QelstdRun.h"

TEST(QelstdFit, PrintsDeviationsAndLimits) {
  QELSTD_REQUIRE_BINARY();
  QelstdRun run = RunQelstd("fit 25 H7");
  ASSERT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "fit:     25.000 H7\nupper:   +21 um\nlower:   0 um\nlimits:  25.000 to 25.021 mm\n");
}

TEST(QelstdSymbol, PrintsFontCodeAndDrawsBothIcons) {
  QELSTD_REQUIRE_BINARY();
  QelstdRun run = RunQelstd("symbol '<DEGREE>' --context 0");
  ASSERT_EQ(run.status, 0);
  EXPECT_EQ(run.out.rfind("symbol:  <DEGREE>\nfont:    KVISO1.otf (from the set of the other context)\ncode:    176\n"
                          "icon 16x16:\n  ................................\n",
                          0),
            0u)
      << run.out;
  // 1 + 16 + 1 + 22 lines of icons, each pixel two characters wide.
  EXPECT_NE(run.out.find("icon 22x22:\n  ............................................\n"), std::string::npos);
  EXPECT_EQ(std::count(run.out.begin(), run.out.end(), '\n'), 3 + 2 + 16 + 22);
  // Two drawings end to end stand side by side.
  QelstdRun spot = RunQelstd("symbol '<SpotFace>' --context 0 --parent 1");
  ASSERT_EQ(spot.status, 0);
  EXPECT_NE(spot.out.find("\n  ..........############..........  ................................\n"), std::string::npos)
      << spot.out;
}

TEST(QelstdDomainVerbs, JsonOfAShaftAndOfTheSym1Set) {
  QELSTD_REQUIRE_BINARY();
  QelstdRun run = RunQelstd("fit --json 240 f7");
  ASSERT_EQ(run.status, 0);
  nlohmann::json j = nlohmann::json::parse(run.out);
  EXPECT_EQ(j["class"], "f7");
  EXPECT_EQ(j["upperDeviation"], -50);
  EXPECT_EQ(j["lowerDeviation"], -96);
  EXPECT_DOUBLE_EQ(j["maximumSize"].get<double>(), 239.95);
  EXPECT_DOUBLE_EQ(j["minimumSize"].get<double>(), 239.904);
  run = RunQelstd("symbol --json '<FLATNESS>' --parent 2");
  ASSERT_EQ(run.status, 0);
  j = nlohmann::json::parse(run.out);
  EXPECT_EQ(j["font"], "SYM1.font");
  EXPECT_EQ(j["charCode"], "61440");
  EXPECT_EQ(j["fromSiblingTable"], false);
  EXPECT_TRUE(j["icon16"].is_string() && j["icon22"].is_string());
}

TEST(QelstdDomainVerbs, MissesAndBadArgumentsGiveTheirStatus) {
  QELSTD_REQUIRE_BINARY();
  struct Case {
    const char* args;
    int status;
    const char* error;
  };
  for (const Case& c : {Case{"fit 500 F7", 1, "qelstd: F7 at 500.000 mm: no limit deviations"},
                        Case{"fit 0 H7", 1, "qelstd: H7 at 0.000 mm"}, Case{"fit wide H7", 2, "SIZE"},
                        Case{"fit 25", 2, "CLASS"},
                        Case{"symbol '<CHECKMARK>' --parent 2", 1, "qelstd: <CHECKMARK>: no such symbol"},
                        Case{"symbol ''", 1, "qelstd: : an empty tag"}, Case{"symbol", 2, "TAG"},
                        Case{"symbol '<DIAMETER>' --context 2", 2, "--context"}}) {
    QelstdRun run = RunQelstd(std::string(c.args) + " 2>&1");
    EXPECT_EQ(run.status, c.status) << c.args;
    EXPECT_NE(run.out.find(c.error), std::string::npos) << c.args << ": " << run.out;
  }
}
