// qelstd on bad input and bad output, across its verbs: every failure ends with "qelstd: <what>: <why>"
// on standard error and exit status 1, never with an abort.
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "QelstdRun.h"
#include "ZOLScratch.h"

namespace fs = std::filesystem;

namespace {

constexpr const char* kStd = "http://www.qelstandardinfra.org/std";

using Scratch = qeltest::ScratchDir;
using qeltest::WriteText;

// A small standard: level 290, parent ISO, a real, an enum and the colour of the default curve style.
std::string StandardText(const std::string& colour = "1 2 3") {
  return std::string("<std:node xmlns:std=\"") + kStd + "\" name=\"drafting\">"
         "<std:enumdef name=\"YesNo\"><std:strval>Yes</std:strval></std:enumdef>"
         "<std:node name=\"Version\"><std:intval>290</std:intval></std:node>"
         "<std:node name=\"Dimension\"><std:node name=\"ParentStandard\"><std:strval>ISO</std:strval></std:node>"
         "<std:node name=\"Gap\"><std:floatval>2.5</std:floatval></std:node></std:node>"
         "<std:node name=\"Styles\"><std:node name=\"Curve\"><std:node name=\"Default\"><std:node name=\"Color\">"
         "<std:colorval>" + colour + "</std:colorval></std:node></std:node></std:node></std:node></std:node>";
}

std::string Quoted(const std::string& s) { return "'" + s + "'"; }

// qelstd with standard output dropped and standard error captured.
QelstdRun ErrorsOf(const std::string& args, const std::string& prefix = "") {
  return RunQelstd(args + " 2>&1 >/dev/null", prefix);
}

}  // namespace

TEST(QelstdOutput, EveryVerbTellsAFailedWriteToStandardOutputAndExitsOne) {
  QELSTD_REQUIRE_BINARY();
  Scratch dir;
  const std::string standard = Quoted(WriteText(dir / "Std.xml", StandardText()));
  const std::string edits = Quoted(WriteText(dir / "a.edits", "node Root:a\n"));
  const std::string env = "env -u ZOLCollectionStandard -u ZOLDefaultCollectionStandard ADL_ODT_OUT=" + Quoted(dir.Path());
  const std::vector<std::string> verbs = {
      "builtin ISO",        "get " + standard + " Dimension.Gap", "get " + standard + " Dimension.Gap --json",
      "show " + standard,   "check " + standard,                  "check --json " + standard,
      "info " + standard,   "info --json " + standard,            "sheets " + standard,
      "apply " + edits,     "upgrade --dry-run " + standard,      "list",
      "list --json",        "compare",                            "--help",
      "get --help"};
  for (const std::string& verb : verbs) {
    QelstdRun run = RunQelstd(verb + " 2>&1 >/dev/full", env);
    EXPECT_EQ(run.status, 1) << verb;
    EXPECT_NE(run.out.find("qelstd: standard output: No space left on device\n"), std::string::npos)
        << verb << ": " << run.out;
  }
  // Differences that cannot be printed are trouble (2), not "different" (1).
  const QelstdRun diff = RunQelstd("diff " + standard + " ISO 2>&1 >/dev/full", env);
  EXPECT_EQ(diff.status, 2) << diff.out;
  EXPECT_NE(diff.out.find("qelstd: standard output: No space left on device\n"), std::string::npos) << diff.out;
  // Standard output closed altogether.
  QelstdRun run = RunQelstd("builtin JIS 2>&1 >&-");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "qelstd: standard output: Bad file descriptor\n");
}

TEST(QelstdInput, FilesThatAreNoReadableRegularFileAreRefusedWithTheReason) {
  QELSTD_REQUIRE_BINARY();
  Scratch dir;
  const std::string edits = WriteText(dir / "a.edits", "node Root:a\n");
  const std::string file = WriteText(dir / "plain", "x");
  fs::create_directory(dir / "folder");
  ASSERT_EQ(mkfifo((dir / "fifo").c_str(), 0600), 0);
  fs::create_symlink(dir / "loop", dir / "loop");
  struct Input {
    std::string path;
    std::string why;
  };
  std::vector<Input> inputs = {{dir / "folder", "is a directory"},
                               {dir / "fifo", "is a FIFO, not a regular file"},
                               {"/dev/zero", "is a device, not a regular file"},
                               {dir / "none.xml", "No such file or directory"},
                               {dir / "loop", "Too many levels of symbolic links"},
                               {file + "/std.xml", "Not a directory"}};
  if (geteuid() != 0) {
    WriteText(dir / "locked.xml", StandardText());
    fs::permissions(dir / "locked.xml", fs::perms::none);
    inputs.push_back({dir / "locked.xml", "Permission denied"});
  }
  const std::vector<std::string> verbs = {"apply {}",  "apply --in {} " + Quoted(edits), "check {}", "info {}",
                                          "sheets {}", "upgrade {}",                     "get {} Dimension.Gap",
                                          "show {}"};
  for (const Input& input : inputs) {
    for (std::string verb : verbs) {
      // upgrade searches a folder for standards, and this one holds none.
      const std::string why =
          verb == "upgrade {}" && input.why == "is a directory" ? "holds no standard files (*.xml or flat legacy files)" : input.why;
      verb.replace(verb.find("{}"), 2, Quoted(input.path));
      QelstdRun run = ErrorsOf(verb);
      EXPECT_EQ(run.status, 1) << verb;
      EXPECT_EQ(run.out, "qelstd: " + input.path + ": " + why + "\n") << verb;
    }
  }
}

