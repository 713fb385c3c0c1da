// The read-only, in-memory standard: loaded once in one SAX pass into an immutable node tree,
// with caches of resolved values keyed by dotted path. Not exported; reached through its TIEs.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ZOLBaseUnknown.h"
#include "ZOLDftStandardValueType.h"
#include "ZOLListValZOLUnicodeString.h"
#include "ZOLUnicodeString.h"
#include "standard/ZOLVotKeyMap.h"
#include "ZOLXMLSAX.h"

class ZOLIStandardValue;
class ZOLIDrwStandard;
class ZOLIDftStandard;
class ZOLIQelStandard;

/// Element kinds by qualified name; Other keeps the name as read.
enum class ZOLVotNodeKind : uint8_t { Other, Node, TypeVal, IntVal, FloatVal, StrVal, EnumVal, ColorVal, EnumDef, TypeDef };
inline constexpr size_t kZOLVotNodeKinds = static_cast<size_t>(ZOLVotNodeKind::TypeDef) + 1;

/// One element of a standard, in the object's node store. Children are linked in document order.
struct ZOLVotStandardNode {
  static constexpr uint32_t kNone = UINT32_MAX;
  ZOLVotSpan name;                // the "name" attribute, empty when absent
  ZOLVotSpan value;               // the text of a value element
  uint32_t typeOff = 0;           // the qualified name of an Other element
  uint32_t firstChild = kNone;
  uint32_t nextSibling = kNone;
  uint16_t typeLen = 0;
  ZOLVotNodeKind kind = ZOLVotNodeKind::Other;
};

/// One value that the load or a read filed, for listings.
struct ZOLVotFiledValue {
  std::string key;   // the cache key
  const char* kind;  // "integer", "real", "string", "enum", "integers", "reals", "strings"
  std::string text;  // the value, elements separated by blanks
};

class ZOLVotTransientStandard final : public ZOLBaseUnknown {
public:
  /// Loads a standard file. A failed load is reported; the object then answers from what was read.
  ZOLVotTransientStandard(const ZOLUnicodeString& filePath, const ZOLUnicodeString& name);
  /// Loads a standard from a text (null: nothing to read).
  ZOLVotTransientStandard(const ZOLUnicodeString* text, const ZOLUnicodeString& name);
  ~ZOLVotTransientStandard() override;

  static const ZOLMetaClass* MetaObject();
  const ZOLMetaClass* GetMetaObject() const override { return MetaObject(); }

  // Operations of the standard interfaces, in the order of ZOLIDrwStandard.
  virtual HRESULT GetName(wchar_t** oName);
  virtual HRESULT GetName(ZOLUnicodeString& oName);
  virtual HRESULT GetParentStandard(wchar_t** oName);
  virtual HRESULT GetParentStandard(ZOLUnicodeString& oName);
  virtual unsigned char HasNode(const char* iPath);
  virtual HRESULT GetValue(const char* iPath, int iIndex, ZOLUnicodeString& oValue);
  virtual HRESULT GetValue(const char* iPath, ZOLUnicodeString** oValues, int* oCount);
  virtual HRESULT GetValue(const char* iPath, int iIndex, double& oValue);
  virtual HRESULT GetValue(const char* iPath, double* oValues, int* oCount);
  virtual HRESULT GetValue(const char* iPath, int iIndex, int& oValue);
  virtual HRESULT GetValue(const char* iPath, int* oValues, int* oCount);
  virtual HRESULT Reserved12();
  virtual HRESULT GetValueType(const char* iPath, ZOLDftStandardValueType* oType, int* oCount);
  virtual HRESULT GetThicknessIndex(double iMillimetres, int* oIndex);
  virtual HRESULT Reserved15();
  virtual HRESULT Reserved16();
  virtual HRESULT Reserved17();
  virtual int GetStdVersion();
  virtual HRESULT GetReserved19(int iUnused, int* oValue);
  virtual HRESULT Reserved20();
  virtual HRESULT Reserved21();
  virtual HRESULT Reserved22();
  virtual HRESULT GetStandardValue(ZOLIStandardValue** oValue);
  virtual HRESULT Reserved24();
  virtual HRESULT Reserved25();
  virtual HRESULT Reserved26();
  virtual void Reserved27();
  virtual HRESULT Reserved28();
  virtual HRESULT GetStyleNames(const char* iType, ZOLListValZOLUnicodeString* oNames);
  virtual HRESULT GetStandardValue(ZOLIStandardValue** oValue, char** oFirst, char** oSecond);

