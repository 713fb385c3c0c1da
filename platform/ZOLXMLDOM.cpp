// DOM services over libxml2's tree and its save module.
//
// Safety: every parse of the platform reads its input itself (text or file, in chunks) and refuses
// any further load through the entity loader while it runs, so neither a DTD nor an external
// entity is ever fetched, whatever the options. A document that declares an entity is stopped at
// the declaration, before anything could refer to it, and one that refers to an undeclared entity
// is refused as well: libxml2's amplification guard covers only its own expansion, not a walker's
// that reads an attribute's reference nodes. Network access is off as well.
#include "ZOLXMLDOM.h"

#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <libxml/tree.h>
#include <libxml/xmlsave.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <mutex>
#include <vector>

#include "ZOLFile.h"
#include "ZOLXMLSAX.h"

namespace {

// The opaque node and document types of the public header are libxml2's.
xmlNode* X(ZOLDOMRawNode* node) { return reinterpret_cast<xmlNode*>(node); }
ZOLDOMRawNode* R(xmlNode* node) { return reinterpret_cast<ZOLDOMRawNode*>(node); }
xmlDoc* X(ZOLDOMRawDocument* doc) { return reinterpret_cast<xmlDoc*>(doc); }
ZOLDOMRawDocument* R(xmlDoc* doc) { return reinterpret_cast<ZOLDOMRawDocument*>(doc); }

}  // namespace

namespace {

// Depth is bounded by memory only: the walkers above libxml2 keep their work on the heap.
constexpr unsigned kMaxDepth = 1u << 26;
// Marks a document read with namespaces off; held in xmlDoc::_private.
char g_noNamespaces;
// Parses of this thread that are running: while one runs, the entity loader loads nothing.
thread_local int t_parsesRunning = 0;
xmlExternalEntityLoader g_previousLoader = nullptr;

xmlParserInputPtr RefusingLoader(const char* url, const char* id, xmlParserCtxtPtr ctxt) {
  if (t_parsesRunning > 0) return nullptr;
  return g_previousLoader ? g_previousLoader(url, id, ctxt) : nullptr;
}

struct ParseScope {
  ParseScope() { ++t_parsesRunning; }
  ~ParseScope() { --t_parsesRunning; }
};

std::string_view View(const xmlChar* s) {
  return s ? std::string_view(reinterpret_cast<const char*>(s)) : std::string_view();
}

// xmlChar strings of the given view, NUL-terminated.
std::string Z(std::string_view s) { return std::string(s); }
const xmlChar* X(const std::string& s) { return reinterpret_cast<const xmlChar*>(s.c_str()); }

bool NamespacesOff(const xmlNode* node) { return node->doc && node->doc->_private == &g_noNamespaces; }

// Whether an attribute of an element matches a namespace URI and a local name; an empty URI asks
// for an attribute without namespace, which, with namespaces off, is matched by its written name.
bool AttributeMatches(const xmlAttr* a, std::string_view uri, std::string_view localName) {
  if (NamespacesOff(a->parent)) {
    if (!uri.empty()) return false;
    std::string_view prefix = a->ns ? View(a->ns->prefix) : std::string_view();
    std::string_view name = View(a->name);
    if (prefix.empty()) return name == localName;
    return localName.size() == prefix.size() + 1 + name.size() && localName.substr(0, prefix.size()) == prefix &&
           localName[prefix.size()] == ':' && localName.substr(prefix.size() + 1) == name;
  }
  if (View(a->name) != localName) return false;
  std::string_view ns = a->ns ? View(a->ns->href) : std::string_view();
  return ns == uri;
}

const xmlAttr* FindAttribute(const xmlNode* node, std::string_view uri, std::string_view localName) {
  for (const xmlAttr* a = node->properties; a; a = a->next)
    if (AttributeMatches(a, uri, localName)) return a;
  return nullptr;
}

bool IsTrue(const ZOLUnicodeString& value, bool& out) {
  if (value == "true" || value == "1") { out = true; return true; }
  if (value == "false" || value == "0") { out = false; return true; }
  return false;
}

// The first character of text that XML cannot carry; null when there is none.
const char* CharacterFault(std::string_view text) {
  static constexpr const char* kEncoding = "invalid UTF-8";
  static constexpr const char* kCharacter = "a character that XML cannot hold";
  const auto* p = reinterpret_cast<const unsigned char*>(text.data());
  const auto* end = p + text.size();
  while (p < end) {
    unsigned c = *p;
    if (c >= 0x20 && c < 0x80) {
      ++p;
      continue;
    }
    if (c < 0x20) {
      if (c != '\t' && c != '\n' && c != '\r') return kCharacter;
      ++p;
      continue;
    }
    int more;
    unsigned code, least;
    if ((c & 0xE0) == 0xC0) { more = 1; code = c & 0x1F; least = 0x80; }
    else if ((c & 0xF0) == 0xE0) { more = 2; code = c & 0x0F; least = 0x800; }
    else if ((c & 0xF8) == 0xF0) { more = 3; code = c & 0x07; least = 0x10000; }
    else return kEncoding;
    if (end - p <= more) return kEncoding;
    for (int i = 1; i <= more; ++i) {
      if ((p[i] & 0xC0) != 0x80) return kEncoding;
      code = (code << 6) | (p[i] & 0x3F);
    }
    // Overlong forms and surrogates are no UTF-8; U+FFFE and U+FFFF are no XML characters.
    if (code < least || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) return kEncoding;
    if (code == 0xFFFE || code == 0xFFFF) return kCharacter;
    p += more + 1;
  }
  return nullptr;
}

}  // namespace

