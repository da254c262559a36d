#include "core/long_work.h"

#include <algorithm>
#include <string>

#include "base/text.h"

namespace tagrix {
namespace {

constexpr std::uint64_t kShownEvery = 40;  // milliseconds: as the eye needs it, and far below a noticeable wait

constexpr std::uint64_t kNoticeStays = 3000;  // milliseconds: time to read it

}  // namespace

LongWork::LongWork(Context& context, std::initializer_list<Control*> closed, ProgressBox& bar, Label* percentage)
    : context_(context), bar_(bar), percentage_(percentage), silent_(false) {
  SetBusy(context, true);
  for (Control* control : closed) {
    before_.emplace_back(control, control->Enabled());
    control->SetEnabled(false);
  }
  context.works.push_back(this);
}

LongWork::LongWork(Context& context, Quietly) : context_(context), bar_(context.progress_box), silent_(true) {
  context.works.push_back(this);
}

LongWork::~LongWork() {
  std::erase(context_.works, this);
  if (silent_) return;
  for (const auto& [control, enabled] : before_) control->SetEnabled(enabled);
  Percent(0);
  context_.noticeUntil = 0;
  Status({});
  SetBusy(context_, false);
}

void LongWork::Status(std::wstring_view text) {
  if (silent_ || context_.events.TickCount() < context_.noticeUntil) return;
  context_.status_lbl.SetText(DoubleAmpersands(text));
}

void LongWork::Percent(int percent) {
  if (silent_ || (percent == bar_.Percent() && percent > 0)) return;
  ShowPercent(context_, bar_, percent);
  if (percentage_ != nullptr) percentage_->SetText(percent == 0 ? std::wstring() : std::to_wstring(percent) + L" %");
}

void LongWork::LetEventsRun() { context_.events.DoEvents(); }

void LongWork::Pass(std::wstring_view item) {
  const std::uint64_t now = context_.events.TickCount();
  if (now - passed_ < kShownEvery) return;
  passed_ = now;
  Status(item);
  LetEventsRun();
}

void ShowPercent(Context& context, ProgressBox& bar, int percent) {
  bar.SetPercent(percent);
  context.progress_box.SetPercent(percent);  // the main window's, which the taskbar follows
}

void ShowNotice(Context& context, std::wstring_view text) {
  context.noticeUntil = context.events.TickCount() + kNoticeStays;
  context.status_lbl.SetText(DoubleAmpersands(text));
}

void CancelWork(Context& context) {
  const auto seen =
      std::find_if(context.works.rbegin(), context.works.rend(), [](auto* work) { return !work->Silent(); });
  if (seen != context.works.rend()) (*seen)->Cancel();
}

void CancelAllWork(Context& context) {
  for (LongWork* work : context.works) work->Cancel();
}

bool AtWork(const Context& context) {
  return std::any_of(context.works.begin(), context.works.end(), [](auto* work) { return !work->Silent(); });
}

}  // namespace tagrix
