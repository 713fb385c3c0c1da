// Walks the child nodes of a DOM node.
#pragma once
#include "ZOLXMLDOM.h"

class ZOLDftXMLNodeIterator {
public:
  enum Direction { Forward = 0, Backward = 1 };

  /// An iterator on the children of node, at the first (Forward) or the last (Backward); a node
  /// whose children cannot be read is reported and gives an empty iterator.
  ZOLDftXMLNodeIterator(ZOLIDOMNode_var node, Direction direction = Forward);
  ZOLDftXMLNodeIterator(const ZOLDftXMLNodeIterator&) = default;
  ZOLDftXMLNodeIterator(ZOLDftXMLNodeIterator&&) = default;
  ZOLDftXMLNodeIterator& operator=(const ZOLDftXMLNodeIterator&) = default;
  ZOLDftXMLNodeIterator& operator=(ZOLDftXMLNodeIterator&&) = default;

  /// The child at the current position; a null handle, with a report, when there is none.
  ZOLIDOMNode_var CurrentItem();
  /// 1 when a forward walk is past the last child; a backward walk never tells done.
  int IsDone() const;
  /// Moves one child on in the direction; reported when already done.
  void Next();

private:
  ZOLIDOMNodeList_var _children;
  int _length = 0;
  int _index = 0;
  Direction _direction = Forward;
};
