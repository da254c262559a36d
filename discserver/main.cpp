// The command line of the disc server.
#include <sqlite3.h>
#include <unistd.h>

#include <charconv>
#include <csignal>
#include <exception>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "discserver/http_server.h"
#include "discserver/import.h"
#include "discserver/store.h"

namespace {

constexpr const char* kUsage =
    "usage: discserver import [--database FILE] ARCHIVE...\n"
    "       discserver serve [--database FILE] [--address ADDRESS] [--port NUMBER]\n"
    "\n"
    "import  adds the disc records of archives (tar, also compressed, or folders) to\n"
    "        the database; a record that is there already is replaced by a higher\n"
    "        revision only\n"
    "serve   answers searches and reads over HTTP until it is ended; prints its address\n"
    "\n"
    "--database FILE    default: discs.db\n"
    "--address ADDRESS  default: 127.0.0.1; 0.0.0.0 or :: for all clients of the network\n"
    "--port NUMBER      default: the first free one from 18080\n";

struct Options {
  std::string database = "discs.db", address = "127.0.0.1";
  int port = 0;
  std::vector<std::string> words;  // the command and its archives
};

// Nothing when the command line makes no sense.
std::optional<Options> ReadOptions(const std::vector<std::string>& arguments) {
  Options options;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string& argument = arguments[i];
    if (!argument.starts_with("--")) {
      options.words.push_back(argument);
      continue;
    }
    if (++i == arguments.size()) return std::nullopt;
    const std::string& value = arguments[i];
    if (argument == "--database") {
      options.database = value;
    } else if (argument == "--address") {
      options.address = value;
    } else if (argument == "--port") {
      const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), options.port);
      if (error != std::errc() || *end != '\0' || options.port < 1 || options.port > 65535) return std::nullopt;
    } else {
      return std::nullopt;
    }
  }
  return options;
}

void Print(const discserver::ImportCounts& counts, bool last) {
  // On a terminal the line is written over and over.
  const bool terminal = isatty(STDERR_FILENO) != 0;
  if (!terminal && !last) return;
  std::cerr << (terminal ? "\r" : "") << counts.added << " records added, " << counts.revised << " revised, "
            << counts.known << " known, " << counts.skipped << " other files" << (last ? "\n" : "") << std::flush;
}

int Import(const Options& options) {
  discserver::ImportCounts latest;
  try {
    latest = discserver::Import({options.words.begin() + 1, options.words.end()}, options.database,
                                [&latest](const discserver::ImportCounts& counts) { Print(latest = counts, false); });
  } catch (const std::exception&) {
    Print(latest, true);
    throw;
  }
  Print(latest, true);
  return 0;
}

int Serve(const Options& options) {
  // Blocked before any thread begins, so that they come here.
  sigset_t ends;
  sigemptyset(&ends);
  sigaddset(&ends, SIGTERM);
  sigaddset(&ends, SIGINT);
  sigprocmask(SIG_BLOCK, &ends, nullptr);
  std::signal(SIGPIPE, SIG_IGN);

  std::int64_t records = 0;
  for (const auto& [category, discs] : discserver::Store(options.database).Categories()) records += discs;
  const discserver::HttpServer server(options.database, options.address, options.port);
  const bool ipv6 = options.address.find(':') != std::string::npos;
  std::cout << records << " records on http://" << (ipv6 ? "[" : "") << options.address << (ipv6 ? "]" : "") << ":"
            << server.Port() << std::endl;
  int signal = 0;
  sigwait(&ends, &signal);
  return 0;
}

}  // namespace

int main(int count, char** arguments) {
  const auto options = ReadOptions({arguments + 1, arguments + count});
  // The counts of SQLite's memory cost its threads a lock.
  sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
  try {
    if (options && options->words.size() > 1 && options->words[0] == "import") return Import(*options);
    if (options && options->words == std::vector<std::string>{"serve"}) return Serve(*options);
  } catch (const std::exception& error) {
    std::cerr << "discserver: " << error.what() << "\n";
    return 1;
  }
  std::cerr << kUsage;
  return 2;
}
