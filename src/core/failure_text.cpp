#include "core/failure_text.h"

#include "core/messages.h"

namespace tagrix {

std::wstring CauseText(const Language& language, const Failure& failure) {
  const int cause = static_cast<int>(failure.Why()) - 1;
  return cause < 0 ? failure.Reason() : language.GetLangText(message::kFirstCause + cause);
}

std::wstring FailureText(const Language& language, const Failure& failure) {
  std::wstring text = language.GetLangText(message::kFirstAction + static_cast<int>(failure.Tried()));
  const std::wstring reason = CauseText(language, failure);
  for (const std::wstring* part : {&failure.Path(), &reason}) {
    if (!part->empty()) text += L"\r\n" + *part;
  }
  return text;
}

}  // namespace tagrix
