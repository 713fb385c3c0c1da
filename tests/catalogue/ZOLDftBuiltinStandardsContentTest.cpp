// The content of the three built-in standards, decoded through the document codec.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

#include "BuiltinTestSupport.h"
#include "ZOLDftStdPersistence.h"

using namespace builtintest;

namespace {

// Index of a standard in the order ISO, ANSI-ASME, JIS.
int Index(const std::string& name) {
  return static_cast<int>(std::find(Standards().begin(), Standards().end(), name) - Standards().begin());
}

template <typename T>
T ByParent(const std::string& name, T iso, T ansi, T jis) {
  int i = Index(name);
  return i == 0 ? iso : i == 1 ? ansi : jis;
}

std::string Value(ZOLAnnStandardXMLParser& p, const std::string& path) { return p.GetValueWithPath(ZOLUnicodeString(path)).str(); }

std::vector<std::string> EnumLiterals(ZOLAnnStandardXMLParser& p, const std::string& name) {
  std::vector<std::string> out;
  auto e = At(p, "Enum." + name);
  if (e)
    for (auto* v : e->Values()) out.push_back(v->Value().str());
  return out;
}

// Number of records of a branch whose field has that text.
int CountRecords(const ZOLAnnStandardXMLNode* branch, const std::string& field, const std::string& text) {
  int n = 0;
  for (auto* r : branch->SubNodes()) n += Field(r, field) == text;
  return n;
}

// Decoded afresh for each test.
class EachBuiltin : public EachStandard {
protected:
  void SetUp() override { p = Decode(name); }
  std::unique_ptr<ZOLAnnStandardXMLParser> p;
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(BuiltinStandard, EachBuiltin, testing::ValuesIn(Standards()), StandardTestName);

TEST_P(EachBuiltin, DecodesAndPassesTheEnumerationCheck) {
  ZOLTestReports reports;
  EXPECT_EQ(p->Check(), 1);
  EXPECT_EQ(reports.Count(), 0);
}

TEST_P(EachBuiltin, IsOfVersion280) {
  ZOLTestReports reports;
  EXPECT_EQ(p->GetVersion(), 280);
  EXPECT_EQ(reports.Count(), 0);
}

TEST_P(EachBuiltin, ParentAndDatumModeMakeAnsiReadAsAsme) {
  EXPECT_EQ(Value(*p, "Root.Dimension.ParentStandard"), ByParent<std::string>(name, "ISO", "ANSI", "JIS"));
  EXPECT_EQ(Value(*p, "Root.Dimension.TXTDatumMode"), ByParent<std::string>(name, "0", "1", "0"));
}

TEST_P(EachBuiltin, ReferenceNodesOfReleases10To18DateItAsCurrent) {
  for (int release = 10; release <= 18; ++release) {
    ZOLUnicodeString node;
    ZOLDftStdPersistence::NodeStatus status;
    ASSERT_EQ(ZOLDftStdPersistence::GetReferenceNodeForRelease(release, node, status), S_OK);
    bool present = static_cast<bool>(At(*p, "Root." + node.str()));
    EXPECT_EQ(present, status == ZOLDftStdPersistence::NodeAdded) << name << " release " << release;
  }
}

TEST_P(EachBuiltin, SavingAndDecodingAgainGivesTheSameTree) {
  ZOLUnicodeString saved;
  ZOLTestReports reports;
  p->SaveInString(saved);
  ZOLAnnStandardXMLParser again;
  ASSERT_EQ(again.DecodeXML(saved, 0), 0);
  EXPECT_EQ(reports.Count(), 0);
  EXPECT_EQ(Dump(again.Root()), Dump(p->Root()));
  EXPECT_EQ(Dump(again.EnumRoot()), Dump(p->EnumRoot()));
  EXPECT_EQ(Dump(again.TypeDefRoot()), Dump(p->TypeDefRoot()));
}

TEST_P(EachBuiltin, HoldsItsEnumerationsAndThirteenRecordTypes) {
  const std::vector<std::string> typedefs = {"ToleranceDisplay", "NumericalDisplay", "ZOLThickness", "FrameDef", "AngleValue",
                                             "hatchings", "dottings", "colorings", "motifs", "Formats",
                                             "EngineeringSymbol", "BomProperties", "vector"};
  EXPECT_EQ(p->EnumRoot()->GetNumOfNode(), ByParent(name, 65, 64, 64));
  EXPECT_EQ(Names(p->TypeDefRoot()), typedefs);
  auto hatch = At(*p, "TypeDef.hatchings");
  ASSERT_TRUE(hatch);
  EXPECT_EQ(hatch->GetNumOfValue(), 63);
  EXPECT_EQ(EnumLiterals(*p, "Frame").size(), 43u);
  EXPECT_EQ(EnumLiterals(*p, "ArrowEndType").size(), 20u);
}

TEST_P(EachBuiltin, HoldsTheSeventeenBranchesInOrder) {
  const std::vector<std::string> branches = {"Styles", "General", "DressUp", "Dimension", "Annotation", "ToleranceFormats",
                                             "ValueFormats", "View", "Frames", "LineThickness", "Patterns", "LineTypes",
                                             "SheetFormat", "ViewsSet", "EngineeringSymbols", "StandardMode", "Version"};
  EXPECT_EQ(Names(p->Root()), branches);
  EXPECT_EQ(Value(*p, "Root.StandardMode"), "Default");
  EXPECT_EQ(Names(At(*p, "Root.General").get()),
            (std::vector<std::string>{"AllowedToleranceFormats", "AllowedNumericalFormats", "AllowedTextFonts",
                                      "AllowedTextFontSizes", "StandardUpdateMigration", "SheetColors", "ToleranceValue",
                                      "StrokeFontPrintRatio"}));
  EXPECT_EQ(Names(At(*p, "Root.Annotation").get()),
            (std::vector<std::string>{"Text", "Roughness", "BlankBackground", "Welding", "Tolerance", "IndicatorEdge"}));
  EXPECT_EQ(Names(At(*p, "Root.View").get()),
            (std::vector<std::string>{"ViewName", "ViewText", "ScaleSeparator", "Generation"}));
  EXPECT_EQ(Names(At(*p, "Root.View.ViewName").get()).size(), 13u);
  EXPECT_EQ(Names(At(*p, "Root.Patterns").get()),
            (std::vector<std::string>{"EditAvailability", "AngleList", "hatching", "motif", "coloring", "dotting", "vector"}));
  EXPECT_EQ(At(*p, "Root.Patterns.hatching")->GetNumOfNode(), 15);
  EXPECT_EQ(At(*p, "Root.Patterns.coloring")->GetNumOfNode(), 14);
  EXPECT_EQ(Names(At(*p, "Root.ViewsSet").get()), (std::vector<std::string>{"ViewsBox", "NamingStrategy"}));
  EXPECT_EQ(Names(At(*p, "Root.DressUp").get()), (std::vector<std::string>{"Thread", "Symbols"}));
  auto symbols = Names(At(*p, "Root.DressUp.Symbols").get());
  ASSERT_EQ(symbols.size(), 18u);
  EXPECT_EQ(std::vector<std::string>(symbols.begin(), symbols.begin() + 4),
            (std::vector<std::string>{"SimpleArrow", "FilledArrow", "ClosedArrow", "SymetricArrow"}));
}

TEST_P(EachBuiltin, DimensionHoldsTheLegacyParametersStartingWithTheParent) {
  auto dimension = Names(At(*p, "Root.Dimension").get());
  ASSERT_EQ(dimension.size(), 102u);
  EXPECT_EQ(dimension.front(), "ParentStandard");
  EXPECT_EQ(dimension[19], "DIMTolMultiAuto");
  EXPECT_TRUE(At(*p, "Root.Dimension.CurvilinearLengthSymbol.STDDimDisplayArcSymbol"));
}

TEST_P(EachBuiltin, StyleKindsStandInOrderEachWithItsStyles) {
  const std::vector<std::string> kinds = {
      "Sheet", "ConstructionPoint", "ConstructionCurve", "Point", "Curve", "DistanceLengthDimension",
      "CurvilinearLengthDimension", "AngleDimension", "RadiusDimension", "DiameterDimension", "ChamferDimension",
      "CoordinateDimension", "Text", "Table", "DatumFeature", "DatumTarget", "Tolerance", "Balloon", "IndicatorEdge",
      "RoughnessSymbol", "WeldingSymbol", "TransitionSurface", "AreaFill", "AxisLine", "CenterLine", "Thread", "Arrow",
      "ProjectionCallout", "SectionCallout", "DetailCallout", "DimensionsSystem", "BomStyle", "BillOfMaterial"};
  const std::set<std::string> dimensions = {"DistanceLengthDimension", "CurvilinearLengthDimension", "AngleDimension",
                                            "RadiusDimension", "DiameterDimension", "ChamferDimension"};
  auto styles = At(*p, "Root.Styles");
  ASSERT_EQ(Names(styles.get()), kinds);
  for (auto* kind : styles->SubNodes()) {
    const std::string& k = kind->Name().str();
    if (k == "Sheet") continue;
    std::vector<std::string> expected = {"Default"};
    if (dimensions.count(k)) expected.push_back(ByParent<std::string>(name, "TED", "BasicDimension", "TED"));
    if (k == "Text") expected.push_back("ViewText");
    EXPECT_EQ(Names(kind), expected) << name << " " << k;
  }
  EXPECT_EQ(Value(*p, "Root.Styles.DistanceLengthDimension." + ByParent<std::string>(name, "TED", "BasicDimension", "TED") +
                          ".Framing.Frame"),
            "Rectangle");
  EXPECT_EQ(Value(*p, "Root.Styles.Text.ViewText.Text.Justification"), "Center");
}

TEST(BuiltinStandard, TextStyleTreeHasItsGroupsAndFontSize) {
  auto p = Decode("ISO");
  EXPECT_EQ(Value(*p, "Root.Styles.Text.Default.Font.Size"), "3.5");
  EXPECT_EQ(Names(At(*p, "Root.Styles.Text.Default").get()),
            (std::vector<std::string>{"Font", "Text", "Graphic", "Leader", "WitnessLine"}));
  EXPECT_EQ(At(*p, "Root.Styles.Text.Default.Font")->GetNumOfNode(), 13);
  EXPECT_EQ(At(*p, "Root.Styles.Text.Default.Text")->GetNumOfNode(), 18);
  auto frame = At(*p, "Root.Styles.Text.Default.Text.Frame");
  EXPECT_EQ(frame->GetNumOfValue(), 1);
  EXPECT_EQ(Names(frame.get()),
            (std::vector<std::string>{"FrameName", "Fill", "FillColor", "HorizontalMargin", "VerticalMargin"}));
}

TEST_P(EachBuiltin, SheetStylesNameExistingFormatsOfFourValues) {
  auto sheet = At(*p, "Root.Styles.Sheet");
  auto formats = At(*p, "Root.SheetFormat");
  ASSERT_TRUE(sheet && formats);
  EXPECT_EQ(sheet->GetNumOfNode(), ByParent(name, 8, 9, 8));
  EXPECT_EQ(formats->GetNumOfNode(), ByParent(name, 8, 9, 8));
  std::set<std::string> formatNames;
  for (auto* f : formats->SubNodes()) {
    EXPECT_EQ(f->GetNumOfValue(), 4);
    formatNames.insert(f->Values()[0]->Value().str());
  }
  for (auto* style : sheet->SubNodes()) {
    EXPECT_EQ(Names(style), (std::vector<std::string>{"GlobalScale", "ProjectionMethod", "GenViewsPosMode", "Format",
                                                        "Orientation", "DisplayFormat"}));
    auto format = At(*p, "Root.Styles.Sheet." + style->Name().str() + ".Format");
    EXPECT_EQ(formatNames.count(format->Values()[0]->Value().str()), 1u) << name << " " << style->Name().str();
  }
  auto scale = At(*p, "Root.Styles.Sheet." + sheet->SubNodes()[0]->Name().str() + ".GlobalScale");
  EXPECT_EQ(scale->Values()[0]->GetRangeVal(), 1);
  EXPECT_EQ(scale->Values()[0]->Name().str(), "0.0");
}

TEST(BuiltinStandard, DefaultSheetStyleIsTheFirstFormat) {
  auto p = Decode("ISO");
  auto sheet = At(*p, "Root.Styles.Sheet");
  ZOLTestReports reports;
  auto first = ZOLRef<ZOLAnnStandardXMLNode>::Adopt(sheet->GetDefaultNode());
  ASSERT_TRUE(first);
  EXPECT_EQ(first->Name().str(), "A0 ISO");
  EXPECT_EQ(reports.Count(), 0);
}

TEST_P(EachBuiltin, TablesHoldTheirCounts) {
  EXPECT_EQ(At(*p, "Root.ToleranceFormats")->GetNumOfNode(), 24);
  EXPECT_EQ(At(*p, "Root.ValueFormats")->GetNumOfNode(), 22);
  EXPECT_EQ(At(*p, "Root.Frames")->GetNumOfNode(), 21);
  EXPECT_EQ(At(*p, "Root.LineThickness")->GetNumOfNode(), 55);
  EXPECT_EQ(At(*p, "Root.EngineeringSymbols")->GetNumOfNode(), ByParent(name, 172, 165, 172));
  auto lineTypes = Names(At(*p, "Root.LineTypes").get());
  ASSERT_EQ(lineTypes.size(), 64u);
  for (int i = 0; i < 63; ++i) EXPECT_EQ(lineTypes[static_cast<size_t>(i)], "LineType" + std::to_string(i + 1));
  EXPECT_EQ(lineTypes.back(), "font");
  EXPECT_EQ(At(*p, "Root.General.AllowedTextFontSizes")->GetNumOfValue(), ByParent(name, 107, 114, 112));
  EXPECT_EQ(At(*p, "Root.General.AllowedToleranceFormats")->GetNumOfValue(), 50);
  EXPECT_EQ(At(*p, "Root.General.AllowedNumericalFormats")->GetNumOfValue(), 50);
  EXPECT_EQ(At(*p, "Root.General.AllowedTextFonts")->GetNumOfValue(), 100);
}

TEST_P(EachBuiltin, LineTypesCarryTheirSegmentsAndTheFontText) {
  EXPECT_EQ(Value(*p, "Root.LineTypes.LineType1.Pattern"), "65535");
  EXPECT_EQ(At(*p, "Root.LineTypes.LineType4.Segment")->GetNumOfValue(), 4);
  int withoutSegment = 0;
  for (auto* lt : At(*p, "Root.LineTypes")->SubNodes())
    if (lt->Name().str() != "font") withoutSegment += !lt->FindNodeByName("Segment");
  EXPECT_EQ(withoutSegment, ByParent(name, 1, 0, 1));
  const std::string font = Value(*p, "Root.LineTypes.font");
  EXPECT_EQ(font.rfind("60  60\n", 0), 0u);
  EXPECT_NE(font.find("\n$ 0044  000 030  048 000  128 000  -32 -16  016 000  ;\n"), std::string::npos);
  EXPECT_NE(font.find("\n$ 00C4  000 030  016 000  128 000  016 000  000 000  ;\n"), std::string::npos);
  size_t glyphs = 0;
  for (size_t at = font.find("\n$ "); at != std::string::npos; at = font.find("\n$ ", at + 1)) ++glyphs;
  EXPECT_EQ(glyphs, 82u);
  EXPECT_EQ(font.substr(font.size() - 48), "/                     ***********************\n/\n");
}

TEST_P(EachBuiltin, DiffersByParentAsTheTableOfDifferencesSays) {
  EXPECT_EQ(Value(*p, "Root.Dimension.DIMLFlippedOverrun"), ByParent<std::string>(name, "5", "10.16", "5"));
  EXPECT_EQ(Value(*p, "Root.Dimension.DIMLTextGap"), ByParent<std::string>(name, "0.5", "2.032", "3"));
  EXPECT_EQ(Value(*p, "Root.Dimension.SYMBArrowSide"), ByParent<std::string>(name, "2", "3.2146", "2"));
  EXPECT_EQ(Value(*p, "Root.Dimension.SYMBArrowAngle"), ByParent<std::string>(name, "30", "18", "30"));
  auto sizes = At(*p, "Root.General.AllowedTextFontSizes");
  std::string start;
  for (int i = 0; i < 5; ++i) start += sizes->Values()[static_cast<size_t>(i)]->Value().str() + " ";
  EXPECT_EQ(start, ByParent<std::string>(name, "2.5 3.5 5.0 7.0 10.0 ", "0.25 0.35 0.5 0.7 1.0 ", "2.24 2.5 3.15 3.5 4.5 "));
  EXPECT_EQ(sizes->Values()[7]->Value().str(), ByParent<std::string>(name, "0.0", "2.5", "7.0"));

  auto symbols = At(*p, "Root.EngineeringSymbols");
  EXPECT_EQ(CountRecords(symbols.get(), "Font", "KVISO1.otf"), ByParent(name, 170, 52, 170));
  EXPECT_EQ(CountRecords(symbols.get(), "Font", "SYM2.font"), ByParent(name, 2, 1, 2));
  EXPECT_EQ(CountRecords(symbols.get(), "Font", "SYM1.font"), ByParent(name, 0, 111, 0));
  EXPECT_EQ(CountRecords(symbols.get(), "Name", "<CHECKMARK>"), ByParent(name, 1, 0, 1));
  EXPECT_EQ(CountRecords(symbols.get(), "Name", "<BALLOTX>"), ByParent(name, 1, 0, 1));
  EXPECT_EQ(CountRecords(symbols.get(), "Name", "<DynamicProfile>"), ByParent(name, 0, 1, 0));

  auto welding = EnumLiterals(*p, "WeldingSymbol");
  EXPECT_EQ(welding.size(), ByParent<size_t>(name, 27, 30, 27));
  EXPECT_EQ(std::count(welding.begin(), welding.end(), "VFlareWelding"), ByParent(name, 0, 1, 0));
  EXPECT_EQ(std::count(welding.begin(), welding.end(), "StudWelding"), ByParent(name, 0, 1, 0));
  EXPECT_EQ(static_cast<bool>(At(*p, "Enum.WeldingSystemDisplay")), name == "ISO");
  auto finishing = EnumLiterals(*p, "FinishingMethod");
  ASSERT_GE(finishing.size(), 3u);
  EXPECT_EQ(finishing[1], ByParent<std::string>(name, "Chipping", "Unspecified", "Chipping"));
  EXPECT_EQ(EnumLiterals(*p, "SurfaceShape").size(), ByParent<size_t>(name, 5, 6, 5));
  EXPECT_EQ(EnumLiterals(*p, "RoughnessType").size(), ByParent<size_t>(name, 4, 3, 3));
}

TEST(BuiltinStandard, SheetFormatsHaveTheSizesOfTheirParent) {
  auto iso = Decode("ISO");
  auto ansi = Decode("ANSI-ASME");
  auto jis = Decode("JIS");
  auto format = [](ZOLAnnStandardXMLParser& p, const std::string& formatName) {
    for (auto* f : At(p, "Root.SheetFormat")->SubNodes())
      if (Field(f, "Name") == formatName) return Field(f, "Width") + "x" + Field(f, "Height");
    return std::string("none");
  };
  EXPECT_EQ(format(*iso, "A0 ISO"), "1189x841");
  EXPECT_EQ(format(*iso, "A4 ISO"), "297x210");
  EXPECT_EQ(format(*iso, "C5 ISO"), "229x162");
  EXPECT_EQ(format(*jis, "B4 JIS"), "354x250");
  EXPECT_EQ(format(*ansi, "A ANSI"), "279.40x215.90");
  EXPECT_EQ(format(*ansi, "E ANSI"), "1117.60x863.60");
  EXPECT_EQ(format(*ansi, "J U.S.Standard"), "1219.20x863.60");
  EXPECT_EQ(Value(*ansi, "Root.Styles.Sheet.J US Standard.Format"), "J U.S.Standard");
}

TEST(BuiltinStandard, SharedBranchesAreEqualAcrossParents) {
  auto iso = Decode("ISO");
  auto ansi = Decode("ANSI-ASME");
  auto jis = Decode("JIS");
  for (const char* branch : {"ToleranceFormats", "ValueFormats", "Frames", "LineThickness", "Patterns", "ViewsSet",
                             "StandardMode", "Version"}) {
    std::string path = std::string("Root.") + branch;
    EXPECT_EQ(Dump(At(*ansi, path).get()), Dump(At(*iso, path).get())) << branch;
    EXPECT_EQ(Dump(At(*jis, path).get()), Dump(At(*iso, path).get())) << branch;
  }
  EXPECT_EQ(Dump(At(*jis, "Root.LineTypes").get()), Dump(At(*iso, "Root.LineTypes").get()));
  EXPECT_EQ(Dump(At(*jis, "Root.EngineeringSymbols").get()), Dump(At(*iso, "Root.EngineeringSymbols").get()));
  EXPECT_NE(Dump(At(*ansi, "Root.LineTypes").get()), Dump(At(*iso, "Root.LineTypes").get()));
}

TEST_P(EachBuiltin, SymbolRowsAreNumberedFromOneAndCarryNineFields) {
  int position = 0;
  for (auto* row : At(*p, "Root.EngineeringSymbols")->SubNodes()) {
    ASSERT_EQ(row->GetNumOfValue(), 9);
    EXPECT_EQ(Field(row, "Position"), std::to_string(++position));
    EXPECT_EQ(Field(row, "Icon16x16").size(), 44u) << Field(row, "Name");
    EXPECT_EQ(Field(row, "Icon22x22").size(), 88u) << Field(row, "Name");
  }
}
