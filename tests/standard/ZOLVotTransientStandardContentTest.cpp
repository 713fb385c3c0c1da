#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <string>
#include <tuple>
#include <vector>

#include "QelStandardServices.h"
#include "ZOLClassDictionary.h"
#include "ZOLDftStandardServices.h"
#include "ZOLIQelStandardCommunication.h"
#include "ZOLIQelStandardContent.h"
#include "ZOLStandardObjectTestSupport.h"
#include "ZOLTestReports.h"

namespace {

using Json = nlohmann::ordered_json;

using qeltest::Builtin;
using qeltest::FromBody;

Json Export(ZOLIDrwStandard* standard) {
  ZOLOmxJsonObject json;
  EXPECT_EQ(ZOLIQelStandardCommunication_var(standard)->GetStandardAsJson(json), S_OK);
  return Json::parse(json.ToString());
}

// A ToleranceDisplay entry with the fields given as "name:kind:value", kind i, f or s.
std::string Entry(const char* type, const std::vector<std::string>& fields) {
  std::string entry = std::string("<std:typeval name=\"") + type + "\">";
  for (const std::string& f : fields) {
    const size_t a = f.find(':'), b = f.find(':', a + 1);
    const char* tag = f[a + 1] == 'i' ? "std:intval" : f[a + 1] == 'f' ? "std:floatval" : "std:strval";
    entry += std::string("<") + tag + " name=\"" + f.substr(0, a) + "\">" + f.substr(b + 1) + "</" + tag + ">";
  }
  return entry + "</std:typeval>";
}

TEST(StandardContent, InterfaceIsRegisteredAndBothFacesAnswerOnAStandard) {
  EXPECT_STREQ(ZOLIQelStandardContent::ClassName(), "ZOLIQelStandardContent");
  EXPECT_EQ(ZOLClassDictionary::FindClass("ZOLIQelStandardContent"), ZOLIQelStandardContent::MetaObject());
  ZOLTestReports reports;
  ZOLIDrwStandard_var s = FromBody("");
  ZOLIQelStandardContent_var content(s.Get());
  ZOLIQelStandardCommunication_var communication(s.Get());
  ASSERT_TRUE(content && communication);
  EXPECT_EQ(communication->SetStandardFromJson(ZOLOmxJsonObject(ZOLUnicodeString("{\"a\":1}"))), E_NOTIMPL);
  EXPECT_EQ(reports.Count(), 0);
}

TEST(StandardContent, StandardToleranceReplacesTheLegacyOneAndLacksOnlyItsDisplayFactor) {
  ZOLIDrwStandard_var s = FromBody("<std:node name=\"ToleranceFormats\">" +
                                   Entry("ToleranceDisplay", {"Name:s:ISONUM", "TolType:i:9", "TolSymbolH:f:4.5",
                                                              "TolScale:f:0.25", "TolDispFact:f:2"}) +
                                   Entry("ToleranceDisplay", {"Name:s:MINE", "TolTrailing:i:3"}) + "</std:node>");
  ZOLIQelStandardContent_var content(s.Get());
  std::vector<std::shared_ptr<QelStdToleranceDescription>> all;
  EXPECT_EQ(content->GetTolerances(all), S_OK);
  EXPECT_EQ(all.size(), QelStandardServices::GetLegacyV4Tolerances().size() + 1);
  std::shared_ptr<QelStdToleranceDescription> iso, mine;
  ASSERT_EQ(content->GetTolerance("ISONUM", iso), S_OK);
  EXPECT_EQ(iso->TolType, 9);
  EXPECT_EQ(iso->TolSepar_1, 0);  // the legacy row's 3 is gone with the row
  EXPECT_EQ(iso->TolSymbolH, 4.5);
  EXPECT_EQ(iso->TolScale, 0.25);
  EXPECT_EQ(iso->TolDispFact, 2.0);
  ASSERT_EQ(content->GetTolerance("MINE", mine), S_OK);
  EXPECT_EQ(mine->TolTrailing, 3);
  EXPECT_EQ(mine->TolDispFact, 1.0);
  EXPECT_EQ(mine->TolScale, 0.0);
}

TEST(StandardContent, NamesWithBlanksFindAUnitButNoTolerance) {
  ZOLIDrwStandard_var s = FromBody("");
  ZOLIQelStandardContent_var content(s.Get());
  std::shared_ptr<QelStdToleranceDescription> tolerance;
  EXPECT_EQ(content->GetTolerance(" ISONUM ", tolerance), 1);
  EXPECT_EQ(tolerance, nullptr);
  EXPECT_EQ(content->GetTolerance("ISONUM", tolerance), S_OK);  // legacy rows without a list of the standard
  std::shared_ptr<QelStdUnitDescription> unit;
  EXPECT_EQ(content->GetUnit("  NUM,DIMM ", unit), S_OK);
  ASSERT_TRUE(unit);
  EXPECT_EQ(unit->NDSepNum.str(), ",");
  EXPECT_EQ(content->GetUnit("\tNUM,DIMM", unit), 1);
}

TEST(StandardContent, UnitsAreAppendedOnEveryCall) {
  ZOLIDrwStandard_var s = FromBody("<std:node name=\"ValueFormats\">" +
                                   Entry("NumericalDisplay", {"Name:s:DISTMM", "NDSep1000:i:6", "NDSepNum:i:11",
                                                              "NDSepar_2:s:mm", "NDFact:i:4"}) +
                                   "</std:node>");
  ZOLIQelStandardContent_var content(s.Get());
  std::vector<std::shared_ptr<QelStdUnitDescription>> units;
  content->GetUnits(units);
  const size_t once = units.size();
  EXPECT_EQ(once, QelStandardServices::GetLegacyV4Units().size());
  content->GetUnits(units);
  ASSERT_EQ(units.size(), 2 * once);
  EXPECT_EQ(units[0], units[once]);
  std::shared_ptr<QelStdUnitDescription> mm;
  ASSERT_EQ(content->GetUnit("DISTMM", mm), S_OK);
  EXPECT_EQ(mm->NDSep1000.str(), ",");
  EXPECT_EQ(mm->NDSepNum.str(), ".");
  EXPECT_EQ(mm->NDSepar_2.str(), "mm");
  EXPECT_EQ(mm->NDFact, 4);
  EXPECT_EQ(mm->NDGlobalFact, 0.0);
}

// The records of the export's format lists and the descriptions of the content face come from two
// different walks of the standard; they must agree field by field.
TEST(StandardContent, DescriptionsOfEachBuiltinAgreeWithTheExportedFormatLists) {
  const std::vector<std::pair<const char*, int QelStdUnitDescription::*>> unitInts = {
      {"NDUnit", &QelStdUnitDescription::NDUnit}, {"NDNulFac_2", &QelStdUnitDescription::NDNulFac_2},
      {"NDFact", &QelStdUnitDescription::NDFact}};
  const std::vector<std::pair<const char*, double QelStdUnitDescription::*>> unitReals = {
      {"NDGlobFact", &QelStdUnitDescription::NDGlobalFact}, {"NDResScl", &QelStdUnitDescription::NDResScl}};
  const std::vector<std::pair<const char*, int QelStdToleranceDescription::*>> tolInts = {
      {"TolSepar_2", &QelStdToleranceDescription::TolSepar_2}, {"TolShowNull", &QelStdToleranceDescription::TolShowNull}};
  const std::vector<std::pair<const char*, double QelStdToleranceDescription::*>> tolReals = {
      {"TolSymbolH", &QelStdToleranceDescription::TolSymbolH}, {"TolScale", &QelStdToleranceDescription::TolScale}};
  for (const char* name : {"ISO", "ANSI-ASME", "JIS"}) {
    ZOLIDrwStandard_var s = Builtin(name);
    ZOLIQelStandardContent_var content(s.Get());
    const Json parameters = Export(s)["Standard Parameters"];
    int checked = 0;
    for (const Json& record : parameters["ValueFormats"]["array"]) {
      std::shared_ptr<QelStdUnitDescription> unit;
      ASSERT_EQ(content->GetUnit(record["Name"]["value"].get<std::string>().c_str(), unit), S_OK) << record.dump();
      for (auto& [field, member] : unitInts) EXPECT_EQ((*unit).*member, record[field]["value"].get<int>()) << field;
      for (auto& [field, member] : unitReals) EXPECT_EQ((*unit).*member, record[field]["value"].get<double>()) << field;
      EXPECT_EQ(unit->NDSepar_1.str(), record["NDSepar_1"]["value"].get<std::string>());
      EXPECT_EQ(QelStandardServices::GetSymbolFromTable(unit->NDSepNum), record["NDSepNum"]["value"].get<int>());
      ++checked;
    }
    for (const Json& record : parameters["ToleranceFormats"]["array"]) {
      std::shared_ptr<QelStdToleranceDescription> tolerance;
      ASSERT_EQ(content->GetTolerance(record["Name"]["value"].get<std::string>().c_str(), tolerance), S_OK);
      for (auto& [field, member] : tolInts) EXPECT_EQ((*tolerance).*member, record[field]["value"].get<int>()) << field;
      for (auto& [field, member] : tolReals) EXPECT_EQ((*tolerance).*member, record[field]["value"].get<double>()) << field;
      ++checked;
    }
    EXPECT_GT(checked, 10) << name;
  }
}

TEST(StandardCommunication, ExportFormsByShapeOfTheNode) {
  struct Row {
    const char* body;
    const char* section;
    const char* key;
    const char* form;
  };
  const Row rows[] = {
      {R"(<std:node name="LengthSymbol"><std:enumval name="YesNo">No</std:enumval></std:node>)", "Standard Parameters",
       "LengthSymbol", R"({"type":"enum","enum":"YesNo","value":"No"})"},
      {R"(<std:enumval name="Frame">Circle</std:enumval>)", "Standard Parameters", "Frame",
       R"({"enum":"Frame","type":"enum","value":"Circle"})"},
      {R"(<std:node name="Three"><std:intval>1</std:intval><std:intval>2</std:intval><std:intval>x</std:intval></std:node>)",
       "Standard Parameters", "Three",
       R"({"array":[{"type":"int","value":1},{"type":"int","value":2},{"type":"int","value":0}]})"},
      {R"(<std:node name="Empty"/>)", "Standard Parameters", "Empty", "{}"},
      {R"(<std:node name="F"><std:typeval name="Rec"><std:strval name="Name">a</std:strval><std:intval name="I">3</std:intval></std:typeval><std:typeval name="Rec"><std:strval name="Name">b</std:strval><std:intval name="I">4</std:intval></std:typeval></std:node>)",
       "Standard Parameters", "F",
       R"({"type":"typeval","typeval":"Rec","array":[{"Name":{"type":"string","value":"a"},"I":{"type":"int","value":3}},{"Name":{"type":"string","value":"b"},"I":{"type":"int","value":4}}]})"},
      {R"(<std:typedef name="Rec"><std:intval name="I">7</std:intval><std:floatval name="D">0.5</std:floatval><std:colorval name="C">0 0 0</std:colorval><std:node name="X"/></std:typedef>)",
       "TypeDefinition", "Rec",
       R"({"I":{"type":"int","default":7},"D":{"type":"double","default":0.5},"C":{"type":"color","default":"0 0 0"},"X":{}})"},
      {R"(<std:enumdef name="YesNo"><std:strval>No</std:strval><std:strval>Yes</std:strval></std:enumdef>)", "EnumDefinition",
       "YesNo", R"(["No","Yes"])"},
  };
  for (const Row& r : rows) {
    ZOLTestReports reports;
    const Json json = Export(FromBody(r.body));
    std::vector<std::string> keys;
    for (const auto& [key, value] : json.items()) keys.push_back(key);
    EXPECT_EQ(keys, (std::vector<std::string>{"EnumDefinition", "TypeDefinition", "Styles", "Standard Parameters"}));
    EXPECT_EQ(json[r.section][r.key].dump(), Json::parse(r.form).dump()) << r.body;
    EXPECT_EQ(reports.Count(), 0) << r.body;
  }
}

// The leaves of an exported form with the path and index at which the standard object reads them.
void Leaves(const Json& form, const std::string& path, int index, std::vector<std::tuple<std::string, int, Json>>& out) {
  if (form.contains("value") && form["type"] != "color") {
    out.emplace_back(path, index, form);
  } else if (form.contains("array")) {
    int i = 0;
    for (const Json& entry : form["array"]) {
      ++i;
      // A record of one field exports as that field's leaf, without the field's name.
      if (form.value("type", "") == "typeval") {
        if (!entry.contains("type"))
          for (const auto& [field, leaf] : entry.items()) Leaves(leaf, path + "." + field, i, out);
      } else if (i == 1) {
        Leaves(entry, path, i, out);  // the getters of one value read only the first of a list
      }
    }
  } else if (form.is_object() && !form.contains("type")) {
    for (const auto& [key, sub] : form.items()) Leaves(sub, path.empty() ? key : path + "." + key, 1, out);
  }
}

TEST(StandardCommunication, ExportOfEachBuiltinHasItsStructureAndReadsBackThroughTheGetters) {
  for (const char* name : {"ISO", "ANSI-ASME", "JIS"}) {
    ZOLIDrwStandard_var s = Builtin(name);
    const Json json = Export(s);
    for (const char* section : {"EnumDefinition", "TypeDefinition", "Styles", "Standard Parameters"})
      EXPECT_TRUE(json[section].is_object() && !json[section].empty()) << name << " " << section;
    EXPECT_EQ(json["Standard Parameters"].begin().key(), "General") << name;

    std::vector<std::tuple<std::string, int, Json>> leaves;
    Leaves(json["Standard Parameters"], "", 1, leaves);
    Leaves(json["Styles"], "", 1, leaves);
    int compared = 0, equal = 0;
    for (const auto& [path, index, leaf] : leaves) {
      const std::string type = leaf["type"];
      ++compared;
      if (type == "int") {
        int v = -12345;
        equal += s->GetValue(path.c_str(), index, v) == S_OK && v == leaf["value"].get<int>();
      } else if (type == "double") {
        double v = -12345;
        equal += s->GetValue(path.c_str(), index, v) == S_OK && v == leaf["value"].get<double>();
      } else {
        ZOLUnicodeString v;
        equal += s->GetValue(path.c_str(), index, v) == S_OK && v.str() == leaf["value"].get<std::string>();
      }
    }
    EXPECT_GT(compared, 3000) << name;
    EXPECT_EQ(equal, compared) << name;
  }
}

}  // namespace
