// qelstd upgrade over a folder of standards of mixed levels and parents, with broken files among them.
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <vector>

#include "../upgrade/ZOLChainTestSupport.h"
#include "QelstdRun.h"
#include "ZOLScratch.h"

namespace fs = std::filesystem;
using qeltest::ReadText;
using qeltest::WriteText;

namespace {

constexpr int kLevels[] = {1, 30, 60, 100, 130, 170, 200};
constexpr int kGood = 195;

struct Generated {
  std::string parent;
  int level;
};

// The folder of inputs, made once: kGood standards whose names repeat across folders, and five broken
// files with the words their reason must hold.
class QelstdUpgradeBatch : public testing::Test {
protected:
  static void SetUpTestSuite() {
    scratch = new qeltest::ScratchDir;
    std::vector<std::pair<Generated, std::string>> texts;
    for (const qeltest::Parent& parent : qeltest::kParents)
      for (int level : kLevels) {
        qeltest::ChainDriver d(qeltest::Release9Lines(parent.name));
        d.Upgrade(1, level, false);
        texts.push_back({{parent.name, level}, d.Saved()});
      }
    for (int i = 0; i < kGood; ++i) {
      const auto& [what, text] = texts[static_cast<size_t>(i) % texts.size()];
      const std::string rel = "g" + std::to_string(i % 8) + "/Std" + std::to_string(i / 8) + ".xml";
      WriteText(In() + "/" + rel, text);
      generated[rel] = what;
    }
    const std::string& sample = texts.front().second;
    broken = {{"broken/garbage.xml", "not well-formed XML"},
              {"broken/truncated.xml", "not well-formed XML"},
              {"broken/other.xml", "not a standard of the std dialect"},
              {"broken/future.xml", "its level 300 is above the current level 290"},
              {"broken/dangling.xml", "No such file or directory"}};
    WriteText(In() + "/broken/garbage.xml", "garbage\n");
    WriteText(In() + "/broken/truncated.xml", sample.substr(0, sample.size() / 2));
    WriteText(In() + "/broken/other.xml", "<book><title>x</title></book>\n");
    WriteText(In() + "/broken/future.xml",
              "<std:node xmlns:std=\"http://www.qelstandardinfra.org/std\" name=\"drafting\"><std:node name=\"Version\">"
              "<std:intval>300</std:intval></std:node><std:node name=\"Dimension\"><std:node name=\"ParentStandard\">"
              "<std:strval>ISO</std:strval></std:node></std:node></std:node>\n");
    fs::create_symlink(*scratch / "nowhere", In() + "/broken/dangling.xml");
  }
  static void TearDownTestSuite() { delete scratch; }
  void SetUp() override { QELSTD_REQUIRE_BINARY(); }

  static std::string In() { return *scratch / "in"; }
  // Runs a batch to the current level into out, its records into out.json.
  static QelstdRun Batch(const std::string& out, int jobs) {
    return RunQelstd("upgrade '" + In() + "' -o '" + out + "' -j " + std::to_string(jobs) + " --json '" + out +
                     ".json' 2>'" + out + ".err'");
  }
  // Every file below dir, by its path relative to dir.
  static std::map<std::string, std::string> Files(const std::string& dir) {
    std::map<std::string, std::string> files;
    for (const auto& e : fs::recursive_directory_iterator(dir))
      if (e.is_regular_file()) files[fs::relative(e.path(), dir).string()] = ReadText(e.path().string());
    return files;
  }

  static inline qeltest::ScratchDir* scratch = nullptr;
  static inline std::map<std::string, Generated> generated;
  static inline std::map<std::string, std::string> broken;
};

}  // namespace

TEST_F(QelstdUpgradeBatch, TwoWorkersWriteWhatOneDoesAndTellEachFailure) {
  const std::string one = *scratch / "one", two = *scratch / "two";
  ASSERT_EQ(Batch(one, 1).status, 1) << ReadText(one + ".err");
  const QelstdRun run = Batch(two, 2);
  ASSERT_EQ(run.status, 1) << ReadText(two + ".err");
  EXPECT_NE(run.out.find(std::to_string(kGood) + " of 200 files went through, 5 failed"), std::string::npos) << run.out;

  const auto byOne = Files(one), byTwo = Files(two);
  EXPECT_EQ(byOne.size(), static_cast<size_t>(kGood)) << "no temporary file, nothing for a failed input";
  EXPECT_TRUE(byOne == byTwo);
  for (const auto& [rel, what] : generated) EXPECT_EQ(byOne.count(rel), 1u) << rel;

  const nlohmann::json records = nlohmann::json::parse(ReadText(two + ".json"));
  ASSERT_EQ(records.size(), 200u);
  std::set<std::string> failed;
  for (const nlohmann::json& r : records) {
    const std::string rel = fs::relative(r["input"].get<std::string>(), In()).string();
    if (r["result"] == "failed") {
      failed.insert(rel);
      ASSERT_EQ(broken.count(rel), 1u) << rel << ": " << r["reason"];
      EXPECT_NE(r["reason"].get<std::string>().find(broken[rel]), std::string::npos) << rel << ": " << r["reason"];
      EXPECT_NE(ReadText(two + ".err").find("qelstd: " + r["input"].get<std::string>() + ": "), std::string::npos) << rel;
      continue;
    }
    ASSERT_EQ(generated.count(rel), 1u) << rel;
    EXPECT_EQ(r["result"], "upgraded") << rel;
    EXPECT_EQ(r["output"], two + "/" + rel);
    EXPECT_EQ(r["parent"], generated[rel].parent) << rel;
    EXPECT_EQ(r["startLevel"], generated[rel].level) << rel;
    EXPECT_EQ(r["levelReached"], 290) << rel;
    EXPECT_GT(r["stagesRun"], 0) << rel;
  }
  EXPECT_EQ(failed.size(), broken.size());
}

