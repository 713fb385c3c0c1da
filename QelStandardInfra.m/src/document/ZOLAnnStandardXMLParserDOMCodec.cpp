#include "document/ZOLAnnStandardXMLParserDOMCodec.h"

#include <array>
#include <string>
#include <vector>

#include "ZOLAnnStandardXMLParserDOMCodecFactory.h"
#include "document/ZOLDftStdElement.h"
#include "ZOLDftStdNamespace.h"
#include "ZOLDftXMLNodeID.h"
#include "ZOLDftXMLNodeIterator.h"
#include "ZOLSysLog.h"
#include "ZOLTrace.h"
#include "ZOLXMLSAX.h"

namespace {

ZOLTrace g_trace("DftStdDOMCodec");

using Elem = ZOLAnnStandardXMLParserDOMCodecQueueElem;
using Kind = ZOLDftStdElement;

const std::string g_xmlnsStd = "xmlns:" + std::string(ZOLDftStdNamespacePrefix);

std::string NodeName(const ZOLIDOMNode_var& node) {
  std::string name;
  node.GetNodeName(name);
  return name;
}

// The next child element of the dialect, skipping other nodes and elements of other namespaces.
bool NextStdChild(ZOLDftXMLNodeIterator& it, ZOLIDOMElement_var& element, Kind& kind, const char* indent) {
  for (; !it.IsDone(); it.Next()) {
    ZOLIDOMNode_var child = it.CurrentItem();
    if (child.GetNodeType() != ZOLIDOMNode::ELEMENT_NODE) continue;
    element = ZOLIDOMElement_var(child);
    std::string_view uri, local;
    element.GetNamespaceURI(uri);
    element.GetLocalName(local);
    if (uri != ZOLDftStdNamespaceURI) {
      g_trace.TraPrint("%sWarning! The element %s is not in standard namespace. It will be ignored. (file %s:%d)\n",
                       indent, NodeName(element).c_str(), __FILE_NAME__, __LINE__);
      continue;
    }
    kind = ZOLDftStdElementOf(uri, local);
    it.Next();
    return true;
  }
  return false;
}

ZOLAnnStandardXMLValue::Type ValueType(Kind kind) {
  switch (kind) {
    case Kind::IntVal: return ZOLAnnStandardXMLValue::IntValue;
    case Kind::FloatVal: return ZOLAnnStandardXMLValue::FloatValue;
    case Kind::StrVal: return ZOLAnnStandardXMLValue::StringValue;
    case Kind::EnumVal: return ZOLAnnStandardXMLValue::EnumValue;
    case Kind::ColorVal: return ZOLAnnStandardXMLValue::ColorValue;
    default: return ZOLAnnStandardXMLValue::NoValue;
  }
}

enum class NameRule { Required, Forbidden, Optional };

// A value element read by the rules of its parent; null, reported, when it breaks one.
ZOLAnnStandardXMLValue* ReadValue(const ZOLIDOMElement_var& element, Kind kind, NameRule rule, bool minvalAllowed) {
  std::string name;
  bool hasName = element.GetAttributeNS("", "name", name) == S_OK;
  if ((rule == NameRule::Required && name.empty()) || (rule == NameRule::Forbidden && hasName)) {
    ZOLAssertBool("");
    return nullptr;
  }
  bool hasMinval = element.HasAttributeNS("", "minval");
  if (hasMinval) {
    if (!minvalAllowed || kind != Kind::FloatVal) {
      ZOLAssertBool("");
      return nullptr;
    }
    element.GetAttributeNS("", "minval", name);
    if (name.empty()) {
      ZOLAssertBool("");
      return nullptr;
    }
  }
  std::string text;
  for (ZOLDftXMLNodeIterator it(element); !it.IsDone(); it.Next()) {
    ZOLIDOMNode_var child = it.CurrentItem();
    std::string_view piece;
    switch (child.GetNodeType()) {
      case ZOLIDOMNode::TEXT_NODE:
      case ZOLIDOMNode::CDATA_SECTION_NODE:
        child.GetNodeValue(piece);
        text.append(piece);
        break;
      case ZOLIDOMNode::COMMENT_NODE: break;
      case ZOLIDOMNode::ELEMENT_NODE:
      case ZOLIDOMNode::ATTRIBUTE_NODE:
      case ZOLIDOMNode::ENTITY_REFERENCE_NODE:
      case ZOLIDOMNode::ENTITY_NODE:
      case ZOLIDOMNode::PROCESSING_INSTRUCTION_NODE:
      case ZOLIDOMNode::DOCUMENT_NODE:
      case ZOLIDOMNode::DOCUMENT_TYPE_NODE:
      case ZOLIDOMNode::DOCUMENT_FRAGMENT_NODE:
      case ZOLIDOMNode::NOTATION_NODE:
        ZOLAssertMessage("Invalid node where there should be only text");
        return nullptr;
      default:
        ZOLAssertMessage("Unknown node type!");
        return nullptr;
    }
  }
  auto* value = new ZOLAnnStandardXMLValue(ValueType(kind), ZOLUnicodeString(std::move(text)),
                                           ZOLUnicodeString(std::move(name)), 0);
  if (hasMinval) value->SetRangeVal(1);
  return value;
}

// The tree node of a node or typeval element; null, reported, for another element or an empty name.
ZOLAnnStandardXMLNode* CreateNode(const ZOLIDOMElement_var& element, Kind kind) {
  ZOLAnnStandardXMLNode::Type type;
  if (kind == Kind::TypeVal) type = ZOLAnnStandardXMLNode::TypeValNode;
  else if (kind == Kind::Node) type = ZOLAnnStandardXMLNode::PlainNode;
  else {
    ZOLAssertBool("");
    return nullptr;
  }
  std::string name;
  element.GetAttributeNS("", "name", name);
  if (name.empty()) {
    ZOLAssertBool("");
    return nullptr;
  }
  return new ZOLAnnStandardXMLNode(type, ZOLUnicodeString(std::move(name)));
}

// Where an element stands: "/" + local name + " " + name for each level, outermost first.
std::string Place(const ZOLIDOMElement_var& element) {
  if (element.IsNull()) return "NULL";
  std::vector<std::string> levels;
  for (ZOLIDOMNode_var n = element; n.GetNodeType() == ZOLIDOMNode::ELEMENT_NODE;) {
    ZOLIDOMElement_var e(n);
    std::string_view local;
    std::string name;
    if (FAILED(e.GetLocalName(local)) || FAILED(e.GetAttributeNS("", "name", name))) return "ERROR";
    levels.push_back(std::string(local).append(1, ' ').append(name));
    if (FAILED(n.GetParentNode(n))) return "ERROR";
  }
  std::string place;
  for (auto it = levels.rbegin(); it != levels.rend(); ++it) place.append(1, '/').append(*it);
  return place;
}

// Where a node of the tree stands, for the rules of what the decoder takes back.
enum class Where { EnumRoot, TypeDefRoot, Root, Node };

bool IsDialectNode(ZOLAnnStandardXMLNode::Type type) {
  return type == ZOLAnnStandardXMLNode::PlainNode || type == ZOLAnnStandardXMLNode::TypeDefNode ||
         type == ZOLAnnStandardXMLNode::EnumDefNode || type == ZOLAnnStandardXMLNode::TypeValNode;
}

bool IsDialectValue(ZOLAnnStandardXMLValue::Type type) {
  return type >= ZOLAnnStandardXMLValue::IntValue && type <= ZOLAnnStandardXMLValue::ColorValue;
}

// Why a value of a node of that type would not read back as it is; null when it would.
const char* ValueFault(const ZOLAnnStandardXMLValue* v, ZOLAnnStandardXMLNode::Type owner) {
  const bool named = !v->Name().IsEmpty(), bound = v->GetRangeVal() != 0;
  if (const char* fault = ZOLXMLTextFault(v->Value().str())) return fault;
  if (const char* fault = ZOLXMLTextFault(v->Name().str())) return fault;
  switch (owner) {
    case ZOLAnnStandardXMLNode::EnumDefNode:
      if (v->GetType() != ZOLAnnStandardXMLValue::StringValue) return "an enumeration holds strings only";
      return bound ? "an enumeration's string has no bound" : nullptr;
    case ZOLAnnStandardXMLNode::TypeDefNode:
      if (v->GetType() == ZOLAnnStandardXMLValue::ColorValue) return "a record type holds no colour";
      if (!named) return "a field of a record type needs a name";
      return bound ? "a field of a record type has no bound" : nullptr;
    case ZOLAnnStandardXMLNode::TypeValNode:
      if (!named) return "a field of a record needs a name";
      return bound ? "a field of a record has no bound" : nullptr;
    default:
      if (v->GetType() == ZOLAnnStandardXMLValue::EnumValue)
        return !named ? "an enumerated value needs its enumeration's name" : bound ? "an enumerated value has no bound" : nullptr;
      if (bound && v->GetType() != ZOLAnnStandardXMLValue::FloatValue) return "only a real number has a bound";
      if (bound && !named) return "a bound needs its text";
      return !bound && named ? "a parameter's value has no name" : nullptr;
  }
}

// Why a node would not read back as it is where it stands (its values and place, not its
// sub-nodes); null when it would. Nodes and values of no kind of the dialect are left to the
// encoder, which reports them.
const char* NodeFault(const ZOLAnnStandardXMLNode* n, Where place) {
  const ZOLAnnStandardXMLNode::Type type = n->GetNodeType();
  if (!IsDialectNode(type)) return nullptr;
  if (n->Name().IsEmpty()) return "a node needs a name";
  if (const char* fault = ZOLXMLTextFault(n->Name().str())) return fault;
  switch (place) {
    case Where::EnumRoot:
      if (type != ZOLAnnStandardXMLNode::EnumDefNode) return "the Enum root holds enumerations only";
      break;
    case Where::TypeDefRoot:
      if (type != ZOLAnnStandardXMLNode::TypeDefNode) return "the TypeDef root holds record types only";
      break;
    case Where::Root:
      if (type != ZOLAnnStandardXMLNode::PlainNode) return "the Root root holds plain nodes only";
      break;
    case Where::Node:
      if (type == ZOLAnnStandardXMLNode::EnumDefNode || type == ZOLAnnStandardXMLNode::TypeDefNode)
        return "enumerations and record types belong to their roots";
      break;
  }
  bool definition = type == ZOLAnnStandardXMLNode::EnumDefNode || type == ZOLAnnStandardXMLNode::TypeDefNode;
  if (definition && n->GetNumOfNode() > 0) return "an enumeration or a record type holds no nodes";
  if (definition && n->GetNumOfValue() == 0) return "an enumeration or a record type holds one value at least";
  for (const ZOLAnnStandardXMLValue* v : n->Values())
    if (IsDialectValue(v->GetType()))
      if (const char* fault = ValueFault(v, type)) return fault;
  return nullptr;
}

void InvalidNode(const char* indent, const ZOLIDOMElement_var& element, const ZOLIDOMElement_var& parent, bool report) {
  g_trace.TraPrint("%sERROR: invalid node %s under %s\n", indent, NodeName(element).c_str(), NodeName(parent).c_str());
  if (report) ZOLAssertMessage("Invalid node");
}

}  // namespace

