// The tables that releases 10 and 11 delivered whole: frames, line types with the text of their
// font, and patterns. Each is this library's own frozen copy: the built-in content may change, an
// upgrade from these releases may not.
#include <cstdio>
#include <string>

#include "upgrade/migration/ZOLDrwStyleBuilders.h"
#include "ZOLSysLog.h"

namespace {

// Stroke descriptions of the line glyphs, as release 11 delivered them. Glyph 00D5, which
// LineType17 names, was never part of it.
constexpr const char kLineFontText[] = R"FONT(60  60
$ 0020  ;
$ 0040      60  0  ;
$ 0060      60  0  ;
/
/                     LINE-BASED FAMILY
/
/ PIPE
$ 0041  000 010  060 000  128 000  -60 -20  060 000  ;
/ "X" INTERRUPTIONS
$ 0042  000 000  024 000  128 000  004 -06  012 012  128 000
               -12 000  012 -12  128 000  004 006  020 000  ;
/ "O" INTERRUPTIONS
$ 0043  000 000  022 000  128 000  004 -04  008 000  004 004
               -04 004  -08 000  -04 -04  128 000  020 000  018 000  ;
/ CONTINUOUS + DASH UNDERNEATH
$ 0044  000 030  048 000  128 000  -32 -16  016 000  ;
/ CONTINUOUS + DASH ON BOTH SIDES
$ 0045  000 030  048 000  128 000  -32 -16  016 000  128 000
               -16 032  016 000  ;
/ CONTINUOUS + "//" INTERRUPTIONS
$ 0046  000 030  020 000  128 000  018 -06  006 012  128 000
               000 -12  006 012  128 000  020 -30  020 000  ;
/ CONTINUOUS + "/" INTERRUPTIONS
$ 0047  000 030  020 000  128 000  018 -06  006 012  128 000
               020 -30  020 000  ;
/ CONTINUOUS + "///" INTERRUPTIONS
$ 0048  000 030  020 000  128 000  016 -06  006 012  128 000
               000 -12  006 012  128 000  000 -12  006 012  128 000
               020 -30  020 000  ;
/ CONTINUOUS + "X" INTERRUPTIONS
$ 0049  000 030  020 000  128 000  018 -06  012 012  128 000
               -12 000  012 -12  128 000  020 -30  020 000  ;
/ CONTINUOUS + "L" INTERRUPTIONS
$ 004A  000 030  020 000  128 000  020 -08  000 016  008 000
               128 000  020 -30  020 000  ;
/
/                     2D GENERAL
/
/ RAILWAY
$ 004B  000 024  060 000  128 000  -60 012  060 000  128 000
               -50 -16  000 020  128 000  030 -20  000 020  ;
/ LADDER
$ 004C  000 020  060 000  128 000  -60 020  060 000  128 000
               -45 -20  000 020  128 000  030 -20  000 020  ;
/ X
$ 004D  000 020  030 020  128 000  -30 000  030 -20  128 000
               000 010  030 000  ;
/ SNAKES
$ 004E  000 030  010 010  020 -20  020 020  010 -10  ;
/ FORTRESS
$ 004F  000 030  015 000  000 015  015 000  000 -15  015 000
               000 -15  015 000  ;
/ JAWS
$ 0050  000 030  015 010  015 -10  015 010  015 -10  ;
/ THICK DASH
$ 0051  000 028  040 000  000 004  -40 000  000 -04  128 000
               040 002  020 000  ;
/ DOUBLE THICK DASH
$ 0052  000 026  020 000  000 008  -20 000  000 -08  128 000
               030 000  020 000  000 008  -20 000  000 -08  ;
/ CONTINUOUS + "~" INTERRUPTIONS
$ 0053  000 030  020 000  128 000  004 000  004 004  004 -04
               004 -04  004 004  128 000  004 000  020 000  ;
/ "~"
$ 0054  000 030  010 010  010 -10  010 -10  010 010  010 010
               010 -10  ;
/
/                     DIRECTIONAL
/
/ RIGHT POINTING
$ 0056  000 020  030 010  -30 010  ;
/ LEFT  POINTING
$ 0057  030 020  -30 010  030 010  ;
$ 0058  000 030  040 000  128 000  -10 -06  010 006  -10 006  ;
$ 0059  000 030  040 000  128 000  -30 -06  -10 006  010 006  ;
$ 005A  000 030  040 000  128 000  -14 -06  010 006  -10 006
               128 000  008 -12  010 006  -10 006  ;
$ 005B  000 030  040 000  128 000  -26 -06  -10 006  010 006
               128 000  -08 -12  -10 006  010 006  ;
/ SINGLE RIGHT POINTING ARROW - LENGTH 1
$ 005C  000 030  020 000  -08 -05  128 000  008 005  -08 005  ;
/ SINGLE RIGHT POINTING ARROW - LENGTH 2
$ 005D  000 030  040 000  -08 -05  128 000  008 005  -08 005  ;
/ SINGLE RIGHT POINTING ARROW - LENGTH 3
$ 005E  000 030  060 000  -08 -05  128 000  008 005  -08 005  ;
$ 005F  000 030  060 000  -08 -05  128 000  008 005  -08 005
               128 000  -44 -10  000 010  ;
/
/                     VERTICAL POINTING
/
/ UPWARD   POINTING ARROWS
$ 0061  000 030  060 000  128 000  -30 000  000 -20  -05 008
               128 000  005 -08  005 008  ;
/ DOWNWARD POINTING ARROWS
$ 0062  000 030  060 000  128 000  -30 000  000 020  -05 -08
               128 000  005 008  005 -08  ;
/
/                     VARIOUS
/
/ STARS
$ 006C  010 030  020 000  -16 -12  006 020  006 -20  -16 012  ;
/ ORCHARD
$ 006D  010 020  000 020  128 000  -06 000  006 006  006 -06
               -06 -06  -06 006  ;
/ CUBES
$ 006E  010 020  020 000  000 020  -20 000  000 -20  006 -06
               020 000  000 020  -06 006  ;
/ FRESQUE
$ 006F  000 030  010 000  000 -10  010 000  000 020  010 000
               000 -10  010 000  ;
/ GREEK
$ 0070  000 030  020 000  000 -15  -10 000  000 008  005 000  ;
/ ASSYRIAN FRESQUE
$ 0071  000 030  010 010  010 -10  010 010  010 -10  128 000
               -40 010  040 000  ;
/ HOLLOW PENTAGRAM
$ 0077  020 020  012 035  012 -35  -30 022  036 000  -30 -22  ;
/ VENUS
$ 0078  030 040  000 -16  128 000  -06 006  012 000  128 000
               -06 -06  -06 -06  006 -06  006 006  -06 006  ;
/ MARS
$ 0079  020 030  008 008  008 -08  -08 -08  -08 008  128 000
               016 000  012 012  128 000  000 -06  000 006  -06 000  ;
/ PEACE
$ 007A  030 030  000 020  128 000  000 -20  -10 -10  128 000
               010 010  010 -10  128 000  -10 010  000 -20  ;
/ BOY AND GIRL
$ 007B  010 020  000 020  128 000  -05 -15  010 000  128 000
               015 015  000 -20  128 000  -05 015  010 000  -05 -10  ;
/
/                     PHANTOM FAMILY
/
$ 0082  000 030  020 000  128 000  004 000  004 000  128 000
               004 000  004 000  128 000  004 000  ;
$ 0083  000 030  022 000  128 000  005 000  005 000  128 000
               005 000  005 000  128 000  005 000  ;
$ 0084  000 030  024 000  128 000  006 000  006 000  128 000
               006 000  006 000  128 000  006 000  ;
$ 0085  000 030  026 000  128 000  007 000  007 000  128 000
               007 000  007 000  128 000  007 000  ;
$ 0086  000 030  028 000  128 000  004 000  004 000  128 000
               004 000  004 000  128 000  004 000  ;
$ 0087  000 030  030 000  128 000  005 000  005 000  128 000
               005 000  005 000  128 000  005 000  ;
$ 0088  000 030  032 000  128 000  006 000  006 000  128 000
               006 000  006 000  128 000  006 000  ;
$ 0089  000 030  034 000  128 000  007 000  007 000  128 000
               007 000  007 000  128 000  007 000  ;
$ 008D  000 030  036 000  128 000  004 000  004 000  128 000
               004 000  004 000  128 000  004 000  ;
$ 008E  000 030  038 000  128 000  005 000  005 000  128 000
               005 000  005 000  128 000  005 000  ;
$ 008F  000 030  040 000  128 000  006 000  006 000  128 000
               006 000  006 000  128 000  006 000  ;
$ 0090  000 030  042 000  128 000  007 000  007 000  128 000
               007 000  007 000  128 000  007 000  ;
$ 0091  000 030  044 000  128 000  004 000  004 000  128 000
               004 000  004 000  128 000  004 000  ;
/
/                     DOT-DASH FAMILY
/
$ 0098  000 030  012 000  128 000  003 000  000 000  128 000
               003 000  ;
$ 0099  000 030  015 000  128 000  004 000  000 000  128 000
               004 000  ;
$ 009A  000 030  018 000  128 000  005 000  000 000  128 000
               005 000  ;
$ 009B  000 030  021 000  128 000  003 000  000 000  128 000
               003 000  ;
$ 00A3  000 030  024 000  128 000  004 000  000 000  128 000
               004 000  ;
$ 00A4  000 030  027 000  128 000  005 000  000 000  128 000
               005 000  ;
$ 00A5  000 030  030 000  128 000  003 000  000 000  128 000
               003 000  ;
$ 00A6  000 030  033 000  128 000  004 000  000 000  128 000
               004 000  ;
$ 00A7  000 030  036 000  128 000  005 000  000 000  128 000
               005 000  ;
/
/                     DASH FAMILY
/
$ 00AE  000 030  006 000  128 000  002 000  ;
$ 00AF  000 030  009 000  128 000  003 000  ;
$ 00B0  000 030  012 000  128 000  004 000  ;
$ 00B1  000 030  015 000  128 000  005 000  ;
$ 00B9  000 030  018 000  128 000  002 000  ;
$ 00BA  000 030  021 000  128 000  003 000  ;
$ 00BB  000 030  024 000  128 000  004 000  ;
$ 00BC  000 030  027 000  128 000  005 000  ;
$ 00BD  000 030  030 000  128 000  002 000  ;
/
/                     DOT FAMILY
/
$ 00C4  000 030  016 000  128 000  016 000  000 000  ;
$ 00C5  000 030  016 000  128 000  020 000  000 000  ;
$ 00C6  000 030  016 000  128 000  024 000  000 000  ;
$ 00C7  000 030  016 000  128 000  028 000  000 000  ;
$ 00C8  000 030  016 000  128 000  032 000  000 000  ;
/
/                     CONTINUOUS FAMILY
/
/                     ***********************
/
)FONT";

