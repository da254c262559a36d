// Writes the catalogue of a folder tree.
#ifndef TAGRIX_TOOLS_LISTER_CATALOGUE_H
#define TAGRIX_TOOLS_LISTER_CATALOGUE_H

#include <string>
#include <vector>

#include "base/progress.h"
#include "platform/code_page.h"
#include "platform/files.h"

namespace tagrix {

struct CatalogueRequest {
  std::wstring input;                 // folder to list
  std::wstring target;                // path of the catalogue
  std::wstring pattern;               // of a line
  std::vector<std::wstring> formats;  // the endings to list, letter case ignored
  bool recurse = false;
};

struct CatalogueEnd {
  bool complete = false;              // not cancelled
  int files = 0;                      // listed
  std::vector<std::wstring> notRead;  // folders below that could not be read, so that what they hold is missing
};

// Lists breadth first, the entries of each folder by character code; links to folders are not followed. The catalogue
// is written beside its target and put in its place at the end; a cancelled run, like a Failure, leaves the target as
// it was. Memory: the entries of one folder.
CatalogueEnd WriteCatalogue(Files& files, CodePage& codePage, const CatalogueRequest& request, Progress& progress);

}  // namespace tagrix

#endif
