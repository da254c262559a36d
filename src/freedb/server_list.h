// The list of FreeDB servers as text.
#ifndef TAGRIX_FREEDB_SERVER_LIST_H
#define TAGRIX_FREEDB_SERVER_LIST_H

#include <string>

namespace tagrix {

// One server a line, each ended by CR LF: its host, with labels followed by its place, "host (place)".
std::wstring FreeDbServerList(bool withLabels);

}  // namespace tagrix

#endif
