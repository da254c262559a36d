#include "tools/burn/burn_mod.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string>
#include <utility>

#include "audio/mp3.h"
#include "base/failure.h"
#include "base/publisher.h"
#include "base/times.h"
#include "core/dispatch.h"
#include "core/long_work.h"
#include "core/messages.h"
#include "core/notices.h"
#include "dialogs/ask_user.h"
#include "dialogs/choose_files.h"
#include "dialogs/folder_chooser.h"
#include "dialogs/rename_file.h"
#include "storage/small_files.h"
#include "tools/burn/capacity.h"
#include "views/file_menu.h"

namespace tagrix {
namespace {

// The folder of the burning program, with a trailing "\"; empty when it is not installed.
std::wstring BurnerFolder(Context& context) {
  return context.registry.GetRegValue(Hive::LocalMachine, L"Software\\VSO", L"CopyToDVD");
}

// Its path; empty when it is not installed. Without a folder nothing is started: not what the current folder holds.
std::wstring BurnerPath(Context& context) {
  const std::wstring folder = BurnerFolder(context);
  return folder.empty() ? folder : folder + L"copytocd.exe";
}

// False when the file can't be measured.
bool Measure(Context& context, const std::wstring& path, std::int32_t& milliseconds) {
  double time = 0;
  try {
    if (!GetMP3Duration(context.files, path, time, [&] { context.events.DoEvents(); })) return false;
  } catch (const Failure&) {
    return false;
  }
  milliseconds = static_cast<std::int32_t>(std::min(std::round(time), 2147483647.0));
  return true;
}

// Measures the pending files from the first on, until the user cancels; those that were looked at are no longer
// pending.
void MeasurePending(BurnPage& page, Context& context, LongWork& work) {
  std::vector<std::wstring>& pending = page.pending;
  std::size_t done = 0;
  for (; done < pending.size() && !work.Cancelled(); ++done) {
    const std::wstring& path = pending[done];
    work.Status(path);
    if (std::int32_t time = 0; Measure(context, path, time)) {
      page.burn_lst.Add(path, time);
      page.totalTime += time;
      ShowBurnTime(page, context);
    }
    work.Percent(Percentage(static_cast<long long>(done) + 1, std::ssize(pending)));
    work.LetEventsRun();
  }
  pending.erase(pending.begin(), pending.begin() + static_cast<std::ptrdiff_t>(done));
}

void Swap(ListBox& list, int i, int other) {
  const std::wstring text = list.ItemText(i);
  const std::int32_t value = list.Value(i);
  const bool selected = list.Selected(i);
  list.SetItemText(i, list.ItemText(other));
  list.SetValue(i, list.Value(other));
  list.Select(i, list.Selected(other));
  list.SetItemText(other, text);
  list.SetValue(other, value);
  list.Select(other, selected);
}

std::wstring ListText(const BurnPage& page) {
  std::wstring lines;
  for (int i = 0; i < page.burn_lst.Count(); ++i) lines += page.burn_lst.ItemText(i) + L"\r\n";
  return lines;
}

void AddPending(BurnPage& page, Context& context, std::vector<std::wstring> paths) {
  std::move(paths.begin(), paths.end(), std::back_inserter(page.pending));
  SumBurnTime(page, context);
  ShowBurnTime(page, context);
}

// What is pending already is not added again.
void AddNewPending(BurnPage& page, Context& context, std::vector<std::wstring> paths) {
  std::erase_if(paths, [&](const std::wstring& path) {
    return std::find(page.pending.begin(), page.pending.end(), path) != page.pending.end();
  });
  AddPending(page, context, std::move(paths));
}

}  // namespace

bool DetectCopyToDvd(Context& context) {
  if (FileExists(context.files, BurnerPath(context))) return true;
  if (!context.settings.Get(setting::kAskForBurner)) return false;
  const UserAnswer answer = AskUser(context, {.text = context.Text(message::kBurnerMissing),
                                              .answers = {context.Text(message::kYes), context.Text(message::kNo)},
                                              .standard = kNo,
                                              .tick = context.Text(message::kDontAskAgain)});
  if (answer.chosen == kYes) {
    context.shell.OpenLink(publisher::kBurnerMakerSite);
  } else if (answer.ticked) {
    context.settings.Put(setting::kAskForBurner, false);
  }
  return false;
}

void AddBurnFiles(BurnPage& page, Context& context) {
  AddPending(page, context, ChooseFiles(context, {MediaFilter(L"Media files")}));
}

void AddBurnFolder(BurnPage& page, Context& context) {
  AddNewPending(page, context, ChooseAudioFiles(context, ChooserMode::BurnFiles, {&page.burn_lst}));
}

void DropOnBurn(BurnPage& page, Context& context, const std::vector<std::wstring>& paths) {
  AddNewPending(page, context, AudioFilesAmong(context, paths, ChooserMode::BurnFiles, {&page.burn_lst}));
}

void SumBurnTime(BurnPage& page, Context& context) {
  {
    LongWork work(context, {&page.burn_frm});
    MeasurePending(page, context, work);
  }
  if (!page.pending.empty()) ShowCancelMessage(context);
}

void DeleteBurnFiles(BurnPage& page, Context& context) {
  for (int i = 0; i < page.burn_lst.Count(); ++i) {
    if (page.burn_lst.Selected(i)) page.totalTime -= page.burn_lst.Value(i);
  }
  page.burn_lst.RemoveSelected();
  ShowBurnTime(page, context);
}

void ResetBurnFiles(BurnPage& page, Context& context) {
  page.burn_lst.Clear();
  page.totalTime = 0;
  ShowBurnTime(page, context);
}

void MoveBurnFiles(BurnPage& page, int by) {
  ListBox& list = page.burn_lst;
  const int count = list.Count();
  for (int step = 1; step < count; ++step) {
    const int i = by < 0 ? step : count - 1 - step;
    if (list.Selected(i) && !list.Selected(i + by)) Swap(list, i, i + by);
  }
}

void DragBurnFile(BurnPage& page, int from, int to) { page.burn_lst.MoveItem(from, to); }

void RunCopyToDvd(BurnPage& page, Context& context) {
  LongWork work(context, {&page.burn_frm});
  if (page.totalTime > kCdCapacity && !context.prompts.Question(context.Text(message::kTooLong))) return;

  const std::wstring list = context.programFolder + L"\\list.c2c";
  WriteWholeFile(context.files, list, context.codePage.ToBytes(ListText(page)));
  const std::wstring program = BurnerPath(context);
  if (program.empty()) return;
  const auto burner = context.shell.Start(program, program + L" /fl=\"" + list + L"\" /cdaudio=\"" + list + L"\"");
  if (burner == nullptr) return;
  work.Status(context.Text(message::kBurning));
  while (burner->Running() && !work.Cancelled()) {
    context.events.DoEvents();
    context.events.Wait(100);
    context.events.DoEvents();
  }
}

void InitBurnPage(BurnPage& page, Context& context) {
  const auto wire = [&](Button& button, auto function) { button.clicked = Command(context, function); };
  wire(page.burn_add_btn, [&] { AddBurnFiles(page, context); });
  wire(page.burn_addfolder_btn, [&] { AddBurnFolder(page, context); });
  wire(page.burn_delete_btn, [&] { DeleteBurnFiles(page, context); });
  wire(page.burn_reset_btn, [&] { ResetBurnFiles(page, context); });
  wire(page.burn_up_btn, [&] { MoveBurnFiles(page, -1); });
  wire(page.burn_down_btn, [&] { MoveBurnFiles(page, 1); });
  wire(page.burn_btn, [&] { RunCopyToDvd(page, context); });
  wire(page.c2cd_btn, [&] { context.shell.OpenLink(publisher::kBurnerSite); });

  page.burn_lst.dragged = Command(context, [&](int from, int to) { DragBurnFile(page, from, to); });
  const auto rename = Command(context, [&] { RenameSelected(context, page.burn_lst); });
  page.burn_lst.keyPressed = [&page, rename](ListKey key) {
    if (key == ListKey::Rename) return rename();
    Button& button = key == ListKey::Delete   ? page.burn_delete_btn
                     : key == ListKey::MoveUp ? page.burn_up_btn
                                              : page.burn_down_btn;
    button.Click();
  };
  page.burn_lst.menu = [&] { return FileMenu(context, page.burn_lst); };
  page.burn_lst.cell = [&](int row, int column) {
    return column == 0 ? page.burn_lst.ItemText(row) : MinutesAndSeconds(page.burn_lst.Value(row));
  };
  page.burn_prog_bar.paint = [&](Canvas& canvas) { PaintCapacity(canvas, page.totalTime); };

  const std::wstring skin = context.programFolder + L"\\skin\\";
  page.burn_up_btn.SetImage(skin + L"up.ico", 16);
  page.burn_down_btn.SetImage(skin + L"down.ico", 16);
  page.c2cd_btn.SetImage(skin + L"c2dvd.gif", 48);
  page.c2cd_btn.SetTooltip(publisher::kBurnerSite);
  ShowBurnTime(page, context);
}

}  // namespace tagrix
