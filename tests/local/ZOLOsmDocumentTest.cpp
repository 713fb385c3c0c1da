// Overriding values survive a save and a reload of the document that holds them, and a document
// file that is not one gives a clear error and no document.
#include <gtest/gtest.h>

#include <string>

#include "LocalTestModel.h"
#include "ZOLFile.h"
#include "ZOLIQelLocalStdManager.h"
#include "ZOLScratch.h"

using localtest::Attribute;
using localtest::LocalModel;
using localtest::Stored;

namespace {

class DocumentFile : public LocalModel {
protected:
  qeltest::ScratchDir dir;
};

// One value set through an element's manager and read back the same way.
struct Row {
  const char* element;
  bool onStyle;
  const char* path;
  int index;  // 0: the plain setter and getter
  double value;
  double readBack;
};

template <class Local>
HRESULT Set(const Local& local, const Row& row) {
  return row.index ? local->SetOverloadedValue(row.path, row.index, row.value) : local->SetOverloadedValue(row.path, row.value);
}

template <class Local>
HRESULT Get(const Local& local, const Row& row, double& value) {
  return row.index ? local->GetOverloadedValue(row.path, row.index, value) : local->GetOverloadedValue(row.path, value);
}

}  // namespace

TEST_F(DocumentFile, LocalValuesOnSeveralViewsSurviveASaveAndReload) {
  ZOLISpecObject_var a = Standard("standard A"), b = Standard("standard B");
  for (auto [kind, name, standard] : {std::tuple{"PCCMemMBDView", "view 1", a.Get()}, {"PCCMemMBDView", "view 2", a.Get()},
                                      {"PCCMemMBDView", "view 3", b.Get()}, {"PCCMemVOTSheet", "sheet", b.Get()},
                                      {"DrwAnnotation", "note", a.Get()}})
    Element(kind, name, standard);
  const Row rows[] = {
      {"view 1", false, "Annotation.Text.LeaderGap", 0, 3.0, 3.0},
      {"view 1", false, "Patterns.coloring.color", 5, 127, 127},
      {"view 2", false, "Annotation.Welding.Overrun", 0, 0.1234567, 0.123457},  // six decimals are kept
      {"view 1", true, "Text.Default.Font.Size", 2, 3.5, 3.5},
      {"view 3", false, "Annotation.Text.LeaderGap", 0, -1.25, -1.25},
      {"sheet", true, "Sheet.A3 ISO.GlobalScale", 0, 0.5, 0.5},
      {"note", false, "Annotation.Roughness.LeaderGap", 0, 0.75, 0.75},
  };
  for (const Row& row : rows) {
    ZOLIQelLocalStdManager_var manager(doc->FindObject(row.element));
    ASSERT_EQ(row.onStyle ? Set(manager->GetLocalStyle(1), row) : Set(manager->GetLocalStandard(1), row), S_OK) << row.path;
  }
  ZOLIQelLocalStdManager_var(doc->FindObject("view 3"))->GetLocalStandard(0)->SetOverloadedValue(
      "View.ViewText.PrimaryViewText.CustomText", std::vector<ZOLUnicodeString>{"A-A", "B-B"});
  const std::string path = dir / "drawing.json";
  std::string error;
  ASSERT_EQ(doc->Save(path.c_str(), error), S_OK) << error;

  ZOLRef<ZOLOsmDocument> reloaded = ZOLOsmDocument::Load(path.c_str(), error);
  ASSERT_TRUE(reloaded) << error;
  ASSERT_EQ(reloaded->GetObjectCount(), doc->GetObjectCount());
  for (const Row& row : rows) {
    ZOLIQelLocalStdManager_var manager(reloaded->FindObject(row.element));
    double value = 0;
    ASSERT_EQ(row.onStyle ? Get(manager->GetLocalStyle(0), row, value) : Get(manager->GetLocalStandard(0), row, value), S_OK)
        << row.element << " " << row.path;
    EXPECT_EQ(value, row.readBack) << row.element << " " << row.path;
  }
  for (int i = 0; i < doc->GetObjectCount(); ++i) {
    EXPECT_STREQ(reloaded->GetObject(i)->GetType(), doc->GetObject(i)->GetType());
    EXPECT_EQ(Stored(reloaded->GetObject(i)), Stored(doc->GetObject(i))) << "object " << i;
  }
  std::string before, after;
  ASSERT_EQ(ZOLReadFile(path.c_str(), before), S_OK);
  ASSERT_EQ(reloaded->Write(after, error), S_OK);
  EXPECT_EQ(after, before) << "a reloaded document writes the same file";
}

