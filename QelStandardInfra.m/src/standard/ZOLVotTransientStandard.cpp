// The read-only standard object: one-pass load, the node walk behind cache misses, and the getters.
#include "standard/ZOLVotTransientStandard.h"

#include <algorithm>
#include <bit>
#include <iterator>
#include <charconv>
#include <climits>
#include <cmath>
#include <cstring>
#include <initializer_list>
#include <memory>
#include <stdexcept>

#include "ZOLClassDictionary.h"
#include "ZOLDftStandardServices.h"
#include "ZOLFile.h"
#include "ZOLSysLog.h"
#include "ZOLXMLSAXIds.h"

ZOLImplementMetaObject(ZOLVotTransientStandard, Implementation, ZOLBaseUnknown::MetaObject(), "QelStandardInfra",
                       nullptr, "ZOLNull")
static ZOLClassRegistrar s_transientStandardClass(ZOLVotTransientStandard::MetaObject());

namespace {

using Kind = ZOLVotNodeKind;
using Node = ZOLVotStandardNode;

constexpr std::string_view kTypeNames[] = {"",           "std:node",   "std:typeval", "std:intval",  "std:floatval",
                                           "std:strval", "std:enumval", "std:colorval", "std:enumdef", "std:typedef"};

// The eight bytes of s from at, as a native load of them would give.
constexpr uint64_t Pack8(std::string_view s, size_t at) {
  uint64_t v = 0;
  for (size_t i = 0; i < 8; ++i) {
    uint64_t byte = static_cast<unsigned char>(s[at + i]);
    v |= std::endian::native == std::endian::little ? byte << (8 * i) : byte << (8 * (7 - i));
  }
  return v;
}

uint64_t Load8(const char* p) {
  uint64_t v;
  std::memcpy(&v, p, 8);
  return v;
}

// The first and the last eight bytes of each element name (all are 8 to 12 bytes long).
struct KindKeys {
  uint64_t head[std::size(kTypeNames)] = {};
  uint64_t tail[std::size(kTypeNames)] = {};
  constexpr KindKeys() {
    for (size_t k = 1; k < std::size(kTypeNames); ++k) {
      head[k] = Pack8(kTypeNames[k], 0);
      tail[k] = Pack8(kTypeNames[k], kTypeNames[k].size() - 8);
    }
  }
};
constexpr KindKeys kKindKeys;

// Called twice per element: picks the candidate by length and one letter, then compares the
// whole name as two overlapping words.
inline Kind KindOf(std::string_view tag) {
  const size_t n = tag.size();
  if (n < 8 || n > 12) return Kind::Other;
  Kind k;
  switch (n) {
    case 8: k = Kind::Node; break;
    case 10: k = tag[4] == 'i' ? Kind::IntVal : Kind::StrVal; break;
    case 11: k = tag[4] == 't' ? (tag[8] == 'v' ? Kind::TypeVal : Kind::TypeDef) : (tag[8] == 'v' ? Kind::EnumVal : Kind::EnumDef); break;
    case 12: k = tag[4] == 'f' ? Kind::FloatVal : Kind::ColorVal; break;
    default: return Kind::Other;
  }
  const int i = static_cast<int>(k);
  return Load8(tag.data()) == kKindKeys.head[i] && Load8(tag.data() + n - 8) == kKindKeys.tail[i] ? k : Kind::Other;
}

// Sets of kinds as bit masks, tested with one shift on every start and end tag.
constexpr unsigned KindMask(std::initializer_list<Kind> kinds) {
  unsigned m = 0;
  for (Kind k : kinds) m |= 1u << static_cast<unsigned>(k);
  return m;
}
constexpr unsigned kValueKinds = KindMask({Kind::IntVal, Kind::FloatVal, Kind::StrVal, Kind::EnumVal, Kind::ColorVal});
// Typed entries and definitions: they add nothing to a path.
constexpr unsigned kEntryKinds = KindMask({Kind::TypeVal, Kind::EnumDef, Kind::TypeDef});
static_assert(kZOLVotNodeKinds <= 32);

bool IsKindIn(Kind k, unsigned mask) { return (mask >> static_cast<unsigned>(k)) & 1u; }
bool IsValueKind(Kind k) { return IsKindIn(k, kValueKinds); }

// Whether a name holds a dot. Short names are read as they are copied, in two words that may
// overlap, and tested a word at a time; the name is read where the parser left it, not from the
// path just written, whose bytes would not be ready for wide reads yet.
[[gnu::always_inline]] inline bool HasDot(std::string_view name) {
  const size_t n = name.size();
  const char* p = name.data();
  if (n > 16) return memchr(p, '.', n);
  if (n < 4) {
    for (size_t i = 0; i < n; ++i)
      if (p[i] == '.') return true;
    return false;
  }
  static_assert(std::endian::native == std::endian::little);
  constexpr uint64_t kOnes = 0x0101010101010101ull, kHighs = 0x8080808080808080ull, kDots = kOnes * '.';
  uint64_t a, b;
  if (n >= 8) {
    a = Load8(p);
    b = Load8(p + n - 8);
  } else {
    uint32_t x, y;
    std::memcpy(&x, p, 4);
    std::memcpy(&y, p + n - 4, 4);
    a = x | 0xFFFFFFFF00000000ull;  // the upper bytes hold no dot
    b = y | 0xFFFFFFFF00000000ull;
  }
  a ^= kDots;  // a dot becomes a zero byte
  b ^= kDots;
  return (((a - kOnes) & ~a) | ((b - kOnes) & ~b)) & kHighs;
}

// A path before its last "."; empty for a path without one.
std::string_view ParentOf(std::string_view path) {
  const void* dot = path.empty() ? nullptr : memrchr(path.data(), '.', path.size());
  return {path.data(), dot ? static_cast<size_t>(static_cast<const char*>(dot) - path.data()) : 0};
}

// Cuts a path before its last "."; a path without one becomes empty.
void RemoveLastComponent(ZOLVotChars& path) { path.Truncate(ParentOf(path.View()).size()); }

void AppendNumber(std::string& s, int n) {
  char digits[16];
  auto r = std::to_chars(digits, digits + sizeof digits, n);
  s.append(digits, r.ptr);
}

// Plain decimal forms ("-12", "0.13"), the usual text of a standard, read exactly as the general
// reader would: up to nine digits for an integer; for a real, up to fifteen digits and no exponent,
// so that digits / 10^k is one correctly rounded division of two exact doubles. False for
// anything else, which then takes the general reader.
bool ReadPlainInt(std::string_view t, int& v) {
  const size_t n = t.size();
  const size_t i = n && t[0] == '-' ? 1 : 0;
  if (n - i < 1 || n - i > 9) return false;
  int m = 0;
  for (size_t k = i; k < n; ++k) {
    const unsigned d = static_cast<unsigned>(t[k] - '0');
    if (d > 9) return false;
    m = m * 10 + static_cast<int>(d);
  }
  v = i ? -m : m;
  return true;
}

bool ReadPlainReal(std::string_view t, double& v) {
  static constexpr double kTens[] = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
  const size_t n = t.size();
  size_t k = n && t[0] == '-' ? 1 : 0;
  const size_t first = k;
  uint64_t m = 0;
  for (; k < n && static_cast<unsigned>(t[k] - '0') <= 9; ++k) m = m * 10 + static_cast<unsigned>(t[k] - '0');
  size_t digits = k - first, fraction = 0;
  if (digits == 0) return false;
  if (k < n && t[k] == '.') {
    const size_t start = ++k;
    for (; k < n && static_cast<unsigned>(t[k] - '0') <= 9; ++k) m = m * 10 + static_cast<unsigned>(t[k] - '0');
    fraction = k - start;
    if (fraction == 0) return false;
    digits += fraction;
  }
  if (k != n || digits > 15) return false;
  const double r = static_cast<double>(m) / kTens[fraction];
  v = first ? -r : r;
  return true;
}

bool IsStoiSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r'; }

int StoiPiece(std::string_view piece) {
  size_t k = 0, n = piece.size();
  while (k < n && IsStoiSpace(piece[k])) ++k;
  bool negative = false;
  if (k < n && (piece[k] == '+' || piece[k] == '-')) negative = piece[k++] == '-';
  if (k >= n || piece[k] < '0' || piece[k] > '9') throw std::invalid_argument("invalid stoi argument");
  long long v = 0;
  bool beyond = false;
  for (; k < n && piece[k] >= '0' && piece[k] <= '9'; ++k) {
    if (!beyond) v = v * 10 + (piece[k] - '0');
    beyond = beyond || v > 2147483648LL;
  }
  if (negative) v = -v;
  if (beyond || v > INT_MAX || v < INT_MIN) throw std::out_of_range("stoi argument out of range");
  return static_cast<int>(v);
}

// Files one more value at a path: the value filed singly under key, if still there, becomes the
// first of the array under the bare path (pathKey, the start of key), and v follows it.
template <class T>
void AddToArray(ZOLVotKeyMap<T>& singles, ZOLVotKeyMap<std::vector<T>>& arrays, std::string_view key, uint64_t h,
                ZOLVotSpan pathKey, T v) {
  const T* first = singles.Find(key, h);
  std::vector<T>& list = arrays.Adopt(pathKey, ZOLVotHash({key.data(), pathKey.len}));
  if (first) {
    list.assign(1, *first);
    singles.Erase(key, h);
  }
  list.push_back(v);
}

// Writes a string array to the caller's strings.
void WriteStrings(const ZOLVotChars& chars, const std::vector<ZOLVotSpan>& list, ZOLUnicodeString** oValues) {
  for (size_t i = 0; i < list.size(); ++i)
    if (oValues[i]) oValues[i]->str().assign(ZOLVotView(chars, list[i]));
}

}  // namespace

