// Every language file of assets/ is whole, in its code page, and fits the windows that show it.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <set>

#include "album/album_sources.h"
#include "app/main_window.h"
#include "assets/source_files.h"
#include "base/failure.h"
#include "base/utf8.h"
#include "core/messages.h"
#include "dialogs/ask_query.h"
#include "dialogs/ask_tag_style.h"
#include "dialogs/ask_user.h"
#include "dialogs/autosort.h"
#include "dialogs/folder_chooser.h"
#include "dialogs/genre_picker.h"
#include "dialogs/statistics.h"
#include "dialogs/summary.h"
#include "dialogs/trackedit.h"
#include "fakes/fakes.h"
#include "update/update_window.h"

namespace tagrix {
namespace {

std::multiset<std::string> Placeholders(const std::string& text) {
  std::multiset<std::string> found;
  for (const std::smatch& match : Matches(text, "%%\\w+%%")) found.insert(match.str());
  return found;
}

constexpr int kLastCause = message::kFirstCause - 1 + static_cast<int>(Cause::NamesTaken);
static_assert(message::kFirstAction + static_cast<int>(Action::Tag) + 1 == message::kFirstCause);

// The header lists the messages in use; a comment on a line of one message names its placeholders.
std::map<int, std::multiset<std::string>> MessagesInUse() {
  std::map<int, std::multiset<std::string>> used;
  std::istringstream header(ReadSource("src/core/messages.h"));
  for (std::string line; std::getline(header, line);) {
    for (const std::smatch& match : Matches(line, "\\bk(\\w+) = (\\d+)")) {
      if (match[1] == "Count" || match[1] == "FirstMore") continue;
      EXPECT_TRUE(used.emplace(std::stoi(match[2]), Placeholders(line)).second) << match[2] << " has two names";
    }
  }
  for (int i = message::kFirstAction; i <= kLastCause; ++i) used.try_emplace(i);
  return used;
}

// The texts of a language file and its companion, whose lines begin with their numbers.
std::map<int, std::string> TextsOf(const std::string& language) {
  std::map<int, std::string> texts;
  for (const auto& [ending, first] : {std::pair(".lf", 0), {".lfx", message::kFirstMore}}) {
    int number = first;
    for (const std::string& line : Lines("assets/" + language + ending)) {
      EXPECT_EQ(line.substr(0, 3), std::to_string(1000 + number).substr(1)) << "out of order or missing: " << line;
      texts[number++] = line.size() > 3 ? line.substr(3) : " ";
    }
  }
  return texts;
}

std::vector<std::string> Languages() {
  std::vector<std::string> names;
  for (const auto& file : std::filesystem::directory_iterator(TAGRIX_SOURCE_DIR "/assets")) {
    if (file.path().extension() == ".lf") names.push_back(file.path().stem().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

struct LanguageFile : testing::TestWithParam<std::string> {
  const std::map<int, std::string> texts = TextsOf(GetParam());
};

TEST_P(LanguageFile, HoldsWhatTheProgramSays) {
  auto used = MessagesInUse();
  const auto english = TextsOf("english");
  for (const auto& [number, placeholders] : used) EXPECT_TRUE(texts.contains(number)) << number << " is missing";
  EXPECT_EQ(texts.lower_bound(message::kFirstMore)->first - texts.begin()->first, message::kFirstMore);
  for (const auto& [number, text] : texts) {
    EXPECT_EQ(text != "-", used.contains(number)) << number << (text == "-" ? " has no text" : " is one too many");
    EXPECT_EQ(Placeholders(text), used[number]) << number << text;
    EXPECT_EQ(Matches(text, "&").size(), english.contains(number) ? Matches(english.at(number), "&").size() : 0)
        << number << ": an access key where English has none, or the other way round";
  }
}

TEST_P(LanguageFile, IsPlainWindows1252) {
  std::string foreign;
  for (const auto& [number, text] : texts) {
    EXPECT_EQ(text.find_first_of("\t\x7F\x81\x8D\x8F\x90\x9D"), text.npos) << number << ": no such character";
    for (const char end : {text.front(), text.back()}) EXPECT_TRUE(end != ' ' && end != '\xA0') << number << ": blanks";
    std::copy_if(text.begin(), text.end(), std::back_inserter(foreign), [](char c) { return c < 0; });
  }
  EXPECT_TRUE(foreign.empty() || !FromUtf8(foreign)) << "saved as UTF-8";
}

// About as wide as the system's font.
struct UsualFont : TextMeasurer {
  static int Width(wchar_t c) {
    const auto among = [c](std::wstring_view some) { return some.find(c) != some.npos; };
    if (among(L"iljI.,:;'!| ")) return 3;
    if (among(L"frt()[]-/")) return 4;
    return among(L"mwMW@%") ? 10 : c >= L'A' && c <= L'Z' ? 8 : 7;
  }
  Size Measure(std::wstring_view text, int wrapAt, bool heading) const override {
    int widest = 0, width = 0, lines = 1;
    for (const wchar_t c : text) {
      const int next = Width(c) * (heading ? 3 : 2) / 2;
      const bool wraps = c == L'\n' || (wrapAt > 0 && width + next > wrapAt);
      lines += wraps;
      width = wraps ? next : width + next;
      widest = std::max(widest, width);
    }
    return {widest, lines * (heading ? 24 : 16)};
  }
};

// The caption whose "&" marks an access key; empty on what has no caption.
std::wstring CaptionOf(Control& control) {
  const auto* label = dynamic_cast<Label*>(&control);
  const bool caption = dynamic_cast<Button*>(&control) != nullptr || dynamic_cast<CheckBox*>(&control) != nullptr ||
                       dynamic_cast<OptionButton*>(&control) != nullptr || dynamic_cast<Frame*>(&control) != nullptr ||
                       (label != nullptr && label->Style() == LabelStyle::Caption);
  return caption ? Replace(control.Text(), L"&&", L"") : L"";
}

// The windows in one language, as the code makes them.
class LanguageInWindows : public testing::TestWithParam<std::string> {
 protected:
  LanguageInWindows() {
    for (const std::string& name : {std::string("english"), GetParam()}) {
      for (const char* ending : {".lf", ".lfx"}) {
        files.Put(L"C:\\Tagrix\\" + Widen(name + ending), ReadSource("assets/" + name + ending));
      }
    }
    files.AddFolder(L"C:\\Tagrix\\skin");
    files.Put(L"C:\\Tagrix\\styles.dat", ReadSource("assets/styles.dat"));
    test.context.settings.Put(setting::kLanguage, Widen(GetParam()));
    EXPECT_TRUE(window.StartUp());
  }

  // What of a form is shown at one time: all but the frames in `elsewhere`.
  void Check(const Form& form, const std::set<const Control*>& elsewhere = {}) {
    seen.insert(form.name);
    std::map<int, std::wstring> keys;
    CheckCaptions(form.layout, elsewhere, keys);
    const Size least = MinimumSize(form.layout, 96, UsualFont()), start = form.startSize;
    // A laptop's screen of 1280 x 720 leaves this height beside its task bar and the window's title.
    EXPECT_TRUE(least.width <= std::max(start.width, 720) && least.height <= 632)
        << form.name << " takes " << least.width << " x " << least.height;
  }

  // Opens a dialog, which is checked.
  void Open(const std::function<void()>& show) {
    test.prompts.dialogs.push_back([this](Form& form) { Check(form); });
    show();
    EXPECT_TRUE(test.prompts.dialogs.empty());
  }

  TestContext test;
  FakeFiles& files = test.files;
  MainWindow window{test.context};
  std::set<std::string> seen;

 private:
  static void CheckCaptions(const Node& node, const std::set<const Control*>& elsewhere,
                            std::map<int, std::wstring>& keys) {
    if (elsewhere.contains(node.control)) return;
    if (node.control != nullptr) CheckCaption(*node.control, keys);
    for (const Node& child : node.children) CheckCaptions(child, elsewhere, keys);
  }

  static void CheckCaption(Control& control, std::map<int, std::wstring>& keys) {
    const std::wstring text = CaptionOf(control);
    if (const std::size_t mark = text.find(L'&'); mark != text.npos) {
      const wchar_t key = mark + 1 < text.size() ? text[mark + 1] : L' ';
      EXPECT_TRUE(key < 0x80 && std::isalnum(key) != 0) << "not on every keyboard: " << ToUtf8(text);
      // The same caption twice is the same deed, done to its neighbour.
      const auto [other, fresh] = keys.try_emplace(std::toupper(key), text);
      EXPECT_TRUE(fresh || other->second == text) << "one key: " << ToUtf8(other->second) << " and " << ToUtf8(text);
    }
    const auto* list = dynamic_cast<ListBox*>(&control);
    for (const ListColumn& column : list == nullptr ? std::vector<ListColumn>() : list->Columns()) {
      const int needed = UsualFont().Measure(column.title, 0, false).width + 10;
      EXPECT_TRUE(column.width == 0 || needed <= column.width) << "too narrow for " << ToUtf8(column.title);
    }
  }
};

TEST_P(LanguageInWindows, HasOneAccessKeyForOneThingAndFits) {
  EXPECT_EQ(test.context.settings.Get(setting::kLanguage), Widen(GetParam()));
  for (const Frame& page : window.workfrm) {
    std::set<const Control*> others;
    for (const Frame& other : window.workfrm) {
      if (&other != &page) others.insert(&other);
    }
    Check(window.form, others);
  }

  Context& context = test.context;
  AlbumSession session;
  session.folder = L"C:\\Music";
  session.files = {{L"a.mp3"}};
  session.disc.tracks = {{L"Title", 75}};
  Open([&] { ShowStatistics(context, session); });
  Open([&] { AutoSort(context, session); });
  Open([&] { ChooseGenre(context, window.album.genre_txt); });
  Open([&] { EditTrackName(context, session.disc.tracks[0]); });
  const AlbumSources sources(context);
  std::wstring words;
  Open([&] { AskForWords(context, session.folder, sources.List(), words); });
  Open([&] { AskTagStyle(context, {1, 1, 1, 1, 1}); });
  Open([&] { ChooseFolder(context, ChooserMode::Album); });
  Open([&] { ChooseAudioFiles(context, ChooserMode::BulkFiles, {}); });
  Open([&] { DownloadInWindow(context, {}); });
  Open([&] { ShowSummary(context, context.Text(message::kDone), L"", {{L"a.mp3", context.Text(message::kRenamed)}}); });
  const auto ask = [&](const std::wstring& tick, std::initializer_list<int> answers) {
    Question question{.text = L"?", .answers = {}, .tick = tick};
    for (const int answer : answers) question.answers.push_back(context.Text(answer));
    Open([&] { AskUser(context, question); });
  };
  ask(context.Text(message::kDontAskAgain), {message::kYes, message::kNo});
  ask(L"", {message::kSortFirst, message::kApplyAsIs, message::kCancel});

  for (const auto& file : std::filesystem::recursive_directory_iterator(TAGRIX_SOURCE_DIR "/src")) {
    if (!file.is_regular_file()) continue;
    const std::string source = ReadSource(file.path());
    for (const std::smatch& form : Matches(source, "\\bForm \\w+[({]\"(\\w+)\"")) {
      EXPECT_TRUE(seen.contains(form[1])) << "nobody has looked at " << form[1];
    }
  }
}

const auto kLanguages = testing::ValuesIn(Languages());
const auto kName = [](const auto& language) { return language.param; };
INSTANTIATE_TEST_SUITE_P(Assets, LanguageFile, kLanguages, kName);
INSTANTIATE_TEST_SUITE_P(Assets, LanguageInWindows, kLanguages, kName);

}  // namespace
}  // namespace tagrix
