// Archives into the database: layouts, encodings, damage, and an import that is killed.
#include "discserver/import.h"

#include <archive.h>
#include <archive_entry.h>
#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "discserver/archive_reader.h"
#include "discserver/fixtures.h"
#include "discserver/store.h"

namespace discserver {
namespace {

using Counts = std::array<std::int64_t, 4>;

struct File {
  std::string path, content, linkTo = {};
};

std::string Xmcd(const std::string& title, int revision = 0) {
  return "# xmcd\n#\n# Revision: " + std::to_string(revision) + "\nDTITLE=" + title + "\nTTITLE0=One\n";
}

// Packed by the extension of its name.
std::string Pack(const std::string& path, const std::vector<File>& files) {
  archive* out = archive_write_new();
  archive_write_set_format_filter_by_ext(out, path.c_str());
  archive_write_open_filename(out, path.c_str());
  for (const File& file : files) {
    archive_entry* entry = archive_entry_new();
    archive_entry_set_pathname(entry, file.path.c_str());
    archive_entry_set_filetype(entry, AE_IFREG);
    archive_entry_set_perm(entry, 0644);
    archive_entry_set_size(entry, static_cast<la_int64_t>(file.content.size()));
    if (!file.linkTo.empty()) archive_entry_set_hardlink(entry, file.linkTo.c_str());
    archive_write_header(out, entry);
    archive_write_data(out, file.content.data(), file.content.size());
    archive_entry_free(entry);
  }
  archive_write_close(out);
  archive_write_free(out);
  return path;
}

std::string Bytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

struct Importing : testing::Test {
  // How many records are added, revised and known, and how many files are skipped.
  Counts Take(const std::string& archive) {
    const ImportCounts counts = ImportInto(folder / "discs.db", archive);
    return {counts.added, counts.revised, counts.known, counts.skipped};
  }
  // What is said of an archive that can't be taken.
  std::string Trouble(const std::string& archive) {
    try {
      Take(archive);
    } catch (const std::runtime_error& error) {
      return error.what();
    }
    return {};
  }
  std::string Title(const std::string& category, const std::string& id) {
    const auto record = Store(folder / "discs.db").Find(category, id);
    return record ? record->disc.title : "none";
  }
  // What a search for a word finds.
  std::size_t Found(const std::string& word) { return Store(folder / "discs.db").Match(word, 100).size(); }

