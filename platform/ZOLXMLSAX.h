// SAX2 services of the platform: input sources, a reader, and the two handler interfaces.
// Names and text reach the handlers as UTF-8 views that are valid for the call only.
#pragma once
#include <exception>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

#include "ZOLResult.h"

/// Attributes of a start tag.
class ZOLISAXAttributes {
public:
  virtual ~ZOLISAXAttributes() = default;
  /// Value of the attribute of that qualified name; 1 if present, 0 otherwise (value then left as it was).
  virtual int GetValue(std::string_view qualifiedName, std::string_view& value) const = 0;
  /// Number of attributes.
  virtual int GetLength() const = 0;
};

/// Position and text of a parse error.
struct ZOLSAXParseError {
  std::string message;
  std::string systemId;
  int line = 0;
  int column = 0;
};

/// Receives the content of a document, in document order. Results: 0 to go on.
class ZOLISAXContentHandler {
public:
  virtual ~ZOLISAXContentHandler() = default;
  virtual int StartDocument() = 0;
  virtual int EndDocument() = 0;
  virtual int StartElement(std::string_view namespaceURI, std::string_view localName,
                           std::string_view qualifiedName, const ZOLISAXAttributes& attributes) = 0;
  virtual int EndElement(std::string_view namespaceURI, std::string_view localName,
                         std::string_view qualifiedName) = 0;
  /// Character data, text and CDATA alike; one run may arrive in several calls.
  virtual int Characters(std::string_view text) = 0;
  virtual int IgnorableWhitespace(std::string_view text) = 0;
  virtual int ProcessingInstruction(std::string_view target, std::string_view data) = 0;
  virtual int SetDocumentLocator(int line, int column) = 0;
  virtual int SkippedEntity(std::string_view name) = 0;
  virtual int StartPrefixMapping(std::string_view prefix, std::string_view uri) = 0;
  virtual int EndPrefixMapping(std::string_view prefix) = 0;
};

/// The name of an element or attribute as the parser holds it, in parts; prefix and URI are null
/// when absent. The parts are texts of the parse's dictionary, which holds each text once and
/// keeps it in place until the parse ends: parts at the same address are the same text (texts
/// that did not come from the dictionary are still compared by content by a careful handler).
struct ZOLSAXName {
  const char* local = nullptr;
  const char* prefix = nullptr;
  const char* uri = nullptr;
};

/// The attributes of a start tag as the parser holds them, without copies.
class ZOLSAXAttributeList {
public:
  /// Over count attributes of five pointers each: local name, prefix, URI, value, value end.
  ZOLSAXAttributeList(const unsigned char* const* attributes, int count) : _attributes(attributes), _count(count) {}
  int Count() const { return _count; }
  ZOLSAXName Name(int i) const {
    const unsigned char* const* a = _attributes + 5 * i;
    return {Text(a[0]), Text(a[1]), Text(a[2])};
  }
  /// The decoded value (not terminated).
  std::string_view Value(int i) const {
    const unsigned char* const* a = _attributes + 5 * i;
    return {Text(a[3]), static_cast<size_t>(a[4] - a[3])};
  }

private:
  static const char* Text(const unsigned char* s) { return reinterpret_cast<const char*>(s); }
  const unsigned char* const* _attributes;
  int _count;
};

/// Finds texts in the dictionary of a parse.
class ZOLISAXDictionary {
public:
  virtual ~ZOLISAXDictionary() = default;
  /// The dictionary's copy of text, added if absent; valid until the parse ends; null when out of memory.
  virtual const char* Intern(std::string_view text) const = 0;
};

/// Element and text callbacks in the parser's own form, as ZOLSAXDirectLane makes them for a
/// handler type; the parser calls them with the reader's ZOLSAXLaneState.
struct ZOLSAXLeanCallbacks {
  using Start = void (*)(void* state, const unsigned char* local, const unsigned char* prefix, const unsigned char* uri,
                         int namespaceCount, const unsigned char** namespaces, int attributeCount, int defaulted,
                         const unsigned char** attributes);
  using End = void (*)(void* state, const unsigned char* local, const unsigned char* prefix, const unsigned char* uri);
  using Text = void (*)(void* state, const unsigned char* text, int length);
  Start start;
  End end;
  Text text;
};

class ZOLISAXLeanContentHandler;

