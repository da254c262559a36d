// A progress that keeps what it is told, and can be cancelled.
#ifndef TAGRIX_TESTS_FAKES_QUIET_PROGRESS_H
#define TAGRIX_TESTS_FAKES_QUIET_PROGRESS_H

#include <functional>
#include <string>
#include <vector>

#include "base/progress.h"

namespace tagrix {

struct QuietProgress : Progress {
  void Status(std::wstring_view text) override { texts.emplace_back(text); }
  void Percent(int percent) override { percents.push_back(percent); }
  void LetEventsRun() override {
    if (eachTime) eachTime();
  }
  void Pass(std::wstring_view) override { LetEventsRun(); }
  bool Cancelled() const override { return cancelled; }

  std::vector<std::wstring> texts;
  std::vector<int> percents;
  std::function<void()> eachTime;  // when events run
  bool cancelled = false;
};

}  // namespace tagrix

#endif
