// The read-only standard object: its one-pass load against a bare SAX parse of the same text, its
// reads of one hot key and of every filed key in turn, and a cached read against an XPath query on a
// DOM of the same text.
#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <malloc.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "QelBenchMain.h"
#include "ZOLDftBuiltinStandards.h"
#include "ZOLDftStandardServices.h"
#include "ZOLXMLSAX.h"

#if __has_include(<pugixml.hpp>) && defined(QELSTD_BENCH_PUGIXML)
#include <pugixml.hpp>
#define QELSTD_HAVE_PUGIXML 1
#endif

namespace {

const char* const kStandards[] = {"ISO", "ANSI-ASME", "JIS"};

const ZOLUnicodeString& Text(const char* name) {
  static std::string empty;
  const ZOLUnicodeString* text = ZOLDftBuiltinStandards::GetText(name);
  if (!text) {
    std::fprintf(stderr, "no built-in text %s\n", name);
    std::exit(2);
  }
  return *text;
}

// The floor of a load: libxml2 parsing the same bytes with callbacks that do nothing, driven two
// ways. The push parser is how the platform reader drives it (same options, the whole text as one
// chunk, the same callbacks set); the pull parser over the same memory is a few per cent faster,
// and the faster of the two is the floor. No copy of the text: the load reads it in place too.
void NoStartDocument(void*) {}
void NoStart(void*, const xmlChar*, const xmlChar*, const xmlChar*, int, const xmlChar**, int, int, const xmlChar**) {}
void NoEnd(void*, const xmlChar*, const xmlChar*, const xmlChar*) {}
void NoText(void*, const xmlChar*, int) {}
void NoInstruction(void*, const xmlChar*, const xmlChar*) {}
void NoError(void*, xmlErrorPtr) {}

const xmlSAXHandler& NoOpSax() {
  static const xmlSAXHandler sax = [] {
    xmlSAXHandler h{};
    h.initialized = XML_SAX2_MAGIC;
    h.startDocument = NoStartDocument;
    h.endDocument = NoStartDocument;
    h.startElementNs = NoStart;
    h.endElementNs = NoEnd;
    h.characters = NoText;
    h.cdataBlock = NoText;
    h.ignorableWhitespace = NoText;
    h.processingInstruction = NoInstruction;
    h.serror = NoError;
    return h;
  }();
  return sax;
}

int Finish(xmlParserCtxtPtr ctxt) {
  const int wellFormed = ctxt->wellFormed;
  if (ctxt->myDoc) xmlFreeDoc(ctxt->myDoc);
  xmlFreeParserCtxt(ctxt);
  return wellFormed;
}

int RawPushParse(const std::string& text) {
  xmlParserCtxtPtr ctxt = xmlCreatePushParserCtxt(const_cast<xmlSAXHandler*>(&NoOpSax()), nullptr, nullptr, 0, "fileID");
  xmlCtxtUseOptions(ctxt, XML_PARSE_NONET | XML_PARSE_NOENT);
  xmlParseChunk(ctxt, text.data(), static_cast<int>(text.size()), 0);
  xmlParseChunk(ctxt, nullptr, 0, 1);
  return Finish(ctxt);
}

int RawPullParse(const std::string& text) {
  xmlParserCtxtPtr ctxt = xmlCreateMemoryParserCtxt(text.data(), static_cast<int>(text.size()));
  // The context owns a handler of its own: fill it rather than swap the pointer.
  *ctxt->sax = NoOpSax();
  ctxt->userData = nullptr;
  xmlCtxtUseOptions(ctxt, XML_PARSE_NONET | XML_PARSE_NOENT);
  xmlParseDocument(ctxt);
  return Finish(ctxt);
}

void BM_RawPushParse(benchmark::State& state, const char* name) {
  const std::string& text = Text(name).str();
  for (auto _ : state) benchmark::DoNotOptimize(RawPushParse(text));
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(text.size()));
}

void BM_RawPullParse(benchmark::State& state, const char* name) {
  const std::string& text = Text(name).str();
  for (auto _ : state) benchmark::DoNotOptimize(RawPullParse(text));
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(text.size()));
}