/// What a reader shares with the callbacks of a direct lane during a parse.
class ZOLSAXLaneState {
public:
  ZOLISAXLeanContentHandler* handler = nullptr;
  /// Set once the parse is to end: no event reaches a handler after that.
  bool stopped = false;
  /// Elements open, and the depth of the innermost one that declared prefixes (0 for none).
  int depth = 0;
  int prefixedDepth = 0;
  /// Ends the parse: a handler's result other than 0.
  virtual void Stop() = 0;
  /// Ends the parse with a handler's exception, rethrown once the parser has returned.
  virtual void Fail(std::exception_ptr exception) = 0;
  /// Prefix mappings declared by the element at depth, and their end, for the content handler.
  virtual void StartPrefixes(int count, const unsigned char** namespaces) = 0;
  virtual void EndPrefixes() = 0;

protected:
  ~ZOLSAXLaneState() = default;
};

/// A content handler for documents of many small elements: elements come with their names in
/// parts, as the parser's dictionary holds them, so that the handler can tell names apart by
/// address instead of by text. Results: 0 to go on.
class ZOLISAXLeanContentHandler {
public:
  virtual ~ZOLISAXLeanContentHandler() = default;
  /// Before the first element, with the dictionary of the parse, for the names to look out for.
  virtual int StartParse(const ZOLISAXDictionary& dictionary) = 0;
  virtual int StartElement(const ZOLSAXName& name, const ZOLSAXAttributeList& attributes) = 0;
  virtual int EndElement(const ZOLSAXName& name) = 0;
  /// Character data, text and CDATA alike; one run may arrive in several calls.
  virtual int Characters(std::string_view text) = 0;
  /// Callbacks for the parser to call in place of the reader's, with the same results; null to
  /// take the reader's. See ZOLSAXDirectLane.
  virtual const ZOLSAXLeanCallbacks* DirectCallbacks() const { return nullptr; }
};

/// The parser's callbacks for a lean handler type: they call its StartElement, EndElement and
/// Characters straight from the parser, without a call through the reader. For a final type the
/// calls are direct and can be inlined, which counts on documents where these events are most of
/// the work; such a handler returns &ZOLSAXDirectLane<itself>::kCallbacks from DirectCallbacks.
template <class Handler>
class ZOLSAXDirectLane {
  static_assert(std::is_base_of_v<ZOLISAXLeanContentHandler, Handler>);

  template <typename F>
  [[gnu::always_inline]] static void Call(ZOLSAXLaneState& s, F&& f) {
    try {
      if (f() != 0) s.Stop();
    } catch (...) {
      s.Fail(std::current_exception());
    }
  }
  static Handler& Of(ZOLSAXLaneState& s) { return static_cast<Handler&>(*s.handler); }
  static const char* Chars(const unsigned char* s) { return reinterpret_cast<const char*>(s); }

  static void Start(void* state, const unsigned char* local, const unsigned char* prefix, const unsigned char* uri,
                    int namespaceCount, const unsigned char** namespaces, int attributeCount, int,
                    const unsigned char** attributes) {
    ZOLSAXLaneState& s = *static_cast<ZOLSAXLaneState*>(state);
    ++s.depth;
    if (namespaceCount > 0) s.StartPrefixes(namespaceCount, namespaces);
    if (s.stopped) return;
    Call(s, [&] {
      return Of(s).StartElement(ZOLSAXName{Chars(local), Chars(prefix), Chars(uri)},
                                ZOLSAXAttributeList(attributes, attributeCount));
    });
  }
  static void End(void* state, const unsigned char* local, const unsigned char* prefix, const unsigned char* uri) {
    ZOLSAXLaneState& s = *static_cast<ZOLSAXLaneState*>(state);
    if (!s.stopped) Call(s, [&] { return Of(s).EndElement(ZOLSAXName{Chars(local), Chars(prefix), Chars(uri)}); });
    // Most elements declare no prefix.
    if (s.depth != s.prefixedDepth) --s.depth;
    else s.EndPrefixes();
  }
  static void Characters(void* state, const unsigned char* text, int length) {
    ZOLSAXLaneState& s = *static_cast<ZOLSAXLaneState*>(state);
    if (s.stopped || length <= 0) return;
    Call(s, [&] { return Of(s).Characters(std::string_view(Chars(text), static_cast<size_t>(length))); });
  }

public:
  static constexpr ZOLSAXLeanCallbacks kCallbacks{&Start, &End, &Characters};
};

/// Receives the problems of a parse. Results: 0 to go on where the parser can.
class ZOLISAXErrorHandler {
public:
  virtual ~ZOLISAXErrorHandler() = default;
  virtual int Warning(const ZOLSAXParseError& error) = 0;
  virtual int Error(const ZOLSAXParseError& error) = 0;
  virtual int FatalError(const ZOLSAXParseError& error) = 0;
};

