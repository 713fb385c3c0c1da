#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <functional>
#include <string>
#include <vector>

#include "BuiltinTestSupport.h"
#include "ZOLDftStandardServices.h"
#include "ZOLIQelStandardCommunication.h"
#include "ZOLTestReports.h"

namespace {

const std::string kHead =
    "<?xml version=\"1.0\"?><std:node name=\"ISO\" type=\"drafting\" xmlns:std=\"http://www.qelstandardinfra.org/std\">";

std::string Generate(const std::string& json, long expected = S_OK) {
  std::string text = "untouched";
  EXPECT_EQ(ZOLDftStandardServices::GenerateStandardXML(ZOLOmxJsonObject(ZOLUnicodeString(json)), text), expected) << json;
  return text;
}

// A description with the sections of the given texts; an absent section is left out.
std::string Description(const std::string& enums, const std::string& types, const std::string& styles,
                        const std::string& parameters) {
  return R"({"EnumDefinition":)" + enums + R"(,"TypeDefinition":)" + types + R"(,"Styles":)" + styles +
         R"(,"Standard Parameters":)" + parameters + "}";
}

TEST(GenerateStandardXML, MinimalDescriptionGivesTheHeaderAndAnEmptyStyles) {
  EXPECT_EQ(Generate(Description("{}", "{}", "{}", "{}")), kHead + "<std:node name=\"Styles\"></std:node></std:node>");
}

TEST(GenerateStandardXML, AMissingOrMisshapenSectionIsRefusedWithOneReportAndTextUntouched) {
  const std::vector<std::string> descriptions = {
      R"({"EnumDefinition":{},"TypeDefinition":{},"Standard Parameters":{}})",
      R"({"EnumDefinition":{},"TypeDefinition":{},"Styles":[],"Standard Parameters":{}})",
      R"({"TypeDefinition":{},"Styles":{},"Standard Parameters":{}})",
      R"({"EnumDefinition":{},"TypeDefinition":"x","Styles":{},"Standard Parameters":{}})",
      R"({"EnumDefinition":{},"TypeDefinition":{},"Styles":{},"Standard Parameters":{})",  // cut short
      "[1,2]",
  };
  for (const std::string& d : descriptions) {
    ZOLTestReports reports;
    EXPECT_EQ(Generate(d, E_UNEXPECTED), "untouched");
    EXPECT_EQ(reports.CountContaining("BOOL IS FALSE"), 1) << d;
    EXPECT_EQ(reports.Count(), 1) << d;
  }
}

// Each row: the member of "Standard Parameters" and the bytes between the head and the Styles node.
TEST(GenerateStandardXML, NodeWriterBytesByShapeOfTheDescription) {
  struct Row {
    const char* member;
    const char* bytes;
  };
  const Row rows[] = {
      {R"("F":{"type":"double","value":1.5})", R"(<std:node name="F"><std:floatval>1.500000</std:floatval></std:node>)"},
      {R"("I":{"type":"int","value":7,"array":[]})", R"(<std:node name="I"><std:intval>7</std:intval></std:node>)"},
      {R"("A":{"array":[{"type":"int","value":1},{"type":"string","value":"s"}]})",
       R"(<std:node name="A"><std:intval>1</std:intval><std:strval>s</std:strval></std:node>)"},
      {R"("E":{"enum":"YesNo","type":"enum","value":"No"})",
       R"(<std:node name="E"><std:enumval name="YesNo">No</std:enumval></std:node>)"},
      {R"("N":{"S":{"T":{"type":"color","value":"1 2 3"}}})",
       R"(<std:node name="N"><std:node name="S"><std:node name="T"><std:colorval>1 2 3</std:colorval></std:node></std:node></std:node>)"},
      // A member whose "enumName" is its own key lands in the current node as a value.
      {R"("V":{"W":{"type":"int","value":2,"enumName":"W"}})", R"(<std:node name="V"><std:intval>2</std:intval></std:node>)"},
      {R"("V":{"W":{"type":"enum","enum":"E","value":"x","enumName":"W"}})",
       R"(<std:node name="V"><std:node name="W"><std:enumval name="E">x</std:enumval></std:node></std:node>)"},
      // Members after the first that is no object are not walked; those before it are sub-nodes.
      {R"("L":{"S":{},"type":"int","value":3,"T":{"type":"int","value":4}})",
       R"(<std:node name="L"><std:node name="S"></std:node><std:intval>3</std:intval></std:node>)"},
      {R"("U":{"type":"bool","value":true})", R"(<std:node name="U"></std:node>)"},
      {R"("R":{"type":"typeval","typeval":"Rec","array":[{"N":{"type":"string","value":"a"},"X":{"type":"double","value":2}},{}]})",
       R"(<std:node name="R"><std:typeval name="Rec"><std:strval name="N">a</std:strval><std:floatval name="X">2.000000</std:floatval></std:typeval><std:typeval name="Rec"></std:typeval></std:node>)"},
      // Kept on purpose: nothing is escaped.
      {R"("M":{"type":"string","value":"<CHECKMARK>"})", R"(<std:node name="M"><std:strval><CHECKMARK></std:strval></std:node>)"},
  };
  for (const Row& r : rows) {
    const std::string text = Generate(Description("{}", "{}", "{}", std::string("{") + r.member + "}"));
    EXPECT_EQ(text, kHead + "<std:node name=\"Styles\"></std:node>" + r.bytes + "</std:node>") << r.member;
  }
}

TEST(GenerateStandardXML, FullDescriptionDecodesNodeByNode) {
  const std::string text = Generate(Description(
      R"({"YesNo":["No","Yes"]})",
      R"({"Rec":{"I":{"type":"int","default":3},"D":{"type":"double","default":0.25},"S":{"type":"string","default":"s"},
                 "E":{"type":"enum","default":"Yes"},"X":{"type":"list","default":1}}})",
      R"({"Curve":{"Default":{"Color":{"type":"color","value":"255 0 0"},"Show":{"type":"enum","enum":"YesNo","value":"Yes"}}}})",
      R"({"Version":{"type":"int","value":290},
          "Formats":{"type":"typeval","typeval":"Rec","array":[{"I":{"type":"int","value":5},"E":{"type":"enum","value":"No"}}]},
          "List":{"array":[{"type":"double","value":0.5},{"type":"double","value":-2}]}})"));
  EXPECT_EQ(text.find('\n'), std::string::npos);
  ZOLAnnStandardXMLParser parser;
  ASSERT_EQ(parser.DecodeXML(ZOLUnicodeString(text), 0), 0) << text;
  // A type definition keeps its members of a known type, each with its default.
  EXPECT_EQ(builtintest::Dump(parser.EnumRoot()) + builtintest::Dump(parser.TypeDefRoot()),
            "0:Enum{3:YesNo{3//No/0;3//Yes/0;}}0:TypeDef{2:Rec{1/I/3/0;2/D/0.250000/0;3/S/s/0;4/E/Yes/0;}}");
  EXPECT_EQ(builtintest::Dump(parser.Root()),
            "0:Root{1:Styles{1:Curve{1:Default{1:Color{5//255 0 0/0;}1:Show{4/YesNo/Yes/0;}}}}1:Version{1//290/0;}"
            "1:Formats{4:Rec{1/I/5/0;4/E/No/0;}}1:List{2//0.500000/0;2//-2.000000/0;}}");
}