// The platform's reader with handlers that do nothing: what the load pays for the reader alone.
class EmptyHandler : public ZOLISAXContentHandler {
public:
  int StartDocument() override { return 0; }
  int EndDocument() override { return 0; }
  int StartElement(std::string_view, std::string_view, std::string_view, const ZOLISAXAttributes&) override { return 0; }
  int EndElement(std::string_view, std::string_view, std::string_view) override { return 0; }
  int Characters(std::string_view) override { return 0; }
  int IgnorableWhitespace(std::string_view) override { return 0; }
  int ProcessingInstruction(std::string_view, std::string_view) override { return 0; }
  int SetDocumentLocator(int, int) override { return 0; }
  int SkippedEntity(std::string_view) override { return 0; }
  int StartPrefixMapping(std::string_view, std::string_view) override { return 0; }
  int EndPrefixMapping(std::string_view) override { return 0; }
};

HRESULT PlatformParse(const std::string& text, EmptyHandler& handler) {
  std::unique_ptr<ZOLIXMLSAX2Factory> factory;
  CreateZOLIXMLSAX2Factory(factory);
  std::unique_ptr<ZOLIXMLInputSource> source;
  factory->CreateInputSourceOverText(text, "fileID", source);
  std::unique_ptr<ZOLISAXXMLReader> reader;
  factory->CreateReader(reader);
  reader->SetContentHandler(&handler);
  return reader->Parse(*source);
}

void BM_PlatformSaxParse(benchmark::State& state, const char* name) {
  const std::string& text = Text(name).str();
  EmptyHandler handler;
  for (auto _ : state) benchmark::DoNotOptimize(PlatformParse(text, handler));
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(text.size()));
}

void Load(const char* name) {
  ZOLIDrwStandard_var s = ZOLDftStandardServices::GetStandardFromBuffer(&Text(name), name);
  benchmark::DoNotOptimize(s.Get());
}

size_t HeapInUse() {
  struct mallinfo2 m = mallinfo2();
  return m.uordblks + m.hblkhd;
}

// What one loaded standard keeps on the heap.
size_t KeptHeapBytes(const char* name) {
  size_t before = HeapInUse();
  ZOLIDrwStandard_var kept = ZOLDftStandardServices::GetStandardFromBuffer(&Text(name), name);
  return HeapInUse() - before;
}

void BM_LoadTransient(benchmark::State& state, const char* name) {
  const ZOLUnicodeString& text = Text(name);
  for (auto _ : state) Load(name);
  // Measured once outside the timed loop.
  const size_t kept = KeptHeapBytes(name);
  state.counters["heap_bytes"] = static_cast<double>(kept);
  state.counters["heap_per_text_byte"] = static_cast<double>(kept) / text.GetLengthInChar();
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(text.GetLengthInChar()));
}

ZOLIDrwStandard* Iso() {
  static ZOLIDrwStandard_var iso = ZOLDftStandardServices::GetStandardFromBuffer(&Text("ISO"), "ISO");
  return iso;
}

// One hot key of each kind, read again and again: the cost of a read whose key the caches already
// hold and whose hash and bucket the processor has seen.
constexpr const char* kHotInt = "Curve.Default.Thickness";
constexpr const char* kHotReal = "Text.Default.Font.Size";
constexpr const char* kHotString = "Dimension.ParentStandard";
constexpr const char* kHotColor = "Curve.Default.Color";

void ReadInt() {
  int v = 0;
  Iso()->GetValue(kHotInt, 1, v);
  benchmark::DoNotOptimize(v);
}

void ReadReal() {
  double v = 0;
  Iso()->GetValue(kHotReal, 1, v);
  benchmark::DoNotOptimize(v);
}

void ReadString() {
  // Kept across reads, as a caller's member would be: the assignment reuses its buffer.
  static ZOLUnicodeString v;
  Iso()->GetValue(kHotString, 1, v);
  benchmark::DoNotOptimize(v.str().data());
}

void ReadColor() {
  int rgb[3] = {};
  int count = 0;
  Iso()->GetValue(kHotColor, rgb, &count);
  benchmark::DoNotOptimize(rgb);
}

void ReadMiss() {
  int v = 0;
  // Not filed, not found: the walk runs on every call.
  benchmark::DoNotOptimize(Iso()->GetValue("Text.Default.Font.NoSuchValue", 1, v));
}

// Every scalar value a standard files, each read once per pass, so that no read finds its key's
// hash, bucket or text still warm from the read before.
struct ColdKey {
  enum Kind { Int, Real, String } kind;
  std::string path;
  int index;
};