const char* ZOLXMLTextFault(std::string_view text) {
  return text.size() > ZOLXMLMaxTextLength ? "longer than a reader takes back" : CharacterFault(text);
}

std::string ZOLXMLEntityDeclaredMessage(std::string_view name) {
  return "entity \"" + std::string(name) + "\" declared: documents that declare entities are refused";
}

void ZOLXMLInitialize() {
  static std::once_flag once;
  std::call_once(once, [] {
    xmlInitParser();
    if (xmlParserMaxDepth < kMaxDepth) xmlParserMaxDepth = kMaxDepth;
    g_previousLoader = xmlGetExternalEntityLoader();
    xmlSetExternalEntityLoader(RefusingLoader);
  });
}

// ---------------------------------------------------------------- nodes

ZOLIDOMNode::NodeType ZOLIDOMNode::GetNodeType() const {
  if (!_node) return UNKNOWN_NODE;
  int t = X(_node)->type;
  if (t >= XML_ELEMENT_NODE && t <= XML_NOTATION_NODE) return static_cast<NodeType>(t);
  if (t == XML_HTML_DOCUMENT_NODE) return DOCUMENT_NODE;
  if (t == XML_DTD_NODE) return DOCUMENT_TYPE_NODE;
  return UNKNOWN_NODE;
}

HRESULT ZOLIDOMNode::GetNodeName(std::string& name) const {
  if (!_node) return E_FAIL;
  switch (X(_node)->type) {
    case XML_TEXT_NODE: name = "#text"; return S_OK;
    case XML_CDATA_SECTION_NODE: name = "#cdata-section"; return S_OK;
    case XML_COMMENT_NODE: name = "#comment"; return S_OK;
    case XML_DOCUMENT_NODE:
    case XML_HTML_DOCUMENT_NODE: name = "#document"; return S_OK;
    case XML_DOCUMENT_FRAG_NODE: name = "#document-fragment"; return S_OK;
    default: break;
  }
  name.assign(View(X(_node)->name));
  if (X(_node)->type == XML_ELEMENT_NODE && X(_node)->ns && X(_node)->ns->prefix)
    name.insert(0, 1, ':').insert(0, reinterpret_cast<const char*>(X(_node)->ns->prefix));
  return S_OK;
}

HRESULT ZOLIDOMNode::GetLocalName(std::string_view& name) const {
  if (!_node) return E_FAIL;
  name = X(_node)->type == XML_ELEMENT_NODE && !NamespacesOff(X(_node)) ? View(X(_node)->name) : std::string_view();
  return S_OK;
}