// Every filed value of a standard object: "key kind value" lines.
std::vector<std::string> Filed(ZOLIDrwStandard* s) {
  ZOLListValZOLUnicodeString keys, kinds, values;
  EXPECT_EQ(ZOLDftStandardServices::ListFiledValues(s, "", keys, kinds, values), S_OK);
  std::vector<std::string> lines;
  for (int i = 1; i <= keys.Size(); ++i) lines.push_back(keys[i].str() + " " + kinds[i].str() + " " + values[i].str());
  return lines;
}

// The export of a standard text, generated back into a text and loaded again.
struct RoundTrip {
  ZOLIDrwStandard_var original, generated;
};

RoundTrip ExportGenerateLoad(const std::string& text, bool escape) {
  RoundTrip r;
  ZOLUnicodeString source(text);
  r.original = ZOLDftStandardServices::GetStandardFromBuffer(&source, "Original");
  ZOLOmxJsonObject json;
  EXPECT_EQ(ZOLIQelStandardCommunication_var(r.original.Get())->GetStandardAsJson(json), S_OK);
  if (escape) {
    // The generator takes markup escaped, as a file holds it.
    auto document = nlohmann::ordered_json::parse(json.ToString());
    std::function<void(nlohmann::ordered_json&)> walk = [&](nlohmann::ordered_json& v) {
      if (v.is_string()) {
        std::string s;
        for (char c : v.get<std::string>()) s += c == '<' ? "&lt;" : c == '&' ? "&amp;" : std::string(1, c);
        v = s;
      }
      if (v.is_structured())
        for (auto& e : v) walk(e);
    };
    walk(document);
    json = ZOLOmxJsonObject(ZOLUnicodeString(document.dump()));
  }
  std::string generated;
  EXPECT_EQ(ZOLDftStandardServices::GenerateStandardXML(json, generated), S_OK);
  ZOLUnicodeString back(generated);
  r.generated = ZOLDftStandardServices::GetStandardFromBuffer(&back, "Generated");
  return r;
}

