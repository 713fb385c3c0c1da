// Placeholder until the DOM codec lands: binds the roots, and says plainly that it can read and write nothing.
#include "ZOLAnnStandardXMLParserCodec.h"
#include "ZOLAnnStandardXMLParserDOMCodecFactory.h"
#include "ZOLAnnStandardXMLNode.h"

namespace {

class ZOLAnnStandardXMLParserDOMCodec : public ZOLAnnStandardXMLParserCodec {
public:
  ~ZOLAnnStandardXMLParserDOMCodec() override {
    for (auto* n : {_typeDefRoot, _enumRoot, _root})
      if (n) n->Release();
  }
  HRESULT Init(ZOLAnnStandardXMLNode* typeDefRoot, ZOLAnnStandardXMLNode* enumRoot, ZOLAnnStandardXMLNode* root) override {
    if (_root || !typeDefRoot || !enumRoot || !root) return E_UNEXPECTED;
    typeDefRoot->AddRef(); enumRoot->AddRef(); root->AddRef();
    _typeDefRoot = typeDefRoot; _enumRoot = enumRoot; _root = root;
    return S_OK;
  }
  HRESULT DecodeXMLString(ZOLUnicodeString) override { return E_NOTIMPL; }
  HRESULT DecodeXMLFile(ZOLUnicodeString) override { return E_NOTIMPL; }
  HRESULT SaveInFile(ZOLUnicodeString) override { return E_NOTIMPL; }
  HRESULT SaveInString(ZOLUnicodeString&) override { return E_NOTIMPL; }

private:
  ZOLAnnStandardXMLNode* _typeDefRoot = nullptr;
  ZOLAnnStandardXMLNode* _enumRoot = nullptr;
  ZOLAnnStandardXMLNode* _root = nullptr;
};

}  // namespace

ZOLAnnStandardXMLParserCodec* ZOLAnnStandardXMLParserDOMCodecFactory::CreateCodec() {
  return new ZOLAnnStandardXMLParserDOMCodec();
}
