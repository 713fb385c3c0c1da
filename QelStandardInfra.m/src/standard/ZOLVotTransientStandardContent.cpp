// The content and communication faces of the standard object: its display formats as description
// records, and the whole standard as one JSON object.
#include <map>
#include <string>

#include "QelStandardServices.h"
#include "QelStdToleranceDescription.h"
#include "QelStdUnitDescription.h"
#include "ZOLOmxJsonObject.h"
#include "standard/ZOLVotTransientStandard.h"

struct ZOLVotStandardContent {
  // By name, filled at most once; std::less<> finds a name without a temporary string.
  std::map<std::string, std::shared_ptr<QelStdUnitDescription>, std::less<>> units;
  std::map<std::string, std::shared_ptr<QelStdToleranceDescription>, std::less<>> tolerances;
  // The export, made on first use and kept for the life of the standard.
  ZOLOmxJsonObject jsonRoot;
};

ZOLVotStandardContent& ZOLVotTransientStandard::Content() {
  if (!_Content) _Content = std::make_shared<ZOLVotStandardContent>();
  return *_Content;
}

namespace {

using Node = ZOLVotStandardNode;
using Kind = ZOLDftStdElement;

// Reads one field of the i-th record of a list; a field that does not read keeps its initial value.
class RecordReader {
public:
  RecordReader(ZOLVotTransientStandard& standard, const char* list, int index)
      : _standard(standard), _path(list), _listLength(_path.size()), _index(index) {}
  template <class T>
  T Get(const char* field, T value = T{}) {
    _path.resize(_listLength);
    _path += field;
    _standard.GetValue(_path.c_str(), _index, value);
    return value;
  }
  ZOLUnicodeString Text(const char* field) { return Get<ZOLUnicodeString>(field); }
  // A separator stored as its code in the symbol table.
  ZOLUnicodeString Symbol(const char* field) { return QelStandardServices::GetSymbolFromTable(Get<int>(field)); }

private:
  ZOLVotTransientStandard& _standard;
  std::string _path;
  size_t _listLength;
  int _index;
};

int ListLength(ZOLVotTransientStandard& standard, const char* list) {
  ZOLDftStandardValueType type = ZOLDftStandardValueTypeUnknown;
  int count = 0;
  standard.GetValueType(list, &type, &count);
  return count;
}

std::shared_ptr<QelStdUnitDescription> ReadUnit(ZOLVotTransientStandard& standard, int index) {
  RecordReader r(standard, "ValueFormats", index);
  // Fields in the order of the constructor's arguments; the order of evaluation of arguments is
  // unspecified, so each is read into its own variable first.
  const ZOLUnicodeString name = r.Text(".Name");
  const int type = r.Get<int>(".NDType"), unit = r.Get<int>(".NDUnit");
  const double globalFact = r.Get<double>(".NDGlobFact");
  const int nulFac1 = r.Get<int>(".NDNulFac_1"), nulFac2 = r.Get<int>(".NDNulFac_2"), exise = r.Get<int>(".NDExise");
  const ZOLUnicodeString sep1000 = r.Symbol(".NDSep1000");
  const double fact1 = r.Get<double>(".NDFact_1"), fact2 = r.Get<double>(".NDFact_2"), fact3 = r.Get<double>(".NDFact_3");
  const double valPos1 = r.Get<double>(".NDValPos_1"), valPos2 = r.Get<double>(".NDValPos_2"),
               valPos3 = r.Get<double>(".NDValPos_3");
  const ZOLUnicodeString separ1 = r.Text(".NDSepar_1"), separ2 = r.Text(".NDSepar_2"), separ3 = r.Text(".NDSepar_3");
  const double sepScl1 = r.Get<double>(".NDSepScl_1"), sepScl2 = r.Get<double>(".NDSepScl_2"),
               sepScl3 = r.Get<double>(".NDSepScl_3");
  const double sepPos1 = r.Get<double>(".NDSepPos_1"), sepPos2 = r.Get<double>(".NDSepPos_2"),
               sepPos3 = r.Get<double>(".NDSepPos_3");
  const double restX = r.Get<double>(".NDRestX"), restY = r.Get<double>(".NDRestY");
  const int finZer = r.Get<int>(".NDFinZer");
  const ZOLUnicodeString sepNum = r.Symbol(".NDSepNum");
  const int typFrac = r.Get<int>(".NDTypFrac"), sepDen = r.Get<int>(".NDSepDen");
  const double operY = r.Get<double>(".NDOperY");
  const int nulOther = r.Get<int>(".NDNulOther");
  const double resScl = r.Get<double>(".NDResScl");
  const int fact = r.Get<int>(".NDFact");
  return std::make_shared<QelStdUnitDescription>(name, type, unit, globalFact, nulFac1, nulFac2, exise, sep1000, fact1, fact2,
                                                 fact3, valPos1, valPos2, valPos3, separ1, separ2, separ3, sepScl1, sepScl2,
                                                 sepScl3, sepPos1, sepPos2, sepPos3, restX, restY, finZer, sepNum, typFrac,
                                                 sepDen, operY, nulOther, resScl, fact);
}

std::shared_ptr<QelStdToleranceDescription> ReadTolerance(ZOLVotTransientStandard& standard, int index) {
  RecordReader r(standard, "ToleranceFormats", index);
  const ZOLUnicodeString name = r.Text(".Name");
  const int type = r.Get<int>(".TolType"), separ1 = r.Get<int>(".TolSepar_1"), separ2 = r.Get<int>(".TolSepar_2");
  const double symbolH = r.Get<double>(".TolSymbolH");
  const int sepTo1 = r.Get<int>(".TolSepTo_1"), sepTo2 = r.Get<int>(".TolSepTo_2"), sepTo3 = r.Get<int>(".TolSepTo_3");
  const int trailing = r.Get<int>(".TolTrailing"), fractLine = r.Get<int>(".TolFractLine");
  const int ptOnValue = r.Get<int>(".TolPtOnValue"), anchorPt = r.Get<int>(".TolAnchorPt");
  const double intX = r.Get<double>(".TolIntX"), intY = r.Get<double>(".TolIntY");
  const double extX = r.Get<double>(".TolExtX"), extY = r.Get<double>(".TolExtY");
  const int mergeSame = r.Get<int>(".TolMergeSame"), showNull = r.Get<int>(".TolShowNull");
  const double scale = r.Get<double>(".TolScale");
  // The one field older standards lack.
  const double dispFact = r.Get<double>(".TolDispFact", 1.0);
  return std::make_shared<QelStdToleranceDescription>(name, type, separ1, separ2, symbolH, sepTo1, sepTo2, sepTo3, trailing,
                                                      fractLine, ptOnValue, anchorPt, intX, intY, extX, extY, mergeSame,
                                                      showNull, scale, dispFact);
}

// The legacy formats, then the standard's own list, whose entries replace legacy ones of their name.
template <class Map, class Legacy, class Read>
void Fill(Map& map, Legacy legacy, ZOLVotTransientStandard& standard, const char* list, Read read) {
  for (auto& d : legacy)
    if (d) map[d->Name.str()] = std::move(d);
  const int count = ListLength(standard, list);
  for (int i = 1; i <= count; ++i) {
    auto d = read(standard, i);
    map[d->Name.str()] = std::move(d);
  }
}

template <class Map, class Description>
HRESULT Find(const Map& map, std::string_view name, std::shared_ptr<Description>& out) {
  auto it = map.find(name);
  if (it == map.end()) return 1;
  out = it->second;
  return S_OK;
}

template <class Map, class Description>
HRESULT AppendAll(const Map& map, std::vector<std::shared_ptr<Description>>& out) {
  for (const auto& [name, description] : map) out.push_back(description);
  return S_OK;
}

// The format maps, filled on first use.
auto& Units(ZOLVotTransientStandard& standard, ZOLVotStandardContent& content) {
  if (content.units.empty()) Fill(content.units, QelStandardServices::GetLegacyV4Units(), standard, "ValueFormats", &ReadUnit);
  return content.units;
}

auto& Tolerances(ZOLVotTransientStandard& standard, ZOLVotStandardContent& content) {
  if (content.tolerances.empty())
    Fill(content.tolerances, QelStandardServices::GetLegacyV4Tolerances(), standard, "ToleranceFormats", &ReadTolerance);
  return content.tolerances;
}

}  // namespace