// ---------------------------------------------------------------- strategies

class ZOLAnnStandardXMLParserDOMCodec::Input {
public:
  virtual ~Input() = default;
  virtual HRESULT BuildDocument(ZOLIXMLDOMDocumentBuilder& builder, const ZOLListValZOLUnicodeString& names,
                                const ZOLListValZOLUnicodeString& values, ZOLIDOMDocument_var& document) = 0;
};

class ZOLAnnStandardXMLParserDOMCodec::Output {
public:
  virtual ~Output() = default;
  virtual HRESULT Write(ZOLIXMLDOMDocumentBuilder& builder, const ZOLIDOMDocument_var& document,
                        const ZOLListValZOLUnicodeString& names, const ZOLListValZOLUnicodeString& values) = 0;
};

namespace {

class InputFile final : public ZOLAnnStandardXMLParserDOMCodec::Input {
public:
  explicit InputFile(const ZOLUnicodeString& path) : _path(path) {}
  HRESULT BuildDocument(ZOLIXMLDOMDocumentBuilder& builder, const ZOLListValZOLUnicodeString& names,
                        const ZOLListValZOLUnicodeString& values, ZOLIDOMDocument_var& document) override {
    return builder.BuildDocumentFromFile(_path.str(), names, values, document);
  }

private:
  const ZOLUnicodeString& _path;
};

class InputString final : public ZOLAnnStandardXMLParserDOMCodec::Input {
public:
  explicit InputString(const ZOLUnicodeString& text) : _text(text) {}
  HRESULT BuildDocument(ZOLIXMLDOMDocumentBuilder& builder, const ZOLListValZOLUnicodeString& names,
                        const ZOLListValZOLUnicodeString& values, ZOLIDOMDocument_var& document) override {
    std::unique_ptr<ZOLIXMLSAX2Factory> factory;
    if (FAILED(CreateZOLIXMLSAX2Factory(factory)) || !factory) return E_FAIL;
    std::unique_ptr<ZOLIXMLInputSource> source;
    if (FAILED(factory->CreateInputSourceFromText(_text.str(), "ZOLAnnStandardXMLParserDOMCodecInputString", source)) || !source)
      return E_FAIL;
    return builder.BuildDocumentFromSource(*source, names, values, document);
  }

private:
  const ZOLUnicodeString& _text;
};

class OutputFile final : public ZOLAnnStandardXMLParserDOMCodec::Output {
public:
  explicit OutputFile(const ZOLUnicodeString& path) : _path(path) {}
  HRESULT Write(ZOLIXMLDOMDocumentBuilder& builder, const ZOLIDOMDocument_var& document,
                const ZOLListValZOLUnicodeString& names, const ZOLListValZOLUnicodeString& values) override {
    return builder.WriteToFile(document, _path.str(), names, values);
  }

private:
  const ZOLUnicodeString& _path;
};

class OutputString final : public ZOLAnnStandardXMLParserDOMCodec::Output {
public:
  explicit OutputString(ZOLUnicodeString& text) : _text(text) {}
  HRESULT Write(ZOLIXMLDOMDocumentBuilder& builder, const ZOLIDOMDocument_var& document,
                const ZOLListValZOLUnicodeString& names, const ZOLListValZOLUnicodeString& values) override {
    return builder.WriteToString(document, _text.str(), names, values);
  }

private:
  ZOLUnicodeString& _text;
};

}  // namespace

