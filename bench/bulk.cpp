// bulk FOLDER: the bulk renamer adds all files of the folder, adds them again (all are known then), replaces the blanks
// in their names and undoes it. Prints how long each took, in milliseconds.
#include "bench/disk_context.h"
#include "tools/bulk/bulk_mod.h"

int main(int, char** arguments) {
  tagrix::DiskContext disk(arguments[1]);
  disk.context.settings.Put(tagrix::setting::kLastDir, disk.folder.path);
  tagrix::BulkPage page;
  tagrix::InitBulkPage(page, disk.context);
  page.space_chk.Click();

  for (const char* step : {"add", "again"}) {
    tagrix::Stopwatch added;
    disk.fakes.prompts.dialogs.emplace_back([&](tagrix::Form& chooser) {
      added = {};  // what the chooser took to show the folder's files is not adding them
      tagrix::Find<tagrix::Button>(chooser.layout, "ok_btn").Click();
    });
    page.addfolder_btn.Click();
    added.Print(step);
  }
  tagrix::Time("run", [&] { page.bulk_go_btn.Click(); });
  const bool renamed = page.journal.Count() > 0 && page.bulk_lst.ItemText(0) != page.journal.Former(0);
  tagrix::Time("undo", [&] { page.bulk_undo_btn.Click(); });
  // One message: the summary.
  return renamed && page.bulk_lst.ItemText(0) == page.journal.Former(0) && disk.fakes.prompts.messages.size() == 1 ? 0
                                                                                                                   : 1;
}
