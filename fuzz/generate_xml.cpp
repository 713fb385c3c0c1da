// GenerateStandardXML over arbitrary JSON text: no fault and no leak; it succeeds exactly when the
// four sections are objects and leaves the text alone otherwise; what it writes is well-formed XML
// unless a key or string of the description holds markup, which the generator keeps unescaped on
// purpose. The text is then loaded and exported again, which must not fail either.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "QelFuzzFiles.h"
#include "ZOLDftStandardServices.h"
#include "ZOLIQelStandardCommunication.h"
#include "ZOLXMLDOM.h"
#include "ZOLXMLSAX.h"

namespace {

using Json = nlohmann::ordered_json;

bool CannotStandUnescaped(const std::string& s) {
  return s.find_first_of("<&\"") != std::string::npos || s.find("]]>") != std::string::npos || ZOLXMLTextFault(s);
}

bool HoldsMarkup(const Json& v) {
  if (v.is_string()) return CannotStandUnescaped(v.get_ref<const std::string&>());
  if (v.is_object())
    for (const auto& [key, member] : v.items())
      if (CannotStandUnescaped(key) || HoldsMarkup(member)) return true;
  if (v.is_array())
    for (const Json& e : v)
      if (HoldsMarkup(e)) return true;
  return false;
}

bool WellFormed(const std::string& text) {
  static std::unique_ptr<ZOLIXMLDOMDocumentBuilder> builder;
  if (!builder && (FAILED(CreateZOLIXMLDOMDocumentBuilder(builder)) || !builder)) std::abort();
  ZOLListValZOLUnicodeString names, values;
  ZOLIDOMDocument document;
  return SUCCEEDED(builder->BuildDocumentFromSource(ZOLIXMLInputSource(ZOLIXMLInputSource::Borrowed{}, text, "fuzz"),
                                                    names, values, document));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const std::string scratch = qelfuzz::QuietScratch("generate_xml");
  const std::string input(reinterpret_cast<const char*>(data), size);
  const ZOLOmxJsonObject description{ZOLUnicodeString(input)};
  std::string text = "untouched";
  const long hr = ZOLDftStandardServices::GenerateStandardXML(description, text);

  const Json json = Json::parse(input, nullptr, false);
  bool sections = description.IsValidJsonObject();
  for (const char* key : {"EnumDefinition", "TypeDefinition", "Styles", "Standard Parameters"})
    sections = sections && json.contains(key) && json[key].is_object();
  if ((hr == S_OK) != sections) std::abort();
  if (hr != S_OK) {
    if (text != "untouched") std::abort();
    return 0;
  }
  if (!HoldsMarkup(json) && !WellFormed(text)) std::abort();

  // A malformed colour may leave the load, as it does for any text.
  qelfuzz::ColourFaultOr([&] {
    ZOLUnicodeString source(text);
    ZOLIDrwStandard_var standard = ZOLDftStandardServices::GetStandardFromBuffer(&source, "Fuzz");
    ZOLIQelStandardCommunication_var communication(standard.Get());
    ZOLOmxJsonObject exported;
    if (!communication || communication->GetStandardAsJson(exported) != S_OK) std::abort();
    if (!ZOLOmxJsonObject(ZOLUnicodeString(exported.ToString())).IsValidJsonObject()) std::abort();
    return std::string();
  });
  return 0;
}
