// Entities and namespaces at the level of a standard: the DOM codec and the standard object refuse
// a document that declares entities, and both go by namespace, not by prefix.
#include <gtest/gtest.h>

#include <string>

#include "ZOLAnnStandardXMLParser.h"
#include "ZOLDftStandardServices.h"
#include "ZOLDftStdNamespace.h"
#include "ZOLReportCountTest.h"
#include "ZOLScratch.h"
#include "ZOLXMLDOM.h"
#include "document/ZOLAnnStandardXMLParserDOMCodec.h"

namespace {

const std::string kNs(ZOLDftStdNamespaceURI);

// A standard whose node name refers count times to one entity of size bytes.
std::string Amplifier(size_t size, int count) {
  std::string refs;
  for (int i = 0; i < count; ++i) refs += "&e;";
  return "<?xml version=\"1.0\"?>\n<!DOCTYPE std:node [<!ENTITY e \"" + std::string(size, 'x') + "\">]>\n<std:node xmlns:std=\"" +
         kNs + "\" name=\"drafting\"><std:node name=\"" + refs + "\"><std:intval>1</std:intval></std:node></std:node>";
}

// What the codec's trace said while decoding source.
int DecodeTraced(ZOLAnnStandardXMLParser& p, const std::string& source, int isFile, std::string& trace) {
  ZOLTrace& t = ZOLAnnStandardXMLParserDOMCodec::Trace();
  bool was = t.IsActive();
  t.Activate(true);
  testing::internal::CaptureStderr();
  int result = p.DecodeXML(ZOLUnicodeString(source), isFile);
  trace = testing::internal::GetCapturedStderr();
  t.Activate(was);
  return result;
}

class StandardEntities : public ZOLReportCountTest {};

}  // namespace

TEST_F(StandardEntities, AmplifierIsRefusedByTheCodecAndTheStandardObjectWithTheEntitysName) {
  const std::string text = Amplifier(1024, 1000);
  qeltest::ScratchDir dir;
  const std::string path = dir / "amplifier.xml";
  qeltest::WriteText(path, text);
  const std::string message = ZOLXMLEntityDeclaredMessage("e");
  for (int isFile : {1, 0}) {
    ZOLAnnStandardXMLParser p;
    std::string trace;
    EXPECT_EQ(DecodeTraced(p, isFile ? path : text, isFile, trace), 1);
    EXPECT_EQ(p.Root()->GetNumOfNode(), 0);
    EXPECT_NE(trace.find("BuildDocument failed\n"), std::string::npos) << trace;
    EXPECT_NE(trace.find(":2: " + message + "\n"), std::string::npos) << trace;
  }
  // The standard object stops at the declaration: nothing of the document is filed.
  ZOLIDrwStandard_var fromFile = ZOLDftStandardServices::GetStandardFromFile(ZOLUnicodeString(path), "Amplifier");
  ZOLUnicodeString textCopy(text);
  ZOLIDrwStandard_var fromText = ZOLDftStandardServices::GetStandardFromBuffer(&textCopy, "Amplifier");
  EXPECT_TRUE(fromFile);
  EXPECT_TRUE(fromText);
  reports = 2;
  EXPECT_EQ(r.CountContaining("Load of the standard failed"), 2);
}

TEST_F(StandardEntities, PredefinedEntitiesAndCharacterReferencesStillRead) {
  const std::string text = "<std:node xmlns:std=\"" + kNs + "\" name=\"drafting\"><std:node name=\"A&amp;B&#x43;\">"
                           "<std:strval>&lt;&gt;&amp;&apos;&quot;&#233;&#x1F600;</std:strval></std:node></std:node>";
  ZOLAnnStandardXMLParser p;
  ASSERT_EQ(p.DecodeXML(ZOLUnicodeString(text), 0), 0);
  EXPECT_EQ(p.GetValueWithPath("Root.A&BC").str(), "<>&'\"\xc3\xa9\xf0\x9f\x98\x80");
  ZOLUnicodeString copy(text);
  ZOLIDrwStandard_var s = ZOLDftStandardServices::GetStandardFromBuffer(&copy, "Plain");
  ZOLUnicodeString value;
  ASSERT_EQ(s->GetValue("A&BC", 1, value), S_OK);
  EXPECT_EQ(value.str(), "<>&'\"\xc3\xa9\xf0\x9f\x98\x80");
}

TEST_F(StandardEntities, TheCodecGoesByNamespaceNotByPrefix) {
  struct Case {
    std::string text;
    int decode;
    const char* tree;  // the names under Root, on success
  };
  const std::string ns = "\"" + kNs + "\"";
  const Case cases[] = {
      // The dialect's namespace under another prefix, or as the default namespace.
      {"<q:node xmlns:q=" + ns + " name=\"drafting\"><q:node name=\"A\"><q:intval>1</q:intval></q:node></q:node>", 0, "A"},
      {"<node xmlns=" + ns + " name=\"drafting\"><node name=\"A\"><intval>1</intval></node></node>", 0, "A"},
      // The std prefix bound to a foreign namespace: at the top refused, below skipped.
      {"<std:node xmlns:std=\"urn:other/std\" name=\"drafting\"><std:node name=\"A\"><std:intval>1</std:intval></std:node></std:node>",
       1, ""},
      {"<q:node xmlns:q=" + ns + " xmlns:std=\"urn:other/std\" name=\"drafting\"><std:node name=\"A\"><std:intval>1</std:intval>"
       "</std:node><q:node name=\"B\"><q:intval>2</q:intval></q:node></q:node>",
       0, "B"},
      // Another document element of the dialect, or one of no namespace.
      {"<std:typeval xmlns:std=" + ns + " name=\"drafting\"/>", 1, ""},
      {"<node name=\"drafting\"/>", 1, ""},
  };
  int refused = 0;
  for (const Case& c : cases) {
    ZOLAnnStandardXMLParser p;
    EXPECT_EQ(p.DecodeXML(ZOLUnicodeString(c.text), 0), c.decode) << c.text;
    std::string names;
    for (auto* n : p.Root()->SubNodes()) names += n->Name().str();
    EXPECT_EQ(names, c.tree) << c.text;
    refused += c.decode;
  }
  reports = refused;
  EXPECT_EQ(r.CountContaining("Invalid standard"), refused);
}
