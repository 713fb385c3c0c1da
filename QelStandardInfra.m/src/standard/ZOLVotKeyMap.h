// Hash map from text keys to values for the caches of a standard object. The keys live in the
// object's character store (one block, addressed by offsets, so that it may grow); lookups take
// a string_view and build nothing. Open addressing with linear probing and backward-shift erase.
#pragma once
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Offset and length of a text in a character store.
struct ZOLVotSpan {
  uint32_t off = 0;
  uint32_t len = 0;
};

/// Copies n bytes, at least K and at most 2K, as two moves of K bytes that may overlap.
template <size_t K>
[[gnu::always_inline]] inline void ZOLVotCopyEnds(char* d, const char* s, size_t n) {
  char a[K], b[K];
  std::memcpy(a, s, K);
  std::memcpy(b, s + n - K, K);
  std::memcpy(d, a, K);
  std::memcpy(d + n - K, b, K);
}

/// Copies n bytes; short texts, the usual case, by two moves of a fixed size, longer ones by
/// memcpy. No loop: the branches go by size class only.
[[gnu::always_inline]] inline void ZOLVotCopy(char* d, const char* s, size_t n) {
  if (n <= 16) {
    if (n >= 8) {
      ZOLVotCopyEnds<8>(d, s, n);
    } else if (n >= 4) {
      ZOLVotCopyEnds<4>(d, s, n);
    } else if (n > 0) {
      const char first = s[0], middle = s[n / 2], last = s[n - 1];
      d[0] = first;
      d[n / 2] = middle;
      d[n - 1] = last;
    }
  } else if (n <= 32) {
    ZOLVotCopyEnds<16>(d, s, n);
  } else if (n <= 64) {
    ZOLVotCopyEnds<32>(d, s, n);
  } else {
    std::memcpy(d, s, n);
  }
}

/// Whether n bytes are equal; short texts word by word, longer ones by memcmp.
inline bool ZOLVotSameBytes(const char* a, const char* b, size_t n) {
  if (n > 64) return std::memcmp(a, b, n) == 0;
  uint64_t x, y;
  if (n >= 8) {
    for (size_t i = 0; i + 8 < n; i += 8) {
      std::memcpy(&x, a + i, 8);
      std::memcpy(&y, b + i, 8);
      if (x != y) return false;
    }
    std::memcpy(&x, a + n - 8, 8);
    std::memcpy(&y, b + n - 8, 8);
    return x == y;
  }
  for (size_t i = 0; i < n; ++i)
    if (a[i] != b[i]) return false;
  return true;
}

/// The character store of a standard object: one growing block of names, values and keys,
/// addressed by offsets so that it may move. Appends copy short texts inline: a load makes a
/// few of them per element.
class ZOLVotChars {
public:
  /// The first character.
  const char* data() const { return _data.get(); }
  /// Characters stored.
  size_t size() const { return _size; }
  /// Characters that fit without growing.
  size_t capacity() const { return _capacity; }
  /// Makes room for n characters in all.
  void reserve(size_t n) {
    if (n > _capacity) Reallocate(n);
  }
  /// Drops the characters from n on; n is at most size().
  void Truncate(size_t n) { _size = n; }
  /// All the characters, as a view valid until the next change.
  std::string_view View() const { return {_data.get(), _size}; }
  /// Copies text, which may lie in the store itself, to the end; the span of the copy.
  [[gnu::always_inline]] ZOLVotSpan Append(std::string_view text) {
    const size_t n = text.size();
    if (n > _capacity - _size) return AppendGrowing(text);
    ZOLVotCopy(_data.get() + _size, text.data(), n);
    ZOLVotSpan span{static_cast<uint32_t>(_size), static_cast<uint32_t>(n)};
    _size += n;
    return span;
  }

  /// As Append, for text whose buffer may be read K bytes from its start whatever its length:
  /// a short text then takes one fixed-size copy, with no branch on its length.
  template <size_t K = 64>
  [[gnu::always_inline]] ZOLVotSpan AppendPadded(std::string_view text) {
    const size_t n = text.size();
    if (n > K || K > _capacity - _size) return Append(text);
    char* d = _data.get() + _size;
    char block[K];
    std::memcpy(block, text.data(), K);
    std::memcpy(d, block, K);
    ZOLVotSpan span{static_cast<uint32_t>(_size), static_cast<uint32_t>(n)};
    _size += n;
    return span;
  }

private:
  [[gnu::noinline]] ZOLVotSpan AppendGrowing(std::string_view text) {
    // The old block stays until text, which may lie in it, is copied.
    std::unique_ptr<char[]> old = Reallocate(std::max(_capacity * 2, _size + text.size()) + 64);
    return Append(text);
  }

