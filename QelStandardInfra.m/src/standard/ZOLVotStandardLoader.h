// The one-pass load of a standard: takes the elements and text of a document in order, builds
// the node tree in a store and files every value under its key. It holds all the state of a load
// and is dropped when the load is over; the store it filled stays.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ZOLResult.h"
#include "standard/ZOLVotStandardStore.h"

class ZOLISAXAttributes;
class ZOLISAXXMLReader;
class ZOLIXMLInputSource;

class ZOLVotStandardLoader {
public:
  // Bounds of what a load takes, far above any real standard (the built-in ones nest 8 levels and
  // file keys of about half their text): beyond them the load stops with a report, and the store
  // keeps what was read before. Without them a text of deep nesting or long names would cost
  // memory and time quadratic in its size.
  /// Elements open at once.
  static constexpr size_t kMaxDepth = 512;
  /// Bytes of a text.
  static constexpr size_t kMaxTextBytes = size_t{2} << 30;
  /// Bytes of the keys of all values: 64 MiB, and beyond that 64 times what was read (names and
  /// values, and 40 bytes an element), at most 1 GiB.
  static constexpr size_t kFreeKeyBytes = size_t{64} << 20;
  static constexpr size_t kMaxKeyBytes = size_t{1} << 30;

  /// A load into store, which it extends: a store holds one document, so give it a new store
  /// unless a caller drives more than one document into the same object on purpose.
  explicit ZOLVotStandardLoader(ZOLVotStandardStore& store);
  ~ZOLVotStandardLoader();
  ZOLVotStandardLoader(const ZOLVotStandardLoader&) = delete;
  ZOLVotStandardLoader& operator=(const ZOLVotStandardLoader&) = delete;

  /// Sizes the store for a text of that many bytes; refuses a text over kMaxTextBytes.
  void Reserve(size_t textBytes);
  /// Parses the source with the reader, whose content and error handlers are set: the elements
  /// and text come to this loader through the reader's lean lane, and values are filed once the
  /// parse is over. What the parse returns.
  HRESULT Parse(ZOLISAXXMLReader& reader, const ZOLIXMLInputSource& source);

  // The events of a general content handler; values are filed at their end tags. Results: 0 to
  // go on, 1 once the load is refused.
  int StartElement(std::string_view uri, std::string_view local, std::string_view qualified,
                   const ZOLISAXAttributes& attributes);
  int EndElement();
  void Characters(std::string_view text);
  /// 1 once the load was refused.
  bool Refused() const { return _Refused; }

private:
  class LeanLane;
  using Kind = ZOLDftStdElement;

  // The work for a start tag (tag: the qualified name, needed for elements that are none of the
  // dialect's only) and an end tag.
  // 0 to go on, 1 once the load is refused.
  [[gnu::always_inline]] inline int OpenNode(Kind kind, std::string_view name, std::string_view tag);
  [[gnu::always_inline]] inline int CloseNode();
  // Stops the load for good, with a report of why (the first reason only); 1.
  [[gnu::noinline, gnu::cold]] int Refuse(const char* why);
  // The rare part of that work: typed entries and definitions, and the first element after an entry.
  [[gnu::noinline, gnu::cold]] void OpenEntryOrDefinition(Kind kind, std::string_view name);
  [[gnu::noinline, gnu::cold]] void CloseEntryOrDefinition(Kind kind);
  // The work for character data.
  [[gnu::always_inline]] inline void GatherText(std::string_view text);
  // A value to file: its key (path and index) in the store's keys, and whether it is the first
  // at its path since the value before.
  struct PendingValue {
    ZOLVotSpan key;
    uint32_t pathLength;
    ZOLVotSpan text;
    Kind kind;
    bool firstAtPath;
  };
  // Takes down a value's key and text at its end tag; FilePending files what was taken down.
  [[gnu::always_inline]] inline void DeferValue(Kind kind, ZOLVotSpan text);
  void FilePending();
  [[gnu::always_inline]] inline void FileValue(const PendingValue& value);
  // Drops the text gathered since the last start tag or value, reclaiming its characters when
  // nothing was stored after them.
  void DropText() {
    if (_Text.off + _Text.len == _store._Chars.size()) _store._Chars.Truncate(_Text.off);
    _Text = {static_cast<uint32_t>(_store._Chars.size()), 0};
  }

  ZOLVotStandardStore& _store;
  bool _Refused = false;

  struct OpenElement {
    uint32_t node;
    uint32_t lastChild;
    // The path's length before the element added its name, and _PathIrregular then: when no
    // irregular cut came between, the element's end restores that length without a search.
    uint32_t pathBefore;
    uint32_t irregular;
    Kind kind;
    bool nameless;
    bool addedPlainName;  // added a name without dots to the path
  };
  ZOLVotChars _CurrentPath;
  // Counts the changes of _CurrentPath; a value filed with no change since the last is at its path.
  uint32_t _PathChanges = 0;
  // Counts the ends that cut the path at its last dot by search (see OpenElement).
  uint32_t _PathIrregular = 0;
  uint32_t _FiledAtChanges = 0;
  // Values taken down and not filed yet. Parse files them once the parse is over, so that the
  // maps do not compete with the parser for the cache; the general lane files each value at its
  // end tag. Grouped by the maps they go to (integers and colours, reals, strings and enums): the
  // groups share no map, so filing each in its own run, in document order, gives what one run would.
  std::vector<PendingValue> _Pending[3];
  // Values taken down and not filed, by kind: the maps are sized for them just before filing,
  // so that their slots are fresh in the cache when filled.
  uint32_t _PendingCounts[kZOLDftStdElementCount + 1] = {};
  // The path of the last value taken down, in the store's keys; empty before the first.
  ZOLVotSpan _LastValuePath;
  bool _DeferFiling = false;
  // The character data since the last start tag or value, gathered straight into the store while
  // a value element is open (no other text is ever read).
  ZOLVotSpan _Text;
  int _OpenValues = 0;
  std::vector<OpenElement> _Open;
  int _TypevalIndex = 1;
  unsigned char _TypevalClosed = 0;
  std::optional<std::string> _TypevalName;
  std::optional<std::string> _TypedefName;
  std::optional<std::string> _EnumdefName;
  std::vector<ZOLVotSpan> _EnumdefValues;
  // "." and the typed-entry index, written again only when the index changes.
  char _Suffix[16] = {};
  uint8_t _SuffixLength = 0;
  int _SuffixIndex = 0;
};
