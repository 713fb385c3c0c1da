// The value object of a standard, its three TIEs and their registration.
#include "standard/ZOLVotStandardValue.h"

#include <vector>

#include "ZOLClassDictionary.h"
#include "ZOLIDrwStandard.h"
#include "ZOLIStandardManager.h"
#include "ZOLIStandardObject.h"
#include "ZOLIStandardValue.h"
#include "ZOLListValZOLIStandardObject_var.h"
#include "ZOLSysLog.h"
#include "ZOLTIE.h"
#include "detail/ZOLOmxJson.h"

const ZOLOmxKeyString g_ZOLVotKeyText("Text"), g_ZOLVotKeyTable("Table"), g_ZOLVotKeyBalloon("Balloon"),
    g_ZOLVotKeyArrow("Arrow"), g_ZOLVotKeySheet("Sheet");

const IID IID_ZOLIStandardManager = {0x3f9d2a61, 0x7c0e, 0x4b8a, {0x91, 0x35, 0x6e, 0x20, 0xd4, 0x5b, 0x7a, 0x01}};
const IID IID_ZOLIStandardObject = {0x3f9d2a61, 0x7c0e, 0x4b8a, {0x91, 0x35, 0x6e, 0x20, 0xd4, 0x5b, 0x7a, 0x02}};
const IID IID_ZOLIStandardValue = {0x3f9d2a61, 0x7c0e, 0x4b8a, {0x91, 0x35, 0x6e, 0x20, 0xd4, 0x5b, 0x7a, 0x03}};

ZOLImplementMetaObject(ZOLIStandardManager, Interface, ZOLBaseUnknown::MetaObject(), "QelStandardInfra",
                       &IID_ZOLIStandardManager, "ZOLNull")
ZOLImplementMetaObject(ZOLIStandardObject, Interface, ZOLBaseUnknown::MetaObject(), "QelStandardInfra",
                       &IID_ZOLIStandardObject, "ZOLNull")
ZOLImplementMetaObject(ZOLIStandardValue, Interface, ZOLBaseUnknown::MetaObject(), "QelStandardInfra",
                       &IID_ZOLIStandardValue, "ZOLNull")
ZOLImplementMetaObject(ZOLVotStandardValue, Implementation, ZOLBaseUnknown::MetaObject(), "QelStandardInfra", nullptr,
                       "ZOLNull")

namespace {

ZOLClassRegistrar s_valueClass(ZOLVotStandardValue::MetaObject());

HRESULT NotImplemented() {
  ZOLAssertMessage("NOT_IMPLEMENTED...");
  return E_NOTIMPL;
}

// Kept on purpose: callers pass paths with a leading character that is not part of the standard's path.
const char* WithoutFirst(const char* iPath) { return iPath && *iPath ? iPath + 1 : ""; }

// The references that value objects keep on themselves, reachable to the end of the process.
std::vector<ZOLBaseUnknown*>& Kept() {
  static auto* kept = new std::vector<ZOLBaseUnknown*>;
  return *kept;
}

}  // namespace

ZOLVotStandardValue::ZOLVotStandardValue(ZOLIDrwStandard* iStandard) : _Standard(iStandard) {
  if (_Standard) _Standard->AddRef();
}

ZOLVotStandardValue::~ZOLVotStandardValue() {
  if (_Standard) _Standard->Release();
}

HRESULT CreateStandardValue(ZOLIDrwStandard* iStandard, ZOLIStandardValue** oValue) {
  if (!iStandard || !oValue) {
    ZOLAssertPointer("");
    return E_UNEXPECTED;
  }
  auto* object = new ZOLVotStandardValue(iStandard);
  void* value = nullptr;
  object->QueryInterface(IID_ZOLIStandardValue, &value);
  // Kept on purpose: the allocation's reference is never released, so a value object and its
  // standard live to the end of the process.
  Kept().push_back(object);
  if (!value) {
    ZOLAssertPointer("NULL handler");
    return E_UNEXPECTED;
  }
  *oValue = static_cast<ZOLIStandardValue*>(value);
  return S_OK;
}

// ---------------------------------------------------------------------------------------------
// The typed reads

#define ZOLVotCheckStandard()            \
  if (!_Standard) {                      \
    ZOLAssertPointer("NULL handler");    \
    return E_UNEXPECTED;                 \
  }

HRESULT ZOLVotStandardValue::GetValue(const char* iPath, int* iIndex, ZOLUnicodeString* oValue) {
  ZOLVotCheckStandard();
  if (!oValue || !iIndex) {
    ZOLAssertPointer("");
    return E_UNEXPECTED;
  }
  return _Standard->GetValue(WithoutFirst(iPath), *iIndex, *oValue);
}