struct FrameRow {
  const char* name;
  const char* type;
  const char* length;
  const char* height;
  const char* radius;
  const char* offset;
};

// Frames of release 10; the table writes FixedSupport in one word, the enumeration "Fixed support".
constexpr FrameRow kFrames[] = {
    {"Rectangle", "1", "20.0", "10.0", nullptr, nullptr},   {"Square", "2", "20.0", nullptr, nullptr, nullptr},
    {"Circle", "3", nullptr, nullptr, "10.0", nullptr},     {"ScoredCircle", "4", nullptr, nullptr, "10.0", nullptr},
    {"Diamond", "5", "20.0", nullptr, nullptr, nullptr},    {"Triangle", "6", "30.0", "25.0", nullptr, nullptr},
    {"RightFlag", "7", "20.0", "10.0", nullptr, "5.0"},     {"LeftFlag", "8", "20.0", "10.0", nullptr, "5.0"},
    {"BothFlag", "9", "20.0", "10.0", nullptr, "5.0"},      {"Oblong", "10", "20.0", "10.0", nullptr, nullptr},
    {"Ellipse", "11", "20.0", "10.0", nullptr, nullptr},    {"RightOblong", "12", "20.0", "10.0", nullptr, nullptr},
    {"LeftOblong", "13", "20.0", "10.0", nullptr, nullptr}, {"Sticking", "14", nullptr, nullptr, "10.0", nullptr},
    {"Set", "15", nullptr, nullptr, "10.0", "2.0"},         {"FixedSupport", "16", nullptr, nullptr, "20.0", nullptr},
    {"Nota", "17", "30.0", "10.0", nullptr, nullptr},       {"SymPart", "18", nullptr, nullptr, "10.0", nullptr},
    {"SymSet", "19", nullptr, nullptr, "10.0", "2.0"},      {"ScoredRectangle", "20", "20.0", "15.0", nullptr, nullptr},
};

