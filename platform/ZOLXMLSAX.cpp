// SAX2 reader over libxml2's push parser.
//
// Safety: no network, no DTD loading, and no entity declarations are honoured at all (the DTD
// callbacks are left out), so only the predefined entities and character references expand;
// any other entity reference is an undeclared-entity error. That rules out external entities and
// expansion bombs alike, whatever the size of the input.
#include "ZOLXMLSAX.h"

#include <libxml/parser.h>
#include <libxml/parserInternals.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>
#include <utility>
#include <vector>

#include "ZOLXMLDOM.h"

namespace {

constexpr size_t kChunk = 64 * 1024;
constexpr size_t kTextChunk = 1024 * 1024;

std::string_view View(const xmlChar* s) {
  return s ? std::string_view(reinterpret_cast<const char*>(s)) : std::string_view();
}

// libxml2 hands attributes as five pointers each: local name, prefix, URI, value, value end.
class Attributes final : public ZOLISAXAttributes {
public:
  Attributes(const xmlChar** attrs, int count) : _attrs(attrs), _count(count) {}

  int GetValue(std::string_view qualifiedName, std::string_view& value) const override {
    size_t colon = qualifiedName.find(':');
    std::string_view prefix = colon == std::string_view::npos ? std::string_view() : qualifiedName.substr(0, colon);
    std::string_view local = colon == std::string_view::npos ? qualifiedName : qualifiedName.substr(colon + 1);
    for (int i = 0; i < _count; ++i) {
      const xmlChar** a = _attrs + 5 * i;
      if (View(a[0]) != local || View(a[1]) != prefix) continue;
      value = std::string_view(reinterpret_cast<const char*>(a[3]), static_cast<size_t>(a[4] - a[3]));
      return 1;
    }
    return 0;
  }
  int GetLength() const override { return _count; }

private:
  const xmlChar** _attrs;
  int _count;
};

class Reader final : public ZOLISAXXMLReader {
public:
  HRESULT SetFeature(std::string_view uri, bool value) override {
    if (uri == ZOLSAXFeatureSchemaValidation && !value) return S_OK;
    return E_NOTIMPL;
  }
  HRESULT SetErrorHandler(ZOLISAXErrorHandler* handler) override { _errors = handler; return S_OK; }
  HRESULT SetContentHandler(ZOLISAXContentHandler* handler) override { _content = handler; return S_OK; }
  HRESULT Parse(const ZOLIXMLInputSource& source) override;

private:
  // Every callback goes through here: a handler's exception or a result other than 0 stops the
  // parser, and the exception waits in _exception until the C frames are left.
  template <typename F>
  void Call(F&& f) {
    if (_stopped) return;
    try {
      if (f() != 0) Stop();
    } catch (...) {
      _exception = std::current_exception();
      Stop();
    }
  }
  void Stop() {
    _stopped = true;
    if (_ctxt) xmlStopParser(_ctxt);
  }
  void Fatal(std::string message, int line = 0, int column = 0);
  bool Feed(const char* data, size_t size, bool last);
  // Ends a parse: rethrows a handler's exception, else gives the result.
  HRESULT Finish(bool ok);

  static Reader* Self(void* ctx) { return static_cast<Reader*>(ctx); }
  static void OnStartDocument(void* ctx);
  static void OnEndDocument(void* ctx);
  static void OnStartElement(void* ctx, const xmlChar* localName, const xmlChar* prefix, const xmlChar* uri,
                             int nbNamespaces, const xmlChar** namespaces, int nbAttributes, int nbDefaulted,
                             const xmlChar** attributes);
  static void OnEndElement(void* ctx, const xmlChar* localName, const xmlChar* prefix, const xmlChar* uri);
  static void OnCharacters(void* ctx, const xmlChar* text, int len);
  static void OnProcessingInstruction(void* ctx, const xmlChar* target, const xmlChar* data);
  static void OnError(void* ctx, xmlErrorPtr error);

