// A stand-in of the application's data model: a document that holds objects of late types, each
// with string and component attributes, and saves itself to a small JSON file. Objects answer
// ZOLISpecObject and ZOLISpecAttrAccess, and the extensions registered for their late type. Views
// ("PCCMemMBDView"), sheets ("PCCMemVOTSheet") and annotations ("DrwAnnotation") answer
// ZOLIDftElementWithStandard with the object of their component attribute "Standard".
#pragma once
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "ZOLBaseUnknown.h"
#include "ZOLISpecObject.h"
#include "ZOLRefCounted.h"

class ZOLOsmDocument : public ZOLBaseUnknown {
public:
  /// An empty document; its creator holds the first reference.
  ZOLOsmDocument() = default;
  /// Empties every attribute, so that objects that hold each other go, and lets the objects go.
  ~ZOLOsmDocument() override;

  /// The meta object of the class.
  static const ZOLMetaClass* MetaObject();
  const ZOLMetaClass* GetMetaObject() const override { return MetaObject(); }

  /// A new object of the late type, with empty component attributes of the names given; null for
  /// an empty type or a name given twice.
  ZOLISpecObject_var CreateObject(const char* iLateType, const ZOLUnicodeString& iName,
                                  std::initializer_list<const char*> iComponents = {});
  /// The number of objects.
  int GetObjectCount() const { return static_cast<int>(_objects.size()); }
  /// The object at index, from 0, in the order of their making; null out of range.
  ZOLISpecObject_var GetObject(int iIndex) const;
  /// The first object of that name, or null.
  ZOLISpecObject_var FindObject(const ZOLUnicodeString& iName) const;

  /// S_OK and the document as JSON text; E_FAIL and why when a string attribute is no UTF-8 text
  /// or a component holds an object of another document.
  HRESULT Write(std::string& oText, std::string& oError) const;
  /// S_OK after writing the document to the file through a temporary name and a rename; E_FAIL
  /// and why, with the file as it was.
  HRESULT Save(const char* iPath, std::string& oError) const;
  /// A document read from the JSON text of Write, or null and why: either all of it or nothing.
  static ZOLRef<ZOLOsmDocument> Read(std::string_view iText, std::string& oError);
  /// A document read from a file of Save, or null and why.
  static ZOLRef<ZOLOsmDocument> Load(const char* iPath, std::string& oError);

private:
  std::vector<ZOLBaseUnknown*> _objects;  // one reference each
};
