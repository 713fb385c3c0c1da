// The upgrade driver: decodes a standard file, tells its parent and level, and walks the chain.
#include "ZOLDrwParseStandard.h"

#include <cstdio>
#include <string>
#include <string_view>

#include "ZOLAnnStandardXMLNode.h"
#include "ZOLAnnStandardXMLParser.h"
#include "ZOLDftStdPersistence.h"
#include "document/ZOLDftParentStandard.h"
#include "ZOLDrwParseParameter.h"
#include "ZOLFile.h"
#include "ZOLRefCounted.h"
#include "ZOLSysLog.h"
#include "upgrade/ZOLDrwFlatReader.h"
#include "upgrade/migration/ZOLDrwMigration.h"

const int ZOLDrwParseStandard::ANSI = ZOLDftParentFlag(ZOLDftParent::ANSI);
const int ZOLDrwParseStandard::ASME = ZOLDftParentFlag(ZOLDftParent::ASME);
const int ZOLDrwParseStandard::ISO = ZOLDftParentFlag(ZOLDftParent::ISO);
const int ZOLDrwParseStandard::JIS = ZOLDftParentFlag(ZOLDftParent::JIS);

namespace {

void AppendParts(ZOLUnicodeString& out, const char* a, const char* b, const char* c, int newline) {
  for (const char* part : {a, b, c})
    if (part) out += std::string_view(part);
  if (newline) out += std::string_view("\n");
}

void InsertParts(ZOLUnicodeString& out, int position, const char* a, const char* b, const char* c, int newline) {
  if (position < 0 || position > out.GetLengthInChar()) return;
  ZOLUnicodeString text;
  AppendParts(text, a, b, c, newline);
  if (!text.IsEmpty()) out.Insert(position, text);
}

// The parent as the tree stores it: ASME is ANSI with datum mode 1.
ZOLUnicodeString ParentFromStored(ZOLUnicodeString parent, const ZOLUnicodeString& datumMode) {
  if (parent == "ANSI") {
    if (datumMode == "1")
      parent = "ASME";
    else if (!(datumMode == "2"))
      ZOLAssertMessage("Invalid TXTDatumMode value! Can't determine parent standard");
  }
  return parent;
}

}  // namespace

ZOLDrwParseStandard::ZOLDrwParseStandard(ZOLUnicodeString& fileName)
    : ZOLDrwParseStandard(fileName, ZOLDrwShippedStages().data(), static_cast<int>(ZOLDrwShippedStages().size())) {}

ZOLDrwParseStandard::ZOLDrwParseStandard(ZOLUnicodeString& fileName, const ZOLDrwMigrationStage* stages, int count)
    : _FileName(fileName), _Stages(stages), _StageCount(stages ? count : 0) {}

ZOLDrwParseStandard::~ZOLDrwParseStandard() {
  for (ZOLDrwParseParameter* parameter : _Parameters) delete parameter;
  _Parameters.clear();
  delete _Parser;
  _Parser = nullptr;
}

int ZOLDrwParseStandard::DecodeTree(ZOLAnnStandardXMLParser& parser) { return parser.DecodeXML(_FileName, 1); }

void ZOLDrwParseStandard::Decode() {
  if (_Decoded || _FileName.IsEmpty()) return;
  if (_Parser) {
    ZOLAssertBool("");
    return;
  }
  if (DecodeFlatFile()) return;
  _Parser = new ZOLAnnStandardXMLParser();
  // A file that does not decode still counts as decoded: its empty tree tells level and parent, which
  // the catalogue reads, and Encode saves what was read. A caller that must not save a tree read in
  // part asks DecodeFailed first.
  _DecodeFailed = DecodeTree(*_Parser) != 0;
  _Decoded = 1;
  _Version = _Parser->GetVersion();
  _ParentStandard = "ISO";
  // Replaced unconditionally: a file without the node ends with an empty parent, not "ISO".
  _ParentStandard = _Parser->GetValueWithPath("Root.Dimension.ParentStandard");
  if (_ParentStandard == "ANSI")
    _ParentStandard = ParentFromStored(_ParentStandard, _Parser->GetValueWithPath("Root.Dimension.TXTDatumMode"));
}

ZOLDrwParseStandard::FileKind ZOLDrwParseStandard::ReadFlatFile(const ZOLUnicodeString& path, std::string& text) {
  // The head tells a tree from flat text without reading a large standard whole.
  char head[4096];
  std::FILE* file = std::fopen(path.ConvertToChar(), "rb");
  if (!file) return FileKind::TreeOrUnreadable;
  const size_t n = std::fread(head, 1, sizeof head, file);
  std::fclose(file);
  std::string_view start(head, n);
  if (start.substr(0, 3) == "\xEF\xBB\xBF") start.remove_prefix(3);
  const size_t first = start.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos || start[first] == '<') return FileKind::TreeOrUnreadable;
  if (FAILED(ZOLReadFile(path.ConvertToChar(), text))) return FileKind::TreeOrUnreadable;
  return ZOLDrwIsFlatText(text) ? FileKind::Flat : FileKind::Neither;
}

