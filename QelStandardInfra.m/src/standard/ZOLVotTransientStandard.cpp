// The standard object: its load, names, parent and version, and the slots it does not carry out.
// The value and style faces stand in files of their own.
#include "standard/ZOLVotTransientStandard.h"

#include <memory>

#include "ZOLClassDictionary.h"
#include "ZOLFile.h"
#include "ZOLSysLog.h"
#include "ZOLXMLSAXIds.h"
#include "ZOLIDrwStandard.h"
#include "standard/ZOLVotStandardLoader.h"
#include "standard/ZOLVotStandardValue.h"

ZOLImplementMetaObject(ZOLVotTransientStandard, Implementation, ZOLBaseUnknown::MetaObject(), "QelStandardInfra",
                       nullptr, "ZOLNull")
static ZOLClassRegistrar s_transientStandardClass(ZOLVotTransientStandard::MetaObject());

// ---------------------------------------------------------------------------------------------
// Construction and load

ZOLVotTransientStandard::ZOLVotTransientStandard(const ZOLUnicodeString& filePath, const ZOLUnicodeString& name)
    : _Name(name), _FilePath(filePath) {
  if (FAILED(Load(&filePath, false))) ZOLAssertBool("Load of the standard failed");
}

ZOLVotTransientStandard::ZOLVotTransientStandard(const ZOLUnicodeString* text, const ZOLUnicodeString& name)
    : _Name(name) {
  if (FAILED(Load(text, true))) ZOLAssertBool("Load of the standard failed");
}

ZOLVotTransientStandard::~ZOLVotTransientStandard() = default;

HRESULT ZOLVotTransientStandard::Load(const ZOLUnicodeString* source, bool isBuffer) {
  std::unique_ptr<ZOLIXMLSAX2Factory> factory;
  if (FAILED(CreateZOLIXMLSAX2Factory(factory)) || !factory) {
    ZOLAssertPointer("No SAX factory");
    return E_UNEXPECTED;
  }
  std::unique_ptr<ZOLIXMLInputSource> input;
  HRESULT hr = E_FAIL;
  struct stat info;
  // The load's state lives as long as the load: the loader goes when this returns or throws.
  _Loader = std::make_unique<ZOLVotStandardLoader>(_Store);
  _Loading = true;
  struct Done {
    ZOLVotTransientStandard& standard;
    ~Done() {
      standard._Loading = false;
      standard._Loader.reset();
    }
  } done{*this};
  if (source && isBuffer) _Loader->Reserve(source->str().size());
  else if (source && ZOLFileStat(source->ConvertToChar(), &info) == 0) _Loader->Reserve(static_cast<size_t>(info.st_size));
  if (source) {
    // The caller's text outlives the load, which runs inside the constructor: no copy needed.
    hr = isBuffer ? factory->CreateInputSourceOverText(source->str(), "fileID", input)
                  : factory->CreateInputSourceFromFile(source->str(), "fileID", input);
  }
  if (FAILED(hr) || !input) {
    ZOLAssertPointer("No input source");
    return E_UNEXPECTED;
  }
  std::unique_ptr<ZOLISAXXMLReader> reader;
  if (FAILED(factory->CreateReader(reader)) || !reader) {
    ZOLAssertPointer("No SAX reader");
    return E_UNEXPECTED;
  }
  if (FAILED(reader->SetFeature(ZOLSAXFeatureSchemaValidation, false))) {
    ZOLAssertBool("Schema validation cannot be switched off");
    return E_UNEXPECTED;
  }
  // The object is its own handler, through its two SAX attachments; each holds a reference.
  void* errorHandler = nullptr;
  void* contentHandler = nullptr;
  GetImpl()->QueryInterface(IID_ZOLISAXErrorHandler, &errorHandler);
  GetImpl()->QueryInterface(IID_ZOLISAXContentHandler, &contentHandler);
  struct Releaser {
    ZOLBaseUnknown* object;
    int count;
    ~Releaser() { while (count--) object->Release(); }
  } releaser{this, (errorHandler ? 1 : 0) + (contentHandler ? 1 : 0)};
  if (!errorHandler || !contentHandler ||
      FAILED(reader->SetErrorHandler(static_cast<ZOLISAXErrorHandler*>(errorHandler))) ||
      FAILED(reader->SetContentHandler(static_cast<ZOLISAXContentHandler*>(contentHandler)))) {
    ZOLAssertBool("The standard cannot handle its own load");
    return E_UNEXPECTED;
  }
  return _Loader->Parse(*reader, *input);
}

