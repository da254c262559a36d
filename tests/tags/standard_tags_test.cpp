#include "tags/standard_tags.h"

#include <gtest/gtest.h>

#include "base/failure.h"
#include "fakes/fakes.h"
#include "fakes/quiet_progress.h"
#include "tags/id3v1.h"
#include "tags/id3v2.h"
#include "tags/id3v2_header.h"

namespace tagrix {
namespace {

constexpr const wchar_t* kSong = L"C:\\m\\a.mp3";
const std::string kZero(1, '\0');

std::string Id3Frame(int version, const std::string& id, const std::string& data, std::uint32_t flags = 0) {
  const auto size = static_cast<std::uint32_t>(data.size());
  if (version == 2) return id + BigEndianBytes(size).substr(1) + data;
  return id + (version == 4 ? SyncsafeBytes(size) : BigEndianBytes(size)) + BigEndianBytes(flags).substr(2) + data;
}

std::string Tag(int version, const std::string& frames, int flags = 0) {
  const std::string rest = static_cast<char>(version) + kZero + static_cast<char>(flags) +
                           SyncsafeBytes(static_cast<std::uint32_t>(frames.size()));
  return "ID3" + rest + frames + ((flags & 0x10) != 0 ? "3DI" + rest : "");
}

std::string Sound() {
  std::string bytes;
  for (std::uint32_t x = 7; bytes.size() < 20000; x = x * 1664525 + 1013904223) bytes += static_cast<char>(x >> 24);
  return bytes;
}

struct Standard : testing::Test, TestContext {
  TagFields fields{L"Title", L"7", L"Artist", L"Album", L"1974", L"Comment", L"Rock"};
  QuietProgress progress;
  std::string sound = Sound(), v1 = "TAG" + BuildID3v1(fields, {}, codePage);

  // What stands in the file afterwards.
  std::string Write(const std::string& content, bool id3v1 = true, bool id3v2 = true) {
    files.Put(kSong, content);
    return WriteAgain(id3v1, id3v2);
  }
  std::string WriteAgain(bool id3v1 = true, bool id3v2 = true) {
    const TagPorts ports{files, codePage, {}};
    const TagOutlook outlook = LookAtTags(ports, fields, kSong, id3v1, id3v2);
    concerns = outlook.concerns;
    patched = !outlook.patches.empty();
    TagJournal journal(files, L"C:\\m");
    if (patched) journal.Add({L"a.mp3", outlook.patches});
    journal.Save();
    written = WriteStandardTags(ports, fields, kSong, id3v1, id3v2, journal, progress);
    return files.Content(kSong);
  }
  // The seven frames, in a version, as Latin-1 texts.
  std::string Seven(int version) const {
    const auto text = [&](const char* id, const std::wstring& value) {
      return Id3Frame(version, id, kZero + FakeCodePage().ToBytes(value));
    };
    return text("TIT2", fields.title) + text("TPE1", fields.artist) + text("TALB", fields.album) +
           text(version == 4 ? "TDRC" : "TYER", fields.year) + text("TCON", fields.genre) + text("TRCK", fields.track) +
           Id3Frame(version, "COMM", kZero + "eng" + kZero + "Comment");
  }
  std::string NewTag(int version, const std::string& kept) const {
    return Tag(version, kept + Seven(version) + std::string(1024, '\0'));
  }

