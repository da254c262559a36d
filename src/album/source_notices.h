// What the album page says of the source of discs that it asks.
#ifndef TAGRIX_ALBUM_SOURCE_NOTICES_H
#define TAGRIX_ALBUM_SOURCE_NOTICES_H

#include <string>

#include "core/context.h"
#include "sources/disc_source.h"

namespace tagrix {

// The status line while a source is being reached.
std::wstring Contacting(const Context& context, const std::wstring& source);

// Says why a source gave nothing: it was not reached, or refuses in its own words; `otherwise` when it gives no reason.
// The user's own Cancel needs no message.
void ShowNoAnswer(Context& context, const std::wstring& source, const SourceReply& reply,
                  const std::wstring& otherwise);

}  // namespace tagrix

#endif