HRESULT ZOLVotTransientStandard::GetUnits(std::vector<std::shared_ptr<QelStdUnitDescription>>& oUnits) {
  return AppendAll(Units(*this, Content()), oUnits);
}

HRESULT ZOLVotTransientStandard::GetUnit(ZOLUnicodeString iName, std::shared_ptr<QelStdUnitDescription>& oUnit) {
  // Blanks only; a unit name with a tab around it is not found.
  std::string_view name = iName.str();
  const size_t first = name.find_first_not_of(' ');
  name = first == std::string_view::npos ? std::string_view() : name.substr(first, name.find_last_not_of(' ') - first + 1);
  return Find(Units(*this, Content()), name, oUnit);
}

HRESULT ZOLVotTransientStandard::GetTolerances(std::vector<std::shared_ptr<QelStdToleranceDescription>>& oTolerances) {
  return AppendAll(Tolerances(*this, Content()), oTolerances);
}

HRESULT ZOLVotTransientStandard::GetTolerance(ZOLUnicodeString iName, std::shared_ptr<QelStdToleranceDescription>& oTolerance) {
  // Kept on purpose: unlike a unit's, a tolerance's name is not stripped, and callers rely on the difference.
  return Find(Tolerances(*this, Content()), iName.str(), oTolerance);
}