  // Moves the characters to a block of the given capacity; the old block.
  std::unique_ptr<char[]> Reallocate(size_t capacity) {
    std::unique_ptr<char[]> data = std::make_unique_for_overwrite<char[]>(capacity);
    if (_size) std::memcpy(data.get(), _data.get(), _size);
    std::swap(_data, data);
    _capacity = capacity;
    return data;
  }

  std::unique_ptr<char[]> _data;
  size_t _size = 0;
  size_t _capacity = 0;
};

/// A text of a character store.
inline std::string_view ZOLVotView(const ZOLVotChars& chars, ZOLVotSpan s) { return {chars.data() + s.off, s.len}; }

/// Copies text to the end of a character store; the span of the copy.
[[gnu::always_inline]] inline ZOLVotSpan ZOLVotStore(ZOLVotChars& chars, std::string_view text) { return chars.Append(text); }

namespace ZOLVotHashDetail {
inline uint64_t Mix(uint64_t a, uint64_t b) {
  unsigned __int128 r = static_cast<unsigned __int128>(a) * b;
  return static_cast<uint64_t>(r) ^ static_cast<uint64_t>(r >> 64);
}
inline uint64_t Read8(const char* p) {
  uint64_t v;
  std::memcpy(&v, p, 8);
  return v;
}
inline uint64_t Read4(const char* p) {
  uint32_t v;
  std::memcpy(&v, p, 4);
  return v;
}
}  // namespace ZOLVotHashDetail

/// The secret of this process's hashes, drawn from the system's random source at load (before
/// any other static of the library is made): names chosen to collide under one process's hash do
/// not collide under another's.
extern uint64_t g_ZOLVotHashSecret;

/// A fast hash of short texts (multiply-and-fold over sixteen bytes a round) under a secret;
/// never 0, which marks an empty slot. The secret enters every multiplication, so that no input
/// zeroes one whatever the secret.
inline uint64_t ZOLVotHashWithSecret(std::string_view s, uint64_t secret) {
  using namespace ZOLVotHashDetail;
  constexpr uint64_t k0 = 0xa0761d6478bd642full, k1 = 0xe7037ed1a0b428dbull, k2 = 0x8ebc6af09c88c6e3ull;
  const char* p = s.data();
  const size_t n = s.size();
  uint64_t seed = k0 ^ Mix(n ^ k0 ^ secret, k1);
  uint64_t a = 0, b = 0;
  if (n <= 16) {
    if (n >= 4) {
      const size_t mid = (n >> 3) << 2;
      a = Read4(p) << 32 | Read4(p + mid);
      b = Read4(p + n - 4) << 32 | Read4(p + n - 4 - mid);
    } else if (n > 0) {
      a = static_cast<uint64_t>(static_cast<unsigned char>(p[0])) << 16 |
          static_cast<uint64_t>(static_cast<unsigned char>(p[n >> 1])) << 8 | static_cast<unsigned char>(p[n - 1]);
    }
  } else {
    size_t i = n;
    for (; i > 16; i -= 16, p += 16) seed = Mix(Read8(p) ^ k1 ^ secret, Read8(p + 8) ^ seed);
    a = Read8(p + i - 16);
    b = Read8(p + i - 8);
  }
  uint64_t h = Mix(k1 ^ n ^ secret, Mix(a ^ k1 ^ secret, b ^ seed) ^ k2);
  return h ? h : 1;
}

/// The hash of the key maps: under this process's secret.
inline uint64_t ZOLVotHash(std::string_view s) { return ZOLVotHashWithSecret(s, g_ZOLVotHashSecret); }

template <class V>
class ZOLVotKeyMap {
public:
  explicit ZOLVotKeyMap(ZOLVotChars& chars) : _chars(&chars) {}

  /// The value under key, or null.
  V* Find(std::string_view key) { return Find(key, ZOLVotHash(key)); }
  const V* Find(std::string_view key) const { return const_cast<ZOLVotKeyMap*>(this)->Find(key); }
  /// The value under key whose ZOLVotHash is h, or null.
  V* Find(std::string_view key, uint64_t h) {
    if (_slots.empty()) return nullptr;
    for (size_t i = h & _mask;; i = (i + 1) & _mask) {
      Slot& s = _slots[i];
      if (s.hash == 0) return nullptr;
      if (s.hash == h && Equal(s, key)) return &s.value;
    }
  }

