// The one-pass load of a standard object: element kinds told by name, the path of the open
// element, values taken down at their end tags and filed into the store's maps.
#include "standard/ZOLVotStandardLoader.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cstring>
#include <initializer_list>
#include <iterator>

#include "ZOLSysLog.h"
#include "ZOLXMLSAX.h"
#include "detail/ZOLXMLSAXLean.h"

namespace {

using Kind = ZOLDftStdElement;
using Node = ZOLVotStandardNode;

// The element of a name of the dialect's namespace, by its local name; Unknown in another
// namespace, whatever its prefix.
Kind KindOf(std::string_view uri, std::string_view local) {
  return uri == ZOLDftStdNamespaceURI ? ZOLDftStdElementOfLocalName(local) : Kind::Unknown;
}

uint64_t Load8(const char* p) {
  uint64_t v;
  std::memcpy(&v, p, 8);
  return v;
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
static_assert(kZOLDftStdElementCount < 32);

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

// Cuts a path before its last "."; a path without one becomes empty.
void RemoveLastComponent(ZOLVotChars& path) { path.Truncate(ZOLVotStandardStore::ParentOf(path.View()).size()); }

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

}  // namespace

// The load's own lane through the reader: element kinds and the "name" attribute are told apart
// by the address of their names in the parser's dictionary, with the text compared only for
// names that are not the usual ones. Same results as the content handler's lane.
class ZOLVotStandardLoader::LeanLane final : public ZOLISAXLeanContentHandler {
public:
  explicit LeanLane(ZOLVotStandardLoader& loader) : _loader(loader) {}