  TagConcerns concerns;
  StandardWritten written;
  bool patched = false;
};

// More kinds, and what other programs read of them: tests/corpus/tags.py.
TEST_F(Standard, ReplacesSevenFramesAndKeepsEveryOther) {
  const std::string picture = "image/jpeg" + kZero + "\3cover" + kZero + std::string(40000, '\xFF');
  const std::string gain = Id3Frame(3, "COMM", kZero + "engiTunNORM" + kZero + "0001"),
                    unknown = Id3Frame(3, "XYZ9", "?", 0xC020);
  const std::string kept3 = Id3Frame(3, "APIC", kZero + picture) + gain + unknown, tyer = Id3Frame(3, "TYER", "x");
  const std::string ours = Id3Frame(3, "COMM", "\1eng\xFE\xFF" + kZero + kZero + "x") + Id3Frame(3, "TIT2", "x") + tyer;
  const std::string kept4 =
      Id3Frame(4, "APIC", kZero + picture, 0x4000) + Id3Frame(4, "PRIV", "a" + kZero + "\xFF" + kZero, 2);
  const std::string classic = BuildID3v2({std::wstring(200, L'x'), L"1", L"", L"", L"", L"c", L""}, codePage);
  const std::string rating = Id3Frame(3, "POPM", "me" + kZero + "\xFF");
  const struct {
    std::string tags;
    int version;
    std::string kept;
  } cases[] = {
      {Tag(3, ours + kept3 + tyer), 3, kept3},
      {Tag(3, BigEndianBytes(6) + std::string(6, '\0') + kept3, 0x40), 3, kept3},  // extended header
      {Tag(4, kept4 + Id3Frame(4, "TDRC", "x") + tyer, 0x10), 4, kept4},           // footer
      {Tag(4, SyncsafeBytes(6) + "\1" + kZero + kept4, 0x40), 4, kept4},
      {Tag(2, Id3Frame(2, "PIC", kZero + "JPG\3" + kZero + "data")), 3,
       Id3Frame(3, "APIC", kZero + "image/jpeg" + kZero + "\3" + kZero + "data")},
      {classic + Tag(3, kept3) + Tag(3, gain + rating), 3, kept3 + rating},  // in a row, sizes mixed up
      {Tag(3, Id3Frame(3, "APIC", BigEndianBytes(300) + "5678", 0x80A0) + rating) + Tag(4, ""), 4,
       Id3Frame(4, "APIC", "5" + SyncsafeBytes(300) + "678", 0x4049) + Id3Frame(4, "POPM", rating.substr(10))},
  };
  for (const auto& [tags, version, kept] : cases) {
    SCOPED_TRACE(testing::PrintToString(tags.substr(0, 60)));
    const std::string after = Write(tags + sound);
    EXPECT_TRUE(after == NewTag(version, kept) + sound + v1) << testing::PrintToString(after.substr(0, 400));
    EXPECT_TRUE(written.written && written.aside.empty());
    EXPECT_TRUE(WriteAgain() == after && !patched);
    fields.title += L" (live)";
    v1 = "TAG" + BuildID3v1(fields, {}, codePage);
    const std::string again = WriteAgain();
    EXPECT_TRUE(patched && again.size() == after.size() && again.ends_with(sound + v1));
    EXPECT_TRUE(again.substr(10).starts_with(std::string(kept).append(Seven(version)).append(kZero)));
  }
}

TEST_F(Standard, WritesTextsThatOtherReadersRead) {
  fields = {L"\x141 \U0001F600", L"12", std::wstring(300, 0xE9), L"", L" ", L"\x6F22", L""};
  const std::string title = "\1\xFF\xFE" + std::string("A\1 \0\x3D\xD8\0\xDE", 8);
  const std::string comment = "\1eng\xFF\xFE" + kZero + kZero + "\xFF\xFE\x22\x6F";
  const std::string frames = Id3Frame(3, "TIT2", title) + Id3Frame(3, "TPE1", kZero + std::string(300, '\xE9')) +
                             Id3Frame(3, "TRCK", kZero + "12") + Id3Frame(3, "COMM", comment);
  EXPECT_TRUE(Write(sound).substr(10).starts_with(frames + kZero));  // none for what says nothing
  EXPECT_TRUE(concerns.foreignText && concerns.longText && concerns.overwritesEnd && !concerns.oldTag);
  EXPECT_NE(Write(Tag(4, "") + sound).find(Id3Frame(4, "TIT2", "\3\xC5\x81 \xF0\x9F\x98\x80")), std::string::npos);
}

TEST_F(Standard, CutsOutAppendedTagsAndKeepsEveryOtherBehindTheSound) {
  const std::string apeTag =
      std::string(21, 'x') + "APETAGEX" + std::string("\xD0\7\0\0\x35\0\0\0", 8) + std::string(16, '\0');
  const std::string lyrics = "LYRICSBEGINla000013LYRICS200", rating = Id3Frame(4, "POPM", "me" + kZero + "\xFF");
  const std::string old = "TAG" + std::string(125, 'x'), appended = Tag(4, rating, 0x10);
  for (const std::string& behind : {std::string(), apeTag, lyrics, lyrics + apeTag, apeTag + lyrics}) {
    const std::string before = std::string(sound).append(appended).append(behind).append(old);
    const std::string after = NewTag(4, rating).append(sound).append(behind).append(v1);
    EXPECT_TRUE(Write(before) == after) << behind;
    EXPECT_TRUE(Write(sound + behind, true, false) == sound + behind + v1);
    EXPECT_TRUE(WriteAgain(true, false) == sound + behind + v1 && !patched && concerns.Any() == false);
  }
  // An APE tag of 131 bytes with a header ends with what looks like an ID3v1 tag.
  const std::string tricky = sound + "APETAGEX" + std::string(123, 'y');
  EXPECT_TRUE(Write(tricky, true, false) == tricky + v1);
}

TEST_F(Standard, KeepsAsideWhatHasNoNameAndRefusesWhatIsCut) {
  const std::string meta = "me" + kZero + "x", junk = "\1\2\3 no frame";
  const auto aside = [&](const std::string& name, const std::string& data) {
    return Id3Frame(3, "PRIV", "Tagrix " + name + kZero + data);
  };
  EXPECT_TRUE(Write(Tag(2, Id3Frame(2, "CRM", meta)) + sound) == NewTag(3, aside("ID3v2.2 CRM", meta)) + sound + v1);
  EXPECT_EQ(written.aside, std::vector<std::string>{"ID3v2.2 CRM"});
  EXPECT_TRUE(Write(Tag(3, junk) + sound) == NewTag(3, aside("ID3v2.3", junk)) + sound + v1);
  EXPECT_TRUE(Write(Tag(5, junk) + sound) == NewTag(3, aside("ID3v2.5", junk)) + sound + v1);
  WriteAgain();
  EXPECT_TRUE(written.aside.empty());
  for (const std::size_t size : {1500U, 9U}) {
    const std::string cut = Tag(3, std::string(2000, '\0')).substr(0, size);
    EXPECT_EQ(Write(cut), cut);
    EXPECT_FALSE(written.written);
  }
}

// Where nothing is lost the classic bytes stand, also the next time.
TEST_F(Standard, LeavesAGoodClassicTagAlone) {
  const std::string classic = BuildID3v2(fields, codePage) + sound + v1;
  files.Put(kSong, sound + v1);
  EXPECT_FALSE(LookAtTags({files, codePage, {}}, fields, kSong, true, true).concerns.Any());
  EXPECT_TRUE(Write(classic) == classic && written.written);
  fields.title = std::wstring(127, L'x');
  const std::string bad = BuildID3v2(fields, codePage) + sound + v1;
  EXPECT_TRUE(Write(bad) != bad && concerns.longText);
}

}  // namespace
}  // namespace tagrix
