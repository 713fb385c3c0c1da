// The DOM codec of the standard dialect, its work stack and the stack's elements.
#pragma once
#include <vector>

#include "ZOLAnnStandardXMLNode.h"
#include "ZOLAnnStandardXMLParserCodec.h"
#include "ZOLDftStdPersistence.h"
#include "ZOLTrace.h"
#include "ZOLXMLDOM.h"

/// A node of the tree paired with its DOM element; holds a reference on the node.
class ZOLAnnStandardXMLParserDOMCodecQueueElem {
public:
  /// Takes a reference on iNode; a null iNode is reported.
  ZOLAnnStandardXMLParserDOMCodecQueueElem(ZOLAnnStandardXMLNode* iNode, ZOLIDOMElement_var iElement);
  ~ZOLAnnStandardXMLParserDOMCodecQueueElem();
  ZOLAnnStandardXMLParserDOMCodecQueueElem(const ZOLAnnStandardXMLParserDOMCodecQueueElem&) = delete;
  ZOLAnnStandardXMLParserDOMCodecQueueElem& operator=(const ZOLAnnStandardXMLParserDOMCodecQueueElem&) = delete;
  /// The node, without a new reference; may be null.
  ZOLAnnStandardXMLNode* GetNode() const { return _node; }
  /// The element; may be null.
  const ZOLIDOMElement_var& GetElement() const { return _element; }

private:
  ZOLAnnStandardXMLNode* _node;
  ZOLIDOMElement_var _element;
};

/// The pending work of a walk, kept on the heap. Named a queue, it is a stack: the last pushed
/// element pops first, which keeps document order when children are pushed in reverse.
class ZOLAnnStandardXMLParserDOMCodecQueue {
public:
  ZOLAnnStandardXMLParserDOMCodecQueue() = default;
  /// Destroys the elements left.
  ~ZOLAnnStandardXMLParserDOMCodecQueue();
  ZOLAnnStandardXMLParserDOMCodecQueue(const ZOLAnnStandardXMLParserDOMCodecQueue&) = delete;
  ZOLAnnStandardXMLParserDOMCodecQueue& operator=(const ZOLAnnStandardXMLParserDOMCodecQueue&) = delete;
  /// Number of elements.
  int Size() const { return static_cast<int>(_elems.size()); }
  /// Adds an element, owned from now on; null is reported and ignored.
  void Push(ZOLAnnStandardXMLParserDOMCodecQueueElem* iElem);
  /// Removes the most recently pushed element and gives it to the caller; null, reported, when empty.
  ZOLAnnStandardXMLParserDOMCodecQueueElem* Pop();

private:
  std::vector<ZOLAnnStandardXMLParserDOMCodecQueueElem*> _elems;
};

/// Decodes standard files and texts into the three roots of a parser, and encodes them back.
class ZOLAnnStandardXMLParserDOMCodec : public ZOLAnnStandardXMLParserCodec {
public:
  ZOLAnnStandardXMLParserDOMCodec() = default;
  ~ZOLAnnStandardXMLParserDOMCodec() override;
  ZOLAnnStandardXMLParserDOMCodec(const ZOLAnnStandardXMLParserDOMCodec&) = delete;
  ZOLAnnStandardXMLParserDOMCodec& operator=(const ZOLAnnStandardXMLParserDOMCodec&) = delete;

  HRESULT Init(ZOLAnnStandardXMLNode* typeDefRoot, ZOLAnnStandardXMLNode* enumRoot, ZOLAnnStandardXMLNode* root) override;
  HRESULT DecodeXMLString(ZOLUnicodeString text) override;
  HRESULT DecodeXMLFile(ZOLUnicodeString path) override;
  HRESULT SaveInFile(ZOLUnicodeString path) override;
  HRESULT SaveInString(ZOLUnicodeString& text) override;

  /// The attribute type of the last decoded document element; empty at first.
  const ZOLUnicodeString& GetType() const { return _type; }
  /// The attribute name of the last decoded document element; "drafting" before any decoding.
  const ZOLUnicodeString& GetName() const { return _name; }

  /// The trace "DftStdDOMCodec" of the codec.
  static ZOLTrace& Trace();

  class Input;
  class Output;

private:
  HRESULT Decode(Input& input, const char* indent);
  HRESULT Encode(Output& output);
  ZOLAnnStandardXMLNode* BuildEnumDef(const ZOLIDOMElement_var& element, const char* indent);
  ZOLAnnStandardXMLNode* BuildTypeDef(const ZOLIDOMElement_var& element, const char* indent);
  ZOLAnnStandardXMLNode* BuildDefinition(const ZOLIDOMElement_var& element, bool isEnum, const char* indent);
  ZOLAnnStandardXMLNode* Build(const ZOLIDOMElement_var& element, ZOLAnnStandardXMLNode* typeDefRoot, const char* indent);
  // 1 when the tree reads back as it is once written; otherwise the first fault is reported.
  bool Writable() const;
  HRESULT EncodeNode(ZOLAnnStandardXMLNode* node, const ZOLIDOMElement_var& parent, ZOLIDOMDocument_var& document);

  ZOLAnnStandardXMLNode* _typeDefRoot = nullptr;
  ZOLAnnStandardXMLNode* _enumRoot = nullptr;
  ZOLAnnStandardXMLNode* _root = nullptr;
  ZOLUnicodeString _type;
  ZOLUnicodeString _name = ZOLDftStdPersistence::ZOLDftStdType;
};
