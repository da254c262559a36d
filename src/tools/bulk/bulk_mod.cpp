#include "tools/bulk/bulk_mod.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include "base/file_names.h"
#include "base/paths.h"
#include "base/text.h"
#include "core/dispatch.h"
#include "core/long_work.h"
#include "core/messages.h"
#include "core/notices.h"
#include "dialogs/choose_files.h"
#include "dialogs/folder_chooser.h"
#include "dialogs/rename_file.h"
#include "views/file_menu.h"

namespace tagrix {
namespace {

// What the rules make of a file's name, as the file can be called.
std::wstring NewName(std::wstring_view name, const CleaningRules& rules) {
  std::wstring cleaned = CleanedName(name, rules);
  return cleaned == name ? cleaned : SafeFileName(std::move(cleaned));
}

// Renames the file of entry `i` if the rules change its name. True when they do, whatever the file system says: the
// list shows the name that was meant.
bool CleanEntry(BulkPage& page, Context& context, const CleaningRules& rules, int i) {
  const std::wstring& path = page.bulk_lst.ItemText(i);
  page.journal.Record(path);
  const auto found = context.files.Find(path);
  if (!found || found->folder) return false;
  const std::wstring name = NewName(found->name, rules);
  if (name == found->name) return false;
  const std::size_t folder = path.size() - std::min(path.size(), found->name.size());
  std::wstring former = path, renamed = path;
  former.replace(folder, former.npos, found->name);  // spelled as the file is
  renamed.replace(folder, renamed.npos, name);
  RenameFile(context, former, renamed);
  page.bulk_lst.SetItemText(i, std::move(renamed));
  return true;
}

LongWork BulkWork(BulkPage& page, Context& context) {
  return {
      context, {&page.bulk_list_frm, &page.bulk_rules_frm, &page.bulk_go_btn}, page.bulk_cur_bar, &page.bulk_cur_hst};
}

// How many names the rules changed; less than 0 when the user cancelled.
int CleanEntries(BulkPage& page, Context& context, const CleaningRules& rules) {
  LongWork work = BulkWork(page, context);
  const int count = page.bulk_lst.Count();
  int changed = 0;
  for (int i = 0; i < count; ++i) {
    if (work.Cancelled()) return -1;
    work.Pass(page.bulk_lst.ItemText(i));
    if (CleanEntry(page, context, rules, i)) ++changed;
    work.Percent(Percentage(i + 1, count));
  }
  return changed;
}

class UndoneEntries : public UndoList {
 public:
  UndoneEntries(BulkPage& page, Context& context) : page_(page), context_(context) {}
  int Count() const override { return page_.bulk_lst.Count(); }
  std::wstring Path(int i) const override { return page_.bulk_lst.ItemText(i); }
  void Restored(int i, const std::wstring& former) override { page_.bulk_lst.SetItemText(i, former); }
  void Kept(int i, const std::wstring& former, Renamed result) override {
    if (result == Renamed::Failed) return ShowRenameFailure(context_, former);
    context_.prompts.Message(FillMessage(context_.Text(message::kUndoClash), {former, Path(i)}));
  }

