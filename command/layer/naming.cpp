// Names and paths of members.
#include "command/layer/naming.h"

#include <algorithm>
#include <charconv>

#include "command/layer/formatting.h"
#include "command/layer/similar.h"
#include "search/text_match.h"

namespace command {
namespace {

std::string quoted(std::string_view text) {
  std::string result = "\"";
  for (const char c : text) {
    if (c == '"') result += '"';
    result += c;
  }
  return result + '"';
}

bool needs_quotes(std::string_view text, char separator) {
  return text.empty() || text.find(separator) != std::string_view::npos ||
         text.find_first_of("\"#") != std::string_view::npos || text.front() == ' ' ||
         text.back() == ' ';
}

// One item from the front of `text`, which is shortened by it and its separator; false when a
// quote is left open or something follows a closing one that the caller did not take.
bool take_item(std::string_view* text, char separator, std::string* item, std::string* rest) {
  item->clear();
  rest->clear();
  size_t at = 0;
  if (!text->empty() && text->front() == '"') {
    for (at = 1;; ++at) {
      if (at >= text->size()) return false;
      if ((*text)[at] != '"') {
        *item += (*text)[at];
      } else if (at + 1 < text->size() && (*text)[at + 1] == '"') {
        *item += (*text)[at++];
      } else {
        break;
      }
    }
    const size_t end = text->find(separator, ++at);
    *rest = text->substr(at, end == std::string_view::npos ? end : end - at);
    at = end;
  } else {
    at = text->find(separator);
    *item = text->substr(0, at);
  }
  text->remove_prefix(at == std::string_view::npos ? text->size() : at + 1);
  return true;
}

// Takes "#2" for the order.
bool read_order(std::string_view text, unsigned* order) {
  if (text.size() < 2 || text.front() != '#') return false;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data() + 1, end, *order);
  return read.ec == std::errc() && read.ptr == end && *order > 0;
}

std::string path_part(const Outline& outline, Member member) {
  const std::string name = member.name();
  unsigned order = 1;
  // Only a repeated name is worth asking the siblings.
  if (outline.holders(name).size() > 1) {
    const bool case_sensitive = outline.settings().case_sensitive;
    for (Member before = member.previous(); before; before = before.previous()) {
      if (same_name(before.name(), name, case_sensitive)) ++order;
    }
  }
  std::string part = needs_quotes(name, '/') ? quoted(name) : name;
  if (order > 1) part += fmt::format("#{}", order);
  return part;
}

}  // namespace

std::vector<PathPart> parse_path(std::string_view text) {
  std::vector<PathPart> parts;
  while (!text.empty()) {
    PathPart part;
    std::string rest;
    const bool quote = text.front() == '"';
    const bool more = text.back() == '/';
    if (!take_item(&text, '/', &part.name, &rest)) return {};
    if (!quote) {
      const size_t sign = part.name.rfind('#');
      if (sign != std::string::npos && read_order(part.name.substr(sign), &part.order)) {
        part.name.resize(sign);
      }
    } else if (!rest.empty() && !read_order(rest, &part.order)) {
      return {};
    }
    if (part.name.empty() || (text.empty() && more)) return {};
    parts.push_back(std::move(part));
  }
  return parts;
}

std::string join_quoted(const std::vector<std::string>& items, char separator) {
  std::string text;
  for (const std::string& item : items) {
    if (!text.empty()) text += separator;
    text += needs_quotes(item, separator) ? quoted(item) : item;
  }
  return text;
}

std::vector<std::string> split_quoted(std::string_view text, char separator) {
  std::vector<std::string> items;
  while (!text.empty()) {
    std::string item;
    std::string rest;
    const size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) break;
    text.remove_prefix(first);
    const bool quote = text.front() == '"';
    const std::string_view before = text;
    if (!take_item(&text, separator, &item, &rest)) {
      item = before;
      text = {};
    }
    if (!quote) item.erase(item.find_last_not_of(' ') + 1);
    if (!item.empty()) items.push_back(std::move(item));
  }
  return items;
}

bool same_name(std::string_view a, std::string_view b, bool case_sensitive) {
  if (case_sensitive || a.size() != b.size()) return a == b;
  for (size_t i = 0; i < a.size(); ++i) {
    if (kepotl::lower_ascii(a[i]) != kepotl::lower_ascii(b[i])) return false;
  }
  return true;
}

std::string path_of(const Outline& outline, Member member) {
  std::vector<std::string> parts;
  for (Member at = member; at; at = at.parent()) parts.push_back(path_part(outline, at));
  std::reverse(parts.begin(), parts.end());
  return fmt::format("{}", fmt::join(parts, "/"));
}

std::string reference_to(const Outline& outline, Member member) {
  std::string name = member.name();
  if (look_up(outline, name).member == member) return name;
  std::string path = path_of(outline, member);
  // A path that is another member's name is told from it by quoting its first part.
  if (path.front() == '"' || outline.holders(path).empty()) return path;
  const size_t end = path.find('/');
  return quoted(path.substr(0, end)) + (end == std::string::npos ? "" : path.substr(end));
}

Member child_of_name(Member parent, std::string_view name, unsigned order, bool case_sensitive) {
  for (const Member child : children(parent)) {
    if (same_name(child.name(), name, case_sensitive) && --order == 0) return child;
  }
  return Member();
}

Named look_up(const Outline& outline, std::string_view text) {
  const std::vector<Member> holders = outline.holders(text);
  if (holders.size() == 1) return {holders.front(), {}};
  if (!holders.empty()) {
    std::vector<Member> unshared;
    for (const Member holder : holders) {
      if (!holder.shared()) unshared.push_back(holder);
    }
    if (unshared.size() == 1) return {unshared.front(), {}};
    return {Member(), holders};
  }
  const std::vector<PathPart> parts = parse_path(text);
  if (parts.empty()) return {};
  if (parts.size() == 1 && parts[0].order == 1 && parts[0].name != text) {
    return look_up(outline, parts[0].name);
  }
  const bool case_sensitive = outline.settings().case_sensitive;
  Member at = outline.root();
  for (const PathPart& part : parts) {
    at = child_of_name(at, part.name, part.order, case_sensitive);
    if (!at) return {};
  }
  return {at, {}};
}

Member find_member(const Outline& outline, std::string_view text) {
  const Named named = look_up(outline, text);
  if (named.member) return named.member;
  std::string message;
  if (!named.several.empty()) {
    message = fmt::format("{} members are called '{}'; name one by its path:", named.several.size(),
                          text);
    constexpr size_t kShown = 10;
    for (size_t i = 0; i < std::min(kShown, named.several.size()); ++i) {
      message += "\n  " + path_of(outline, named.several[i]);
    }
    if (named.several.size() > kShown) message += "\n  ...";
  } else {
    message = fmt::format("there is no member '{}'", text);
    Similar similar(text);
    uint32_t looked_at = 0;
    for (const Member member : subtree(outline.root())) {
      similar.offer(member.name());
      if (++looked_at == 200'000) break;  // a suggestion is not worth more time
    }
    message += similar.sentence();
  }
  throw Failure(message);
}

}  // namespace command