HRESULT ZOLIDOMNode::GetNamespaceURI(std::string_view& uri) const {
  if (!_node) return E_FAIL;
  uri = X(_node)->type == XML_ELEMENT_NODE && X(_node)->ns && !NamespacesOff(X(_node)) ? View(X(_node)->ns->href) : std::string_view();
  return S_OK;
}

HRESULT ZOLIDOMNode::GetNodeValue(std::string_view& value) const {
  if (!_node) return E_FAIL;
  switch (X(_node)->type) {
    case XML_TEXT_NODE:
    case XML_CDATA_SECTION_NODE:
    case XML_COMMENT_NODE:
    case XML_PI_NODE: value = View(X(_node)->content); break;
    default: value = std::string_view(); break;
  }
  return S_OK;
}

HRESULT ZOLIDOMNode::GetParentNode(ZOLIDOMNode& parent) const {
  if (!_node) return E_FAIL;
  parent = ZOLIDOMNode(R(X(_node)->parent));
  return S_OK;
}

HRESULT ZOLIDOMNode::GetChildNodes(ZOLIDOMNodeList& children) const {
  if (!_node) return E_FAIL;
  children = ZOLIDOMNodeList(_node);
  return S_OK;
}

HRESULT ZOLIDOMNode::AppendChild(const ZOLIDOMNode& child) {
  if (!_node) return E_FAIL;
  xmlNode* c = X(child._node);
  if (!c || c->parent || c->prev || c->next || c->doc != X(_node)->doc || c == X(_node)) return E_INVALIDARG;
  if (c->type == XML_ATTRIBUTE_NODE || c->type == XML_DOCUMENT_NODE) return E_INVALIDARG;
  if (X(_node)->type != XML_ELEMENT_NODE) return E_INVALIDARG;
  // Linked by hand: xmlAddChild would merge adjacent texts and free the one handed in.
  c->parent = X(_node);
  if (X(_node)->last) {
    X(_node)->last->next = c;
    c->prev = X(_node)->last;
  } else {
    X(_node)->children = c;
  }
  X(_node)->last = c;
  return S_OK;
}

// ---------------------------------------------------------------- elements

ZOLIDOMElement::ZOLIDOMElement(const ZOLIDOMNode& node)
    : ZOLIDOMNode(node.Raw() && X(node.Raw())->type == XML_ELEMENT_NODE ? node.Raw() : nullptr) {}

HRESULT ZOLIDOMElement::GetAttributeNS(std::string_view uri, std::string_view localName, std::string& value) const {
  if (!_node) return E_FAIL;
  value.clear();
  const xmlAttr* a = FindAttribute(X(_node), uri, localName);
  if (!a) return S_FALSE;
  // Predefined entities and character references arrive decoded in the text nodes. A reference
  // node is never expanded: its entity's text may itself be huge, or refer on to others.
  for (const xmlNode* c = a->children; c; c = c->next) {
    if (c->type == XML_TEXT_NODE) {
      value.append(View(c->content));
    } else if (c->type == XML_ENTITY_REF_NODE) {
      value.clear();
      return E_FAIL;
    }
  }
  return S_OK;
}

bool ZOLIDOMElement::HasAttributeNS(std::string_view uri, std::string_view localName) const {
  return _node && FindAttribute(X(_node), uri, localName);
}

HRESULT ZOLIDOMElement::SetAttribute(std::string_view qualifiedName, std::string_view value) {
  if (!_node) return E_FAIL;
  if (qualifiedName.empty() || ZOLXMLTextFault(value)) return E_INVALIDARG;
  std::string v = Z(value);
  if (qualifiedName == "xmlns" || qualifiedName.substr(0, 6) == "xmlns:") {
    std::string prefix = qualifiedName.size() > 6 ? Z(qualifiedName.substr(6)) : std::string();
    if (qualifiedName.size() == 6 || (!prefix.empty() && xmlValidateNCName(X(prefix), 0) != 0)) return E_INVALIDARG;
    for (xmlNs* ns = X(_node)->nsDef; ns; ns = ns->next) {
      if (View(ns->prefix) != prefix) continue;
      if (View(ns->href) != value) {
        xmlFree(const_cast<xmlChar*>(ns->href));
        ns->href = xmlStrdup(X(v));
      }
      return S_OK;
    }
    return xmlNewNs(X(_node), X(v), prefix.empty() ? nullptr : X(prefix)) ? S_OK : E_FAIL;
  }
  std::string name = Z(qualifiedName);
  if (xmlValidateQName(X(name), 0) != 0) return E_INVALIDARG;
  return xmlSetProp(X(_node), X(name), X(v)) ? S_OK : E_FAIL;
}

