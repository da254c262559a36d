#include "discserver/import.h"

#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <thread>
#include <utility>
#include <vector>

#include "discserver/archive_reader.h"
#include "discserver/store.h"
#include "discserver/text.h"
#include "discserver/xmcd.h"

namespace discserver {
namespace {

// What an archive holds, made ready for the database.
struct Item {
  std::optional<Record> record;      // nothing when it is no disc record
  std::string linkCategory, linkId;  // the record to copy, where this is a link
};
using Batch = std::vector<Item>;

// Hands batches from the thread that reads to the one that writes, and back when they are written: freed by the thread
// that made them they don't keep the other from its own memory.
class Queue {
 public:
  // Waits while the queue is full; false when nobody takes any more.
  bool Put(Batch batch) {
    std::vector<Batch> written;
    std::unique_lock lock(mutex_);
    written.swap(written_);
    changed_.wait(lock, [this] { return batches_.size() < kMostBatches || closed_; });
    if (closed_) return false;
    batches_.push_back(std::move(batch));
    changed_.notify_all();
    return true;
  }
  // Waits for a batch; nothing after the last. Takes the one before back.
  std::optional<Batch> Take(std::optional<Batch> written) {
    std::unique_lock lock(mutex_);
    if (written) written_.push_back(std::move(*written));
    changed_.wait(lock, [this] { return !batches_.empty() || closed_; });
    if (batches_.empty()) return std::nullopt;
    Batch batch = std::move(batches_.front());
    batches_.pop_front();
    changed_.notify_all();
    return batch;
  }
  void Close() {
    const std::lock_guard lock(mutex_);
    closed_ = true;
    changed_.notify_all();
  }

 private:
  static constexpr std::size_t kMostBatches = 32;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<Batch> batches_;
  std::vector<Batch> written_;
  bool closed_ = false;
};

bool IsCategory(std::string_view name) {
  return !name.empty() && name.size() <= 32 &&
         name.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789_-") == name.npos;
}

Item Prepare(ArchivedRecord&& archived) {
  if (!IsCategory(archived.category) || !IsDiscId(archived.id)) return {};
  Record record;
  record.disc = {std::move(archived.category), std::move(archived.id), ""};
  if (archived.linkId.empty()) {
    record.text = RecordText(archived.file);
    record.disc.title = DiscTitle(record.text);
    record.revision = Revision(record.text);
    if (record.disc.title.empty()) return {};
  }
  return {std::move(record), std::move(archived.linkCategory), std::move(archived.linkId)};
}

struct Stopped {};  // thrown through the reader when the writer has failed

void Read(const std::vector<std::filesystem::path>& archives, Queue& queue) {
  constexpr std::size_t kBatch = 1000;
  Batch batch;
  const auto hand = [&] {
    if (!queue.Put(std::exchange(batch, {}))) throw Stopped();
  };
  for (const auto& archive : archives) {
    const RecordSink sink = [&](ArchivedRecord&& archived) {
      batch.push_back(Prepare(std::move(archived)));
      if (batch.size() == kBatch) hand();
    };
    try {
      ReadArchive(archive, sink);
    } catch (const std::runtime_error&) {
      hand();
      throw;
    }
    hand();
  }
}

void Add(StoreWriter& store, Item& item, ImportCounts& counts) {
  if (item.record && !item.linkId.empty()) {
    auto target = store.Find(item.linkCategory, item.linkId);
    if (target) {
      target->disc.category = item.record->disc.category;
      target->disc.id = item.record->disc.id;
    }
    item.record = std::move(target);
  }
  if (!item.record) {
    ++counts.skipped;
    return;
  }
  switch (store.Add(*item.record)) {
    case Added::New:
      ++counts.added;
      break;
    case Added::Revised:
      ++counts.revised;
      break;
    case Added::Known:
      ++counts.known;
      break;
  }
}

ImportCounts Write(Queue& queue, const std::string& database,
                   const std::function<void(const ImportCounts&)>& progress) {
  constexpr std::int64_t kCommitAfter = 500'000, kProgressAfter = 10'000;  // records
  StoreWriter store(database);
  ImportCounts counts;
  std::int64_t items = 0;
  std::optional<Batch> batch;
  while ((batch = queue.Take(std::move(batch)))) {
    for (Item& item : *batch) {
      Add(store, item, counts);
      if (++items % kCommitAfter == 0) store.Commit();
      if (items % kProgressAfter == 0) progress(counts);
    }
  }
  store.Finish();
  return counts;
}

}  // namespace

ImportCounts Import(const std::vector<std::filesystem::path>& archives, const std::string& database,
                    const std::function<void(const ImportCounts&)>& progress) {
  Queue queue;
  std::exception_ptr damage;
  std::thread reader([&] {
    try {
      Read(archives, queue);
    } catch (const Stopped&) {
      // The writer's own error is told.
    } catch (...) {
      damage = std::current_exception();
    }
    queue.Close();
  });
  ImportCounts counts;
  try {
    counts = Write(queue, database, progress);
  } catch (...) {
    queue.Close();
    reader.join();
    throw;
  }
  reader.join();
  progress(counts);
  if (damage) std::rethrow_exception(damage);
  return counts;
}

}  // namespace discserver
