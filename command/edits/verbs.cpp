// The words of each edit, for CLI11.
#include <CLI/CLI.hpp>

#include "command/edits/edits.h"

namespace command {
namespace {

void add_place(CLI::App& app, Edit& edit) {
  app.add_option("--below", edit.below, "Parent; none for a dimension")->type_name("MEMBER");
  app.add_option("--after", edit.after, "Sibling to stand behind (default: the last one)")
      ->type_name("MEMBER");
  app.add_flag("--first", edit.first, "Stand before all siblings");
}

void add_member(CLI::App& app, Edit& edit, const char* help) {
  app.add_option("MEMBER", edit.member, help)->required()->type_name("");
}

void add_text(CLI::App& app, std::string* text, const char* name, const char* help) {
  app.add_option(name, *text, help)->required()->type_name("");
}

void add_values(CLI::App& app, Edit& edit, const char* name) {
  app.add_option(name, edit.values,
                 "Fields as in tables: alias:French=Japon, category=time; nothing behind the sign "
                 "removes")
      ->type_name("FIELD=VALUE")
      ->allow_extra_args()
      ->required(name[0] != '-');
}

constexpr char kExisting[] = "The member: its name or path";

}  // namespace

const std::vector<EditVerb>& edit_verbs() {
  static const std::vector<EditVerb> kVerbs = {
      {"add", "Add a member or dimension", "NZ --below Countries --set \"alias=New Zealand\"", true,
       [](CLI::App& app, Edit& edit) {
         add_member(app, edit, "Name of the new member");
         add_place(app, edit);
         app.add_flag("--repeat", edit.repeat, "The name may be another member's, too");
         add_values(app, edit, "--set");
       }},
      {"rename", "Rename a member", "NZ \"New Zealand\"", true,
       [](CLI::App& app, Edit& edit) {
         add_member(app, edit, kExisting);
         add_text(app, &edit.text, "NAME", "The new name");
       }},
      {"move", "Move a member with what lies below it", "NZ --below Oceania --first", true,
       [](CLI::App& app, Edit& edit) {
         add_member(app, edit, kExisting);
         add_place(app, edit);
       }},
      {"copy", "Copy a member under another name", "NZ NZ2 --below Oceania", true,
       [](CLI::App& app, Edit& edit) {
         add_member(app, edit, kExisting);
         add_text(app, &edit.text, "NAME", "Name of the copy");
         add_place(app, edit);
         app.add_flag("--repeat", edit.repeat, "The name may be another member's, too");
         app.add_flag("--subtree", edit.subtree,
                      "Copy what lies below, too; it keeps its names, which are then repeated");
       }},
      {"delete", "Delete a member with what lies below it", "NZ", true,
       [](CLI::App& app, Edit& edit) { add_member(app, edit, kExisting); }},
      {"sort", "Sort the children of a member by name", "Countries --descending", true,
       [](CLI::App& app, Edit& edit) {
         app.add_option("MEMBER", edit.member, "The parent; none for the dimensions")
             ->type_name("");
         app.add_flag("--descending", edit.descending, "The last name first");
       }},
      {"set", "Change fields of a member", "NZ alias:French=Nouvelle-Zélande two-pass=yes", true,
       [](CLI::App& app, Edit& edit) {
         add_member(app, edit, kExisting);
         add_values(app, edit, "FIELD");
       }},
      {"alias", "", "NZ French Nouvelle-Zélande", false,
       [](CLI::App& app, Edit& edit) {
         add_member(app, edit, kExisting);
         add_text(app, &edit.second, "TABLE", "Alias table");
         add_text(app, &edit.text, "TEXT", "Alias; an empty one removes");
       }},
      {"uda", "", "NZ island", false,
       [](CLI::App& app, Edit& edit) {
         add_member(app, edit, kExisting);
         add_text(app, &edit.text, "TEXT", "User-defined attribute to add");
         app.add_flag("--remove", edit.remove, "Remove it");
       }},
      {"formula", "", "Total \"A + B\"", false,
       [](CLI::App& app, Edit& edit) {
         add_member(app, edit, kExisting);
         add_text(app, &edit.text, "TEXT", "Formula; an empty one removes");
       }},
      {"attribute", "", "NZ Continent Oceania", false,
       [](CLI::App& app, Edit& edit) {
         add_member(app, edit, kExisting);
         add_text(app, &edit.second, "DIMENSION", "Attribute dimension");
         add_text(app, &edit.text, "ATTRIBUTE", "Its member; an empty one removes");
       }},
      {"generation", "", "Year 2 Quarter", false,
       [](CLI::App& app, Edit& edit) {
         add_member(app, edit, "Dimension");
         add_text(app, &edit.second, "NUMBER", "Generation, from 1");
         add_text(app, &edit.text, "NAME", "Name; an empty one removes");
       }},
      {"level", "", "Year 0 Month", false,
       [](CLI::App& app, Edit& edit) {
         add_member(app, edit, "Dimension");
         add_text(app, &edit.second, "NUMBER", "Level, from 0");
         add_text(app, &edit.text, "NAME", "Name; an empty one removes");
       }},
      {"table", "", "French", false,
       [](CLI::App& app, Edit& edit) {
         add_text(app, &edit.text, "TABLE", "Alias table to create");
         app.add_flag("--remove", edit.remove, "Delete it");
       }},
      {"series", "", "Y-T-D 1", false,
       [](CLI::App& app, Edit& edit) {
         add_text(app, &edit.text, "NAME", "Time series to enable");
         app.add_option("GENERATION", edit.second, "On this generation")->type_name("");
         app.add_flag("--remove", edit.remove, "Disable it");
       }},
      {"setting", "", "'{\"outline\":{\"case-sensitive\":true}}'", false,
       [](CLI::App& app, Edit& edit) {
         add_text(app, &edit.text, "LINE",
                  "Settings, attribute names, alias table or time series as in JSON Lines");
       }},
  };
  return kVerbs;
}

}  // namespace command
