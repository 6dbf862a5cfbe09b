// Reading an outline from its file, refusing one that is damaged.
#include "standin/outline/file/stored_outline.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>

#include "standin/guard.h"
#include "standin/outline/file/rows.h"
#include "standin/outline/file/schema.h"
#include "standin/outline/model/member_fields.h"
#include "standin/outline/model/series.h"
#include "standin/sqlite.h"

namespace standin {
namespace {

void demand(bool sound) {
  if (!sound) throw StoreFailure(kDamagedOutline);
}

// Reads one file into a new outline, where members get the numbers that they have in the file.
class OutlineReader {
 public:
  OutlineReader(OutlineFile& file, Outline& outline, int64_t bytes_on_disk)
      : file_(file), outline_(outline), bytes_on_disk_(bytes_on_disk) {}

  // The tables in the order in which they were written, which the checksum depends on.
  void read() {
    read_settings();
    read_members();
    read_reserved();
    read_name_order();
    visit_member_texts([this](const char* table, TextKind kind, size_t longest) {
      read_texts(table, kind, longest);
    });
    read_udas();
    read_associations("dimension_association", true);
    read_associations("member_association", false);
    for (const NumberedNameTable& table : kNumberedNameTables) read_numbered_names(table);
    read_series();
    read_alias_tables();
    check_checksum();
  }

 private:
  MemberId member_of(RowReader& row) {
    return static_cast<MemberId>(row.number_within(1, outline_.member_count()));
  }

  size_t table_of(RowReader& row) {
    const auto last = static_cast<int64_t>(outline_.alias_tables().size()) - 1;
    return static_cast<size_t>(row.number_within(0, last));
  }

  // Reads a table of one row.
  template <typename Row>
  static void read_only_row(RowReader& table, Row&& row) {
    int rows = 0;
    table.each([&] {
      demand(++rows == 1);
      row();
    });
    demand(rows == 1);
  }

  void read_settings() {
    RowReader row(file_, "outline", kSettingsColumns);
    read_only_row(row, [&] {
      outline_.set_case_sensitive(row.number_within(0, 1) != 0);
      visit_settings(outline_, [&](auto& value) {
        value = row.number<std::remove_reference_t<decltype(value)>>();
      });
      for (auto& text : outline_.attribute_settings.texts) text = row.optional_text(kMaxMemberName);
    });
  }

  void read_members() {
    // Room for no more than the disk can hold, or damage could ask for all memory there is.
    const int64_t count = file_.number("SELECT max(id) FROM member");
    demand(count >= 0 && count <= INT32_MAX);
    outline_.reserve(static_cast<uint32_t>(std::min(count, bytes_on_disk_ / member_columns())));

    RowReader row(file_, "member", member_columns());
    MemberProperties properties;
    MemberId last = kRoot;
    row.each([&] {
      const MemberId expected = outline_.id_limit();
      demand(row.number<int64_t>() == expected);
      const auto parent = static_cast<MemberId>(row.number_within(kRoot, expected - 1));
      // Pre-order: the parent is the member before or one of those above it.
      while (last != parent && last != kRoot) last = outline_.member(last).parent;
      demand(last == parent);
      last = outline_.append_unindexed(parent, row.name(kMaxMemberName));
      visit_member_codes([&](const char*, auto code, auto) {
        auto& value = properties.*code;
        value = row.number<std::remove_reference_t<decltype(value)>>();
      });
      outline_.set_properties(last, properties);
    });
    demand(outline_.member_count() == static_cast<uint64_t>(count));
    outline_.index_names();
  }

  void read_reserved() {
    RowReader row(file_, "reserved", 3);
    row.each([&] {
      const MemberId id = member_of(row);
      MemberProperties properties = outline_.properties(id);
      const auto last = static_cast<int64_t>(properties.reserved.size()) - 1;
      const auto position = static_cast<size_t>(row.number_within(0, last));
      properties.reserved[position] = row.number<uint8_t>();
      outline_.set_properties(id, properties);
    });
  }

  void read_name_order() {
    RowReader row(file_, "name_order", 1);
    row.each([&] { outline_.requeue_name(member_of(row)); });
  }

  void read_texts(const char* table, TextKind kind, size_t longest) {
    RowReader row(file_, table, 2);
    row.each([&] {
      const MemberId id = member_of(row);
      outline_.set_text(id, kind, row.name(longest));
    });
  }