/// Where a document comes from: a file path, or a text held by the source or borrowed from its caller.
class ZOLIXMLInputSource {
public:
  enum class Kind { File, Text };
  /// Marks the constructor of a text source that refers to its caller's text instead of copying it.
  struct Borrowed {};
  ZOLIXMLInputSource(Kind kind, std::string content, std::string systemId)
      : _kind(kind), _content(std::move(content)), _systemId(std::move(systemId)) {}
  /// A text source over text that the caller keeps alive and unchanged for the life of the source.
  ZOLIXMLInputSource(Borrowed, std::string_view text, std::string systemId)
      : _kind(Kind::Text), _borrowed(text), _isBorrowed(true), _systemId(std::move(systemId)) {}
  /// File or Text.
  Kind GetKind() const { return _kind; }
  /// The path of a file source, the text of a text source (a borrowed text is copied on first call).
  const std::string& GetContent() const {
    if (_isBorrowed && _content.size() != _borrowed.size()) _content.assign(_borrowed);
    return _content;
  }
  /// The path of a file source, the text of a text source; never copies.
  std::string_view GetText() const { return _isBorrowed ? _borrowed : std::string_view(_content); }
  /// The system identifier given at creation.
  const std::string& GetSystemId() const { return _systemId; }

private:
  Kind _kind;
  mutable std::string _content;
  std::string_view _borrowed;
  bool _isBorrowed = false;
  std::string _systemId;
};

/// Feature URI of schema validation; the reader accepts false only.
inline constexpr std::string_view ZOLSAXFeatureSchemaValidation = "http://apache.org/xml/features/validation/schema";

/// A namespace-aware SAX2 reader over libxml2, with network access, DTD loading and external entities off.
class ZOLISAXXMLReader {
public:
  virtual ~ZOLISAXXMLReader() = default;
  /// Sets a Boolean feature; S_OK, or E_NOTIMPL for a feature the reader cannot honour.
  virtual HRESULT SetFeature(std::string_view uri, bool value) = 0;
  /// The handler for problems; not owned; null for none.
  virtual HRESULT SetErrorHandler(ZOLISAXErrorHandler* handler) = 0;
  /// The handler for content; not owned; null for none.
  virtual HRESULT SetContentHandler(ZOLISAXContentHandler* handler) = 0;
  /// A lean handler that takes elements and character data in place of the content handler,
  /// which keeps the other events; not owned; null for none. E_NOTIMPL where the reader has no
  /// such lane.
  virtual HRESULT SetLeanContentHandler(ZOLISAXLeanContentHandler*) { return E_NOTIMPL; }
  /// Parses the source in one pass. S_OK for a well-formed document, E_FAIL when it stops on an
  /// error (what was handed to the handlers stays handed). An exception thrown by a handler stops
  /// the parse and is rethrown to the caller of Parse.
  virtual HRESULT Parse(const ZOLIXMLInputSource& source) = 0;
};

/// Makes input sources and readers.
class ZOLIXMLSAX2Factory {
public:
  virtual ~ZOLIXMLSAX2Factory() = default;
  /// A source over a text (copied); S_OK.
  virtual HRESULT CreateInputSourceFromText(std::string_view text, std::string_view systemId,
                                            std::unique_ptr<ZOLIXMLInputSource>& source) = 0;
  /// A source over a text that is not copied: the caller keeps it alive and unchanged as long as
  /// the source lives; S_OK.
  virtual HRESULT CreateInputSourceOverText(std::string_view text, std::string_view systemId,
                                            std::unique_ptr<ZOLIXMLInputSource>& source) {
    source = std::make_unique<ZOLIXMLInputSource>(ZOLIXMLInputSource::Borrowed{}, text, std::string(systemId));
    return S_OK;
  }
  /// A source over a file path; S_OK (the file is opened by the parse).
  virtual HRESULT CreateInputSourceFromFile(std::string_view path, std::string_view systemId,
                                            std::unique_ptr<ZOLIXMLInputSource>& source) = 0;
  /// A new reader; S_OK or E_FAIL.
  virtual HRESULT CreateReader(std::unique_ptr<ZOLISAXXMLReader>& reader) = 0;
};

/// The SAX2 factory over libxml2; S_OK or E_FAIL.
HRESULT CreateZOLIXMLSAX2Factory(std::unique_ptr<ZOLIXMLSAX2Factory>& factory);
