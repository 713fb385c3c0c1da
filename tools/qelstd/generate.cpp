// qelstd generate DESCRIPTION.json -o FILE.xml: a standard text written from a JSON description.
// The library's generator escapes nothing, so the text is decoded before it is written: a value
// that holds markup is named by its place in the description instead of giving a file that no
// reader takes.
#include <nlohmann/json.hpp>

#include <memory>
#include <string>
#include <string_view>

#include "QelstdInput.h"
#include "QelstdOutput.h"
#include "QelstdStandard.h"
#include "QelstdVerb.h"
#include "ZOLAnnStandardXMLParser.h"
#include "ZOLDftStandardServices.h"
#include "ZOLXMLDOM.h"
#include "ZOLXMLSAX.h"

namespace {

/// The most bytes a description may hold; an export of a built-in standard takes a few MiB.
constexpr size_t kMaxDescriptionBytes = size_t{256} << 20;
constexpr const char* kSections[] = {"EnumDefinition", "TypeDefinition", "Styles", "Standard Parameters"};

struct GenerateOptions {
  std::string description;
  std::string output;
};

// The first problem of the XML reader with a text, empty when it is well-formed.
std::string XmlError(std::string_view text) {
  std::unique_ptr<ZOLIXMLDOMDocumentBuilder> builder;
  if (FAILED(CreateZOLIXMLDOMDocumentBuilder(builder)) || !builder) return "no XML reader";
  ZOLListValZOLUnicodeString names, values;
  names.Append(ZOLUnicodeString(ZOLDOMOptionEnableNameSpaces));
  values.Append(ZOLUnicodeString("true"));
  ZOLIDOMDocument document;
  const ZOLIXMLInputSource source(ZOLIXMLInputSource::Borrowed{}, text, "generated");
  if (SUCCEEDED(builder->BuildDocumentFromSource(source, names, values, document))) return std::string();
  const std::string& error = builder->GetLastError();
  return error.empty() ? "not well-formed" : error;
}

// Whether a text written unescaped, as the generator writes it, reads back as itself both as
// character data and as a name attribute.
bool StandsUnescaped(std::string_view text) {
  if (ZOLXMLTextFault(text)) return false;
  if (text.find_first_of("<&\"]") == std::string_view::npos) return true;
  const std::string fragment = "<v a=\"" + std::string(text) + "\">" + std::string(text) + "</v>";
  return XmlError(fragment).empty();
}

// A key as a JSON Pointer token.
std::string PointerToken(std::string_view key) {
  std::string token;
  for (char c : key) token += c == '~' ? "~0" : c == '/' ? "~1" : std::string(1, c);
  return token;
}

// The JSON Pointer of the first key or string under value, in document order, that cannot stand
// unescaped; false when there is none.
bool FindMarkup(const nlohmann::ordered_json& value, const std::string& path, std::string& found) {
  if (value.is_string()) {
    if (StandsUnescaped(value.get_ref<const std::string&>())) return false;
    return found = path, true;
  }
  if (value.is_array()) {
    for (size_t i = 0; i < value.size(); ++i)
      if (FindMarkup(value[i], path + "/" + std::to_string(i), found)) return true;
  }
  if (value.is_object()) {
    for (const auto& [key, member] : value.items()) {
      const std::string memberPath = path + "/" + PointerToken(key);
      if (!StandsUnescaped(key)) return found = memberPath, true;
      if (FindMarkup(member, memberPath, found)) return true;
    }
  }
  return false;
}

int RunGenerate(const GenerateOptions& options) {
  qelstd::SetSubject(options.description);
  std::string bytes, why;
  if (!qelstd::ReadRegularFile(options.description, kMaxDescriptionBytes, bytes, why)) {
    qelstd::Error(options.description, why);
    return qelstd::kNotFound;
  }
  const ZOLOmxJsonObject description{ZOLUnicodeString(bytes)};
  if (!description.IsValidJsonObject()) {
    const auto parsed = nlohmann::ordered_json::parse(bytes, nullptr, false);
    qelstd::Error(options.description, parsed.is_discarded() ? "not JSON text (or nested too deeply)" : "not a JSON object");
    return qelstd::kNotFound;
  }
  for (const char* section : kSections) {
    ZOLOmxJsonObject found;
    if (FAILED(description.GetJsonObject(section, found))) {
      qelstd::Error(options.description, std::string("has no object \"") + section + "\", which a description needs");
      return qelstd::kNotFound;
    }
  }
  std::string text;
  {
    qelstd::QuietReports quiet;
    if (ZOLDftStandardServices::GenerateStandardXML(description, text) != S_OK) {
      qelstd::Error(options.description, "the generator refused the description");
      return qelstd::kNotFound;
    }
  }
  if (std::string error = XmlError(text); !error.empty()) {
    std::string path;
    const auto parsed = nlohmann::ordered_json::parse(bytes, nullptr, false);
    for (const char* section : kSections)
      if (FindMarkup(parsed[section], std::string("/") + section, path)) break;
    qelstd::Error(options.description,
                  path.empty() ? "the generated text is no well-formed XML (" + error + "); nothing was written"
                               : "the value at \"" + path + "\" holds markup that the generated text cannot carry as it "
                                 "stands (write \"<\" as \"&lt;\" and \"&\" as \"&amp;\"); nothing was written");
    return qelstd::kNotFound;
  }
  {
    qelstd::QuietReports quiet;
    ZOLAnnStandardXMLParser parser;
    if (parser.DecodeXML(ZOLUnicodeString(text), 0) != 0) {
      qelstd::Error(options.description, "the generated text does not decode as a standard; nothing was written");
      return qelstd::kNotFound;
    }
  }
  return qelstd::WriteFileWhole(options.output, text) ? qelstd::kDone : qelstd::kNotFound;
}

void SetupGenerate(CLI::App& app, int* status) {
  auto options = std::make_shared<GenerateOptions>();
  CLI::App* verb = app.add_subcommand("generate", "Write a standard text from a JSON description, as 'export' gives one");
  verb->footer("Example: qelstd generate ISO.json -o drafting/Custom.xml\n"
               "The text is checked before it is written: a value with markup in it is named, and nothing is written.\n"
               "The document element is always named \"ISO\", whichever standard is described.");
  verb->add_option("description", options->description, "JSON description: EnumDefinition, TypeDefinition, Styles, "
                                                        "Standard Parameters")
      ->required();
  verb->add_option("-o,--output", options->output, "Standard file to write (written whole or not at all)")->required();
  verb->callback([options, status] { *status = RunGenerate(*options); });
}

const qelstd::VerbRegistrar registrar("generate", SetupGenerate);

}  // namespace
