// The form of the built-in texts, read as text, the accessor, the command line verb, and the
// determinism of the generator.
#include <gtest/gtest.h>

#include <filesystem>

#include "BuiltinTestSupport.h"
#include "QelstdRun.h"
#include "ZOLCatalogueTestSupport.h"
#include "ZOLDftStdNamespace.h"

using namespace builtintest;
using qeltest::ReadText;
namespace fs = std::filesystem;

namespace {

// The text with the content of the line-type font cut out: the only place where line ends may stand.
std::string WithoutFontText(const std::string& text) {
  const std::string open = "<std:node name = \"font\"><std:strval>";
  size_t start = text.find(open);
  size_t end = text.find("</std:strval>", start);
  if (start == std::string::npos || end == std::string::npos) return text;
  return text.substr(0, start + open.size()) + text.substr(end);
}

using EachBuiltinText = EachStandard;

}  // namespace

INSTANTIATE_TEST_SUITE_P(BuiltinText, EachBuiltinText, testing::ValuesIn(Standards()), StandardTestName);

TEST_P(EachBuiltinText, OpensWithTheDeclarationAndTheDraftingElementAndIsAboutFourHundredThirtyKilobytes) {
  const std::string head = std::string("<?xml version='1.0' ?>\n<std:node xmlns:std = \"") +
                           std::string(ZOLDftStdNamespaceURI) + "\" name = \"drafting\"><std:enumdef name = \"YesNo\">";
  EXPECT_EQ(Text(name).rfind(head, 0), 0u);
  EXPECT_EQ(Text(name).substr(Text(name).size() - 11), "</std:node>");
  EXPECT_GT(Text(name).size(), 400000u);
  EXPECT_LT(Text(name).size(), 460000u);
}

TEST_P(EachBuiltinText, HasLineEndsOnlyInTheFontTextAndNoBlanksBetweenElements) {
  std::string body = WithoutFontText(Text(name)).substr(std::string("<?xml version='1.0' ?>\n").size());
  EXPECT_EQ(body.find('\n'), std::string::npos);
  EXPECT_EQ(body.find('\t'), std::string::npos);
  // A value may be a single blank; between elements there is none.
  for (size_t at = body.find("</"); at != std::string::npos; at = body.find("</", at + 2)) {
    size_t end = body.find('>', at);
    ASSERT_NE(end, std::string::npos);
    EXPECT_TRUE(end + 1 == body.size() || body[end + 1] == '<') << name << " after " << body.substr(at, end - at + 1);
  }
  for (const char* open : {" <std:node", " <std:typeval", " <std:enumdef", " <std:typedef"})
    EXPECT_EQ(body.find(open), std::string::npos);
  EXPECT_EQ(body.find("=\""), std::string::npos);  // blanks around "=" everywhere
}

TEST_P(EachBuiltinText, IsAsciiAndEscapesOnlyTheLessThanSign) {
  const std::string& text = Text(name);
  EXPECT_TRUE(std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; }));
  size_t escapes = 0;
  for (size_t at = text.find('&'); at != std::string::npos; at = text.find('&', at + 1)) {
    EXPECT_EQ(text.compare(at, 4, "&lt;"), 0) << name << " at " << at;
    ++escapes;
  }
  EXPECT_GT(escapes, 165u);  // at least every symbol name
}

TEST(BuiltinStandards, NamesInOrderAndOnlyTheseExactNamesHaveAText) {
  const ZOLListValZOLUnicodeString& names = ZOLDftBuiltinStandards::GetNames();
  ASSERT_EQ(names.Size(), 3);
  EXPECT_EQ(names[1].str() + "," + names[2].str() + "," + names[3].str(), "ISO,ANSI-ASME,JIS");
  for (const char* unknown : {"ANSI", "iso", ""}) EXPECT_EQ(ZOLDftBuiltinStandards::GetText(unknown), nullptr) << unknown;
  EXPECT_EQ(ZOLDftBuiltinStandards::GetText("ISO"), ZOLDftBuiltinStandards::GetText("ISO"));
}

TEST(QelstdBuiltin, WritesTheTextToAFileAndRefusesUnknownNames) {
  QELSTD_REQUIRE_BINARY();
  qeltest::ScratchDir dir;
  EXPECT_EQ(RunQelstd("builtin JIS -o '" + (dir / "JIS.xml") + "' 2>/dev/null").status, 0);
  EXPECT_EQ(ReadText(dir / "JIS.xml"), Text("JIS"));
  EXPECT_EQ(RunQelstd("builtin ANSI -o '" + (dir / "ANSI.xml") + "' 2>/dev/null").status, 1);
  EXPECT_FALSE(fs::exists(dir / "ANSI.xml"));
  EXPECT_EQ(RunQelstd("builtin >/dev/null 2>&1").status, 2);
}

TEST(Generator, TwoRunsGiveTheEmbeddedTextsByteForByte) {
  QELSTD_REQUIRE_BINARY();
  // The generator sits in the data folder of the build, beside tools/ where qelstd is.
  fs::path generator = fs::path(QELSTD_QELSTD_EXE).parent_path().parent_path() / "data" / "generate_standards";
  fs::path tables = fs::path(QELSTD_TEST_DATA_DIR).parent_path().parent_path() / "data";
  ASSERT_TRUE(fs::exists(generator)) << generator;
  qeltest::ScratchDir out;
  for (const char* run : {"1", "2"}) {
    fs::create_directories(out / run);
    ASSERT_EQ(std::system(("\"" + generator.string() + "\" \"" + tables.string() + "\" \"" + (out / run) + "\"").c_str()), 0);
  }
  for (const char* file : {"ISO.xml", "ANSI-ASME.xml", "JIS.xml", "ZOLDftBuiltinStandardsData.cpp",
                           "ZOLDftEngineeringSymbolCatalogData.cpp"}) {
    std::string first = ReadText(out / ("1/" + std::string(file)));
    EXPECT_FALSE(first.empty()) << file;
    EXPECT_EQ(first, ReadText(out / ("2/" + std::string(file)))) << file;
  }
  for (auto& name : Standards()) EXPECT_EQ(ReadText(out / ("1/" + name + ".xml")), Text(name)) << name;
}
