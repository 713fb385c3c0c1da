// The store of a standard object: the walk of its tree, its keys, the reading of value texts and
// the listing of what it filed.
#include "standard/ZOLVotStandardStore.h"

#include <algorithm>
#include <charconv>
#include <climits>
#include <cstring>
#include <stdexcept>

#include "ZOLUnicodeString.h"

namespace {

using Kind = ZOLDftStdElement;
using Node = ZOLVotStandardNode;

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

std::string_view ZOLVotStandardStore::ParentOf(std::string_view path) {
  const void* dot = path.empty() ? nullptr : memrchr(path.data(), '.', path.size());
  return {path.data(), dot ? static_cast<size_t>(static_cast<const char*>(dot) - path.data()) : 0};
}

std::string_view ZOLVotStandardStore::Type(const Node& n) const {
  if (n.kind == Kind::Unknown) return {_Chars.data() + n.typeOff, n.typeLen};
  return ZOLDftStdElementQualifiedName(n.kind);
}

const Node* ZOLVotStandardStore::FindChild(uint32_t first, std::string_view name) const {
  for (const Node* c = At(first); c; c = At(c->nextSibling))
    if (Name(*c) == name) return c;
  return nullptr;
}

const Node* ZOLVotStandardStore::FindNode(std::string_view path, int index) {
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
  if (result) _NodeCache[_NodeKey] = static_cast<uint32_t>(result - _Nodes.data());
  return result;
}

std::string_view ZOLVotStandardStore::MakeKey(std::string_view path, int index) {
  char suffix[16] = {'.', static_cast<char>('0' + index)};
  size_t count = 2;
  if (index < 1 || index > 9) count = static_cast<size_t>(std::to_chars(suffix + 1, suffix + sizeof suffix, index).ptr - suffix);
  // Never more than the buffer; said so that the optimiser does not look for longer copies.
  return JoinKey(path, {suffix, std::min(count, sizeof suffix)});
}

std::string_view ZOLVotStandardStore::JoinKey(std::string_view head, std::string_view tail) {
  const size_t size = head.size() + tail.size();
  // The buffer only grows; the view gives the key its length.
  if (_Key.size() < size) _Key.resize(size + 32);
  char* key = _Key.data();
  ZOLVotCopy(key, head.data(), head.size());
  ZOLVotCopy(key + head.size(), tail.data(), tail.size());
  return {key, size};
}

int ZOLVotStandardStore::ReadInt(std::string_view text) {
  int v = 0;
  if (!ReadPlainInt(text, v)) ZOLUnicodeString(text).ConvertToNum(&v, "%d");
  return v;
}

double ZOLVotStandardStore::ReadReal(std::string_view text) {
  double d = 0.0;
  if (!ReadPlainReal(text, d)) ZOLUnicodeString(text).ConvertToNum(&d, "%le");
  return d;
}

void ZOLVotStandardStore::SplitColor(std::string_view text, std::vector<int>& oValues) {
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

void ZOLVotStandardStore::ListFiledValues(std::string_view prefix, std::vector<ZOLVotFiledValue>& oValues) const {
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

size_t ZOLVotStandardStore::MemoryBytes() const {
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
