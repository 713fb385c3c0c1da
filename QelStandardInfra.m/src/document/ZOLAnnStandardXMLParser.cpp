// The standard document: three roots, a codec, and the edit-string language.
// Edit strings are the upgrade chain's hot path: fields are views into the string, and text
// is copied only into the values and nodes that are made.
#include "ZOLAnnStandardXMLParser.h"

#include <initializer_list>
#include <new>
#include <string>
#include <string_view>
#include <utility>

#include "ZOLAnnStandardXMLParserCodec.h"
#include "ZOLAnnStandardXMLParserCodecFactory.h"
#include "ZOLAnnStandardXMLParserDOMCodecFactory.h"
#include "ZOLDftStdPersistence.h"
#include "ZOLQelInstCount.h"
#include "ZOLSysLog.h"
#include "ZOLXMLDOM.h"

namespace {

// Refused here rather than at the save: a tree that cannot be saved is found out by the edit that
// broke it, not by a later save that fails whole. As to length, values beyond libxml2's usual
// 10 MB are written and read back (the readers take them with its "huge" option); only what is
// over the platform's bound of 1 GB is refused.
bool Representable(std::initializer_list<std::string_view> texts) {
  for (std::string_view text : texts)
    if (ZOLXMLTextFault(text)) return false;
  return true;
}

constexpr const char* kInstCountName = "ZOLAnnStandardXMLParser";

// The fields of an edit string: up to four named ones and the optional position.
struct EditFields {
  std::string_view field[4];
  std::string_view position;
};

// Cuts "f0:...:f(count-1)[:position]" from left to right. A field whose closing ":" is missing
// stays empty with all after it, except the last one, which takes what remains; the position
// takes everything behind the next ":", further colons included.
EditFields Cut(std::string_view text, int count) {
  EditFields out;
  for (int i = 0; i + 1 < count; ++i) {
    size_t colon = text.find(':');
    if (colon == std::string_view::npos) return out;
    out.field[i] = text.substr(0, colon);
    text.remove_prefix(colon + 1);
  }
  size_t colon = text.find(':');
  out.field[count - 1] = text.substr(0, colon);
  if (colon != std::string_view::npos) out.position = text.substr(colon + 1);
  return out;
}

// The 1-based position field as a 0-based index, -1 for append; false when it holds no leading integer.
bool ReadPosition(std::string_view field, int& index) {
  index = -1;
  if (field.empty()) return true;
  int n = 0;
  if (!ZOLUnicodeString(field).ConvertToNum(&n, "%d")) return false;
  // n = size + 1 gives the index size, which AddNode and AddValue refuse: kept, an explicit
  // position never appends.
  index = n <= 0 ? -1 : n - 1;
  return true;
}

// Cuts a path at its first ".": the start word, and in rest what stands behind the dot.
std::string_view StartWord(std::string_view path, std::string_view& rest, bool& hasDot) {
  size_t dot = path.find('.');
  hasDot = dot != std::string_view::npos;
  rest = hasDot ? path.substr(dot + 1) : std::string_view();
  return path.substr(0, dot);
}

struct ValueKind {
  ZOLAnnStandardXMLValue::Type type = ZOLAnnStandardXMLValue::StringValue;
  int rangeVal = 0;
  std::string_view side;
};

ValueKind ReadType(std::string_view type) {
  ValueKind kind;
  if (type == "int") {
    kind.type = ZOLAnnStandardXMLValue::IntValue;
  } else if (type == "float") {
    kind.type = ZOLAnnStandardXMLValue::FloatValue;
  } else if (type == "string") {
    kind.type = ZOLAnnStandardXMLValue::StringValue;
  } else if (type == "color") {
    kind.type = ZOLAnnStandardXMLValue::ColorValue;
  } else if (size_t dot = type.find('.'); dot == std::string_view::npos) {
    ZOLAssertMessage("Failed to find value type, str has been set but it's wrong!");
  } else if (std::string_view prefix = type.substr(0, dot), after = type.substr(dot + 1); prefix == "enum") {
    kind.type = ZOLAnnStandardXMLValue::EnumValue;
    kind.side = after;
  } else if (prefix == "float") {
    // "float.m.0.0": the word behind "float." is skipped unread, the rest is the lower bound.
    kind.type = ZOLAnnStandardXMLValue::FloatValue;
    kind.rangeVal = 1;
    size_t next = after.find('.');
    kind.side = next == std::string_view::npos ? type : after.substr(next + 1);
  }
  return kind;
}

// Adds one value of "path:name:type:value" to target: in the parameter form as a new plain node
// named by the name field, holding the value named by the side text; in the direct form as the
// value itself, named by the name field, the side text dropped. 0 done, 1 failed allocation.
int PlaceValue(ZOLAnnStandardXMLNode* target, const EditFields& f, const ValueKind& kind, int index,
               bool parameterForm) {
  ZOLUnicodeString name(f.field[1]);
  ZOLUnicodeString text(f.field[3]);
  if (!parameterForm) {
    auto value = ZOLRef<ZOLAnnStandardXMLValue>::Adopt(
        new (std::nothrow) ZOLAnnStandardXMLValue(kind.type, text, name, kind.rangeVal));
    if (!value) return 1;
    target->AddValue(value.get(), index);
    return 0;
  }
  auto node = ZOLRef<ZOLAnnStandardXMLNode>::Adopt(
      new (std::nothrow) ZOLAnnStandardXMLNode(ZOLAnnStandardXMLNode::PlainNode, name));
  auto value = ZOLRef<ZOLAnnStandardXMLValue>::Adopt(
      new (std::nothrow) ZOLAnnStandardXMLValue(kind.type, text, ZOLUnicodeString(kind.side), kind.rangeVal));
  if (!node || !value) return 1;
  node->AddValue(value.get(), -1);
  target->AddNode(node.get(), index);
  return 0;
}

}  // namespace

