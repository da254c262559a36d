// Work on a thread of its own.
#ifndef TAGRIX_WIN32_PORTS_BACKGROUND_H
#define TAGRIX_WIN32_PORTS_BACKGROUND_H

#include <functional>

namespace tagrix {

// Runs `work`, which doesn't throw, on a new thread that nobody waits for; right here where the system has no thread
// left. By the system's own threads: a thread of the C++ library's that is detached while it starts may lose its work.
void RunInBackground(std::function<void()> work);

}  // namespace tagrix

#endif