// ---------------------------------------------------------------- queue

ZOLAnnStandardXMLParserDOMCodecQueueElem::ZOLAnnStandardXMLParserDOMCodecQueueElem(ZOLAnnStandardXMLNode* iNode,
                                                                                   ZOLIDOMElement_var iElement)
    : _node(iNode), _element(iElement) {
  if (!_node) ZOLAssertMessage("iNode is NULL!");
  else _node->AddRef();
}

ZOLAnnStandardXMLParserDOMCodecQueueElem::~ZOLAnnStandardXMLParserDOMCodecQueueElem() {
  if (_node) _node->Release();
}

ZOLAnnStandardXMLParserDOMCodecQueue::~ZOLAnnStandardXMLParserDOMCodecQueue() {
  for (auto* e : _elems) delete e;
}

void ZOLAnnStandardXMLParserDOMCodecQueue::Push(ZOLAnnStandardXMLParserDOMCodecQueueElem* iElem) {
  if (!iElem) {
    ZOLAssertPointer("");
    return;
  }
  _elems.push_back(iElem);
}

ZOLAnnStandardXMLParserDOMCodecQueueElem* ZOLAnnStandardXMLParserDOMCodecQueue::Pop() {
  if (_elems.empty()) {
    ZOLAssertBool("");
    return nullptr;
  }
  auto* e = _elems.back();
  _elems.pop_back();
  return e;
}