 private:
  BulkPage& page_;
  Context& context_;
};

std::wstring Cell(const BulkPage& page, int row, int column) {
  const std::wstring& path = page.bulk_lst.ItemText(row);
  switch (column) {
    case 0:
      return std::wstring(FileNamePart(path));
    case 1:
      return TickedRules(page) == CleaningRules() ? std::wstring() : NewName(FileNamePart(path), TickedRules(page));
    default:
      return WithoutBackslash(std::wstring(FolderPart(path)));
  }
}

RowMark Mark(const BulkPage& page, int row) {
  const std::wstring_view name = FileNamePart(page.bulk_lst.ItemText(row));
  const CleaningRules rules = TickedRules(page);
  return rules != CleaningRules() && CleanedName(name, rules) != name ? RowMark::Changed : RowMark::None;
}

void RulesChanged(BulkPage& page) {
  page.case_frm.SetEnabled(page.case_chk.Checked());
  for (OptionButton* option : page.cases) option->SetEnabled(page.case_chk.Checked());
  UpdateBulkGo(page);
  page.bulk_lst.Refresh();
}

void WireRule(BulkPage& page, Context& context, CheckBox& rule, CheckBox* excluded = nullptr) {
  rule.clicked = Notice(context, [&page, &rule, excluded] {
    if (excluded != nullptr && rule.Checked()) excluded->SetChecked(false);
    RulesChanged(page);
  });
}

}  // namespace

void InitBulkPage(BulkPage& page, Context& context) {
  page.add_btn.clicked = Command(context, [&] { AddBulkFiles(page, context); });
  page.addfolder_btn.clicked = Command(context, [&] { AddBulkFolder(page, context); });
  page.Command3.clicked = Command(context, [&] { DeleteBulkFiles(page); });
  page.reset_btn.clicked = Command(context, [&] { ResetBulk(page); });
  page.bulk_go_btn.clicked = Command(context, [&] { RunBulkRename(page, context); });
  page.bulk_undo_btn.clicked = Command(context, [&] { UndoBulkRename(page, context); });
  const auto rename = Command(context, [&] { RenameSelected(context, page.bulk_lst); });
  page.bulk_lst.keyPressed = [&page, rename](ListKey key) {
    if (key == ListKey::Rename) return rename();
    if (key == ListKey::Delete) page.Command3.Click();
  };

  WireRule(page, context, page.space_chk, &page.under_chk);
  WireRule(page, context, page.under_chk, &page.space_chk);
  WireRule(page, context, page.merge_chk, &page.unmerge_chk);
  WireRule(page, context, page.unmerge_chk, &page.merge_chk);
  WireRule(page, context, page.multi_chk);
  WireRule(page, context, page.case_chk);
  for (OptionButton* option : page.cases) option->clicked = Notice(context, [&] { RulesChanged(page); });

  page.bulk_lst.cell = [&](int row, int column) { return Cell(page, row, column); };
  page.bulk_lst.mark = [&](int row) { return Mark(page, row); };
  page.bulk_lst.menu = [&] { return FileMenu(context, page.bulk_lst); };
  page.fluc_rdo.Choose();
  RulesChanged(page);
  page.bulk_undo_btn.SetEnabled(false);
}

void AddBulkFiles(BulkPage& page, Context& context) {
  page.bulk_lst.Append(
      ChooseFiles(context, {{L"MP3 Files", L"*.mp3"}, {L"OGG Files", L"*.ogg"}, MediaFilter(L"All Media files")}));
  UpdateBulkGo(page);
}

void AddBulkFolder(BulkPage& page, Context& context) {
  page.bulk_lst.Append(ChooseAudioFiles(context, ChooserMode::BulkFiles, {&page.bulk_lst}));
  UpdateBulkGo(page);
}

void DropOnBulk(BulkPage& page, Context& context, const std::vector<std::wstring>& paths) {
  page.bulk_lst.Append(AudioFilesAmong(context, paths, ChooserMode::BulkFiles, {&page.bulk_lst}));
  UpdateBulkGo(page);
}

void DeleteBulkFiles(BulkPage& page) {
  page.bulk_lst.RemoveSelected();
  UpdateBulkGo(page);
  page.bulk_undo_btn.SetEnabled(false);  // the former names don't line up any more
}

void ResetBulk(BulkPage& page) {
  page.bulk_lst.Clear();
  UpdateBulkGo(page);
  page.bulk_undo_btn.SetEnabled(false);
}

void RunBulkRename(BulkPage& page, Context& context) {
  page.bulk_undo_btn.SetEnabled(false);
  page.journal.Clear();
  const int changed = CleanEntries(page, context, TickedRules(page));
  if (changed < 0) {
    ShowCancelMessage(context);
    return;
  }
  page.bulk_undo_btn.SetEnabled(true);
  const std::wstring summary = FillMessage(context.Text(message::kBulkSummary),
                                           {std::to_wstring(changed), std::to_wstring(page.bulk_lst.Count())});
  context.prompts.Message(context.Text(message::kDone) + L"\r\n\r\n" + summary);
}

void UndoBulkRename(BulkPage& page, Context& context) {
  Undone undone{};
  {
    LongWork work = BulkWork(page, context);
    UndoneEntries list(page, context);
    undone = UndoRenames(context.files, page.journal, list, work);
  }
  if (undone == Undone::All) page.bulk_undo_btn.SetEnabled(false);
  if (undone == Undone::Cancelled) ShowCancelMessage(context);
}

void UpdateBulkGo(BulkPage& page) {
  const bool ticked = page.case_chk.Checked() || page.space_chk.Checked() || page.under_chk.Checked() ||
                      page.multi_chk.Checked() || page.unmerge_chk.Checked() || page.merge_chk.Checked();
  page.bulk_go_btn.SetEnabled(page.bulk_lst.Count() > 0 && ticked);
}

CleaningRules TickedRules(const BulkPage& page) {
  CleaningRules rules{.multipleSpaces = page.multi_chk.Checked(),
                      .unmerge = page.unmerge_chk.Checked(),
                      .merge = page.merge_chk.Checked(),
                      .underscores = page.under_chk.Checked(),
                      .spaces = page.space_chk.Checked()};
  if (page.case_chk.Checked()) {
    rules.letterCase = page.uc_rdo.Checked()   ? CaseRule::Upper
                       : page.lc_rdo.Checked() ? CaseRule::Lower
                                               : CaseRule::Capitals;
  }
  return rules;
}

}  // namespace tagrix
