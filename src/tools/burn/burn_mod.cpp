#include "tools/burn/burn_mod.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "audio/mp3.h"
#include "core/dispatch.h"
#include "core/failure.h"
#include "core/helpers.h"
#include "core/messages.h"
#include "core/publisher.h"
#include "core/session.h"
#include "dialogs/add_files.h"
#include "dialogs/folder_chooser.h"
#include "tools/burn/capacity.h"

namespace tagrix {
namespace {

// The folder of the burning program, with a trailing "\"; empty when it is not installed.
std::wstring BurnerFolder(Context& context) {
  return context.registry.GetRegValue(Hive::LocalMachine, L"Software\\VSO", L"CopyToDVD");
}

std::wstring BurnerPath(Context& context) { return BurnerFolder(context) + L"copytocd.exe"; }

// The page's controls are disabled, and the program is busy, for as long as this lives.
class Working {
 public:
  Working(BurnPage& page, Context& context) : page_(page), context_(context) { Set(true); }
  ~Working() { Set(false); }
  Working(const Working&) = delete;
  Working& operator=(const Working&) = delete;

 private:
  void Set(bool working) {
    page_.burn_frm.SetEnabled(!working);
    SetBusy(context_, working);
    if (working) return;
    context_.progress_box.SetPercent(0);
    SetStatus(context_, L"");
  }
  BurnPage& page_;
  Context& context_;
};

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

// True when the user has cancelled.
bool MeasurePending(BurnPage& page, Context& context) {
  ListBox& pending = page.burn_pending_lst;
  const int count = pending.Count();
  for (int i = 0; i < count && !context.cancelled; ++i) {
    const std::wstring path = pending.ItemText(i);
    SetStatus(context, DoubleAmpersands(path));
    if (std::int32_t time = 0; Measure(context, path, time)) {
      page.burn_lst.Add(path, time);
      page.totalTime += time;
      ShowBurnTime(page, context);
    }
    pending.Select(i);
    ShowProgress(context, Percentage(i + 1, count));
  }
  pending.RemoveSelected();
  return context.cancelled && pending.Count() > 0;
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

void AddPending(BurnPage& page, Context& context) {
  SumBurnTime(page, context);
  ShowBurnTime(page, context);
}

}  // namespace

bool DetectCopyToDvd(Context& context) {
  const bool found = !BurnerFolder(context).empty() && FileExists(context, BurnerPath(context));
  if (!found && context.prompts.Question(context.Text(message::kBurnerMissing))) {
    context.shell.OpenLink(publisher::kBurnerMakerSite);
  }
  return found;
}

void AddBurnFiles(BurnPage& page, Context& context) {
  for (std::wstring& path : ChooseFiles(context, {MediaFilter(L"Media files")})) {
    page.burn_pending_lst.Add(std::move(path));
  }
  AddPending(page, context);
}

void AddBurnFolder(BurnPage& page, Context& context) {
  ChooseFolder(context, ChooserMode::BurnFiles, {.files = &page.burn_pending_lst, .alsoKnown = &page.burn_lst});
  AddPending(page, context);
}

void SumBurnTime(BurnPage& page, Context& context) {
  bool cancelled = false;
  {
    const Working working(page, context);
    context.cancelled = false;
    cancelled = MeasurePending(page, context);
  }
  if (cancelled) ShowCancelMessage(context);
}

void ShowBurnTime(BurnPage& page, Context& context) {
  page.burn_time_lbl.SetText(context.Text(message::kBurnTime) + L" " + BurnTime(page.totalTime));
  page.burn_prog_bar.Refresh();
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

void DragBurnFile(BurnPage& page, int from, int to) {
  const std::wstring text = page.burn_lst.ItemText(from);
  const std::int32_t time = page.burn_lst.Value(from);
  page.burn_lst.Remove(from);
  page.burn_lst.Insert(to, text, time);
  page.burn_lst.SelectOnly(to);
}

void RunCopyToDvd(BurnPage& page, Context& context) {
  const Working working(page, context);
  context.cancelled = false;
  if (page.totalTime > kCdCapacity && !context.prompts.Question(context.Text(message::kTooLong))) return;

  const std::wstring list = context.programFolder + L"\\list.c2c";
  WriteWholeFile(context.files, list, context.codePage.ToBytes(ListText(page)));
  const std::wstring program = BurnerPath(context);
  const auto burner = context.shell.Start(program, program + L" /fl=\"" + list + L"\" /cdaudio=\"" + list + L"\"");
  if (burner == nullptr) return;
  SetStatus(context, context.Text(message::kBurning));
  while (burner->Running() && !context.cancelled) {
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
  page.burn_lst.keyPressed = [&](ListKey key) {
    Button& button = key == ListKey::Delete   ? page.burn_delete_btn
                     : key == ListKey::MoveUp ? page.burn_up_btn
                                              : page.burn_down_btn;
    button.Click();
  };
  page.burn_lst.itemTooltips = true;
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
  DetectCopyToDvd(context);
}

}  // namespace tagrix
