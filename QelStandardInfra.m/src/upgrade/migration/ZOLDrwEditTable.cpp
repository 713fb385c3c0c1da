// The interpreter of edit tables: each line is one parser operation under a parent and an option condition.
#include <string>
#include <string_view>

#include "upgrade/migration/ZOLDrwMigration.h"
#include "ZOLSysLog.h"

namespace {

// "stylePath.*suffix": the style family, and what each style gets.
bool SplitStyleEdit(std::string_view edit, std::string& stylePath, std::string& suffix) {
  size_t star = edit.find(".*");
  if (star == std::string_view::npos) return false;
  stylePath.assign(edit.substr(0, star));
  suffix.assign(edit.substr(star + 2));
  return true;
}

}  // namespace

void ZOLDrwRunEditTable(ZOLDrwMigrationContext& context, std::span<const ZOLDrwEditOp> table) {
  ZOLDrwRunEditTable(context.Parser(), ZOLDrwParentBit(context.Parent()), context.UpdateDefaultValues(), table);
}

void ZOLDrwRunEditTable(ZOLAnnStandardXMLParser* parser, int parent, bool updateDefaults,
                        std::span<const ZOLDrwEditOp> table) {
  if (!parser) {
    ZOLAssertPointer("");
    return;
  }
  std::string stylePath, suffix;
  for (const ZOLDrwEditOp& op : table) {
    if (op.needsUpdateDefaults && !updateDefaults) continue;
    if (op.parentMask != 0 && (op.parentMask & parent) == 0) continue;
    const char* edit = op.edit ? op.edit : "";
    switch (op.kind) {
      case ZOLDrwEditOp::AddNode: parser->AddNodeWithPath(edit, 0); break;
      case ZOLDrwEditOp::AddTypeValNode: parser->AddNodeWithPath(edit, 1); break;
      case ZOLDrwEditOp::AddValue: parser->AddValueWithPath(edit, op.occurrence); break;
      case ZOLDrwEditOp::AddValueForAll: parser->AddValueWithPathForAllOccurence(edit, op.occurrence); break;
      case ZOLDrwEditOp::ChangeValue: parser->ChangeValueWithPath(edit); break;
      case ZOLDrwEditOp::DeleteNode: parser->DeleteNodeWithPath(edit); break;
      case ZOLDrwEditOp::AddValueInAllStyles:
      case ZOLDrwEditOp::AddNodeInAllStyles:
        // A line without the style mark is a fault of the table, not of the standard.
        if (!SplitStyleEdit(edit, stylePath, suffix)) {
          ZOLAssertBool("Edit line lacks the style mark .*");
          break;
        }
        if (op.kind == ZOLDrwEditOp::AddValueInAllStyles)
          AddValueInAllStyles(parser, stylePath.c_str(), suffix.c_str(), op.occurrence);
        else
          AddNodeInAllStyles(parser, stylePath.c_str(), suffix.c_str(), op.occurrence);
        break;
      case ZOLDrwEditOp::UpdateVersion: {
        std::string_view text(edit);
        size_t colon = text.find(':');
        if (colon == std::string_view::npos) {
          ZOLAssertBool("Version line lacks old:new");
          break;
        }
        std::string oldText(text.substr(0, colon)), newText(text.substr(colon + 1));
        UpdateVersionNode(parser, oldText.c_str(), newText.c_str());
        break;
      }
    }
  }
}
