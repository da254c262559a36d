#include "core/failure_text.h"

#include "core/messages.h"

namespace tagrix {

std::wstring FailureText(const Language& language, const Failure& failure) {
  std::wstring text = language.GetLangText(message::kFirstAction + static_cast<int>(failure.Tried()));
  const int cause = static_cast<int>(failure.Why()) - 1;
  const std::wstring reason = cause < 0 ? failure.Reason() : language.GetLangText(message::kFirstCause + cause);
  for (const std::wstring* part : {&failure.Path(), &reason}) {
    if (!part->empty()) text += L"\r\n" + *part;
  }
  return text;
}

}  // namespace tagrix
