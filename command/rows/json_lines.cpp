// JSON Lines, with nlohmann's parser.
#include "command/rows/json_lines.h"

#include <functional>
#include <nlohmann/json.hpp>

#include "command/layer/formatting.h"
#include "command/layer/naming.h"
#include "command/layer/similar.h"
#include "command/layer/text.h"

namespace command {
namespace {

using Object = nlohmann::json;

// What belongs to the outline as a whole.
class OutlineWide {
 public:
  explicit OutlineWide(const Outline& outline) : outline_(outline) {}

  // True for a line that has to wait until all members are there.
  static bool waits(const Object& object) {
    return object.contains("time-series") || object.contains("generation") ||
           object.contains("level");
  }

  // False for a line that is not about the outline as a whole.
  bool apply(const Object& object) const {
    if (object.contains("outline")) {
      set_settings(object.at("outline"));
    } else if (object.contains("attribute-naming")) {
      set_naming(object.at("attribute-naming"));
    } else if (object.contains("alias-table")) {
      add_table(object);
    } else if (object.contains("time-series")) {
      enable_series(object);
    } else if (waits(object)) {
      name_generation(object);
    } else {
      return false;
    }
    return true;
  }

 private:
  void set_settings(const Object& object) const {
    Settings settings = outline_.settings();
    settings.case_sensitive = object.value("case-sensitive", settings.case_sensitive);
    settings.type = object.value("type", settings.type);
    settings.configure_flags = object.value("flags", settings.configure_flags);
    settings.reserved[0] = object.value("reserved-1", settings.reserved[0]);
    settings.reserved[1] = object.value("reserved-2", settings.reserved[1]);
    outline_.set_settings(settings);
  }

  void set_naming(const Object& object) const {
    AttributeNaming naming = outline_.attribute_naming();
    naming.constructor = object.value("constructor", naming.constructor);
    naming.source = object.value("source", naming.source);
    naming.delimiter = object.value("delimiter", naming.delimiter);
    naming.date_format = object.value("date-format", naming.date_format);
    naming.bucketing = object.value("bucketing", naming.bucketing);
    for (size_t i = 0; i < 3; ++i) {
      naming.reserved[i] = object.value(fmt::format("reserved-{}", i + 1), naming.reserved[i]);
    }
    for (size_t i = 0; i < 8; ++i) {
      const char* const key = kAttributeNamingTexts[i];
      if (!object.contains(key)) continue;
      naming.texts[i].reset();
      if (!object.at(key).is_null()) naming.texts[i] = object.at(key).get<std::string>();
    }
    outline_.set_attribute_naming(naming);
  }

  void add_table(const Object& object) const {
    const std::string name = object.at("alias-table").get<std::string>();
    const std::vector<std::string> tables = outline_.alias_tables();
    if (object.value("default", false)) {
      if (tables.front() != name) outline_.rename_alias_table(tables.front(), name);
    } else if (!outline_.has_alias_table(name)) {
      outline_.create_alias_table(name);
    }
  }

  Member dimension_of(const Object& object) const {
    return find_member(outline_, object.at("dimension").get<std::string>());
  }

  void name_generation(const Object& object) const {
    const std::string name = object.at("name").get<std::string>();
    if (object.contains("generation")) {
      outline_.set_generation(dimension_of(object), object.at("generation").get<uint16_t>(), name);
    } else {
      outline_.set_level(dimension_of(object), object.at("level").get<uint16_t>(), name);
    }
  }

  void enable_series(const Object& object) const {
    const std::string name = object.at("time-series").get<std::string>();
    const auto generation = object.at("generation").get<int16_t>();
    bool enabled = false;
    for (const Series& series : outline_.series()) {
      if (series.name != name) continue;
      enabled = series.generation == generation;
      if (!enabled) outline_.enable_series(name, series.generation, false);
    }
    if (!enabled) outline_.enable_series(name, generation, true);
    if (!object.contains("aliases")) return;
    // All aliases are given: what is missing goes.
    for (const std::string& table : outline_.alias_tables()) {
      const std::string alias = object.at("aliases").value(table, "");
      if (outline_.series_alias(name, inside(table).c_str()) != alias) {
        outline_.set_series_alias(name, inside(table).c_str(), alias);
      }
    }
  }

  const Outline& outline_;
};

class Lines {
 public:
  Lines(const Outline& outline, Loader& loader, Report& report)
      : wide_(outline), loader_(loader), report_(report) {}

  void take(const std::string& line, uint64_t number) {
    line_ = number;
    try {
      const Object object = Object::parse(line);
      if (!object.is_object()) throw Failure("a line has to be an object: {\"name\":\"Year\"}");
      dispatch(object);
    } catch (const nlohmann::json::exception& error) {
      report_.problem(line_, fmt::format("this is no JSON that can be loaded: {}", error.what()));
    } catch (const Failure& failure) {
      report_.problem(line_, failure.what());
    }
  }

  void finish() {
    loader_.finish();
    for (const auto& [number, object] : later_) {
      try {
        wide_.apply(object);
      } catch (const std::exception& failure) {
        report_.problem(number, failure.what());
      }
    }
  }

