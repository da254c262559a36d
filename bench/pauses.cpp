// pauses TREE LARGE SILENT PORT: for how many milliseconds at most the window would not answer in each long operation.
// TREE holds folders full of files, LARGE a large MP3 file, SILENT one without any frame; a proxy on the port answers a
// huge page of hits, and then a huge record.
#include "album/album_page.h"
#include "album/fetch.h"
#include "album/search.h"
#include "audio/measure.h"
#include "base/text.h"
#include "bench/machine.h"
#include "core/long_work.h"
#include "fakes/fakes.h"
#include "freedb/freedb_source.h"
#include "tags/id3tag.h"
#include "tools/bulk/bulk_mod.h"
#include "tools/lister/catalogue.h"

namespace tagrix {
namespace {

// The events of the network, and how long they were waited for.
class WatchedEvents : public EventLoop {
 public:
  explicit WatchedEvents(EventLoop& events) : events_(events) {}
  void DoEvents() override {
    events_.DoEvents();
    Look();
  }
  void Wait(int milliseconds) override {
    events_.Wait(milliseconds);
    Look();
  }
  std::uint64_t TickCount() override { return events_.TickCount(); }

  // Prints the longest time between two looks while it works.
  template <typename Work>
  void Watch(const char* name, Work work) {
    last_ = Clock::now();
    longest_ = {};
    work();
    Look();
    std::printf("%s %.1f\n", name, std::chrono::duration<double, std::milli>(longest_).count());
  }

 private:
  using Clock = std::chrono::steady_clock;
  void Look() {
    const auto now = Clock::now();
    longest_ = std::max(longest_, now - last_);
    last_ = now;
  }

  EventLoop& events_;
  Clock::time_point last_;
  Clock::duration longest_{};
};

// A context on a real folder and the real network.
struct Watched {
  explicit Watched(const std::string& path) : folder(OpenFolder(path)) {}

  TestContext fakes;
  RealFolder folder;
  RealNetwork network = OpenNetwork();
  WatchedEvents events{*network.events};
  Context context{Ports{*folder.files, fakes.registry, fakes.codePage, events, fakes.clock, fakes.shell, fakes.prompts,
                        *network.socket, fakes.ftp, fakes.https},
                  L"C:\\Tagrix"};
};

// Writes a catalogue of the tree, and renames all its files and back.
void WorkOnTree(const std::string& path) {
  Watched tree(path);
  tree.events.Watch("catalogue", [&] {
    LongWork work(tree.context);
    WriteCatalogue(*tree.folder.files, tree.fakes.codePage,
                   {.input = tree.folder.path,
                    .target = tree.folder.path + L"catalogue.txt",
                    .pattern = L"[%3] %1%2 (%4)",
                    .formats = {L"MP3"},
                    .recurse = true},
                   work);
  });
  tree.context.settings.Put(setting::kLastDir, tree.folder.path);
  BulkPage page;
  InitBulkPage(page, tree.context);
  page.space_chk.Click();
  tree.fakes.prompts.dialogs.emplace_back([&](Form& chooser) {
    Find<CheckBox>(chooser.layout, "recurse_chk").Click();
    Find<Button>(chooser.layout, "ok_btn").Click();
  });
  tree.events.Watch("add", [&] { page.addfolder_btn.Click(); });
  tree.events.Watch("rename", [&] { page.bulk_go_btn.Click(); });
  tree.events.Watch("undo", [&] { page.bulk_undo_btn.Click(); });
}

void TagFiles(const std::string& path) {
  Watched large(path);
  const TagFields fields{L"A title", L"7", L"An artist", L"An album", L"1974", L"A comment", L"Rock"};
  for (const std::string& name : Mp3Names(path)) {
    large.events.Watch("tag", [&] {
      LongWork work(large.context);
      WriteTags({*large.folder.files, large.fakes.codePage, {}}, fields, large.folder.path + Widen(name), true, true,
                work);
    });
  }
}

void MeasureFiles(const std::string& path) {
  Watched silent(path);
  for (const std::string& name : Mp3Names(path)) {
    silent.events.Watch("measure", [&] {
      MeasureFile(*silent.folder.files, silent.folder.path + Widen(name), [&] {
        silent.events.DoEvents();
        return true;
      });
    });
  }
}

// Lists what a server answers that has the same page for all.
void Search(const wchar_t* port) {
  Watched web(".");
  Settings& settings = web.context.settings;
  settings.Put(setting::kUseProxy, true);
  settings.Put(setting::kProxyName, L"127.0.0.1");
  settings.Put(setting::kProxyPort, port);
  AlbumPage page;
  HttpClient http({*web.network.socket, web.events, web.fakes.codePage, settings});
  FreeDbSource freeDb(http, web.fakes.codePage, settings);
  const SourceList sources{{kFreeDbName, freeDb}};
  page.session.words = L"paper lanterns";
  web.events.Watch("search", [&] { SearchAlbums(page, web.context, sources, true); });
  std::printf("hits %d\n", page.resalb_lst.Count());
  page.resalb_lst.SelectOnly(0);
  web.events.Watch("record", [&] { FetchAlbum(page, web.context, sources); });
  std::printf("tracks %d\n", page.tracks_lst.Count());
}

}  // namespace
}  // namespace tagrix

int main(int, char** arguments) {
  tagrix::WorkOnTree(arguments[1]);
  tagrix::TagFiles(arguments[2]);
  tagrix::MeasureFiles(arguments[3]);
  tagrix::Search(tagrix::Widen(arguments[4]).c_str());
}