  ZOLISAXContentHandler* _content = nullptr;
  ZOLISAXErrorHandler* _errors = nullptr;
  xmlParserCtxtPtr _ctxt = nullptr;
  const ZOLIXMLInputSource* _source = nullptr;
  bool _stopped = false;
  bool _fatal = false;
  std::exception_ptr _exception;
  // Prefixes declared per open element, for EndPrefixMapping.
  std::vector<std::string> _prefixes;
  std::vector<int> _prefixCounts;
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
  r->_prefixCounts.push_back(nbNamespaces);
  for (int i = 0; i < nbNamespaces; ++i) {
    std::string_view p = View(namespaces[2 * i]);
    r->_prefixes.emplace_back(p);
    if (r->_content) r->Call([&] { return r->_content->StartPrefixMapping(p, View(namespaces[2 * i + 1])); });
  }
  if (!r->_content) return;
  r->Call([&] {
    std::string_view local = View(localName);
    Attributes attrs(attributes, nbAttributes);
    if (!prefix) return r->_content->StartElement(View(uri), local, local, attrs);
    // A qualified name is rarely long; keep it on the stack when it fits.
    std::string_view p = View(prefix);
    char buffer[256];
    std::string heap;
    char* q = buffer;
    size_t size = p.size() + 1 + local.size();
    if (size > sizeof buffer) { heap.resize(size); q = heap.data(); }
    std::memcpy(q, p.data(), p.size());
    q[p.size()] = ':';
    std::memcpy(q + p.size() + 1, local.data(), local.size());
    return r->_content->StartElement(View(uri), local, std::string_view(q, size), attrs);
  });
}

void Reader::OnEndElement(void* ctx, const xmlChar* localName, const xmlChar* prefix, const xmlChar* uri) {
  Reader* r = Self(ctx);
  if (r->_content) {
    r->Call([&] {
      std::string_view local = View(localName);
      if (!prefix) return r->_content->EndElement(View(uri), local, local);
      std::string qualified;
      qualified.reserve(std::strlen(reinterpret_cast<const char*>(prefix)) + 1 + local.size());
      qualified.append(View(prefix)).append(1, ':').append(local);
      return r->_content->EndElement(View(uri), local, qualified);
    });
  }
  if (r->_prefixCounts.empty()) return;
  int declared = r->_prefixCounts.back();
  r->_prefixCounts.pop_back();
  for (int i = 0; i < declared && !r->_prefixes.empty(); ++i) {
    std::string p = std::move(r->_prefixes.back());
    r->_prefixes.pop_back();
    if (r->_content) r->Call([&] { return r->_content->EndPrefixMapping(p); });
  }
}

void Reader::OnCharacters(void* ctx, const xmlChar* text, int len) {
  Reader* r = Self(ctx);
  if (!r->_content || len <= 0) return;
  r->Call([&] { return r->_content->Characters(std::string_view(reinterpret_cast<const char*>(text), static_cast<size_t>(len))); });
}

void Reader::OnProcessingInstruction(void* ctx, const xmlChar* target, const xmlChar* data) {
  Reader* r = Self(ctx);
  if (r->_content) r->Call([&] { return r->_content->ProcessingInstruction(View(target), View(data)); });
}

void Reader::OnError(void* ctx, xmlErrorPtr error) {
  Reader* r = Self(ctx);
  if (!error || r->_stopped) return;
  // A namespace-aware reader treats a namespace error (an undeclared prefix) as a well-formedness one.
  bool fatal = error->level == XML_ERR_FATAL || (error->level == XML_ERR_ERROR && error->domain == XML_FROM_NAMESPACE);
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
  return !_stopped && !_fatal && _ctxt->wellFormed && !_ctxt->disableSAX;
}

HRESULT Reader::Parse(const ZOLIXMLInputSource& source) {
  ZOLXMLInitialize();
  _source = &source;
  _stopped = false;
  _fatal = false;
  _exception = nullptr;
  _prefixes.clear();
  _prefixCounts.clear();

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
  sax.cdataBlock = OnCharacters;
  // The same function for both keeps libxml2 from guessing which blanks are ignorable: without a
  // DTD none are.
  sax.ignorableWhitespace = OnCharacters;
  sax.processingInstruction = OnProcessingInstruction;
  sax.serror = OnError;

  const char* systemId = source.GetSystemId().empty() ? nullptr : source.GetSystemId().c_str();
  _ctxt = xmlCreatePushParserCtxt(&sax, this, nullptr, 0, systemId);
  if (!_ctxt) {
    if (file) std::fclose(file);
    Fatal("out of memory");
    return Finish(false);
  }
  // NOENT makes libxml2 hand decoded attribute values to SAX; with no declarations honoured it can
  // expand nothing but the predefined entities.
  xmlCtxtUseOptions(_ctxt, XML_PARSE_NONET | XML_PARSE_NOENT);

  if (file) {
    std::vector<char> buffer(kChunk);
    bool going = true;
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
    const std::string& text = source.GetContent();
    bool going = true;
    // Pieces of a megabyte keep the parser's own buffer small on texts of any size.
    for (size_t pos = 0; going && pos < text.size(); pos += kTextChunk)
      going = Feed(text.data() + pos, std::min(kTextChunk, text.size() - pos), false);
    if (going) Feed(nullptr, 0, true);
  }

  bool ok = !_stopped && !_fatal && _ctxt->wellFormed;
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
