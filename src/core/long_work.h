// The guard around every long operation: what it closes, shows and sets is put back on every way out.
#ifndef TAGRIX_CORE_LONG_WORK_H
#define TAGRIX_CORE_LONG_WORK_H

#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <utility>
#include <vector>

#include "base/progress.h"
#include "core/context.h"

namespace tagrix {

// From its construction to its end the program is busy and some controls are disabled; it has a cancel flag of its own,
// which the Cancel button of the moment raises. At its end the controls are as they were, progress and status line are
// empty and the program is not busy.
class LongWork : public Progress {
 public:
  explicit LongWork(Context& context, std::initializer_list<Control*> closed = {})
      : LongWork(context, closed, context.progress_box) {}
  // With a progress box of its own, and a label for the percentage.
  LongWork(Context& context, std::initializer_list<Control*> closed, ProgressBox& bar, Label* percentage = nullptr);
  ~LongWork() override;
  LongWork(const LongWork&) = delete;
  LongWork& operator=(const LongWork&) = delete;

  void Status(std::wstring_view text) override;
  void Percent(int percent) override;
  void LetEventsRun() override;
  void Pass(std::wstring_view item) override;
  bool Cancelled() const override { return cancelled_; }

  void Cancel() { cancelled_ = true; }
  bool Silent() const { return silent_; }

 protected:
  struct Quietly {};
  LongWork(Context& context, Quietly);

 private:
  Context& context_;
  ProgressBox& bar_;
  Label* percentage_ = nullptr;
  std::vector<std::pair<Control*, bool>> before_;
  std::uint64_t passed_ = 0;  // when an item was shown last
  const bool silent_;
  bool cancelled_ = false;
};

// Something that runs in the background: commands go on beside it, nothing of it is seen, and only the end of the
// program cancels it.
class SilentWork : public LongWork {
 public:
  explicit SilentWork(Context& context) : LongWork(context, Quietly()) {}
};

// Shows on its bar, and in the taskbar's button, how far something is.
void ShowPercent(Context& context, ProgressBox& bar, int percent);

// Shows a text in the status line, for a while also while a long operation would show its own.
void ShowNotice(Context& context, std::wstring_view text);

// Raises the cancel flag of the innermost operation that the user sees.
void CancelWork(Context& context);
// Raises all cancel flags: the program is about to end.
void CancelAllWork(Context& context);
// Whether an operation is under way that the user sees.
bool AtWork(const Context& context);

}  // namespace tagrix

#endif
