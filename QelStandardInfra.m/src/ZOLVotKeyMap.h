// Hash map from text keys to values for the caches of a standard object. The keys live in the
// object's character store (one string, addressed by offsets, so that it may grow); lookups take
// a string_view and build nothing. Open addressing with linear probing and backward-shift erase.
#pragma once
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Offset and length of a text in a character store.
struct ZOLVotSpan {
  uint32_t off = 0;
  uint32_t len = 0;
};

/// A text of a character store.
inline std::string_view ZOLVotView(const std::string& chars, ZOLVotSpan s) { return {chars.data() + s.off, s.len}; }

/// Copies text to the end of a character store; the span of the copy.
inline ZOLVotSpan ZOLVotStore(std::string& chars, std::string_view text) {
  ZOLVotSpan s{static_cast<uint32_t>(chars.size()), static_cast<uint32_t>(text.size())};
  chars.append(text.data(), text.size());
  return s;
}

/// A fast hash of short texts; never 0, which marks an empty slot.
inline uint64_t ZOLVotHash(std::string_view s) {
  const char* p = s.data();
  size_t n = s.size();
  uint64_t h = 0x9E3779B97F4A7C15ull ^ (n * 0xff51afd7ed558ccdull);
  while (n >= 8) {
    uint64_t v;
    std::memcpy(&v, p, 8);
    h = (h ^ v) * 0xbf58476d1ce4e5b9ull;
    h ^= h >> 31;
    p += 8;
    n -= 8;
  }
  if (n) {
    uint64_t v = 0;
    std::memcpy(&v, p, n);
    h = (h ^ v) * 0x94d049bb133111ebull;
  }
  h ^= h >> 29;
  h *= 0xbf58476d1ce4e5b9ull;
  h ^= h >> 32;
  return h ? h : 1;
}

template <class V>
class ZOLVotKeyMap {
public:
  explicit ZOLVotKeyMap(std::string& chars) : _chars(&chars) {}

  /// The value under key, or null.
  V* Find(std::string_view key) {
    if (_slots.empty()) return nullptr;
    uint64_t h = ZOLVotHash(key);
    for (size_t i = h & _mask;; i = (i + 1) & _mask) {
      Slot& s = _slots[i];
      if (s.hash == 0) return nullptr;
      if (s.hash == h && Equal(s, key)) return &s.value;
    }
  }
  const V* Find(std::string_view key) const { return const_cast<ZOLVotKeyMap*>(this)->Find(key); }

  /// The value under key, made (value-initialised) if absent; the key is copied to the store.
  V& operator[](std::string_view key) {
    if ((_count + 1) * 4 > _slots.size() * 3) Grow();
    uint64_t h = ZOLVotHash(key);
    size_t i = h & _mask;
    for (;; i = (i + 1) & _mask) {
      Slot& s = _slots[i];
      if (s.hash == 0) break;
      if (s.hash == h && Equal(s, key)) return s.value;
    }
    Slot& s = _slots[i];
    s.hash = h;
    s.key = ZOLVotStore(*_chars, key);
    s.value = V();
    ++_count;
    return s.value;
  }

  /// Removes key; 1 if it was there.
  int Erase(std::string_view key) {
    if (_slots.empty()) return 0;
    uint64_t h = ZOLVotHash(key);
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
    while (count * 4 > _slots.size() * 3) Grow();
  }

  /// Number of keys.
  size_t Size() const { return _count; }
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

  bool Equal(const Slot& s, std::string_view key) const {
    return s.key.len == key.size() && std::memcmp(_chars->data() + s.key.off, key.data(), key.size()) == 0;
  }

  void Grow() {
    std::vector<Slot> old;
    old.swap(_slots);
    size_t size = old.empty() ? 16 : old.size() * 2;
    _slots.resize(size);
    _mask = size - 1;
    for (Slot& s : old) {
      if (!s.hash) continue;
      size_t i = s.hash & _mask;
      while (_slots[i].hash) i = (i + 1) & _mask;
      _slots[i] = std::move(s);
    }
  }

  std::string* _chars;
  std::vector<Slot> _slots;
  size_t _mask = 0;
  size_t _count = 0;
};
