// Reads a standard file of any release, tells its parent and data level, and brings it up to a
// later level through the chain of upgrade stages, saving the result to a new file.
#pragma once
#include <string>
#include <vector>

#include "ZOLAnnStandardXMLValue.h"
#include "ZOLDrwParseStandardUpgradeOptions.h"
#include "ZOLListValZOLUnicodeString.h"
#include "ZOLString.h"
#include "ZOLUnicodeString.h"

class ZOLAnnStandardXMLParser;
class ZOLDrwParseParameter;
struct ZOLDrwMigrationStage;
class ZOLDrwMigrationContext;

class ZOLDrwParseStandard {
public:
  /// What the last upgrade pass did.
  struct Outcome {
    /// Number of stages that ran.
    int stagesRun = 0;
    /// The level the tree reached: the To of the last stage that ran, else the start level.
    int levelReached = -1;
    /// The first stage that should have run but is not built yet (1-based), 0 if none; the pass stopped there.
    int blockedStage = 0;
    /// Its From and To levels, and the name of its step.
    int blockedFrom = -1;
    int blockedTo = -1;
    const char* blockedStep = nullptr;
    /// 1 when the pass ended on a guard (stage 1 on a decoded tree, no tree after stage 1).
    bool stoppedByGuard = false;
    /// 1 when the tree was written to the output path.
    bool saved = false;
  };

  /// A stage of the chain as the library ships it.
  struct StageInfo {
    /// 1-based position in the chain.
    int stage;
    /// The stage runs from a start level at most this.
    int from;
    /// The level it reaches.
    int to;
    /// 1 for the stage that builds the tree from flat legacy text; it runs whatever the target.
    bool fromFlatText;
    /// The step's name, as "Migrate14To15".
    const char* step;
    /// 1 when the step is built; an unbuilt step stops any pass that reaches it.
    bool built;
  };

  /// A reader of that file; nothing is read until Decode.
  explicit ZOLDrwParseStandard(ZOLUnicodeString& fileName);
  virtual ~ZOLDrwParseStandard();
  ZOLDrwParseStandard(const ZOLDrwParseStandard&) = delete;
  ZOLDrwParseStandard& operator=(const ZOLDrwParseStandard&) = delete;

  /// Reads the tree, its version and its parent, once; a file that cannot be read gives an empty tree,
  /// and one that fails midway the part read so far (see DecodeFailed). A flat legacy file (see
  /// IsFlatFile) gives its parameters and parent, level 0 and no tree (see GetFlatFaults).
  void Decode();
  /// 1 when Decode read the file only in part or not at all; level and parent then tell what the part
  /// read says, and Encode would save that part: a caller refuses such a file before encoding.
  bool DecodeFailed() const { return _DecodeFailed; }
  /// Upgrades to the current level and saves the tree as the input's file name in directory ("." if
  /// null); outputPath gets that path, empty when nothing was decoded. Check GetOutcome for the result.
  void Encode(const char* directory, ZOLString& outputPath, ZOLDrwParseStandardUpgradeOptions& options);
  /// Upgrades to target (-1: the current level) and saves the tree to outputPath, unless a stage that
  /// should run is not built yet; does nothing before Decode.
  void EncodeToVersion(int target, ZOLDrwParseStandardUpgradeOptions& options, const char* outputPath);
  /// "ISO", "ANSI", "ASME", "JIS", or any other text of the file (empty without the node).
  ZOLUnicodeString GetParentStandard();
  /// The start level of the tree as decoded, -1 where the tree cannot tell, 0 before Decode and for flat text.
  int GetVersion();
  /// What the last upgrade pass did.
  const Outcome& GetOutcome() const { return _Outcome; }

  /// A fault of a flat legacy file; the reader goes on after each.
  struct FlatFault {
    enum Kind {
      /// The file is neither XML nor flat text; it was decoded as XML.
      NotFlatText,
      /// A word that is no keyword of the table; the line is skipped.
      UnknownKeyword,
      /// No value, an unquoted value with blanks, a quote not closed or text behind it, a control
      /// character or bytes that are no UTF-8 text, or text behind a block keyword; the line is skipped.
      BadValue,
      /// A block keyword out of order, or a parameter outside the block it belongs to; skipped.
      Misplaced,
      /// A block that is never closed; its parameters are kept up to the end of the file.
      UnclosedBlock,
      /// A tolerance or numerical display block without TolName or NDName; its parameters are skipped.
      UnnamedBlock,
      /// No ParentStandard; the parent stays empty.
      MissingParent,
    };
    Kind kind;
    /// 1-based line of the file; 0 for the file as a whole.
    int line;
    /// What is wrong, in words, as "line 7: unknown keyword \"DIMLFoo\"".
    ZOLUnicodeString message;
  };
  /// The faults of a flat file found by Decode, in file order; empty for a tree file. Any fault also
  /// sets DecodeFailed.
  const std::vector<FlatFault>& GetFlatFaults() const { return _FlatFaults; }

