// SAX2 reader over libxml2's push parser.
//
// Safety: no network and no DTD loading. A document that declares an entity is refused at the
// declaration, as the DOM builder refuses it, and any reference to an undeclared entity is fatal,
// so only the predefined entities and character references expand. That rules out external
// entities and expansion bombs alike, whatever the size of the input.
#include "ZOLXMLSAX.h"
#include "detail/ZOLXMLSAXLean.h"

#include <libxml/parser.h>
#include <libxml/parserInternals.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <exception>
#include <type_traits>
#include <utility>
#include <vector>

#include "ZOLXMLDOM.h"

namespace {

constexpr size_t kChunk = 64 * 1024;
constexpr size_t kTextChunk = 1024 * 1024;

std::string_view View(const xmlChar* s) {
  return s ? std::string_view(reinterpret_cast<const char*>(s)) : std::string_view();
}

// True when the C string s is exactly text; reads s no further than its terminator.
bool SameText(const xmlChar* s, std::string_view text) {
  if (!s) return text.empty();
  for (char c : text)
    if (static_cast<char>(*s++) != c || c == '\0') return false;
  return *s == 0;
}

// The attribute name that a handler asked for last, with the parser's interned pointers of its
// local name and prefix: a handler asks for the same attribute of every element, and the next
// lookup then compares pointers instead of texts. Only names that the parser's dictionary owns
// are remembered, since those stay put and unchanged for the whole parse.
struct AttributeMemo {
  std::string qualifiedName;
  const xmlChar* local = nullptr;
  const xmlChar* prefix = nullptr;
  xmlDictPtr dict = nullptr;
};

// Equality of short texts without a library call.
bool SameText(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i)
    if (a[i] != b[i]) return false;
  return true;
}

// libxml2 hands attributes as five pointers each: local name, prefix, URI, value, value end.
class Attributes final : public ZOLISAXAttributes {
public:
  Attributes(const xmlChar** attrs, int count, AttributeMemo& memo) : _attrs(attrs), _count(count), _memo(memo) {}

  int GetValue(std::string_view qualifiedName, std::string_view& value) const override {
    if (_count == 0) return 0;
    const bool remembered = _memo.local && SameText(qualifiedName, _memo.qualifiedName);
    std::string_view prefix, local;
    bool split = false;
    for (int i = 0; i < _count; ++i) {
      const xmlChar** a = _attrs + 5 * i;
      if (remembered && a[0] == _memo.local && a[1] == _memo.prefix) return Take(a, value);
      if (!split) {
        split = true;
        size_t colon = qualifiedName.find(':');
        prefix = colon == std::string_view::npos ? std::string_view() : qualifiedName.substr(0, colon);
        local = colon == std::string_view::npos ? qualifiedName : qualifiedName.substr(colon + 1);
      }
      if (!SameText(a[0], local) || !SameText(a[1], prefix)) continue;
      const bool interned = _memo.dict && xmlDictOwns(_memo.dict, a[0]) == 1 && (!a[1] || xmlDictOwns(_memo.dict, a[1]) == 1);
      _memo.qualifiedName.assign(qualifiedName);
      _memo.local = interned ? a[0] : nullptr;
      _memo.prefix = a[1];
      return Take(a, value);
    }
    return 0;
  }
  int GetLength() const override { return _count; }

private:
  static int Take(const xmlChar** a, std::string_view& value) {
    value = std::string_view(reinterpret_cast<const char*>(a[3]), static_cast<size_t>(a[4] - a[3]));
    return 1;
  }

  const xmlChar** _attrs;
  int _count;
  AttributeMemo& _memo;
};

// Element names as the handlers get them, remembered by the parser's interned name pointers so
// that an element costs no string building. Only names that the parser's dictionary owns are
// remembered: those stay put and unchanged for the whole parse.
class ElementNames {
public:
  struct Names {
    std::string_view uri, local, qualified;
  };

  void Reset(xmlDictPtr dict) {
    _dict = dict;
    for (Entry& e : _entries) e.local = nullptr;
  }