constexpr ZOLDrwEditOp kFrameDef[] = {
    {ZOLDrwEditOp::AddNode, "TypeDef:FrameDef:0"},
    {ZOLDrwEditOp::AddValue, "TypeDef.FrameDef:Name:string:XXX:0"},
    {ZOLDrwEditOp::AddValue, "TypeDef.FrameDef:Type:int:0:0"},
    {ZOLDrwEditOp::AddValue, "TypeDef.FrameDef:Behavior:int:0:0"},
    {ZOLDrwEditOp::AddValue, "TypeDef.FrameDef:Length:float:0.0:0"},
    {ZOLDrwEditOp::AddValue, "TypeDef.FrameDef:Height:float:0.0:0"},
    {ZOLDrwEditOp::AddValue, "TypeDef.FrameDef:Radius:float:0.0:0"},
    {ZOLDrwEditOp::AddValue, "TypeDef.FrameDef:Offset:float:0.0:0"},
    {ZOLDrwEditOp::AddValue, "TypeDef.FrameDef:VerticalMargin:float:0.0:0"},
    {ZOLDrwEditOp::AddValue, "TypeDef.FrameDef:HorizontalMargin:float:0.0:0"},
};

struct LineTypeRow {
  int first, last;
  int type;
  int pattern;  // the first row's; glyph rows count up
  int ratio;
  const char* segment;  // dash lengths separated by blanks; null: a Segment node without values
};

