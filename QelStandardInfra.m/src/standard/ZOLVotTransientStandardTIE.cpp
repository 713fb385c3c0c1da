// The attachments of the standard object: one TIE per interface, each forwarding to the object,
// and their registration in the class dictionary.
#include "ZOLClassDictionary.h"
#include "ZOLIDftStandard.h"
#include "ZOLIDftStyleManager.h"
#include "ZOLIDrwStandard.h"
#include "ZOLIQelStandard.h"
#include "ZOLIQelStandardCommunication.h"
#include "ZOLIQelStandardContent.h"
#include "ZOLTIE.h"
#include "standard/ZOLVotTransientStandard.h"
#include "ZOLXMLSAXIds.h"

using Impl = ZOLVotTransientStandard;

#define ZOLTIEMetaObject(TIEClass, interfaceMeta)                                                              \
  static const ZOLMetaClass* MetaObject() {                                                                    \
    static const ZOLMetaClass meta(#TIEClass, ZOLMetaClass::TIE, (interfaceMeta), "QelStandardInfra", nullptr); \
    return &meta;                                                                                              \
  }

// The value operations shared by the three standard interfaces.
#define ZOLTIEForwardValues                                                                                          \
  HRESULT GetName(wchar_t** oName) override { return _impl->GetName(oName); }                                      \
  HRESULT GetParentStandard(wchar_t** oName) override { return _impl->GetParentStandard(oName); }                  \
  HRESULT GetValue(const char* p, int i, ZOLUnicodeString& o) override { return _impl->GetValue(p, i, o); }         \
  HRESULT GetValue(const char* p, ZOLUnicodeString** o, int* n) override { return _impl->GetValue(p, o, n); }       \
  HRESULT GetValue(const char* p, int i, double& o) override { return _impl->GetValue(p, i, o); }                   \
  HRESULT GetValue(const char* p, double* o, int* n) override { return _impl->GetValue(p, o, n); }                  \
  HRESULT GetValue(const char* p, int i, int& o) override { return _impl->GetValue(p, i, o); }                      \
  HRESULT GetValue(const char* p, int* o, int* n) override { return _impl->GetValue(p, o, n); }                     \
  HRESULT Reserved12() override { return _impl->Reserved12(); }

class TIEZOLIDrwStandardZOLVotTransientStandard : public ZOLTIEBase<ZOLIDrwStandard, Impl> {
public:
  using ZOLTIEBase::ZOLTIEBase;
  ZOLTIEMetaObject(TIEZOLIDrwStandardZOLVotTransientStandard, ZOLIDrwStandard::MetaObject())
  const ZOLMetaClass* GetMetaObject() const override { return MetaObject(); }
  ZOLTIEForwardValues
  HRESULT GetName(ZOLUnicodeString& oName) override { return _impl->GetName(oName); }
  HRESULT GetParentStandard(ZOLUnicodeString& oName) override { return _impl->GetParentStandard(oName); }
  unsigned char HasNode(const char* iPath) override { return _impl->HasNode(iPath); }
  HRESULT GetValueType(const char* p, ZOLDftStandardValueType* t, int* n) override { return _impl->GetValueType(p, t, n); }
  HRESULT GetThicknessIndex(double mm, int* oIndex) override { return _impl->GetThicknessIndex(mm, oIndex); }
  HRESULT Reserved15() override { return _impl->Reserved15(); }
  HRESULT Reserved16() override { return _impl->Reserved16(); }
  HRESULT Reserved17() override { return _impl->Reserved17(); }
  int GetStdVersion() override { return _impl->GetStdVersion(); }
  HRESULT GetReserved19(int iUnused, int* oValue) override { return _impl->GetReserved19(iUnused, oValue); }
  HRESULT Reserved20() override { return _impl->Reserved20(); }
  HRESULT Reserved21() override { return _impl->Reserved21(); }
  HRESULT Reserved22() override { return _impl->Reserved22(); }
  HRESULT GetStandardValue(ZOLIStandardValue** oValue) override { return _impl->GetStandardValue(oValue); }
  HRESULT Reserved24() override { return _impl->Reserved24(); }
  HRESULT Reserved25() override { return _impl->Reserved25(); }
  HRESULT Reserved26() override { return _impl->Reserved26(); }
  void Reserved27() override { _impl->Reserved27(); }
  HRESULT Reserved28() override { return _impl->Reserved28(); }
  HRESULT GetStyleNames(const char* t, ZOLListValZOLUnicodeString* o) override { return _impl->GetStyleNames(t, o); }
  HRESULT GetStandardValue(ZOLIStandardValue** v, char** a, char** b) override { return _impl->GetStandardValue(v, a, b); }
  HRESULT GetValue(const char* p, int* o, int c, int* n) override { return _impl->GetValue(p, o, c, n); }
  HRESULT GetValue(const char* p, double* o, int c, int* n) override { return _impl->GetValue(p, o, c, n); }
  HRESULT GetValue(const char* p, ZOLUnicodeString** o, int c, int* n) override { return _impl->GetValue(p, o, c, n); }
};

class TIEZOLIDftStandardZOLVotTransientStandard : public ZOLTIEBase<ZOLIDftStandard, Impl> {
public:
  using ZOLTIEBase::ZOLTIEBase;
  ZOLTIEMetaObject(TIEZOLIDftStandardZOLVotTransientStandard, ZOLIDftStandard::MetaObject())
  const ZOLMetaClass* GetMetaObject() const override { return MetaObject(); }
  ZOLTIEForwardValues
  HRESULT GetValueType(const char* p, ZOLDftStandardValueType* t, int* n) override { return _impl->GetValueType(p, t, n); }
};

class TIEZOLIQelStandardZOLVotTransientStandard : public ZOLTIEBase<ZOLIQelStandard, Impl> {
public:
  using ZOLTIEBase::ZOLTIEBase;
  ZOLTIEMetaObject(TIEZOLIQelStandardZOLVotTransientStandard, ZOLIQelStandard::MetaObject())
  const ZOLMetaClass* GetMetaObject() const override { return MetaObject(); }
  ZOLTIEForwardValues
  // Kept on purpose: the type is not handed on, so the call is refused every time; callers rely on that.
  HRESULT GetValueType(const char* p, ZOLDftStandardValueType*, int* n) override { return _impl->GetValueType(p, nullptr, n); }
};

class TIEZOLIDftStyleManagerZOLVotTransientStandard : public ZOLTIEBase<ZOLIDftStyleManager, Impl> {
public:
  using ZOLTIEBase::ZOLTIEBase;
  ZOLTIEMetaObject(TIEZOLIDftStyleManagerZOLVotTransientStandard, ZOLIDftStyleManager::MetaObject())
  const ZOLMetaClass* GetMetaObject() const override { return MetaObject(); }
  HRESULT GetStyle(const wchar_t* n, const wchar_t* t, ZOLIDftStyle** o) override { return _impl->GetStyle(n, t, o); }
  HRESULT GetStyles(const wchar_t* t, ZOLIUnknownList** o, const wchar_t* c) override { return _impl->GetStyles(t, o, c); }
  HRESULT Reserved3() override { return _impl->StyleReserved3(); }
  HRESULT GetStdVersion(int* oVersion) override { return _impl->GetStdVersion(oVersion); }
  HRESULT GetDefaultStyle(const wchar_t* t, wchar_t** o, const wchar_t* c) override { return _impl->GetDefaultStyle(t, o, c); }
  HRESULT SetDefaultStyle(const wchar_t* t, const wchar_t* n, const wchar_t* c) override { return _impl->SetDefaultStyle(t, n, c); }
  HRESULT Reserved7() override { return _impl->StyleReserved7(); }
};

class TIEZOLIQelStandardContentZOLVotTransientStandard : public ZOLTIEBase<ZOLIQelStandardContent, Impl> {
public:
  using ZOLTIEBase::ZOLTIEBase;
  ZOLTIEMetaObject(TIEZOLIQelStandardContentZOLVotTransientStandard, ZOLIQelStandardContent::MetaObject())
  const ZOLMetaClass* GetMetaObject() const override { return MetaObject(); }
  HRESULT GetUnits(std::vector<std::shared_ptr<QelStdUnitDescription>>& o) override { return _impl->GetUnits(o); }
  HRESULT GetUnit(ZOLUnicodeString n, std::shared_ptr<QelStdUnitDescription>& o) override { return _impl->GetUnit(std::move(n), o); }
  HRESULT GetTolerances(std::vector<std::shared_ptr<QelStdToleranceDescription>>& o) override { return _impl->GetTolerances(o); }
  HRESULT GetTolerance(ZOLUnicodeString n, std::shared_ptr<QelStdToleranceDescription>& o) override {
    return _impl->GetTolerance(std::move(n), o);
  }
};

class TIEZOLIQelStandardCommunicationZOLVotTransientStandard : public ZOLTIEBase<ZOLIQelStandardCommunication, Impl> {
public:
  using ZOLTIEBase::ZOLTIEBase;
  ZOLTIEMetaObject(TIEZOLIQelStandardCommunicationZOLVotTransientStandard, ZOLIQelStandardCommunication::MetaObject())
  const ZOLMetaClass* GetMetaObject() const override { return MetaObject(); }
  HRESULT GetStandardAsJson(ZOLOmxJsonObject& oJson) override { return _impl->GetStandardAsJson(oJson); }
  HRESULT SetStandardFromJson(ZOLOmxJsonObject iJson) override { return _impl->SetStandardFromJson(std::move(iJson)); }
};

class TIEZOLISAXContentHandlerZOLVotTransientStandard : public ZOLISAXContentHandler {
public:
  explicit TIEZOLISAXContentHandlerZOLVotTransientStandard(Impl* impl) : _impl(impl) {}
  ZOLTIEMetaObject(TIEZOLISAXContentHandlerZOLVotTransientStandard, ZOLISAXContentHandlerMetaObject())
  int StartDocument() override { return _impl->StartDocument(); }
  int EndDocument() override { return _impl->EndDocument(); }
  int StartElement(std::string_view ns, std::string_view local, std::string_view qname, const ZOLISAXAttributes& a) override {
    return _impl->StartElement(ns, local, qname, a);
  }
  int EndElement(std::string_view ns, std::string_view local, std::string_view qname) override {
    return _impl->EndElement(ns, local, qname);
  }
  int Characters(std::string_view text) override { return _impl->Characters(text); }
  int IgnorableWhitespace(std::string_view text) override { return _impl->IgnorableWhitespace(text); }
  int ProcessingInstruction(std::string_view t, std::string_view d) override { return _impl->ProcessingInstruction(t, d); }
  int SetDocumentLocator(int line, int column) override { return _impl->SetDocumentLocator(line, column); }
  int SkippedEntity(std::string_view name) override { return _impl->SkippedEntity(name); }
  int StartPrefixMapping(std::string_view p, std::string_view u) override { return _impl->StartPrefixMapping(p, u); }
  int EndPrefixMapping(std::string_view p) override { return _impl->EndPrefixMapping(p); }

private:
  Impl* _impl;
};

class TIEZOLISAXErrorHandlerZOLVotTransientStandard : public ZOLISAXErrorHandler {
public:
  explicit TIEZOLISAXErrorHandlerZOLVotTransientStandard(Impl* impl) : _impl(impl) {}
  ZOLTIEMetaObject(TIEZOLISAXErrorHandlerZOLVotTransientStandard, ZOLISAXErrorHandlerMetaObject())
  int Warning(const ZOLSAXParseError& e) override { return _impl->Warning(e); }
  int Error(const ZOLSAXParseError& e) override { return _impl->Error(e); }
  int FatalError(const ZOLSAXParseError& e) override { return _impl->FatalError(e); }

private:
  Impl* _impl;
};

ZOLIDrwStandard* CreateTIEZOLIDrwStandardZOLVotTransientStandard(ZOLBaseUnknown* iObject) {
  return ZOLAttachTIE<ZOLIDrwStandard, TIEZOLIDrwStandardZOLVotTransientStandard, Impl>(iObject, IID_ZOLIDrwStandard);
}
ZOLIDftStandard* CreateTIEZOLIDftStandardZOLVotTransientStandard(ZOLBaseUnknown* iObject) {
  return ZOLAttachTIE<ZOLIDftStandard, TIEZOLIDftStandardZOLVotTransientStandard, Impl>(iObject, IID_ZOLIDftStandard);
}
ZOLIQelStandard* CreateTIEZOLIQelStandardZOLVotTransientStandard(ZOLBaseUnknown* iObject) {
  return ZOLAttachTIE<ZOLIQelStandard, TIEZOLIQelStandardZOLVotTransientStandard, Impl>(iObject, IID_ZOLIQelStandard);
}
ZOLIDftStyleManager* CreateTIEZOLIDftStyleManagerZOLVotTransientStandard(ZOLBaseUnknown* iObject) {
  return ZOLAttachTIE<ZOLIDftStyleManager, TIEZOLIDftStyleManagerZOLVotTransientStandard, Impl>(iObject, IID_ZOLIDftStyleManager);
}
ZOLIQelStandardContent* CreateTIEZOLIQelStandardContentZOLVotTransientStandard(ZOLBaseUnknown* iObject) {
  return ZOLAttachTIE<ZOLIQelStandardContent, TIEZOLIQelStandardContentZOLVotTransientStandard, Impl>(iObject,
                                                                                                     IID_ZOLIQelStandardContent);
}
ZOLIQelStandardCommunication* CreateTIEZOLIQelStandardCommunicationZOLVotTransientStandard(ZOLBaseUnknown* iObject) {
  return ZOLAttachTIE<ZOLIQelStandardCommunication, TIEZOLIQelStandardCommunicationZOLVotTransientStandard, Impl>(
      iObject, IID_ZOLIQelStandardCommunication);
}
ZOLISAXContentHandler* CreateTIEZOLISAXContentHandlerZOLVotTransientStandard(ZOLBaseUnknown* iObject) {
  return ZOLAttachTIE<ZOLISAXContentHandler, TIEZOLISAXContentHandlerZOLVotTransientStandard, Impl>(iObject, IID_ZOLISAXContentHandler);
}
ZOLISAXErrorHandler* CreateTIEZOLISAXErrorHandlerZOLVotTransientStandard(ZOLBaseUnknown* iObject) {
  return ZOLAttachTIE<ZOLISAXErrorHandler, TIEZOLISAXErrorHandlerZOLVotTransientStandard, Impl>(iObject, IID_ZOLISAXErrorHandler);
}

namespace {

template <class Interface, Interface* (*Create)(ZOLBaseUnknown*)>
void* Attach(ZOLBaseUnknown* object) {
  return Create(object);
}

const ZOLMetaClass* const s_impl = Impl::MetaObject();
ZOLAttachmentRegistrar s_drw(s_impl, ZOLIDrwStandard::MetaObject(),
                             &Attach<ZOLIDrwStandard, &CreateTIEZOLIDrwStandardZOLVotTransientStandard>);
ZOLAttachmentRegistrar s_dft(s_impl, ZOLIDftStandard::MetaObject(),
                             &Attach<ZOLIDftStandard, &CreateTIEZOLIDftStandardZOLVotTransientStandard>);
ZOLAttachmentRegistrar s_qel(s_impl, ZOLIQelStandard::MetaObject(),
                             &Attach<ZOLIQelStandard, &CreateTIEZOLIQelStandardZOLVotTransientStandard>);
ZOLAttachmentRegistrar s_styles(s_impl, ZOLIDftStyleManager::MetaObject(),
                                &Attach<ZOLIDftStyleManager, &CreateTIEZOLIDftStyleManagerZOLVotTransientStandard>);
ZOLAttachmentRegistrar s_formats(s_impl, ZOLIQelStandardContent::MetaObject(),
                                 &Attach<ZOLIQelStandardContent, &CreateTIEZOLIQelStandardContentZOLVotTransientStandard>);
ZOLAttachmentRegistrar s_communication(
    s_impl, ZOLIQelStandardCommunication::MetaObject(),
    &Attach<ZOLIQelStandardCommunication, &CreateTIEZOLIQelStandardCommunicationZOLVotTransientStandard>);
ZOLAttachmentRegistrar s_content(s_impl, ZOLISAXContentHandlerMetaObject(),
                                 &Attach<ZOLISAXContentHandler, &CreateTIEZOLISAXContentHandlerZOLVotTransientStandard>);
ZOLAttachmentRegistrar s_error(s_impl, ZOLISAXErrorHandlerMetaObject(),
                               &Attach<ZOLISAXErrorHandler, &CreateTIEZOLISAXErrorHandlerZOLVotTransientStandard>);

}  // namespace