  const Names& Get(const xmlChar* local, const xmlChar* prefix, const xmlChar* uri) {
    uint64_t key = reinterpret_cast<uintptr_t>(local) ^ (reinterpret_cast<uintptr_t>(prefix) << 1) ^
                   (reinterpret_cast<uintptr_t>(uri) << 2);
    size_t home = static_cast<size_t>((key * 0x9E3779B97F4A7C15ull) >> 58);
    for (size_t k = 0; k < kProbes; ++k) {
      Entry& e = _entries[(home + k) % kSize];
      if (e.local == local && e.prefix == prefix && e.uri == uri) return e.names;
      if (!e.local) return Fill(e, local, prefix, uri);
    }
    return Fill(_entries[home % kSize], local, prefix, uri);
  }

private:
  static constexpr size_t kSize = 64, kProbes = 4;  // kSize matches the 6 bits of the home slot
  struct Entry {
    const xmlChar* local = nullptr;
    const xmlChar* prefix = nullptr;
    const xmlChar* uri = nullptr;
    std::string text;  // qualified name, then the URI
    Names names;
  };

  bool Owned(const xmlChar* s) const { return !s || (_dict && xmlDictOwns(_dict, s) == 1); }

  const Names& Fill(Entry& e, const xmlChar* local, const xmlChar* prefix, const xmlChar* uri) {
    bool keep = Owned(local) && Owned(prefix) && Owned(uri);
    Entry& target = keep ? e : _scratch;
    target.local = keep ? local : nullptr;
    target.prefix = prefix;
    target.uri = uri;
    std::string_view l = View(local), p = View(prefix), u = View(uri);
    target.text.clear();
    if (prefix) target.text.append(p).append(1, ':');
    target.text.append(l).append(u);
    size_t qualified = target.text.size() - u.size();
    target.names.qualified = std::string_view(target.text.data(), qualified);
    target.names.local = target.names.qualified.substr(qualified - l.size());
    target.names.uri = std::string_view(target.text.data() + qualified, u.size());
    return target.names;
  }

  xmlDictPtr _dict = nullptr;
  Entry _entries[kSize];
  Entry _scratch;
};

// The parser's dictionary, for a lean handler to intern the names it looks out for.
class Dictionary final : public ZOLISAXDictionary {
public:
  explicit Dictionary(xmlDictPtr dict) : _dict(dict) {}
  const char* Intern(std::string_view text) const override {
    if (!_dict || text.size() > INT_MAX) return nullptr;
    return reinterpret_cast<const char*>(
        xmlDictLookup(_dict, reinterpret_cast<const xmlChar*>(text.data()), static_cast<int>(text.size())));
  }

private:
  xmlDictPtr _dict;
};

// The parser calls a lean lane's callbacks with the reader's lane state: their signatures are libxml2's.
static_assert(std::is_same_v<xmlChar, unsigned char>);
static_assert(std::is_same_v<ZOLSAXLeanCallbacks::Start, startElementNsSAX2Func>);
static_assert(std::is_same_v<ZOLSAXLeanCallbacks::End, endElementNsSAX2Func>);
static_assert(std::is_same_v<ZOLSAXLeanCallbacks::Text, charactersSAXFunc>);

class Reader final : public ZOLISAXXMLReader, public ZOLISAXLeanReader, public ZOLSAXLaneState {
public:
  HRESULT SetFeature(std::string_view uri, bool value) override {
    if (uri == ZOLSAXFeatureSchemaValidation && !value) return S_OK;
    return E_NOTIMPL;
  }
  HRESULT SetErrorHandler(ZOLISAXErrorHandler* handler) override { _errors = handler; return S_OK; }
  HRESULT SetContentHandler(ZOLISAXContentHandler* handler) override { _content = handler; return S_OK; }
  HRESULT SetLeanContentHandler(ZOLISAXLeanContentHandler* handler) override { _lean = handler; return S_OK; }
  HRESULT Parse(const ZOLIXMLInputSource& source) override;

private:
  // Every callback goes through here: a handler's exception or a result other than 0 stops the
  // parser, and the exception waits in _exception until the C frames are left.
  template <typename F>
  void Call(F&& f) {
    if (stopped) return;
    try {
      if (f() != 0) Stop();
    } catch (...) {
      Fail(std::current_exception());
    }
  }
  void Stop() override {
    stopped = true;
    if (_ctxt) xmlStopParser(_ctxt);
  }
  void Fail(std::exception_ptr exception) override {
    if (!_exception) _exception = std::move(exception);
    Stop();
  }
  void Fatal(std::string message, int line = 0, int column = 0);
  bool Feed(const char* data, size_t size, bool last);
  // Ends a parse: rethrows a handler's exception, else gives the result.
  HRESULT Finish(bool ok);