constexpr LineTypeRow kLineTypes[] = {
    {1, 1, 1, 65535, 1, "0.0"},  // one line on the line type itself makes Segment and its value
    {2, 2, 1, 13107, 4, "1.0 -1.0"},
    {3, 3, 1, 30583, 4, "4.0 -1.5"},
    {4, 4, 1, 3135, 2, "7.0 -1.0 1.0 -1.0"},
    {5, 5, 1, 22359, 8, "7.0 -1.0 1.0 -1.0 1.0 -1.0"},
    {6, 6, 1, 52428, 1, "0.5 -0.5"},
    {7, 7, 1, 32763, 4, "2.0 -1.0 10.0 -1.0"},
    {8, 8, 1, 65535, 1, nullptr},
    {9, 13, 2, 70, 1, nullptr},
    {14, 15, 2, 83, 1, nullptr},
    // Left empty by release 11; release 15 adds its dashes.
    {16, 16, 1, 61455, 1, nullptr},
    {17, 17, 2, 213, 1, nullptr},
    {18, 18, 2, 67, 1, nullptr},
    {19, 19, 2, 66, 1, nullptr},
    {20, 63, 1, 65535, 1, nullptr},
};

void AppendLineTypes(ZOLAnnStandardXMLParser& parser, int from, int to) {
  for (const LineTypeRow& row : kLineTypes) {
    for (int n = row.first; n <= row.last; ++n) {
      if (n < from || n > to) continue;
      const std::string name = "LineType" + std::to_string(n);
      const std::string at = "Root.LineTypes." + name;
      parser.AddNodeWithPath("Root.LineTypes:" + name + ":0", 0);
      parser.AddValueWithPath(at + ":Availability:int:1:0", 1);
      parser.AddValueWithPath(at + ":Type:int:" + std::to_string(row.type) + ":0", 1);
      parser.AddValueWithPath(at + ":Pattern:int:" + std::to_string(row.pattern + n - row.first) + ":0", 1);
      parser.AddValueWithPath(at + ":Ratio:int:" + std::to_string(row.ratio) + ":0", 1);
      if (n == 1) {
        parser.AddValueWithPath(at + ":Segment:float:" + row.segment + ":0", 1);
        continue;
      }
      parser.AddNodeWithPath(at + ":Segment:0", 0);
      if (!row.segment) continue;
      std::string dashes(row.segment);
      for (size_t start = 0; start < dashes.size();) {
        size_t blank = dashes.find(' ', start);
        if (blank == std::string::npos) blank = dashes.size();
        parser.AddValueWithPath(at + ".Segment::float:" + dashes.substr(start, blank - start) + ":0,", -1);
        start = blank + 1;
      }
    }
  }
}

constexpr ZOLDrwEditOp kPatternTypes[] = {
    {ZOLDrwEditOp::AddTypeValNode, "TypeDef:AngleValue:0"},
    {ZOLDrwEditOp::AddValue, "TypeDef.AngleValue:Angle:float:45:0"},
    {ZOLDrwEditOp::AddTypeValNode, "TypeDef:hatchings:0"},
    {ZOLDrwEditOp::AddValue, "TypeDef.hatchings:Name:string:hatching:0"},
    {ZOLDrwEditOp::AddValue, "TypeDef.hatchings:nb hatch:int:1:0"},
};