HRESULT ZOLVotStandardValue::GetValue(const char* iPath, ZOLUnicodeString** oValues, int* oCount) {
  ZOLVotCheckStandard();
  return _Standard->GetValue(WithoutFirst(iPath), oValues, oCount);
}

HRESULT ZOLVotStandardValue::GetValue(const char* iPath, int* iIndex, double* oValue) {
  ZOLVotCheckStandard();
  if (!oValue || !iIndex) {
    ZOLAssertPointer("");
    return E_UNEXPECTED;
  }
  return _Standard->GetValue(WithoutFirst(iPath), *iIndex, *oValue);
}

HRESULT ZOLVotStandardValue::GetValue(const char* iPath, double* oValues, int* oCount) {
  ZOLVotCheckStandard();
  return _Standard->GetValue(WithoutFirst(iPath), oValues, oCount);
}

HRESULT ZOLVotStandardValue::GetValue(const char* iPath, int* iIndex, int* oValue) {
  ZOLVotCheckStandard();
  if (!oValue || !iIndex) {
    ZOLAssertPointer("");
    return E_UNEXPECTED;
  }
  return _Standard->GetValue(WithoutFirst(iPath), *iIndex, *oValue);
}

HRESULT ZOLVotStandardValue::ValueReserved10() {
  ZOLVotCheckStandard();
  return NotImplemented();
}

HRESULT ZOLVotStandardValue::ValueReserved(int) { return NotImplemented(); }
HRESULT ZOLVotStandardValue::ManagerReserved(int) { return NotImplemented(); }
HRESULT ZOLVotStandardValue::ObjectReserved(int) { return NotImplemented(); }

// ---------------------------------------------------------------------------------------------
// Manager and object

HRESULT ZOLVotStandardValue::GetRootObject(int, ZOLIStandardObject** oObject) {
  if (!oObject) {
    ZOLAssertPointer("");
    return E_INVALIDARG;
  }
  void* object = nullptr;
  GetImpl()->QueryInterface(IID_ZOLIStandardObject, &object);
  *oObject = static_cast<ZOLIStandardObject*>(object);
  return S_OK;
}

HRESULT ZOLVotStandardValue::GetSubObjects(ZOLListValZOLIStandardObject_var* oList) {
  if (!oList) {
    ZOLAssertPointer("");
    return E_UNEXPECTED;
  }
  // Kept on purpose: the object itself, a fixed 63 times, whatever the standard holds.
  for (int i = 0; i < 63; ++i) oList->Append(ZOLIStandardObject_var(GetImpl()));
  return S_OK;
}

// ---------------------------------------------------------------------------------------------
// TIEs

using Impl = ZOLVotStandardValue;

