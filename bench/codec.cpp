// Decoding and saving a standard text of about 430 KB through the DOM codec, beside a raw libxml2
// parse and dump of the same bytes.
#include <libxml/parser.h>
#include <libxml/tree.h>

#include <string>

#include "QelBenchMain.h"
#include "ZOLAnnStandardXMLParser.h"

namespace {

constexpr size_t kTargetSize = 430 * 1024;

// A text of the dialect shaped like a delivered standard: enumerations and record types first,
// then general parameters, formats as records, and styles nested a few levels deep.
const std::string& StandardText() {
  static const std::string text = [] {
    std::string t = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                    "<std:node xmlns:std=\"http://www.qelstandardinfra.org/std\" name=\"drafting\">\n";
    for (int e = 0; e < 80; ++e) {
      t += "  <std:enumdef name=\"Enum" + std::to_string(e) + "\">\n";
      for (int s = 0; s < 6; ++s) t += "    <std:strval>Choice" + std::to_string(s) + "</std:strval>\n";
      t += "  </std:enumdef>\n";
    }
    for (int d = 0; d < 40; ++d) {
      t += "  <std:typedef name=\"Record" + std::to_string(d) + "\">\n"
           "    <std:strval name=\"Name\">A4 ISO</std:strval>\n"
           "    <std:floatval name=\"Width\">210</std:floatval>\n"
           "    <std:floatval name=\"Height\">297</std:floatval>\n"
           "    <std:intval name=\"Count\">1</std:intval>\n"
           "    <std:enumval name=\"Visible\">Choice1</std:enumval>\n"
           "  </std:typedef>\n";
    }
    t += "  <std:node name=\"Version\">\n    <std:intval>290</std:intval>\n  </std:node>\n"
         "  <std:node name=\"General\">\n";
    for (int p = 0; p < 150; ++p)
      t += "    <std:node name=\"Param" + std::to_string(p) + "\">\n      <std:floatval minval=\"0.0\">" +
           std::to_string(p) + ".25</std:floatval>\n    </std:node>\n";
    t += "  </std:node>\n  <std:node name=\"SheetFormat\">\n";
    for (int f = 0; f < 60; ++f)
      t += "    <std:typeval name=\"Formats\">\n      <std:strval name=\"Name\">Format " + std::to_string(f) +
           "</std:strval>\n      <std:floatval name=\"Width\">1189</std:floatval>\n"
           "      <std:floatval name=\"Height\">841</std:floatval>\n    </std:typeval>\n";
    t += "  </std:node>\n  <std:node name=\"Styles\">\n";
    for (int kind = 0; t.size() < kTargetSize - 4096; ++kind) {
      t += "    <std:node name=\"Kind" + std::to_string(kind) + "\">\n";
      for (int style = 0; style < 3; ++style) {
        t += "      <std:node name=\"" + std::string(style ? "Style" + std::to_string(style) : "Default") + "\">\n";
        for (const char* part : {"Font", "Line", "Fill"}) {
          t += std::string("        <std:node name=\"") + part + "\">\n"
               "          <std:node name=\"Color\">\n            <std:colorval>140 140 140</std:colorval>\n          </std:node>\n"
               "          <std:node name=\"Size\">\n            <std:floatval>3.5</std:floatval>\n          </std:node>\n"
               "          <std:node name=\"Mode\">\n            <std:enumval name=\"Enum3\">Choice2</std:enumval>\n          </std:node>\n"
               "          <std:node name=\"Label\">\n            <std:strval>Text &amp; more</std:strval>\n          </std:node>\n"
               "        </std:node>\n";
        }
        t += "      </std:node>\n";
      }
      t += "    </std:node>\n";
    }
    t += "  </std:node>\n</std:node>\n";
    return t;
  }();
  return text;
}

void Decode(const std::string& text) {
  ZOLAnnStandardXMLParser doc;
  benchmark::DoNotOptimize(doc.DecodeXML(ZOLUnicodeString(text), 0));
}

void DecodeAndSave(const std::string& text) {
  ZOLAnnStandardXMLParser doc;
  doc.DecodeXML(ZOLUnicodeString(text), 0);
  ZOLUnicodeString out;
  doc.SaveInString(out);
  benchmark::DoNotOptimize(out.str().data());
}

void RawParse(const std::string& text) {
  xmlDocPtr doc = xmlReadMemory(text.data(), static_cast<int>(text.size()), "bench", nullptr, XML_PARSE_NONET);
  benchmark::DoNotOptimize(doc);
  xmlFreeDoc(doc);
}

void RawParseAndDump(const std::string& text) {
  xmlDocPtr doc = xmlReadMemory(text.data(), static_cast<int>(text.size()), "bench", nullptr, XML_PARSE_NONET);
  xmlChar* out = nullptr;
  int size = 0;
  xmlDocDumpFormatMemory(doc, &out, &size, 1);
  benchmark::DoNotOptimize(out);
  xmlFree(out);
  xmlFreeDoc(doc);
}

void BM_DecodeXML(benchmark::State& state) {
  const std::string& text = StandardText();
  {
    ZOLAnnStandardXMLParser doc;
    if (doc.DecodeXML(ZOLUnicodeString(text), 0) != 0) state.SkipWithError("decode failed");
  }
  for (auto _ : state) Decode(text);
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.size()));
}
BENCHMARK(BM_DecodeXML)->Unit(benchmark::kMillisecond);

void BM_SaveInString(benchmark::State& state) {
  ZOLAnnStandardXMLParser doc;
  doc.DecodeXML(ZOLUnicodeString(StandardText()), 0);
  size_t size = 0;
  for (auto _ : state) {
    ZOLUnicodeString out;
    doc.SaveInString(out);
    size = out.str().size();
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * size));
}
BENCHMARK(BM_SaveInString)->Unit(benchmark::kMillisecond);

void BM_DecodeAndSave(benchmark::State& state) {
  const std::string& text = StandardText();
  for (auto _ : state) DecodeAndSave(text);
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.size()));
}
BENCHMARK(BM_DecodeAndSave)->Unit(benchmark::kMillisecond);

void BM_RawLibxml2Parse(benchmark::State& state) {
  const std::string& text = StandardText();
  {
    xmlDocPtr doc = xmlReadMemory(text.data(), static_cast<int>(text.size()), "bench", nullptr, XML_PARSE_NONET);
    if (!doc) state.SkipWithError("parse failed");
    xmlFreeDoc(doc);
  }
  for (auto _ : state) RawParse(text);
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.size()));
}
BENCHMARK(BM_RawLibxml2Parse)->Unit(benchmark::kMillisecond);

void BM_RawLibxml2ParseAndDump(benchmark::State& state) {
  const std::string& text = StandardText();
  for (auto _ : state) RawParseAndDump(text);
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.size()));
}
BENCHMARK(BM_RawLibxml2ParseAndDump)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  const std::string& text = StandardText();
  qelbench::Plan plan;
  plan.ratios.push_back({"decode / raw libxml2 parse", qelbench::Loop("decode", [&text] { Decode(text); }),
                         {qelbench::Loop("raw parse", [&text] { RawParse(text); })}});
  plan.ratios.push_back({"decode+save / raw parse+dump", qelbench::Loop("decode+save", [&text] { DecodeAndSave(text); }),
                         {qelbench::Loop("raw parse+dump", [&text] { RawParseAndDump(text); })}});
  return qelbench::Main(argc, argv, plan);
}
