// Reads flat legacy standard files line by line; a fault skips what it concerns and reading goes on.
#include "upgrade/ZOLDrwFlatReader.h"

#include <string>

#include "ZOLDrwParseParameter.h"
#include "upgrade/ZOLDrwKeywordTable.h"

namespace {

using Fault = ZOLDrwParseStandard::FlatFault;

constexpr std::string_view kBlanks = " \t";

std::string_view Trim(std::string_view s) {
  const size_t first = s.find_first_not_of(" \t\r");
  if (first == std::string_view::npos) return {};
  return s.substr(first, s.find_last_not_of(" \t\r") - first + 1);
}

// Well-formed UTF-8 of characters that XML allows: the value goes into the tree's text as it stands.
bool IsXmlText(std::string_view s) {
  for (size_t i = 0; i < s.size();) {
    const auto byte = [&](size_t k) { return static_cast<unsigned char>(s[k]); };
    const unsigned char c = byte(i);
    if (c < 0x80) {
      ++i;
      continue;
    }
    const int length = c >= 0xF0 ? 4 : c >= 0xE0 ? 3 : c >= 0xC2 ? 2 : 0;
    if (length == 0 || c > 0xF4 || i + length > s.size()) return false;
    unsigned code = c & (0x7F >> length);
    for (int k = 1; k < length; ++k) {
      if ((byte(i + k) & 0xC0) != 0x80) return false;
      code = (code << 6) | (byte(i + k) & 0x3F);
    }
    const unsigned least[] = {0, 0, 0x80, 0x800, 0x10000};
    if (code < least[length] || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF) || code == 0xFFFE || code == 0xFFFF)
      return false;
    i += length;
  }
  return true;
}

std::string_view SkipBom(std::string_view text) { return text.substr(0, 3) == "\xEF\xBB\xBF" ? text.substr(3) : text; }

// Where a keyword may stand.
enum class Place { Comment, General, Tolerance, Numerical, Marker };

struct Block {
  const char* begin;
  const char* end;
  const char* keyword;  // the block keyword of its parameters
  const char* nameKeyword;
  Place place;
};

constexpr Block kBlocks[] = {
    {"BEGIN_TOLERANCE", "END_TOLERANCE", "TOLERANCE", "TolName", Place::Tolerance},
    {"BEGIN_NUMERICAL_DISPLAY", "END_NUMERICAL_DISPLAY", "NUMERICAL_DISPLAY", "NDName", Place::Numerical},
};

Place PlaceOfRow(int row) {
  if (row < kZOLDrwFirstGeneralRow) return Place::Comment;
  if (row <= kZOLDrwLastGeneralRow) return Place::General;
  if (row < kZOLDrwFirstToleranceRow + 2) return Place::Marker;
  if (row < kZOLDrwFirstNumericalRow) return Place::Tolerance;
  return row < kZOLDrwFirstNumericalRow + 2 ? Place::Marker : Place::Numerical;
}

class Reader {
public:
  ZOLDrwFlatText Read(std::string_view text) {
    int number = 0;
    for (size_t start = 0; start < text.size();) {
      size_t end = text.find('\n', start);
      if (end == std::string_view::npos) end = text.size();
      ReadLine(++number, Trim(text.substr(start, end - start)));
      start = end + 1;
    }
    if (_commentLine) AddFault(Fault::UnclosedBlock, _commentLine, "comment block never closed; the rest of the file is comment");
    if (_block) {
      AddFault(Fault::UnclosedBlock, _blockLine, std::string(_block->begin) + " never closed; its block ends with the file");
      CloseBlock(number);
    }
    if (!_hasParent) AddFault(Fault::MissingParent, 0, "no ParentStandard; the parent stays empty");
    return std::move(_out);
  }

private:
  void ReadLine(int number, std::string_view line) {
    if (line.empty()) return;
    const size_t cut = line.find_first_of(kBlanks);
    const std::string_view word = line.substr(0, cut);
    const std::string_view rest = cut == std::string_view::npos ? std::string_view() : Trim(line.substr(cut));
    if (_commentLine) {
      if (word == "END_COMMENT_BLOCK") _commentLine = 0;
      return;
    }
    if (word == "BEGIN_COMMENT_BLOCK") {
      _commentLine = number;
      return;
    }
    if (word == "END_COMMENT_BLOCK") return AddFault(Fault::Misplaced, number, "END_COMMENT_BLOCK without BEGIN_COMMENT_BLOCK");
    for (const Block& block : kBlocks) {
      if (word != block.begin && word != block.end) continue;
      if (!rest.empty()) AddFault(Fault::BadValue, number, std::string(word) + " takes no value");
      if (word == block.begin) {
        if (_block) {
          AddFault(Fault::UnclosedBlock, _blockLine, std::string(_block->begin) + " not closed before line " + std::to_string(number));
          CloseBlock(number);
        }
        _block = &block;
        _blockLine = number;
      } else if (_block == &block) {
        CloseBlock(number);
      } else {
        AddFault(Fault::Misplaced, number, std::string(word) + " without " + block.begin);
      }
      return;
    }
    const int row = ZOLDrwKeywordIndex(word);
    if (row < 0) return AddFault(Fault::UnknownKeyword, number, "unknown keyword \"" + std::string(word) + "\"");
    const Place place = PlaceOfRow(row);
    const Place here = _block ? _block->place : Place::General;
    if (place != here) {
      const char* where = place == Place::Tolerance   ? "a tolerance block"
                          : place == Place::Numerical ? "a numerical display block"
                                                      : "a block";
      return AddFault(Fault::Misplaced, number,
                      std::string(word) + (place == Place::General ? " inside " : " outside ") + where);
    }
    std::string value;
    if (!ReadValue(number, word, rest, value)) return;
    if (_block) {
      _pending.push_back({ZOLUnicodeString(word), ZOLUnicodeString(std::move(value))});
    } else {
      _hasParent = _hasParent || word == "ParentStandard";
      _out.parameters.push_back(new ZOLDrwParseParameter(ZOLUnicodeString(word), ZOLUnicodeString(std::move(value)), {}, {}));
    }
  }

