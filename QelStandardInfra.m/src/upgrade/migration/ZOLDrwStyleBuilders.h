// The builders that upgrade steps share: whole branches (style families and their enumerations,
// frames, line types, patterns, sheet formats) and the clones and additions that later releases
// make to a family. They edit through the parser's edit strings and look at none of its results.
#pragma once
#include <span>

#include "upgrade/migration/ZOLDrwMigration.h"

// Parent masks of the builders' rows, with kZOLDrwOtherParent for a text that names none of the four.
inline constexpr int kZOLDrwAnsiAsme = 1 | 2;
inline constexpr int kZOLDrwIsoJis = 4 | 8;
inline constexpr int kZOLDrwAllButIso = 1 | 2 | 8 | kZOLDrwOtherParent;
inline constexpr int kZOLDrwAllButAnsiAsme = 4 | 8 | kZOLDrwOtherParent;
inline constexpr int kZOLDrwAllButAnsi = 2 | 4 | 8 | kZOLDrwOtherParent;
inline constexpr int kZOLDrwAllButJis = 1 | 2 | 4 | kZOLDrwOtherParent;
inline constexpr int kZOLDrwAllButIsoJis = 1 | 2 | kZOLDrwOtherParent;

// One line of a branch: a node (type null) or a value "name:type:value", below base + "." + branch
// (branch empty: base itself); mask as in ZOLDrwEditOp.
struct ZOLDrwBranchRow {
  const char* branch;
  const char* name;
  const char* type;
  const char* value;
  int parentMask = 0;
};

// Adds the rows below base, in order, values at occurrence 1 and nodes as plain nodes, appended.
void ZOLDrwAddBranchRows(ZOLAnnStandardXMLParser* parser, int parentBit, const char* base,
                         std::span<const ZOLDrwBranchRow> rows);

// Style families of release 11 and their enumerations.
void AppendStyleEnums(ZOLAnnStandardXMLParser& parser);
// "Root.Styles" as the first child of the root, with every family of release 11 and its Default.
void AppendStyles(ZOLAnnStandardXMLParser& parser, const ZOLUnicodeString& parent);

// Appends to a family a clone of its Default named "TED", framed as a theoretically exact dimension.
void AddTedStyle(ZOLAnnStandardXMLParser* parser, const ZOLUnicodeString& parent, const char* family);
// Appends to a family a clone of its Default named "BasicDimension", framed by a rectangle.
void AddBasicDimensionStyle(ZOLAnnStandardXMLParser* parser, const char* family);
// Clones the family DistanceLengthDimension as CurvilinearLengthDimension, the seventh family.
void AddCurvilinearLengthDimension(ZOLAnnStandardXMLParser* parser, const ZOLUnicodeString& parent);
// Adds the node WitnessLine to the Default of a family.
void AddWitnessLine(ZOLAnnStandardXMLParser* parser, const char* family);

// One column of a bill of material style.
struct ZOLDrwParseStandardBomProperty {
  ZOLUnicodeString name;
  ZOLUnicodeString width;
  ZOLUnicodeString index;
};
// Adds the family name with a Default of bill of material values and one record per property.
void AddBomStyle(ZOLAnnStandardXMLParser* parser, const char* name, const ZOLDrwParseStandardBomProperty* properties,
                 int count);

// The record type FrameDef, which the frames table needs.
void AppendFrameDef(ZOLAnnStandardXMLParser& parser);
// "Root.Frames" as the eighth child of the root, with the twenty frames of release 10.
void AppendFrames(ZOLAnnStandardXMLParser& parser);
// The record types of patterns and "Root.Patterns" with the hatchings, dottings, colourings and motifs.
void AppendPatterns(ZOLAnnStandardXMLParser& parser);
// "Root.LineTypes" with LineType1 to LineType50.
void AppendLinetypes1(ZOLAnnStandardXMLParser& parser);
// LineType51 to LineType63 and the text of the line-type font.
void AppendLinetypes2(ZOLAnnStandardXMLParser& parser);
// The text of the line-type font as release 11 delivered it.
const char* ZOLDrwLineFontText();
// Appends a colouring; green or blue above 255 is reported and gives the colour of E_INVALIDARG.
void AddColoring(ZOLAnnStandardXMLParser* parser, int position, const char* name, unsigned red, unsigned green,
                 unsigned blue);

// A symbol of release 17: name, character code, and base64 icons of 16 and 22 pixels in the look
// of the table for ISO and JIS and in that of the table for the other parents.
struct ZOLDrwRelease17Symbol {
  const char* name;
  int charcode;
  const char* isoIcon16;
  const char* isoIcon22;
  const char* otherIcon16;
  const char* otherIcon22;
};
// The 41 symbols of release 17, in their positions.
std::span<const ZOLDrwRelease17Symbol> ZOLDrwRelease17Symbols();

// The record type Formats and "Root.SheetFormat" with the formats of the parent; E_FAIL for a
// parent that is none of the four, which gets the type and the empty branch only.
HRESULT AppendSheetFormats(const ZOLUnicodeString& parent, ZOLAnnStandardXMLParser& parser);
// Replaces the Default sheet style by one style per format of the parent, and adds again the
// styles of the user that were complete; E_FAIL for a parent that is none of the four.
HRESULT AppendSheetStyles(const ZOLUnicodeString& parent, ZOLAnnStandardXMLParser& parser);

// The steps from release 9 to release 20.
void Upgrade9To10(ZOLDrwMigrationContext& context);
void Upgrade10To11(ZOLDrwMigrationContext& context);
void Upgrade11To12(ZOLDrwMigrationContext& context);
void Upgrade12To13(ZOLDrwMigrationContext& context);
void Upgrade13To14(ZOLDrwMigrationContext& context);
void Migrate14To15(ZOLDrwMigrationContext& context);
void Migrate15To16n201(ZOLDrwMigrationContext& context);
void Migrate16To17n1X(ZOLDrwMigrationContext& context);
void Migrate17To18n1X1(ZOLDrwMigrationContext& context);
void Migrate18To20n208(ZOLDrwMigrationContext& context);