  // Content handler and error handler of the load.
  virtual int StartDocument() { return 0; }
  virtual int EndDocument() { return 0; }
  virtual int StartElement(std::string_view namespaceURI, std::string_view localName, std::string_view qualifiedName,
                           const ZOLISAXAttributes& attributes);
  virtual int EndElement(std::string_view namespaceURI, std::string_view localName, std::string_view qualifiedName);
  virtual int Characters(std::string_view text);
  virtual int IgnorableWhitespace(std::string_view) { return 0; }
  virtual int ProcessingInstruction(std::string_view, std::string_view) { return 0; }
  virtual int SetDocumentLocator(int, int) { return 0; }
  virtual int SkippedEntity(std::string_view) { return 0; }
  virtual int StartPrefixMapping(std::string_view, std::string_view) { return 0; }
  virtual int EndPrefixMapping(std::string_view) { return 0; }
  virtual int Warning(const ZOLSAXParseError&) { return 0; }
  virtual int Error(const ZOLSAXParseError&) { return 0; }
  virtual int FatalError(const ZOLSAXParseError&) { return 0; }

  /// The node at a dotted path and one-based index, or null; the node stays owned by the object.
  const ZOLVotStandardNode* FindNode(std::string_view path, int index);
  /// The root element, or null when the document did not close.
  const ZOLVotStandardNode* Root() const { return _Root == ZOLVotStandardNode::kNone ? nullptr : &_Nodes[_Root]; }
  /// The first child of a node, or null.
  const ZOLVotStandardNode* FirstChild(const ZOLVotStandardNode& n) const { return At(n.firstChild); }
  /// The next sibling of a node, or null.
  const ZOLVotStandardNode* NextSibling(const ZOLVotStandardNode& n) const { return At(n.nextSibling); }
  /// The name of a node.
  std::string_view Name(const ZOLVotStandardNode& n) const { return ZOLVotView(_Chars, n.name); }
  /// The text of a value node.
  std::string_view Value(const ZOLVotStandardNode& n) const { return ZOLVotView(_Chars, n.value); }
  /// The qualified name of a node's element, as read.
  std::string_view Type(const ZOLVotStandardNode& n) const;
  /// The literals of an enum definition, or null; filed at load for completeness, not read by the getters.
  const std::vector<ZOLVotSpan>* EnumDefinition(std::string_view name) const { return _EnumDefinitions.Find(name); }
  /// Every filed value whose key starts with prefix, sorted by key with indexes in numeric order.
  void ListFiledValues(std::string_view prefix, std::vector<ZOLVotFiledValue>& oValues) const;
  /// Bytes held by the tree and the caches, for measurements.
  size_t MemoryBytes() const;

  /// Splits a colour text at blanks into integers as std::stoi would read each piece; throws
  /// std::invalid_argument or std::out_of_range on a bad piece.
  static void SplitColor(std::string_view text, std::vector<int>& oValues);

private:
  class LeanLoad;
  HRESULT Load(const ZOLUnicodeString* source, bool isBuffer);
  void Reserve(size_t textBytes);
  void FinishLoad();
  // The load's work for a start tag (tag: the qualified name, needed for Other kinds only) and an end tag.
  [[gnu::always_inline]] inline void OpenNode(ZOLVotNodeKind kind, std::string_view name, std::string_view tag);
  [[gnu::always_inline]] inline void CloseNode();
  // The rare part of that work: typed entries and definitions, and the first element after an entry.
  [[gnu::noinline, gnu::cold]] void OpenEntryOrDefinition(ZOLVotNodeKind kind, std::string_view name);
  [[gnu::noinline, gnu::cold]] void CloseEntryOrDefinition(ZOLVotNodeKind kind);
  // The load's work for character data.
  [[gnu::always_inline]] inline void GatherText(std::string_view text);
  // A value to file: its key (path and index) in _Keys, and whether it is the first at its path
  // since the value before.
  struct PendingValue {
    ZOLVotSpan key;
    uint32_t pathLength;
    ZOLVotSpan text;
    ZOLVotNodeKind kind;
    bool firstAtPath;
  };
  // Takes down a value's key and text at its end tag; FilePending files what was taken down.
  [[gnu::always_inline]] inline void DeferValue(ZOLVotNodeKind kind, ZOLVotSpan text);
  void FilePending();
  [[gnu::always_inline]] inline void FileValue(const PendingValue& value);
  // Drops the text gathered since the last start tag or value, reclaiming its characters when
  // nothing was stored after them.
  void DropText() {
    if (_Text.off + _Text.len == _Chars.size()) _Chars.Truncate(_Text.off);
    _Text = {static_cast<uint32_t>(_Chars.size()), 0};
  }
  const ZOLVotStandardNode* At(uint32_t i) const { return i == ZOLVotStandardNode::kNone ? nullptr : &_Nodes[i]; }
  uint32_t IndexOf(const ZOLVotStandardNode* n) const { return static_cast<uint32_t>(n - _Nodes.data()); }
  const ZOLVotStandardNode* FindChild(uint32_t first, std::string_view name) const;
  // "path.index", "parent-of-path.index" and head + tail, built in the reused key buffer.
  std::string_view MakeKey(std::string_view path, int index);
  std::string_view JoinKey(std::string_view head, std::string_view tail);
  std::string_view MakeParentKey(std::string_view path, int index);
  // One integer or real: the cache, else the leaf of that kind or a node's first child, read and cached.
  template <class T, class Read>
  HRESULT GetSingle(ZOLVotKeyMap<T>& cache, ZOLVotNodeKind leaf, Read read, const char* iPath, int iIndex, T& oValue);
  static int ReadInt(std::string_view text);
  static double ReadReal(std::string_view text);
  HRESULT Stub();

