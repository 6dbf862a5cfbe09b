// Writing an outline to its file.
#include <algorithm>
#include <set>
#include <utility>

#include "standin/guard.h"
#include "standin/outline/file/rows.h"
#include "standin/outline/file/schema.h"
#include "standin/outline/file/stored_outline.h"
#include "standin/outline/model/member_fields.h"

namespace standin {
namespace {

// Writes one outline into a new file. Rows name members by their number in pre-order.
class OutlineWriter {
 public:
  OutlineWriter(const Outline& outline, OutlineFile& file) : outline_(outline), file_(file) {
    numbers_.resize(outline.id_limit());
    order_.reserve(outline.member_count());
    for (const MemberId id : outline.subtree(kRoot)) {
      order_.push_back(id);
      numbers_[id] = static_cast<uint32_t>(order_.size());
    }
  }

  void write() {
    write_settings();
    write_members();
    write_reserved();
    write_name_order();
    visit_member_texts(
        [this](const char* table, TextKind kind, size_t) { write_texts(table, kind); });
    write_udas();
    write_associations("dimension_association", true);
    write_associations("member_association", false);
    for (const NumberedNameTable& table : kNumberedNameTables) write_numbered_names(table);
    write_series();
    write_alias_tables();
    write_checksum();
  }

  void write_index() {
    std::vector<uint32_t> last(order_.size() + 1);
    for (size_t number = order_.size(); number > 0; --number) {
      const auto own = static_cast<uint32_t>(number);
      last[number] = std::max(last[number], own);
      uint32_t& above = last[numbers_[outline_.member(order_[number - 1]).parent]];
      above = std::max(above, last[number]);
    }
    write_rows(file_, "member_index", 4, [&](RowWriter& row) {
      for (const MemberId id : order_) {
        row.number(numbers_[id]).number(outline_.member(id).generation).number(outline_.level(id));
        row.number(last[numbers_[id]]).end();
      }
    });
  }

 private:
  void write_settings() {
    write_rows(file_, "outline", kSettingsColumns, [&](RowWriter& row) {
      row.number(outline_.case_sensitive() ? 1 : 0);
      visit_settings(outline_, [&](int64_t value) { row.number(value); });
      for (const auto& text : outline_.attribute_settings.texts) row.optional_text(text);
      row.end();
    });
  }

  void write_members() {
    write_rows(file_, "member", member_columns(), [&](RowWriter& row) {
      for (const MemberId id : order_) {
        const Member& member = outline_.member(id);
        row.number(numbers_[id]).number(numbers_[member.parent]).text(outline_.name(id));
        const MemberProperties& properties = outline_.properties(id);
        visit_member_codes([&](const char*, auto code, auto) { row.number(properties.*code); });
        row.end();
      }
    });
  }

  void write_reserved() {
    write_rows(file_, "reserved", 3, [&](RowWriter& row) {
      for (const MemberId id : order_) {
        const auto& bytes = outline_.properties(id).reserved;
        for (size_t i = 0; i < bytes.size(); ++i) {
          if (bytes[i] == 0) continue;
          row.number(numbers_[id]).number(static_cast<int64_t>(i)).number(bytes[i]).end();
        }
      }
    });
  }

  // Members of one name take it in the order of their numbers when they are read again; where
  // another order holds it is told.
  void write_name_order() {
    write_rows(file_, "name_order", 1, [&](RowWriter& row) {
      std::set<MemberId> told;  // the first holders
      for (const MemberId id : order_) {
        const MemberId next = outline_.next_of_same_name(id);
        if (next == kNoMember || numbers_[next] > numbers_[id]) continue;
        const MemberId first = outline_.find(outline_.name(id));
        if (!told.insert(first).second) continue;
        for (MemberId holder = first; holder != kNoMember;
             holder = outline_.next_of_same_name(holder)) {
          row.number(numbers_[holder]).end();
        }
      }
    });
  }

  void write_texts(const char* table, TextKind kind) {
    write_rows(file_, table, 2, [&](RowWriter& row) {
      for (const MemberId id : order_) {
        const std::string_view text = outline_.text(id, kind);
        if (!text.empty()) row.number(numbers_[id]).text(text).end();
      }
    });
  }

  void write_udas() {
    write_rows(file_, "uda", 2, [&](RowWriter& row) {
      for (const MemberId id : order_) {
        for (const std::string_view uda : outline_.udas(id)) {
          row.number(numbers_[id]).text(uda).end();
        }
      }
    });
  }

