// Waiting rows in memory and in a temporary file.
#include "command/rows/waiting_rows.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>

#include "command/layer/formatting.h"
#include "command/layer/status.h"

namespace command {
namespace {

constexpr size_t kInMemory = 16 << 20;

[[noreturn]] void fail(const std::string& folder) {
  throw Failure(
      fmt::format("can't keep rows that wait for their parents in {}: {}; name a folder "
                  "with room in TMPDIR, or sort the rows parents first",
                  folder, std::strerror(errno)));
}

std::string temporary_folder() {
  const char* folder = std::getenv("TMPDIR");
  return folder != nullptr && *folder != '\0' ? folder : "/tmp";
}

int open_unnamed(const std::string& folder) {
  int descriptor = open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0600);
  if (descriptor >= 0) return descriptor;
  std::string name = folder + "/outline.XXXXXX";
  descriptor = mkostemp(name.data(), O_CLOEXEC);
  if (descriptor < 0) fail(folder);
  unlink(name.c_str());
  return descriptor;
}

void put_number(std::string* text, uint64_t number) {
  text->append(reinterpret_cast<const char*>(&number), sizeof number);
}

void put_text(std::string* text, const std::string& value) {
  put_number(text, value.size());
  *text += value;
}

// Takes numbers and texts off a row's bytes.
class Reader {
 public:
  explicit Reader(const std::string& bytes) : at_(bytes.data()) {}
  uint64_t number() {
    uint64_t number = 0;
    std::memcpy(&number, at_, sizeof number);
    at_ += sizeof number;
    return number;
  }
  void text(std::string* value) {
    const auto size = static_cast<size_t>(number());
    value->assign(at_, size);
    at_ += size;
  }

 private:
  const char* at_;
};

}  // namespace

WaitingRows::~WaitingRows() {
  if (file_ >= 0) close(file_);
}

void WaitingRows::add(uint64_t key, const Row& row) {
  const auto number = static_cast<uint32_t>(entries_.size());
  if (number == kNone) throw Failure("too many rows wait for their parents");
  entries_.push_back({in_file_ + tail_.size(), kNone});
  const size_t begin = tail_.size();
  put_number(&tail_, 0);
  put_number(&tail_, row.line);
  put_text(&tail_, row.parent);
  put_text(&tail_, row.name);
  put_number(&tail_, row.values.size());
  for (const std::string& value : row.values) put_text(&tail_, value);
  const uint64_t size = tail_.size() - begin - sizeof size;
  std::memcpy(tail_.data() + begin, &size, sizeof size);

  const auto [chain, added] = chains_.emplace(key, Chain{number, number, 1});
  if (!added) {
    entries_[chain->second.last].next = number;
    chain->second.last = number;
    ++chain->second.length;
  }
  ++waiting_;
  if (tail_.size() > kInMemory) spill();
}

void WaitingRows::spill() {
  const std::string folder = temporary_folder();
  if (file_ < 0) file_ = open_unnamed(folder);
  for (size_t done = 0; done < tail_.size();) {
    const ssize_t put = pwrite(file_, tail_.data() + done, tail_.size() - done,
                               static_cast<off_t>(in_file_ + done));
    if (put < 0 && errno != EINTR) fail(folder);
    if (put > 0) done += static_cast<size_t>(put);
  }
  in_file_ += tail_.size();
  tail_.clear();
}

uint32_t WaitingRows::take(uint64_t key) {
  const auto chain = chains_.find(key);
  if (chain == chains_.end()) return kNone;
  const uint32_t first = chain->second.first;
  waiting_ -= chain->second.length;
  chains_.erase(chain);
  return first;
}

uint32_t WaitingRows::take_any() {
  return chains_.empty() ? kNone : take(chains_.begin()->first);
}

void WaitingRows::fetch(uint64_t offset, void* to, size_t size) {
  if (offset >= in_file_) {
    std::memcpy(to, tail_.data() + (offset - in_file_), size);
    return;
  }
  for (size_t done = 0; done < size;) {
    const ssize_t got =
        pread(file_, static_cast<char*>(to) + done, size - done, static_cast<off_t>(offset + done));
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) fail(temporary_folder());
    done += static_cast<size_t>(got);
  }
}

uint32_t WaitingRows::read(uint32_t number, Row* row) {
  const Entry entry = entries_[number];
  uint64_t size = 0;
  fetch(entry.offset, &size, sizeof size);
  std::string bytes(static_cast<size_t>(size), '\0');
  fetch(entry.offset + sizeof size, bytes.data(), bytes.size());
  Reader reader(bytes);
  row->line = reader.number();
  reader.text(&row->parent);
  reader.text(&row->name);
  row->values.resize(static_cast<size_t>(reader.number()));
  for (std::string& value : row->values) reader.text(&value);
  return entry.next;
}

}  // namespace command