TEST_F(DocumentFile, AFileThatIsNoDocumentGivesAClearErrorAndNoDocument) {
  const std::string head = R"({"format":"ZOLOsmDocument","version":1,"objects":)";
  auto objects = [&](const char* list) { return head + list + "}"; };
  struct Case {
    std::string text;
    const char* error;
  } cases[] = {
      {"", "not JSON: "},
      {head + R"([{"type":"QelLocalStandard","name":"","attributes":[]})", "not JSON: "},
      {R"({"format":"Drawing","version":1,"objects":[]})", "document: \"format\" is not \"ZOLOsmDocument\""},
      {R"({"format":"ZOLOsmDocument","version":2,"objects":[]})", "document: \"version\" 2 is not 1"},
      {R"({"format":"ZOLOsmDocument","version":1})", "document: \"objects\" is missing or not an array"},
      {objects(R"([7])"), "objects[0]: not an object"},
      {objects(R"([{"type":"","name":"","attributes":[]}])"), "objects[0]: \"type\" is empty"},
      {objects(R"([{"type":"T","name":"","attributes":[{"name":"a","kind":5}]}])"),
       "objects[0].attributes[0]: \"kind\" 5 is neither 9 (component) nor 18 (string)"},
      {objects(R"([{"type":"T","name":"","attributes":[{"name":"a","kind":18}]}])"),
       "objects[0].attributes[0]: \"text\" is missing or not a string"},
      {objects(R"([{"type":"T","name":"","attributes":[{"name":"a","kind":9,"object":1}]}])"),
       "objects[0].attributes[0]: \"object\" is neither null nor the index of an object"},
      {objects(R"([{"type":"T","name":"","attributes":[{"name":"a","kind":18,"text":""},{"name":"a","kind":9,"object":null}]}])"),
       "objects[0].attributes[1]: \"a\" is given twice"},
  };
  for (const Case& c : cases) {
    std::string error;
    EXPECT_FALSE(ZOLOsmDocument::Read(c.text, error)) << c.text;
    EXPECT_EQ(error.rfind(c.error, 0), 0u) << c.text << "\n  gave: " << error;
  }
  std::string error;
  EXPECT_FALSE(ZOLOsmDocument::Load((dir / "missing.json").c_str(), error));
  EXPECT_EQ(error, dir / "missing.json" + ": cannot be read");
}

TEST_F(DocumentFile, ADocumentThatCannotBeWrittenLeavesTheFileAsItWas) {
  const std::string path = dir / "drawing.json";
  std::string error, before, after;
  ASSERT_EQ(doc->Save(path.c_str(), error), S_OK);
  ASSERT_EQ(ZOLReadFile(path.c_str(), before), S_OK);
  ZOLIQelLocalStandard_var local = NewLocal<ZOLIQelLocalStandard>("QelLocalStandard");
  ASSERT_EQ(local->SetOverloadedValue("View.ViewText.PrimaryViewText.CustomText", ZOLUnicodeString("\xff")), S_OK);
  EXPECT_EQ(doc->Save(path.c_str(), error), E_FAIL);
  EXPECT_EQ(error, "an attribute or a name is no UTF-8 text");
  ASSERT_EQ(ZOLReadFile(path.c_str(), after), S_OK);
  EXPECT_EQ(after, before);
}
