// The read-only, in-memory standard: loaded once in one SAX pass into its store, an immutable
// node tree with maps of resolved values keyed by dotted path. Not exported; reached through its
// TIEs. Its operations stand in one file per face: values, styles; the load and the rest here.
#pragma once
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "ZOLBaseUnknown.h"
#include "ZOLDftStandardValueType.h"
#include "ZOLListValZOLUnicodeString.h"
#include "ZOLUnicodeString.h"
#include "ZOLVar.h"
#include "standard/ZOLVotStandardStore.h"
#include "ZOLXMLSAX.h"

class ZOLIStandardValue;
class ZOLIDftStyle;
class ZOLIDftStyleManager;
class ZOLIUnknownList;
class ZOLIDrwStandard;
class ZOLIDftStandard;
class ZOLIQelStandard;
class ZOLVotStandardLoader;
class ZOLIQelStandardContent;
class ZOLIQelStandardCommunication;
class ZOLOmxJsonObject;
class QelStdUnitDescription;
class QelStdToleranceDescription;
struct ZOLVotStandardContent;

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
  virtual unsigned char HasNode(const char* iPath) { return HasNode(Path(iPath)); }
  virtual HRESULT GetValue(const char* iPath, int iIndex, ZOLUnicodeString& oValue) {
    return GetValue(Path(iPath), iIndex, oValue);
  }
  virtual HRESULT GetValue(const char* iPath, ZOLUnicodeString** oValues, int* oCount) {
    return GetValue(Path(iPath), oValues, oCount);
  }
  virtual HRESULT GetValue(const char* iPath, int iIndex, double& oValue) {
    return GetValue(Path(iPath), iIndex, oValue);
  }
  virtual HRESULT GetValue(const char* iPath, double* oValues, int* oCount) {
    return GetValue(Path(iPath), oValues, oCount);
  }
  virtual HRESULT GetValue(const char* iPath, int iIndex, int& oValue) { return GetValue(Path(iPath), iIndex, oValue); }
  virtual HRESULT GetValue(const char* iPath, int* oValues, int* oCount) {
    return GetValue(Path(iPath), oValues, oCount);
  }
  virtual HRESULT Reserved12();
  virtual HRESULT GetValueType(const char* iPath, ZOLDftStandardValueType* oType, int* oCount) {
    return GetValueType(Path(iPath), oType, oCount);
  }
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
  virtual HRESULT GetValue(const char* iPath, int* oValues, int iCapacity, int* oCount) {
    return GetValue(Path(iPath), oValues, iCapacity, oCount);
  }
  virtual HRESULT GetValue(const char* iPath, double* oValues, int iCapacity, int* oCount) {
    return GetValue(Path(iPath), oValues, iCapacity, oCount);
  }
  virtual HRESULT GetValue(const char* iPath, ZOLUnicodeString** oValues, int iCapacity, int* oCount) {
    return GetValue(Path(iPath), oValues, iCapacity, oCount);
  }

  // The same reads on a path whose length the caller knows (a style's "type.name.path"), so that
  // it is not measured again; the forms above answer through these.
  unsigned char HasNode(std::string_view path);
  HRESULT GetValue(std::string_view path, int iIndex, ZOLUnicodeString& oValue);
  HRESULT GetValue(std::string_view path, ZOLUnicodeString** oValues, int* oCount);
  HRESULT GetValue(std::string_view path, int iIndex, double& oValue);
  HRESULT GetValue(std::string_view path, double* oValues, int* oCount);
  HRESULT GetValue(std::string_view path, int iIndex, int& oValue);
  HRESULT GetValue(std::string_view path, int* oValues, int* oCount);
  HRESULT GetValueType(std::string_view path, ZOLDftStandardValueType* oType, int* oCount);
  HRESULT GetValue(std::string_view path, int* oValues, int iCapacity, int* oCount);
  HRESULT GetValue(std::string_view path, double* oValues, int iCapacity, int* oCount);
  HRESULT GetValue(std::string_view path, ZOLUnicodeString** oValues, int iCapacity, int* oCount);

  // Operations of the style manager, each inner form before its wide form.
  virtual HRESULT GetStyle(ZOLUnicodeString iName, ZOLUnicodeString iType, ZOLVar<ZOLIDftStyle>& oStyle);
  virtual HRESULT GetStyle(const wchar_t* iName, const wchar_t* iType, ZOLIDftStyle** oStyle);
  virtual HRESULT GetStyles(ZOLUnicodeString iType, ZOLIUnknownList* iList, ZOLUnicodeString iContext);
  virtual HRESULT GetStyles(const wchar_t* iType, ZOLIUnknownList** oList, const wchar_t* iContext);
  virtual HRESULT StyleReserved3();
  virtual HRESULT GetStdVersion(int* oVersion);
  virtual HRESULT GetDefaultStyle(ZOLUnicodeString iType, ZOLUnicodeString& oName, ZOLUnicodeString iContext);
  virtual HRESULT GetDefaultStyle(const wchar_t* iType, wchar_t** oName, const wchar_t* iContext);
  virtual HRESULT SetDefaultStyle(ZOLUnicodeString iType, ZOLUnicodeString iName, ZOLUnicodeString iContext);
  virtual HRESULT SetDefaultStyle(const wchar_t* iType, const wchar_t* iName, const wchar_t* iContext);
  virtual HRESULT StyleReserved7();
  /// S_OK and the names of the style types, in document order; E_INVALIDARG for a null list,
  /// E_UNEXPECTED when the standard has no "Styles".
  HRESULT GetStyleTypes(ZOLListValZOLUnicodeString* oTypes);

  // Operations of the content face: the formats as description records, read on first use.
  virtual HRESULT GetUnits(std::vector<std::shared_ptr<QelStdUnitDescription>>& oUnits);
  virtual HRESULT GetUnit(ZOLUnicodeString iName, std::shared_ptr<QelStdUnitDescription>& oUnit);
  virtual HRESULT GetTolerances(std::vector<std::shared_ptr<QelStdToleranceDescription>>& oTolerances);
  virtual HRESULT GetTolerance(ZOLUnicodeString iName, std::shared_ptr<QelStdToleranceDescription>& oTolerance);
  // Operations of the communication face.
  virtual HRESULT GetStandardAsJson(ZOLOmxJsonObject& oJson);
  virtual HRESULT SetStandardFromJson(ZOLOmxJsonObject iJson);

  // Content handler and error handler of the load.
  virtual int StartDocument() { return 0; }
  /// Drops the loader of a document driven through the content handler.
  virtual int EndDocument();
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
  const ZOLVotStandardNode* FindNode(std::string_view path, int index) { return _Store.FindNode(path, index); }
  /// The store: the node tree, its texts and the filed values, for walks and listings.
  const ZOLVotStandardStore& Store() const { return _Store; }
  /// The root element, or null when the document did not close.
  const ZOLVotStandardNode* Root() const { return _Store.Root(); }
  /// The first child of a node, or null.
  const ZOLVotStandardNode* FirstChild(const ZOLVotStandardNode& n) const { return _Store.FirstChild(n); }
  /// The next sibling of a node, or null.
  const ZOLVotStandardNode* NextSibling(const ZOLVotStandardNode& n) const { return _Store.NextSibling(n); }
  /// The name of a node.
  std::string_view Name(const ZOLVotStandardNode& n) const { return _Store.Name(n); }
  /// The text of a value node.
  std::string_view Value(const ZOLVotStandardNode& n) const { return _Store.Value(n); }
  /// The qualified name of a node's element, as read.
  std::string_view Type(const ZOLVotStandardNode& n) const { return _Store.Type(n); }
  /// The literals of an enum definition, or null.
  const std::vector<ZOLVotSpan>* EnumDefinition(std::string_view name) const { return _Store.EnumDefinition(name); }
  /// Every filed value whose key starts with prefix, sorted by key with indexes in numeric order.
  void ListFiledValues(std::string_view prefix, std::vector<ZOLVotFiledValue>& oValues) const {
    _Store.ListFiledValues(prefix, oValues);
  }
  /// Bytes held by the object, its tree and its maps, for measurements.
  size_t MemoryBytes() const { return sizeof(*this) - sizeof(_Store) + _Store.MemoryBytes(); }

  /// Splits a colour text at blanks into integers as std::stoi would read each piece; throws
  /// std::invalid_argument or std::out_of_range on a bad piece.
  static void SplitColor(std::string_view text, std::vector<int>& oValues) { ZOLVotStandardStore::SplitColor(text, oValues); }