// ---------------------------------------------------------------- node lists

ZOLIDOMNodeList::ZOLIDOMNodeList(ZOLDOMRawNode* parent) : _parent(parent) {
  // An entity reference points at the entity's own nodes, which are not its children.
  if (!_parent || X(_parent)->type == XML_ENTITY_REF_NODE) {
    _parent = nullptr;
    return;
  }
  for (xmlNode* c = X(_parent)->children; c; c = c->next) ++_length;
}

HRESULT ZOLIDOMNodeList::Item(int index, ZOLIDOMNode& node) const {
  if (!_parent || index < 0 || index >= _length) return E_INVALIDARG;
  if (_cursorIndex < 0 || !_cursor || index < _cursorIndex / 2) {
    _cursor = R(X(_parent)->children);
    _cursorIndex = 0;
  }
  while (_cursor && _cursorIndex < index) { _cursor = R(X(_cursor)->next); ++_cursorIndex; }
  while (_cursor && _cursorIndex > index) { _cursor = R(X(_cursor)->prev); --_cursorIndex; }
  if (!_cursor) {
    _cursorIndex = -1;
    return E_FAIL;
  }
  node = ZOLIDOMNode(_cursor);
  return S_OK;
}

// ---------------------------------------------------------------- documents

struct ZOLIDOMDocument::Holder {
  explicit Holder(xmlDoc* d) : doc(d) {}
  ~Holder() {
    for (xmlNode* n : created)
      if (!n->parent) xmlFreeNode(n);
    xmlFreeDoc(doc);
  }
  Holder(const Holder&) = delete;
  Holder& operator=(const Holder&) = delete;
  xmlDoc* doc;
  std::vector<xmlNode*> created;
};

ZOLIDOMDocument::ZOLIDOMDocument(ZOLDOMRawDocument* doc) {
  if (doc) _holder = std::make_shared<Holder>(X(doc));
}

ZOLDOMRawDocument* ZOLIDOMDocument::Raw() const { return _holder ? R(_holder->doc) : nullptr; }

HRESULT ZOLIDOMDocument::GetDocumentElement(ZOLIDOMElement& element) const {
  if (!_holder) return E_FAIL;
  element = ZOLIDOMElement(ZOLIDOMNode(R(xmlDocGetRootElement(_holder->doc))));
  return S_OK;
}

HRESULT ZOLIDOMDocument::CreateElementNS(std::string_view uri, std::string_view qualifiedName, ZOLIDOMElement& element) {
  if (!_holder) return E_FAIL;
  xmlDoc* doc = _holder->doc;
  size_t colon = qualifiedName.find(':');
  std::string prefix = colon == std::string_view::npos ? std::string() : Z(qualifiedName.substr(0, colon));
  std::string local = Z(colon == std::string_view::npos ? qualifiedName : qualifiedName.substr(colon + 1));
  if (local.empty() || (colon != std::string_view::npos && prefix.empty()) || (uri.empty() && !prefix.empty()) ||
      xmlValidateNCName(X(local), 0) != 0 || (!prefix.empty() && xmlValidateNCName(X(prefix), 0) != 0) ||
      ZOLXMLTextFault(uri))
    return E_INVALIDARG;
  xmlNode* node = xmlNewDocNode(doc, nullptr, X(local), nullptr);
  if (!node) return E_FAIL;
  _holder->created.push_back(node);
  if (!uri.empty()) {
    xmlNs* ns = nullptr;
    if (xmlNode* root = xmlDocGetRootElement(doc)) {
      for (xmlNs* d = root->nsDef; d && !ns; d = d->next)
        if (View(d->href) == uri && View(d->prefix) == prefix) ns = d;
    }
    if (!ns) {
      std::string u = Z(uri);
      ns = xmlNewNs(node, X(u), prefix.empty() ? nullptr : X(prefix));
    }
    if (!ns) return E_FAIL;
    xmlSetNs(node, ns);
  }
  element = ZOLIDOMElement(ZOLIDOMNode(R(node)));
  return S_OK;
}

