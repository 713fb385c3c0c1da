// Atomic writes: through links, with the old mode, never touching the umask, and all or nothing.
// Every writer of the platform is run through the same cases.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include "ZOLFile.h"
#include "ZOLScratch.h"
#include "ZOLStdServices.h"
#include "ZOLXMLDOM.h"

namespace fs = std::filesystem;

namespace {

using qeltest::ReadText;
using qeltest::WriteText;

mode_t ModeOf(const std::string& path) {
  struct stat info {};
  ::stat(path.c_str(), &info);
  return info.st_mode & 0777;
}

// The umask as the kernel tells it, read without setting it.
int UmaskNow() {
  std::ifstream in("/proc/self/status");
  std::string line;
  while (std::getline(in, line))
    if (line.rfind("Umask:", 0) == 0) return std::stoi(line.substr(6), nullptr, 8);
  return -1;
}

// The names in a directory other than those expected: temporaries left behind.
std::vector<std::string> Others(const std::string& dir, const std::vector<std::string>& expected) {
  std::vector<std::string> out;
  for (auto& e : fs::directory_iterator(dir)) {
    std::string name = e.path().filename().string();
    if (std::find(expected.begin(), expected.end(), name) == expected.end()) out.push_back(name);
  }
  return out;
}

// A writer of the platform. prepare gives the bytes that write will put in a file for a tag, and
// does what must be done before (outside the limits a test may set for the write itself).
struct Writer {
  const char* name;
  std::function<std::string(const std::string& tag)> prepare;
  std::function<HRESULT(const std::string& path, const std::string& tag)> write;
};

std::string Repository() { return std::string(std::getenv("ZOLCollectionStandard")); }

ZOLIDOMDocument Document(ZOLIXMLDOMDocumentBuilder& b, const std::string& tag) {
  ZOLIDOMDocument doc;
  b.CreateDocument(doc);
  ZOLIDOMElement top;
  doc.CreateElementNS("", "r", top);
  top.SetAttribute("tag", tag);
  doc.AppendChild(top);
  return doc;
}

std::unique_ptr<ZOLIXMLDOMDocumentBuilder> Builder() {
  std::unique_ptr<ZOLIXMLDOMDocumentBuilder> b;
  CreateZOLIXMLDOMDocumentBuilder(b);
  return b;
}

const std::vector<Writer> kWriters = {
    {"ZOLWriteFileAtomically", [](const std::string& tag) { return "atomic " + tag; },
     [](const std::string& path, const std::string& tag) { return ZOLWriteFileAtomically(path.c_str(), "atomic " + tag); }},
    {"WriteFileIfChanged", [](const std::string& tag) { return "if changed " + tag; },
     [](const std::string& path, const std::string& tag) {
       return ZOLStdServices::WriteFileIfChanged(path.c_str(), "if changed " + tag);
     }},
    {"CopyStandard",
     [](const std::string& tag) {
       WriteText(Repository() + "/drafting/Copied.xml", "copied " + tag);
       return "copied " + tag;
     },
     [](const std::string& path, const std::string&) {
       return ZOLStdServices::CopyStandard("Copied", "drafting", ZOLUnicodeString(path));
     }},
    {"WriteToFile",
     [](const std::string& tag) {
       auto b = Builder();
       std::string bytes;
       b->WriteToString(Document(*b, tag), bytes, {}, {});
       return bytes;
     },
     [](const std::string& path, const std::string& tag) {
       auto b = Builder();
       return b->WriteToFile(Document(*b, tag), path, {}, {});
     }},
};

class AtomicWrite : public testing::TestWithParam<int> {
protected:
  void SetUp() override {
    std::string name = testing::UnitTest::GetInstance()->current_test_info()->name();
    for (char& c : name)
      if (c == '/') c = '_';
    dir = (fs::temp_directory_path() / ("zolatomic_" + std::to_string(::getpid()) + "_" + name)).string();
    fs::remove_all(dir);
    fs::create_directories(dir + "/repo/drafting");
    ::setenv("ZOLCollectionStandard", (dir + "/repo").c_str(), 1);
  }
  void TearDown() override {
    ::unsetenv("ZOLCollectionStandard");
    fs::permissions(dir, fs::perms::owner_all);
    fs::remove_all(dir);
  }

  // Writes through the writer of the test; bytes gets what the file should now hold.
  HRESULT Put(const std::string& path, const std::string& tag, std::string& bytes) {
    bytes = W().prepare(tag);
    return W().write(path, tag);
  }
  const Writer& W() const { return kWriters[GetParam()]; }

  std::string dir;
};

}  // namespace

