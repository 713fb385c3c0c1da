// A node of the editable standard tree: a name, ordered values, ordered sub-nodes.
// Getters that return a pointer return a new reference, which the caller releases.
#pragma once
#include <string_view>
#include <vector>

#include "ZOLAnnStandardXMLValue.h"
#include "ZOLRefCounted.h"
#include "ZOLUnicodeString.h"

class ZOLAnnStandardXMLNode : public ZOLRefCounted {
public:
  enum Type { RootNode = 0, PlainNode = 1, TypeDefNode = 2, EnumDefNode = 3, TypeValNode = 4 };

  /// A node with one reference held by the creator.
  ZOLAnnStandardXMLNode(Type type, const ZOLUnicodeString& name);

  /// The kind, fixed at construction.
  Type GetNodeType() const { return _type; }
  /// The name.
  ZOLUnicodeString GetNodeName() const { return _name; }
  /// The name, without a copy.
  const ZOLUnicodeString& Name() const { return _name; }
  /// Renames the node.
  void SetNodeName(const ZOLUnicodeString& name) { _name = name; }
  /// Number of sub-nodes.
  int GetNumOfNode() const { return static_cast<int>(_subNodes.size()); }
  /// Number of values.
  int GetNumOfValue() const { return static_cast<int>(_values.size()); }

  /// Inserts a sub-node before 0-based position, or appends for a negative one; a position at or
  /// beyond the size is refused with a report. Takes a reference of its own.
  void AddNode(ZOLAnnStandardXMLNode* node, int position);
  /// Same rule on the values.
  void AddValue(ZOLAnnStandardXMLValue* value, int position);
  /// Adds a plain node holding one value; 1 on success, 0 on refusal (reported).
  int AddNodeWithValue(const ZOLUnicodeString& name, ZOLAnnStandardXMLValue::Type type, const ZOLUnicodeString& value,
                       const ZOLUnicodeString& valueName, int position);

  /// The sub-node at a 0-based index (negative: the last); null with a report when out of range.
  ZOLAnnStandardXMLNode* GetNode(int index);
  /// The value at a 0-based index (negative: the last); null with a report when out of range.
  ZOLAnnStandardXMLValue* GetValue(int index);
  /// The first sub-node of that name, or null.
  ZOLAnnStandardXMLNode* GetNodeByName(const ZOLUnicodeString& name);
  /// The first value of that name, or null.
  ZOLAnnStandardXMLValue* GetValueByName(const ZOLUnicodeString& name);
  /// The sub-node "Default", else the first; null with a report when there is none.
  ZOLAnnStandardXMLNode* GetDefaultNode();

  /// The node at a dotted path below this one, with a 1-based occurrence for the last step; or null.
  ZOLAnnStandardXMLNode* GetNodeWithPath(ZOLUnicodeString path, int occurrence);
  /// The value whose text is the last path component, below this node; or null.
  ZOLAnnStandardXMLValue* GetValueWithPath(ZOLUnicodeString path);
  /// Removes the node (or value, by name or text) at a path; 0 when removed, 1 otherwise.
  int DeleteNodeWithPath(ZOLUnicodeString path);

  /// Removes a sub-node; 0 on success, 1 when the index is out of range.
  int DeleteSubNode(int index);
  /// Removes a value; 1 on success, 0 with a report when the index is out of range.
  int DeleteValue(int index);
  /// Sets the single value's text, or name:text on a node of several values.
  void ChangeValue(ZOLUnicodeString text);

  /// A deep copy (one reference for the caller); null if allocation fails.
  ZOLAnnStandardXMLNode* Clone() const;
  /// Number of enumerated values below this node whose text the enumerations do not define.
  int Check(ZOLAnnStandardXMLNode* enumRoot, ZOLUnicodeString path);

  /// GetNodeWithPath on a view, without a new reference (valid while the tree holds the node); or null.
  ZOLAnnStandardXMLNode* FindNodeWithPath(std::string_view path, int occurrence);
  /// GetValueWithPath on a view, without a new reference; or null.
  ZOLAnnStandardXMLValue* FindValueWithPath(std::string_view path);
  /// DeleteNodeWithPath on a view; 0 when removed, 1 otherwise.
  int DeleteWithPath(std::string_view path);
  /// The first sub-node of that name, without a new reference; or null.
  ZOLAnnStandardXMLNode* FindNodeByName(std::string_view name) const;
  /// The first value of that name, without a new reference; or null.
  ZOLAnnStandardXMLValue* FindValueByName(std::string_view name) const;

  /// The sub-nodes and values, without new references, for readers that walk the tree.
  const std::vector<ZOLAnnStandardXMLNode*>& SubNodes() const { return _subNodes; }
  const std::vector<ZOLAnnStandardXMLValue*>& Values() const { return _values; }

protected:
  ~ZOLAnnStandardXMLNode() override;
  /// Frees the subtree with a worklist, so that depth costs no stack.
  void Destroy() const override;

private:
  int SplitPath(ZOLUnicodeString path, ZOLUnicodeString& head, ZOLUnicodeString& rest);
  ZOLAnnStandardXMLNode* NodeAt(int index);
  ZOLAnnStandardXMLValue* ValueAt(int index);

  Type _type;
  ZOLUnicodeString _name;
  std::vector<ZOLAnnStandardXMLNode*> _subNodes;
  std::vector<ZOLAnnStandardXMLValue*> _values;
};
