// A question whose answers say what happens, where Yes and No would not.
#ifndef TAGRIX_DIALOGS_ASK_USER_H
#define TAGRIX_DIALOGS_ASK_USER_H

#include <string>
#include <vector>

#include "core/context.h"

namespace tagrix {

struct Question {
  std::wstring text;
  std::vector<std::wstring> answers;  // captions of the buttons "answer0_btn", ...; Esc gives the last one
  int standard = 0;                   // given by Enter
  std::wstring tick;                  // what can be ticked beside; empty: nothing
  std::vector<int> closed = {};       // answers that can't be given now
};

struct UserAnswer {
  int chosen = 0;  // position among the answers
  bool ticked = false;
};

// Shows the dialog "question" and returns when it was answered.
UserAnswer AskUser(Context& context, const Question& question);

// The answers of a question of Yes and No.
inline constexpr int kYes = 0, kNo = 1;

}  // namespace tagrix

#endif