  /// The value under key, made (value-initialised) if absent; the key is copied to the store.
  V& operator[](std::string_view key) { return Get(key, ZOLVotHash(key)); }
  /// As operator[], for a key whose ZOLVotHash is h.
  V& Get(std::string_view key, uint64_t h) {
    return Insert(key, h, [&] { return ZOLVotStore(*_chars, key); }).value;
  }
  /// As Get, for a key that lies in the store already: a new entry keeps that copy.
  V& Adopt(ZOLVotSpan key, uint64_t h) {
    return Insert(ZOLVotView(*_chars, key), h, [key] { return key; }).value;
  }

  /// Removes key; 1 if it was there.
  int Erase(std::string_view key) { return Erase(key, ZOLVotHash(key)); }
  /// Removes key whose ZOLVotHash is h; 1 if it was there.
  int Erase(std::string_view key, uint64_t h) {
    if (_slots.empty()) return 0;
    size_t i = h & _mask;
    for (;; i = (i + 1) & _mask) {
      if (_slots[i].hash == 0) return 0;
      if (_slots[i].hash == h && Equal(_slots[i], key)) break;
    }
    // Backward shift: pull later members of the probe run into the hole.
    size_t hole = i;
    for (size_t j = (hole + 1) & _mask; _slots[j].hash != 0; j = (j + 1) & _mask) {
      size_t home = _slots[j].hash & _mask;
      bool movable = hole <= j ? (home <= hole || home > j) : (home <= hole && home > j);
      if (movable) {
        _slots[hole] = std::move(_slots[j]);
        hole = j;
      }
    }
    _slots[hole] = Slot();
    --_count;
    return 1;
  }

  /// Makes room for count keys without growing.
  void Reserve(size_t count) {
    size_t size = _slots.empty() ? 16 : _slots.size();
    while (count * 4 > size * 3) size *= 2;
    if (size != _slots.size()) Rehash(size);
  }

  /// Number of keys.
  size_t Size() const { return _count; }
  /// The longest distance of a key from its home slot, for measurements.
  size_t LongestProbe() const {
    size_t longest = 0;
    for (size_t i = 0; i < _slots.size(); ++i)
      if (_slots[i].hash) longest = std::max(longest, (i - (_slots[i].hash & _mask)) & _mask);
    return longest;
  }
  /// Bytes of the slots (keys and their texts not included).
  size_t SlotBytes() const { return _slots.capacity() * sizeof(Slot); }

  /// Calls f(key, value) for every entry, in no particular order.
  template <class F>
  void ForEach(F f) const {
    for (const Slot& s : _slots)
      if (s.hash) f(ZOLVotView(*_chars, s.key), s.value);
  }

private:
  struct Slot {
    uint64_t hash = 0;
    ZOLVotSpan key;
    V value{};
  };

  // The slot of key, made when absent with the key span that store() gives.
  template <class Store>
  Slot& Insert(std::string_view key, uint64_t h, Store store) {
    if (_count >= _limit) Grow();
    size_t i = h & _mask;
    for (;; i = (i + 1) & _mask) {
      Slot& s = _slots[i];
      if (s.hash == 0) break;
      if (s.hash == h && Equal(s, key)) return s;
    }
    Slot& s = _slots[i];
    s.hash = h;
    s.key = store();
    s.value = V();
    ++_count;
    return s;
  }

  bool Equal(const Slot& s, std::string_view key) const {
    return s.key.len == key.size() && ZOLVotSameBytes(_chars->data() + s.key.off, key.data(), key.size());
  }

  void Grow() { Rehash(_slots.empty() ? 16 : _slots.size() * 2); }

  // Moves the entries to a table of size slots, a power of two that holds them.
  void Rehash(size_t size) {
    std::vector<Slot> old;
    old.swap(_slots);
    _slots.resize(size);
    _limit = size / 4 * 3;
    _mask = size - 1;
    for (Slot& s : old) {
      if (!s.hash) continue;
      size_t i = s.hash & _mask;
      while (_slots[i].hash) i = (i + 1) & _mask;
      _slots[i] = std::move(s);
    }
  }

  ZOLVotChars* _chars;
  std::vector<Slot> _slots;
  size_t _mask = 0;
  size_t _count = 0;
  // The count that makes the table grow: three quarters full.
  size_t _limit = 0;
};
