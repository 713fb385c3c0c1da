// Stage 1: the text written for flat parameters, the first tree it decodes into, the keyword lookups
// and the check of the mandatory parameters.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ZOLAnnStandardXMLParser.h"
#include "ZOLChainTestSupport.h"
#include "ZOLDftStandardServices.h"
#include "ZOLDrwParseParameter.h"
#include "ZOLReportCountTest.h"
#include "ZOLTrace.h"
#include "upgrade/ZOLDrwKeywordTable.h"

namespace {

struct Param {
  const char *keyword, *value, *block = "", *name = "";
};

// A reader holding flat parameters, whose writers the test calls one by one.
class Flat : public ZOLDrwParseStandard {
public:
  Flat(const char* parent, std::vector<Param> params) : ZOLDrwParseStandard(_name) {
    std::vector<ZOLDrwParseParameter*> list;
    for (const Param& p : params) list.push_back(new ZOLDrwParseParameter(p.keyword, p.value, p.block, p.name));
    DecodeFlatParameters(list.data(), static_cast<int>(list.size()), parent);
  }
  // The lines a writer appends, without their line ends.
  std::vector<std::string> Lines(void (ZOLDrwParseStandard::*writer)(ZOLUnicodeString&), int which = -1) {
    ZOLUnicodeString out;
    which < 0 ? (this->*writer)(out) : EncodePredefinedDescriptions(out, which);
    std::vector<std::string> lines;
    for (size_t start = 0, end; (end = out.str().find('\n', start)) != std::string::npos; start = end + 1)
      lines.push_back(out.str().substr(start, end - start));
    return lines;
  }
  std::vector<std::string> Predefined(int which) { return Lines(nullptr, which); }
  ZOLAnnStandardXMLParser& FirstTree() {
    ZOLDrwParseStandardUpgradeOptions options;
    UpgradeVersion(1, options);
    return *_Parser;
  }
  using ZOLDrwParseStandard::EncodeAdditionalParameters;
  using ZOLDrwParseStandard::EncodeDescriptions;
  using ZOLDrwParseStandard::EncodeMigratedParameters;
  using ZOLDrwParseStandard::EncodeThicknessTable;
  using ZOLDrwParseStandard::EncodeTypedefs;

private:
  inline static ZOLUnicodeString _name{"Legacy.std"};
};

// Runs of equal lines folded as "line x N", the way the writers' layout is told.
std::vector<std::string> Folded(const std::vector<std::string>& lines) {
  std::vector<std::string> out;
  for (size_t i = 0; i < lines.size();) {
    size_t j = i;
    while (j < lines.size() && lines[j] == lines[i]) ++j;
    out.push_back(j - i > 1 ? lines[i] + " x " + std::to_string(j - i) : lines[i]);
    i = j;
  }
  return out;
}

std::vector<std::string> Slice(const std::vector<std::string>& lines, size_t from, size_t count) {
  return {lines.begin() + static_cast<long>(from), lines.begin() + static_cast<long>(std::min(lines.size(), from + count))};
}

class LegacyEncoding : public ZOLReportCountTest {};

TEST_F(LegacyEncoding, TypedefsKeepTheirGapsBlankLinesAndDefaults) {
  Flat f("ISO", {});
  std::vector<std::string> lines = f.Lines(&Flat::EncodeTypedefs);
  ASSERT_EQ(lines.size(), 1u + (2 + 19) + 2 + (2 + 35) + 2 + (2 + 3) + 1);
  EXPECT_EQ(Slice(lines, 0, 7), (std::vector<std::string>{"", "   <std:typedef name=\"ToleranceDisplay\">",
                                                            "      <std:strval   name=\"Name\">TOLXXX</std:strval>",
                                                            "      <std:intval   name=\"TolType\">2</std:intval>",
                                                            "      <std:intval   name=\"TolSepar_1\">0</std:intval>",
                                                            "      <std:intval   name=\"TolSepar_2\">0</std:intval>",
                                                            "      <std:floatval name=\"TolSymbolH\">1.0</std:floatval>"}));
  EXPECT_EQ(Slice(lines, 20, 6), (std::vector<std::string>{"      <std:floatval name=\"TolScale\">0.7</std:floatval>",
                                                             "   </std:typedef>", "", "",
                                                             "   <std:typedef name=\"NumericalDisplay\">",
                                                             "      <std:strval   name=\"Name\">NUMXXX</std:strval>"}));
  EXPECT_EQ(lines[33], "      <std:strval   name=\"NDSepar_1\"> </std:strval>");
  EXPECT_EQ(lines[42], "      <std:floatval   name=\"NDGlobFact\">1.0</std:floatval>");
  EXPECT_EQ(Slice(lines, 59, 9), (std::vector<std::string>{"      <std:intval   name=\"NDSepDen\">2</std:intval>",
                                                             "   </std:typedef>", "", "",
                                                             "   <std:typedef name=\"ZOLThickness\">",
                                                             "      <std:intval name=\"Availability\">0</std:intval>",
                                                             "      <std:intval name=\"Pixel\">1</std:intval>",
                                                             "      <std:floatval name=\"mm\">0.13</std:floatval>",
                                                             "   </std:typedef>"}));
  EXPECT_EQ(lines.back(), "");
}

TEST_F(LegacyEncoding, AdditionalParametersTakeFontSizesByParentAndEverySymbolSizeFromTheArrow) {
  const std::string strval = "         <std:strval></std:strval>";
  auto floats = [](std::vector<std::string> sizes) {
    std::vector<std::string> lines;
    for (const std::string& s : sizes) lines.push_back("         <std:floatval>" + s + "</std:floatval>");
    return lines;
  };
  struct Row {
    const char* parent;
    std::vector<Param> params;
    std::vector<std::string> sizes;
    const char *length, *angle;
  };
  const Row rows[] = {
      {"ISO", {}, {"2.5", "3.5", "5.0", "7.0", "10.0", "14.0", "20.0"}, "2.0", "30.0"},
      {"Company", {{"SYMBArrowSide", "3.5"}}, {"2.5", "3.5", "5.0", "7.0", "10.0", "14.0", "20.0"}, "3.5", "30.0"},
      {"JIS", {{"SYMBArrowAngle", "15.0"}}, {"2.24", "2.5", "3.15", "3.5", "4.5", "5.0", "6.3", "7.0", "9.0", "10.0", "14.0", "20.0"}, "2.0", "15.0"},
      {"ASME", {{"SYMBArrowSide", "3.175"}, {"SYMBArrowAngle", "20"}},
       {"0.25", "0.35", "0.5", "0.7", "1.0", "1.4", "2.0", "2.5", "3.5", "5.0", "7.0", "10.0", "14.0", "20.0"}, "3.175", "20"},
  };
  for (const Row& row : rows) {
    Flat f(row.parent, row.params);
    std::vector<std::string> expected = {"", "   <std:node name=\"General\">", "      <std:node name=\"AllowedToleranceFormats\">",
                                         strval + " x 50", "      </std:node>", "      <std:node name=\"DefaultToleranceFormat\">",
                                         strval, "      </std:node>", "      <std:node name=\"AllowedNumericalFormats\">",
                                         strval + " x 50", "      </std:node>", "      <std:node name=\"DefaultNumericalFormatLength\">",
                                         "         <std:strval>NUM.DIMM</std:strval>", "      </std:node>",
                                         "      <std:node name=\"DefaultNumericalFormatAngle\">",
                                         "         <std:strval>NUM.ADMS</std:strval>", "      </std:node>",
                                         "      <std:node name=\"AllowedTextFonts\">", strval + " x 100", "      </std:node>",
                                         "      <std:node name=\"DefaultTextFont\">", strval, "      </std:node>",
                                         "      <std:node name=\"AllowedTextFontSizes\">"};
    for (const std::string& line : floats(row.sizes)) expected.push_back(line);
    expected.insert(expected.end(), {floats({"0.0"})[0] + " x 100", "      </std:node>", "      <std:node name=\"DefaultTextFontSize\">",
                                     floats({"3.5"})[0], "      </std:node>", "   </std:node>", "", "   <std:node name=\"DressUp\">",
                                     "      <std:node name=\"Symbols\">", "         <std:node name=\"SimpleArrow\">",
                                     "            <std:node name=\"Length\">",
                                     std::string("               <std:floatval>") + row.length + "</std:floatval>",
                                     "            </std:node>", "            <std:node name=\"Angle\">",
                                     std::string("               <std:floatval>") + row.angle + "</std:floatval>",
                                     "            </std:node>", "         </std:node>"});
    std::vector<std::string> folded = Folded(f.Lines(&Flat::EncodeAdditionalParameters));
    EXPECT_EQ(Slice(folded, 0, expected.size()), expected) << row.parent;
    EXPECT_EQ(Slice(folded, folded.size() - 7, 7),
              (std::vector<std::string>{"         <std:node name=\"WaveArrow\">", "            <std:node name=\"Diameter\">",
                                        std::string("               <std:floatval>") + row.length + "</std:floatval>",
                                        "            </std:node>", "         </std:node>", "      </std:node>", "   </std:node>"}))
        << row.parent;
  }
}

TEST_F(LegacyEncoding, PredefinedDescriptionsAndThicknessRows) {
  Flat f("ISO", {});
  std::vector<std::string> tolerance = f.Predefined(0);
  ASSERT_EQ(tolerance.size(), 21u);
  EXPECT_EQ(Slice(tolerance, 0, 3), (std::vector<std::string>{"            <std:typeval name=\"ToleranceDisplay\">",
                                                               "               <std:strval name=\"Name\">TOL_RES1</std:strval>",
                                                               "               <std:intval name=\"TolType\">3</std:intval>"}));
  EXPECT_EQ(tolerance[7], "               <std:intval name=\"TolSepTo_2\">16</std:intval>");
  std::vector<std::string> numerical = f.Predefined(1);
  ASSERT_EQ(numerical.size(), 8u * 36);
  // The rows of inches and of feet and inches, where the descriptions differ most.
  const std::vector<std::string> inches = Slice(numerical, 5 * 36, 36), feet = Slice(numerical, 6 * 36, 36);
  EXPECT_EQ(inches[1], "               <std:strval name=\"Name\">in</std:strval>");
  EXPECT_EQ(inches[4], "               <std:floatval name=\"NDGlobFact\">1</std:floatval>");
  EXPECT_EQ(Slice(feet, 10, 1)[0], "               <std:floatval name=\"NDFact_1\">1.0</std:floatval>");
  EXPECT_EQ(Slice(feet, 11, 1)[0], "               <std:floatval name=\"NDFact_2\">12.0</std:floatval>");
  EXPECT_EQ(Slice(feet, 16, 3), (std::vector<std::string>{"               <std:strval name=\"NDSepar_1\">\"</std:strval>",
                                                           "               <std:strval name=\"NDSepar_2\">'</std:strval>",
                                                           "               <std:strval name=\"NDSepar_3\"></std:strval>"}));
  EXPECT_EQ(Slice(feet, 31, 5), (std::vector<std::string>{"               <std:intval name=\"NDNulOther\">2</std:intval>",
                                                           "               <std:floatval name=\"NDResScl\">1.0</std:floatval>",
                                                           "               <std:intval name=\"NDFact\">2</std:intval>",
                                                           "               <std:floatval name=\"NDRestX\">0.0</std:floatval>",
                                                           "            </std:typeval>"}));
  EXPECT_EQ(numerical[7 * 36 + 2], "               <std:intval name=\"NDType\">2</std:intval>");
  EXPECT_TRUE(f.Predefined(2).empty());

  std::vector<std::string> thickness = f.Lines(&Flat::EncodeThicknessTable);
  ASSERT_EQ(thickness.size(), 2u + 55 * 5 + 1);
  auto row = [](const char* availability, const char* pixel, const char* mm) {
    return std::vector<std::string>{"   <std:typeval name=\"ZOLThickness\">",
                                    std::string("      <std:intval name=\"Availability\">") + availability + "</std:intval>",
                                    std::string("      <std:intval name=\"Pixel\">") + pixel + "</std:intval>",
                                    std::string("      <std:floatval name=\"mm\">") + mm + "</std:floatval>", "   </std:typeval>"};
  };
  EXPECT_EQ(Slice(thickness, 0, 2), (std::vector<std::string>{"", "   <std:node name=\"LineThickness\">"}));
  EXPECT_EQ(Slice(thickness, 2 + 2 * 5, 5), row("1", "3", "0.70"));
  EXPECT_EQ(Slice(thickness, 2 + 7 * 5, 5), row("1", "8", "2.60"));
  EXPECT_EQ(Slice(thickness, 2 + 54 * 5, 5), row("0", "1", "0.13"));
  EXPECT_EQ(thickness.back(), "   </std:node>");
}

// General parameters pass into Dimension; blocks become records, told apart only by a change of
// name between neighbours, so two blocks of one name in a row make one record.
TEST_F(LegacyEncoding, ParametersAndBlocksWriteDimensionAndRecords) {
  const char *T = "TOLERANCE", *N = "NUMERICAL_DISPLAY";
  Flat f("ISO", {{"ParentStandard", "ISO"},   {"DIMLTail", "2.5"},           {"TolName", "TOL_A", T, "TOL_A"},
                 {"TolType", "1", T, "TOL_A"}, {"NDName", "NUM.A", N, "NUM.A"}, {"NDUnit", "2", N, "NUM.A"},
                 {"NDName", "NUM.A", N, "NUM.A"}, {"NDGlobFact", "25.4", N, "NUM.A"}, {"TolName", "TOL_B", T, "TOL_B"},
                 {"TolScale", "0.5", T, "TOL_B"}, {"TXTThickness", "1"},           {"CUMLOriginSymbol", "A&B"}});
  EXPECT_EQ(f.Lines(&Flat::EncodeMigratedParameters),
            (std::vector<std::string>{"", "   <std:node name=\"Dimension\">",
                                      "      <std:node name=\"ParentStandard\"><std:strval>ISO</std:strval></std:node>",
                                      "      <std:node name=\"DIMLTail\"><std:floatval>2.5</std:floatval></std:node>",
                                      "      <std:node name=\"STDTxThickText\"><std:intval>1</std:intval></std:node>",
                                      "      <std:node name=\"CUMLSymbol\"><std:strval>A&amp;B</std:strval></std:node>",
                                      "   </std:node>"}));
  std::vector<std::string> lines = f.Lines(&Flat::EncodeDescriptions);
  const std::string close = "            </std:typeval>";
  EXPECT_EQ(Slice(lines, 2 + 21, 10),
            (std::vector<std::string>{"            <std:typeval name=\"ToleranceDisplay\">",
                                      "               <std:strval name=\"TolName\">TOL_A</std:strval>",
                                      "               <std:intval name=\"TolType\">1</std:intval>", close,
                                      "            <std:typeval name=\"ToleranceDisplay\">",
                                      "               <std:strval name=\"TolName\">TOL_B</std:strval>",
                                      "               <std:floatval name=\"TolScale\">0.5</std:floatval>", close,
                                      "      </std:node>", ""}));
  EXPECT_EQ(Slice(lines, lines.size() - 7, 7),
            (std::vector<std::string>{"            <std:typeval name=\"NumericalDisplay\">",
                                      "               <std:strval name=\"FNMVAL\">NUM.A</std:strval>",
                                      "               <std:intval name=\"FUNITE\">2</std:intval>",
                                      "               <std:strval name=\"FNMVAL\">NUM.A</std:strval>",
                                      "               <std:floatval name=\"FAMUAS\">25.4</std:floatval>", close, "      </std:node>"}));
}

TEST_F(LegacyEncoding, EmptyListDecodesIntoTheFirstTree) {
  Flat f("ISO", {});
  ZOLAnnStandardXMLParser& tree = f.FirstTree();
  const std::pair<const char*, const char*> probes[] = {
      {"version", "1"},
      {"Root>", "General,DressUp,ToleranceFormats,ValueFormats,LineThickness"},
      {"TypeDef>", "ToleranceDisplay,NumericalDisplay,ZOLThickness"},
      {"Root.General.AllowedTextFontSizes#", "107"},
      {"Root.DressUp.Symbols/", "17"},
      {"Root.DressUp.Symbols.DoubleArrow.Angle", "30.0"},
      {"Root.DressUp.Symbols.CrossCircle.Diameter", "2.0"},
      {"Root.ToleranceFormats/", "1"},
      {"Root.ValueFormats/", "8"},
      {"Root.ValueFormats.NumericalDisplay{8}@Name", "grade"},
      {"Root.LineThickness/", "55"},
  };
  for (const auto& [probe, expected] : probes) EXPECT_EQ(qeltest::Probe(tree, probe), expected) << probe;
  EXPECT_EQ(f.GetOutcome().levelReached, 1);
}

// The lookups search the keyword and the tree name columns; rows without a tree name answer an
// empty text, and so does an unknown word.
TEST_F(LegacyEncoding, KeywordLookupsByKeywordAndByTreeName) {
  struct Row {
    const char* word;
    int byKeyword, byParam;
    const char *keywordOfParam, *paramOfKeyword;
  };
  const Row rows[] = {
      {"DIMLTail", 15, 15, "DIMLTail", "DIMLTail"},
      {"NDName", 142, -1, "", "FNMVAL"},
      {"FNMVAL", -1, 142, "NDName", ""},
      {"NDAlignFrac", 154, -1, "", ""},
      {"", -1, -1, "", ""},
      {"dimltail", -1, -1, "", ""},
      {"NoSuchWord", -1, -1, "", ""},
  };
  for (const Row& row : rows) {
    const ZOLUnicodeString word(row.word);
    EXPECT_EQ(ZOLDftStandardServices::GetIndexFromKeyword(word), row.byKeyword) << row.word;
    EXPECT_EQ(ZOLDftStandardServices::GetIndexFromParam(word), row.byParam) << row.word;
    EXPECT_EQ(ZOLDftStandardServices::GetKeywordFromParam(word).str(), row.keywordOfParam) << row.word;
    EXPECT_EQ(ZOLDftStandardServices::GetParamFromKeyword(word).str(), row.paramOfKeyword) << row.word;
  }
}

// Only mandatory general parameters count; block keywords and optional ones never do.
TEST_F(LegacyEncoding, CheckCountsAndTracesTheMissingMandatoryParameters) {
  std::vector<Param> params;
  for (int i = kZOLDrwFirstGeneralRow; i <= kZOLDrwLastGeneralRow; ++i) {
    const std::string_view keyword = ZOLDrwKeywordTable()[i].Keyword();
    if (keyword != "DIMLTail" && keyword != "FAKSymbHeight" && keyword != "STDDimMaxLengthArcSymbol")
      params.push_back({ZOLDrwKeywordTable()[i].keyword, "1"});
  }
  params.push_back({"UnknownWord", "1"});
  Flat f("ISO", params);
  ZOLListValZOLUnicodeString missing;
  EXPECT_EQ(f.GetMissingParameters(missing), 2);
  ZOLTrace& trace = ZOLDrwStandardOutputTrace();
  trace.Activate(true);
  testing::internal::CaptureStderr();
  f.Check();
  const std::string traced = testing::internal::GetCapturedStderr();
  trace.Activate(false);
  EXPECT_EQ(traced,
            ">> ZOLDrwParseStandard::Check\n"
            "  Error: Parameter DIMLTail not valuated in Standard file\n"
            "  Error: Parameter STDDimMaxLengthArcSymbol not valuated in Standard file\n"
            "  Result: 2 missing parameters in standard file\n"
            "<< ZOLDrwParseStandard::Check\n");
  Flat none("ISO", {});
  EXPECT_EQ(none.GetMissingParameters(missing), 105);
}

}  // namespace
