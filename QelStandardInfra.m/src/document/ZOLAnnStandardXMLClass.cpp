// The editable standard tree: ZOLAnnStandardXMLValue and ZOLAnnStandardXMLNode.
// Nothing here recurses over depth: documents may nest very deeply.
#include <algorithm>
#include <cstdio>
#include <new>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ZOLAnnStandardXMLNode.h"
#include "ZOLAnnStandardXMLValue.h"
#include "ZOLQelInstCount.h"
#include "ZOLSysLog.h"

namespace {

constexpr const char* kInstCountName = "ZOLAnnStandardXMLClass";

// Cuts at the first ".": false when there is none (path is the last component, head is all of it).
bool CutHead(std::string_view path, std::string_view& head, std::string_view& rest) {
  size_t dot = path.find('.');
  if (dot == std::string_view::npos) {
    head = path;
    return false;
  }
  head = path.substr(0, dot);
  rest = path.substr(dot + 1);
  return true;
}

// Looks the enumerated text up; on a fault prints the extended path and gives 1.
int CheckEnumValue(const ZOLAnnStandardXMLValue& value, ZOLAnnStandardXMLNode* enumRoot, const std::string& path) {
  if (value.GetType() != ZOLAnnStandardXMLValue::EnumValue || !enumRoot) return 0;
  const std::string& name = value.Name().str();
  const std::string& text = value.Value().str();
  std::string lookup;
  lookup.reserve(name.size() + 1 + text.size());
  lookup.append(name).append(1, '.').append(text);
  if (enumRoot->FindValueWithPath(lookup)) return 0;
  std::string fault;
  fault.reserve(path.size() + text.size() + name.size() + 16);
  fault.append(path).append(1, '.').append(text).append(" with enum \"").append(name).append(1, '"');
  std::fwrite(fault.data(), 1, fault.size(), stdout);
  return 1;
}

// Shared rule of AddNode and AddValue.
template <typename T>
void InsertAt(std::vector<T*>& items, T* item, int position) {
  if (!item) {
    ZOLAssertPointer("");
    return;
  }
  if (position < 0) {
    items.push_back(item);
  } else if (static_cast<size_t>(position) >= items.size()) {
    // An explicit position never appends; migration stages rely on the refusal.
    ZOLAssertBool("");
    return;
  } else {
    items.insert(items.begin() + position, item);
  }
  item->AddRef();
}

// Shared rule of GetNode and GetValue, without a new reference.
template <typename T>
T* ItemAt(const std::vector<T*>& items, int index) {
  if (items.empty()) {
    ZOLAssertBool("");
    return nullptr;
  }
  if (index < 0) return items.back();
  if (static_cast<size_t>(index) >= items.size()) {
    ZOLAssertBool("");
    return nullptr;
  }
  return items[static_cast<size_t>(index)];
}

template <typename T>
T* Shared(T* p) {
  if (p) p->AddRef();
  return p;
}

}  // namespace

// ---------------------------------------------------------------------------------------------
// ZOLAnnStandardXMLValue

ZOLAnnStandardXMLValue::ZOLAnnStandardXMLValue(Type type, const ZOLUnicodeString& value, const ZOLUnicodeString& name,
                                               int rangeVal)
    : _type(type), _name(name), _value(value), _rangeVal(rangeVal) {
  ZOLQelInstCount(kInstCountName, 1);
}

ZOLAnnStandardXMLValue::~ZOLAnnStandardXMLValue() { ZOLQelInstCount(kInstCountName, -1); }

ZOLAnnStandardXMLValue* ZOLAnnStandardXMLValue::Clone() const {
  return new (std::nothrow) ZOLAnnStandardXMLValue(_type, _value, _name, _rangeVal);
}

int ZOLAnnStandardXMLValue::Check(ZOLAnnStandardXMLNode* enumRoot, ZOLUnicodeString path) {
  return CheckEnumValue(*this, enumRoot, path.str());
}

