// qelstd report, read back as a browser reads it: headless Chromium loads each page from a file
// (no network) and gives back its DOM, in which every drawing is counted against the lists of the
// standard as the library decodes them.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "QelstdRun.h"
#include "ZOLAnnStandardXMLNode.h"
#include "ZOLAnnStandardXMLParser.h"
#include "ZOLScratch.h"

namespace fs = std::filesystem;

namespace {

// The browser on the PATH, empty when none.
std::string Chromium() {
  const char* path = std::getenv("PATH");
  std::stringstream dirs(path ? path : "");
  for (std::string dir; std::getline(dirs, dir, ':');)
    for (const char* name : {"chromium", "chromium-browser"})
      if (std::error_code ec; fs::is_regular_file(fs::path(dir) / name, ec)) return (fs::path(dir) / name).string();
  return {};
}

#define REQUIRE_CHROMIUM()                                                                                  \
  QELSTD_REQUIRE_BINARY();                                                                                  \
  if (Chromium().empty())                                                                                   \
  GTEST_SKIP() << "chromium is not installed (Debian package chromium, installed by make test): the "      \
                  "reports are not read back"

// A headless browser started on a page at once, read when asked: several run side by side.
class Browser {
public:
  Browser(const std::string& page, const std::string& profile, const std::string& action) {
    const std::string command = "'" + Chromium() + "' --headless --no-sandbox --disable-gpu --no-first-run "
                                "--disable-background-networking --disable-component-update --disable-sync "
                                "--user-data-dir='" + profile + "' " + action + " 'file://" + page + "' 2>/dev/null";
    _pipe = popen(command.c_str(), "r");
  }
  ~Browser() {
    if (_pipe) pclose(_pipe);
  }
  Browser(const Browser&) = delete;
  Browser& operator=(const Browser&) = delete;
  /// What the browser wrote on its standard output, once it has ended.
  std::string Output() {
    std::string out;
    char buffer[1 << 16];
    for (size_t n; _pipe && (n = fread(buffer, 1, sizeof buffer, _pipe)) > 0;) out.append(buffer, n);
    if (_pipe) pclose(_pipe);
    _pipe = nullptr;
    return out;
  }

private:
  FILE* _pipe = nullptr;
};

size_t Count(std::string_view text, std::string_view what) {
  size_t n = 0;
  for (size_t at = text.find(what); at != std::string_view::npos; at = text.find(what, at + what.size())) ++n;
  return n;
}

// The number of entries of each list that the page must draw, as the library decodes the file.
struct Lists {
  size_t lineTypes = 0, hatchings = 0, dottings = 0, colorings = 0, thicknesses = 0, symbols = 0, sheetFormats = 0;
};

size_t SubNodes(ZOLAnnStandardXMLParser& p, const char* path) {
  ZOLAnnStandardXMLNode* n = p.Root()->FindNodeWithPath(path, 1);
  return n ? n->SubNodes().size() : 0;
}

Lists ListsOf(const std::string& file) {
  ZOLAnnStandardXMLParser p;
  EXPECT_EQ(p.DecodeXML(ZOLUnicodeString(file), 1), 0) << file;
  Lists l;
  if (ZOLAnnStandardXMLNode* lt = p.Root()->FindNodeWithPath("LineTypes", 1))
    for (const ZOLAnnStandardXMLNode* n : lt->SubNodes()) l.lineTypes += n->Name().str().rfind("LineType", 0) == 0;
  l.hatchings = SubNodes(p, "Patterns.hatching");
  l.dottings = SubNodes(p, "Patterns.dotting");
  l.colorings = SubNodes(p, "Patterns.coloring");
  l.thicknesses = SubNodes(p, "LineThickness");
  l.symbols = SubNodes(p, "EngineeringSymbols");
  l.sheetFormats = SubNodes(p, "SheetFormat");
  return l;
}

void ExpectEveryEntryDrawn(const std::string& dom, const Lists& l, const std::string& what) {
  const std::pair<const char*, size_t> kinds[] = {
      {"linetype", l.lineTypes}, {"hatching", l.hatchings},   {"dotting", l.dottings},         {"coloring", l.colorings},
      {"thickness", l.thicknesses}, {"symbol", l.symbols}, {"sheetformat", l.sheetFormats}};
  for (const auto& [kind, expected] : kinds) {
    EXPECT_GT(expected, 0u) << what << ": the standard has no " << kind;
    EXPECT_EQ(Count(dom, std::string("data-drawing=\"") + kind + "\""), expected) << what << ": " << kind;
  }
}

std::string Env(const qeltest::ScratchDir& dir) {
  return "env -u ZOLCollectionStandard -u ZOLDefaultCollectionStandard ADL_ODT_OUT='" + dir.Path() + "'";
}

}  // namespace