HRESULT ZOLIDOMDocument::CreateTextNode(std::string_view text, ZOLIDOMNode& node) {
  if (!_holder) return E_FAIL;
  // Refused here, so that no document of the platform holds text that its readers would refuse.
  if (ZOLXMLTextFault(text)) return E_INVALIDARG;
  xmlNode* t = xmlNewDocTextLen(_holder->doc, reinterpret_cast<const xmlChar*>(text.data()), static_cast<int>(text.size()));
  if (!t) return E_FAIL;
  _holder->created.push_back(t);
  node = ZOLIDOMNode(R(t));
  return S_OK;
}

HRESULT ZOLIDOMDocument::AppendChild(const ZOLIDOMNode& child) {
  if (!_holder) return E_FAIL;
  xmlNode* c = X(child.Raw());
  if (!c || c->type != XML_ELEMENT_NODE || c->parent || c->doc != _holder->doc || xmlDocGetRootElement(_holder->doc))
    return E_INVALIDARG;
  xmlDocSetRootElement(_holder->doc, c);
  return S_OK;
}

// ---------------------------------------------------------------- builder

namespace {

struct ReadOptions {
  bool validate = false;
  bool namespaces = true;
};

struct WriteOptions {
  bool pretty = true;
};

// Input callbacks: a text in memory, or an open file.
struct TextInput {
  const std::string* text;
  size_t pos;
};

int ReadText(void* context, char* buffer, int len) {
  auto* in = static_cast<TextInput*>(context);
  size_t n = std::min(static_cast<size_t>(len), in->text->size() - in->pos);
  std::memcpy(buffer, in->text->data() + in->pos, n);
  in->pos += n;
  return static_cast<int>(n);
}

int ReadFile(void* context, char* buffer, int len) {
  FILE* f = static_cast<FILE*>(context);
  size_t n = std::fread(buffer, 1, static_cast<size_t>(len), f);
  if (n == 0 && std::ferror(f)) return -1;
  return static_cast<int>(n);
}

int WriteString(void* context, const char* buffer, int len) {
  static_cast<std::string*>(context)->append(buffer, static_cast<size_t>(len));
  return len;
}

class Builder final : public ZOLIXMLDOMDocumentBuilder {
public:
  HRESULT GetSupportedOptions(ZOLListValZOLUnicodeString& names) override {
    names.RemoveAll();
    for (std::string_view n : {ZOLDOMOptionDoValidation, ZOLDOMOptionEnableNameSpaces, ZOLDOMOptionPrettyPrint})
      names.Append(ZOLUnicodeString(n));
    return S_OK;
  }

  HRESULT BuildDocumentFromFile(std::string_view path, const ZOLListValZOLUnicodeString& names,
                                const ZOLListValZOLUnicodeString& values, ZOLIDOMDocument& document) override {
    _lastError.clear();
    ReadOptions options;
    if (!ParseOptions(names, values, &options, nullptr)) return E_INVALIDARG;
    std::string p = Z(path);
    FILE* f = std::fopen(p.c_str(), "rb");
    if (!f) {
      _lastError = p + ": cannot open: " + std::strerror(errno);
      return E_FAIL;
    }
    HRESULT hr = Read(ReadFile, f, p, options, document);
    std::fclose(f);
    return hr;
  }