  // The parser's context is the lane state, for a direct lane's callbacks.
  static Reader* Self(void* ctx) { return static_cast<Reader*>(static_cast<ZOLSAXLaneState*>(ctx)); }
  static void OnStartDocument(void* ctx);
  static void OnEndDocument(void* ctx);
  static void OnStartElement(void* ctx, const xmlChar* localName, const xmlChar* prefix, const xmlChar* uri,
                             int nbNamespaces, const xmlChar** namespaces, int nbAttributes, int nbDefaulted,
                             const xmlChar** attributes);
  static void OnEndElement(void* ctx, const xmlChar* localName, const xmlChar* prefix, const xmlChar* uri);
  static void OnCharacters(void* ctx, const xmlChar* text, int len);
  // Prefix mappings of an element, opened at its start and closed at its end.
  void StartPrefixes(int count, const xmlChar** namespaces) override;
  void EndPrefixes() override;
  static void OnProcessingInstruction(void* ctx, const xmlChar* target, const xmlChar* data);
  static void OnEntityDecl(void* ctx, const xmlChar* name, int, const xmlChar*, const xmlChar*, xmlChar*);
  static void OnUnparsedEntityDecl(void* ctx, const xmlChar* name, const xmlChar*, const xmlChar*, const xmlChar*);
  static void OnError(void* ctx, xmlErrorPtr error);

  ZOLISAXContentHandler* _content = nullptr;
  ZOLISAXLeanContentHandler* _lean = nullptr;
  ZOLISAXErrorHandler* _errors = nullptr;
  xmlParserCtxtPtr _ctxt = nullptr;
  const ZOLIXMLInputSource* _source = nullptr;
  bool _fatal = false;
  std::exception_ptr _exception;
  // Prefixes declared per open element, for EndPrefixMapping.
  std::vector<std::string> _prefixes;
  // Elements that declared prefixes, as (depth, count): most declare none and cost no entry.
  std::vector<std::pair<int, int>> _prefixCounts;
  ElementNames _names;
  AttributeMemo _lastAttribute;
};

void Reader::OnStartDocument(void* ctx) {
  Reader* r = Self(ctx);
  if (r->_content) r->Call([&] { return r->_content->StartDocument(); });
}

void Reader::OnEndDocument(void* ctx) {
  Reader* r = Self(ctx);
  if (r->_content) r->Call([&] { return r->_content->EndDocument(); });
}

void Reader::OnStartElement(void* ctx, const xmlChar* localName, const xmlChar* prefix, const xmlChar* uri,
                            int nbNamespaces, const xmlChar** namespaces, int nbAttributes, int,
                            const xmlChar** attributes) {
  Reader* r = Self(ctx);
  ++r->depth;
  if (nbNamespaces > 0) r->StartPrefixes(nbNamespaces, namespaces);
  if (!r->_content) return;
  r->Call([&] {
    const ElementNames::Names& n = r->_names.Get(localName, prefix, uri);
    Attributes attrs(attributes, nbAttributes, r->_lastAttribute);
    return r->_content->StartElement(n.uri, n.local, n.qualified, attrs);
  });
}

void Reader::OnEndElement(void* ctx, const xmlChar* localName, const xmlChar* prefix, const xmlChar* uri) {
  Reader* r = Self(ctx);
  if (r->_content) {
    r->Call([&] {
      const ElementNames::Names& n = r->_names.Get(localName, prefix, uri);
      return r->_content->EndElement(n.uri, n.local, n.qualified);
    });
  }
  r->EndPrefixes();
}

void Reader::OnCharacters(void* ctx, const xmlChar* text, int len) {
  Reader* r = Self(ctx);
  if (!r->_content || len <= 0) return;
  r->Call([&] { return r->_content->Characters(std::string_view(reinterpret_cast<const char*>(text), static_cast<size_t>(len))); });
}

void Reader::StartPrefixes(int count, const xmlChar** namespaces) {
  _prefixCounts.emplace_back(depth, count);
  prefixedDepth = depth;
  for (int i = 0; i < count; ++i) {
    std::string_view p = View(namespaces[2 * i]);
    _prefixes.emplace_back(p);
    if (_content) Call([&] { return _content->StartPrefixMapping(p, View(namespaces[2 * i + 1])); });
  }
}