  ZOLUnicodeString _Name;
  ZOLUnicodeString _FilePath;
  int _Version = -1;

  // Names and values, addressed by spans.
  ZOLVotChars _Chars;
  // The keys of the maps. The load writes each value's key here once, and the map keeps that copy.
  ZOLVotChars _Keys;
  // Element nodes in the order of their start tags; _Root indexes the document element.
  std::vector<ZOLVotStandardNode> _Nodes;
  uint32_t _Root = ZOLVotStandardNode::kNone;

  ZOLVotKeyMap<std::vector<ZOLVotSpan>> _EnumDefinitions{_Keys};
  ZOLVotKeyMap<int> _IntValues{_Keys};
  ZOLVotKeyMap<std::vector<int>> _IntArrays{_Keys};
  ZOLVotKeyMap<double> _DoubleValues{_Keys};
  ZOLVotKeyMap<std::vector<double>> _DoubleArrays{_Keys};
  ZOLVotKeyMap<ZOLVotSpan> _StringValues{_Keys};
  ZOLVotKeyMap<ZOLVotSpan> _EnumValues{_Keys};
  ZOLVotKeyMap<std::vector<ZOLVotSpan>> _StringArrays{_Keys};
  ZOLVotKeyMap<uint32_t> _NodeCache{_Keys};

  // Load state.
  struct OpenElement {
    uint32_t node;
    uint32_t lastChild;
    // The path's length before the element added its name, and _PathIrregular then: when no
    // irregular cut came between, the element's end restores that length without a search.
    uint32_t pathBefore;
    uint32_t irregular;
    ZOLVotNodeKind kind;
    bool nameless;
    bool addedPlainName;  // added a name without dots to the path
  };
  ZOLVotChars _CurrentPath;
  // Counts the changes of _CurrentPath; a value filed with no change since the last is at its path.
  uint32_t _PathChanges = 0;
  // Counts the ends that cut the path at its last dot by search (see OpenElement).
  uint32_t _PathIrregular = 0;
  uint32_t _FiledAtChanges = 0;
  // Values taken down and not filed yet. The load files them once the parse is over, so that
  // the maps do not compete with the parser for the cache; anyone else driving the content
  // handler gets each value filed at its end tag. Grouped by the maps they go to (integers and
  // colours, reals, strings and enums): the groups share no map, so filing each in its own run,
  // in document order, gives what one run would.
  std::vector<PendingValue> _Pending[3];
  // Values taken down and not filed, by kind: the maps are sized for them just before filing,
  // so that their slots are fresh in the cache when filled.
  uint32_t _PendingCounts[kZOLVotNodeKinds] = {};
  // The path of the last value taken down, in _Keys; empty before the first.
  ZOLVotSpan _LastValuePath;
  bool _DeferFiling = false;
  // The character data since the last start tag or value, gathered straight into the store while
  // a value element is open (no other text is ever read).
  ZOLVotSpan _Text;
  int _OpenValues = 0;
  std::vector<OpenElement> _Open;
  int _TypevalIndex = 1;
  unsigned char _TypevalClosed = 0;
  std::optional<std::string> _TypevalName;
  std::optional<std::string> _TypedefName;
  std::optional<std::string> _EnumdefName;
  std::vector<ZOLVotSpan> _EnumdefValues;
  // "." and the typed-entry index, written again only when the index changes.
  char _Suffix[16] = {};
  uint8_t _SuffixLength = 0;
  int _SuffixIndex = 0;

  // Reused buffers of cache keys and path components.
  std::string _Key;
  std::string _NodeKey;
  std::vector<std::string_view> _Components;
};

/// The TIE creators: a new reference on the attachment of the interface on a standard object
/// (made on first use, then the same), or null for another object.
ZOLIDrwStandard* CreateTIEZOLIDrwStandardZOLVotTransientStandard(ZOLBaseUnknown* iObject);
ZOLIDftStandard* CreateTIEZOLIDftStandardZOLVotTransientStandard(ZOLBaseUnknown* iObject);
ZOLIQelStandard* CreateTIEZOLIQelStandardZOLVotTransientStandard(ZOLBaseUnknown* iObject);
ZOLISAXContentHandler* CreateTIEZOLISAXContentHandlerZOLVotTransientStandard(ZOLBaseUnknown* iObject);
ZOLISAXErrorHandler* CreateTIEZOLISAXErrorHandlerZOLVotTransientStandard(ZOLBaseUnknown* iObject);
