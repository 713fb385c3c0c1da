// Two trees walked side by side. Entries of a level are paired by key, first in place (trees that
// are alike pair every entry so, without a map) and by a map only from the first entry that does
// not. The walk keeps its frames on the heap, as a document may nest deeper than a call stack.
#include "QelstdDiff.h"

#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "ZOLAnnStandardXMLNode.h"

namespace qelstd {
namespace {

using Node = ZOLAnnStandardXMLNode;
using Value = ZOLAnnStandardXMLValue;

// The kind of a value as it reads in a file: "int", "float", "string", "enum", "colour" (or "none"),
// followed by the enumeration of an enum and the lower bound of a bounded value.
std::string ValueKind(const Value& v) {
  std::string kind;
  switch (v.GetType()) {
    case Value::IntValue: kind = "int"; break;
    case Value::FloatValue: kind = "float"; break;
    case Value::StringValue: kind = "string"; break;
    case Value::EnumValue: kind = "enum"; break;
    case Value::ColorValue: kind = "colour"; break;
    default: kind = "none"; break;
  }
  if (v.GetType() == Value::EnumValue && !v.Name().IsEmpty()) kind += " " + v.Name().str();
  else if (v.GetRangeVal() == 1) kind += ", min " + v.Name().str();
  return kind;
}

// Whether the values of a node are fields known by their names (a record or its type), rather
// than entries known by their place.
bool HasNamedValues(const Node& n) {
  return n.GetNodeType() == Node::TypeValNode || n.GetNodeType() == Node::TypeDefNode;
}

// The text of a record's "Name" field, empty for any other node: records of a list share the name
// of their type, and this tells them apart.
std::string_view RecordName(const Node& n) {
  if (n.GetNodeType() != Node::TypeValNode) return {};
  const Value* v = n.FindValueByName("Name");
  return v ? std::string_view(v->Value()) : std::string_view();
}

// What pairs an entry with its counterpart: a node by name, record name and kind, a field by name,
// an entry of a list by place (occurrence alone); a repeated key by its occurrence.
struct Key {
  std::string_view name, record;
  int type = 0;
  int occurrence = 1;
  bool operator==(const Key&) const = default;
  bool operator<(const Key& o) const {
    return std::tie(name, record, type, occurrence) < std::tie(o.name, o.record, o.type, o.occurrence);
  }
};

// Up to this many entries, repeated keys are counted pairwise; beyond, through a map.
constexpr size_t kPairwise = 64;

void CountOccurrences(std::vector<Key>& keys) {
  if (keys.size() <= kPairwise) {
    for (size_t i = 1; i < keys.size(); ++i)
      for (size_t j = 0; j < i; ++j)
        keys[i].occurrence += keys[j].name == keys[i].name && keys[j].record == keys[i].record && keys[j].type == keys[i].type;
    return;
  }
  std::map<Key, int> seen;
  for (Key& k : keys) k.occurrence = ++seen[k];
}

void NodeKeys(const Node* n, std::vector<Key>& keys) {
  keys.clear();
  for (const Node* sub : n->SubNodes()) keys.push_back({sub->Name(), RecordName(*sub), sub->GetNodeType(), 1});
  CountOccurrences(keys);
}

void ValueKeys(const Node* n, bool named, std::vector<Key>& keys) {
  keys.clear();
  int place = 0;
  for (const Value* v : n->Values()) keys.push_back(named ? Key{v->Name(), {}, 0, 1} : Key{{}, {}, 0, ++place});
  if (named) CountOccurrences(keys);
}

// match[i]: the entry of b paired with entry i of a, or -1; used[j]: entry j of b is paired.
struct Pairing {
  std::vector<long> match;
  std::vector<char> used;
};

void Pair(const std::vector<Key>& a, const std::vector<Key>& b, Pairing& p) {
  p.match.assign(a.size(), -1);
  p.used.assign(b.size(), 0);
  std::map<Key, size_t> byKey;
  for (size_t i = 0; i < a.size(); ++i) {
    if (i < b.size() && !p.used[i] && a[i] == b[i]) {
      p.match[i] = static_cast<long>(i), p.used[i] = 1;
      continue;
    }
    if (byKey.empty())
      for (size_t j = 0; j < b.size(); ++j) byKey.emplace(b[j], j);
    if (auto it = byKey.find(a[i]); it != byKey.end() && !p.used[it->second])
      p.match[i] = static_cast<long>(it->second), p.used[it->second] = 1;
  }
}

void AppendNodeStep(std::string& path, const Key& k) {
  path += '.';
  path += k.name;
  if (!k.record.empty()) {
    path += '[';
    path += k.record;
    path += ']';
  }
  if (k.occurrence > 1) path += '#' + std::to_string(k.occurrence);
}

// What a node holds, counted through its whole subtree.
std::string Holding(const Node* n) {
  size_t nodes = 0, values = n->Values().size();
  std::vector<const Node*> work(n->SubNodes().begin(), n->SubNodes().end());
  while (!work.empty()) {
    const Node* m = work.back();
    work.pop_back();
    ++nodes, values += m->Values().size();
    work.insert(work.end(), m->SubNodes().begin(), m->SubNodes().end());
  }
  return std::to_string(nodes) + (nodes == 1 ? " sub-node, " : " sub-nodes, ") + std::to_string(values) +
         (values == 1 ? " value" : " values");
}

class Walk {
public:
  explicit Walk(std::vector<Difference>& out) : _out(out) {}

