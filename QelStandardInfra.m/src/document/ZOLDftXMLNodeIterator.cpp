#include "ZOLDftXMLNodeIterator.h"

#include "ZOLSysLog.h"

ZOLDftXMLNodeIterator::ZOLDftXMLNodeIterator(ZOLIDOMNode_var node, Direction direction) : _direction(direction) {
  if (node.IsNull() || FAILED(node.GetChildNodes(_children))) {
    ZOLAssertBool("");
    _children = ZOLIDOMNodeList_var();
  } else if (_children.IsNull()) {
    ZOLAssertPointer("");
  }
  _length = _children.GetLength();
  _index = _direction == Forward ? 0 : _length - 1;
}

int ZOLDftXMLNodeIterator::IsDone() const { return _direction == Forward && _index >= _length; }

void ZOLDftXMLNodeIterator::Next() {
  if (IsDone()) {
    ZOLAssertBool("");
    return;
  }
  _index += _direction == Forward ? 1 : -1;
}

ZOLIDOMNode_var ZOLDftXMLNodeIterator::CurrentItem() {
  if (_children.IsNull()) {
    ZOLAssertPointer("NULL handler");
    return ZOLIDOMNode_var();
  }
  if (IsDone()) {
    ZOLAssertBool("");
    return ZOLIDOMNode_var();
  }
  ZOLIDOMNode_var item;
  if (FAILED(_children.Item(_index, item)) || item.IsNull()) {
    ZOLAssertBool("");
    return ZOLIDOMNode_var();
  }
  return item;
}