// ---------------------------------------------------------------------------------------------
// Construction and load

// The load's own lane through the reader: element kinds and the "name" attribute are told apart
// by the address of their names in the parser's dictionary, with the text compared only for
// names that are not the usual ones. Same results as the content handler's lane.
class ZOLVotTransientStandard::LeanLoad final : public ZOLISAXLeanContentHandler {
public:
  explicit LeanLoad(ZOLVotTransientStandard& standard) : _standard(standard) {}

  int StartParse(const ZOLISAXDictionary& dictionary) override {
    _std = dictionary.Intern("std");
    _name = dictionary.Intern("name");
    // Each kind's local name in the first free slot from the one its address picks; a name the
    // dictionary could not hold is found by its text. The dictionary keeps new names one after
    // the other, so that slots picked by the distance from the lowest name are all different in
    // any process; names that lie further apart than the table are probed for past their slot.
    const char* locals[std::size(kTypeNames)] = {};
    for (size_t k = 1; k < std::size(kTypeNames); ++k) {
      locals[k] = dictionary.Intern(kTypeNames[k].substr(4));
      if (locals[k] && (!_base || reinterpret_cast<uintptr_t>(locals[k]) < _base)) _base = reinterpret_cast<uintptr_t>(locals[k]);
    }
    for (size_t k = 1; k < std::size(kTypeNames); ++k) {
      if (!locals[k]) continue;
      size_t i = SlotOf(locals[k]);
      while (_slots[i].local && _slots[i].local != locals[k]) i = (i + 1) % std::size(_slots);
      _slots[i] = {locals[k], static_cast<Kind>(k)};
    }
    return 0;
  }

  [[gnu::always_inline]] int StartElement(const ZOLSAXName& element, const ZOLSAXAttributeList& attributes) override {
    std::string_view name;
    for (int i = 0, n = attributes.Count(); i < n; ++i) {
      const ZOLSAXName a = attributes.Name(i);
      if (!a.prefix && ((_name && a.local == _name) || std::strcmp(a.local, "name") == 0)) {
        name = attributes.Value(i);
        break;
      }
    }
    if (_std && element.prefix == _std) {
      const size_t i = SlotOf(element.local);
      if (_slots[i].local == element.local) [[likely]] {
        _standard.OpenNode(_slots[i].kind, name, {});
        return 0;
      }
      if (_slots[i].local) {
        OpenFromSlot(i, element, name);
        return 0;
      }
    }
    OpenByText(element, name);
    return 0;
  }

  [[gnu::always_inline]] int EndElement(const ZOLSAXName&) override {
    _standard.CloseNode();
    return 0;
  }

  [[gnu::always_inline]] int Characters(std::string_view text) override {
    _standard.GatherText(text);
    return 0;
  }

  const ZOLSAXLeanCallbacks* DirectCallbacks() const override { return &ZOLSAXDirectLane<LeanLoad>::kCallbacks; }

private:
  struct Slot {
    const char* local = nullptr;
    Kind kind = Kind::Other;
  };
  // A kind that found its home slot taken, or another name: looked for in the slots that follow.
  [[gnu::noinline, gnu::cold]] void OpenFromSlot(size_t i, const ZOLSAXName& element, std::string_view name) {
    for (i = (i + 1) % std::size(_slots); _slots[i].local; i = (i + 1) % std::size(_slots)) {
      if (_slots[i].local == element.local) {
        _standard.OpenNode(_slots[i].kind, name, {});
        return;
      }
    }
    OpenByText(element, name);
  }
  // Another name, or one the dictionary does not hold: told by its text.
  [[gnu::noinline, gnu::cold]] void OpenByText(const ZOLSAXName& element, std::string_view name) {
    _tag.clear();
    if (element.prefix) _tag.append(element.prefix).append(1, ':');
    _tag.append(element.local);
    _standard.OpenNode(KindOf(_tag), name, _tag);
  }
  size_t SlotOf(const char* p) const { return (reinterpret_cast<uintptr_t>(p) - _base) % std::size(_slots); }

