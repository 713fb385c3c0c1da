// The chain of upgrade stages: stage records, the steps' view of the driver, edit tables and
// the operations that steps share.
#pragma once
#include <cstdint>
#include <span>

#include "ZOLAnnStandardXMLParser.h"
#include "ZOLDrwParseStandard.h"
#include "ZOLDrwParseStandardUpgradeOptions.h"
#include "ZOLResult.h"

// What a step sees of the driver while it runs.
class ZOLDrwMigrationContext {
public:
  ZOLDrwMigrationContext(ZOLDrwParseStandard& driver, ZOLDrwParseStandardUpgradeOptions& options)
      : _driver(driver), _options(options) {}

  ZOLAnnStandardXMLParser* Parser() const { return _driver._Parser; }
  // The legacy stage builds the tree; the driver owns it from then on.
  void AdoptParser(ZOLAnnStandardXMLParser* parser) {
    delete _driver._Parser;
    _driver._Parser = parser;
  }
  const ZOLUnicodeString& Parent() const { return _driver._ParentStandard; }
  // The parent as a flag, without the report of GetParentStandardId: 0 for a text of no parent.
  int ParentFlag() const;
  ZOLDrwParseStandardUpgradeOptions& Options() const { return _options; }
  bool UpdateDefaultValues() const { return _options.UpdateDefaultValues != 0; }
  ZOLDrwParseStandard& Driver() const { return _driver; }
  // Stage 1: builds the first tree from the flat parameters.
  void EncodeLegacyTree() const { _driver.EncodeLegacyTree(); }
  int ChangeStyleValue(const char* stylePath, const char* valuePath, int parentMask,
                       ZOLAnnStandardXMLValue::Type type, const char* oldValue, const char* newValue) const {
    return _driver.ChangeStyleValue(stylePath, valuePath, parentMask, type, oldValue, newValue);
  }

private:
  ZOLDrwParseStandard& _driver;
  ZOLDrwParseStandardUpgradeOptions& _options;
};

// A step; it returns nothing and looks at no parser result, as every step of the chain.
using ZOLDrwStep = void (*)(ZOLDrwMigrationContext&);

struct ZOLDrwMigrationStage {
  enum Kind : uint8_t { EditsTree, BuildsTreeFromFlatText };
  int from;
  int to;
  Kind kind;
  const char* name;
  // Null while the step is not built yet: a pass that reaches it stops there and says so.
  ZOLDrwStep step;
};

// The chain as the library ships it.
std::span<const ZOLDrwMigrationStage> ZOLDrwShippedStages();

// One line of an edit table.
struct ZOLDrwEditOp {
  enum Kind : uint8_t {
    AddNode,              // AddNodeWithPath(edit, 0)
    AddTypeValNode,       // AddNodeWithPath(edit, 1)
    AddValue,             // AddValueWithPath(edit, occurrence)
    AddValueForAll,       // AddValueWithPathForAllOccurence(edit, occurrence)
    ChangeValue,          // ChangeValueWithPath(edit)
    DeleteNode,           // DeleteNodeWithPath(edit)
    AddValueInAllStyles,  // "stylePath.*suffix": AddValueInAllStyles(stylePath, suffix, occurrence)
    AddNodeInAllStyles,   // "stylePath.*suffix": AddNodeInAllStyles(stylePath, suffix, occurrence)
    UpdateVersion,        // "old:new": UpdateVersionNode, the last line of a step that moves the version
  };
  Kind kind;
  const char* edit;
  int occurrence = 1;
  // 0: every parent; otherwise the line runs for the parents of the mask (ANSI 1, ASME 2, ISO 4, JIS 8,
  // and kZOLDrwOtherParent for a text that names none of them).
  int parentMask = 0;
  // The line runs only when the options ask for the new delivered defaults.
  bool needsUpdateDefaults = false;
};

// The bit of a parent text that names none of the four: the "else" of a step's if-chain reaches it,
// a line for one named parent does not.
inline constexpr int kZOLDrwOtherParent = 16;
// The bit of a parent text for the masks of edit lines: its flag, or kZOLDrwOtherParent.
int ZOLDrwParentBit(const ZOLUnicodeString& parent);

// Runs the lines in order; their results are not looked at, as in every step.
void ZOLDrwRunEditTable(ZOLDrwMigrationContext& context, std::span<const ZOLDrwEditOp> table);
// The same for a builder that has a parser and a parent but no driver.
void ZOLDrwRunEditTable(ZOLAnnStandardXMLParser* parser, int parentBit, bool updateDefaults,
                        std::span<const ZOLDrwEditOp> table);

// Sets the integer of "Root.Version" from oldText to newText; any other state is reported and left alone.
void UpdateVersionNode(ZOLAnnStandardXMLParser* parser, const char* oldText, const char* newText);
// Adds stylePath + "." + style + suffix as a value for every style below stylePath; E_FAIL when there is none.
HRESULT AddValueInAllStyles(ZOLAnnStandardXMLParser* parser, const char* stylePath, const char* suffix, int flag);
// The same with AddNodeWithPath.
HRESULT AddNodeInAllStyles(ZOLAnnStandardXMLParser* parser, const char* stylePath, const char* suffix, int flag);
