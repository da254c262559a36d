#include "update/update_window.h"

#include <memory>
#include <string>

#include "core/dispatch.h"
#include "core/long_work.h"
#include "core/messages.h"
#include "update/transfer.h"
#include "update/update_rules.h"

namespace tagrix {
namespace {

constexpr std::uint64_t kSpeedStep = 250;  // milliseconds between two measurements, so that the figure can be read

Node UpdLayout(Upd& dialog) {
  return Margin(kWideGap, MinSize(360, 0,
                                  Gap(kWideGap, Column({dialog.file_lbl, dialog.download_bar,
                                                        Row({Stretch(1, dialog.progress_lbl), dialog.speed_lbl}),
                                                        Row({Spacer(), dialog.cancel_btn})}))));
}

// Bytes per second between two measurements.
class SpeedMeter {
 public:
  explicit SpeedMeter(std::uint64_t ticks) : ticks_(ticks) {}
  // Shows the speed when it is time to.
  void Measure(std::uint64_t done, std::uint64_t ticks, Label& speed_lbl) {
    const std::uint64_t elapsed = ticks - ticks_;
    if (elapsed < kSpeedStep || done < done_) return;
    speed_lbl.SetText(DisplaySize((done - done_) * 1000 / elapsed) + L"/s");
    done_ = done;
    ticks_ = ticks;
  }

 private:
  std::uint64_t ticks_, done_ = 0;
};

}  // namespace

DownloadResult DownloadInWindow(Context& context, const FtpRequest& request) {
  Upd dialog;
  dialog.form.caption = L"O-Updater";
  dialog.form.layout = UpdLayout(dialog);
  dialog.form.cancelButton = &dialog.cancel_btn;
  dialog.cancel_btn.SetText(context.Text(message::kCancel));
  dialog.file_lbl.SetText(L"File : " + request.remoteFile);

  auto result = DownloadResult::Failed;
  dialog.cancel_btn.clicked = Command(context, [&] {
    if (!context.prompts.Question(L"This will cancel the update. Continue anyway ?")) return;
    result = DownloadResult::Cancelled;
    dialog.form.Close();
  });
  SpeedMeter meter(context.events.TickCount());
  std::unique_ptr<Transfer> transfer;
  dialog.form.shown = [&] {
    transfer = std::make_unique<Transfer>(
        context.ftp, request,
        [&](bool complete) {
          result = complete ? DownloadResult::Complete : DownloadResult::Failed;
          dialog.form.Close();
        },
        [&](std::uint64_t done, std::uint64_t total) {
          dialog.progress_lbl.SetText(DownloadProgress(done, total));
          ShowPercent(context, dialog.download_bar, DownloadPercent(done, total));
          meter.Measure(done, context.events.TickCount(), dialog.speed_lbl);
        });
  };
  ShowModal(context, dialog.form);
  context.progress_box.SetPercent(0);
  return result;
}

}  // namespace tagrix