  ZOLVotTransientStandard& _standard;
  const char* _std = nullptr;
  const char* _name = nullptr;
  uintptr_t _base = 0;
  Slot _slots[128];
  std::string _tag;
};

ZOLVotTransientStandard::ZOLVotTransientStandard(const ZOLUnicodeString& filePath, const ZOLUnicodeString& name)
    : _Name(name), _FilePath(filePath) {
  if (FAILED(Load(&filePath, false))) ZOLAssertBool("Load of the standard failed");
  FinishLoad();
}

ZOLVotTransientStandard::ZOLVotTransientStandard(const ZOLUnicodeString* text, const ZOLUnicodeString& name)
    : _Name(name) {
  if (FAILED(Load(text, true))) ZOLAssertBool("Load of the standard failed");
  FinishLoad();
}

ZOLVotTransientStandard::~ZOLVotTransientStandard() = default;

HRESULT ZOLVotTransientStandard::Load(const ZOLUnicodeString* source, bool isBuffer) {
  _TypevalIndex = 1;
  _TypevalClosed = 0;
  std::unique_ptr<ZOLIXMLSAX2Factory> factory;
  if (FAILED(CreateZOLIXMLSAX2Factory(factory)) || !factory) {
    ZOLAssertPointer("No SAX factory");
    return E_UNEXPECTED;
  }
  std::unique_ptr<ZOLIXMLInputSource> input;
  HRESULT hr = E_FAIL;
  struct stat info;
  if (source && isBuffer) Reserve(source->str().size());
  else if (source && ZOLFileStat(source->ConvertToChar(), &info) == 0) Reserve(static_cast<size_t>(info.st_size));
  if (source) {
    // The caller's text outlives the load, which runs inside the constructor: no copy needed.
    hr = isBuffer ? factory->CreateInputSourceOverText(source->str(), "fileID", input)
                  : factory->CreateInputSourceFromFile(source->str(), "fileID", input);
  }
  if (FAILED(hr) || !input) {
    ZOLAssertPointer("No input source");
    return E_UNEXPECTED;
  }
  std::unique_ptr<ZOLISAXXMLReader> reader;
  if (FAILED(factory->CreateReader(reader)) || !reader) {
    ZOLAssertPointer("No SAX reader");
    return E_UNEXPECTED;
  }
  if (FAILED(reader->SetFeature(ZOLSAXFeatureSchemaValidation, false))) {
    ZOLAssertBool("Schema validation cannot be switched off");
    return E_UNEXPECTED;
  }
  // The object is its own handler, through its two SAX attachments; each holds a reference.
  void* errorHandler = nullptr;
  void* contentHandler = nullptr;
  GetImpl()->QueryInterface(IID_ZOLISAXErrorHandler, &errorHandler);
  GetImpl()->QueryInterface(IID_ZOLISAXContentHandler, &contentHandler);
  struct Releaser {
    ZOLBaseUnknown* object;
    int count;
    ~Releaser() { while (count--) object->Release(); }
  } releaser{this, (errorHandler ? 1 : 0) + (contentHandler ? 1 : 0)};
  if (!errorHandler || !contentHandler ||
      FAILED(reader->SetErrorHandler(static_cast<ZOLISAXErrorHandler*>(errorHandler))) ||
      FAILED(reader->SetContentHandler(static_cast<ZOLISAXContentHandler*>(contentHandler)))) {
    ZOLAssertBool("The standard cannot handle its own load");
    return E_UNEXPECTED;
  }
  // Elements and text take the lean lane where the reader has one; the content handler keeps the rest.
  LeanLoad lean(*this);
  reader->SetLeanContentHandler(&lean);
  _DeferFiling = true;
  hr = reader->Parse(*input);
  _DeferFiling = false;
  FilePending();
  return hr;
}

void ZOLVotTransientStandard::Reserve(size_t textBytes) {
  // Sized once from the text: a standard has an element per 45 bytes or so, its names and values
  // come to under a third of the text and its keys to a little over a half. Growing by doubling
  // instead would copy and touch twice the memory.
  _Nodes.reserve(textBytes / 40 + 16);
  _Chars.reserve(textBytes / 3 + 256);
  _Keys.reserve(textBytes / 2 + textBytes / 8 + 256);
  // From the share of each kind of value in a typical standard.
  _Pending[0].reserve(textBytes / 192 + 16);
  _Pending[1].reserve(textBytes / 320 + 16);
  _Pending[2].reserve(textBytes / 128 + 16);
}

void ZOLVotTransientStandard::FinishLoad() {
  // The path buffer and the values taken down are load state only.
  _CurrentPath = ZOLVotChars();
  for (std::vector<PendingValue>& group : _Pending) std::vector<PendingValue>().swap(group);
}

int ZOLVotTransientStandard::StartElement(std::string_view, std::string_view, std::string_view tag,
                                          const ZOLISAXAttributes& attributes) {
  std::string_view name;
  attributes.GetValue("name", name);
  OpenNode(KindOf(tag), name, tag);
  return 0;
}

int ZOLVotTransientStandard::EndElement(std::string_view, std::string_view, std::string_view) {
  CloseNode();
  return 0;
}

void ZOLVotTransientStandard::OpenNode(Kind kind, std::string_view name, std::string_view tag) {
  DropText();
  Node node;
  node.kind = kind;
  node.name = ZOLVotStore(_Chars, name);
  if (kind == Kind::Other) {
    ZOLVotSpan type = ZOLVotStore(_Chars, tag.substr(0, UINT16_MAX));
    node.typeOff = type.off;
    node.typeLen = static_cast<uint16_t>(type.len);
  }
  _Nodes.push_back(node);
  OpenElement& open = _Open.emplace_back();
  open.node = static_cast<uint32_t>(_Nodes.size() - 1);
  open.lastChild = Node::kNone;
  open.irregular = _PathIrregular;
  open.kind = kind;
  open.nameless = name.empty();
  open.addedPlainName = false;
  if (IsValueKind(kind)) {
    ++_OpenValues;
    _Text = {static_cast<uint32_t>(_Chars.size()), 0};
  }

  // The root, "Styles", typed entries and definitions add nothing to a path.
  bool silent = IsKindIn(kind, kEntryKinds);
  if (!silent && !name.empty() && name != "drafting" && name != "Styles") {
    const size_t before = _CurrentPath.size();
    if (before) _CurrentPath.Append(".");
    _CurrentPath.Append(name);
    open.pathBefore = static_cast<uint32_t>(before);
    open.addedPlainName = !HasDot(name);
    ++_PathChanges;
  }
  if (silent || _TypevalClosed) [[unlikely]] OpenEntryOrDefinition(kind, name);
}

