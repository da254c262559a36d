#include "views/measuring_text.h"

#include "base/text.h"
#include "core/messages.h"

namespace tagrix {

std::wstring MeasuringText(Context& context, const AlbumTimes& times) {
  if (times.allExact) return context.Text(message::kMeasuredExactly);
  if (times.exact == 0) return context.Text(message::kMeasuredQuickly);
  return FillMessage(context.Text(message::kMeasuredPartlyExactly),
                     {std::to_wstring(times.exact), std::to_wstring(times.milliseconds.size())});
}

}  // namespace tagrix
