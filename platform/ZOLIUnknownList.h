// A list of objects of the runtime, each held by a reference: what a manager hands out when it
// gives many objects at once. Positions start at 0.
#pragma once
#include <vector>

#include "ZOLBaseUnknown.h"
#include "ZOLVar.h"

/// Interface id of ZOLIUnknownList.
extern const IID IID_ZOLIUnknownList;

class ZOLIUnknownList : public ZOLBaseUnknown {
public:
  /// IID_ZOLIUnknownList.
  static const IID& ClassId() { return IID_ZOLIUnknownList; }
  /// The meta object of the interface.
  static const ZOLMetaClass* MetaObject();

  /// S_OK with the object inserted before position (Count appends), holding a reference of its own;
  /// E_INVALIDARG for a null object or a position outside 0 to Count.
  virtual HRESULT Add(int iPosition, ZOLBaseUnknown* iObject) = 0;
  /// S_OK and the number of objects; E_INVALIDARG for a null output.
  virtual HRESULT Count(int* oCount) = 0;
  /// S_OK and a new reference on the object at a position; E_INVALIDARG for a null output or a
  /// position outside the list (the output then null).
  virtual HRESULT Item(int iPosition, ZOLBaseUnknown** oObject) = 0;
};

using ZOLIUnknownList_var = ZOLVar<ZOLIUnknownList>;

/// The runtime's own list: derive from it to hand a list out under a class of one's own.
class ZOLIUnknownListImpl : public ZOLIUnknownList {
public:
  /// An empty list; its creator holds the first reference.
  ZOLIUnknownListImpl() = default;
  /// The meta object of the class.
  static const ZOLMetaClass* MetaObject();
  const ZOLMetaClass* GetMetaObject() const override { return MetaObject(); }

  // The operations of ZOLIUnknownList, as told there.
  HRESULT Add(int iPosition, ZOLBaseUnknown* iObject) override;
  HRESULT Count(int* oCount) override;
  HRESULT Item(int iPosition, ZOLBaseUnknown** oObject) override;

private:
  std::vector<ZOLVar<ZOLBaseUnknown>> _items;
};
