#include "dialogs/ask_user.h"

#include <deque>
#include <utility>

#include "base/publisher.h"
#include "core/dispatch.h"
#include "forms/buttons.h"
#include "forms/form.h"
#include "forms/text_controls.h"

namespace tagrix {
namespace {

constexpr int kWidth = 420;  // of a line of the question

}  // namespace

UserAnswer AskUser(Context& context, const Question& question) {
  UserAnswer answer{static_cast<int>(question.answers.size()) - 1};
  Label text("question_lbl", LabelStyle::Literal);
  CheckBox tick("again_chk", question.tick);
  std::deque<Button> buttons;
  Form form("question");
  text.SetText(question.text);
  tick.SetVisible(!question.tick.empty());

  std::vector<Node> row{tick, Spacer()};
  for (int i = 0; i < static_cast<int>(question.answers.size()); ++i) {
    Button& button =
        buttons.emplace_back("answer" + std::to_string(i) + "_btn", question.answers[static_cast<std::size_t>(i)]);
    button.clicked = [&, i] {
      answer = {i, tick.Checked()};
      form.Close();
    };
    row.emplace_back(button);
  }
  for (const int i : question.closed) buttons[static_cast<std::size_t>(i)].SetEnabled(false);
  form.caption = publisher::kProduct;
  form.layout = Margin(kWideGap, Gap(kWideGap, Column({Wrap(kWidth, text), Row(std::move(row))})));
  form.firstFocus = form.defaultButton = &buttons[static_cast<std::size_t>(question.standard)];
  form.cancelButton = &buttons.back();
  ShowModal(context, form);
  return answer;
}

}  // namespace tagrix