  HRESULT BuildDocumentFromSource(const ZOLIXMLInputSource& source, const ZOLListValZOLUnicodeString& names,
                                  const ZOLListValZOLUnicodeString& values, ZOLIDOMDocument& document) override {
    if (source.GetKind() == ZOLIXMLInputSource::Kind::File)
      return BuildDocumentFromFile(source.GetContent(), names, values, document);
    _lastError.clear();
    ReadOptions options;
    if (!ParseOptions(names, values, &options, nullptr)) return E_INVALIDARG;
    TextInput in{&source.GetContent(), 0};
    return Read(ReadText, &in, source.GetSystemId(), options, document);
  }

  HRESULT CreateDocument(ZOLIDOMDocument& document) override {
    ZOLXMLInitialize();
    _lastError.clear();
    xmlDoc* doc = xmlNewDoc(reinterpret_cast<const xmlChar*>("1.0"));
    if (!doc) return E_FAIL;
    doc->dict = xmlDictCreate();  // element names are interned, as in a parsed document
    document = ZOLIDOMDocument(R(doc));
    return S_OK;
  }

  HRESULT WriteToFile(const ZOLIDOMDocument& document, std::string_view path, const ZOLListValZOLUnicodeString& names,
                      const ZOLListValZOLUnicodeString& values) override {
    std::string text;
    HRESULT hr = WriteToString(document, text, names, values);
    if (FAILED(hr)) return hr;
    std::string p = Z(path);
    if (FAILED(ZOLWriteFileAtomically(p.c_str(), text))) {
      _lastError = p + ": cannot write: " + std::strerror(errno);
      return E_FAIL;
    }
    return S_OK;
  }

  HRESULT WriteToString(const ZOLIDOMDocument& document, std::string& text, const ZOLListValZOLUnicodeString& names,
                        const ZOLListValZOLUnicodeString& values) override {
    ZOLXMLInitialize();
    _lastError.clear();
    WriteOptions options;
    if (!ParseOptions(names, values, nullptr, &options)) return E_INVALIDARG;
    if (document.IsNull()) {
      _lastError = "no document";
      return E_FAIL;
    }
    // The document says UTF-8 and the writer is given no encoding of its own: it then writes the
    // tree's UTF-8 as it stands, without a conversion pass.
    xmlDoc* doc = X(document.Raw());
    if (!doc->encoding || !xmlStrEqual(doc->encoding, reinterpret_cast<const xmlChar*>("UTF-8"))) {
      if (doc->encoding) xmlFree(const_cast<xmlChar*>(doc->encoding));
      doc->encoding = xmlStrdup(reinterpret_cast<const xmlChar*>("UTF-8"));
    }
    std::string out;
    xmlSaveCtxtPtr save = xmlSaveToIO(WriteString, nullptr, &out, nullptr, options.pretty ? XML_SAVE_FORMAT : 0);
    if (!save) {
      _lastError = "cannot start the writer";
      return E_FAIL;
    }
    long rc = xmlSaveDoc(save, doc);
    if (xmlSaveClose(save) < 0 || rc < 0) {
      _lastError = "the writer failed";
      return E_FAIL;
    }
    text = std::move(out);
    return S_OK;
  }

  const std::string& GetLastError() const override { return _lastError; }

private:
  // Reads the option lists; read options go to r, write options to w, and a name that belongs to
  // neither call, or a value that is not Boolean, is refused.
  bool ParseOptions(const ZOLListValZOLUnicodeString& names, const ZOLListValZOLUnicodeString& values,
                    ReadOptions* r, WriteOptions* w) {
    if (names.Size() != values.Size()) {
      _lastError = "option names and values differ in number";
      return false;
    }
    for (int i = 1; i <= names.Size(); ++i) {
      bool on = false;
      if (!IsTrue(values[i], on)) {
        _lastError = "option " + names[i].str() + ": not true or false: " + values[i].str();
        return false;
      }
      if (r && names[i] == ZOLDOMOptionDoValidation) r->validate = on;
      else if (r && names[i] == ZOLDOMOptionEnableNameSpaces) r->namespaces = on;
      else if (w && names[i] == ZOLDOMOptionPrettyPrint) w->pretty = on;
      else {
        _lastError = "option not supported here: " + names[i].str();
        return false;
      }
    }
    return true;
  }

