// The client against the real disc server, over a real socket on the loopback.

#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <stdexcept>

#include "album/fetch.h"
#include "album/search.h"
#include "core/messages.h"
#include "fakes/fakes.h"
#include "fakes/posix_socket.h"

namespace tagrix {
namespace {

// The server as a process of its own; ended with this object.
class DiscServer {
 public:
  DiscServer() {
    int ends[2];
    if (pipe(ends) != 0) throw std::runtime_error("pipe");
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    posix_spawn_file_actions_addclose(&actions, ends[0]);
    std::string program = TAGRIX_DISCSERVER, records = TAGRIX_RECORDS;
    char* arguments[] = {program.data(), records.data(), nullptr};
    const int failed = posix_spawn(&process_, program.c_str(), &actions, nullptr, arguments, environ);
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    std::FILE* output = fdopen(ends[0], "r");
    if (failed != 0 || std::fscanf(output, "%*d records on http://127.0.0.1:%d", &port_) != 1) port_ = 0;
    std::fclose(output);
  }
  ~DiscServer() {
    kill(process_, SIGTERM);
    waitpid(process_, nullptr, 0);
  }
  DiscServer(const DiscServer&) = delete;
  DiscServer& operator=(const DiscServer&) = delete;

  int Port() const { return port_; }

 private:
  pid_t process_ = 0;
  int port_ = 0;
};

struct OnDiscServer : testing::Test {
  OnDiscServer() {
    context.language = test.context.language;
    context.settings.Put(L"UseProxy", L"1");
    context.settings.Put(L"ProxyName", L"127.0.0.1");
    context.settings.Put(L"ProxyPort", std::to_wstring(server.Port()));
    album.mp3_lst.Append(std::vector<std::wstring>(8, L"x.mp3"));
    album.apply_btn.SetEnabled(false);
  }
  void SetUp() override { ASSERT_NE(server.Port(), 0); }
  void Search(const wchar_t* words) {
    test.prompts.dialogs.emplace_back([words](Form& form) {
      Find<TextBox>(form.layout, "query_txt").Type(words);
      form.defaultButton->Click();
    });
    GoClicked(album, context, http);
  }

  DiscServer server;
  TestContext test;
  PosixEvents events;
  PosixSocket socket{events};
  Context context{
      Ports{test.files, test.registry, test.codePage, events, test.clock, test.shell, test.prompts, socket, test.ftp},
      L"C:\\Tagrix"};
  AlbumPage album;
  HttpClient http{context};
};

TEST_F(OnDiscServer, FindsAndReadsAnAlbum) {
  Search(L"paper lanterns");
  ASSERT_EQ(album.resalb_lst.Count(), 2);  // without the other version
  EXPECT_EQ(album.resalb_lst.ItemText(1), L"The Paper Lanterns / Harbour Lights");
  album.resalb_lst.SelectOnly(1);
  FetchAlbum(album, context, http);
  EXPECT_EQ(album.artist_txt.Text() + album.album_txt.Text(), L"The Paper Lanterns Harbour Lights");
  EXPECT_EQ(album.year_txt.Text() + album.genre_txt.Text(), L"1998rock");
  ASSERT_EQ(album.tracks_lst.Count(), 8);
  EXPECT_EQ(album.tracks_lst.ItemText(7), L"[08] Harbour Lights");
  EXPECT_EQ(album.new_lst.Value(0), 2487 - 150);
  EXPECT_EQ(album.new_lst.Value(7), 318 * 75 - 20854);
  EXPECT_TRUE(test.prompts.messages.empty() && test.prompts.questions.empty());
}

TEST_F(OnDiscServer, ReadsTextInTheCodePageAndIsToldOfAMissingDisc) {
  Search(L"CAFÉ");
  ASSERT_EQ(album.resalb_lst.Count(), 1);
  album.resalb_lst.SelectOnly(0);
  FetchAlbum(album, context, http);
  EXPECT_EQ(album.album_txt.Text(), L"Café du Lézard");
  EXPECT_EQ(album.tracks_lst.ItemText(2), L"[03] Où vas-tu, Noël ?");
  album.discid_lst.SetItemText(0, L"00000000");
  FetchAlbum(album, context, http);
  EXPECT_EQ(test.prompts.messages, std::vector<std::wstring>{TestText(message::kReadFailed)});
}

TEST_F(OnDiscServer, WidensASearchThatFoundNothing) {
  Search(L"fjordkapellet bloom");
  EXPECT_EQ(test.prompts.messages, std::vector<std::wstring>{TestText(message::kNothingFound)});
  MoreClicked(album, context, http);
  EXPECT_EQ(album.resalb_lst.Count(), 2);
}

}  // namespace
}  // namespace tagrix