  // An unquoted word, or a text in double quotes where "" stands for one double quote.
  bool ReadValue(int number, std::string_view word, std::string_view rest, std::string& value) {
    const std::string what(word);
    if (rest.empty()) return AddFault(Fault::BadValue, number, what + " has no value"), false;
    for (char c : rest)
      if ((static_cast<unsigned char>(c) < 0x20 && c != '\t') || c == 0x7F)
        return AddFault(Fault::BadValue, number, what + ": control character in the value"), false;
    if (!IsXmlText(rest)) return AddFault(Fault::BadValue, number, what + ": the value is no UTF-8 text"), false;
    if (rest[0] != '"') {
      if (rest.find_first_of(kBlanks) != std::string_view::npos)
        return AddFault(Fault::BadValue, number, what + ": a value with blanks must stand in double quotes"), false;
      value = rest;
      return true;
    }
    for (size_t i = 1; i < rest.size(); ++i) {
      if (rest[i] != '"') {
        value += rest[i];
      } else if (i + 1 < rest.size() && rest[i + 1] == '"') {
        value += '"';
        ++i;
      } else if (i + 1 == rest.size()) {
        return true;
      } else {
        return AddFault(Fault::BadValue, number, what + ": text behind the closing double quote"), false;
      }
    }
    return AddFault(Fault::BadValue, number, what + ": double quote not closed"), false;
  }

  // The block's parameters get its name, the first TolName or NDName it holds.
  void CloseBlock(int number) {
    const ZOLUnicodeString* name = nullptr;
    for (const auto& [keyword, value] : _pending)
      if (keyword == _block->nameKeyword) {
        name = &value;
        break;
      }
    if (!name || name->IsEmpty()) {
      AddFault(Fault::UnnamedBlock, _blockLine,
               std::string(_block->begin) + " ending at line " + std::to_string(number) + " has no " + _block->nameKeyword +
                   "; its parameters are skipped");
    } else {
      const ZOLUnicodeString keyword(_block->keyword);
      for (auto& [k, v] : _pending) _out.parameters.push_back(new ZOLDrwParseParameter(k, v, keyword, *name));
    }
    _pending.clear();
    _block = nullptr;
  }

  void AddFault(Fault::Kind kind, int line, const std::string& what) {
    _out.faults.push_back({kind, line, ZOLUnicodeString(line ? "line " + std::to_string(line) + ": " + what : what)});
  }

  ZOLDrwFlatText _out;
  int _commentLine = 0;
  const Block* _block = nullptr;
  int _blockLine = 0;
  std::vector<std::pair<ZOLUnicodeString, ZOLUnicodeString>> _pending;
  bool _hasParent = false;
};

}  // namespace

bool ZOLDrwIsFlatText(std::string_view text) {
  if (text.find('\0') != std::string_view::npos) return false;
  text = SkipBom(text);
  for (size_t start = 0; start < text.size();) {
    size_t end = text.find('\n', start);
    if (end == std::string_view::npos) end = text.size();
    const std::string_view line = Trim(text.substr(start, end - start));
    if (!line.empty()) return ZOLDrwKeywordIndex(line.substr(0, line.find_first_of(kBlanks))) >= 0;
    start = end + 1;
  }
  return false;
}

ZOLDrwFlatText ZOLDrwReadFlatText(std::string_view text) { return Reader().Read(SkipBom(text)); }
