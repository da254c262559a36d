// Writes the catalogue of a folder tree.
#ifndef TAGRIX_TOOLS_LISTER_CATALOGUE_H
#define TAGRIX_TOOLS_LISTER_CATALOGUE_H

#include <string>
#include <vector>

#include "core/context.h"

namespace tagrix {

struct CatalogueRequest {
  std::wstring input;                 // folder to list
  std::wstring target;                // path of the catalogue
  std::wstring pattern;               // of a line
  std::vector<std::wstring> formats;  // the endings to list, letter case ignored
  bool recurse = false;
};

// Lists breadth first, the entries of each folder by character code; links to folders are not followed and folders
// below that can't be read are passed over. Lets events run. The catalogue is written beside its target and put in its
// place at the end. False when the operation was cancelled, which like a Failure leaves the target as it was. Memory:
// the entries of one folder.
bool WriteCatalogue(Context& context, const CatalogueRequest& request);

}  // namespace tagrix

#endif