// ---------------------------------------------------------------- codec

ZOLAnnStandardXMLParserCodec* ZOLAnnStandardXMLParserDOMCodecFactory::CreateCodec() {
  return new ZOLAnnStandardXMLParserDOMCodec();
}

ZOLTrace& ZOLAnnStandardXMLParserDOMCodec::Trace() { return g_trace; }

ZOLAnnStandardXMLParserDOMCodec::~ZOLAnnStandardXMLParserDOMCodec() {
  for (auto* n : {_typeDefRoot, _enumRoot, _root})
    if (n) n->Release();
}

HRESULT ZOLAnnStandardXMLParserDOMCodec::Init(ZOLAnnStandardXMLNode* typeDefRoot, ZOLAnnStandardXMLNode* enumRoot,
                                              ZOLAnnStandardXMLNode* root) {
  if (_typeDefRoot || _enumRoot || _root) {
    ZOLAssertBool("");
    return E_UNEXPECTED;
  }
  if (!typeDefRoot || !enumRoot || !root) {
    ZOLAssertPointer("");
    return E_UNEXPECTED;
  }
  typeDefRoot->AddRef();
  enumRoot->AddRef();
  root->AddRef();
  _typeDefRoot = typeDefRoot;
  _enumRoot = enumRoot;
  _root = root;
  return S_OK;
}