bool ZOLDrwParseStandard::IsFlatFile(const ZOLUnicodeString& path) {
  std::string text;
  return ReadFlatFile(path, text) == FileKind::Flat;
}

bool ZOLDrwParseStandard::DecodeFlatFile() {
  std::string text;
  const FileKind kind = ReadFlatFile(_FileName, text);
  if (kind == FileKind::Neither) {
    // Decoded as XML, which fails and says why.
    _FlatFaults.push_back({FlatFault::NotFlatText, 0, "neither XML nor flat text; decoded as XML"});
  }
  if (kind != FileKind::Flat) return false;
  ZOLDrwFlatText flat = ZOLDrwReadFlatText(text);
  _FlatFaults = std::move(flat.faults);
  for (const FlatFault& fault : _FlatFaults) ZOLAssertMessage(fault.message.ConvertToChar());
  _Parameters.insert(_Parameters.end(), flat.parameters.begin(), flat.parameters.end());
  const ZOLDrwParseParameter* parent = GetParameter("ParentStandard");
  const ZOLDrwParseParameter* mode = GetParameter("TXTDatumMode");
  _ParentStandard = parent ? ParentFromStored(parent->Value(), mode ? mode->Value() : ZOLUnicodeString()) : ZOLUnicodeString();
  _DecodeFailed = !_FlatFaults.empty();
  _Decoded = 1;
  _Version = 0;
  return true;
}

void ZOLDrwParseStandard::DecodeFlatParameters(ZOLDrwParseParameter** parameters, int count,
                                               const ZOLUnicodeString& parentStandard) {
  if (_Decoded || _Parser) {
    ZOLAssertBool("Decoded already");
    for (int i = 0; parameters && i < count; ++i) delete parameters[i];
    return;
  }
  for (int i = 0; parameters && i < count; ++i) _Parameters.push_back(parameters[i]);
  _ParentStandard = parentStandard;
  _Decoded = 1;
  _Version = 0;
}

ZOLUnicodeString ZOLDrwParseStandard::GetParentStandard() { return _ParentStandard; }

int ZOLDrwParseStandard::GetVersion() { return _Version; }

int ZOLDrwParseStandard::GetCurrentVersion() { return ZOLDftStdPersistence::GetCurrentVersion(); }

std::vector<ZOLDrwParseStandard::StageInfo> ZOLDrwParseStandard::GetStages() {
  std::vector<StageInfo> stages;
  int n = 0;
  for (const ZOLDrwMigrationStage& s : ZOLDrwShippedStages())
    stages.push_back({++n, s.from, s.to, s.kind == ZOLDrwMigrationStage::BuildsTreeFromFlatText, s.name, s.step != nullptr});
  return stages;
}

int ZOLDrwParseStandard::GetParentStandardId() {
  int id = ZOLDftParentFlag(ZOLDftParentOf(_ParentStandard));
  if (id == 0) ZOLAssertMessage("Unknown parent standard!!");
  return id;
}

ZOLDrwParseParameter* ZOLDrwParseStandard::GetParameter(const ZOLUnicodeString& keyword) {
  if (keyword.IsEmpty()) return nullptr;
  for (ZOLDrwParseParameter* parameter : _Parameters)
    if (parameter && parameter->Keyword() == keyword) return parameter;
  return nullptr;
}

void ZOLDrwParseStandard::Encode(const char* directory, ZOLString& outputPath,
                                 ZOLDrwParseStandardUpgradeOptions& options) {
  outputPath = "";
  CreateOutput(directory, outputPath);
  EncodeToVersion(-1, options, outputPath.ConvertToChar());
}

void ZOLDrwParseStandard::CreateOutput(const char* directory, ZOLString& outputPath) {
  outputPath = "";
  if (!_Decoded || _FileName.IsEmpty()) return;
  std::string_view file = _FileName;
  size_t slash = file.find_last_of("/\\");
  std::string_view name = slash == std::string_view::npos ? file : file.substr(slash + 1);
  name = name.substr(0, name.find(".xml"));
  std::string out = directory ? directory : ".";
  // The backslash is kept: the migration tools that call Encode split the path on it.
  out += '\\';
  out += name;
  out += ".xml";
  outputPath = ZOLUnicodeString(std::move(out));
}

