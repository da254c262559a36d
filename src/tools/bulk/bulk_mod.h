// What the bulk renamer does: collects files, cleans their names, and restores them.
#ifndef TAGRIX_TOOLS_BULK_BULK_MOD_H
#define TAGRIX_TOOLS_BULK_BULK_MOD_H

#include <string>
#include <vector>

#include "core/context.h"
#include "tools/bulk/bulk_page.h"
#include "tools/bulk/cleaning_rules.h"

namespace tagrix {

// Wires the events and sets the state at start.
void InitBulkPage(BulkPage& page, Context& context);

void AddBulkFiles(BulkPage& page, Context& context);
void AddBulkFolder(BulkPage& page, Context& context);
// Files and folders that were dropped on the page.
void DropOnBulk(BulkPage& page, Context& context, const std::vector<std::wstring>& paths);
void DeleteBulkFiles(BulkPage& page);
void ResetBulk(BulkPage& page);
// Renames every file of the list whose name the ticked rules change.
void RunBulkRename(BulkPage& page, Context& context);
// Gives the files of the last run their former names back.
void UndoBulkRename(BulkPage& page, Context& context);

// Enables the start exactly when there are files and a rule is ticked.
void UpdateBulkGo(BulkPage& page);
CleaningRules TickedRules(const BulkPage& page);

}  // namespace tagrix

#endif