  void write_associations(const char* table, bool of_dimensions) {
    write_rows(file_, table, 2, [&](RowWriter& row) {
      for (const MemberId id : order_) {
        if (outline_.is_dimension(id) != of_dimensions) continue;
        for (const MemberId attribute : outline_.associations(id)) {
          row.number(numbers_[id]).number(numbers_[attribute]).end();
        }
      }
    });
  }

  void write_numbered_names(const NumberedNameTable& table) {
    write_rows(file_, table.name, 3, [&](RowWriter& row) {
      for (const MemberId id : outline_.children(kRoot)) {
        const auto found = outline_.dimension_names.find(id);
        if (found == outline_.dimension_names.end()) continue;
        for (const auto& [number, name] : found->second.*table.names) {
          row.number(numbers_[id]).number(number).text(name).end();
        }
      }
    });
  }

  void write_series() {
    write_rows(file_, "series", 2, [&](RowWriter& row) {
      for (const SeriesEntry& entry : outline_.series) {
        row.text(entry.name).number(entry.generation).end();
      }
    });
  }

  void write_alias_tables() {
    // In the checksum the names of the three tables come before their rows.
    write_rows(file_, "alias_table", 2, [&](RowWriter& table) {
      write_rows(file_, "alias", 3, [&](RowWriter& alias) {
        write_rows(file_, "series_alias", 3, [&](RowWriter& series_alias) {
          write_table_names(table);
          for (size_t i = 0; i < outline_.alias_tables().size(); ++i) write_aliases(alias, i);
          for (size_t i = 0; i < outline_.alias_tables().size(); ++i) {
            for (const auto& [series, text] : outline_.series_aliases(i)) {
              series_alias.number(static_cast<int64_t>(i)).text(series).text(text).end();
            }
          }
        });
      });
    });
  }

  void write_table_names(RowWriter& row) {
    int64_t number = 0;
    for (const AliasTable& table : outline_.alias_tables()) {
      row.number(number++).text(table.name).end();
    }
  }

  // The aliases of a table in the order of their members: found by going through all members where
  // many have one, else by sorting.
  void write_aliases(RowWriter& row, size_t table) {
    const auto write = [&](MemberId id, std::string_view alias) {
      row.number(static_cast<int64_t>(table)).number(numbers_[id]).text(alias).end();
    };
    if (outline_.alias_count(table) > order_.size() / 16) {
      for (const MemberId id : order_) {
        const std::string_view alias = outline_.alias(table, id);
        if (!alias.empty()) write(id, alias);
      }
      return;
    }
    std::vector<std::pair<uint32_t, MemberId>> sorted;
    outline_.visit_aliases(
        table, [&](MemberId id, std::string_view) { sorted.emplace_back(numbers_[id], id); });
    std::sort(sorted.begin(), sorted.end());
    for (const auto& [number, id] : sorted) write(id, outline_.alias(table, id));
  }

  void write_checksum() {
    const int64_t value = file_.checksum.value();
    write_rows(file_, "checksum", 1, [&](RowWriter& row) { row.number(value).end(); });
  }

  const Outline& outline_;
  OutlineFile& file_;
  std::vector<MemberId> order_;    // members in pre-order
  std::vector<uint32_t> numbers_;  // place in that order from 1, by member; 0 for the root
};

// Large pages cost less each, but every table takes one.
int page_size_for(const Outline& outline) {
  constexpr uint32_t kManyMembers = 20'000;
  return outline.member_count() < kManyMembers ? 4096 : 65536;
}

void write_file(const Outline& outline, const std::string& path, bool with_index) {
  OutlineFile file = OutlineFile::create(path);
  file.run(("PRAGMA page_size=" + std::to_string(page_size_for(outline)) +
            "; PRAGMA application_id=" + std::to_string(kApplicationId) +
            "; PRAGMA user_version=" + std::to_string(kSchemaVersion) + "; BEGIN")
               .c_str());
  file.run(schema_sql().c_str());
  OutlineWriter writer(outline, file);
  writer.write();
  if (with_index) writer.write_index();
  file.run("COMMIT");
  file.close();
}

}  // namespace

void write_outline(const Outline& outline, const std::string& path) {
  write_file(outline, path, false);
}

void write_outline_with_index(const Outline& outline, const std::string& path) {
  write_file(outline, path, true);
}

}  // namespace standin