constexpr ZOLDrwEditOp kPatternTypesAfterHatchings[] = {
    {ZOLDrwEditOp::AddTypeValNode, "TypeDef:dottings:0"},
    {ZOLDrwEditOp::AddValue, "TypeDef.dottings:Name:string:dotting:0"},
    {ZOLDrwEditOp::AddValue, "TypeDef.dottings:zig-zag:int:0:0"},
    {ZOLDrwEditOp::AddValue, "TypeDef.dottings:pitch:float:10:0"},
    {ZOLDrwEditOp::AddValue, "TypeDef.dottings:color:int:255:0"},
    {ZOLDrwEditOp::AddTypeValNode, "TypeDef:colorings:0"},
    {ZOLDrwEditOp::AddValue, "TypeDef.colorings:Name:string:coloring:0"},
    {ZOLDrwEditOp::AddValue, "TypeDef.colorings:color:int:4294967295:0"},
    {ZOLDrwEditOp::AddTypeValNode, "TypeDef:motifs:0"},
    {ZOLDrwEditOp::AddValue, "TypeDef.motifs:Name:string:motif:0"},
    // Kept as delivered: the colon of the drive cuts the line, whose position is then no number,
    // so the field never reached the record type.
    {ZOLDrwEditOp::AddValue, "TypeDef.motifs:File name:string:c:\\image.jpeg:0"},
    {ZOLDrwEditOp::AddValue, "TypeDef.motifs:Scale:float:1.0:0"},
    {ZOLDrwEditOp::AddValue, "TypeDef.motifs:Angle:float:0:0"},
    {ZOLDrwEditOp::AddValue, "TypeDef.motifs:OffsetH:float:0:0"},
    {ZOLDrwEditOp::AddValue, "TypeDef.motifs:OffsetV:float:0:0"},
    {ZOLDrwEditOp::AddNode, "Root:Patterns:0"},
    {ZOLDrwEditOp::AddValue, "Root.Patterns:EditAvailability:enum.YesNo:No:0"},
    {ZOLDrwEditOp::AddNode, "Root.Patterns:AngleList:0"},
};

// One row of a record list: the fields that differ from the record type, "name:type:value" each.
struct PatternRow {
  const char* fields[11];
};

constexpr PatternRow kHatchings[] = {
    {{"Name:string:STD 5", "nb hatch:int:1", "angle1:float:45", "offset1:float:0", "pitch1:float:5",
      "linetype1:int:1", "color1:int:255", "thickness1:int:1"}},
    {{"Name:string:STD 10", "nb hatch:int:1", "angle1:float:45", "offset1:float:0", "pitch1:float:10",
      "linetype1:int:1", "color1:int:255", "thickness1:int:1"}},
    {{"Name:string:STD 20", "nb hatch:int:1", "angle1:float:45", "offset1:float:0", "pitch1:float:20",
      "linetype1:int:1", "color1:int:255", "thickness1:int:1"}},
    {{"Name:string:STD 1", "nb hatch:int:1", "angle1:float:45", "offset1:float:0", "pitch1:float:1",
      "linetype1:int:1", "color1:int:255", "thickness1:int:1"}},
    {{"Name:string:STD 2", "nb hatch:int:1", "angle1:float:45", "offset1:float:0", "pitch1:float:2",
      "linetype1:int:1", "color1:int:255", "thickness1:int:1"}},
    {{"Name:string:STD 3", "nb hatch:int:1", "angle1:float:45", "offset1:float:0", "pitch1:float:3",
      "linetype1:int:1", "color1:int:255", "thickness1:int:1"}},
    {{"Name:string:STD 4", "nb hatch:int:1", "angle1:float:45", "offset1:float:0", "pitch1:float:4",
      "linetype1:int:1", "color1:int:255", "thickness1:int:1"}},
    {{"Name:string:STD 6", "nb hatch:int:1", "angle1:float:45", "offset1:float:0", "pitch1:float:6",
      "linetype1:int:1", "color1:int:255", "thickness1:int:1"}},
    {{"Name:string:STD 8", "nb hatch:int:1", "angle1:float:45", "offset1:float:0", "pitch1:float:8",
      "linetype1:int:1", "color1:int:255", "thickness1:int:1"}},
    // Aluminium rows state no line type and rely on the record type's.
    {{"Name:string:alu 30", "nb hatch:int:2", "angle1:float:30", "offset1:float:0", "pitch1:float:10",
      "angle2:float:30", "offset2:float:2", "pitch2:float:10"}},
    {{"Name:string:alu 45", "nb hatch:int:2", "angle1:float:45", "offset1:float:0", "pitch1:float:10",
      "angle2:float:45", "offset2:float:2", "pitch2:float:10"}},
    {{"Name:string:alu 60", "nb hatch:int:2", "angle1:float:60", "offset1:float:0", "pitch1:float:10",
      "angle2:float:60", "offset2:float:2", "pitch2:float:10"}},
    {{"Name:string:copper 30", "nb hatch:int:2", "angle1:float:30", "offset1:float:0", "pitch1:float:10",
      "angle2:float:30", "offset2:float:5", "pitch2:float:10", "linetype1:int:1", "linetype2:int:2"}},
    {{"Name:string:copper 45", "nb hatch:int:2", "angle1:float:45", "offset1:float:0", "pitch1:float:10",
      "angle2:float:45", "offset2:float:5", "pitch2:float:10", "linetype1:int:1", "linetype2:int:2"}},
    {{"Name:string:copper 60", "nb hatch:int:2", "angle1:float:60", "offset1:float:0", "pitch1:float:10",
      "angle2:float:60", "offset2:float:5", "pitch2:float:10", "linetype1:int:1", "linetype2:int:2"}},
};

