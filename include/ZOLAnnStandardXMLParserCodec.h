// The seam between the standard tree and a text form of it.
#pragma once
#include "ZOLResult.h"
#include "ZOLUnicodeString.h"

class ZOLAnnStandardXMLNode;

class ZOLAnnStandardXMLParserCodec {
public:
  virtual ~ZOLAnnStandardXMLParserCodec() = default;
  /// Binds the three roots (references taken); E_UNEXPECTED if already bound or one is null.
  virtual HRESULT Init(ZOLAnnStandardXMLNode* typeDefRoot, ZOLAnnStandardXMLNode* enumRoot, ZOLAnnStandardXMLNode* root) = 0;
  /// Adds the document held by text to the roots; S_OK or a failure code.
  virtual HRESULT DecodeXMLString(ZOLUnicodeString text) = 0;
  /// Adds the document of a file to the roots; S_OK or a failure code.
  virtual HRESULT DecodeXMLFile(ZOLUnicodeString path) = 0;
  /// Writes the roots to a file; S_OK or a failure code.
  virtual HRESULT SaveInFile(ZOLUnicodeString path) = 0;
  /// Writes the roots into text; S_OK or a failure code.
  virtual HRESULT SaveInString(ZOLUnicodeString& text) = 0;
};
