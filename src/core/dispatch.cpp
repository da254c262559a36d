#include "core/dispatch.h"

#include <exception>

#include "base/failure.h"
#include "base/text.h"
#include "core/failure_text.h"
#include "core/messages.h"

namespace tagrix {
namespace {

// The flag has another value for as long as this lives.
class Meanwhile {
 public:
  Meanwhile(bool& flag, bool value) : flag_(flag), before_(flag) { flag = value; }
  ~Meanwhile() { flag_ = before_; }
  Meanwhile(const Meanwhile&) = delete;
  Meanwhile& operator=(const Meanwhile&) = delete;

 private:
  bool& flag_;
  const bool before_;
};

void Report(Context& context, const std::wstring& what = {}) {
  context.prompts.Message(context.Text(message::kUnexpectedError) + (what.empty() ? what : L"\r\n\r\n" + what));
}

}  // namespace

void RunNotice(Context& context, const std::function<void()>& notice) {
  try {
    notice();
  } catch (const EndProgram&) {
    context.quit();
  } catch (const Failure& failure) {
    Report(context, FailureText(context.language, failure));
  } catch (const std::exception&) {
    Report(context);  // what it says is for programmers
  }
}

void RunCommand(Context& context, const std::function<void()>& command) {
  if (context.running) return;
  RunNotice(context, [&] {
    const Meanwhile running(context.running, true);
    command();
  });
}

void ShowModal(Context& context, Form& dialog) {
  const Meanwhile pause(context.running, false);
  context.prompts.ShowModal(dialog);
}

}  // namespace tagrix
