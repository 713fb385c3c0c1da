// A standard object's load takes the reader's lean lane; its content handler takes the same
// events through the general lane. These helpers load a text through the general lane and
// describe an object in full (filed values, then the tree), so that the two can be compared.
#pragma once
#include <memory>
#include <string>
#include <vector>

#include "ZOLDftStandardServices.h"
#include "standard/ZOLVotTransientStandard.h"
#include "ZOLXMLSAX.h"
#include "ZOLXMLSAXIds.h"

/// Every filed value ("key kind text" lines), then every node of the tree, indented by depth.
inline std::string ZOLDescribeTransient(const ZOLVotTransientStandard& s) {
  std::string out;
  std::vector<ZOLVotFiledValue> values;
  s.ListFiledValues("", values);
  for (const ZOLVotFiledValue& v : values) out.append(v.key).append(" ").append(v.kind).append(" ").append(v.text).append("\n");
  struct Item {
    const ZOLVotStandardNode* node;
    int depth;
  };
  std::vector<Item> stack;
  if (s.Root()) stack.push_back({s.Root(), 0});
  while (!stack.empty()) {
    Item item = stack.back();
    stack.pop_back();
    out.append(static_cast<size_t>(item.depth), ' ').append(s.Type(*item.node)).append(" [").append(s.Name(*item.node));
    out.append("] ").append(s.Value(*item.node)).append("\n");
    std::vector<Item> children;
    for (const ZOLVotStandardNode* c = s.FirstChild(*item.node); c; c = s.NextSibling(*c)) children.push_back({c, item.depth + 1});
    stack.insert(stack.end(), children.rbegin(), children.rend());
  }
  return out;
}

/// A standard object that read text through its content handler, as a general SAX client would
/// drive it; it starts from an empty object, whose creation reports the missing text.
inline ZOLIDrwStandard_var ZOLLoadThroughContentHandler(const std::string& text) {
  ZOLIDrwStandard_var s = ZOLDftStandardServices::GetStandardFromBuffer(nullptr, "T");
  void* handler = nullptr;
  s->GetImpl()->QueryInterface(IID_ZOLISAXContentHandler, &handler);
  std::unique_ptr<ZOLIXMLSAX2Factory> factory;
  std::unique_ptr<ZOLIXMLInputSource> source;
  std::unique_ptr<ZOLISAXXMLReader> reader;
  CreateZOLIXMLSAX2Factory(factory);
  factory->CreateInputSourceFromText(text, "fileID", source);
  factory->CreateReader(reader);
  reader->SetContentHandler(static_cast<ZOLISAXContentHandler*>(handler));
  struct Release {
    ZOLBaseUnknown* object;
    ~Release() { object->Release(); }
  } release{s->GetImpl()};
  reader->Parse(*source);
  return s;
}