// --- The JSON export ---

namespace {

// One pass over the store's tree, building the four sections of the export.
class JsonExport {
public:
  explicit JsonExport(const ZOLVotStandardStore& store) : _store(store) {}

  ZOLOmxJsonObject Build() {
    ZOLOmxJsonObject enums, types, styles, parameters;
    const Node* root = _store.Root();
    for (const Node* n = root ? _store.FirstChild(*root) : nullptr; n; n = _store.NextSibling(*n)) {
      if (n->kind == Kind::EnumDef) {
        ZOLOmxJsonArray literals;
        for (const Node* c = _store.FirstChild(*n); c; c = _store.NextSibling(*c)) literals.PutString(_store.Value(*c));
        enums.PutArray(Key(*n), std::move(literals));
      } else if (n->kind == Kind::TypeDef) {
        types.PutObject(Key(*n), TypeDefinition(*n));
      } else if (_store.Name(*n) == "Styles") {
        for (const Node* c = _store.FirstChild(*n); c; c = _store.NextSibling(*c)) styles.PutObject(Key(*c), Form(*c));
      } else {
        parameters.PutObject(Key(*n), Form(*n));
      }
    }
    ZOLOmxJsonObject json;
    json.PutObject(ZOLOmxKeyString("EnumDefinition"), std::move(enums));
    json.PutObject(ZOLOmxKeyString("TypeDefinition"), std::move(types));
    json.PutObject(ZOLOmxKeyString("Styles"), std::move(styles));
    json.PutObject(ZOLOmxKeyString("Standard Parameters"), std::move(parameters));
    return json;
  }

private:
  ZOLOmxKeyString Key(const Node& n) const { return ZOLOmxKeyString(_store.Name(n)); }
  int Count(const Node* first) const {
    int n = 0;
    for (const Node* c = first; c; c = _store.NextSibling(*c)) ++n;
    return n;
  }