#define ZOLTIEMetaObject(TIEClass, interfaceMeta)                                                              \
  static const ZOLMetaClass* MetaObject() {                                                                    \
    static const ZOLMetaClass meta(#TIEClass, ZOLMetaClass::TIE, (interfaceMeta), "QelStandardInfra", nullptr); \
    return &meta;                                                                                              \
  }
#define ZOLTIEStub(slot, forward) \
  HRESULT Reserved##slot() override { return _impl->forward(slot); }

class TIEZOLIStandardValueZOLVotStandardValue : public ZOLTIEBase<ZOLIStandardValue, Impl> {
public:
  using ZOLTIEBase::ZOLTIEBase;
  ZOLTIEMetaObject(TIEZOLIStandardValueZOLVotStandardValue, ZOLIStandardValue::MetaObject())
  const ZOLMetaClass* GetMetaObject() const override { return MetaObject(); }
  ZOLTIEStub(1, ValueReserved) ZOLTIEStub(2, ValueReserved) ZOLTIEStub(3, ValueReserved) ZOLTIEStub(4, ValueReserved)
  HRESULT GetValue(const char* p, int* i, ZOLUnicodeString* o) override { return _impl->GetValue(p, i, o); }
  HRESULT GetValue(const char* p, ZOLUnicodeString** o, int* n) override { return _impl->GetValue(p, o, n); }
  HRESULT GetValue(const char* p, int* i, double* o) override { return _impl->GetValue(p, i, o); }
  HRESULT GetValue(const char* p, double* o, int* n) override { return _impl->GetValue(p, o, n); }
  HRESULT GetValue(const char* p, int* i, int* o) override { return _impl->GetValue(p, i, o); }
  HRESULT Reserved10() override { return _impl->ValueReserved10(); }
  ZOLTIEStub(11, ValueReserved) ZOLTIEStub(12, ValueReserved) ZOLTIEStub(13, ValueReserved) ZOLTIEStub(14, ValueReserved)
  ZOLTIEStub(15, ValueReserved) ZOLTIEStub(16, ValueReserved) ZOLTIEStub(17, ValueReserved) ZOLTIEStub(18, ValueReserved)
  ZOLTIEStub(19, ValueReserved) ZOLTIEStub(20, ValueReserved) ZOLTIEStub(21, ValueReserved) ZOLTIEStub(22, ValueReserved)
  ZOLTIEStub(23, ValueReserved) ZOLTIEStub(24, ValueReserved)
};

class TIEZOLIStandardManagerZOLVotStandardValue : public ZOLTIEBase<ZOLIStandardManager, Impl> {
public:
  using ZOLTIEBase::ZOLTIEBase;
  ZOLTIEMetaObject(TIEZOLIStandardManagerZOLVotStandardValue, ZOLIStandardManager::MetaObject())
  const ZOLMetaClass* GetMetaObject() const override { return MetaObject(); }
  ZOLTIEStub(1, ManagerReserved)
  HRESULT GetRootObject(int iUnused, ZOLIStandardObject** oObject) override { return _impl->GetRootObject(iUnused, oObject); }
  ZOLTIEStub(3, ManagerReserved) ZOLTIEStub(4, ManagerReserved) ZOLTIEStub(5, ManagerReserved) ZOLTIEStub(6, ManagerReserved)
  ZOLTIEStub(7, ManagerReserved) ZOLTIEStub(8, ManagerReserved) ZOLTIEStub(9, ManagerReserved) ZOLTIEStub(10, ManagerReserved)
  ZOLTIEStub(11, ManagerReserved) ZOLTIEStub(12, ManagerReserved)
};

class TIEZOLIStandardObjectZOLVotStandardValue : public ZOLTIEBase<ZOLIStandardObject, Impl> {
public:
  using ZOLTIEBase::ZOLTIEBase;
  ZOLTIEMetaObject(TIEZOLIStandardObjectZOLVotStandardValue, ZOLIStandardObject::MetaObject())
  const ZOLMetaClass* GetMetaObject() const override { return MetaObject(); }
  HRESULT GetSubObjects(ZOLListValZOLIStandardObject_var* oList) override { return _impl->GetSubObjects(oList); }
  ZOLTIEStub(2, ObjectReserved) ZOLTIEStub(3, ObjectReserved)
};

ZOLIStandardManager* CreateTIEZOLIStandardManagerZOLVotStandardValue(ZOLBaseUnknown* iObject) {
  return ZOLAttachTIE<ZOLIStandardManager, TIEZOLIStandardManagerZOLVotStandardValue, Impl>(iObject, IID_ZOLIStandardManager);
}
ZOLIStandardObject* CreateTIEZOLIStandardObjectZOLVotStandardValue(ZOLBaseUnknown* iObject) {
  return ZOLAttachTIE<ZOLIStandardObject, TIEZOLIStandardObjectZOLVotStandardValue, Impl>(iObject, IID_ZOLIStandardObject);
}
ZOLIStandardValue* CreateTIEZOLIStandardValueZOLVotStandardValue(ZOLBaseUnknown* iObject) {
  return ZOLAttachTIE<ZOLIStandardValue, TIEZOLIStandardValueZOLVotStandardValue, Impl>(iObject, IID_ZOLIStandardValue);
}

namespace {

template <class Interface, Interface* (*Create)(ZOLBaseUnknown*)>
void* Attach(ZOLBaseUnknown* object) {
  return Create(object);
}

ZOLAttachmentRegistrar s_manager(Impl::MetaObject(), ZOLIStandardManager::MetaObject(),
                                 &Attach<ZOLIStandardManager, &CreateTIEZOLIStandardManagerZOLVotStandardValue>);
ZOLAttachmentRegistrar s_object(Impl::MetaObject(), ZOLIStandardObject::MetaObject(),
                                &Attach<ZOLIStandardObject, &CreateTIEZOLIStandardObjectZOLVotStandardValue>);
ZOLAttachmentRegistrar s_value(Impl::MetaObject(), ZOLIStandardValue::MetaObject(),
                               &Attach<ZOLIStandardValue, &CreateTIEZOLIStandardValueZOLVotStandardValue>);

}  // namespace
