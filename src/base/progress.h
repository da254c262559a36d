// How a long operation of the engine tells how far it is, without knowing who listens.
#ifndef TAGRIX_BASE_PROGRESS_H
#define TAGRIX_BASE_PROGRESS_H

#include <string_view>

namespace tagrix {

class Progress {
 public:
  virtual ~Progress() = default;
  // What is being done now, as it stands (an "&" is an "&"); empty: nothing to tell.
  virtual void Status(std::wstring_view text) = 0;
  // How much of it is done, 0 to 100.
  virtual void Percent(int percent) = 0;
  // Lets what waits outside happen: the user's clicks, repainting, network events.
  virtual void LetEventsRun() = 0;
  // Says which of many quick items is next; shows it and lets events run as often as the eye needs.
  virtual void Pass(std::wstring_view item) = 0;
  // Whether the user wants the operation to end.
  virtual bool Cancelled() const = 0;
};

// The share of `done` in `total`, in whole per cent; 0 when there is nothing to do.
constexpr int Percentage(long long done, long long total) {
  return total == 0 ? 0 : static_cast<int>(done * 100 / total);
}

}  // namespace tagrix

#endif
