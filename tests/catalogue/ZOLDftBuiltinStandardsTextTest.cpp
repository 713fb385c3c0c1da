// The form of the built-in texts, read as text, the accessor, the command line verb, and the
// determinism of the generator.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <sys/wait.h>
#include <unistd.h>

#include "BuiltinTestSupport.h"
#include "ZOLDftStdNamespace.h"

using namespace builtintest;
namespace fs = std::filesystem;

namespace {

std::string ReadAll(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream out;
  out << in.rdbuf();
  return out.str();
}

// The text with the content of the line-type font cut out: the only place where line ends may stand.
std::string WithoutFontText(const std::string& text) {
  const std::string open = "<std:node name = \"font\"><std:strval>";
  size_t start = text.find(open);
  size_t end = text.find("</std:strval>", start);
  if (start == std::string::npos || end == std::string::npos) return text;
  return text.substr(0, start + open.size()) + text.substr(end);
}

int RunQelstd(const std::string& arguments) {
  return std::system((std::string("\"") + QELSTD_QELSTD_EXE + "\" " + arguments + " >/dev/null 2>&1").c_str());
}

using EachBuiltinText = EachStandard;

}  // namespace

INSTANTIATE_TEST_SUITE_P(BuiltinText, EachBuiltinText, testing::ValuesIn(Standards()), StandardTestName);

TEST_P(EachBuiltinText, OpensWithTheDeclarationAndTheDraftingElement) {
  const std::string head = std::string("<?xml version='1.0' ?>\n<std:node xmlns:std = \"") +
                           std::string(ZOLDftStdNamespaceURI) + "\" name = \"drafting\"><std:enumdef name = \"YesNo\">";
  EXPECT_EQ(Text(name).rfind(head, 0), 0u);
  EXPECT_EQ(Text(name).substr(Text(name).size() - 11), "</std:node>");
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
  EXPECT_TRUE(std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; }))
     ;
  size_t escapes = 0;
  for (size_t at = text.find('&'); at != std::string::npos; at = text.find('&', at + 1)) {
    EXPECT_EQ(text.compare(at, 4, "&lt;"), 0) << name << " at " << at;
    ++escapes;
  }
  EXPECT_GT(escapes, 165u);  // at least every symbol name
}

TEST_P(EachBuiltinText, IsAboutFourHundredThirtyKilobytes) {
  EXPECT_GT(Text(name).size(), 400000u);
  EXPECT_LT(Text(name).size(), 460000u);
}

TEST(BuiltinStandards, NamesAreIsoAnsiAsmeJisInOrder) {
  const ZOLListValZOLUnicodeString& names = ZOLDftBuiltinStandards::GetNames();
  ASSERT_EQ(names.Size(), 3);
  EXPECT_EQ(names[1], "ISO");
  EXPECT_EQ(names[2], "ANSI-ASME");
  EXPECT_EQ(names[3], "JIS");
}

TEST(BuiltinStandards, UnknownNamesGiveNull) {
  EXPECT_EQ(ZOLDftBuiltinStandards::GetText("ANSI"), nullptr);
  EXPECT_EQ(ZOLDftBuiltinStandards::GetText("iso"), nullptr);
  EXPECT_EQ(ZOLDftBuiltinStandards::GetText(""), nullptr);
  EXPECT_EQ(ZOLDftBuiltinStandards::GetText("ISO"), ZOLDftBuiltinStandards::GetText("ISO"));
}

TEST(QelstdBuiltin, WritesTheTextToAFileAndRefusesUnknownNames) {
  if (std::string(QELSTD_QELSTD_EXE).empty()) GTEST_SKIP() << "qelstd is not built";
  fs::path dir = fs::temp_directory_path() / ("qelstd-builtin-" + std::to_string(::getpid()));
  fs::create_directories(dir);
  EXPECT_EQ(RunQelstd("builtin JIS -o \"" + (dir / "JIS.xml").string() + "\""), 0);
  EXPECT_EQ(ReadAll(dir / "JIS.xml"), Text("JIS"));
  EXPECT_EQ(WEXITSTATUS(RunQelstd("builtin ANSI -o \"" + (dir / "ANSI.xml").string() + "\"")), 1);
  EXPECT_FALSE(fs::exists(dir / "ANSI.xml"));
  EXPECT_EQ(WEXITSTATUS(RunQelstd("builtin")), 2);
  fs::remove_all(dir);
}

TEST(Generator, TwoRunsGiveTheEmbeddedTextsByteForByte) {
  if (std::string(QELSTD_QELSTD_EXE).empty()) GTEST_SKIP() << "qelstd is not built";
  // The generator sits in the data folder of the build, beside tools/ where qelstd is.
  fs::path build = fs::path(QELSTD_QELSTD_EXE).parent_path().parent_path();
  fs::path generator = build / "data" / "generate_standards";
  fs::path tables = fs::path(QELSTD_TEST_DATA_DIR).parent_path().parent_path() / "data";
  ASSERT_TRUE(fs::exists(generator)) << generator;
  fs::path out = fs::temp_directory_path() / ("qelstd-generate-" + std::to_string(::getpid()));
  for (const char* run : {"1", "2"}) {
    fs::create_directories(out / run);
    ASSERT_EQ(std::system(("\"" + generator.string() + "\" \"" + tables.string() + "\" \"" + (out / run).string() + "\"").c_str()), 0);
  }
  for (const char* file : {"ISO.xml", "ANSI-ASME.xml", "JIS.xml", "ZOLDftBuiltinStandardsData.cpp",
                           "ZOLDftEngineeringSymbolCatalogData.cpp"}) {
    std::string first = ReadAll(out / "1" / file);
    EXPECT_FALSE(first.empty()) << file;
    EXPECT_EQ(first, ReadAll(out / "2" / file)) << file;
  }
  for (auto& name : Standards()) EXPECT_EQ(ReadAll(out / "1" / (name + ".xml")), Text(name)) << name;
  fs::remove_all(out);
}