  void Root(const char* name, const Node* a, const Node* b) {
    _path = name;
    if (!a || !b) {
      if (a || b) NodeOnly(a ? Difference::kOnlyInA : Difference::kOnlyInB, a ? a : b);
      return;
    }
    Enter(a, b);
    while (_depth > 0) {
      Frame& f = _frames[_depth - 1];
      _path.resize(f.pathLength);
      if (f.next < f.a.size()) {
        const size_t i = f.next++;
        AppendNodeStep(_path, f.a[i]);
        if (f.pairing.match[i] < 0) NodeOnly(Difference::kOnlyInA, f.nodeA->SubNodes()[i]);
        else Enter(f.nodeA->SubNodes()[i], f.nodeB->SubNodes()[static_cast<size_t>(f.pairing.match[i])]);
        continue;
      }
      for (size_t j = 0; j < f.b.size(); ++j) {
        if (f.pairing.used[j]) continue;
        _path.resize(f.pathLength);
        AppendNodeStep(_path, f.b[j]);
        NodeOnly(Difference::kOnlyInB, f.nodeB->SubNodes()[j]);
      }
      --_depth;
    }
  }

private:
  struct Frame {
    const Node* nodeA = nullptr;
    const Node* nodeB = nullptr;
    size_t pathLength = 0;
    std::vector<Key> a, b;
    Pairing pairing;
    size_t next = 0;
  };

  // Frames are kept for reuse, so that a walk allocates for the widest level only once.
  void Enter(const Node* a, const Node* b) {
    CompareValues(a, b);
    if (_depth == _frames.size()) _frames.emplace_back();
    Frame& f = _frames[_depth++];
    f.nodeA = a, f.nodeB = b, f.pathLength = _path.size(), f.next = 0;
    NodeKeys(a, f.a);
    NodeKeys(b, f.b);
    Pair(f.a, f.b, f.pairing);
  }

  void CompareValues(const Node* a, const Node* b) {
    const bool named = HasNamedValues(*a);
    ValueKeys(a, named, _valuesA);
    ValueKeys(b, named, _valuesB);
    Pair(_valuesA, _valuesB, _valuePairing);
    const bool placed = !named && (a->Values().size() > 1 || b->Values().size() > 1);
    const size_t base = _path.size();
    auto step = [&](const Key& k) {
      _path.resize(base);
      if (named) {
        _path += '.';
        _path += k.name;
        if (k.occurrence > 1) _path += '#' + std::to_string(k.occurrence);
      } else if (placed) {
        _path += '[' + std::to_string(k.occurrence) + ']';
      }
    };
    for (size_t i = 0; i < _valuesA.size(); ++i) {
      const Value* va = a->Values()[i];
      const long j = _valuePairing.match[i];
      const Value* vb = j < 0 ? nullptr : b->Values()[static_cast<size_t>(j)];
      if (vb && va->GetType() == vb->GetType() && va->Value().str() == vb->Value().str() &&
          va->GetRangeVal() == vb->GetRangeVal() && (named || va->Name().str() == vb->Name().str()))
        continue;
      step(_valuesA[i]);
      Emit(vb ? Difference::kChanged : Difference::kOnlyInA, va, vb);
    }
    for (size_t j = 0; j < _valuesB.size(); ++j) {
      if (_valuePairing.used[j]) continue;
      step(_valuesB[j]);
      Emit(Difference::kOnlyInB, nullptr, b->Values()[j]);
    }
    _path.resize(base);
  }

  void Emit(Difference::Change change, const Value* a, const Value* b) {
    Difference& d = _out.emplace_back(Difference{change, false, _path, {}, {}, {}, {}});
    if (a) d.textA = a->Value().str(), d.kindA = ValueKind(*a);
    if (b) d.textB = b->Value().str(), d.kindB = ValueKind(*b);
  }

  void NodeOnly(Difference::Change change, const Node* n) {
    Difference& d = _out.emplace_back(Difference{change, true, _path, {}, {}, {}, {}});
    (change == Difference::kOnlyInA ? d.textA : d.textB) = Holding(n);
    (change == Difference::kOnlyInA ? d.kindA : d.kindB) = "node";
  }

  std::vector<Difference>& _out;
  std::string _path;
  std::vector<Frame> _frames;
  size_t _depth = 0;
  std::vector<Key> _valuesA, _valuesB;
  Pairing _valuePairing;
};

}  // namespace

std::vector<Difference> DiffTrees(ZOLAnnStandardXMLParser& a, ZOLAnnStandardXMLParser& b) {
  std::vector<Difference> out;
  Walk walk(out);
  walk.Root("Root", a.Root(), b.Root());
  walk.Root("Enum", a.EnumRoot(), b.EnumRoot());
  walk.Root("TypeDef", a.TypeDefRoot(), b.TypeDefRoot());
  return out;
}

}  // namespace qelstd