void ZOLVotTransientStandard::OpenEntryOrDefinition(Kind kind, std::string_view name) {
  if (kind != Kind::TypeVal && _TypevalClosed) {
    _TypevalName.reset();
    _TypevalIndex = 1;
  }
  if (kind == Kind::TypeVal) {
    _TypevalClosed = 0;
    if (_TypevalName && *_TypevalName == name) {
      ++_TypevalIndex;
    } else {
      _TypevalIndex = 1;
      _TypevalName.emplace(name);
    }
  }
  if (kind == Kind::EnumDef) _EnumdefName.emplace(name);
  if (kind == Kind::TypeDef) _TypedefName.emplace(name);
}

int ZOLVotTransientStandard::Characters(std::string_view text) {
  GatherText(text);
  return 0;
}

void ZOLVotTransientStandard::GatherText(std::string_view text) {
  if (_OpenValues == 0) return;
  // Anything stored since the last piece: move the gathered text to the end so that it stays in
  // one run.
  if (_Text.len && _Text.off + _Text.len != _Chars.size()) _Text = ZOLVotStore(_Chars, ZOLVotView(_Chars, _Text));
  if (!_Text.len) _Text.off = static_cast<uint32_t>(_Chars.size());
  _Text.len += ZOLVotStore(_Chars, text).len;
}

void ZOLVotTransientStandard::CloseNode() {
  if (_Open.empty()) return;
  // The end tag names the element that its start tag named.
  const OpenElement closing = _Open.back();
  const Kind kind = closing.kind;
  const bool isValue = IsValueKind(kind);
  const ZOLVotSpan text = _Text;
  if (isValue) {
    --_OpenValues;
    _Nodes[closing.node].value = text;
  }

  // A closed node joins its parent's children; the document element becomes the root.
  _Open.pop_back();
  if (_Open.empty()) {
    _Root = closing.node;
  } else {
    OpenElement& parent = _Open.back();
    if (parent.lastChild == Node::kNone) _Nodes[parent.node].firstChild = closing.node;
    else _Nodes[parent.lastChild].nextSibling = closing.node;
    parent.lastChild = closing.node;
  }

  if (isValue) {
    if (_EnumdefName || _TypedefName) [[unlikely]] {
      if (_EnumdefName) _EnumdefValues.push_back(text);
    } else {
      DeferValue(kind, text);
      if (!_DeferFiling) [[unlikely]] FilePending();
    }
    // The value keeps its characters; what follows gathers anew.
    _Text = {static_cast<uint32_t>(_Chars.size()), 0};
  }
  const bool entryOrDefinition = IsKindIn(kind, kEntryKinds);
  if (entryOrDefinition) [[unlikely]] CloseEntryOrDefinition(kind);
  // Kept on purpose: a named element removes a component even when it added none ("drafting",
  // "Styles", a typedef), so what follows a nested "Styles" comes out one level short.
  if (!closing.nameless && kind != Kind::TypeVal && kind != Kind::EnumDef) {
    if (closing.addedPlainName && closing.irregular == _PathIrregular) [[likely]] {
      _CurrentPath.Truncate(closing.pathBefore);
    } else {
      RemoveLastComponent(_CurrentPath);
      ++_PathIrregular;
    }
    ++_PathChanges;
  }
}

void ZOLVotTransientStandard::CloseEntryOrDefinition(Kind kind) {
  if (kind == Kind::EnumDef) {
    // Copied, so that the list keeps its room for the next definition.
    _EnumDefinitions[_EnumdefName ? *_EnumdefName : std::string()] = _EnumdefValues;
    _EnumdefValues.clear();
    _EnumdefName.reset();
  } else if (kind == Kind::TypeDef) {
    _TypedefName.reset();
  } else {
    _TypevalClosed = 1;
  }
}

void ZOLVotTransientStandard::DeferValue(Kind kind, ZOLVotSpan text) {
  const int n = _TypevalIndex;
  if (n != _SuffixIndex) {
    _SuffixIndex = n;
    _Suffix[0] = '.';
    _SuffixLength = static_cast<uint8_t>(std::to_chars(_Suffix + 1, _Suffix + sizeof _Suffix, n).ptr - _Suffix);
  }
  const std::string_view path = _CurrentPath.View();
  bool first = false;
  if (_PathChanges != _FiledAtChanges) {
    const std::string_view previous = ZOLVotView(_Keys, _LastValuePath);
    first = path.size() != previous.size() || !ZOLVotSameBytes(path.data(), previous.data(), path.size());
  }
  _FiledAtChanges = _PathChanges;
  // Keys are copied in blocks of 64 bytes (see AppendPadded): both stores keep that much room.
  if (_CurrentPath.capacity() - path.size() < 64) _CurrentPath.reserve(path.size() + 128);
  if (_Keys.capacity() - _Keys.size() < path.size() + sizeof _Suffix + 64)
    _Keys.reserve(2 * _Keys.capacity() + path.size() + 128);
  ZOLVotSpan key = _Keys.AppendPadded(_CurrentPath.View());
  key.len += _Keys.AppendPadded<sizeof _Suffix>({_Suffix, _SuffixLength}).len;
  static constexpr uint8_t kGroup[] = {0, 0, 0, 0, 1, 2, 2, 0, 0, 0};  // by ZOLVotNodeKind
  static_assert(std::size(kGroup) == kZOLVotNodeKinds);
  _Pending[kGroup[static_cast<int>(kind)]].push_back({key, static_cast<uint32_t>(path.size()), text, kind, first});
  ++_PendingCounts[static_cast<int>(kind)];
  _LastValuePath = {key.off, static_cast<uint32_t>(path.size())};
}