  int StartParse(const ZOLISAXDictionary& dictionary) override {
    _uri = dictionary.Intern(ZOLDftStdNamespaceURI);
    _name = dictionary.Intern("name");
    // Each kind's local name in the first free slot from the one its address hashes to; a name
    // the dictionary could not hold is found by its text.
    for (size_t k = 0; k < kZOLDftStdElementCount; ++k) {
      const char* local = dictionary.Intern(ZOLDftStdElementLocalName(static_cast<Kind>(k)));
      if (!local) continue;
      size_t i = SlotOf(local);
      while (_slots[i].local && _slots[i].local != local) i = (i + 1) % kSlots;
      _slots[i] = {local, static_cast<Kind>(k)};
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
    // The parser keeps namespace names in its dictionary: one address for the dialect's.
    if (_uri && element.uri == _uri) {
      const size_t i = SlotOf(element.local);
      if (_slots[i].local == element.local) [[likely]] return _loader.OpenNode(_slots[i].kind, name, {});
      if (_slots[i].local) return OpenFromSlot(i, element, name);
    }
    return OpenByText(element, name);
  }

  [[gnu::always_inline]] int EndElement(const ZOLSAXName&) override { return _loader.CloseNode(); }

  [[gnu::always_inline]] int Characters(std::string_view text) override {
    _loader.GatherText(text);
    return 0;
  }

  const ZOLSAXLeanCallbacks* DirectCallbacks() const override { return &ZOLSAXDirectLane<LeanLane>::kCallbacks; }

private:
  static constexpr size_t kSlots = 128;
  struct Slot {
    const char* local = nullptr;
    Kind kind = Kind::Unknown;
  };
  // A kind that found its home slot taken, or another name: looked for in the slots that follow.
  [[gnu::noinline, gnu::cold]] int OpenFromSlot(size_t i, const ZOLSAXName& element, std::string_view name) {
    for (i = (i + 1) % kSlots; _slots[i].local; i = (i + 1) % kSlots)
      if (_slots[i].local == element.local) return _loader.OpenNode(_slots[i].kind, name, {});
    return OpenByText(element, name);
  }
  // Another name, or one the dictionary does not hold: told by its text.
  [[gnu::noinline, gnu::cold]] int OpenByText(const ZOLSAXName& element, std::string_view name) {
    _tag.clear();
    if (element.prefix) _tag.append(element.prefix).append(1, ':');
    _tag.append(element.local);
    return _loader.OpenNode(KindOf(element.uri ? element.uri : "", element.local), name, _tag);
  }
  // The top bits of the address times the golden ratio: where the dictionary puts names does not
  // decide which kinds share a slot.
  static size_t SlotOf(const char* p) {
    static_assert(kSlots == 128);
    return static_cast<size_t>((reinterpret_cast<uintptr_t>(p) * 0x9E3779B97F4A7C15ull) >> 57);
  }

  ZOLVotStandardLoader& _loader;
  const char* _uri = nullptr;
  const char* _name = nullptr;
  Slot _slots[kSlots];
  std::string _tag;
};

ZOLVotStandardLoader::ZOLVotStandardLoader(ZOLVotStandardStore& store) : _store(store) {}

ZOLVotStandardLoader::~ZOLVotStandardLoader() = default;

void ZOLVotStandardLoader::Reserve(size_t textBytes) {
  if (textBytes > kMaxTextBytes) {
    Refuse("Refused: text larger than 2 GiB");
    return;
  }
  // Sized once from the text: a standard has an element per 45 bytes or so, its names and values
  // come to under a third of the text and its keys to a little over a half. Growing by doubling
  // instead would copy and touch twice the memory.
  _store._Nodes.reserve(textBytes / 40 + 16);
  _store._Chars.reserve(textBytes / 3 + 256);
  _store._Keys.reserve(textBytes / 2 + textBytes / 8 + 256);
  // From the share of each kind of value in a typical standard.
  _Pending[0].reserve(textBytes / 192 + 16);
  _Pending[1].reserve(textBytes / 320 + 16);
  _Pending[2].reserve(textBytes / 128 + 16);
}

HRESULT ZOLVotStandardLoader::Parse(ZOLISAXXMLReader& reader, const ZOLIXMLInputSource& source) {
  if (_Refused) return E_FAIL;
  // Elements and text take the lean lane where the reader has one; the content handler keeps the rest.
  LeanLane lean(*this);
  ZOLSAXSetLeanContentHandler(reader, &lean);
  _DeferFiling = true;
  const HRESULT hr = reader.Parse(source);
  _DeferFiling = false;
  // A malformed colour throws from here, out of the load.
  FilePending();
  return hr;
}

int ZOLVotStandardLoader::StartElement(std::string_view uri, std::string_view local, std::string_view qualified,
                                       const ZOLISAXAttributes& attributes) {
  std::string_view name;
  attributes.GetValue("name", name);
  return OpenNode(KindOf(uri, local), name, qualified);
}

int ZOLVotStandardLoader::EndElement() { return CloseNode(); }

void ZOLVotStandardLoader::Characters(std::string_view text) { GatherText(text); }

int ZOLVotStandardLoader::Refuse(const char* why) {
  if (!_Refused) ZOLAssertMessage(why);
  _Refused = true;
  return 1;
}

int ZOLVotStandardLoader::OpenNode(Kind kind, std::string_view name, std::string_view tag) {
  if (_Open.size() >= kMaxDepth || (_Open.empty() && kind != Kind::Node)) [[unlikely]]
    return Refuse(_Open.empty() ? "Refused: root is not a dialect node" : "Refused: nests deeper than 512 levels");
  DropText();
  Node node;
  node.kind = kind;
  node.name = ZOLVotStore(_store._Chars, name);
  if (kind == Kind::Unknown) {
    ZOLVotSpan type = ZOLVotStore(_store._Chars, tag.substr(0, UINT16_MAX));
    node.typeOff = type.off;
    node.typeLen = static_cast<uint16_t>(type.len);
  }
  _store._Nodes.push_back(node);
  OpenElement& open = _Open.emplace_back();
  open.node = static_cast<uint32_t>(_store._Nodes.size() - 1);
  open.lastChild = Node::kNone;
  open.irregular = _PathIrregular;
  open.kind = kind;
  open.nameless = name.empty();
  open.addedPlainName = false;
  if (IsValueKind(kind)) {
    ++_OpenValues;
    _Text = {static_cast<uint32_t>(_store._Chars.size()), 0};
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
  return 0;
}

void ZOLVotStandardLoader::OpenEntryOrDefinition(Kind kind, std::string_view name) {
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

void ZOLVotStandardLoader::GatherText(std::string_view text) {
  if (_OpenValues == 0) return;
  // Anything stored since the last piece: move the gathered text to the end so that it stays in
  // one run.
  if (_Text.len && _Text.off + _Text.len != _store._Chars.size()) _Text = ZOLVotStore(_store._Chars, ZOLVotView(_store._Chars, _Text));
  if (!_Text.len) _Text.off = static_cast<uint32_t>(_store._Chars.size());
  _Text.len += ZOLVotStore(_store._Chars, text).len;
}

int ZOLVotStandardLoader::CloseNode() {
  if (_Open.empty()) return 0;
  // The end tag names the element that its start tag named.
  const OpenElement closing = _Open.back();
  const Kind kind = closing.kind;
  const bool isValue = IsValueKind(kind);
  const ZOLVotSpan text = _Text;
  if (isValue) {
    --_OpenValues;
    _store._Nodes[closing.node].value = text;
  }

  // A closed node joins its parent's children; the document element becomes the root.
  _Open.pop_back();
  if (_Open.empty()) {
    _store._Root = closing.node;
  } else {
    OpenElement& parent = _Open.back();
    if (parent.lastChild == Node::kNone) _store._Nodes[parent.node].firstChild = closing.node;
    else _store._Nodes[parent.lastChild].nextSibling = closing.node;
    parent.lastChild = closing.node;
  }

  if (isValue) {
    if (_EnumdefName || _TypedefName) [[unlikely]] {
      if (_EnumdefName) _EnumdefValues.push_back(text);
    } else {
      if (_store._Keys.size() > kFreeKeyBytes) [[unlikely]] {
        // Both lanes hold the same names and values at this point, so they refuse at the same value.
        const size_t read = _store._Chars.size() + 40 * _store._Nodes.size();
        if (_store._Keys.size() > std::min(kMaxKeyBytes, 64 * read + kFreeKeyBytes)) return Refuse("Refused: keys of values too large");
      }
      DeferValue(kind, text);
      if (!_DeferFiling) [[unlikely]] FilePending();
    }
    // The value keeps its characters; what follows gathers anew.
    _Text = {static_cast<uint32_t>(_store._Chars.size()), 0};
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
  return 0;
}

void ZOLVotStandardLoader::CloseEntryOrDefinition(Kind kind) {
  if (kind == Kind::EnumDef) {
    // Copied, so that the list keeps its room for the next definition.
    _store._EnumDefinitions[_EnumdefName ? *_EnumdefName : std::string()] = _EnumdefValues;
    _EnumdefValues.clear();
    _EnumdefName.reset();
  } else if (kind == Kind::TypeDef) {
    _TypedefName.reset();
  } else {
    _TypevalClosed = 1;
  }
}

void ZOLVotStandardLoader::DeferValue(Kind kind, ZOLVotSpan text) {
  const int n = _TypevalIndex;
  if (n != _SuffixIndex) {
    _SuffixIndex = n;
    _Suffix[0] = '.';
    _SuffixLength = static_cast<uint8_t>(std::to_chars(_Suffix + 1, _Suffix + sizeof _Suffix, n).ptr - _Suffix);
  }
  const std::string_view path = _CurrentPath.View();
  bool first = false;
  if (_PathChanges != _FiledAtChanges) {
    const std::string_view previous = ZOLVotView(_store._Keys, _LastValuePath);
    first = path.size() != previous.size() || !ZOLVotSameBytes(path.data(), previous.data(), path.size());
  }
  _FiledAtChanges = _PathChanges;
  // Keys are copied in blocks of 64 bytes (see AppendPadded): both stores keep that much room.
  if (_CurrentPath.capacity() - path.size() < 64) _CurrentPath.reserve(path.size() + 128);
  if (_store._Keys.capacity() - _store._Keys.size() < path.size() + sizeof _Suffix + 64)
    _store._Keys.reserve(2 * _store._Keys.capacity() + path.size() + 128);
  ZOLVotSpan key = _store._Keys.AppendPadded(_CurrentPath.View());
  key.len += _store._Keys.AppendPadded<sizeof _Suffix>({_Suffix, _SuffixLength}).len;
  static constexpr uint8_t kGroup[] = {0, 0, 0, 1, 2, 2, 0, 0, 0, 0};  // by ZOLDftStdElement, Unknown last
  static_assert(std::size(kGroup) == kZOLDftStdElementCount + 1);
  _Pending[kGroup[static_cast<int>(kind)]].push_back({key, static_cast<uint32_t>(path.size()), text, kind, first});
  ++_PendingCounts[static_cast<int>(kind)];
  _LastValuePath = {key.off, static_cast<uint32_t>(path.size())};
}

void ZOLVotStandardLoader::FilePending() {
  const uint32_t* count = _PendingCounts;
  _store._IntValues.Reserve(_store._IntValues.Size() + count[static_cast<int>(Kind::IntVal)]);
  _store._DoubleValues.Reserve(_store._DoubleValues.Size() + count[static_cast<int>(Kind::FloatVal)]);
  _store._StringValues.Reserve(_store._StringValues.Size() + count[static_cast<int>(Kind::StrVal)]);
  _store._EnumValues.Reserve(_store._EnumValues.Size() + count[static_cast<int>(Kind::EnumVal)]);
  _store._IntArrays.Reserve(_store._IntArrays.Size() + count[static_cast<int>(Kind::ColorVal)]);
  std::fill(std::begin(_PendingCounts), std::end(_PendingCounts), 0);
  for (std::vector<PendingValue>& group : _Pending) {
    for (const PendingValue& value : group) FileValue(value);
    group.clear();
  }
}

void ZOLVotStandardLoader::FileValue(const PendingValue& value) {
  const Kind kind = value.kind;
  const ZOLVotSpan span = value.text;
  const std::string_view text = ZOLVotView(_store._Chars, span);
  // The bare path starts the key: an array's key is that part of the value's.
  const std::string_view key = ZOLVotView(_store._Keys, value.key);
  const std::string_view path(key.data(), value.pathLength);
  const ZOLVotSpan pathKey{value.key.off, value.pathLength};
  if (kind == Kind::ColorVal) {
    // A colour is keyed by the bare path, and only its first value at a path counts.
    if (value.firstAtPath) {
      std::vector<int> rgb;
      rgb.reserve(3);
      ZOLVotStandardStore::SplitColor(text, rgb);
      _store._IntArrays.Adopt(pathKey, ZOLVotHash(path)) = std::move(rgb);
    }
    return;
  }
  const uint64_t h = ZOLVotHash(key);
  if (value.firstAtPath) {
    switch (kind) {
      case Kind::IntVal:
        _store._IntValues.Adopt(value.key, h) = ZOLVotStandardStore::ReadInt(text);
        break;
      case Kind::FloatVal:
        _store._DoubleValues.Adopt(value.key, h) = ZOLVotStandardStore::ReadReal(text);
        break;
      case Kind::StrVal:
        _store._StringValues.Adopt(value.key, h) = span;
        break;
      case Kind::EnumVal:
        // The enum value's name is its type, not a path component: filed under the parent node.
        // The new key may move the store: it is made apart first.
        _store._EnumValues[_store.JoinKey(ZOLVotStandardStore::ParentOf(path), key.substr(path.size()))] = span;
        break;
      default:
        break;
    }
  } else {
    // One more value at the same path: the values form an array under the bare path.
    switch (kind) {
      case Kind::IntVal:
        AddToArray(_store._IntValues, _store._IntArrays, key, h, pathKey, ZOLVotStandardStore::ReadInt(text));
        break;
      case Kind::FloatVal:
        AddToArray(_store._DoubleValues, _store._DoubleArrays, key, h, pathKey, ZOLVotStandardStore::ReadReal(text));
        break;
      case Kind::StrVal:
      case Kind::EnumVal:
        AddToArray(_store._StringValues, _store._StringArrays, key, h, pathKey, span);
        break;
      default:
        break;
    }
  }
}

