// CSV input.
#include "command/rows/csv_reader.h"

#include <csv.h>

#include <algorithm>
#include <exception>

#include "command/layer/formatting.h"
#include "command/layer/status.h"
#include "command/layer/text.h"

namespace command {
namespace {

// The separator that stands in the header most often, outside of quotes.
char find_separator(const std::string& header) {
  size_t counts[3] = {};
  constexpr char kSeparators[] = {',', ';', '\t'};
  bool quoted = false;
  for (const char c : header) {
    if (c == '"') quoted = !quoted;
    for (size_t i = 0; i < 3 && !quoted; ++i) counts[i] += c == kSeparators[i] ? 1 : 0;
  }
  return kSeparators[std::max_element(counts, counts + 3) - counts];
}

// What libcsv calls back. Nothing may be thrown through it, so a failure is kept until it returns.
class Records {
 public:
  Records(const std::string& name, const TakeRecord& take) : name_(name), take_(take) {}

  void cell(const char* text, size_t size) noexcept {
    if (failure_) return;
    try {
      if (used_ == 0) begin_ = line_;
      if (used_ == cells_.size()) cells_.emplace_back();
      std::string& cell = cells_[used_++];
      cell.assign(text, size);
      if (!is_utf8(cell)) {
        throw Failure(fmt::format("{}:{}: the text '{}' is not UTF-8; save the file as UTF-8",
                                  name_, line_, printable(cell)));
      }
      line_ += static_cast<uint64_t>(std::count(text, text + size, '\n'));
    } catch (...) {
      failure_ = std::current_exception();
    }
  }

  void end(int character) noexcept {
    const size_t used = used_;
    used_ = 0;
    if (!failure_ && used > 0) {
      try {
        cells_.resize(used);
        const bool blank = used == 1 && cells_.front().empty();
        if (!blank) take_(cells_, begin_);
      } catch (...) {
        failure_ = std::current_exception();
      }
    }
    if (character == '\n') ++line_;
  }

  void rethrow() const {
    if (failure_) std::rethrow_exception(failure_);
  }
  uint64_t line() const { return line_; }

 private:
  const std::string& name_;
  const TakeRecord& take_;
  std::vector<std::string> cells_;
  size_t used_ = 0;
  uint64_t line_ = 1;
  uint64_t begin_ = 1;
  std::exception_ptr failure_;
};

extern "C" void take_cell(void* text, size_t size, void* records) {
  static_cast<Records*>(records)->cell(static_cast<const char*>(text), size);
}

extern "C" void end_record(int character, void* records) {
  static_cast<Records*>(records)->end(character);
}

class Parser {
 public:
  explicit Parser(char separator) {
    if (csv_init(&parser_, CSV_STRICT | CSV_STRICT_FINI | CSV_REPALL_NL) != 0) {
      throw std::bad_alloc();
    }
    csv_set_delim(&parser_, static_cast<unsigned char>(separator));
    // With tabs between cells only blanks are trimmed.
    if (separator == '\t')
      csv_set_space_func(&parser_, [](unsigned char c) { return c == ' ' ? 1 : 0; });
  }
  ~Parser() { csv_free(&parser_); }
  Parser(const Parser&) = delete;
  Parser& operator=(const Parser&) = delete;
  csv_parser* get() { return &parser_; }

 private:
  csv_parser parser_;
};

}  // namespace

void read_csv(Source& source, const TakeRecord& take) {
  Parser parser(find_separator(source.first_line()));
  Records records(source.name(), take);
  const auto fail = [&] {
    records.rethrow();
    const int error = csv_error(parser.get());
    if (error == CSV_ENOMEM) throw std::bad_alloc();
    throw Failure(
        fmt::format("{}:{}: a quote stands where none can be; a cell that holds quotes is "
                    "quoted, and they are doubled within",
                    source.name(), records.line()));
  };
  for (;;) {
    const std::string& piece = source.next();
    if (piece.empty()) break;
    const size_t parsed =
        csv_parse(parser.get(), piece.data(), piece.size(), take_cell, end_record, &records);
    records.rethrow();
    if (parsed != piece.size()) fail();
  }
  if (csv_fini(parser.get(), take_cell, end_record, &records) != 0) fail();
  records.rethrow();
}

}  // namespace command
