// Short descriptions of a node for the document tests.
#pragma once
#include <string>

#include "ZOLAnnStandardXMLNode.h"
#include "ZOLAnnStandardXMLValue.h"

/// The sub-node names in order, joined by ",".
inline std::string Names(const ZOLAnnStandardXMLNode* node) {
  std::string out;
  for (auto* n : node->SubNodes()) out += (out.empty() ? "" : ",") + n->Name().str();
  return out;
}

/// The value texts in order, joined by ",".
inline std::string Texts(const ZOLAnnStandardXMLNode* node) {
  std::string out;
  for (auto* v : node->Values()) out += (out.empty() ? "" : ",") + v->Value().str();
  return out;
}

/// Each value as type/name/text/rangeVal, joined by ";".
inline std::string Describe(const ZOLAnnStandardXMLNode* node) {
  std::string out;
  for (auto* v : node->Values())
    out += (out.empty() ? "" : ";") + std::to_string(v->GetType()) + "/" + v->Name().str() + "/" + v->Value().str() +
           "/" + std::to_string(v->GetRangeVal());
  return out;
}
