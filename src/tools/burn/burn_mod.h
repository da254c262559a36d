// What the burn page does: gathers a compilation and hands it to the burning program.
#ifndef TAGRIX_TOOLS_BURN_BURN_MOD_H
#define TAGRIX_TOOLS_BURN_BURN_MOD_H

#include <string>
#include <vector>

#include "core/context.h"
#include "tools/burn/burn_page.h"

namespace tagrix {

// Wires the events and sets the state at start.
void InitBurnPage(BurnPage& page, Context& context);

// Whether the burning program is installed; when it is not, the user is offered its maker's web site, unless they don't
// want to be asked again.
bool DetectCopyToDvd(Context& context);

void AddBurnFiles(BurnPage& page, Context& context);
void AddBurnFolder(BurnPage& page, Context& context);
// Files and folders that were dropped on the page.
void DropOnBurn(BurnPage& page, Context& context, const std::vector<std::wstring>& paths);
// Measures the pending files and moves them into the compilation; those that can't be measured are dropped. What is
// left when the user cancels stays pending.
void SumBurnTime(BurnPage& page, Context& context);

void DeleteBurnFiles(BurnPage& page, Context& context);
void ResetBurnFiles(BurnPage& page, Context& context);
// Moves the selected entries by one place: -1 up, 1 down. They stop at the end and don't overtake each other.
void MoveBurnFiles(BurnPage& page, int by);
// Moves one entry to another place; those between give way.
void DragBurnFile(BurnPage& page, int from, int to);

// Writes the list file, starts the burning program on it and waits until it ends or the user stops waiting.
void RunCopyToDvd(BurnPage& page, Context& context);

}  // namespace tagrix

#endif
