// qelstd export and generate, as a script would run them.
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>

#include "QelstdRun.h"
#include "ZOLScratch.h"

using namespace qeltest;

namespace {

class QelstdJsonVerbs : public testing::Test {
protected:
  void SetUp() override { QELSTD_REQUIRE_BINARY(); }
  QelstdRun Run(const std::string& args) {
    QelstdRun run = RunQelstd(args + " 2>'" + (dir / "err") + "'", "env ZOLTemp='" + dir.Path() + "'");
    err = ReadText(dir / "err");
    return run;
  }
  ScratchDir dir;
  std::string err;
};

TEST_F(QelstdJsonVerbs, ExportOfABuiltinGeneratesBackOnceItsMarkupIsEscaped) {
  ASSERT_EQ(Run("export JIS -o '" + (dir / "jis.json") + "'").status, 0) << err;
  nlohmann::ordered_json json = nlohmann::ordered_json::parse(ReadText(dir / "jis.json"));
  ASSERT_EQ(json.size(), 4u);
  EXPECT_EQ(json.begin().key(), "EnumDefinition");

  // The built-in symbols hold "<CHECKMARK>": the verb names the first such value and writes nothing.
  EXPECT_EQ(Run("generate '" + (dir / "jis.json") + "' -o '" + (dir / "out.xml") + "'").status, 1);
  EXPECT_NE(err.find("the value at \"/"), std::string::npos) << err;
  EXPECT_NE(err.find("nothing was written"), std::string::npos) << err;
  EXPECT_FALSE(std::filesystem::exists(dir / "out.xml"));

  std::string text = ReadText(dir / "jis.json");
  for (size_t at = 0; (at = text.find('<', at)) != std::string::npos;) text.replace(at, 1, "&lt;");
  WriteText(dir / "escaped.json", text);
  ASSERT_EQ(Run("generate '" + (dir / "escaped.json") + "' -o '" + (dir / "out.xml") + "'").status, 0) << err;
  QelstdRun info = Run("info '" + (dir / "out.xml") + "'");
  EXPECT_EQ(info.status, 0) << err;
  EXPECT_NE(info.out.find("parent:  JIS"), std::string::npos) << info.out;
}

TEST_F(QelstdJsonVerbs, GenerateRefusesBadDescriptionsAndWritesNothing) {
  struct Row {
    const char* json;
    const char* why;
  };
  const Row rows[] = {
      {"{\"EnumDefinition\":{}", "not JSON text"},
      {"[]", "not a JSON object"},
      {R"({"EnumDefinition":{},"TypeDefinition":{},"Standard Parameters":{}})", "has no object \"Styles\""},
      {R"({"EnumDefinition":{},"TypeDefinition":{},"Styles":{},"Standard Parameters":{"A&B":{}}})",
       "the value at \"/Standard Parameters/A&B\""},
  };
  for (const Row& r : rows) {
    WriteText(dir / "d.json", r.json);
    EXPECT_EQ(Run("generate '" + (dir / "d.json") + "' -o '" + (dir / "out.xml") + "'").status, 1) << r.json;
    EXPECT_NE(err.find(r.why), std::string::npos) << err;
    EXPECT_FALSE(std::filesystem::exists(dir / "out.xml"));
  }
  EXPECT_EQ(Run("generate '" + (dir / "missing.json") + "' -o '" + (dir / "out.xml") + "'").status, 1);
  EXPECT_NE(err.find("No such file"), std::string::npos) << err;
  EXPECT_EQ(Run("generate '" + (dir / "d.json") + "'").status, 2);
}

}  // namespace