// ---------------------------------------------------------------------------------------------
// ZOLAnnStandardXMLNode

ZOLAnnStandardXMLNode::ZOLAnnStandardXMLNode(Type type, const ZOLUnicodeString& name) : _type(type), _name(name) {
  ZOLQelInstCount(kInstCountName, 1);
}

ZOLAnnStandardXMLNode::~ZOLAnnStandardXMLNode() {
  for (auto* v : _values) v->Release();
  // Sub-nodes that reach zero here are queued by Destroy, not freed below this frame.
  for (auto* n : _subNodes) n->Release();
  ZOLQelInstCount(kInstCountName, -1);
}

void ZOLAnnStandardXMLNode::Destroy() const {
  thread_local std::vector<const ZOLAnnStandardXMLNode*>* pending = nullptr;
  if (pending) {
    pending->push_back(this);
    return;
  }
  std::vector<const ZOLAnnStandardXMLNode*> work{this};
  pending = &work;
  while (!work.empty()) {
    const ZOLAnnStandardXMLNode* node = work.back();
    work.pop_back();
    delete node;
  }
  pending = nullptr;
}

int ZOLAnnStandardXMLNode::SplitPath(ZOLUnicodeString path, ZOLUnicodeString& head, ZOLUnicodeString& rest) {
  std::string_view h, r;
  if (!CutHead(path.str(), h, r)) {
    head = std::move(path);
    return 1;
  }
  ZOLUnicodeString tail(r);
  head = ZOLUnicodeString(h);
  rest = std::move(tail);
  return 0;
}

void ZOLAnnStandardXMLNode::AddNode(ZOLAnnStandardXMLNode* node, int position) { InsertAt(_subNodes, node, position); }

void ZOLAnnStandardXMLNode::AddValue(ZOLAnnStandardXMLValue* value, int position) { InsertAt(_values, value, position); }

int ZOLAnnStandardXMLNode::AddNodeWithValue(const ZOLUnicodeString& name, ZOLAnnStandardXMLValue::Type type,
                                            const ZOLUnicodeString& value, const ZOLUnicodeString& valueName,
                                            int position) {
  bool namesFit = type == ZOLAnnStandardXMLValue::EnumValue ? !valueName.IsEmpty() && !value.IsEmpty()
                                                            : valueName.IsEmpty();
  if (!namesFit || name.IsEmpty() || (position != -1 && (position < 0 || position > GetNumOfNode()))) {
    ZOLAssertBool("");
    return 0;
  }
  auto* node = new (std::nothrow) ZOLAnnStandardXMLNode(PlainNode, name);
  auto* val = new (std::nothrow) ZOLAnnStandardXMLValue(type, value, valueName, 0);
  if (node && val) {
    node->AddValue(val, -1);
    // position == size passed the test above and is refused here: the node is lost, the result
    // stays 1; kept so that stages which count on it behave as they always did.
    AddNode(node, position);
  } else {
    ZOLAssertPointer("");
  }
  if (val) val->Release();
  if (node) node->Release();
  return 1;
}

ZOLAnnStandardXMLNode* ZOLAnnStandardXMLNode::NodeAt(int index) { return ItemAt(_subNodes, index); }

ZOLAnnStandardXMLValue* ZOLAnnStandardXMLNode::ValueAt(int index) { return ItemAt(_values, index); }

ZOLAnnStandardXMLNode* ZOLAnnStandardXMLNode::GetNode(int index) { return Shared(NodeAt(index)); }

ZOLAnnStandardXMLValue* ZOLAnnStandardXMLNode::GetValue(int index) { return Shared(ValueAt(index)); }

ZOLAnnStandardXMLNode* ZOLAnnStandardXMLNode::FindNodeByName(std::string_view name) const {
  for (auto* n : _subNodes)
    if (n->_name.str() == name) return n;
  return nullptr;
}