TEST_P(AtomicWrite, ThroughALinkTheTargetGetsTheBytesAndTheLinkStays) {
  const Writer& w = W();
  WriteText(dir + "/real.xml", "old");
  fs::create_directories(dir + "/links");
  fs::create_symlink("../real.xml", dir + "/links/link.xml");
  fs::create_symlink("link.xml", dir + "/links/chain.xml");
  std::string bytes;
  for (const char* via : {"/links/link.xml", "/links/chain.xml"}) {
    ASSERT_EQ(Put(dir + via, via, bytes), S_OK) << w.name << " " << via;
    EXPECT_EQ(ReadText(dir + "/real.xml"), bytes) << w.name;
    EXPECT_TRUE(fs::is_symlink(dir + "/links/link.xml")) << w.name;
    EXPECT_EQ(fs::read_symlink(dir + "/links/link.xml"), "../real.xml") << w.name;
    EXPECT_TRUE(fs::is_symlink(dir + "/links/chain.xml")) << w.name;
  }
  EXPECT_EQ(Others(dir, {"real.xml", "links", "repo"}), std::vector<std::string>()) << w.name;
  EXPECT_EQ(Others(dir + "/links", {"link.xml", "chain.xml"}), std::vector<std::string>()) << w.name;

  // A dangling link makes its target; a loop of links is refused.
  fs::create_symlink("made.xml", dir + "/dangling.xml");
  ASSERT_EQ(Put(dir + "/dangling.xml", "dangling", bytes), S_OK) << w.name;
  EXPECT_EQ(ReadText(dir + "/made.xml"), bytes) << w.name;
  EXPECT_TRUE(fs::is_symlink(dir + "/dangling.xml")) << w.name;
  fs::create_symlink("loop2.xml", dir + "/loop1.xml");
  fs::create_symlink("loop1.xml", dir + "/loop2.xml");
  EXPECT_EQ(Put(dir + "/loop1.xml", "loop", bytes), E_FAIL) << w.name;
  EXPECT_TRUE(fs::is_symlink(dir + "/loop1.xml")) << w.name;
}

TEST_P(AtomicWrite, ExistingFileKeepsItsModeAndNewFileGetsTheUmasksMode) {
  const Writer& w = W();
  std::string bytes;
  for (mode_t mode : {0640, 0604, 0600, 0664}) {
    WriteText(dir + "/kept.xml", "old");
    fs::permissions(dir + "/kept.xml", static_cast<fs::perms>(mode));
    ASSERT_EQ(Put(dir + "/kept.xml", std::to_string(mode), bytes), S_OK) << w.name;
    EXPECT_EQ(ModeOf(dir + "/kept.xml"), mode) << w.name;
    EXPECT_EQ(ReadText(dir + "/kept.xml"), bytes) << w.name;
  }
  mode_t previous = ::umask(027);
  HRESULT hr = Put(dir + "/new.xml", "new", bytes);
  mode_t during = ::umask(previous);
  EXPECT_EQ(hr, S_OK) << w.name;
  EXPECT_EQ(ModeOf(dir + "/new.xml"), 0640u) << w.name;
  EXPECT_EQ(during, 027u) << w.name;
}

TEST_P(AtomicWrite, AFailedWriteLeavesTheOldFileAndNoTemporary) {
  const Writer& w = W();
  WriteText(dir + "/old.xml", "old content");
  fs::create_directories(dir + "/adir");
  std::string bytes;
  EXPECT_EQ(Put(dir + "/adir", "dir", bytes), E_FAIL) << w.name;
  EXPECT_TRUE(fs::is_directory(dir + "/adir")) << w.name;
  EXPECT_EQ(Put(dir + "/old.xml/below.xml", "below", bytes), E_FAIL) << w.name;
  EXPECT_EQ(Put(dir + "/missing/x.xml", "missing", bytes), E_FAIL) << w.name;

  // A disk that fills up halfway: the file size limit binds root too.
  bytes = w.prepare("a text longer than the limit");
  auto previous = std::signal(SIGXFSZ, SIG_IGN);
  rlimit saved{};
  ::getrlimit(RLIMIT_FSIZE, &saved);
  rlimit small = saved;
  small.rlim_cur = 4;
  ::setrlimit(RLIMIT_FSIZE, &small);
  HRESULT hr = w.write(dir + "/old.xml", "a text longer than the limit");
  ::setrlimit(RLIMIT_FSIZE, &saved);
  std::signal(SIGXFSZ, previous);
  EXPECT_EQ(hr, E_FAIL) << w.name;
  EXPECT_EQ(ReadText(dir + "/old.xml"), "old content") << w.name;

  if (::geteuid() != 0) {
    fs::permissions(dir, fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_EQ(Put(dir + "/old.xml", "read-only", bytes), E_FAIL) << w.name;
    fs::permissions(dir, fs::perms::owner_all);
    EXPECT_EQ(ReadText(dir + "/old.xml"), "old content") << w.name;
  }
  EXPECT_EQ(Others(dir, {"old.xml", "adir", "repo"}), std::vector<std::string>()) << w.name;
}

INSTANTIATE_TEST_SUITE_P(EveryWriter, AtomicWrite, testing::Range(0, 4),
                         [](const testing::TestParamInfo<int>& info) { return std::string(kWriters[info.param].name); });

TEST(AtomicWriteUmask, IsNeverChangedWhileAnotherThreadWatches) {
  qeltest::ScratchDir dir;
  mode_t previous = ::umask(027);
  std::atomic<bool> done{false};
  std::atomic<int> reads{0}, changed{0};
  std::thread watcher([&] {
    while (!done) {
      int now = UmaskNow();
      ++reads;
      if (now != 027) ++changed;
    }
  });
  for (int i = 0; i < 300; ++i) {
    std::string path = dir / ("f" + std::to_string(i % 3) + ".xml");
    if (i % 2) fs::remove(path);  // new files too, whose mode comes from the umask
    ASSERT_EQ(ZOLWriteFileAtomically(path.c_str(), "x"), S_OK);
  }
  done = true;
  watcher.join();
  ::umask(previous);
  EXPECT_GT(reads.load(), 0);
  EXPECT_EQ(changed.load(), 0);
}
