// A real Linux folder that plays drive "C:", for benches on a real disk.
#ifndef TAGRIX_BENCH_LINUX_FILES_H
#define TAGRIX_BENCH_LINUX_FILES_H

#include <memory>
#include <string>

#include "platform/files.h"

namespace tagrix {

// `root`: an existing folder. Every operation is the one system call that Linux has for it, and keeps Linux's manners:
// letter case counts, an open file may be renamed or deleted, a read-only file replaced or deleted. Names are ASCII.
std::unique_ptr<Files> OpenLinuxFolder(std::string root);

}  // namespace tagrix

#endif
