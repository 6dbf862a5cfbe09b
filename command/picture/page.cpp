#include "command/picture/page.h"

#include <algorithm>
#include <cstdio>

#include "command/picture/page_script.h"

namespace command {
namespace {

// A row is as high as a window has room for all of them, within these limits.
constexpr unsigned kLeastRow = 20;
constexpr unsigned kHighestRow = 56;
constexpr unsigned kRoom = 560;
constexpr unsigned kTop = 104;      // where the blocks begin
constexpr unsigned kTextWidth = 7;  // of a character, as a guess for the legend
constexpr unsigned kLegendLine = 18;
constexpr unsigned kNarrowWindow = 480;  // in which no line of the legend is cut
// Percent of the whole width from which on a block bears its name, and is set apart by a line.
constexpr double kLeastLabel = 3;
constexpr double kLeastSeparated = .4;

// A text for XML. Characters that XML has no way to write are shown as missing ones.
std::string escaped(const std::string& text) {
  std::string result;
  for (const char c : text) {
    switch (c) {
      case '&':
        result += "&amp;";
        break;
      case '<':
        result += "&lt;";
        break;
      case '>':
        result += "&gt;";
        break;
      case '"':
        result += "&quot;";
        break;
      default:
        if (static_cast<unsigned char>(c) < 0x20) {
          result += "\xEF\xBF\xBD";
        } else {
          result += c;
        }
    }
  }
  return result;
}

std::string counted(uint64_t number, const char* one, const std::string& many) {
  return grouped(number) + ' ' + (number == 1 ? one : many);
}

// A share of the whole width in percent, as short as its use in the page allows.
std::string percent(uint64_t part, uint64_t whole) {
  char text[32];
  std::snprintf(text, sizeof text, "%.7g%%",
                100.0 * static_cast<double>(part) / static_cast<double>(whole));
  return text;
}

std::string attribute(const char* name, const std::string& value) {
  return std::string(" ") + name + "=\"" + value + '"';
}

std::string text_element(unsigned x, unsigned y, const char* type, const std::string& text) {
  return "<text" + attribute("x", std::to_string(x)) + attribute("y", std::to_string(y)) +
         attribute("class", type) + '>' + escaped(text) + "</text>\n";
}

// Characters of a UTF-8 text.
size_t characters(const std::string& text) {
  return static_cast<size_t>(std::count_if(text.begin(), text.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
  }));
}

// In as many lines as a narrow window needs, which are added to `lines`.
std::string legend(const std::vector<std::string>& meanings, unsigned* lines) {
  std::string page;
  unsigned x = 12;
  for (size_t colour = 0; colour < meanings.size(); ++colour) {
    if (meanings[colour].empty()) continue;
    const unsigned width = 34 + static_cast<unsigned>(characters(meanings[colour])) * kTextWidth;
    if (x > 12 && x + width > kNarrowWindow) {
      x = 12;
      ++*lines;
    }
    const unsigned y = 57 + *lines * kLegendLine;
    page += "<g" + attribute("class", "c" + std::to_string(colour)) + "><rect" +
            attribute("x", std::to_string(x)) + attribute("y", std::to_string(y)) +
            R"( width="12" height="12"/></g>)";
    page += text_element(x + 17, y + 11, "key", meanings[colour]);
    x += width;
  }
  return page;
}

class Page {
 public:
  Page(const Icicle& icicle, const PictureCaption& caption,
       const std::function<std::string(uint32_t)>& name,
       const std::function<uint8_t(uint32_t)>& colour)
      : icicle_(icicle),
        row_height_(std::clamp(kRoom / std::max(icicle.rows, 1U), kLeastRow, kHighestRow)),
        caption_(caption),
        name_(name),
        colour_(colour) {}

