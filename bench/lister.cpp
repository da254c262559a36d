// lister FOLDER: writes the catalogue of all MP3 files below the folder, with their sizes, into "catalogue.txt" there.
#include "bench/machine.h"
#include "core/long_work.h"
#include "fakes/fakes.h"
#include "tools/lister/catalogue.h"

int main(int, char** arguments) {
  const tagrix::RealFolder folder = tagrix::OpenFolder(arguments[1]);
  tagrix::TestContext test;
  tagrix::LongWork work(test.context);
  bool written = false;
  tagrix::Time("milliseconds", [&] {
    written = tagrix::WriteCatalogue(*folder.files, test.codePage,
                                     {.input = folder.path,
                                      .target = folder.path + L"catalogue.txt",
                                      .pattern = L"[%3] %1%2 (%4)",
                                      .formats = {L"MP3"},
                                      .recurse = true},
                                     work)
                  .complete;
  });
  return written ? 0 : 1;
}
