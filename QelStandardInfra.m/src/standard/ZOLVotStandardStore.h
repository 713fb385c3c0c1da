// What a standard object holds: the element nodes, the characters of their names and values, the
// keys of the value maps and the maps. A loader fills it once; from then on nodes and characters
// never change, and reads only add to the maps what they resolved by a walk of the tree.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "document/ZOLDftStdElement.h"
#include "standard/ZOLVotKeyMap.h"

/// One element of a standard, in the store's node array. Children are linked in document order.
struct ZOLVotStandardNode {
  static constexpr uint32_t kNone = UINT32_MAX;
  ZOLVotSpan name;                // the "name" attribute, empty when absent
  ZOLVotSpan value;               // the text of a value element
  uint32_t typeOff = 0;           // the qualified name of an element that is none of the dialect's
  uint32_t firstChild = kNone;
  uint32_t nextSibling = kNone;
  uint16_t typeLen = 0;
  ZOLDftStdElement kind = ZOLDftStdElement::Unknown;
};

/// One value that the load or a read filed, for listings.
struct ZOLVotFiledValue {
  std::string key;   // the map key
  const char* kind;  // "integer", "real", "string", "enum", "integers", "reals", "strings"
  std::string text;  // the value, elements separated by blanks
};

class ZOLVotStandardStore {
public:
  using Node = ZOLVotStandardNode;

  /// The node at a dotted path and one-based index, or null; the node stays owned by the store.
  const Node* FindNode(std::string_view path, int index);
  /// The number of elements read.
  size_t NodeCount() const { return _Nodes.size(); }
  /// The root element, or null when the document did not close.
  const Node* Root() const { return At(_Root); }
  /// The first child of a node, or null.
  const Node* FirstChild(const Node& n) const { return At(n.firstChild); }
  /// The next sibling of a node, or null.
  const Node* NextSibling(const Node& n) const { return At(n.nextSibling); }
  /// The name of a node.
  std::string_view Name(const Node& n) const { return ZOLVotView(_Chars, n.name); }
  /// The text of a value node.
  std::string_view Value(const Node& n) const { return ZOLVotView(_Chars, n.value); }
  /// The text of a span of the character store.
  std::string_view Text(ZOLVotSpan span) const { return ZOLVotView(_Chars, span); }
  /// The qualified name of a node's element, as read.
  std::string_view Type(const Node& n) const;
  /// The literals of an enum definition, or null; filed at load for completeness, not read by the getters.
  const std::vector<ZOLVotSpan>* EnumDefinition(std::string_view name) const { return _EnumDefinitions.Find(name); }
  /// Every filed value whose key starts with prefix, sorted by key with indexes in numeric order.
  void ListFiledValues(std::string_view prefix, std::vector<ZOLVotFiledValue>& oValues) const;
  /// Bytes held by the nodes, the characters and the maps.
  size_t MemoryBytes() const;

  /// "path.index", "parent-of-path.index" and head + tail, built in a reused buffer: valid until
  /// the next key is made.
  std::string_view MakeKey(std::string_view path, int index);
  std::string_view MakeParentKey(std::string_view path, int index) { return MakeKey(ParentOf(path), index); }
  std::string_view JoinKey(std::string_view head, std::string_view tail);
  /// A path before its last "."; empty for a path without one.
  static std::string_view ParentOf(std::string_view path);

  /// An integer as "%d" reads it (0 when nothing converts); plain decimals without the general reader.
  static int ReadInt(std::string_view text);
  /// A real as "%le" reads it in the "C" locale (0.0 when nothing converts).
  static double ReadReal(std::string_view text);
  /// Splits a colour text at blanks into integers as std::stoi would read each piece; throws
  /// std::invalid_argument or std::out_of_range on a bad piece.
  static void SplitColor(std::string_view text, std::vector<int>& oValues);

private:
  // The loader fills the store; the object's faces read and cache through the maps.
  friend class ZOLVotStandardLoader;
  friend class ZOLVotTransientStandard;

  const Node* At(uint32_t i) const { return i == Node::kNone ? nullptr : &_Nodes[i]; }
  const Node* FindChild(uint32_t first, std::string_view name) const;

  // Names and values, addressed by spans.
  ZOLVotChars _Chars;
  // The keys of the maps: each written once, where its map keeps it. Declared before the maps.
  ZOLVotChars _Keys;
  // Element nodes in the order of their start tags; _Root indexes the document element.
  std::vector<Node> _Nodes;
  uint32_t _Root = Node::kNone;
  // The value maps, keyed as the load files them: "path.index" for single values, the path of
  // the parent node and the index for enum values, the bare path for arrays and colours.
  ZOLVotKeyMap<std::vector<ZOLVotSpan>> _EnumDefinitions{_Keys};
  ZOLVotKeyMap<int> _IntValues{_Keys};
  ZOLVotKeyMap<std::vector<int>> _IntArrays{_Keys};
  ZOLVotKeyMap<double> _DoubleValues{_Keys};
  ZOLVotKeyMap<std::vector<double>> _DoubleArrays{_Keys};
  ZOLVotKeyMap<ZOLVotSpan> _StringValues{_Keys};
  ZOLVotKeyMap<ZOLVotSpan> _EnumValues{_Keys};
  ZOLVotKeyMap<std::vector<ZOLVotSpan>> _StringArrays{_Keys};

  // Walked nodes by path directly followed by the index.
  ZOLVotKeyMap<uint32_t> _NodeCache{_Keys};

  // Reused buffers of keys and path components.
  std::string _Key;
  std::string _NodeKey;
  std::vector<std::string_view> _Components;
};