void ZOLDrwParseStandard::EncodeToVersion(int target, ZOLDrwParseStandardUpgradeOptions& options,
                                          const char* outputPath) {
  if (!_Decoded) return;
  UpgradeVersion(target, options);
  if (!_Parser) {
    ZOLAssertPointer("");
    return;
  }
  // A file written now would claim a level that the tree has not reached.
  if (_Outcome.blockedStage != 0) return;
  if (_Parser->SaveInFile(outputPath ? outputPath : "") < 0) {
    ZOLAssertBool("Saved failed");
    return;
  }
  _Outcome.saved = true;
}

void ZOLDrwParseStandard::UpgradeVersion(int target, ZOLDrwParseStandardUpgradeOptions& options) {
  _Outcome = Outcome();
  _Outcome.levelReached = _Version;
  // The start level does not move while the pass runs.
  const int start = _Version;
  ZOLDrwMigrationContext context(*this, options);
  for (int i = 0; i < _StageCount; ++i) {
    const ZOLDrwMigrationStage& stage = _Stages[i];
    const bool fromFlatText = stage.kind == ZOLDrwMigrationStage::BuildsTreeFromFlatText;
    if (start > stage.from) continue;
    if (!fromFlatText && target != -1 && target < stage.to) continue;
    if (fromFlatText && _Parser) {
      // A decoded tree of level 0 or -1 is never rebuilt from flat text; the pass ends here.
      ZOLAssertBool("");
      _Outcome.stoppedByGuard = true;
      return;
    }
    if (!stage.step) {
      ZOLAssertMessage("Upgrade step not built yet");
      _Outcome.blockedStage = i + 1;
      _Outcome.blockedFrom = stage.from;
      _Outcome.blockedTo = stage.to;
      _Outcome.blockedStep = stage.name;
      return;
    }
    stage.step(context);
    ++_Outcome.stagesRun;
    _Outcome.levelReached = stage.to;
    if (fromFlatText && !_Parser) {
      ZOLAssertPointer("");
      _Outcome.stoppedByGuard = true;
      return;
    }
  }
}

int ZOLDrwParseStandard::ChangeStyleValue(const char* stylePath, const char* valuePath, int parentMask,
                                          ZOLAnnStandardXMLValue::Type type, const char* oldValue,
                                          const char* newValue) {
  if (!_Parser || !stylePath || !valuePath || !oldValue || !newValue || parentMask == 0) {
    ZOLAssertBool("");
    return 0;
  }
  const int id = GetParentStandardId();
  if (id == 0) return 0;
  if ((parentMask & id) == 0) return 1;
  ZOLRef<ZOLAnnStandardXMLNode> family = ZOLRef<ZOLAnnStandardXMLNode>::Adopt(_Parser->GetNodeWithPath(stylePath));
  if (!family) {
    ZOLAssertPointer("");
    return 0;
  }
  if (family->GetNumOfNode() < 1) {
    ZOLAssertBool("");
    return 0;
  }
  const std::string_view expected(oldValue);
  for (ZOLAnnStandardXMLNode* style : family->SubNodes()) {
    ZOLAnnStandardXMLNode* node = style->FindNodeWithPath(valuePath, 1);
    if (!node) {
      ZOLAssertPointer("");
      return 0;
    }
    ZOLAnnStandardXMLValue* value = node->GetNumOfNode() == 0 && node->GetNumOfValue() == 1 ? node->Values()[0] : nullptr;
    // A customer's edit of any one style stops the change there; styles before it stay changed.
    if (!value || value->GetType() != type || !(value->Value() == expected)) {
      ZOLAssertBool("");
      return 0;
    }
    value->SetValue(newValue);
  }
  return 1;
}

void ZOLDrwParseStandard::AddOutputLine(ZOLUnicodeString& out, const ZOLUnicodeString& line, int newline) {
  if (line.GetLengthInChar() > 0) out += line;
  if (newline) out += std::string_view("\n");
}

void ZOLDrwParseStandard::AddOutputLine(ZOLUnicodeString& out, const char* line, int newline) {
  AppendParts(out, line, nullptr, nullptr, newline);
}

void ZOLDrwParseStandard::AddOutputLine(ZOLUnicodeString& out, const char* a, const char* b, const char* c,
                                        int newline) {
  AppendParts(out, a, b, c, newline);
}

void ZOLDrwParseStandard::InsertOutputLine(ZOLUnicodeString& out, int position, const ZOLUnicodeString& line,
                                           int newline) {
  InsertParts(out, position, line.ConvertToChar(), nullptr, nullptr, newline);
}

void ZOLDrwParseStandard::InsertOutputLine(ZOLUnicodeString& out, int position, const char* line, int newline) {
  InsertParts(out, position, line, nullptr, nullptr, newline);
}

void ZOLDrwParseStandard::InsertOutputLine(ZOLUnicodeString& out, int position, const char* a, const char* b,
                                           const char* c, int newline) {
  InsertParts(out, position, a, b, c, newline);
}
