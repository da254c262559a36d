#include "core/context.h"

namespace tagrix {

void SetBusy(Context& context, bool busy) {
  context.busy = busy;
  for (Button& button : context.page_btn) button.SetEnabled(!busy);
}

}  // namespace tagrix