HRESULT ZOLAnnStandardXMLParserDOMCodec::DecodeXMLString(ZOLUnicodeString text) {
  ZOLQelTraAutoInOutAndIndent scope(g_trace, "ZOLAnnStandardXMLParserDOMCodec::DecodeXMLString");
  InputString input(text);
  return Decode(input, scope.Indent());
}

HRESULT ZOLAnnStandardXMLParserDOMCodec::DecodeXMLFile(ZOLUnicodeString path) {
  ZOLQelTraAutoInOutAndIndent scope(g_trace, "ZOLAnnStandardXMLParserDOMCodec::DecodeXMLFile");
  InputFile input(path);
  return Decode(input, scope.Indent());
}

HRESULT ZOLAnnStandardXMLParserDOMCodec::Decode(Input& input, const char* indent) {
  if (!_typeDefRoot || !_enumRoot || !_root) {
    ZOLAssertPointer("");
    return E_UNEXPECTED;
  }
  std::unique_ptr<ZOLIXMLDOMDocumentBuilder> builder;
  if (FAILED(CreateZOLIXMLDOMDocumentBuilder(builder)) || !builder) {
    ZOLAssertPointer("");
    return E_UNEXPECTED;
  }

  ZOLListValZOLUnicodeString supported, names, values;
  builder->GetSupportedOptions(supported);
  g_trace.TraPrint("%sZOLIXMLDOMDocumentBuilder supported options:\n", indent);
  for (const auto& option : supported) g_trace.TraPrint("%s  %s\n", indent, option.ConvertToChar());
  if (supported.Locate(ZOLUnicodeString(ZOLDOMOptionDoValidation))) {
    g_trace.TraPrint("%sZOLDoValidation option found\n", indent);
    names.Append(ZOLUnicodeString(ZOLDOMOptionDoValidation));
    values.Append("false");
  } else {
    g_trace.TraPrint("%sWarning: ZOLDoValidation is not supported; we assume that parser is not validating\n", indent);
  }
  if (!supported.Locate(ZOLUnicodeString(ZOLDOMOptionEnableNameSpaces))) {
    ZOLAssertMessage("Namespaces not supported!");
    return E_FAIL;
  }
  g_trace.TraPrint("%sZOLEnableNameSpaces option found\n", indent);
  names.Append(ZOLUnicodeString(ZOLDOMOptionEnableNameSpaces));
  values.Append("true");

  ZOLIDOMDocument_var document;
  if (FAILED(input.BuildDocument(*builder, names, values, document)) || document.IsNull()) {
    g_trace.TraPrint("%sBuildDocument failed\n", indent);
    g_trace.TraPrint("%s  %s\n", indent, builder->GetLastError().c_str());
    return E_FAIL;
  }

  ZOLIDOMElement_var top;
  document.GetDocumentElement(top);
  ZOLDftXMLNodeID id = ZOLDftXMLNodeID::BuildFromElement(top);
  if (id != ZOLDftStdElementID(Kind::Node)) {
    g_trace.TraPrint("%sRoot node is not correct, it's %s\n", indent, id.ToString().ConvertToChar());
    ZOLAssertMessage("Invalid standard");
    return E_FAIL;
  }
  g_trace.TraPrint("%sRoot node is OK, it's %s\n", indent, id.ToString().ConvertToChar());

  std::string attribute;
  top.GetAttributeNS("", "name", attribute);
  _name = ZOLUnicodeString(attribute);
  top.GetAttributeNS("", "type", attribute);
  _type = ZOLUnicodeString(attribute);

  ZOLDftXMLNodeIterator it(top);
  ZOLIDOMElement_var element;
  Kind kind;
  while (NextStdChild(it, element, kind, indent)) {
    ZOLAnnStandardXMLNode* built = nullptr;
    ZOLAnnStandardXMLNode* target = nullptr;
    switch (kind) {
      case Kind::EnumDef: built = BuildEnumDef(element, indent); target = _enumRoot; break;
      case Kind::TypeDef: built = BuildTypeDef(element, indent); target = _typeDefRoot; break;
      case Kind::Node: built = Build(element, _typeDefRoot, indent); target = _root; break;
      default:
        g_trace.TraPrint("%sERROR: invalid node %s under root %s\n", indent, NodeName(element).c_str(), NodeName(top).c_str());
        ZOLAssertMessage("Invalid node");
        return E_FAIL;
    }
    if (!built) return E_FAIL;
    target->AddNode(built, -1);
    built->Release();
  }
  return S_OK;
}

