// pauses TREE LARGE SILENT PORT: for how many milliseconds at most the window would not answer in each long operation.
// TREE holds folders full of files, LARGE a large MP3 file, SILENT one without any frame; a proxy on the port answers a
// huge page of hits, and then a huge record.
#include "album/album_page.h"
#include "album/fetch.h"
#include "album/search.h"
#include "bench/machine.h"
#include "core/text.h"
#include "dialogs/comparison.h"
#include "fakes/fakes.h"
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
                        *network.socket, fakes.ftp},
                  L"C:\\Tagrix"};
};

// Writes a catalogue of the tree, and renames all its files and back.
void WorkOnTree(const std::string& path) {
  Watched tree(path);
  tree.events.Watch("catalogue", [&] {
    WriteCatalogue(tree.context, {.input = tree.folder.path,
                                  .target = tree.folder.path + L"catalogue.txt",
                                  .pattern = L"[%3] %1%2 (%4)",
                                  .formats = {L"MP3"},
                                  .recurse = true});
  });
  tree.context.settings.Put(L"LastDir", tree.folder.path);
  BulkPage page;
  InitBulkPage(page, tree.context);
  page.space_chk.Click();
  tree.fakes.prompts.dialogs.emplace_back([&](Form& chooser) {
    Find<CheckBox>(chooser.layout, "recurse_chk").Click();
    auto& ok = Find<Button>(chooser.layout, "ok_btn");
    tree.events.Watch("add", [&] { ok.Click(); });
  });
  page.addfolder_btn.Click();
  tree.events.Watch("rename", [&] { page.bulk_go_btn.Click(); });
  tree.events.Watch("undo", [&] { page.bulk_undo_btn.Click(); });
}

void TagFiles(const std::string& path) {
  Watched large(path);
  const TagFields fields{L"A title", L"7", L"An artist", L"An album", L"1974", L"A comment", L"Rock"};
  for (const std::string& name : Mp3Names(path)) {
    large.events.Watch("tag", [&] { WriteTags(large.context, fields, large.folder.path + Widen(name), true, true); });
  }
}

void MeasureFiles(const std::string& path) {
  Watched silent(path);
  for (const std::string& name : Mp3Names(path)) {
    silent.events.Watch("measure", [&] { MeasureFile(silent.context, silent.folder.path + Widen(name)); });
  }
}

// Lists what a server answers that has the same page for all.
void Search(const wchar_t* port) {
  Watched web(".");
  web.context.settings.Put(L"UseProxy", L"1");
  web.context.settings.Put(L"ProxyName", L"127.0.0.1");
  web.context.settings.Put(L"ProxyPort", port);
  AlbumPage page;
  HttpClient http(web.context);
  page.query_txt.SetText(L"paper lanterns");
  web.events.Watch("search", [&] { SearchAlbums(page, web.context, http, true); });
  std::printf("hits %d\n", page.resalb_lst.Count());
  page.resalb_lst.SelectOnly(0);
  web.events.Watch("record", [&] { FetchAlbum(page, web.context, http); });
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
