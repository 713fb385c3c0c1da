#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>

#include "ZOLListValZOLUnicodeString.h"
#include "ZOLTestReports.h"
#include "ZOLUnicodeString.h"

// Each case: text, whether it reads, and the number left (5 when nothing was read).
TEST(UnicodeString, ConvertToNumReadsALeadingNumberAndIgnoresTheRestWhateverTheLocale) {
  const char* old = std::setlocale(LC_NUMERIC, nullptr);
  std::string saved = old ? old : "C";
  std::setlocale(LC_NUMERIC, "de_DE.UTF-8");  // may be missing; the test holds either way
  for (auto [text, reads, value] : {std::tuple("22,", true, 22), {"  -7abc", true, -7}, {"x1", false, 5}, {"", false, 5}, {"-", false, 5}}) {
    int n = 5;
    EXPECT_EQ(ZOLUnicodeString(text).ConvertToNum(&n, "%d") != 0, reads) << text;
    EXPECT_EQ(n, value) << text;
  }
  for (auto [text, reads, value] : {std::tuple("1.25mm", true, 1.25), {" -3e2", true, -300.0}, {"mm", false, 5.0}}) {
    double d = 5;
    EXPECT_EQ(ZOLUnicodeString(text).ConvertToNum(&d, "%le") != 0, reads) << text;
    EXPECT_DOUBLE_EQ(d, value) << text;
  }
  EXPECT_EQ(ZOLUnicodeString().BuildFromNum(0.35).str(), "0.35");
  EXPECT_EQ(ZOLUnicodeString().BuildFromNum(1e-7).str(), "1e-07");
  EXPECT_EQ(ZOLUnicodeString().BuildFromNum(2.5, "%.3f").str(), "2.500");
  std::setlocale(LC_NUMERIC, saved.c_str());
}

TEST(UnicodeString, SearchReplaceSubStringAndStrip) {
  ZOLUnicodeString s("a.b.c");
  EXPECT_EQ(s.SearchSubString("."), 1);
  EXPECT_EQ(s.SearchSubString(".", 2), 3);
  EXPECT_EQ(s.SearchSubString("x"), -1);
  EXPECT_EQ(s.SearchSubString(".", -1, ZOLUnicodeString::Backward), 3);
  EXPECT_EQ(s.SubString(2, 3).str(), "b.c");
  EXPECT_EQ(s.SubString(9, 1).str(), "");
  EXPECT_EQ(s.ReplaceSubString(".", "::"), 2);
  EXPECT_EQ(s.str(), "a::b::c");
  ZOLUnicodeString t("  x y \n");
  EXPECT_EQ(t.Strip().str(), "x y");
}

TEST(UnicodeString, WideRoundTrip) {
  ZOLUnicodeString s;
  s.BuildFromWChar(L"Ø 12 \u2300");
  wchar_t* w = s.ConvertToWChar();
  EXPECT_EQ(std::wstring(w), L"Ø 12 \u2300");
  delete[] w;
}

TEST(ListVal, IndexesFromOneLocateAndRemoveDuplicates) {
  ZOLListValZOLUnicodeString l;
  l.Append("a"); l.Append("b"); l.Append("a");
  EXPECT_EQ(l.Size(), 3);
  EXPECT_EQ(l[1].str(), "a");
  EXPECT_EQ(l.Locate("b"), 2);
  EXPECT_EQ(l.Locate("z"), 0);
  EXPECT_EQ(l.RemoveDuplicates(), 1);
  EXPECT_EQ(l.Size(), 2);
}

// The macros fill in their file and line; the message is cut at forty characters.
TEST(AssertionReport, FormatsTheExactLineAndGoesToTheErrorLog) {
  ZOLTestReports reports;
  ZOLAssertReport("BOOL IS FALSE", "Codec initialized failed!", "ZOLAnnStandardXMLParser.cpp", 42);
  ZOLAssertMessage("0123456789012345678901234567890123456789TAIL");
  int line = __LINE__ - 1;
  ZOLAssertPointer("");
  ASSERT_EQ(reports.Count(), 3);
  EXPECT_EQ(reports.Lines()[0],
            ">> ASSERTION FAILED BOOL IS FALSE: Codec initialized failed! [File: ZOLAnnStandardXMLParser.cpp:  42].<<\n");
  char expected[200];
  std::snprintf(expected, sizeof expected,
                ">> ASSERTION FAILED : 0123456789012345678901234567890123456789 [File: ZOLPlatformTest.cpp:%4d].<<\n", line);
  EXPECT_EQ(reports.Lines()[1], expected);
  EXPECT_EQ(reports.Lines()[2].rfind(">> ASSERTION FAILED ON POINTER : ", 0), 0u);
}

TEST(AssertionReport, DevelopmentModeAlsoPrintsAndGoesToAbendLog) {
  ZOLTestReports reports;
  bool abend = false;
  auto previous = ZOLSysLogSetHook([&](bool isAbend, const char*) { abend = isAbend; });
  ZOLSetDevelopmentStage(1);
  testing::internal::CaptureStdout();
  ZOLAssertBool("");
  std::string out = testing::internal::GetCapturedStdout();
  ZOLSetDevelopmentStage(0);
  ZOLSysLogSetHook(std::move(previous));
  EXPECT_TRUE(abend);
  EXPECT_NE(out.find(">> ASSERTION FAILED BOOL IS FALSE: "), std::string::npos);
}
