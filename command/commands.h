// The subcommands: each file adds its own to the command line.
#pragma once

#include "command/session.h"

namespace CLI {
class App;
}

namespace command {

void add_list(CLI::App& app, Session& session);
void add_create(CLI::App& app, Session& session);
void add_delete_database(CLI::App& app, Session& session);
void add_info(CLI::App& app, Session& session);
void add_tree(CLI::App& app, Session& session);
void add_show(CLI::App& app, Session& session);
void add_load(CLI::App& app, Session& session);
void add_export(CLI::App& app, Session& session);
void add_find(CLI::App& app, Session& session);
void add_apply(CLI::App& app, Session& session);
// add, rename, move, copy, delete, sort, set
void add_edits(CLI::App& app, Session& session);
void add_diff(CLI::App& app, Session& session);
void add_verify(CLI::App& app, Session& session);
void add_aliases(CLI::App& app, Session& session);
void add_save_as(CLI::App& app, Session& session);
void add_restructure(CLI::App& app, Session& session);
void add_currency(CLI::App& app, Session& session);
void add_locks(CLI::App& app, Session& session);
void add_unlock(CLI::App& app, Session& session);
void add_backup(CLI::App& app, Session& session);
void add_restore(CLI::App& app, Session& session);
void add_picture(CLI::App& app, Session& session);
// store init, store copy
void add_stores(CLI::App& app, Session& session);
// Both need the program itself, as they tell of all subcommands.
void add_completion(CLI::App& app, Session& session);
void add_manual(CLI::App& app, Session& session);

// All of them, in the order of the help.
void add_commands(CLI::App& app, Session& session);

}  // namespace command