// Killed outright, the run leaves whole outputs (and perhaps a temporary file of the file in hand);
// interrupted from the terminal, every process finishes its file and nothing else is left.
TEST_F(QelstdUpgradeBatch, KillingOrInterruptingTheRunLeavesOnlyWholeFiles) {
  const std::string reference = *scratch / "reference";
  ASSERT_EQ(Batch(reference, 2).status, 1);
  const auto whole = Files(reference);
  const std::string exe = QELSTD_QELSTD_EXE, in = In();
  for (const bool interrupt : {false, true}) {
    const std::string out = *scratch / (interrupt ? "interrupted" : "killed");
    std::vector<std::string> args = {exe, "upgrade", in, "-o", out, "-j", "2"};
    std::vector<char*> argv;
    for (std::string& a : args) argv.push_back(a.data());
    argv.push_back(nullptr);
    posix_spawn_file_actions_t quiet;
    posix_spawn_file_actions_init(&quiet);
    posix_spawn_file_actions_addopen(&quiet, 1, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&quiet, 2, "/dev/null", O_WRONLY, 0);
    // A group of its own, as a shell gives a command, so that the interrupt reaches the workers too.
    posix_spawnattr_t group;
    posix_spawnattr_init(&group);
    posix_spawnattr_setflags(&group, POSIX_SPAWN_SETPGROUP);
    posix_spawnattr_setpgroup(&group, 0);
    pid_t pid = 0;
    ASSERT_EQ(posix_spawn(&pid, exe.c_str(), &quiet, &group, argv.data(), environ), 0);
    posix_spawn_file_actions_destroy(&quiet);
    posix_spawnattr_destroy(&group);
    auto outputs = [&out] {
      size_t n = 0;
      std::error_code ec;
      for (fs::recursive_directory_iterator it(out, ec), end; !ec && it != end; it.increment(ec))
        n += it->path().extension() == ".xml";
      return n;
    };
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (outputs() < 20 && std::chrono::steady_clock::now() < deadline)
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    if (interrupt) kill(-pid, SIGINT);
    else kill(pid, SIGKILL);
    int status = 0;
    waitpid(pid, &status, 0);
    if (interrupt) {
      EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 1) << status;
    } else {
      ASSERT_TRUE(WIFSIGNALED(status)) << "the run ended before it was killed";
    }
    // The workers of a killed run finish their file on their own.
    if (!interrupt) while (kill(-pid, 0) == 0) std::this_thread::sleep_for(std::chrono::milliseconds(2));

    size_t present = 0;
    for (const auto& e : fs::recursive_directory_iterator(out)) {
      const std::string rel = fs::relative(e.path(), out).string();
      if (!e.is_regular_file()) continue;
      if (interrupt) {
        EXPECT_EQ(e.path().extension(), ".xml") << rel << ": left behind";
      }
      if (e.path().extension() != ".xml") continue;
      ++present;
      ASSERT_EQ(whole.count(rel), 1u) << rel;
      EXPECT_EQ(ReadText(e.path().string()), whole.at(rel)) << rel;
      ZOLAnnStandardXMLParser decoded;
      EXPECT_EQ(decoded.DecodeXML(ZOLUnicodeString(e.path().string()), 1), 0) << rel;
    }
    EXPECT_GE(present, 20u) << interrupt;
    EXPECT_LT(present, whole.size()) << "stopped midway";
  }
}

TEST_F(QelstdUpgradeBatch, OutputsThatMeetAreRefusedAndEarlierOutputsAreNoInputs) {
  // Two files of one name given side by side would write one output.
  const std::string a = In() + "/g0/Std0.xml", b = In() + "/g1/Std0.xml", out = *scratch / "meet";
  const QelstdRun meet = RunQelstd("upgrade '" + a + "' '" + b + "' -o '" + out + "' --json - 2>/dev/null");
  EXPECT_EQ(meet.status, 1);
  const nlohmann::json records = nlohmann::json::parse(meet.out);
  ASSERT_EQ(records.size(), 2u);
  EXPECT_EQ(records[0]["result"], "upgraded");
  EXPECT_EQ(records[1]["reason"], "its output " + out + "/Std0.xml is that of " + a + " already");

  // A second run into a folder below its input finds the same inputs as the first.
  const std::string nest = *scratch / "nest";
  WriteText(nest + "/x/Std.xml", ReadText(a));
  for (int run = 0; run < 2; ++run) {
    const QelstdRun r = RunQelstd("upgrade '" + nest + "' -o '" + nest + "/out' --json - 2>/dev/null");
    EXPECT_EQ(r.status, 0) << run;
    EXPECT_EQ(nlohmann::json::parse(r.out).size(), 1u) << run;
  }
}

TEST_F(QelstdUpgradeBatch, AFolderGivesItsFlatFilesTooAndNothingElse) {
  const std::string in = *scratch / "flat", out = *scratch / "flat-out";
  WriteText(in + "/Company.std", "ParentStandard JIS\nDIMLUnderline 1\n");
  WriteText(in + "/notes.txt", "Not a standard.\n");
  const QelstdRun r = RunQelstd("upgrade '" + in + "' -o '" + out + "' --json - 2>/dev/null");
  EXPECT_EQ(r.status, 0);
  const nlohmann::json records = nlohmann::json::parse(r.out);
  ASSERT_EQ(records.size(), 1u);
  EXPECT_EQ(records[0]["output"], out + "/Company.std.xml");
  EXPECT_EQ(records[0]["parent"], "JIS");
  EXPECT_EQ(records[0]["startLevel"], 0);
  EXPECT_EQ(records[0]["levelReached"], 290);
}
