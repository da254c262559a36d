// lister FOLDER: writes the catalogue of all MP3 files below the folder, with their sizes, into "catalogue.txt" there.
#include "bench/disk_context.h"
#include "tools/lister/catalogue.h"

int main(int, char** arguments) {
  tagrix::DiskContext disk(arguments[1]);
  bool written = false;
  tagrix::Time("milliseconds", [&] {
    written = tagrix::WriteCatalogue(disk.context, {.input = disk.folder.path,
                                                    .target = disk.folder.path + L"catalogue.txt",
                                                    .pattern = L"[%3] %1%2 (%4)",
                                                    .formats = {L"MP3"},
                                                    .recurse = true});
  });
  return written ? 0 : 1;
}
