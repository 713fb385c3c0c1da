#include <gtest/gtest.h>

#include <sys/wait.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

struct CommandRun {
  int status;
  std::string out;
};

CommandRun Qelstd(const std::string& args) {
  std::string command = std::string(QELSTD_QELSTD_EXE) + " " + args + " 2>&1";
  FILE* pipe = popen(command.c_str(), "r");
  CommandRun r{-1, ""};
  if (!pipe) return r;
  char buf[512];
  while (size_t n = fread(buf, 1, sizeof buf, pipe)) r.out.append(buf, n);
  int raw = pclose(pipe);
  r.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
  return r;
}

class QelstdReadVerbs : public ::testing::Test {
protected:
  void SetUp() override {
    if (std::string(QELSTD_QELSTD_EXE).empty()) GTEST_SKIP() << "qelstd is not built";
    file = std::filesystem::temp_directory_path() / ("qelstd-get-" + std::to_string(::getpid()) + ".xml");
    std::ofstream(file) << "<std:node xmlns:std=\"http://www.qelstandardinfra.org/std\" name=\"drafting\">"
                           "<std:node name=\"Dimension\"><std:node name=\"Gap\"><std:floatval>2.032</std:floatval></std:node>"
                           "<std:node name=\"Mode\"><std:enumval name=\"YesNo\">Yes</std:enumval></std:node></std:node>"
                           "<std:node name=\"Seg\"><std:intval>3</std:intval><std:intval>4</std:intval></std:node>"
                           "<std:node name=\"Styles\"><std:node name=\"Curve\"><std:node name=\"Default\">"
                           "<std:node name=\"Color\"><std:colorval>1 2 3</std:colorval></std:node></std:node></std:node></std:node>"
                           "<std:node name=\"L\"><std:typeval name=\"E\"><std:strval name=\"Name\">a</std:strval>"
                           "<std:intval name=\"N\">1</std:intval></std:typeval><std:typeval name=\"E\">"
                           "<std:strval name=\"Name\">b</std:strval><std:intval name=\"N\">2</std:intval></std:typeval></std:node>"
                           "</std:node>";
  }
  void TearDown() override { std::filesystem::remove(file); }
  std::filesystem::path file;
};

}  // namespace

TEST_F(QelstdReadVerbs, GetPrintsValuesWithTheirTypeCodes) {
  EXPECT_EQ(Qelstd("get " + file.string() + " Dimension.Gap").out, "2.032\ttype 4 real\n");
  EXPECT_EQ(Qelstd("get " + file.string() + " Dimension.Mode").out, "Yes\ttype 7 enum\n");
  EXPECT_EQ(Qelstd("get " + file.string() + " Seg").out, "3 4\ttype 3 integers\n");
  EXPECT_EQ(Qelstd("get " + file.string() + " Curve.Default.Color").out, "1 2 3\ttype 0 colour\n");
  EXPECT_EQ(Qelstd("get " + file.string() + " L.Name --index 2").out, "b\ttype 6 string\n");
  EXPECT_EQ(Qelstd("get " + file.string() + " L.N --index 2 --json").out,
            "{\"standard\":\"" + file.string() + "\",\"path\":\"L.N\",\"index\":2,\"type\":3,\"kind\":\"integer\",\"value\":2}\n");
}

TEST_F(QelstdReadVerbs, GetOfAPathWithoutValueExitsWithOne) {
  CommandRun r = Qelstd("get " + file.string() + " Dimension.Nope");
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.out, "qelstd: Dimension.Nope: no value at this path in " + file.string() + "\n");
  EXPECT_EQ(Qelstd("get /no/such/file.xml A").status, 1);
  EXPECT_EQ(Qelstd("get " + file.string()).status, 2);
}

TEST_F(QelstdReadVerbs, ShowListsTheFiledValuesUnderAPrefix) {
  CommandRun r = Qelstd("show " + file.string() + " L");
  EXPECT_EQ(r.status, 0);
  EXPECT_EQ(r.out, "L.N.1\tinteger\t1\nL.N.2\tinteger\t2\nL.Name.1\tstring\ta\nL.Name.2\tstring\tb\n");
  EXPECT_EQ(Qelstd("show " + file.string() + " Nothing").status, 1);
}
