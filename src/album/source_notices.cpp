#include "album/source_notices.h"

#include "base/text.h"
#include "core/messages.h"
#include "sources/source_list.h"

namespace tagrix {

std::wstring Contacting(const Context& context, const std::wstring& source) {
  if (source == kFreeDbName) return L"Contacting FreeDB servers....";
  return FillMessage(context.Text(message::kContactingSource), {source});
}

void ShowNoAnswer(Context& context, const std::wstring& source, const SourceReply& reply,
                  const std::wstring& otherwise) {
  std::wstring text = otherwise;
  if (reply.answer == Answer::Cancelled) return;
  if (reply.answer == Answer::NotReached) text = FillMessage(context.Text(message::kNotReached), {source});
  if (reply.answer == Answer::NotSecure) text = FillMessage(context.Text(message::kNotSecure), {source});
  if (!reply.words.empty()) text = FillMessage(context.Text(message::kRefused), {source, reply.words});
  context.prompts.Message(text);
}

}  // namespace tagrix