  /// Takes over count parameters (the reader deletes them) in order as a flat file would give them,
  /// sets the parent and marks the reader decoded at level 0 without a tree: EncodeToVersion(1, ...)
  /// then builds the first tree alone and Encode runs the whole chain. Refused with a report when
  /// the reader was decoded already (the parameters are deleted all the same).
  void DecodeFlatParameters(ZOLDrwParseParameter** parameters, int count, const ZOLUnicodeString& parentStandard);
  /// 1 when the file holds flat legacy text: not XML, and its first line that is not blank begins
  /// with a keyword of the table. Decode reads such a file as flat parameters.
  static bool IsFlatFile(const ZOLUnicodeString& path);
  /// Number of flat parameters held.
  int GetParameterCount() const { return static_cast<int>(_Parameters.size()); }
  /// Decodes if not done, then traces to ZOLDftStandardOutput each mandatory general parameter that
  /// the flat parameters lack and their number.
  void Check();
  /// Decodes if not done, then sets missing to the keywords of the mandatory general parameters that
  /// the flat parameters lack, in table order; returns their number.
  int GetMissingParameters(ZOLListValZOLUnicodeString& missing);

  /// The stages of the shipped chain, in order.
  static std::vector<StageInfo> GetStages();
  /// The current data level: 290.
  static int GetCurrentVersion();

  /// Appends line (if not empty) and "\n" if newline is not 0.
  static void AddOutputLine(ZOLUnicodeString& out, const ZOLUnicodeString& line, int newline);
  /// Appends line (if not null) and "\n" if newline is not 0.
  static void AddOutputLine(ZOLUnicodeString& out, const char* line, int newline);
  /// Appends a, b and c (those not null) and "\n" if newline is not 0.
  static void AddOutputLine(ZOLUnicodeString& out, const char* a, const char* b, const char* c, int newline);
  /// Inserts what AddOutputLine would append, at 0 <= position <= length of out; otherwise nothing.
  static void InsertOutputLine(ZOLUnicodeString& out, int position, const ZOLUnicodeString& line, int newline);
  static void InsertOutputLine(ZOLUnicodeString& out, int position, const char* line, int newline);
  static void InsertOutputLine(ZOLUnicodeString& out, int position, const char* a, const char* b, const char* c,
                               int newline);

  /// Parent flags; a mask such as 12 means ISO or JIS.
  static const int ANSI;
  static const int ASME;
  static const int ISO;
  static const int JIS;

protected:
  /// A reader that walks its own chain of stages instead of the shipped one (count stages from stages).
  ZOLDrwParseStandard(ZOLUnicodeString& fileName, const ZOLDrwMigrationStage* stages, int count);

  /// Reads the file into the new parser; 0 success, 1 failure. Derived readers may take the tree elsewhere.
  virtual int DecodeTree(ZOLAnnStandardXMLParser& parser);

  /// Sets outputPath to directory ("." if null), a backslash, the input's name cut at its first ".xml", and ".xml".
  void CreateOutput(const char* directory, ZOLString& outputPath);
  /// One pass over the stages whose levels lie between the start level and target (-1: current).
  void UpgradeVersion(int target, ZOLDrwParseStandardUpgradeOptions& options);
  /// 4 ISO, 8 JIS, 2 ASME, 1 ANSI; 0 with a report for any other parent.
  int GetParentStandardId();
  /// Sets the value at valuePath in every style below stylePath from oldValue to newValue: 1 done or
  /// not for this parent, 0 on a missing or differing value (reported; styles before it stay changed).
  int ChangeStyleValue(const char* stylePath, const char* valuePath, int parentMask,
                       ZOLAnnStandardXMLValue::Type type, const char* oldValue, const char* newValue);
  /// The first flat parameter of that keyword, or null.
  ZOLDrwParseParameter* GetParameter(const ZOLUnicodeString& keyword);

  /// Writers of the first tree from the flat parameters; each appends to out.
  void EncodeTypedefs(ZOLUnicodeString& out);
  void EncodeAdditionalParameters(ZOLUnicodeString& out);
  void EncodeMigratedParameters(ZOLUnicodeString& out);
  void EncodeDescriptions(ZOLUnicodeString& out);
  /// which: 0 the tolerance description, 1 the eight numerical ones, else nothing.
  void EncodePredefinedDescriptions(ZOLUnicodeString& out, int which);
  void EncodeThicknessTable(ZOLUnicodeString& out);

  int _Decoded = 0;
  ZOLUnicodeString _FileName;
  std::vector<ZOLDrwParseParameter*> _Parameters;
  ZOLUnicodeString _ParentStandard;
  int _Version = 0;
  ZOLAnnStandardXMLParser* _Parser = nullptr;

private:
  friend class ZOLDrwMigrationContext;

  const ZOLDrwMigrationStage* _Stages;
  int _StageCount;
  // Stage 1: the text of the writers, decoded into a new tree.
  void EncodeLegacyTree();
  // Reads a flat file into the parameters and the parent; false when the file is not flat text.
  bool DecodeFlatFile();
  enum class FileKind { TreeOrUnreadable, Flat, Neither };
  // The kind of the file; text holds the whole file unless it is a tree or unreadable.
  static FileKind ReadFlatFile(const ZOLUnicodeString& path, std::string& text);

  Outcome _Outcome;
  bool _DecodeFailed = false;
  std::vector<FlatFault> _FlatFaults;
};