std::vector<ColdKey> ColdKeys(ZOLIDrwStandard* s) {
  ZOLListValZOLUnicodeString keys, kinds, values;
  std::vector<ColdKey> out;
  if (ZOLDftStandardServices::ListFiledValues(s, "", keys, kinds, values) != S_OK) return out;
  for (int i = 1; i <= keys.Size(); ++i) {
    const std::string& key = keys[i].str();
    const std::string& kind = kinds[i].str();
    ColdKey k;
    if (kind == "integer") k.kind = ColdKey::Int;
    else if (kind == "real") k.kind = ColdKey::Real;
    else if (kind == "string" || kind == "enum") k.kind = ColdKey::String;
    else continue;
    const size_t dot = key.rfind('.');
    if (dot == std::string::npos) continue;
    k.path = key.substr(0, dot);
    k.index = std::atoi(key.c_str() + dot + 1);
    out.push_back(std::move(k));
  }
  return out;
}

// Reads every key once; the number of reads that found their value.
int ReadAll(ZOLIDrwStandard* s, const std::vector<ColdKey>& keys) {
  static ZOLUnicodeString text;
  int found = 0;
  for (const ColdKey& k : keys) {
    HRESULT hr;
    if (k.kind == ColdKey::Int) {
      int v = 0;
      hr = s->GetValue(k.path.c_str(), k.index, v);
      benchmark::DoNotOptimize(v);
    } else if (k.kind == ColdKey::Real) {
      double v = 0;
      hr = s->GetValue(k.path.c_str(), k.index, v);
      benchmark::DoNotOptimize(v);
    } else {
      hr = s->GetValue(k.path.c_str(), k.index, text);
      benchmark::DoNotOptimize(text.str().data());
    }
    found += hr == S_OK;
  }
  return found;
}

const std::vector<ColdKey>& IsoColdKeys() {
  static const std::vector<ColdKey> keys = [] {
    std::vector<ColdKey> k = ColdKeys(Iso());
    const int found = ReadAll(Iso(), k);
    if (k.empty() || found != static_cast<int>(k.size())) {
      std::fprintf(stderr, "cold keys: %d of %zu filed values read back\n", found, k.size());
      std::exit(2);
    }
    return k;
  }();
  return keys;
}

template <void (*Read)()>
void BM_Read(benchmark::State& state) {
  for (auto _ : state) Read();
}

void BM_GetColdKeys(benchmark::State& state) {
  const std::vector<ColdKey>& keys = IsoColdKeys();
  for (auto _ : state) benchmark::DoNotOptimize(ReadAll(Iso(), keys));
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(keys.size()));
}

#ifdef QELSTD_HAVE_PUGIXML
struct XPath {
  pugi::xml_document doc;
  pugi::xpath_query query{
      "/std:node/std:node[@name='Styles']/std:node[@name='Text']/std:node[@name='Default']"
      "/std:node[@name='Font']/std:node[@name='Size']/std:floatval"};
  XPath() {
    const std::string& text = Text("ISO").str();
    doc.load_buffer(text.data(), text.size());
  }
  double Evaluate() const { return query.evaluate_node(doc).node().text().as_double(); }
};

const XPath& IsoXPath() {
  static const XPath xpath;
  return xpath;
}

void BM_PugiXPathQuery(benchmark::State& state) {
  if (IsoXPath().Evaluate() != 3.5) state.SkipWithError("query gives another value");
  for (auto _ : state) benchmark::DoNotOptimize(IsoXPath().Evaluate());
}
BENCHMARK(BM_PugiXPathQuery);
#endif

}  // namespace

BENCHMARK_CAPTURE(BM_RawPushParse, ISO, "ISO")->Name("BM_RawPushParse/ISO")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_RawPushParse, ANSI-ASME, "ANSI-ASME")->Name("BM_RawPushParse/ANSI-ASME")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_RawPushParse, JIS, "JIS")->Name("BM_RawPushParse/JIS")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_RawPullParse, ISO, "ISO")->Name("BM_RawPullParse/ISO")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_RawPullParse, ANSI-ASME, "ANSI-ASME")->Name("BM_RawPullParse/ANSI-ASME")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_RawPullParse, JIS, "JIS")->Name("BM_RawPullParse/JIS")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_PlatformSaxParse, ISO, "ISO")->Name("BM_PlatformSaxParse/ISO")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_LoadTransient, ISO, "ISO")->Name("BM_LoadTransient/ISO")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_LoadTransient, ANSI-ASME, "ANSI-ASME")->Name("BM_LoadTransient/ANSI-ASME")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_LoadTransient, JIS, "JIS")->Name("BM_LoadTransient/JIS")->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Read<ReadInt>)->Name("BM_GetIntCached");
BENCHMARK(BM_Read<ReadReal>)->Name("BM_GetDoubleCached");
BENCHMARK(BM_Read<ReadString>)->Name("BM_GetStringCached");
BENCHMARK(BM_Read<ReadColor>)->Name("BM_GetColorCached");
BENCHMARK(BM_GetColdKeys)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Read<ReadMiss>)->Name("BM_GetMiss");