TEST(GenerateStandardXML, ExportOfEveryFormTheGeneratorTakesComesBackWithTheSameValues) {
  const std::string text =
      "<std:node xmlns:std=\"http://www.qelstandardinfra.org/std\" name=\"drafting\">"
      "<std:enumdef name=\"YesNo\"><std:strval>No</std:strval><std:strval>Yes</std:strval></std:enumdef>"
      "<std:typedef name=\"Rec\"><std:strval name=\"Name\">n</std:strval><std:intval name=\"I\">1</std:intval>"
      "<std:floatval name=\"D\">0.5</std:floatval><std:enumval name=\"YesNo\">No</std:enumval></std:typedef>"
      "<std:node name=\"Styles\"><std:node name=\"Curve\"><std:node name=\"Default\">"
      "<std:node name=\"Color\"><std:colorval>0 0 255</std:colorval></std:node>"
      "<std:node name=\"Show\"><std:enumval name=\"YesNo\">Yes</std:enumval></std:node></std:node></std:node></std:node>"
      "<std:node name=\"Dimension\"><std:node name=\"Gap\"><std:floatval>1.25</std:floatval></std:node>"
      "<std:node name=\"Count\"><std:intval>-4</std:intval></std:node>"
      "<std:node name=\"Sizes\"><std:floatval>1</std:floatval><std:floatval>2.5</std:floatval></std:node>"
      "<std:node name=\"Mark\"><std:strval>&lt;CHECKMARK&gt; &amp; more</std:strval></std:node>"
      "<std:node name=\"Empty\"></std:node></std:node>"
      "<std:node name=\"Formats\"><std:typeval name=\"Rec\"><std:strval name=\"Name\">A</std:strval>"
      "<std:intval name=\"I\">2</std:intval><std:floatval name=\"D\">0.125</std:floatval>"
      "<std:enumval name=\"YesNo\">Yes</std:enumval></std:typeval><std:typeval name=\"Rec\">"
      "<std:strval name=\"Name\">B</std:strval><std:intval name=\"I\">3</std:intval>"
      "<std:floatval name=\"D\">8</std:floatval><std:enumval name=\"YesNo\">No</std:enumval></std:typeval></std:node>"
      "</std:node>";
  RoundTrip r = ExportGenerateLoad(text, true);
  const std::vector<std::string> original = Filed(r.original);
  EXPECT_GE(original.size(), 14u);
  EXPECT_EQ(Filed(r.generated), original);
}

}  // namespace