std::unique_ptr<ZOLAnnStandardXMLParserCodecFactory> ZOLAnnStandardXMLParser::_codecFactory;

ZOLAnnStandardXMLParser::ZOLAnnStandardXMLParser() {
  _root = new ZOLAnnStandardXMLNode(ZOLAnnStandardXMLNode::RootNode, "Root");
  _enumRoot = new ZOLAnnStandardXMLNode(ZOLAnnStandardXMLNode::RootNode, "Enum");
  _typeDefRoot = new ZOLAnnStandardXMLNode(ZOLAnnStandardXMLNode::RootNode, "TypeDef");
  ZOLQelInstCount(kInstCountName, 1);
  if (!_codecFactory) _codecFactory = std::make_unique<ZOLAnnStandardXMLParserDOMCodecFactory>();
  _codec.reset(_codecFactory->CreateCodec());
  // Either failure leaves a usable empty tree; a null codec is tested at each use.
  if (!_codec) {
    ZOLAssertPointer("");
  } else if (FAILED(_codec->Init(_typeDefRoot, _enumRoot, _root))) {
    ZOLAssertBool("Codec initialized failed!");
  }
}

ZOLAnnStandardXMLParser::ZOLAnnStandardXMLParser(const ZOLAnnStandardXMLParser& other)
    : _codec(other._codec), _typeDefRoot(other._typeDefRoot), _enumRoot(other._enumRoot), _root(other._root) {
  for (auto* n : {_typeDefRoot, _enumRoot, _root}) n->AddRef();
  ZOLQelInstCount(kInstCountName, 1);
}

ZOLAnnStandardXMLParser& ZOLAnnStandardXMLParser::operator=(const ZOLAnnStandardXMLParser& other) {
  if (this == &other) return *this;
  for (auto* n : {other._typeDefRoot, other._enumRoot, other._root}) n->AddRef();
  for (auto* n : {_typeDefRoot, _enumRoot, _root}) n->Release();
  _codec = other._codec;
  _typeDefRoot = other._typeDefRoot;
  _enumRoot = other._enumRoot;
  _root = other._root;
  return *this;
}