ZOLAnnStandardXMLValue* ZOLAnnStandardXMLNode::FindValueByName(std::string_view name) const {
  for (auto* v : _values)
    if (v->Name().str() == name) return v;
  return nullptr;
}

ZOLAnnStandardXMLNode* ZOLAnnStandardXMLNode::GetNodeByName(const ZOLUnicodeString& name) {
  return Shared(FindNodeByName(name.str()));
}

ZOLAnnStandardXMLValue* ZOLAnnStandardXMLNode::GetValueByName(const ZOLUnicodeString& name) {
  return Shared(FindValueByName(name.str()));
}

ZOLAnnStandardXMLNode* ZOLAnnStandardXMLNode::GetDefaultNode() {
  if (_subNodes.empty()) {
    ZOLAssertBool("");
    return nullptr;
  }
  ZOLAnnStandardXMLNode* found = FindNodeByName("Default");
  return Shared(found ? found : _subNodes.front());
}

ZOLAnnStandardXMLNode* ZOLAnnStandardXMLNode::FindNodeWithPath(std::string_view path, int occurrence) {
  ZOLAnnStandardXMLNode* node = this;
  for (;;) {
    std::string_view head, rest;
    bool more = CutHead(path, head, rest);
    // On the last step an occurrence other than 1 picks a sub-node by rank whatever its name:
    // this is how callers reach the node they just appended among namesakes.
    if (!more && occurrence != 1) return node->NodeAt(occurrence <= 0 ? -1 : occurrence - 1);
    ZOLAnnStandardXMLNode* sub = node->FindNodeByName(head);
    if (!sub || !more) return sub;
    node = sub;
    path = rest;
  }
}

ZOLAnnStandardXMLNode* ZOLAnnStandardXMLNode::GetNodeWithPath(ZOLUnicodeString path, int occurrence) {
  return Shared(FindNodeWithPath(path.str(), occurrence));
}

ZOLAnnStandardXMLValue* ZOLAnnStandardXMLNode::FindValueWithPath(std::string_view path) {
  ZOLAnnStandardXMLNode* node = this;
  for (;;) {
    std::string_view head, rest;
    if (!CutHead(path, head, rest)) {
      // Values are found by their text here, not their name: "Frame.Circle" in the enumerations.
      for (auto* v : node->_values)
        if (v->Value().str() == head) return v;
      return nullptr;
    }
    node = node->FindNodeByName(head);
    if (!node) return nullptr;
    path = rest;
  }
}

ZOLAnnStandardXMLValue* ZOLAnnStandardXMLNode::GetValueWithPath(ZOLUnicodeString path) {
  return Shared(FindValueWithPath(path.str()));
}

int ZOLAnnStandardXMLNode::DeleteWithPath(std::string_view path) {
  ZOLAnnStandardXMLNode* node = this;
  for (;;) {
    std::string_view head, rest;
    bool more = CutHead(path, head, rest);
    auto& subs = node->_subNodes;
    auto it = std::find_if(subs.begin(), subs.end(), [head](auto* n) { return n->_name.str() == head; });
    if (more) {
      if (it == subs.end()) return 1;
      node = *it;
      path = rest;
      continue;
    }
    if (it != subs.end()) {
      ZOLAnnStandardXMLNode* gone = *it;
      subs.erase(it);
      gone->Release();
      return 0;
    }
    auto& values = node->_values;
    auto vit = std::find_if(values.begin(), values.end(),
                            [head](auto* v) { return v->Name().str() == head || v->Value().str() == head; });
    if (vit == values.end()) return 1;
    ZOLAnnStandardXMLValue* gone = *vit;
    values.erase(vit);
    gone->Release();
    return 0;
  }
}

int ZOLAnnStandardXMLNode::DeleteNodeWithPath(ZOLUnicodeString path) { return DeleteWithPath(path.str()); }

