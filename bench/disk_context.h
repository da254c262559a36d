// What the program's modules work on in a bench: a real folder, and twins of everything else.
#ifndef TAGRIX_BENCH_DISK_CONTEXT_H
#define TAGRIX_BENCH_DISK_CONTEXT_H

#include <string>

#include "bench/machine.h"
#include "fakes/fakes.h"

namespace tagrix {

struct DiskContext {
  explicit DiskContext(const std::string& path) : folder(OpenFolder(path)) {}

  TestContext fakes;
  RealFolder folder;
  Context context{Ports{*folder.files, fakes.registry, fakes.codePage, fakes.events, fakes.clock, fakes.shell,
                        fakes.prompts, fakes.socket, fakes.ftp, fakes.https},
                  L"C:\\Tagrix"};
};

}  // namespace tagrix

#endif
