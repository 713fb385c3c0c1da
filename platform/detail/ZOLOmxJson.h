// What lies beneath the platform's JSON objects: nlohmann's ordered_json, whose objects keep their
// members in order. Internal: no installed header may show the JSON library's types.
#pragma once
#include <nlohmann/json.hpp>

#include "ZOLOmxJsonObject.h"

using ZOLOmxJsonDocument = nlohmann::ordered_json;

/// The document node behind an object, an array or any value; null when there is none.
struct ZOLOmxJsonAccess {
  static const ZOLOmxJsonDocument* Node(const std::shared_ptr<void>& p) { return static_cast<const ZOLOmxJsonDocument*>(p.get()); }
  static const ZOLOmxJsonDocument* Node(const ZOLOmxAny& any) { return Node(any._value); }
  static const ZOLOmxJsonDocument* Node(const ZOLOmxJsonArray& array) { return Node(array._array); }
  static const ZOLOmxJsonDocument* Node(const ZOLOmxJsonObject& object) { return Node(object._object); }
};