void Reader::EndPrefixes() {
  int declared = 0;
  if (!_prefixCounts.empty() && _prefixCounts.back().first == depth) {
    declared = _prefixCounts.back().second;
    _prefixCounts.pop_back();
    prefixedDepth = _prefixCounts.empty() ? 0 : _prefixCounts.back().first;
  }
  --depth;
  for (int i = 0; i < declared && !_prefixes.empty(); ++i) {
    std::string p = std::move(_prefixes.back());
    _prefixes.pop_back();
    if (_content) Call([&] { return _content->EndPrefixMapping(p); });
  }
}

void Reader::OnProcessingInstruction(void* ctx, const xmlChar* target, const xmlChar* data) {
  Reader* r = Self(ctx);
  if (r->_content) r->Call([&] { return r->_content->ProcessingInstruction(View(target), View(data)); });
}

void Reader::OnEntityDecl(void* ctx, const xmlChar* name, int, const xmlChar*, const xmlChar*, xmlChar*) {
  Reader* r = Self(ctx);
  if (r->stopped) return;
  r->Fatal(ZOLXMLEntityDeclaredMessage(View(name)), r->_ctxt->input ? r->_ctxt->input->line : 0,
           r->_ctxt->input ? r->_ctxt->input->col : 0);
  r->Stop();
}

void Reader::OnUnparsedEntityDecl(void* ctx, const xmlChar* name, const xmlChar*, const xmlChar*, const xmlChar*) {
  OnEntityDecl(ctx, name, 0, nullptr, nullptr, nullptr);
}

void Reader::OnError(void* ctx, xmlErrorPtr error) {
  Reader* r = Self(ctx);
  if (!error || r->stopped) return;
  // A namespace-aware reader treats a namespace error (an undeclared prefix) as a well-formedness
  // one, and so a reference to an undeclared entity, which libxml2 passes when an external DTD is
  // named (and never loaded).
  bool fatal = error->level == XML_ERR_FATAL || (error->level == XML_ERR_ERROR && error->domain == XML_FROM_NAMESPACE) ||
               error->code == XML_WAR_UNDECLARED_ENTITY;
  if (fatal) r->_fatal = true;
  if (!r->_errors) return;
  ZOLSAXParseError e;
  e.message = error->message ? error->message : "";
  while (!e.message.empty() && e.message.back() == '\n') e.message.pop_back();
  e.systemId = r->_source ? r->_source->GetSystemId() : std::string();
  e.line = error->line;
  e.column = error->int2;
  r->Call([&] {
    if (fatal) return r->_errors->FatalError(e);
    if (error->level == XML_ERR_ERROR) return r->_errors->Error(e);
    return r->_errors->Warning(e);
  });
}

void Reader::Fatal(std::string message, int line, int column) {
  _fatal = true;
  if (!_errors) return;
  ZOLSAXParseError e{std::move(message), _source ? _source->GetSystemId() : std::string(), line, column};
  Call([&] { return _errors->FatalError(e); });
}

// Hands one chunk to the parser; false once the parse cannot go on.
bool Reader::Feed(const char* data, size_t size, bool last) {
  xmlParseChunk(_ctxt, data, static_cast<int>(size), last ? 1 : 0);
  return !stopped && !_fatal && _ctxt->wellFormed && !_ctxt->disableSAX;
}

