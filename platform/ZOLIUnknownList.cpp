// The runtime's list of objects.
#include "ZOLIUnknownList.h"

#include "ZOLClassDictionary.h"
#include "ZOLTIE.h"

const IID IID_ZOLIUnknownList = {0x5c1b7e20, 0x9a4f, 0x4d31, {0xb6, 0x0e, 0x21, 0x7d, 0x44, 0x90, 0x1a, 0x01}};

ZOLImplementMetaObject(ZOLIUnknownList, Interface, ZOLBaseUnknown::MetaObject(), "ZOLSystem", &IID_ZOLIUnknownList, "ZOLNull")
ZOLImplementMetaObject(ZOLIUnknownListImpl, Implementation, ZOLIUnknownList::MetaObject(), "ZOLSystem", nullptr, "ZOLNull")

namespace {

void* AttachList(ZOLBaseUnknown* object) { return ZOLAttachBOA<ZOLIUnknownList, ZOLIUnknownListImpl>(object); }

ZOLClassRegistrar s_listClass(ZOLIUnknownListImpl::MetaObject());
ZOLAttachmentRegistrar s_list(ZOLIUnknownListImpl::MetaObject(), ZOLIUnknownList::MetaObject(), &AttachList);

}  // namespace

HRESULT ZOLIUnknownListImpl::Add(int iPosition, ZOLBaseUnknown* iObject) {
  if (!iObject || iPosition < 0 || iPosition > static_cast<int>(_items.size())) return E_INVALIDARG;
  _items.insert(_items.begin() + iPosition, ZOLVar<ZOLBaseUnknown>(iObject));
  return S_OK;
}

HRESULT ZOLIUnknownListImpl::Count(int* oCount) {
  if (!oCount) return E_INVALIDARG;
  *oCount = static_cast<int>(_items.size());
  return S_OK;
}

HRESULT ZOLIUnknownListImpl::Item(int iPosition, ZOLBaseUnknown** oObject) {
  if (!oObject) return E_INVALIDARG;
  *oObject = nullptr;
  if (iPosition < 0 || iPosition >= static_cast<int>(_items.size())) return E_INVALIDARG;
  *oObject = _items[static_cast<size_t>(iPosition)].Get();
  (*oObject)->AddRef();
  return S_OK;
}
