package com.olvane.kep.olvane.cli;

import com.olvane.kep.olvane.standin.StandinSession;
import java.io.PrintWriter;
import java.util.concurrent.Callable;
import picocli.CommandLine.Command;
import picocli.CommandLine.Mixin;
import picocli.CommandLine.Model.CommandSpec;
import picocli.CommandLine.Spec;

/** Creates a database with an empty outline. */
@Command(
    name = "create",
    header = {
      "Create a database with an empty outline.",
      "",
      "Examples:",
      "  outline create Demo Sales",
      ""
    },
    mixinStandardHelpOptions = true)
final class CreateCommand implements Callable<Integer> {
  @Spec private CommandSpec spec;

  @Mixin private StoreOptions options;

  @Mixin private DatabaseArguments names;

  @Override
  public Integer call() {
    try (StandinSession session = options.open()) {
      session.createDatabase(names.application, names.database);
      // Opening for editing begins an empty outline; writing it stores it.
      try (OpenOutline open = OpenOutline.edit(session, names.application, names.database)) {
        open.write();
      }
    }
    PrintWriter messages = spec.commandLine().getErr();
    messages.println(
        "Created " + names.application + "." + names.database + " in " + options.folder());
    return 0;
  }
}
