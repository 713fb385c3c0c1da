// A fixture that captures reports and checks their number when the test ends.
#pragma once
#include <gtest/gtest.h>

#include "ZOLTestReports.h"

class ZOLReportCountTest : public testing::Test {
protected:
  void TearDown() override { EXPECT_EQ(r.Count(), reports) << "reports raised by the test"; }
  ZOLTestReports r;
  int reports = 0;  // the number the test expects in all; none unless it says so
};