ZOLAnnStandardXMLParser::~ZOLAnnStandardXMLParser() {
  _codec.reset();
  for (auto* n : {_typeDefRoot, _enumRoot, _root}) n->Release();
  ZOLQelInstCount(kInstCountName, -1);
}

void ZOLAnnStandardXMLParser::SetCodecFactory(ZOLAnnStandardXMLParserCodecFactory* factory) {
  if (!factory) {
    ZOLAssertPointer("");
    return;
  }
  // Parsers that exist keep the codec they have.
  _codecFactory.reset(factory);
}

ZOLAnnStandardXMLNode* ZOLAnnStandardXMLParser::StartNode(std::string_view word) const {
  if (word == "Root") return _root;
  if (word == "Enum") return _enumRoot;
  if (word == "TypeDef") return _typeDefRoot;
  return nullptr;
}

ZOLAnnStandardXMLNode* ZOLAnnStandardXMLParser::GetStartNodeWithPath(ZOLUnicodeString path, ZOLUnicodeString& rest) {
  std::string_view tail;
  bool hasDot = false;
  ZOLAnnStandardXMLNode* start = StartNode(StartWord(path.str(), tail, hasDot));
  rest = ZOLUnicodeString(tail);
  if (start) start->AddRef();
  return start;
}

int ZOLAnnStandardXMLParser::AddNodeWithPath(ZOLUnicodeString editString, int isTypeVal) {
  EditFields f = Cut(editString.str(), 2);
  std::string_view path = f.field[0], rest;
  bool hasDot = false;
  ZOLAnnStandardXMLNode* parent = StartNode(StartWord(path, rest, hasDot));
  if (parent && !rest.empty()) parent = parent->FindNodeWithPath(rest, 1);
  if (!parent) return 1;
  // The whole path field decides, not its first word: a node added below "Enum.Frame" is plain.
  ZOLAnnStandardXMLNode::Type type = path == "Enum"      ? ZOLAnnStandardXMLNode::EnumDefNode
                                     : path == "TypeDef" ? ZOLAnnStandardXMLNode::TypeDefNode
                                     : isTypeVal         ? ZOLAnnStandardXMLNode::TypeValNode
                                                         : ZOLAnnStandardXMLNode::PlainNode;
  int index = -1;
  if (!ReadPosition(f.position, index)) return 2;
  if (!Representable({f.field[1]})) return EditNotRepresentable;
  auto node = ZOLRef<ZOLAnnStandardXMLNode>::Adopt(new (std::nothrow) ZOLAnnStandardXMLNode(type, ZOLUnicodeString(f.field[1])));
  if (!node) return 1;
  parent->AddNode(node.get(), index);
  return 0;
}

int ZOLAnnStandardXMLParser::AddValueWithPath(ZOLUnicodeString editString, int occurrence) {
  EditFields f = Cut(editString.str(), 4);
  std::string_view rest;
  bool hasDot = false;
  std::string_view word = StartWord(f.field[0], rest, hasDot);
  ZOLAnnStandardXMLNode* target = StartNode(word);
  if (target && hasDot) target = target->FindNodeWithPath(rest, occurrence);
  if (!target) return 1;
  ValueKind kind = ReadType(f.field[2]);
  int index = -1;
  if (!ReadPosition(f.position, index)) return 2;
  // The type field holds the side text that becomes a value's name.
  if (!Representable({f.field[1], f.field[2], f.field[3]})) return EditNotRepresentable;
  bool parameterForm = target->GetNodeType() != ZOLAnnStandardXMLNode::TypeValNode && occurrence != -1 && word == "Root";
  return PlaceValue(target, f, kind, index, parameterForm);
}