HRESULT Reader::Parse(const ZOLIXMLInputSource& source) {
  ZOLXMLInitialize();
  _source = &source;
  stopped = false;
  _fatal = false;
  _exception = nullptr;
  _prefixes.clear();
  _prefixCounts.clear();
  depth = 0;
  prefixedDepth = 0;
  handler = _lean;

  FILE* file = nullptr;
  if (source.GetKind() == ZOLIXMLInputSource::Kind::File) {
    file = std::fopen(source.GetContent().c_str(), "rb");
    if (!file) {
      Fatal("cannot open \"" + source.GetContent() + "\": " + std::strerror(errno));
      return Finish(false);
    }
  }

  xmlSAXHandler sax;
  std::memset(&sax, 0, sizeof sax);
  sax.initialized = XML_SAX2_MAGIC;
  sax.startDocument = OnStartDocument;
  sax.endDocument = OnEndDocument;
  sax.startElementNs = OnStartElement;
  sax.endElementNs = OnEndElement;
  sax.characters = OnCharacters;
  if (_lean) {
    const ZOLSAXLeanCallbacks* lane = _lean->DirectCallbacks();
    if (!lane) lane = &ZOLSAXDirectLane<ZOLISAXLeanContentHandler>::kCallbacks;
    sax.startElementNs = lane->start;
    sax.endElementNs = lane->end;
    sax.characters = lane->text;
  }
  sax.cdataBlock = sax.characters;
  // The same function for both keeps libxml2 from guessing which blanks are ignorable: without a
  // DTD none are.
  sax.ignorableWhitespace = sax.characters;
  sax.processingInstruction = OnProcessingInstruction;
  sax.entityDecl = OnEntityDecl;
  sax.unparsedEntityDecl = OnUnparsedEntityDecl;
  sax.serror = OnError;

  const char* systemId = source.GetSystemId().empty() ? nullptr : source.GetSystemId().c_str();
  _ctxt = xmlCreatePushParserCtxt(&sax, static_cast<ZOLSAXLaneState*>(this), nullptr, 0, systemId);
  if (!_ctxt) {
    if (file) std::fclose(file);
    Fatal("out of memory");
    return Finish(false);
  }
  // NOENT makes libxml2 hand decoded attribute values to SAX; with declarations refused it can
  // expand nothing but the predefined entities. HUGE: the bounds of the DOM builder, whose files
  // both read.
  xmlCtxtUseOptions(_ctxt, XML_PARSE_NONET | XML_PARSE_NOENT | XML_PARSE_HUGE);
  _names.Reset(_ctxt->dict);
  _lastAttribute = AttributeMemo();
  _lastAttribute.dict = _ctxt->dict;
  if (_lean) {
    Dictionary dictionary(_ctxt->dict);
    Call([&] { return _lean->StartParse(dictionary); });
  }

  if (file) {
    std::vector<char> buffer(kChunk);
    bool going = !stopped;
    while (going) {
      size_t n = std::fread(buffer.data(), 1, buffer.size(), file);
      if (n == 0) break;
      going = Feed(buffer.data(), n, false);
    }
    if (going && std::ferror(file)) {
      Fatal("cannot read \"" + source.GetContent() + "\": " + std::strerror(errno));
      going = false;
    }
    if (going) Feed(nullptr, 0, true);
    std::fclose(file);
  } else {
    std::string_view text = source.GetText();
    bool going = !stopped;
    // Pieces of a megabyte keep the parser's own buffer small on texts of any size.
    for (size_t pos = 0; going && pos < text.size(); pos += kTextChunk)
      going = Feed(text.data() + pos, std::min(kTextChunk, text.size() - pos), false);
    if (going) Feed(nullptr, 0, true);
  }

  bool ok = !stopped && !_fatal && _ctxt->wellFormed;
  if (_ctxt->myDoc) xmlFreeDoc(_ctxt->myDoc);
  xmlFreeParserCtxt(_ctxt);
  _ctxt = nullptr;
  return Finish(ok);
}

HRESULT Reader::Finish(bool ok) {
  _source = nullptr;
  if (_exception) std::rethrow_exception(std::exchange(_exception, nullptr));
  return ok ? S_OK : E_FAIL;
}

class Factory final : public ZOLIXMLSAX2Factory {
public:
  HRESULT CreateInputSourceFromText(std::string_view text, std::string_view systemId,
                                    std::unique_ptr<ZOLIXMLInputSource>& source) override {
    source = std::make_unique<ZOLIXMLInputSource>(ZOLIXMLInputSource::Kind::Text, std::string(text), std::string(systemId));
    return S_OK;
  }
  HRESULT CreateInputSourceOverText(std::string_view text, std::string_view systemId,
                                    std::unique_ptr<ZOLIXMLInputSource>& source) override {
    source = std::make_unique<ZOLIXMLInputSource>(ZOLIXMLInputSource::Borrowed{}, text, std::string(systemId));
    return S_OK;
  }
  HRESULT CreateInputSourceFromFile(std::string_view path, std::string_view systemId,
                                    std::unique_ptr<ZOLIXMLInputSource>& source) override {
    source = std::make_unique<ZOLIXMLInputSource>(ZOLIXMLInputSource::Kind::File, std::string(path), std::string(systemId));
    return S_OK;
  }
  HRESULT CreateReader(std::unique_ptr<ZOLISAXXMLReader>& reader) override {
    reader = std::make_unique<Reader>();
    return S_OK;
  }
};

}  // namespace

HRESULT CreateZOLIXMLSAX2Factory(std::unique_ptr<ZOLIXMLSAX2Factory>& factory) {
  ZOLXMLInitialize();
  factory = std::make_unique<Factory>();
  return S_OK;
}