ZOLAnnStandardXMLNode* ZOLAnnStandardXMLParserDOMCodec::BuildEnumDef(const ZOLIDOMElement_var& element, const char* indent) {
  return BuildDefinition(element, true, indent);
}

ZOLAnnStandardXMLNode* ZOLAnnStandardXMLParserDOMCodec::BuildTypeDef(const ZOLIDOMElement_var& element, const char* indent) {
  return BuildDefinition(element, false, indent);
}

// An enumdef keeps going past a string that breaks the value rule; a typedef ends on any bad value.
ZOLAnnStandardXMLNode* ZOLAnnStandardXMLParserDOMCodec::BuildDefinition(const ZOLIDOMElement_var& element, bool isEnum,
                                                                        const char* indent) {
  std::string name;
  element.GetAttributeNS("", "name", name);
  if (name.empty()) {
    ZOLAssertBool("");
    return nullptr;
  }
  ZOLRef<ZOLAnnStandardXMLNode> node = ZOLRef<ZOLAnnStandardXMLNode>::Adopt(new ZOLAnnStandardXMLNode(
      isEnum ? ZOLAnnStandardXMLNode::EnumDefNode : ZOLAnnStandardXMLNode::TypeDefNode, ZOLUnicodeString(name)));
  ZOLDftXMLNodeIterator it(element);
  ZOLIDOMElement_var child;
  Kind kind;
  while (NextStdChild(it, child, kind, indent)) {
    ZOLAnnStandardXMLValue* value = nullptr;
    if (isEnum) {
      if (kind != Kind::StrVal) {
        InvalidNode(indent, child, element, true);
        return nullptr;
      }
      value = ReadValue(child, kind, NameRule::Optional, false);
      if (!value) continue;
      if (!value->Name().IsEmpty() && value->Name().str() != name)
        ZOLAssertMessage("Strval in enum have a name but it's not the name of the enum");
    } else {
      bool allowed = kind == Kind::StrVal || kind == Kind::IntVal || kind == Kind::EnumVal || kind == Kind::FloatVal;
      value = allowed ? ReadValue(child, kind, NameRule::Required, false) : nullptr;
      if (!value) {
        InvalidNode(indent, child, element, true);
        return nullptr;
      }
    }
    node->AddValue(value, -1);
    value->Release();
  }
  if (node->GetNumOfValue() == 0) {
    ZOLAssertMessage(isEnum ? "Enumdef node empty!" : "Typedef node empty!");
    return nullptr;
  }
  g_trace.TraPrint(isEnum ? "%sBuilding enumdef %s (%d values)\n" : "%sBuilding typedef %s (%d values)\n", indent,
                   name.c_str(), node->GetNumOfValue());
  return node.Detach();
}

ZOLAnnStandardXMLNode* ZOLAnnStandardXMLParserDOMCodec::Build(const ZOLIDOMElement_var& element,
                                                              ZOLAnnStandardXMLNode* typeDefRoot, const char* indent) {
  std::string_view uri, local;
  element.GetNamespaceURI(uri);
  element.GetLocalName(local);
  ZOLRef<ZOLAnnStandardXMLNode> top = ZOLRef<ZOLAnnStandardXMLNode>::Adopt(CreateNode(element, ZOLDftStdElementOf(uri, local)));
  if (!top) return nullptr;

  // The stack holds references of its own; on failure it lets go of them when it goes.
  ZOLAnnStandardXMLParserDOMCodecQueue queue;
  queue.Push(new Elem(top.get(), element));
  while (queue.Size() > 0) {
    std::unique_ptr<Elem> pair(queue.Pop());
    ZOLAnnStandardXMLNode* current = pair->GetNode();
    const ZOLIDOMElement_var& currentElement = pair->GetElement();
    bool typed = current->GetNodeType() == ZOLAnnStandardXMLNode::TypeValNode;

    ZOLDftXMLNodeIterator it(currentElement);
    ZOLIDOMElement_var child;
    Kind kind;
    while (NextStdChild(it, child, kind, indent)) {
      switch (kind) {
        case Kind::Node:
        case Kind::TypeVal: {
          ZOLAnnStandardXMLNode* sub = CreateNode(child, kind);
          if (!sub) {
            InvalidNode(indent, child, currentElement, false);
            return nullptr;
          }
          current->AddNode(sub, -1);
          queue.Push(new Elem(sub, child));
          sub->Release();
          break;
        }
        case Kind::TypeDef: {
          // A typedef belongs to the TypeDef root wherever it stands.
          ZOLAnnStandardXMLNode* def = BuildTypeDef(child, indent);
          if (!def) return nullptr;
          typeDefRoot->AddNode(def, -1);
          def->Release();
          break;
        }
        case Kind::EnumVal:
        case Kind::ColorVal:
        case Kind::FloatVal:
        case Kind::IntVal:
        case Kind::StrVal: {
          NameRule rule = kind == Kind::EnumVal || typed ? NameRule::Required : NameRule::Forbidden;
          ZOLAnnStandardXMLValue* value = ReadValue(child, kind, rule, !typed);
          if (!value) {
            InvalidNode(indent, child, currentElement, false);
            return nullptr;
          }
          current->AddValue(value, -1);
          value->Release();
          break;
        }
        default:
          InvalidNode(indent, child, currentElement, true);
          return nullptr;
      }
    }
    if (g_trace.IsActive())
      g_trace.TraPrint("%sBuilding node %s (%d value, %d subnodes)\n", indent, Place(currentElement).c_str(),
                       current->GetNumOfValue(), current->GetNumOfNode());
  }
  return top.Detach();
}

