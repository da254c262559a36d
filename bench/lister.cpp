// lister FOLDER: writes the catalogue of all MP3 files below the folder, with their sizes, into "catalogue.txt" there.
#include "bench/machine.h"
#include "fakes/fakes.h"
#include "tools/lister/catalogue.h"

int main(int, char** arguments) {
  const tagrix::RealFolder folder = tagrix::OpenFolder(arguments[1]);
  tagrix::TestContext fakes;
  tagrix::Context context(tagrix::Ports{*folder.files, fakes.registry, fakes.codePage, fakes.events, fakes.clock,
                                        fakes.shell, fakes.prompts, fakes.socket, fakes.ftp},
                          L"C:\\Tagrix");
  bool written = false;
  tagrix::Time("milliseconds", [&] {
    written = tagrix::WriteCatalogue(context, {.input = folder.path,
                                               .target = folder.path + L"catalogue.txt",
                                               .pattern = L"[%3] %1%2 (%4)",
                                               .formats = {L"MP3"},
                                               .recurse = true});
  });
  return written ? 0 : 1;
}
