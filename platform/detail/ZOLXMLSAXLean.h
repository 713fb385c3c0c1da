// The lean lane of the platform's SAX reader, for the library's own one-pass loads: elements come
// with their names in parts as the parser's dictionary holds them, and a handler of a final type
// can have the parser call it directly. Internal: the callbacks carry the parser's own signatures,
// which no installed header may show.
#pragma once
#include <exception>
#include <string_view>
#include <type_traits>

#include "ZOLResult.h"
#include "ZOLXMLSAX.h"

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

/// A reader that has a lean lane.
class ZOLISAXLeanReader {
public:
  /// A lean handler that takes elements and character data in place of the content handler,
  /// which keeps the other events; not owned; null for none.
  virtual HRESULT SetLeanContentHandler(ZOLISAXLeanContentHandler* handler) = 0;

protected:
  ~ZOLISAXLeanReader() = default;
};

/// Gives a reader of the platform a lean handler; E_NOTIMPL for a reader without the lane.
inline HRESULT ZOLSAXSetLeanContentHandler(ZOLISAXXMLReader& reader, ZOLISAXLeanContentHandler* handler) {
  ZOLISAXLeanReader* lean = dynamic_cast<ZOLISAXLeanReader*>(&reader);
  return lean ? lean->SetLeanContentHandler(handler) : E_NOTIMPL;
}
