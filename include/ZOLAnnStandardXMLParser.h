// A standard document: the three roots "Root", "Enum" and "TypeDef", a codec, and the edit-string language.
#pragma once
#include <memory>

#include "ZOLAnnStandardXMLNode.h"
#include "ZOLResult.h"
#include "ZOLUnicodeString.h"

class ZOLAnnStandardXMLParserCodec;
class ZOLAnnStandardXMLParserCodecFactory;

class ZOLAnnStandardXMLParser {
public:
  /// An empty document with a codec of the installed factory (the DOM codec by default).
  ZOLAnnStandardXMLParser();
  /// Shallow: the copy shares the roots and the codec; the codec goes with the last parser that holds it.
  ZOLAnnStandardXMLParser(const ZOLAnnStandardXMLParser& other);
  ZOLAnnStandardXMLParser& operator=(const ZOLAnnStandardXMLParser& other);
  virtual ~ZOLAnnStandardXMLParser();

  /// Result of an edit whose name, type or value text a standard file cannot hold and give back:
  /// invalid UTF-8, a control character other than tab, line feed and carriage return (NUL among
  /// them), or more than 1,000,000,000 bytes. The tree is left as it was.
  static constexpr int EditNotRepresentable = 3;

  /// Adds a node, "path:name[:position]"; 0 done, 1 place not found, 2 position not a number, 3 EditNotRepresentable.
  int AddNodeWithPath(ZOLUnicodeString editString, int isTypeVal);
  /// Adds a value, "path:name:type:value[:position]"; 0 done, 1 place not found, 2 position not a number, 3 EditNotRepresentable.
  int AddValueWithPath(ZOLUnicodeString editString, int occurrence);
  /// Adds a value to every sub-node of the last path component's name; 0, 1, 2 or 3 as above.
  int AddValueWithPathForAllOccurence(ZOLUnicodeString editString, int occurrence);
  /// Changes a value, "path:text"; 0 done, 1 not found, 3 EditNotRepresentable.
  int ChangeValueWithPath(ZOLUnicodeString editString);
  /// Removes a node or value at a path; 0 done, 1 not found.
  int DeleteNodeWithPath(ZOLUnicodeString path);
  /// The node at a path, as a new reference; or null.
  ZOLAnnStandardXMLNode* GetNodeWithPath(ZOLUnicodeString path);
  /// The text of the first value of the node at a path; empty if none.
  ZOLUnicodeString GetValueWithPath(ZOLUnicodeString path);
  /// The data version of the document, or -1.
  int GetVersion();
  /// 1 when every enumerated value is defined, 0 when faults were found (and printed).
  int Check();
  /// Decodes a file (isFile not 0) or a text into the roots; 0 success, 1 failure.
  int DecodeXML(ZOLUnicodeString source, int isFile);
  /// Saves the document to a file; the codec's result (the DOM codec's E_FAIL, the old file left as it
  /// was, for a name or text that the file could not give back), E_UNEXPECTED without a codec.
  HRESULT SaveInFile(ZOLUnicodeString path);
  /// Saves the document into text; a failure is reported.
  void SaveInString(ZOLUnicodeString& text);

  /// Installs the factory of the codecs of later parsers (owned from now on); null is refused with a report.
  static void SetCodecFactory(ZOLAnnStandardXMLParserCodecFactory* factory);

  /// The roots, without new references.
  ZOLAnnStandardXMLNode* Root() const { return _root; }
  ZOLAnnStandardXMLNode* EnumRoot() const { return _enumRoot; }
  ZOLAnnStandardXMLNode* TypeDefRoot() const { return _typeDefRoot; }

private:
  ZOLAnnStandardXMLNode* GetStartNodeWithPath(ZOLUnicodeString path, ZOLUnicodeString& rest);
  HRESULT GetExplicitVersion(int& version);
  HRESULT IsVersioned(int release);
  ZOLAnnStandardXMLNode* StartNode(std::string_view word) const;

  std::shared_ptr<ZOLAnnStandardXMLParserCodec> _codec;
  ZOLAnnStandardXMLNode* _typeDefRoot = nullptr;
  ZOLAnnStandardXMLNode* _enumRoot = nullptr;
  ZOLAnnStandardXMLNode* _root = nullptr;

  // Freed when the library unloads.
  static std::unique_ptr<ZOLAnnStandardXMLParserCodecFactory> _codecFactory;
};