  void read_udas() {
    RowReader row(file_, "uda", 2);
    row.each([&] {
      const MemberId id = member_of(row);
      outline_.add_uda(id, row.name(kMaxUda));
    });
  }

  void read_associations(const char* table, bool of_dimensions) {
    RowReader row(file_, table, 2);
    row.each([&] {
      const MemberId base = member_of(row);
      const MemberId attribute = member_of(row);
      demand(base != attribute && !outline_.associated(base, attribute));
      demand(outline_.is_dimension(base) == of_dimensions);
      demand(outline_.is_dimension(attribute) == of_dimensions);
      demand(of_dimensions || outline_.associated(outline_.member(base).dimension,
                                                  outline_.member(attribute).dimension));
      demand(of_dimensions || !outline_.carries_other(base, attribute));
      outline_.associate(base, attribute);
    });
  }

  void read_numbered_names(const NumberedNameTable& table) {
    RowReader row(file_, table.name, 3);
    row.each([&] {
      const MemberId dimension = member_of(row);
      demand(outline_.is_dimension(dimension));
      const auto number = static_cast<uint16_t>(row.number_within(table.first, UINT16_MAX));
      auto& names = outline_.dimension_names[dimension].*table.names;
      demand(names.emplace(number, row.name(kMaxMemberName)).second);
    });
  }

  void read_series() {
    RowReader row(file_, "series", 2);
    row.each([&] {
      SeriesEntry entry;
      entry.name = row.name(kMaxMemberName);
      entry.generation = static_cast<int16_t>(row.number_within(1, INT16_MAX));
      demand(is_series_name(entry.name) && find_series(outline_, entry.name) == nullptr);
      outline_.series.push_back(std::move(entry));
    });
  }

  void read_alias_tables() {
    RowReader table(file_, "alias_table", 2);
    RowReader alias(file_, "alias", 3);
    RowReader series_alias(file_, "series_alias", 3);
    int64_t tables = 0;
    table.each([&] {
      demand(table.number<int64_t>() == tables && tables < UINT16_MAX);
      const std::string_view name = table.name(kMaxAliasTableName);
      if (tables == 0) {
        outline_.rename_table(0, name);
      } else {
        outline_.add_table(name);
      }
      ++tables;
    });
    demand(tables > 0);
    alias.each([&] {
      const size_t to = table_of(alias);
      const MemberId member = member_of(alias);
      demand(outline_.alias(to, member).empty());
      outline_.set_alias(to, member, alias.name(kMaxMemberName));
    });
    series_alias.each([&] {
      auto& aliases = outline_.series_aliases(table_of(series_alias));
      const std::string_view series = series_alias.name(kMaxMemberName);
      demand(is_series_name(series));
      demand(aliases.emplace(series, series_alias.name(kMaxMemberName)).second);
    });
  }

  void check_checksum() {
    const int64_t expected = file_.checksum.value();
    RowReader row(file_, "checksum", 1);
    read_only_row(row, [&] { demand(row.number<int64_t>() == expected); });
  }

  OutlineFile& file_;
  Outline& outline_;
  int64_t bytes_on_disk_;
};

int64_t bytes_on_disk(const std::string& path) {
  struct stat state {};
  if (stat(path.c_str(), &state) != 0) throw StoreFailure(status_of_error(errno));
  return int64_t{state.st_blocks} * 512;
}

// Tables, views, triggers and columns other than ours have no business in the file.
void check_schema(OutlineFile& file) {
  static const std::string kOurs = schema_made_by(schema_sql().c_str());
  std::string theirs;
  try {
    theirs = schema_of(file.connection());
  } catch (const StoreFailure& failure) {
    throw StoreFailure(failure.status() == kNotAStore ? kDamagedOutline : failure.status());
  }
  demand(theirs == kOurs);
}

}  // namespace

int load_outline(const std::string& path, Outline* outline) {
  return run_guarded([&] {
    OutlineFile file = OutlineFile::open(path);
    demand(file.number("PRAGMA application_id") == kApplicationId);
    const int64_t version = file.number("PRAGMA user_version");
    if (version > kSchemaVersion) throw StoreFailure(kNewerOutline);
    demand(version == kSchemaVersion);
    check_schema(file);
    OutlineReader(file, *outline, bytes_on_disk(path)).read();
    return kStatusOk;
  });
}

}  // namespace standin