private:
  static std::string_view Path(const char* iPath) { return iPath ? iPath : ""; }
  HRESULT Load(const ZOLUnicodeString* source, bool isBuffer);
  // The loader of a document that a caller drives through the content handler, made at its first event.
  ZOLVotStandardLoader& Loader();
  // One integer or real: the map, else the leaf of that kind or a node's first child, read and filed.
  template <class T, class Read>
  HRESULT GetSingle(ZOLVotKeyMap<T>& cache, ZOLDftStdElement leaf, Read read, std::string_view path, int iIndex, T& oValue);
  HRESULT Stub();
  // What an array read finds: its elements (a filed array, or the one value) and the count that
  // the forms without a capacity report, which differs for a colour.
  template <class T>
  struct ArrayRead {
    const std::vector<T>* list = nullptr;
    T one{};
    size_t size = 0;
    int reported = 0;
    void Take(const std::vector<T>* l, int count) { list = l, size = l->size(), reported = count; }
    void TakeOne(T v) { one = v, size = 1, reported = 1; }
    const T& operator[](size_t i) const { return list ? (*list)[i] : one; }
  };
  ArrayRead<int> ReadIntArray(std::string_view path);
  ArrayRead<double> ReadRealArray(std::string_view path);
  ArrayRead<ZOLVotSpan> ReadStringArray(std::string_view path);
  // Copies a read out: all of it, or at most the capacity for a sized form.
  template <class T, class Out, class Put>
  HRESULT CopyArray(const ArrayRead<T>& read, Out* oValues, int iCapacity, int* oCount, bool sized, Put put);

  ZOLUnicodeString _Name;
  ZOLUnicodeString _FilePath;
  int _Version = -1;
  ZOLVotStandardStore _Store;
  // Only while a load runs: the constructor's own, or one driven through the content handler.
  std::unique_ptr<ZOLVotStandardLoader> _Loader;
  bool _Loading = false;
  // Style type to default style name, set on this object only; empty after the load.
  std::unordered_map<std::string, ZOLUnicodeString> _DefaultStyles;
  // The formats and the JSON export, made on first use; shared_ptr since the type is the content face's own.
  std::shared_ptr<ZOLVotStandardContent> _Content;
  ZOLVotStandardContent& Content();
};