  TemporaryFolder folder;
};

TEST_F(Importing, ReadsBothLayoutsAllPackingsAndEncodings) {
  const std::vector<File> files = {
      {"freedb/rock/0000aa01", Xmcd("Caf\xE9 / Latin")},
      {"freedb/rock/0000aa02", Xmcd("Caf\u00E9 / Unicode")},
      {"freedb/rock/0000aa03", "# xmcd\r\nDTITLE=A very \r\nDTITLE=long / title\r\n\r\n.\r\nEXTD=\r\n"},
      {"freedb/rock/0000aa04", "", "freedb/rock/0000aa02"},
      {"freedb/jazz/00to0f",
       "#FILENAME=0000bb01\n" + Xmcd("Many / One") + "#FILENAME=0000bb02\r\n" + Xmcd("Many / Two")},
      {"freedb/COPYING", "A licence"},
      {"freedb/rock/0000aa05", "no record"},
      {"freedb/rock/0000aa06", "", "freedb/rock/0000dead"},
      {"freedb/Rock Music/0000aa07", Xmcd("No / Category")}};
  for (const char* name : {"a.tar", "a.tar.bz2", "a.tar.gz"}) {
    std::filesystem::remove(folder / "discs.db");
    EXPECT_EQ(Take(Pack(folder / name, files)), (Counts{6, 0, 0, 4})) << name;
    EXPECT_EQ(Title("rock", "0000aa01"), "Caf\u00E9 / Latin");
    EXPECT_EQ(Title("rock", "0000aa04"), "Caf\u00E9 / Unicode");
    EXPECT_EQ(Title("jazz", "0000bb02"), "Many / Two");
    EXPECT_EQ(Found("cafe"), 3U);
  }
  const auto record = Store(folder / "discs.db").Find("rock", "0000aa03");
  ASSERT_TRUE(record);
  EXPECT_EQ(record->disc.title, "A very long / title");
  EXPECT_EQ(record->text, "# xmcd\nDTITLE=A very \nDTITLE=long / title\nEXTD=\n");  // nothing that would end a reply
}

TEST_F(Importing, ChangesNothingTheSecondTimeAndTakesHigherRevisionsOnly) {
  const std::string first = Pack(folder / "1.tar", {{"rock/0000aa01", Xmcd("Old / Title", 3)}});
  EXPECT_EQ(Take(first), (Counts{1, 0, 0, 0}));
  const std::string before = Bytes(folder / "discs.db");
  EXPECT_EQ(Take(first), (Counts{0, 0, 1, 0}));
  EXPECT_EQ(Bytes(folder / "discs.db"), before);
  EXPECT_EQ(Take(Pack(folder / "2.tar", {{"rock/0000aa01", Xmcd("Lower / Revision", 2)}})), (Counts{0, 0, 1, 0}));
  // Newer ones in one go, as many layouts repeat a disc.
  EXPECT_EQ(Take(Pack(folder / "3.tar",
                      {{"rock/0000aa01", Xmcd("Longer / Than before", 4)}, {"rock/0000aa01", Xmcd("New / Title", 5)}})),
            (Counts{0, 2, 0, 0}));
  EXPECT_EQ(Title("rock", "0000aa01"), "New / Title");
  EXPECT_EQ(Found("title"), 1U);
  EXPECT_EQ(Found("old") + Found("longer"), 0U);
  EXPECT_EQ(Store(folder / "discs.db").Categories(), (std::map<std::string, std::int64_t>{{"rock", 1}}));
}

TEST_F(Importing, KeepsWhatStandsBeforeDamage) {
  const std::vector<File> files = {
      {"rock/0000aa01", Xmcd("A / One")},
      {"jazz/00to0f", "#FILENAME=0000bb01\n" + Xmcd("B / Two") + "#FILENAME=0000bb02\nlast"}};
  for (const std::string name : {"a.tar.gz", "a.tar"}) {
    const std::string whole = Bytes(Pack(folder / name, files));
    std::ofstream(folder / "cut", std::ios::binary) << whole.substr(0, name == "a.tar" ? 1700 : whole.size() - 20);
    EXPECT_NE(Trouble(folder / "cut").find("cut: "), std::string::npos);
  }
  EXPECT_EQ(Title("rock", "0000aa01"), "A / One");
  EXPECT_NE(Trouble(folder / "missing.tar"), "");
  std::ofstream(folder / "other.db") << "something else";
  EXPECT_THROW(ImportInto(folder / "other.db", folder / "a.tar"), std::runtime_error);
}

TEST_F(Importing, GoesOnAfterAKill) {
  constexpr int kDiscs = 60'000;  // more than are written at a time
  std::string many;
  for (int i = 0; i < kDiscs; ++i) {
    char id[9];
    std::snprintf(id, sizeof id, "%08x", i);
    many += "#FILENAME=" + std::string(id) + "\n" + Xmcd("Artist " + std::to_string(i % 100) + " / Disc");
  }
  const std::string archive = Pack(folder / "many.tar", {{"rock/many", many}});
  const std::string import = "import --database " + (folder / "discs.db") + " " + archive;
  int killed = 0;
  for (double wait = 0.002; wait < 1 && killed < 6; wait *= 2.5) {
    if (RunProgram(import, "timeout -s KILL " + std::to_string(wait)) != 0) ++killed;
  }
  EXPECT_GT(killed, 1);
  EXPECT_EQ(RunProgram(import), 0);
  Store store(folder / "discs.db");
  EXPECT_EQ(store.Categories()["rock"], kDiscs);
  EXPECT_EQ(store.Match("disc", kDiscs * 2).size(), static_cast<std::size_t>(kDiscs));
  EXPECT_EQ(store.Match("artist AND 42", kDiscs).size(), static_cast<std::size_t>(kDiscs / 100));
}

TEST_F(Importing, TakesNoRecordWithoutLimit) {
  std::size_t largest = 0, last = 0;
  const RecordSink sink = [&](ArchivedRecord&& record) { largest = std::max(largest, last = record.file.size()); };
  RecordSplitter splitter("rock/many", sink);
  for (int i = 0; i < 100; ++i) splitter.Take(std::string(100'000, 'x'));
  splitter.Take("\n#FILENAME=2\nend");
  splitter.End();
  EXPECT_EQ(largest, RecordSplitter::kMaxRecord);
  EXPECT_EQ(last, 3U);
}

}  // namespace
}  // namespace discserver
