// album_road FOLDER PORT: names and tags the album in the folder, whose name are the words to search for, by the first
// disc with as many tracks that a FreeDB server, as a proxy on this port, finds for them. The engine alone, without a
// window.
#include "base/text.h"
#include "bench/machine.h"
#include "fakes/fakes.h"
#include "freedb/freedb_source.h"
#include "session/apply.h"
#include "session/measure_album.h"

namespace tagrix {
namespace {

// Tells everything on the console.
struct Console : Progress, MeasureWatcher, ApplyWatcher {
  void Status(std::wstring_view text) override { Say("  ", text); }
  void Percent(int) override {}
  void LetEventsRun() override {}
  void Pass(std::wstring_view) override {}
  bool Cancelled() const override { return false; }
  void Measured(std::size_t, std::int32_t) override {}
  void NotRead(const Failure& failure) override { throw failure; }
  void Tell(const Incident& incident) override { Say("not done: ", incident.name); }
  void NameChanged(int) override {}
  bool MayReplacePlaylist(const std::wstring&) override { return true; }
  std::optional<TagStyle> ChooseTagStyle(const TagStyleReasons&) override { return TagStyle::Standard; }

  static void Say(const char* what, std::wstring_view text) {
    std::printf("%s%s\n", what, FakeCodePage().ToBytes(text).c_str());
  }
};

int TagAlbum(const std::filesystem::path& path, const std::string& port) {
  const RealFolder drive = OpenFolder(path.parent_path());
  const RealNetwork network = OpenNetwork();
  FakeRegistry registry;
  FakeCodePage codePage;
  Settings settings(registry);
  settings.Put(setting::kUseProxy, true);
  settings.Put(setting::kProxyName, L"127.0.0.1");
  settings.Put(setting::kProxyPort, Widen(port));

  Console console;
  AlbumSession session;
  session.folder = drive.path + Widen(path.filename().string());
  session.files = ReadAlbumFolder(*drive.files, session.folder, session.format);
  HttpClient http({*network.socket, *network.events, codePage, settings});
  FreeDbSource source(http, codePage, settings);
  source.Search(
      {Widen(path.filename().string())}, [&](auto hits) { session.hits = hits; }, console);
  for (std::size_t i = 0; i < session.hits.size() && TrackCount(session) != FileCount(session); ++i) {
    std::optional<Disc> disc;
    source.Read(session.hits[i], disc, console);
    session.disc = disc.value_or(Disc());
  }
  if (!CanBeSorted(session)) return 1;

  ReorderFiles(session, SortAlbum(session, MeasureAlbum(session, *drive.files, console, console), console));
  ApplyOrder order;
  order.rename = order.playlist = order.id3v1 = order.id3v2 = true;
  order.renamePattern = L"%6 - %2";
  order.playlistPattern = L"%3";
  return Apply(session, order, {*drive.files, codePage, {}}, console, console) ? 0 : 1;
}

}  // namespace
}  // namespace tagrix

int main(int, char** arguments) { return tagrix::TagAlbum(arguments[1], arguments[2]); }