/// The TIE creators: a new reference on the attachment of the interface on a standard object
/// (made on first use, then the same), or null for another object.
ZOLIDrwStandard* CreateTIEZOLIDrwStandardZOLVotTransientStandard(ZOLBaseUnknown* iObject);
ZOLIDftStandard* CreateTIEZOLIDftStandardZOLVotTransientStandard(ZOLBaseUnknown* iObject);
ZOLIQelStandard* CreateTIEZOLIQelStandardZOLVotTransientStandard(ZOLBaseUnknown* iObject);
ZOLIDftStyleManager* CreateTIEZOLIDftStyleManagerZOLVotTransientStandard(ZOLBaseUnknown* iObject);
ZOLIQelStandardContent* CreateTIEZOLIQelStandardContentZOLVotTransientStandard(ZOLBaseUnknown* iObject);
ZOLIQelStandardCommunication* CreateTIEZOLIQelStandardCommunicationZOLVotTransientStandard(ZOLBaseUnknown* iObject);
ZOLISAXContentHandler* CreateTIEZOLISAXContentHandlerZOLVotTransientStandard(ZOLBaseUnknown* iObject);
ZOLISAXErrorHandler* CreateTIEZOLISAXErrorHandlerZOLVotTransientStandard(ZOLBaseUnknown* iObject);