void ZOLVotTransientStandard::FilePending() {
  const uint32_t* count = _PendingCounts;
  _IntValues.Reserve(_IntValues.Size() + count[static_cast<int>(Kind::IntVal)]);
  _DoubleValues.Reserve(_DoubleValues.Size() + count[static_cast<int>(Kind::FloatVal)]);
  _StringValues.Reserve(_StringValues.Size() + count[static_cast<int>(Kind::StrVal)]);
  _EnumValues.Reserve(_EnumValues.Size() + count[static_cast<int>(Kind::EnumVal)]);
  _IntArrays.Reserve(_IntArrays.Size() + count[static_cast<int>(Kind::ColorVal)]);
  std::fill(std::begin(_PendingCounts), std::end(_PendingCounts), 0);
  for (std::vector<PendingValue>& group : _Pending) {
    for (const PendingValue& value : group) FileValue(value);
    group.clear();
  }
}

void ZOLVotTransientStandard::FileValue(const PendingValue& value) {
  const Kind kind = value.kind;
  const ZOLVotSpan span = value.text;
  const std::string_view text = ZOLVotView(_Chars, span);
  // The bare path starts the key: an array's key is that part of the value's.
  const std::string_view key = ZOLVotView(_Keys, value.key);
  const std::string_view path(key.data(), value.pathLength);
  const ZOLVotSpan pathKey{value.key.off, value.pathLength};
  if (kind == Kind::ColorVal) {
    // A colour is keyed by the bare path, and only its first value at a path counts.
    if (value.firstAtPath) {
      std::vector<int> rgb;
      rgb.reserve(3);
      SplitColor(text, rgb);
      _IntArrays.Adopt(pathKey, ZOLVotHash(path)) = std::move(rgb);
    }
    return;
  }
  const uint64_t h = ZOLVotHash(key);
  if (value.firstAtPath) {
    switch (kind) {
      case Kind::IntVal:
        _IntValues.Adopt(value.key, h) = ReadInt(text);
        break;
      case Kind::FloatVal:
        _DoubleValues.Adopt(value.key, h) = ReadReal(text);
        break;
      case Kind::StrVal:
        _StringValues.Adopt(value.key, h) = span;
        break;
      case Kind::EnumVal:
        // The enum value's name is its type, not a path component: filed under the parent node.
        // The new key may move the store: it is made apart first.
        _EnumValues[JoinKey(ParentOf(path), key.substr(path.size()))] = span;
        break;
      default:
        break;
    }
  } else {
    // One more value at the same path: the values form an array under the bare path.
    switch (kind) {
      case Kind::IntVal:
        AddToArray(_IntValues, _IntArrays, key, h, pathKey, ReadInt(text));
        break;
      case Kind::FloatVal:
        AddToArray(_DoubleValues, _DoubleArrays, key, h, pathKey, ReadReal(text));
        break;
      case Kind::StrVal:
      case Kind::EnumVal:
        AddToArray(_StringValues, _StringArrays, key, h, pathKey, span);
        break;
      default:
        break;
    }
  }
}

void ZOLVotTransientStandard::SplitColor(std::string_view text, std::vector<int>& oValues) {
  size_t i = 0;
  while (i < text.size()) {
    if (text[i] == ' ') {
      ++i;
      continue;
    }
    size_t end = text.find(' ', i);
    if (end == std::string_view::npos) end = text.size();
    oValues.push_back(StoiPiece(text.substr(i, end - i)));
    i = end;
  }
}

// ---------------------------------------------------------------------------------------------
// Tree

std::string_view ZOLVotTransientStandard::Type(const Node& n) const {
  if (n.kind == Kind::Other) return {_Chars.data() + n.typeOff, n.typeLen};
  return kTypeNames[static_cast<int>(n.kind)];
}

const Node* ZOLVotTransientStandard::FindChild(uint32_t first, std::string_view name) const {
  for (const Node* c = At(first); c; c = At(c->nextSibling))
    if (Name(*c) == name) return c;
  return nullptr;
}

const Node* ZOLVotTransientStandard::FindNode(std::string_view path, int index) {
  if (path.empty()) return nullptr;
  _NodeKey.assign(path);
  AppendNumber(_NodeKey, index);
  if (const uint32_t* hit = _NodeCache.Find(_NodeKey)) return &_Nodes[*hit];

  _Components.clear();
  for (size_t pos = 0; pos <= path.size();) {
    size_t dot = path.find('.', pos);
    if (dot == std::string_view::npos) dot = path.size();
    if (dot > pos) _Components.push_back(path.substr(pos, dot - pos));
    pos = dot + 1;
  }
  const uint32_t topLevel = _Root == Node::kNone ? Node::kNone : _Nodes[_Root].firstChild;
  uint32_t list = topLevel;
  const Node* result = nullptr;
  for (size_t c = 0; c < _Components.size(); ++c) {
    std::string_view component = _Components[c];
    const Node* node = FindChild(list, component);
    if (node) {
      if (node->kind == Kind::TypeVal && index >= 2) {
        // The index-th of the same-named entries.
        int count = 1;
        const Node* sibling = NextSibling(*node);
        node = nullptr;
        for (; sibling; sibling = NextSibling(*sibling))
          if (Name(*sibling) == component && ++count == index) {
            node = sibling;
            break;
          }
        if (!node) return nullptr;
      }
    } else if (c != 0) {
      // A list of typed entries is transparent: look in the index-th entry.
      const Node* entry = nullptr;
      int count = 0;
      for (const Node* s = At(list); s; s = NextSibling(*s))
        if (s->kind == Kind::TypeVal && ++count == index) {
          entry = s;
          break;
        }
      if (!entry) return nullptr;
      node = FindChild(entry->firstChild, component);
      if (!node) return nullptr;
    } else {
      // A path need not spell out "Styles".
      const Node* styles = FindChild(topLevel, "Styles");
      if (!styles) continue;
      node = FindChild(styles->firstChild, component);
      if (!node) return nullptr;
    }
    list = node->firstChild;
    if (c + 1 == _Components.size()) result = node;
  }
  if (result) _NodeCache[_NodeKey] = IndexOf(result);
  return result;
}

// ---------------------------------------------------------------------------------------------
// Values

std::string_view ZOLVotTransientStandard::MakeKey(std::string_view path, int index) {
  char suffix[16] = {'.', static_cast<char>('0' + index)};
  size_t count = 2;
  if (index < 1 || index > 9) count = static_cast<size_t>(std::to_chars(suffix + 1, suffix + sizeof suffix, index).ptr - suffix);
  // Never more than the buffer; said so that the optimiser does not look for longer copies.
  return JoinKey(path, {suffix, std::min(count, sizeof suffix)});
}