constexpr PatternRow kDottings[] = {
    {{"Name:string:dot1", "zig-zag:int:0"}},
    {{"Name:string:dot2", "zig-zag:int:1"}},
    {{"Name:string:dot3", "zig-zag:int:0", "pitch:float:5"}},
    {{"Name:string:dot4", "zig-zag:int:1", "pitch:float:5"}},
    {{"Name:string:dot5 green", "zig-zag:int:0", "color:int:16711935"}},
    {{"Name:string:dot6 green", "zig-zag:int:1", "color:int:16711935"}},
    {{"Name:string:dot7 green", "zig-zag:int:0", "pitch:float:5", "color:int:16711935"}},
    {{"Name:string:dot8 green", "zig-zag:int:1", "pitch:float:5", "color:int:16711935"}},
};

// Red in the highest byte, then green, blue, and alpha in the lowest. White takes the type's colour.
constexpr PatternRow kColorings[] = {
    {{"Name:string:white"}},
    {{"Name:string:gray 25%", "color:int:3183328767"}},
    {{"Name:string:gray 50%", "color:int:2139062271"}},
    {{"Name:string:gray 75%", "color:int:1061109759"}},
    {{"Name:string:black", "color:int:255"}},
    {{"Name:string:blue", "color:int:65535"}},
    {{"Name:string:green", "color:int:16711935"}},
    {{"Name:string:red", "color:int:4278190335"}},
    {{"Name:string:color 1", "color:int:4294902015"}},
    {{"Name:string:color 2", "color:int:16777215"}},
    {{"Name:string:color 3", "color:int:4278255615"}},
};

// The lower-case "wood" is the name files hold.
constexpr PatternRow kMotifs[] = {
    {{"Name:string:DrwPatternMotifKV1", "File name:string:DrwPatternMotifKV1.bmp"}},
    {{"Name:string:DrwPatternMotifBrick1", "File name:string:DrwPatternMotifBrick1.bmp"}},
    {{"Name:string:DrwPatternMotifFloor1", "File name:string:DrwPatternMotifFloor1.bmp"}},
    {{"Name:string:DrwPatternMotifConcret1", "File name:string:DrwPatternMotifConcret1.bmp"}},
    {{"Name:string:DrwPatternMotifOctagons1", "File name:string:DrwPatternMotifOctagons1.bmp"}},
    {{"Name:string:DrwPatternMotifLath1", "File name:string:DrwPatternMotifLath1.bmp"}},
    {{"Name:string:DrwPatternMotifwood1", "File name:string:DrwPatternMotifwood1.bmp"}},
};

void AppendRecordList(ZOLAnnStandardXMLParser& parser, const char* branch, const char* type,
                      std::span<const PatternRow> rows) {
  const std::string at = std::string("Root.Patterns.") + branch;
  parser.AddNodeWithPath(std::string("Root.Patterns:") + branch + ":0", 0);
  for (const PatternRow& row : rows) {
    parser.AddNodeWithPath(at + ":" + type + ":0", 1);
    for (const char* field : row.fields)
      if (field) parser.AddValueWithPath(at + "." + type + ":" + field + ":0", -1);
  }
}

}  // namespace

