// How a control's event becomes a command: one at a time, with every failure shown in one place.
#ifndef TAGRIX_CORE_DISPATCH_H
#define TAGRIX_CORE_DISPATCH_H

#include <functional>

#include "core/context.h"

namespace tagrix {

// Thrown to end the program after the user has been told why.
struct EndProgram {};

// Carries out one command unless another one is running. A Failure (or any other exception) is shown in one message
// box.
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

// Shows a dialog; while it is open its own commands run.
void ShowModal(Context& context, Form& dialog);

}  // namespace tagrix

#endif
