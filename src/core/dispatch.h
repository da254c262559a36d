// How a control's event becomes a command: one at a time, with every failure shown in one place.
#ifndef TAGRIX_CORE_DISPATCH_H
#define TAGRIX_CORE_DISPATCH_H

#include <functional>
#include <initializer_list>
#include <utility>
#include <vector>

#include "core/context.h"

namespace tagrix {

// Thrown to end the program after the user has been told why.
struct EndProgram {};

// Carries out one command unless another one is running. A Failure (or any other exception) is shown in one message box
// and the busy state and the status line are put back.
void RunCommand(Context& context, const std::function<void()>& command);

// Runs what follows a change in a control (a keystroke, a click on a tick); never refused, failures shown alike.
void RunNotice(Context& context, const std::function<void()>& notice);

// The handler for a button, a double click or a drag: `RunCommand` with the arguments of the event bound.
template <typename Function>
auto Command(Context& context, Function function) {
  return [&context, function](auto... event) { RunCommand(context, [&] { function(event...); }); };
}

template <typename Function>
auto Notice(Context& context, Function function) {
  return [&context, function](auto... event) { RunNotice(context, [&] { function(event...); }); };
}

// Puts the enabled state of some controls back to what it is now when an exception leaves the scope.
class RestoreOnFailure {
 public:
  RestoreOnFailure(std::initializer_list<Control*> controls);
  ~RestoreOnFailure();
  RestoreOnFailure(const RestoreOnFailure&) = delete;
  RestoreOnFailure& operator=(const RestoreOnFailure&) = delete;

 private:
  std::vector<std::pair<Control*, bool>> before_;
  int exceptions_;
};

}  // namespace tagrix

#endif