int ZOLAnnStandardXMLParser::AddValueWithPathForAllOccurence(ZOLUnicodeString editString, int occurrence) {
  EditFields f = Cut(editString.str(), 4);
  std::string_view rest;
  bool hasDot = false;
  if (StartWord(f.field[0], rest, hasDot) != "Root" || !hasDot) return 1;
  // The parent path's length is the sum of each dot's offset within what was left at that step,
  // which falls one character short per level below the second: "A.B.C" gives "A.". Kept on
  // purpose; the upgrade stages were written against this lookup.
  size_t parentLength = 0;
  std::string_view last = rest;
  for (size_t dot; (dot = last.find('.')) != std::string_view::npos; last.remove_prefix(dot + 1)) parentLength += dot;
  ZOLAnnStandardXMLNode* parent = _root->FindNodeWithPath(rest.substr(0, parentLength), occurrence);
  if (!parent) return 1;
  int index = -1;
  bool positionRead = ReadPosition(f.position, index);
  bool representable = Representable({f.field[1], f.field[2], f.field[3]});
  int result = 1;
  bool parameterForm = true;
  for (ZOLAnnStandardXMLNode* node : parent->SubNodes()) {
    if (node->Name().str() != last) continue;
    // Found out at the first namesake, before anything was added.
    if (!representable) return EditNotRepresentable;
    ValueKind kind = ReadType(f.field[2]);
    if (node->GetNodeType() == ZOLAnnStandardXMLNode::TypeValNode || occurrence == -1) parameterForm = false;
    result = positionRead ? PlaceValue(node, f, kind, index, parameterForm) : 2;
  }
  return result;
}

int ZOLAnnStandardXMLParser::ChangeValueWithPath(ZOLUnicodeString editString) {
  std::string_view all = editString.str();
  size_t colon = all.find(':');
  if (colon == std::string_view::npos) return 1;
  std::string_view rest;
  bool hasDot = false;
  ZOLAnnStandardXMLNode* start = StartNode(StartWord(all.substr(0, colon), rest, hasDot));
  if (!start) return 1;
  std::string_view text = all.substr(colon + 1);
  ZOLAnnStandardXMLNode* node = rest.empty() ? start : start->FindNodeWithPath(rest, 1);
  if (node) {
    if (!Representable({text})) return EditNotRepresentable;
    // Also 0 where ChangeValue refused (and reported).
    node->ChangeValue(ZOLUnicodeString(text));
    return 0;
  }
  // The last component may name a value by its old text.
  ZOLAnnStandardXMLValue* value = start->FindValueWithPath(rest);
  if (!value) return 1;
  if (!Representable({text})) return EditNotRepresentable;
  value->SetValue(ZOLUnicodeString(text));
  return 0;
}

int ZOLAnnStandardXMLParser::DeleteNodeWithPath(ZOLUnicodeString path) {
  std::string_view rest;
  bool hasDot = false;
  ZOLAnnStandardXMLNode* start = StartNode(StartWord(path.str(), rest, hasDot));
  return start ? start->DeleteWithPath(rest) : 1;
}

ZOLAnnStandardXMLNode* ZOLAnnStandardXMLParser::GetNodeWithPath(ZOLUnicodeString path) {
  std::string_view rest;
  bool hasDot = false;
  ZOLAnnStandardXMLNode* node = StartNode(StartWord(path.str(), rest, hasDot));
  if (node && !rest.empty()) node = node->FindNodeWithPath(rest, 1);
  if (node) node->AddRef();
  return node;
}

ZOLUnicodeString ZOLAnnStandardXMLParser::GetValueWithPath(ZOLUnicodeString path) {
  std::string_view rest;
  bool hasDot = false;
  ZOLAnnStandardXMLNode* start = StartNode(StartWord(path.str(), rest, hasDot));
  if (!start || rest.empty()) return ZOLUnicodeString();
  ZOLAnnStandardXMLNode* node = start->FindNodeWithPath(rest, 1);
  if (!node) return ZOLUnicodeString();
  auto value = ZOLRef<ZOLAnnStandardXMLValue>::Adopt(node->GetValue(0));
  return value ? value->GetValue() : ZOLUnicodeString();
}