TEST(QelstdInput, FileThatIsNoStandardIsRefusedWithTheParsersReason) {
  QELSTD_REQUIRE_BINARY();
  Scratch dir;
  const std::string garbage = WriteText(dir / "garbage.xml", "garbage\n");
  const std::string why = "qelstd: " + garbage + ": does not decode as a standard: not well-formed XML: line 1: ";
  for (std::string_view verb : {"info ", "check ", "upgrade ", "get ", "apply --in "}) {
    std::string args = std::string(verb) + Quoted(garbage);
    if (verb == "get ") args += " Dimension.Gap";
    if (verb == "apply --in ") args += " " + Quoted(WriteText(dir / "a.edits", "node Root:a\n"));
    QelstdRun run = ErrorsOf(args);
    EXPECT_EQ(run.status, 1) << args;
    EXPECT_NE(run.out.find(why), std::string::npos) << args << ": " << run.out;
  }
  // Well-formed, but not of the dialect: info no longer tells a level for it.
  const std::string other = WriteText(dir / "other.xml", "<book><title>x</title></book>");
  QelstdRun run = ErrorsOf("info " + Quoted(other));
  EXPECT_EQ(run.status, 1);
  EXPECT_NE(run.out.find("qelstd: " + other + ": does not decode as a standard: not a standard of the std dialect"),
            std::string::npos)
      << run.out;
}

TEST(QelstdInput, MalformedColourEndsTheVerbWithAMessageNotAnAbort) {
  QELSTD_REQUIRE_BINARY();
  Scratch dir;
  struct Case {
    const char* colour;
    const char* why;
  };
  for (const Case& c : {Case{"1 x 3", "invalid stoi argument"}, Case{"1 2 99999999999", "stoi argument out of range"}}) {
    const std::string file = WriteText(dir / "Colour.xml", StandardText(c.colour));
    const std::string expected = "qelstd: " + file + ": cannot be read: a value is malformed (" + c.why + ")\n";
    for (const std::string& args : {"get " + Quoted(file) + " Curve.Default.Color", "get " + Quoted(file) + " Dimension.Gap",
                                   "show " + Quoted(file), "show --json " + Quoted(file) + " Curve"}) {
      QelstdRun run = ErrorsOf(args);
      EXPECT_EQ(run.status, 1) << args;
      EXPECT_EQ(run.out, expected) << args;
    }
  }
}

TEST(QelstdInput, CompareNamesTheWorkingCopyWhoseColourIsMalformed) {
  QELSTD_REQUIRE_BINARY();
  Scratch dir;
  const std::string env = "env -u ZOLCollectionStandard -u ZOLDefaultCollectionStandard ADL_ODT_OUT=" + Quoted(dir.Path());
  ASSERT_EQ(RunQelstd("builtin ISO -o " + Quoted(dir / "ISO.xml")).status, 0);
  std::string text = qeltest::ReadText(dir / "ISO.xml");
  const size_t colour = text.find("<std:colorval>");
  ASSERT_NE(colour, std::string::npos);
  text.replace(colour + 14, text.find('<', colour + 14) - colour - 14, "1 2 99999999999");
  WriteText(dir / "ISO.xml", text);
  QelstdRun run = ErrorsOf("compare", env);
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "qelstd: " + (dir / "ISO.xml") + ": cannot be read: a value is malformed (stoi argument out of range)\n");
}

TEST(QelstdJson, NamesThatAreNoUtf8AreReplacedNotFatal) {
  QELSTD_REQUIRE_BINARY();
  Scratch dir;
  const std::string file = WriteText(dir / "\xff\xfe.xml", StandardText());
  const std::string shown = dir / "\xef\xbf\xbd\xef\xbf\xbd.xml";
  for (const std::string& args : {"get --json " + Quoted(file) + " Dimension.Gap", "info --json " + Quoted(file),
                                 "check --json " + Quoted(file), "sheets --json " + Quoted(file)}) {
    QelstdRun run = RunQelstd(args + " 2>/dev/null");
    EXPECT_NE(run.status, -1) << args;
    nlohmann::json j = nlohmann::json::parse(run.out, nullptr, false);
    ASSERT_FALSE(j.is_discarded()) << args << ": " << run.out;
    std::string name = j.contains("standard") ? j["standard"] : j.contains("path") ? j["path"] : j["file"];
    EXPECT_EQ(name, shown) << args;
  }
}

TEST(QelstdInput, MemoryRunningOutEndsTheVerbWithAMessageNotAnAbort) {
  QELSTD_REQUIRE_BINARY();
#if defined(__SANITIZE_ADDRESS__)
  GTEST_SKIP() << "a sanitizer's shadow memory does not fit under a bound of the address space";
#endif
  Scratch dir;
  std::string text;
  for (int i = 0; i < 1000000; ++i) text += "node Root:a\n";
  const std::string edits = WriteText(dir / "many.edits", text);
  // A million nodes take some 300 MB; the tool gets 200 MB of address space.
  QelstdRun run = RunQelstd("apply " + Quoted(edits) + " 2>&1 >/dev/null", "ulimit -v 200000;");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "qelstd: " + edits + ": out of memory\n");
}
