#include "core/context.h"

namespace tagrix {

void SetBusy(Context& context, bool busy) {
  context.busy = busy;
  for (Button& button : context.page_btn) button.SetEnabled(!busy);
}

void ShowModal(Context& context, Form& dialog) {
  struct Pause {
    explicit Pause(bool& flag) : running(flag), before(flag) { running = false; }
    ~Pause() { running = before; }
    bool& running;
    bool before;
  } pause(context.running);
  context.prompts.ShowModal(dialog);
}

}  // namespace tagrix