TEST(QelstdReport, EveryLineTypePatternThicknessSymbolAndSheetFormatOfEachBuiltInStandardIsDrawn) {
  REQUIRE_CHROMIUM();
  qeltest::ScratchDir dir;
  const char* const names[] = {"ISO", "JIS", "ANSI-ASME"};
  // A picture of the ISO page for a person to look at, taken in the same run; the test does not read it.
  const std::string shot = std::string(QELSTD_TEST_OUTPUT_DIR) + "/report-ISO.png";
  fs::remove(shot);
  std::vector<std::unique_ptr<Browser>> browsers;
  for (const char* name : names) {
    const std::string page = dir / (std::string(name) + ".html");
    QelstdRun run = RunQelstd(std::string("report ") + name + " -o '" + page + "'", Env(dir));
    ASSERT_EQ(run.status, 0) << name << ": " << run.out;
    const std::string action = browsers.empty() ? "--window-size=1280,2400 --screenshot='" + shot + "' --dump-dom" : "--dump-dom";
    browsers.push_back(std::make_unique<Browser>(page, dir / (std::string("profile-") + name), action));
  }
  for (size_t i = 0; i < browsers.size(); ++i) {
    const std::string dom = browsers[i]->Output();
    ASSERT_NE(dom.find("</html>"), std::string::npos) << names[i] << ": the browser gave no page";
    ExpectEveryEntryDrawn(dom, ListsOf(dir / (std::string(names[i]) + ".xml")), names[i]);
    EXPECT_NE(dom.find(std::string("<td id=\"parent\">") + (i == 2 ? "ANSI" : names[i]) + "</td>"), std::string::npos);
    EXPECT_NE(dom.find("<td id=\"level\">280</td>"), std::string::npos) << names[i];
  }
  EXPECT_TRUE(fs::exists(shot)) << shot;
}

TEST(QelstdReport, MarkupInTheTextsOfAStandardReadsAsText) {
  QELSTD_REQUIRE_BINARY();
  qeltest::ScratchDir dir;
  ASSERT_EQ(RunQelstd("builtin ISO -o '" + dir / "ISO.xml" + "'").status, 0);
  std::string text = qeltest::ReadText(dir / "ISO.xml");
  // A sheet format (with the style that names it), a hatching, a symbol and a filed string.
  const std::pair<std::string, std::string> edits[] = {
      {"A4 ISO", "&lt;marquee&gt;A4 &amp;amp; co&lt;/marquee&gt;"},
      {">STD 5<", ">&lt;img id=\"injected\" src=\"x\"&gt;<"},
      {"&lt;DIAMETER>", "&lt;/figcaption&gt;&lt;marquee&gt;"},
      {"<std:strval>Default</std:strval>", "<std:strval>&lt;/td&gt;&lt;marquee&gt;</std:strval>"}};
  for (const auto& [from, to] : edits) {
    ASSERT_NE(text.find(from), std::string::npos) << from;
    for (size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) text.replace(at, from.size(), to);
  }
  const std::string file = dir / "Marked.xml", page = dir / "Marked.html";
  qeltest::WriteText(file, text);
  ASSERT_EQ(RunQelstd("report '" + file + "' -o '" + page + "'", Env(dir)).status, 0);
  // As the page is written, then as a browser reads it.
  const std::string html = qeltest::ReadText(page);
  for (const std::string& dom : {html, Chromium().empty() ? html : Browser(page, dir / "profile", "--dump-dom").Output()}) {
    ASSERT_NE(dom.find("</html>"), std::string::npos);
    EXPECT_EQ(Count(dom, "<marquee"), 0u);
    EXPECT_EQ(Count(dom, "<img"), 0u);
    EXPECT_GT(Count(dom, "&lt;marquee&gt;A4 &amp;amp; co&lt;/marquee&gt;"), 0u);
    EXPECT_GT(Count(dom, "&lt;/figcaption&gt;&lt;marquee&gt;"), 0u);
    EXPECT_GT(Count(dom, "&lt;/td&gt;&lt;marquee&gt;"), 0u);
    ExpectEveryEntryDrawn(dom, ListsOf(file), "marked ISO");
  }
  // The page escapes quotes too; a browser writes them back plain in text.
  EXPECT_GT(Count(html, "&lt;img id=&quot;injected&quot; src=&quot;x&quot;&gt;"), 0u);
  if (Chromium().empty()) GTEST_SKIP() << "chromium is not installed: the page was checked as written only";
}

TEST(QelstdReport, AnOutputThatCannotBeWrittenEndsWithStatusOneAndLeavesNoFile) {
  QELSTD_REQUIRE_BINARY();
  qeltest::ScratchDir dir;
  const QelstdRun run = RunQelstd("report ISO -o '" + dir / "missing/ISO.html" + "' 2>&1", Env(dir));
  EXPECT_EQ(run.status, 1);
  EXPECT_NE(run.out.find("qelstd: " + dir / "missing/ISO.html" + ": cannot be written"), std::string::npos) << run.out;
  EXPECT_FALSE(fs::exists(dir / "missing"));
}