 private:
  void dispatch(const Object& object) {
    if (OutlineWide::waits(object)) {
      later_.emplace_back(line_, object);
    } else if (!wide_.apply(object)) {
      take_member(object);
    }
  }

  size_t field_of(const std::string& key) {
    const auto known = numbers_.find(key);
    if (known != numbers_.end()) return known->second;
    const std::optional<Field> field = parse_field(key);
    if (!field) {
      Similar similar(key);
      for (const std::string& name : field_names()) similar.offer(name);
      throw Failure(fmt::format("there is no field '{}'{}", key, similar.sentence()));
    }
    loader_.fields().push_back(*field);
    loader_.prepare(loader_.fields().back());
    numbers_.emplace(key, loader_.fields().size() - 1);
    return loader_.fields().size() - 1;
  }

  static std::string text_of(const Object& value) {
    if (value.is_string()) return value.get<std::string>();
    if (value.is_boolean()) return value.get<bool>() ? "yes" : "no";
    if (!value.is_array()) return value.is_null() ? "" : value.dump();
    return join_quoted(value.get<std::vector<std::string>>(), ';');
  }

  void take_member(const Object& object) {
    row_.line = line_;
    row_.parent.clear();
    row_.name.clear();
    row_.values.assign(row_.values.size(), "");
    for (const auto& [key, value] : object.items()) {
      if (key == "name") {
        row_.name = text_of(value);
      } else if (key == "parent") {
        row_.parent = text_of(value);
      } else {
        const size_t field = field_of(key);
        if (field >= row_.values.size()) row_.values.resize(field + 1);
        row_.values[field] = text_of(value);
      }
    }
    loader_.take(row_);
  }

  OutlineWide wide_;
  Loader& loader_;
  Report& report_;
  uint64_t line_ = 0;
  Row row_;
  std::unordered_map<std::string, size_t> numbers_;
  std::vector<std::pair<uint64_t, Object>> later_;
};

std::string text(const Object& object) {
  return object.dump(-1, ' ', false, Object::error_handler_t::strict);
}

}  // namespace

void load_json_lines(Source& source, const Outline& outline, Loader& loader, Report& report,
                     const std::function<void()>& step) {
  Lines lines(outline, loader, report);
  read_lines(source, [&](const std::string& line, uint64_t number) {
    if (line.find_first_not_of(" \t\r") != std::string::npos) lines.take(line, number);
    step();
  });
  lines.finish();
}

void apply_outline_line(const Outline& outline, const std::string& line) {
  try {
    if (OutlineWide(outline).apply(Object::parse(line))) return;
  } catch (const nlohmann::json::exception& error) {
    throw Failure(error.what());
  }
  throw Failure(fmt::format("this says nothing of the outline as a whole: {}", line));
}

std::vector<std::string> outline_lines(const Outline& outline) {
  std::vector<std::string> lines;
  const Settings settings = outline.settings();
  lines.push_back(text({{"outline",
                         {{"case-sensitive", settings.case_sensitive},
                          {"type", settings.type},
                          {"flags", settings.configure_flags},
                          {"reserved-1", settings.reserved[0]},
                          {"reserved-2", settings.reserved[1]}}}}));
  const AttributeNaming naming = outline.attribute_naming();
  Object object = {{"constructor", naming.constructor},
                   {"source", naming.source},
                   {"delimiter", naming.delimiter},
                   {"date-format", naming.date_format},
                   {"bucketing", naming.bucketing}};
  for (size_t i = 0; i < 3; ++i) object[fmt::format("reserved-{}", i + 1)] = naming.reserved[i];
  for (size_t i = 0; i < 8; ++i) {
    object[kAttributeNamingTexts[i]] = naming.texts[i] ? Object(*naming.texts[i]) : Object(nullptr);
  }
  lines.push_back(text({{"attribute-naming", object}}));
  bool first = true;
  for (const std::string& table : outline.alias_tables()) {
    lines.push_back(text({{"alias-table", table}, {"default", first}}));
    first = false;
  }
  return lines;
}

std::vector<std::string> closing_lines(const Outline& outline) {
  std::vector<std::string> lines;
  for (const Member dimension : children(outline.root())) {
    for (const NumberedName& name : outline.generations(dimension)) {
      lines.push_back(text(
          {{"dimension", dimension.name()}, {"generation", name.number}, {"name", name.name}}));
    }
    for (const NumberedName& name : outline.levels(dimension)) {
      lines.push_back(
          text({{"dimension", dimension.name()}, {"level", name.number}, {"name", name.name}}));
    }
  }
  const std::vector<std::string> tables = outline.alias_tables();
  for (const Series& series : outline.series()) {
    Object aliases = Object::object();
    for (const std::string& table : tables) {
      const std::string alias = outline.series_alias(series.name, inside(table).c_str());
      if (!alias.empty()) aliases[table] = alias;
    }
    lines.push_back(text(
        {{"time-series", series.name}, {"generation", series.generation}, {"aliases", aliases}}));
  }
  return lines;
}

}  // namespace command