  std::string svg() const {
    unsigned lines = 0;  // of the legend, beyond the first
    const std::string keys = legend(caption_.legend, &lines);
    const unsigned shift = lines * kLegendLine;
    const unsigned height = kTop + shift + icicle_.rows * row_height_ + 12;
    std::string page =
        R"(<svg id="picture" xmlns="http://www.w3.org/2000/svg" role="img" width="100%")" +
        attribute("height", std::to_string(height)) +
        attribute("aria-label", escaped(caption_.title)) + ">\n<style>" + kPictureStyle +
        "</style>\n";
    page += text_element(12, 26, "title", caption_.title);
    page += text_element(12, 46, "summary", caption_.summary);
    page += keys;
    page += text_element(12, 92 + shift, "detail", "");
    page += "<g id=\"blocks\" transform=\"translate(0 " + std::to_string(shift) + ")\">\n";
    for (const IcicleBlock& block : icicle_.blocks) append(block, &page);
    page += "</g>\n<script><![CDATA[";
    page += kPictureScript;
    page += "]]></script>\n</svg>\n";
    return page;
  }

 private:
  void append(const IcicleBlock& block, std::string* page) const {
    const bool merged = block.siblings > 1;
    const double share =
        100.0 * static_cast<double>(block.width) / static_cast<double>(icicle_.width);
    std::string type = 'c' + std::to_string(colour_(block.first));
    if (merged) type += " merged";
    if (share >= kLeastSeparated) type += " wide";
    std::string label = name_(block.first);
    if (merged) label += " \xE2\x80\xA6 " + name_(block.last);
    label = escaped(label);
    *page += "<svg" + attribute("x", percent(block.start, icicle_.width)) +
             attribute("y", std::to_string(kTop + block.depth * row_height_)) +
             attribute("width", percent(block.width, icicle_.width)) +
             attribute("height", std::to_string(row_height_)) + attribute("class", type) +
             "><title>" + label + '\n' + contents(block) +
             R"(</title><rect width="100%" height="100%"/>)";
    if (share >= kLeastLabel) {
      *page += R"(<text x="4" y="50%">)" + label + "</text>";
    }
    *page += "</svg>\n";
  }

  // What a block holds, in words.
  std::string contents(const IcicleBlock& block) const {
    std::string text;
    if (block.siblings > 1) text = grouped(block.siblings) + " siblings, ";
    text += counted(block.members, "member", "members");
    if (caption_.unit != "members") text += ", " + counted(block.width, "leaf", caption_.unit);
    return text;
  }

  const Icicle& icicle_;
  const unsigned row_height_;
  const PictureCaption& caption_;
  const std::function<std::string(uint32_t)>& name_;
  const std::function<uint8_t(uint32_t)>& colour_;
};

}  // namespace

std::string grouped(uint64_t number) {
  std::string digits = std::to_string(number);
  for (size_t i = digits.size(); i > 3;) {
    i -= 3;
    digits.insert(i, ",");
  }
  return digits;
}

std::string write_picture(const Icicle& icicle, const PictureCaption& caption, PictureFormat format,
                          const std::function<std::string(uint32_t)>& name,
                          const std::function<uint8_t(uint32_t)>& colour) {
  const std::string svg = Page(icicle, caption, name, colour).svg();
  if (format == PictureFormat::kSvg) return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" + svg;
  // In HTML the style and the script of the SVG are read as they stand, without CDATA.
  std::string page =
      "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n<title>" +
      escaped(caption.title) +
      "</title>\n<style>body { margin: 0; background: #fff; }\n"
      "#search { position: absolute; top: 12px; right: 12px; width: 16em; }\n"
      "@media (prefers-color-scheme: dark) { body { background: #1d1f21; } }</style>\n"
      "</head>\n<body>\n<input id=\"search\" type=\"search\" placeholder=\"Search\" "
      "aria-label=\"Search the blocks\">\n" +
      svg + "</body>\n</html>\n";
  for (const char* mark : {"<![CDATA[", "]]>"}) {
    const size_t place = page.rfind(mark);
    page.erase(place, std::string(mark).size());
  }
  return page;
}

}  // namespace command
