#include "core/dispatch.h"

#include <exception>

#include "core/failure.h"
#include "core/helpers.h"
#include "core/messages.h"
#include "core/text.h"

namespace tagrix {
namespace {

void Report(Context& context, const std::wstring& what) {
  SetBusy(context, false);
  SetStatus(context, L"");
  context.progress_box.SetPercent(0);
  context.prompts.Message(context.Text(message::kUnexpectedError) + L"\r\n\r\n" + what);
}

}  // namespace

void RunNotice(Context& context, const std::function<void()>& notice) {
  try {
    notice();
  } catch (const EndProgram&) {
    context.quit();
  } catch (const Failure& failure) {
    Report(context, failure.Description());
  } catch (const std::exception& error) {
    Report(context, Widen(error.what()));
  }
}

void RunCommand(Context& context, const std::function<void()>& command) {
  if (context.running) return;
  RunNotice(context, [&] {
    struct Running {
      explicit Running(bool& running) : flag(running) { flag = true; }
      ~Running() { flag = false; }
      bool& flag;
    } running(context.running);
    command();
  });
}

RestoreOnFailure::RestoreOnFailure(std::initializer_list<Control*> controls) : exceptions_(std::uncaught_exceptions()) {
  for (Control* control : controls) before_.emplace_back(control, control->Enabled());
}

RestoreOnFailure::~RestoreOnFailure() {
  if (std::uncaught_exceptions() == exceptions_) return;
  for (const auto& [control, enabled] : before_) control->SetEnabled(enabled);
}

}  // namespace tagrix