  // Stops the parse for good, with the reason as the last error.
  void Refuse(xmlParserCtxtPtr ctxt, const std::string& message) {
    if (!_refused) _lastError = _readingId + ":" + std::to_string(ctxt->input ? ctxt->input->line : 0) + ": " + message;
    _refused = true;
    xmlStopParser(ctxt);
  }

  static void OnEntityDecl(void* data, const xmlChar* name, int, const xmlChar*, const xmlChar*, xmlChar*) {
    auto* ctxt = static_cast<xmlParserCtxtPtr>(data);
    static_cast<Builder*>(ctxt->_private)->Refuse(ctxt, ZOLXMLEntityDeclaredMessage(View(name)));
  }

  static void OnUnparsedEntityDecl(void* data, const xmlChar* name, const xmlChar*, const xmlChar*, const xmlChar*) {
    OnEntityDecl(data, name, 0, nullptr, nullptr, nullptr);
  }

  static void OnError(void* data, xmlErrorPtr error) {
    auto* ctxt = static_cast<xmlParserCtxtPtr>(data);
    auto* self = ctxt ? static_cast<Builder*>(ctxt->_private) : nullptr;
    if (!self || !error) return;
    // With an external DTD named but never loaded, libxml2 lets an undeclared reference pass as a
    // mere error and keeps it as a node; a reference is refused like a declaration.
    if (error->code == XML_WAR_UNDECLARED_ENTITY || error->code == XML_ERR_UNDECLARED_ENTITY) self->_refused = true;
    if (!self->_lastError.empty()) return;
    // With namespaces off a namespace error is no reason to refuse the document.
    if (error->domain == XML_FROM_NAMESPACE && !self->_reading.namespaces) return;
    if (error->level == XML_ERR_WARNING) return;
    std::string message = error->message ? error->message : "";
    while (!message.empty() && message.back() == '\n') message.pop_back();
    self->_lastError = (error->file ? std::string(error->file) : std::string()) + ":" + std::to_string(error->line) + ": " + message;
  }

  HRESULT Read(xmlInputReadCallback read, void* input, const std::string& systemId, const ReadOptions& options,
               ZOLIDOMDocument& document) {
    ZOLXMLInitialize();
    xmlParserCtxtPtr ctxt = xmlNewParserCtxt();
    if (!ctxt) {
      _lastError = "out of memory";
      return E_FAIL;
    }
    _reading = options;
    _readingId = systemId;
    _refused = false;
    ctxt->_private = this;
    ctxt->sax->serror = OnError;
    ctxt->sax->entityDecl = OnEntityDecl;
    ctxt->sax->unparsedEntityDecl = OnUnparsedEntityDecl;
    // HUGE lifts the 10 MB bounds on a text and on a start tag (which several long attributes in a
    // row can pass together) that the writer cannot keep to; entities being refused, it opens
    // nothing else.
    int flags = XML_PARSE_NONET | XML_PARSE_HUGE | (options.validate ? XML_PARSE_DTDVALID : 0);
    xmlDoc* doc = nullptr;
    {
      ParseScope scope;
      doc = xmlCtxtReadIO(ctxt, read, nullptr, input, systemId.empty() ? nullptr : systemId.c_str(), nullptr, flags);
    }
    bool ok = doc && !_refused && ctxt->wellFormed && (!options.namespaces || ctxt->nsWellFormed) &&
              (!options.validate || ctxt->valid);
    xmlFreeParserCtxt(ctxt);
    if (!ok) {
      if (doc) xmlFreeDoc(doc);
      if (_lastError.empty()) _lastError = systemId + ": not a well-formed document";
      return E_FAIL;
    }
    if (!options.namespaces) doc->_private = &g_noNamespaces;
    document = ZOLIDOMDocument(R(doc));
    return S_OK;
  }

  std::string _lastError;
  ReadOptions _reading;
  std::string _readingId;
  bool _refused = false;
};

}  // namespace

HRESULT CreateZOLIXMLDOMDocumentBuilder(std::unique_ptr<ZOLIXMLDOMDocumentBuilder>& builder) {
  ZOLXMLInitialize();
  builder = std::make_unique<Builder>();
  return S_OK;
}