int ZOLAnnStandardXMLNode::DeleteSubNode(int index) {
  if (index < 0 || static_cast<size_t>(index) >= _subNodes.size()) return 1;
  ZOLAnnStandardXMLNode* gone = _subNodes[static_cast<size_t>(index)];
  _subNodes.erase(_subNodes.begin() + index);
  gone->Release();
  return 0;
}

int ZOLAnnStandardXMLNode::DeleteValue(int index) {
  // The opposite sense of DeleteSubNode (1 on success) is kept: callers test each as it stands.
  if (index < 0 || static_cast<size_t>(index) >= _values.size()) {
    ZOLAssertBool("");
    return 0;
  }
  ZOLAnnStandardXMLValue* gone = _values[static_cast<size_t>(index)];
  _values.erase(_values.begin() + index);
  gone->Release();
  return 1;
}

void ZOLAnnStandardXMLNode::ChangeValue(ZOLUnicodeString text) {
  if (!_subNodes.empty()) {
    ZOLAssertBool("");
    return;
  }
  if (_values.size() == 1) {
    _values.front()->SetValue(std::move(text));
    return;
  }
  std::string_view all = text.str();
  size_t colon = all.find(':');
  if (colon == std::string_view::npos) return;
  ZOLAnnStandardXMLValue* field = FindValueByName(all.substr(0, colon));
  if (!field) {
    ZOLAssertPointer("");
    return;
  }
  field->SetValue(ZOLUnicodeString(all.substr(colon + 1)));
}

ZOLAnnStandardXMLNode* ZOLAnnStandardXMLNode::Clone() const {
  auto* top = new (std::nothrow) ZOLAnnStandardXMLNode(_type, _name);
  if (!top) {
    ZOLAssertPointer("");
    return nullptr;
  }
  // Pairs of (source, copy) whose values and sub-nodes are still to be copied.
  std::vector<std::pair<const ZOLAnnStandardXMLNode*, ZOLAnnStandardXMLNode*>> work{{this, top}};
  while (!work.empty()) {
    auto [source, copy] = work.back();
    work.pop_back();
    copy->_values.reserve(source->_values.size());
    for (auto* v : source->_values) {
      ZOLAnnStandardXMLValue* c = v->Clone();
      if (!c) {
        ZOLAssertPointer("");
        continue;
      }
      copy->_values.push_back(c);  // the clone's own reference becomes the vector's
    }
    copy->_subNodes.reserve(source->_subNodes.size());
    for (auto* s : source->_subNodes) {
      auto* c = new (std::nothrow) ZOLAnnStandardXMLNode(s->_type, s->_name);
      if (!c) {
        ZOLAssertPointer("");
        continue;
      }
      copy->_subNodes.push_back(c);
      work.emplace_back(s, c);
    }
  }
  return top;
}

int ZOLAnnStandardXMLNode::Check(ZOLAnnStandardXMLNode* enumRoot, ZOLUnicodeString path) {
  if (!enumRoot) return 0;
  // Depth-first with an explicit stack; one shared path text that grows and shrinks with it.
  // Each level adds the name of the node it stands in, so the root's name appears twice in
  // the printed text; kept, the text is a known diagnostic.
  struct Frame {
    const ZOLAnnStandardXMLNode* node;
    size_t next;
    size_t pathLength;
  };
  std::string extended = std::move(path.str());
  int faults = 0;
  std::vector<Frame> stack;
  auto enter = [&](const ZOLAnnStandardXMLNode* node) {
    size_t before = extended.size();
    extended.append(1, '.').append(node->_name.str());
    stack.push_back({node, 0, before});
  };
  enter(this);
  while (!stack.empty()) {
    Frame& top = stack.back();
    if (top.next < top.node->_subNodes.size()) {
      enter(top.node->_subNodes[top.next++]);
      continue;
    }
    for (auto* v : top.node->_values) faults += CheckEnumValue(*v, enumRoot, extended);
    extended.resize(top.pathLength);
    stack.pop_back();
  }
  return faults;
}
