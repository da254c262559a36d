#include "dialogs/summary.h"

#include <utility>

#include "base/publisher.h"
#include "base/text.h"
#include "core/dispatch.h"
#include "core/messages.h"
#include "core/notices.h"

namespace tagrix {
namespace {

constexpr int kSummaryWidth = 560;  // of a line of text

// Failures tell their reasons in several lines.
std::wstring OneLine(const std::wstring& text) { return Replace(text, L"\r\n", L" "); }

}  // namespace

void ShowSummary(Context& context, const std::wstring& heading, const std::wstring& text,
                 std::vector<SummaryLine> lines) {
  Summary window;
  window.form.caption = publisher::kProduct;
  window.heading_lbl.SetText(DoubleAmpersands(heading));
  window.text_lbl.SetText(text);
  SetCaptions(context, {{window.ok_btn, message::kOk}});
  for (SummaryLine& line : lines) {
    line.reason = OneLine(line.reason);
    window.left_lst.Add(line.file + L": " + line.reason);
  }
  window.left_lst.SetColumns({{context.Text(message::kFileColumn), 180}, {context.Text(message::kReasonColumn), 0}});
  window.left_lst.cell = [&](int row, int column) {
    const SummaryLine& line = lines.at(static_cast<std::size_t>(row));
    return column == 0 ? line.file : line.reason;
  };
  window.left_lst.SetVisible(!lines.empty());
  window.ok_btn.clicked = [&] { window.form.Close(); };

  window.form.layout = Margin(kWideGap, Gap(kWideGap, Column({window.heading_lbl, Wrap(kSummaryWidth, window.text_lbl),
                                                              Stretch(1, MinSize(kSummaryWidth, 160, window.left_lst)),
                                                              Row({Spacer(), window.ok_btn})})));
  window.form.defaultButton = window.form.cancelButton = &window.ok_btn;
  window.form.firstFocus = &window.ok_btn;
  ShowModal(context, window.form);
}

}  // namespace tagrix
