// SAX2 services of the platform: input sources, a reader, and the two handler interfaces.
// Names and text reach the handlers as UTF-8 views that are valid for the call only.
#pragma once
#include <memory>
#include <string>
#include <string_view>

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