const char* ZOLDrwLineFontText() { return kLineFontText; }

void AppendFrameDef(ZOLAnnStandardXMLParser& parser) { ZOLDrwRunEditTable(&parser, 0, false, kFrameDef); }

void AppendFrames(ZOLAnnStandardXMLParser& parser) {
  parser.AddNodeWithPath("Root:Frames:8", 0);
  // Occurrence 0 on "Frames.FrameDef": the last row of Frames, the one just appended.
  const std::string row = "Root.Frames.FrameDef:";
  for (const FrameRow& f : kFrames) {
    parser.AddNodeWithPath("Root.Frames:FrameDef:0", 1);
    parser.AddValueWithPath(row + "Name:string:" + f.name + ":0", 0);
    parser.AddValueWithPath(row + "Type:int:" + f.type + ":0", 0);
    parser.AddValueWithPath(row + "Behavior:int:1:0", 0);
    if (f.length) parser.AddValueWithPath(row + "Length:float:" + f.length + ":0", 0);
    if (f.height) parser.AddValueWithPath(row + "Height:float:" + f.height + ":0", 0);
    if (f.radius) parser.AddValueWithPath(row + "Radius:float:" + f.radius + ":0", 0);
    if (f.offset) parser.AddValueWithPath(row + "Offset:float:" + f.offset + ":0", 0);
  }
}

void AppendPatterns(ZOLAnnStandardXMLParser& parser) {
  ZOLDrwRunEditTable(&parser, 0, false, kPatternTypes);
  for (int n = 1; n <= 10; ++n) {
    const std::string at = "TypeDef.hatchings:", k = std::to_string(n);
    parser.AddValueWithPath(at + "angle" + k + ":float:60:0", 1);
    parser.AddValueWithPath(at + "offset" + k + ":float:2:0", 1);
    parser.AddValueWithPath(at + "pitch" + k + ":float:10:0", 1);
    parser.AddValueWithPath(at + "linetype" + k + ":int:1:0", 1);
    parser.AddValueWithPath(at + "color" + k + ":int:255:0", 1);
    parser.AddValueWithPath(at + "thickness" + k + ":int:1:0", 1);
  }
  ZOLDrwRunEditTable(&parser, 0, false, kPatternTypesAfterHatchings);
  for (const char* angle : {"30", "-30", "60", "-60"}) {
    parser.AddNodeWithPath("Root.Patterns.AngleList:AngleValue:0", 1);
    parser.AddValueWithPath(std::string("Root.Patterns.AngleList.AngleValue:Angle:float:") + angle + ":0", -1);
  }
  AppendRecordList(parser, "hatching", "hatchings", kHatchings);
  AppendRecordList(parser, "dotting", "dottings", kDottings);
  AppendRecordList(parser, "coloring", "colorings", kColorings);
  AppendRecordList(parser, "motif", "motifs", kMotifs);
}

void AppendLinetypes1(ZOLAnnStandardXMLParser& parser) {
  parser.AddNodeWithPath("Root:LineTypes:0", 0);
  AppendLineTypes(parser, 1, 50);
}

void AppendLinetypes2(ZOLAnnStandardXMLParser& parser) {
  AppendLineTypes(parser, 51, 63);
  parser.AddValueWithPath(std::string("Root.LineTypes:font:string:") + kLineFontText + ":0", 1);
}

void AddColoring(ZOLAnnStandardXMLParser* parser, int position, const char* name, unsigned red, unsigned green,
                 unsigned blue) {
  if (!parser || !name) {
    ZOLAssertPointer("");
    return;
  }
  char color[16];
  if (green >= 256 || blue >= 256) {
    ZOLAssertBool("");
    std::snprintf(color, sizeof color, "%u", static_cast<unsigned>(E_INVALIDARG));
  } else {
    std::snprintf(color, sizeof color, "%u", (red << 24) | (green << 16) | (blue << 8) | 255u);
  }
  const std::string row = "Root.Patterns.coloring.colorings:";
  parser->AddNodeWithPath("Root.Patterns.coloring:colorings:0", 1);
  parser->AddValueWithPath(row + "Name:string:" + name + ":0", -1);
  parser->AddValueWithPath(row + "Position:int:" + std::to_string(position) + ":0", -1);
  parser->AddValueWithPath(row + "color:int:" + color + ":0", -1);
}