std::string_view ZOLVotTransientStandard::JoinKey(std::string_view head, std::string_view tail) {
  const size_t size = head.size() + tail.size();
  // The buffer only grows; the view gives the key its length.
  if (_Key.size() < size) _Key.resize(size + 32);
  char* key = _Key.data();
  ZOLVotCopy(key, head.data(), head.size());
  ZOLVotCopy(key + head.size(), tail.data(), tail.size());
  return {key, size};
}

std::string_view ZOLVotTransientStandard::MakeParentKey(std::string_view path, int index) {
  return MakeKey(ParentOf(path), index);
}

int ZOLVotTransientStandard::ReadInt(std::string_view text) {
  int v = 0;
  if (!ReadPlainInt(text, v)) ZOLUnicodeString(text).ConvertToNum(&v, "%d");
  return v;
}

double ZOLVotTransientStandard::ReadReal(std::string_view text) {
  double d = 0.0;
  if (!ReadPlainReal(text, d)) ZOLUnicodeString(text).ConvertToNum(&d, "%le");
  return d;
}

template <class T, class Read>
HRESULT ZOLVotTransientStandard::GetSingle(ZOLVotKeyMap<T>& cache, ZOLVotNodeKind leaf, Read read, const char* iPath,
                                           int iIndex, T& oValue) {
  std::string_view path = iPath ? iPath : "";
  if (const T* hit = cache.Find(MakeKey(path, iIndex))) {
    oValue = *hit;
    return S_OK;
  }
  const Node* node = FindNode(path, iIndex);
  if (!node) return E_FAIL;
  std::string_view text;
  if (node->kind == leaf) text = Value(*node);
  else if (node->kind == Kind::Node && FirstChild(*node)) text = Value(*FirstChild(*node));
  else return E_FAIL;
  T v = read(text);
  oValue = v;
  cache[MakeKey(path, iIndex)] = v;
  return S_OK;
}

HRESULT ZOLVotTransientStandard::GetValue(const char* iPath, int iIndex, int& oValue) {
  return GetSingle(_IntValues, Kind::IntVal, &ReadInt, iPath, iIndex, oValue);
}

HRESULT ZOLVotTransientStandard::GetValue(const char* iPath, int iIndex, double& oValue) {
  return GetSingle(_DoubleValues, Kind::FloatVal, &ReadReal, iPath, iIndex, oValue);
}

HRESULT ZOLVotTransientStandard::GetValue(const char* iPath, int iIndex, ZOLUnicodeString& oValue) {
  std::string_view path = iPath ? iPath : "";
  std::string_view key = MakeKey(path, iIndex);
  const uint64_t h = ZOLVotHash(key);
  const ZOLVotSpan* hit = _StringValues.Find(key, h);
  if (!hit) hit = _EnumValues.Find(key, h);
  // Kept on purpose: an enum value also answers at its node's path followed by any last component.
  if (!hit) hit = _EnumValues.Find(MakeParentKey(path, iIndex));
  if (hit) {
    oValue.str().assign(ZOLVotView(_Chars, *hit));
    return S_OK;
  }
  const Node* node = FindNode(path, iIndex);
  if (!node) return E_FAIL;
  ZOLVotSpan text;
  if (node->kind == Kind::StrVal || node->kind == Kind::EnumVal) text = node->value;
  else if (node->kind == Kind::Node && FirstChild(*node)) text = FirstChild(*node)->value;
  else return E_FAIL;
  oValue.str().assign(ZOLVotView(_Chars, text));
  _StringValues[MakeKey(path, iIndex)] = text;
  return S_OK;
}

HRESULT ZOLVotTransientStandard::GetValue(const char* iPath, int* oValues, int* oCount) {
  if (!oValues) {
    ZOLAssertPointer("");
    return E_INVALIDARG;
  }
  std::string_view path = iPath ? iPath : "";
  int count = 0;
  if (const std::vector<int>* hit = _IntArrays.Find(path)) {
    std::copy(hit->begin(), hit->end(), oValues);
    count = static_cast<int>(hit->size());
  } else if (const int* single = _IntValues.Find(MakeKey(path, 1))) {
    oValues[0] = *single;
    count = 1;
  } else if (const Node* node = FindNode(path, 1)) {
    if (node->kind == Kind::IntVal) {
      oValues[0] = ReadInt(Value(*node));
      _IntValues[MakeKey(path, 1)] = oValues[0];
      count = 1;
    } else if (node->kind == Kind::ColorVal) {
      std::vector<int> rgb;
      SplitColor(Value(*node), rgb);
      std::copy(rgb.begin(), rgb.end(), oValues);
      _IntArrays[path] = std::move(rgb);
      count = 3;
    } else {
      std::vector<int> list;
      for (const Node* c = FirstChild(*node); c; c = NextSibling(*c)) {
        if (c->kind == Kind::IntVal) {
          int v = ReadInt(Value(*c));
          oValues[list.size()] = v;
          list.push_back(v);
          count = static_cast<int>(list.size());
        } else if (c->kind == Kind::ColorVal) {
          SplitColor(Value(*c), list);
          std::copy(list.begin(), list.end(), oValues);
          count = 3;
        }
      }
      _IntArrays[path] = std::move(list);
    }
  }
  if (oCount) *oCount = count;
  return count == 0 ? E_FAIL : S_OK;
}

HRESULT ZOLVotTransientStandard::GetValue(const char* iPath, double* oValues, int* oCount) {
  if (!oValues) {
    ZOLAssertPointer("");
    return E_INVALIDARG;
  }
  std::string_view path = iPath ? iPath : "";
  int count = 0;
  if (const std::vector<double>* hit = _DoubleArrays.Find(path)) {
    std::copy(hit->begin(), hit->end(), oValues);
    count = static_cast<int>(hit->size());
  } else if (const double* single = _DoubleValues.Find(MakeKey(path, 1))) {
    oValues[0] = *single;
    count = 1;
  } else if (const Node* node = FindNode(path, 1)) {
    if (node->kind == Kind::FloatVal) {
      oValues[0] = ReadReal(Value(*node));
      _DoubleValues[MakeKey(path, 1)] = oValues[0];
      count = 1;
    } else {
      // Kept on purpose: each element reads the node's own text, not the child's (0.0 for a node).
      std::vector<double> list;
      for (const Node* c = FirstChild(*node); c; c = NextSibling(*c))
        if (c->kind == Kind::FloatVal) {
          double d = ReadReal(Value(*node));
          oValues[list.size()] = d;
          list.push_back(d);
        }
      count = static_cast<int>(list.size());
      _DoubleArrays[path] = std::move(list);
    }
  }
  if (oCount) *oCount = count;
  return count == 0 ? E_FAIL : S_OK;
}

