// How the times of an album were measured, in one line.
#ifndef TAGRIX_VIEWS_MEASURING_TEXT_H
#define TAGRIX_VIEWS_MEASURING_TEXT_H

#include <string>

#include "core/context.h"
#include "session/measure_album.h"

namespace tagrix {

std::wstring MeasuringText(Context& context, const AlbumTimes& times);

}  // namespace tagrix

#endif