// ---------------------------------------------------------------- encoding

HRESULT ZOLAnnStandardXMLParserDOMCodec::SaveInFile(ZOLUnicodeString path) {
  ZOLQelTraAutoInOutAndIndent scope(g_trace, "ZOLAnnStandardXMLParserDOMCodec::SaveInFile");
  OutputFile output(path);
  return Encode(output);
}

HRESULT ZOLAnnStandardXMLParserDOMCodec::SaveInString(ZOLUnicodeString& text) {
  ZOLQelTraAutoInOutAndIndent scope(g_trace, "ZOLAnnStandardXMLParserDOMCodec::SaveInString");
  OutputString output(text);
  return Encode(output);
}

HRESULT ZOLAnnStandardXMLParserDOMCodec::Encode(Output& output) {
  if (!_typeDefRoot || !_enumRoot || !_root) {
    ZOLAssertPointer("");
    return E_UNEXPECTED;
  }
  if (_typeDefRoot->GetNumOfValue() || _enumRoot->GetNumOfValue() || _root->GetNumOfValue()) {
    ZOLAssertBool("");
    return E_UNEXPECTED;
  }
  std::unique_ptr<ZOLIXMLDOMDocumentBuilder> builder;
  ZOLIDOMDocument_var document;
  if (FAILED(CreateZOLIXMLDOMDocumentBuilder(builder)) || !builder || FAILED(builder->CreateDocument(document))) {
    ZOLAssertBool("");
    return E_UNEXPECTED;
  }
  ZOLIDOMElement_var top;
  if (FAILED(document.CreateElementNS(ZOLDftStdNamespaceURI, ZOLDftStdElementQualifiedName(Kind::Node), top)) ||
      FAILED(top.SetAttribute(g_xmlnsStd, ZOLDftStdNamespaceURI)) ||
      (!_name.IsEmpty() && FAILED(top.SetAttribute("name", _name.str()))) ||
      (!_type.IsEmpty() && FAILED(top.SetAttribute("type", _type.str()))) || FAILED(document.AppendChild(top))) {
    ZOLAssertBool("");
    return E_UNEXPECTED;
  }
  if (!Writable()) return E_FAIL;
  for (ZOLAnnStandardXMLNode* root : {_enumRoot, _typeDefRoot, _root})
    for (ZOLAnnStandardXMLNode* sub : root->SubNodes()) {
      HRESULT hr = EncodeNode(sub, top, document);
      if (FAILED(hr)) return hr;
    }
  ZOLListValZOLUnicodeString names, values;
  return output.Write(*builder, document, names, values);
}