// A caller that drives the content handler gets a loader of its own, made at its first event and
// dropped at the end of its document; the object's own load has one already.
ZOLVotStandardLoader& ZOLVotTransientStandard::Loader() {
  if (!_Loader) _Loader = std::make_unique<ZOLVotStandardLoader>(_Store);
  return *_Loader;
}

int ZOLVotTransientStandard::EndDocument() {
  if (!_Loading) _Loader.reset();
  return 0;
}

int ZOLVotTransientStandard::StartElement(std::string_view uri, std::string_view local, std::string_view tag,
                                          const ZOLISAXAttributes& attributes) {
  return Loader().StartElement(uri, local, tag, attributes);
}

int ZOLVotTransientStandard::EndElement(std::string_view, std::string_view, std::string_view) {
  return Loader().EndElement();
}

int ZOLVotTransientStandard::Characters(std::string_view text) {
  Loader().Characters(text);
  return 0;
}

// ---------------------------------------------------------------------------------------------
// Names and version

HRESULT ZOLVotTransientStandard::GetName(wchar_t** oName) {
  if (!oName) {
    ZOLAssertBool("");
    return E_INVALIDARG;
  }
  *oName = _Name.ConvertToWChar();
  if (!*oName) {
    ZOLAssertPointer("");
    return E_UNEXPECTED;
  }
  return S_OK;
}

HRESULT ZOLVotTransientStandard::GetName(ZOLUnicodeString& oName) {
  oName = _Name;
  return S_OK;
}

HRESULT ZOLVotTransientStandard::GetParentStandard(wchar_t** oName) {
  if (!oName) return E_INVALIDARG;
  ZOLUnicodeString parent;
  GetParentStandard(parent);
  *oName = parent.ConvertToWChar();
  return S_OK;
}

HRESULT ZOLVotTransientStandard::GetParentStandard(ZOLUnicodeString& oName) {
  if (GetValue("Dimension.ParentStandard", 1, oName) != S_OK) {
    ZOLAssertBool("");
    return E_UNEXPECTED;
  }
  return S_OK;
}

unsigned char ZOLVotTransientStandard::HasNode(std::string_view path) {
  return FindNode(path, 1) ? 1 : 0;
}

HRESULT ZOLVotTransientStandard::GetReserved19(int, int* oValue) {
  if (oValue) *oValue = 0;
  return S_OK;
}

HRESULT ZOLVotTransientStandard::GetStandardValue(ZOLIStandardValue** oValue) {
  if (oValue) *oValue = nullptr;
  ZOLIDrwStandard_var self(GetImpl());
  return CreateStandardValue(self, oValue);
}

HRESULT ZOLVotTransientStandard::GetStandardValue(ZOLIStandardValue** oValue, char** oFirst, char** oSecond) {
  if (!oValue || !oFirst || !oSecond) return E_INVALIDARG;
  HRESULT hr = GetStandardValue(oValue);
  if (!*oValue) {
    ZOLAssertPointer("");
    return E_UNEXPECTED;
  }
  *oSecond = new char[1]{'\0'};
  *oFirst = new char[1]{'\0'};
  return hr;
}

// ---------------------------------------------------------------------------------------------
// Slots that the object does not carry out

HRESULT ZOLVotTransientStandard::Stub() {
  ZOLAssertMessage("TO_BE_IMPLEMENTED...");
  return E_NOTIMPL;
}

HRESULT ZOLVotTransientStandard::Reserved12() { return Stub(); }
HRESULT ZOLVotTransientStandard::Reserved15() { return Stub(); }
HRESULT ZOLVotTransientStandard::Reserved16() { return Stub(); }
HRESULT ZOLVotTransientStandard::Reserved17() { return Stub(); }
HRESULT ZOLVotTransientStandard::Reserved20() { return Stub(); }
HRESULT ZOLVotTransientStandard::Reserved21() { return Stub(); }
HRESULT ZOLVotTransientStandard::Reserved22() { return Stub(); }
HRESULT ZOLVotTransientStandard::Reserved24() { return E_NOTIMPL; }
HRESULT ZOLVotTransientStandard::Reserved25() { return Stub(); }
HRESULT ZOLVotTransientStandard::Reserved26() { return Stub(); }
void ZOLVotTransientStandard::Reserved27() { Stub(); }
HRESULT ZOLVotTransientStandard::Reserved28() { return Stub(); }

