// Conversion and measuring of texts, with utf8proc.
#include "command/layer/text.h"

#include <utf8proc.h>

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "aliasfile/alias_file.h"
#include "command/layer/formatting.h"

namespace command {
namespace {

// Calls visit(code point, bytes) for each character; a byte that begins none is visited as -1.
template <typename Visit>
void for_each_character(std::string_view text, Visit&& visit) {
  const auto* at = reinterpret_cast<const utf8proc_uint8_t*>(text.data());
  auto left = static_cast<utf8proc_ssize_t>(text.size());
  while (left > 0) {
    utf8proc_int32_t code = -1;
    utf8proc_ssize_t size = utf8proc_iterate(at, left, &code);
    if (size < 1) {
      code = -1;
      size = 1;
    }
    if (!visit(code,
               std::string_view(reinterpret_cast<const char*>(at), static_cast<size_t>(size)))) {
      return;
    }
    at += size;
    left -= size;
  }
}

void append_half(std::string* text, unsigned half) {
  *text += static_cast<char>(0xE0 | half >> 12);
  *text += static_cast<char>(0x80 | (half >> 6 & 0x3F));
  *text += static_cast<char>(0x80 | (half & 0x3F));
}

// True when both sides spell the text alike: no NUL and no character of four bytes.
bool plain(std::string_view text) {
  return std::none_of(text.begin(), text.end(), [](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte == 0 || byte >= 0xF0;
  });
}

// How many bytes of ASCII a text begins with: most texts are nothing else.
size_t ascii_length(std::string_view text) {
  size_t length = 0;
  for (uint64_t bytes = 0; length + sizeof bytes <= text.size(); length += sizeof bytes) {
    std::memcpy(&bytes, text.data() + length, sizeof bytes);
    if ((bytes & 0x8080808080808080U) != 0) break;
  }
  while (length < text.size() && static_cast<unsigned char>(text[length]) < 0x80) ++length;
  return length;
}

bool control(int code) {
  return code >= 0 && (code < 0x20 || (code >= 0x7F && code < 0xA0));
}

size_t width_of(int code) {
  return code < 0 ? 1 : static_cast<size_t>(std::max(utf8proc_charwidth(code), 0));
}

}  // namespace

bool is_utf8(std::string_view text) {
  text.remove_prefix(ascii_length(text));
  bool valid = true;
  for_each_character(text, [&](int code, std::string_view) { return valid = code >= 0; });
  return valid;
}

std::string inside(std::string_view text) {
  if (plain(text)) return std::string(text);
  std::string result;
  for_each_character(text, [&](int code, std::string_view bytes) {
    if (code == 0) {
      result += "\xC0\x80";
    } else if (code >= 0x10000) {
      const auto offset = static_cast<unsigned>(code) - 0x10000;
      append_half(&result, 0xD800 + (offset >> 10));
      append_half(&result, 0xDC00 + (offset & 0x3FF));
    } else {
      result += bytes;
    }
    return true;
  });
  return result;
}

std::string outside(std::string_view text) {
  const bool spelled_alike =
      ascii_length(text) == text.size() ||
      (text.find('\xED') == std::string_view::npos && text.find('\xC0') == std::string_view::npos);
  if (spelled_alike) return std::string(text);
  std::string result = kepotl::system_path(std::string(text).c_str());
  for (size_t at = 0; (at = result.find("\xC0\x80", at)) != std::string::npos; ++at) {
    result.replace(at, 2, 1, '\0');
  }
  return result;
}

size_t columns(std::string_view text) {
  size_t width = 0;
  for_each_character(text, [&](int code, std::string_view) {
    width += width_of(code);
    return true;
  });
  return width;
}

std::string cut(std::string_view text, size_t width) {
  if (columns(text) <= width) return std::string(text);
  std::string result;
  size_t used = 1;  // the ellipsis
  for_each_character(text, [&](int code, std::string_view bytes) {
    used += width_of(code);
    if (used > width) return false;
    result += bytes;
    return true;
  });
  return width == 0 ? "" : result + "…";
}

std::string wrapped(std::string_view line, size_t width, size_t indent) {
  std::string text;
  size_t used = 0;
  while (!line.empty()) {
    const size_t gap = std::min(line.find_first_not_of(' '), line.size());
    std::string_view word = line.substr(0, line.find(' ', gap));
    line.remove_prefix(word.size());
    if (used > indent && used + columns(word) > width) {
      word.remove_prefix(gap);
      text += '\n' + std::string(indent, ' ');
      used = indent;
    }
    text += word;
    used += columns(word);
  }
  return text;
}

std::string printable(std::string_view text) {
  std::string result;
  for_each_character(text, [&](int code, std::string_view bytes) {
    if (code < 0) {
      result += "\xEF\xBF\xBD";
    } else if (control(code)) {
      result += code == '\n' ? "\\n" : code == '\t' ? "\\t" : fmt::format("\\u{:04x}", code);
    } else {
      result += bytes;
    }
    return true;
  });
  return result;
}

}  // namespace command