int ZOLAnnStandardXMLParser::Check() {
  if (!_root) return 1;
  return _root->Check(_enumRoot, "Enum undefined: Root") == 0 ? 1 : 0;
}

int ZOLAnnStandardXMLParser::DecodeXML(ZOLUnicodeString source, int isFile) {
  if (!_codec) {
    ZOLAssertPointer("");
    return 1;
  }
  // The roots are not cleared: a decode adds to them, so each parser decodes one document.
  HRESULT hr = isFile ? _codec->DecodeXMLFile(std::move(source)) : _codec->DecodeXMLString(std::move(source));
  return FAILED(hr) ? 1 : 0;
}

HRESULT ZOLAnnStandardXMLParser::SaveInFile(ZOLUnicodeString path) {
  if (!_codec) {
    ZOLAssertPointer("");
    return E_UNEXPECTED;
  }
  return _codec->SaveInFile(std::move(path));
}

void ZOLAnnStandardXMLParser::SaveInString(ZOLUnicodeString& text) {
  if (!_codec) {
    ZOLAssertPointer("");
    return;
  }
  if (FAILED(_codec->SaveInString(text))) ZOLAssertBool("Failed to save");
}

int ZOLAnnStandardXMLParser::GetVersion() {
  int version = -1;
  if (FAILED(GetExplicitVersion(version))) {
    ZOLAssertBool("");
    return -1;
  }
  if (version > 0) return version;
  // Undated: the first release whose reference node says "older" dates the document just before it.
  int release = 18;
  for (int r = 10; r <= 18; ++r) {
    if (IsVersioned(r) != 0) {
      release = r - 1;
      break;
    }
  }
  return ZOLDftStdPersistence::GetVersionFromRelease(release, 0);
}

HRESULT ZOLAnnStandardXMLParser::GetExplicitVersion(int& version) {
  version = -1;
  ZOLAnnStandardXMLNode* node = _root->FindNodeWithPath(ZOLDftStdPersistence::GetVersionNodePath().str(), 1);
  if (!node) return S_OK;
  bool valid = true;
  if (node->GetNodeType() != ZOLAnnStandardXMLNode::PlainNode) {
    ZOLAssertBool("");
    valid = false;
  }
  if (node->GetNumOfNode() != 0) {
    ZOLAssertBool("");
    valid = false;
  }
  if (node->GetNumOfValue() != 1) {
    ZOLAssertBool("");
    return E_UNEXPECTED;
  }
  const ZOLAnnStandardXMLValue* value = node->Values().front();
  if (value->GetType() != ZOLAnnStandardXMLValue::IntValue) {
    ZOLAssertBool("");
    valid = false;
  }
  if (!valid) return E_UNEXPECTED;
  int number = 0;
  if (!value->Value().ConvertToNum(&number, "%d") || !ZOLDftStdPersistence::CheckExplicitVersionNumberIsValid(number)) {
    ZOLAssertBool("");
    return E_UNEXPECTED;
  }
  version = number;
  return S_OK;
}

HRESULT ZOLAnnStandardXMLParser::IsVersioned(int release) {
  ZOLUnicodeString node;
  ZOLDftStdPersistence::NodeStatus status = ZOLDftStdPersistence::NodeAdded;
  if (FAILED(ZOLDftStdPersistence::GetReferenceNodeForRelease(release, node, status))) return E_FAIL;
  bool present = _root->FindNodeWithPath(node.str(), 1) != nullptr;
  if (status == ZOLDftStdPersistence::NodeAdded) return present ? 0 : 1;
  if (status == ZOLDftStdPersistence::NodeRemoved) return present ? 1 : 0;
  return 0;
}