HRESULT ZOLVotTransientStandard::GetValue(const char* iPath, ZOLUnicodeString** oValues, int* oCount) {
  if (!oValues) {
    ZOLAssertPointer("");
    return E_INVALIDARG;
  }
  std::string_view path = iPath ? iPath : "";
  int count = 0;
  const ZOLVotSpan* single = nullptr;
  std::string_view key;
  uint64_t h = 0;
  if (const std::vector<ZOLVotSpan>* hit = _StringArrays.Find(path)) {
    WriteStrings(_Chars, *hit, oValues);
    count = static_cast<int>(hit->size());
  } else if ((key = MakeKey(path, 1), h = ZOLVotHash(key), single = _StringValues.Find(key, h)) ||
             (single = _EnumValues.Find(key, h)) || (single = _EnumValues.Find(MakeParentKey(path, 1)))) {
    if (oValues[0]) oValues[0]->str().assign(ZOLVotView(_Chars, *single));
    count = 1;
  } else if (const Node* node = FindNode(path, 1)) {
    if (node->kind == Kind::StrVal) {
      if (oValues[0]) oValues[0]->str().assign(Value(*node));
      _StringValues[MakeKey(path, 1)] = node->value;
      count = 1;
    } else {
      // Kept on purpose: each element is the node's own text, not the child's (empty for a node).
      std::vector<ZOLVotSpan> list;
      for (const Node* c = FirstChild(*node); c; c = NextSibling(*c))
        if (c->kind == Kind::StrVal) list.push_back(node->value);
      WriteStrings(_Chars, list, oValues);
      count = static_cast<int>(list.size());
      _StringArrays[path] = std::move(list);
    }
  }
  if (oCount) *oCount = count;
  return count == 0 ? E_FAIL : S_OK;
}

HRESULT ZOLVotTransientStandard::GetValueType(const char* iPath, ZOLDftStandardValueType* oType, int* oCount) {
  if (!oType) {
    ZOLAssertPointer("");
    return E_INVALIDARG;
  }
  if (oCount) *oCount = 0;
  const Node* node = FindNode(iPath ? iPath : "", 1);
  if (!node) return E_FAIL;
  const Node* first = FirstChild(*node);
  std::string_view reference = first ? Type(*first) : std::string_view();
  int count = 0, children = 0;
  for (const Node* c = first; c; c = NextSibling(*c)) {
    ++children;
    if (Type(*c) == reference) ++count;
    else ZOLAssertBool("");
  }
  if (count != children) {
    ZOLAssertBool("All Nodes have not the same type");
    return E_UNEXPECTED;
  }
  ZOLDftStandardValueType type = ZOLDftStandardValueTypeUnknown;
  if (reference == "std:intval") type = ZOLDftStandardValueTypeInteger;
  else if (reference == "std:floatval") type = ZOLDftStandardValueTypeReal;
  else if (reference == "std:strval") type = ZOLDftStandardValueTypeString;
  else if (reference == "std:enumval") type = ZOLDftStandardValueTypeEnum;
  else if (reference == "std:typeval") type = ZOLDftStandardValueTypeTypedEntry;
  *oType = type;
  if (type == ZOLDftStandardValueTypeUnknown) {
    ZOLAssertBool("Unknown standard value type!");
    ZOLAssertBool("");
    return E_UNEXPECTED;
  }
  if (oCount) *oCount = count;
  return S_OK;
}

HRESULT ZOLVotTransientStandard::GetThicknessIndex(double iMillimetres, int* oIndex) {
  if (iMillimetres < 0.0) return E_INVALIDARG;
  if (!oIndex) {
    ZOLAssertPointer("");
    return E_INVALIDARG;
  }
  *oIndex = 0;
  double best = static_cast<double>(1e25f);
  double value = 0.0;
  for (int i = 1; SUCCEEDED(GetValue("LineThickness.mm", i, value)); ++i) {
    // Strictly closer only: on a tie the lower row wins.
    if (std::fabs(iMillimetres - value) < best) {
      best = std::fabs(iMillimetres - value);
      *oIndex = i;
    }
  }
  return S_OK;
}

int ZOLVotTransientStandard::GetStdVersion() {
  if (_Version != -1) return _Version;
  if (GetValue("Version", 1, _Version) == S_OK) return _Version;
  ZOLUnicodeString className;
  ZOLDftStandardServices::GetStandardClassAndVersion(_FilePath, className, _Version);
  return _Version;
}

// ---------------------------------------------------------------------------------------------
// Names, nodes and styles

HRESULT ZOLVotTransientStandard::GetName(wchar_t** oName) {
  if (!oName) {
    ZOLAssertBool("");
    return E_INVALIDARG;
  }
  *oName = _Name.ConvertToWChar();
  if (!*oName) {
    ZOLAssertPointer("");
    return E_UNEXPECTED;
  }
  return S_OK;
}

HRESULT ZOLVotTransientStandard::GetName(ZOLUnicodeString& oName) {
  oName = _Name;
  return S_OK;
}

HRESULT ZOLVotTransientStandard::GetParentStandard(wchar_t** oName) {
  if (!oName) return E_INVALIDARG;
  ZOLUnicodeString parent;
  GetParentStandard(parent);
  *oName = parent.ConvertToWChar();
  return S_OK;
}

HRESULT ZOLVotTransientStandard::GetParentStandard(ZOLUnicodeString& oName) {
  if (GetValue("Dimension.ParentStandard", 1, oName) != S_OK) {
    ZOLAssertBool("");
    return E_UNEXPECTED;
  }
  return S_OK;
}

unsigned char ZOLVotTransientStandard::HasNode(const char* iPath) {
  return FindNode(iPath ? iPath : "", 1) ? 1 : 0;
}

HRESULT ZOLVotTransientStandard::GetStyleNames(const char* iType, ZOLListValZOLUnicodeString* oNames) {
  if (!oNames) {
    ZOLAssertPointer("");
    return E_INVALIDARG;
  }
  oNames->RemoveAll();
  std::string path = "Styles.";
  path += iType ? iType : "";
  const Node* node = FindNode(path, 1);
  if (!node) {
    ZOLAssertBool("");
    return E_UNEXPECTED;
  }
  for (const Node* c = FirstChild(*node); c; c = NextSibling(*c)) {
    if (c->kind != Kind::Node) ZOLAssertBool("");
    else if (c->name.len) oNames->Append(ZOLUnicodeString(Name(*c)));
  }
  return S_OK;
}

HRESULT ZOLVotTransientStandard::GetReserved19(int, int* oValue) {
  if (oValue) *oValue = 0;
  return S_OK;
}