  // The typed text of a value element under key ("value" or "default").
  void PutTyped(ZOLOmxJsonObject& o, const Node& n, const char* key) const {
    const ZOLOmxKeyString k(key);
    if (n.kind == Kind::IntVal) o.PutInteger(k, ZOLVotStandardStore::ReadInt(_store.Value(n)));
    else if (n.kind == Kind::FloatVal) o.PutDouble(k, ZOLVotStandardStore::ReadReal(_store.Value(n)));
    else o.PutString(k, _store.Value(n));
  }

  ZOLOmxJsonObject TypeDefinition(const Node& typedefNode) const {
    ZOLOmxJsonObject definition;
    definition.Reserve(Count(_store.FirstChild(typedefNode)));
    for (const Node* f = _store.FirstChild(typedefNode); f; f = _store.NextSibling(*f)) {
      ZOLOmxJsonObject field;
      if (const std::string_view type = ZOLDftStdElementJsonType(f->kind); !type.empty()) {
        field.PutString(ZOLOmxKeyString("type"), type);
        PutTyped(field, *f, "default");
      }
      definition.PutObject(Key(*f), std::move(field));
    }
    return definition;
  }

  // The leaf form of a value element; a node without children has its "enum" first.
  ZOLOmxJsonObject Leaf(const Node& n, bool enumFirst) const {
    ZOLOmxJsonObject leaf;
    const std::string_view type = ZOLDftStdElementJsonType(n.kind);
    if (type.empty()) return leaf;
    const bool isEnum = n.kind == Kind::EnumVal;
    leaf.Reserve(isEnum ? 3 : 2);
    if (isEnum && enumFirst) leaf.PutString(ZOLOmxKeyString("enum"), _store.Name(n));
    leaf.PutString(ZOLOmxKeyString("type"), type);
    if (isEnum && !enumFirst) leaf.PutString(ZOLOmxKeyString("enum"), _store.Name(n));
    PutTyped(leaf, n, "value");
    return leaf;
  }

  // What a node is written as under its name.
  ZOLOmxJsonObject Form(const Node& n) const {
    const Node* first = _store.FirstChild(n);
    if (!first) return Leaf(n, true);
    if (!_store.NextSibling(*first) && !_store.FirstChild(*first)) return Leaf(*first, false);
    ZOLOmxJsonObject form;
    const bool typed = first->kind == Kind::TypeVal;
    if (typed || _store.Name(*first).empty()) {
      ZOLOmxJsonArray entries;
      entries.Reserve(Count(first));
      for (const Node* c = first; c; c = _store.NextSibling(*c)) entries.PutJsonObject(Form(*c));
      if (typed) {
        form.PutString(ZOLOmxKeyString("type"), std::string_view("typeval"));
        form.PutString(ZOLOmxKeyString("typeval"), _store.Name(*first));
      }
      form.PutArray(ZOLOmxKeyString("array"), std::move(entries));
      return form;
    }
    form.Reserve(Count(first));
    for (const Node* c = first; c; c = _store.NextSibling(*c)) form.PutObject(Key(*c), Form(*c));
    return form;
  }

  const ZOLVotStandardStore& _store;
};

}  // namespace

HRESULT ZOLVotTransientStandard::GetStandardAsJson(ZOLOmxJsonObject& oJson) {
  // The tree never changes after the load, so the first export serves every later call; the copy
  // shares it until the caller changes it.
  ZOLVotStandardContent& content = Content();
  if (content.jsonRoot.Length() == 0) content.jsonRoot = JsonExport(_Store).Build();
  oJson = content.jsonRoot;
  return S_OK;
}

HRESULT ZOLVotTransientStandard::SetStandardFromJson(ZOLOmxJsonObject) {
  // A standard object is read-only; the way back is ZOLDftStandardServices::GenerateStandardXML.
  return E_NOTIMPL;
}
