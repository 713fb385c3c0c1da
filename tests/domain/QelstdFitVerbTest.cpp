// qelstd fit, as a user and a script would run it.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>

#include "QelstdRun.h"

TEST(QelstdFit, PrintsDeviationsAndLimits) {
  QELSTD_REQUIRE_BINARY();
  QelstdRun run = RunQelstd("fit 25 H7");
  ASSERT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "fit:     25.000 H7\nupper:   +21 um\nlower:   0 um\nlimits:  25.000 to 25.021 mm\n");
}

TEST(QelstdFit, JsonOfAShaft) {
  QELSTD_REQUIRE_BINARY();
  QelstdRun run = RunQelstd("fit --json 240 f7");
  ASSERT_EQ(run.status, 0);
  nlohmann::json j = nlohmann::json::parse(run.out);
  EXPECT_EQ(j["class"], "f7");
  EXPECT_EQ(j["upperDeviation"], -50);
  EXPECT_EQ(j["lowerDeviation"], -96);
  EXPECT_DOUBLE_EQ(j["maximumSize"].get<double>(), 239.95);
  EXPECT_DOUBLE_EQ(j["minimumSize"].get<double>(), 239.904);
}

TEST(QelstdFit, MissesAndBadArgumentsGiveTheirStatus) {
  QELSTD_REQUIRE_BINARY();
  struct Case {
    const char* args;
    int status;
    const char* error;
  };
  for (const Case& c : {Case{"fit 500 F7", 1, "qelstd: F7 at 500.000 mm: no limit deviations"},
                        Case{"fit 25 K7", 1, "qelstd: K7 at 25.000 mm: no limit deviations"},
                        Case{"fit 0 H7", 1, "qelstd: H7 at 0.000 mm"}, Case{"fit wide H7", 2, "SIZE"},
                        Case{"fit 25", 2, "CLASS"}}) {
    QelstdRun run = RunQelstd(std::string(c.args) + " 2>&1");
    EXPECT_EQ(run.status, c.status) << c.args;
    EXPECT_NE(run.out.find(c.error), std::string::npos) << c.args << ": " << run.out;
  }
}