HRESULT ZOLVotTransientStandard::GetStandardValue(ZOLIStandardValue** oValue) {
  if (oValue) *oValue = nullptr;
  return Stub();  // value objects come with their own class
}

HRESULT ZOLVotTransientStandard::GetStandardValue(ZOLIStandardValue** oValue, char** oFirst, char** oSecond) {
  if (!oValue || !oFirst || !oSecond) return E_INVALIDARG;
  HRESULT hr = GetStandardValue(oValue);
  if (!*oValue) {
    ZOLAssertPointer("");
    return E_UNEXPECTED;
  }
  *oSecond = new char[1]{'\0'};
  *oFirst = new char[1]{'\0'};
  return hr;
}

// ---------------------------------------------------------------------------------------------
// Slots that the object does not carry out

HRESULT ZOLVotTransientStandard::Stub() {
  ZOLAssertMessage("TO_BE_IMPLEMENTED...");
  return E_NOTIMPL;
}

HRESULT ZOLVotTransientStandard::Reserved12() { return Stub(); }
HRESULT ZOLVotTransientStandard::Reserved15() { return Stub(); }
HRESULT ZOLVotTransientStandard::Reserved16() { return Stub(); }
HRESULT ZOLVotTransientStandard::Reserved17() { return Stub(); }
HRESULT ZOLVotTransientStandard::Reserved20() { return Stub(); }
HRESULT ZOLVotTransientStandard::Reserved21() { return Stub(); }
HRESULT ZOLVotTransientStandard::Reserved22() { return Stub(); }
HRESULT ZOLVotTransientStandard::Reserved24() { return E_NOTIMPL; }
HRESULT ZOLVotTransientStandard::Reserved25() { return Stub(); }
HRESULT ZOLVotTransientStandard::Reserved26() { return Stub(); }
void ZOLVotTransientStandard::Reserved27() { Stub(); }
HRESULT ZOLVotTransientStandard::Reserved28() { return Stub(); }

// ---------------------------------------------------------------------------------------------
// Listings and measurements

namespace {

// Orders keys as text, but runs of digits by their number, so that "X.2" comes before "X.10".
bool NaturalLess(const std::string& a, const std::string& b) {
  size_t i = 0, j = 0;
  while (i < a.size() && j < b.size()) {
    bool da = a[i] >= '0' && a[i] <= '9', db = b[j] >= '0' && b[j] <= '9';
    if (da && db) {
      size_t ie = i, je = j;
      while (ie < a.size() && a[ie] >= '0' && a[ie] <= '9') ++ie;
      while (je < b.size() && b[je] >= '0' && b[je] <= '9') ++je;
      if (ie - i != je - j) return ie - i < je - j;
      int c = a.compare(i, ie - i, b, j, je - j);
      if (c) return c < 0;
      i = ie;
      j = je;
    } else {
      if (a[i] != b[j]) return static_cast<unsigned char>(a[i]) < static_cast<unsigned char>(b[j]);
      ++i;
      ++j;
    }
  }
  return a.size() - i < b.size() - j;
}

std::string Format(int v) { return ZOLUnicodeString().BuildFromNum(v).str(); }
std::string Format(double v) { return ZOLUnicodeString().BuildFromNum(v, "%.10g").str(); }

template <class T>
std::string Join(const std::vector<T>& values) {
  std::string text;
  for (const T& v : values) {
    if (!text.empty()) text += ' ';
    text += Format(v);
  }
  return text;
}

}  // namespace

void ZOLVotTransientStandard::ListFiledValues(std::string_view prefix, std::vector<ZOLVotFiledValue>& oValues) const {
  auto wanted = [&](std::string_view key) { return key.substr(0, prefix.size()) == prefix; };
  auto text = [&](ZOLVotSpan s) { return std::string(ZOLVotView(_Chars, s)); };
  _IntValues.ForEach([&](std::string_view k, int v) {
    if (wanted(k)) oValues.push_back({std::string(k), "integer", Format(v)});
  });
  _DoubleValues.ForEach([&](std::string_view k, double v) {
    if (wanted(k)) oValues.push_back({std::string(k), "real", Format(v)});
  });
  _StringValues.ForEach([&](std::string_view k, ZOLVotSpan v) {
    if (wanted(k)) oValues.push_back({std::string(k), "string", text(v)});
  });
  _EnumValues.ForEach([&](std::string_view k, ZOLVotSpan v) {
    if (wanted(k)) oValues.push_back({std::string(k), "enum", text(v)});
  });
  _IntArrays.ForEach([&](std::string_view k, const std::vector<int>& v) {
    if (wanted(k)) oValues.push_back({std::string(k), "integers", Join(v)});
  });
  _DoubleArrays.ForEach([&](std::string_view k, const std::vector<double>& v) {
    if (wanted(k)) oValues.push_back({std::string(k), "reals", Join(v)});
  });
  _StringArrays.ForEach([&](std::string_view k, const std::vector<ZOLVotSpan>& v) {
    if (!wanted(k)) return;
    std::string joined;
    for (size_t i = 0; i < v.size(); ++i) joined += (i ? " " : "") + text(v[i]);
    oValues.push_back({std::string(k), "strings", joined});
  });
  std::stable_sort(oValues.begin(), oValues.end(),
                   [](const ZOLVotFiledValue& a, const ZOLVotFiledValue& b) { return NaturalLess(a.key, b.key); });
}

size_t ZOLVotTransientStandard::MemoryBytes() const {
  size_t bytes = sizeof(*this) + _Chars.capacity() + _Keys.capacity() + _Nodes.capacity() * sizeof(Node);
  bytes += _EnumDefinitions.SlotBytes() + _IntValues.SlotBytes() + _IntArrays.SlotBytes() + _DoubleValues.SlotBytes() +
           _DoubleArrays.SlotBytes() + _StringValues.SlotBytes() + _EnumValues.SlotBytes() +
           _StringArrays.SlotBytes() + _NodeCache.SlotBytes();
  _EnumDefinitions.ForEach([&](std::string_view, const std::vector<ZOLVotSpan>& v) { bytes += v.capacity() * sizeof(ZOLVotSpan); });
  _IntArrays.ForEach([&](std::string_view, const std::vector<int>& v) { bytes += v.capacity() * sizeof(int); });
  _DoubleArrays.ForEach([&](std::string_view, const std::vector<double>& v) { bytes += v.capacity() * sizeof(double); });
  _StringArrays.ForEach([&](std::string_view, const std::vector<ZOLVotSpan>& v) { bytes += v.capacity() * sizeof(ZOLVotSpan); });
  return bytes;
}
