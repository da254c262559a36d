// Importing archives of disc records into the database.
#ifndef TAGRIX_DISCSERVER_IMPORT_H
#define TAGRIX_DISCSERVER_IMPORT_H

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace discserver {

struct ImportCounts {
  std::int64_t added = 0, revised = 0, known = 0;
  std::int64_t skipped = 0;  // files that hold no disc record, and links to none
};

// Adds all records of the archives. What is there already is kept unless the archive has a higher revision, so that an
// import that was ended at any time can be run again. `progress` is told the counts now and then. Throws
// std::runtime_error when an archive can't be read to its end or the database can't be written; what was read before is
// kept.
ImportCounts Import(const std::vector<std::filesystem::path>& archives, const std::string& database,
                    const std::function<void(const ImportCounts&)>& progress);

}  // namespace discserver

#endif