namespace {

// One parse and one load of each text before any benchmark, so that the first timed one finds the
// heap grown.
void SettleAllocator() {
  qelbench::KeepHeap();
  for (const char* name : kStandards) {
    RawPushParse(Text(name).str());
    RawPullParse(Text(name).str());
    Load(name);
  }
}

qelbench::Ratio LoadOverRaw(const char* name) {
  const std::string& text = Text(name).str();
  return {std::string("load / raw parse, ") + name,
          qelbench::Loop("load", [name] { Load(name); }),
          {qelbench::Loop("push", [&text] { benchmark::DoNotOptimize(RawPushParse(text)); }),
           qelbench::Loop("pull", [&text] { benchmark::DoNotOptimize(RawPullParse(text)); })},
          1.3};
}

qelbench::Plan MakePlan() {
  qelbench::Plan plan;
  for (const char* name : kStandards) plan.ratios.push_back(LoadOverRaw(name));
  const std::string& iso = Text("ISO").str();
  static EmptyHandler handler;
  plan.ratios.push_back({"platform reader / raw parse, ISO",
                         qelbench::Loop("reader", [&iso] { benchmark::DoNotOptimize(PlatformParse(iso, handler)); }),
                         LoadOverRaw("ISO").denominators});
#ifdef QELSTD_HAVE_PUGIXML
  plan.ratios.push_back({"cached real / XPath query", qelbench::Loop("cached real", ReadReal),
                         {qelbench::Loop("XPath", [] { benchmark::DoNotOptimize(IsoXPath().Evaluate()); })}});
#endif
  plan.ratios.push_back({"miss / cached real", qelbench::Loop("miss", ReadMiss), {qelbench::Loop("cached real", ReadReal)}});
  plan.figures.push_back({"hot read, int", qelbench::Loop("int", ReadInt), 25});
  plan.figures.push_back({"hot read, real", qelbench::Loop("real", ReadReal), 25});
  plan.figures.push_back({"hot read, string", qelbench::Loop("string", ReadString), 25});
  plan.figures.push_back({"hot read, colour", qelbench::Loop("colour", ReadColor), 25});
  const std::vector<ColdKey>& keys = IsoColdKeys();
  plan.figures.push_back({"cold-key read, ISO (" + std::to_string(keys.size()) + " keys)",
                          qelbench::Loop("cold", [&keys] { benchmark::DoNotOptimize(ReadAll(Iso(), keys)); },
                                         static_cast<double>(keys.size()))});
  // No target: it shows how fast this machine runs a hot hash lookup right now. When the hot reads
  // miss and this one is slow alike, the core was shared (the CPU clock cannot tell).
  static const std::unordered_map<std::string, int> reference = [&keys] {
    std::unordered_map<std::string, int> map;
    for (const ColdKey& k : keys) map.emplace(k.path + "." + std::to_string(k.index), k.index);
    return map;
  }();
  static const std::string referenceKey = std::string(kHotInt) + ".1";
  plan.figures.push_back({"reference: std::unordered_map hit",
                          qelbench::Loop("reference", [] { benchmark::DoNotOptimize(reference.find(referenceKey)->second); })});
  plan.report = [](FILE* out) {
    for (const char* name : kStandards) {
      const double perByte = static_cast<double>(KeptHeapBytes(name)) / Text(name).GetLengthInChar();
      std::fprintf(out, "memory %-40s %#9.4g  (target <= 4: %s)\n", (std::string("heap bytes per text byte, ") + name).c_str(),
                   perByte, perByte <= 4 ? "met" : "MISSED");
    }
  };
  return plan;
}

}  // namespace

int main(int argc, char** argv) {
  SettleAllocator();
  return qelbench::Main(argc, argv, MakePlan());
}