// Only a tree that decodes back to itself is written: a file that the decoder refuses, or reads
// as another tree, would lose what the caller meant to save.
bool ZOLAnnStandardXMLParserDOMCodec::Writable() const {
  const char* fault = ZOLXMLTextFault(_name.str());
  if (!fault) fault = ZOLXMLTextFault(_type.str());
  if (fault) {
    g_trace.TraPrint("ERROR: the name or type of the document cannot be written: %s\n", fault);
    ZOLAssertMessage("Invalid node");
    return false;
  }
  std::vector<std::pair<const ZOLAnnStandardXMLNode*, Where>> stack;
  for (auto [root, place] : {std::pair{_root, Where::Root}, {_typeDefRoot, Where::TypeDefRoot}, {_enumRoot, Where::EnumRoot}})
    for (const ZOLAnnStandardXMLNode* sub : root->SubNodes()) stack.emplace_back(sub, place);
  while (!stack.empty()) {
    auto [node, place] = stack.back();
    stack.pop_back();
    if (const char* fault = NodeFault(node, place)) {
      g_trace.TraPrint("ERROR: the node %.200s cannot be written: %s\n", node->Name().ConvertToChar(), fault);
      ZOLAssertMessage("Invalid node");
      return false;
    }
    for (const ZOLAnnStandardXMLNode* sub : node->SubNodes()) stack.emplace_back(sub, Where::Node);
  }
  return true;
}

HRESULT ZOLAnnStandardXMLParserDOMCodec::EncodeNode(ZOLAnnStandardXMLNode* node, const ZOLIDOMElement_var& parent,
                                                    ZOLIDOMDocument_var& document) {
  ZOLAnnStandardXMLParserDOMCodecQueue queue;
  queue.Push(new Elem(node, parent));
  while (queue.Size() > 0) {
    std::unique_ptr<Elem> pair(queue.Pop());
    ZOLAnnStandardXMLNode* current = pair ? pair->GetNode() : nullptr;
    if (!current || pair->GetElement().IsNull()) {
      ZOLAssertMessage("Invalid situation");
      continue;
    }
    Kind kind;
    switch (current->GetNodeType()) {
      case ZOLAnnStandardXMLNode::PlainNode: kind = Kind::Node; break;
      case ZOLAnnStandardXMLNode::TypeDefNode: kind = Kind::TypeDef; break;
      case ZOLAnnStandardXMLNode::EnumDefNode: kind = Kind::EnumDef; break;
      case ZOLAnnStandardXMLNode::TypeValNode: kind = Kind::TypeVal; break;
      default: ZOLAssertMessage("Invalid type of node!"); return E_FAIL;
    }
    ZOLIDOMElement_var element;
    ZOLIDOMElement_var parentElement = pair->GetElement();
    if (FAILED(document.CreateElementNS(ZOLDftStdNamespaceURI, ZOLDftStdElementQualifiedName(kind), element)) ||
        FAILED(element.SetAttribute("name", current->Name().str())) || FAILED(parentElement.AppendChild(element))) {
      ZOLAssertMessage("Failed to create node!");
      return E_FAIL;
    }
    const auto& subs = current->SubNodes();
    for (auto s = subs.rbegin(); s != subs.rend(); ++s) queue.Push(new Elem(*s, element));

    for (ZOLAnnStandardXMLValue* value : current->Values()) {
      Kind valueKind;
      switch (value->GetType()) {
        case ZOLAnnStandardXMLValue::IntValue: valueKind = Kind::IntVal; break;
        case ZOLAnnStandardXMLValue::FloatValue: valueKind = Kind::FloatVal; break;
        case ZOLAnnStandardXMLValue::StringValue: valueKind = Kind::StrVal; break;
        case ZOLAnnStandardXMLValue::EnumValue: valueKind = Kind::EnumVal; break;
        case ZOLAnnStandardXMLValue::ColorValue: valueKind = Kind::ColorVal; break;
        default: ZOLAssertMessage("unknown type of value!"); return E_FAIL;
      }
      ZOLIDOMElement_var valueElement;
      if (FAILED(document.CreateElementNS(ZOLDftStdNamespaceURI, ZOLDftStdElementQualifiedName(valueKind), valueElement)) ||
          (!value->Name().IsEmpty() &&
           FAILED(valueElement.SetAttribute(value->GetRangeVal() ? "minval" : "name", value->Name().str()))) ||
          FAILED(element.AppendChild(valueElement))) {
        ZOLAssertMessage("Failed to create element");
        return E_FAIL;
      }
      ZOLIDOMNode_var text;
      if (FAILED(document.CreateTextNode(value->Value().str(), text)) || FAILED(valueElement.AppendChild(text))) {
        ZOLAssertMessage("Failed to create text");
        return E_FAIL;
      }
    }
  }
  return S_OK;
}
