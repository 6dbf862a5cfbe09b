package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Store;
import com.olvane.kep.olvane.standin.StoredDatabase;
import java.util.List;
import java.util.concurrent.Callable;

/** The commands on the whole outline and its database. */
final class FileCommands {
  private static final String FILE = "File";
  private static final String OUTLINE = "Outline";

  private final EditorWindow window;
  private final Workspace workspace;
  private final FindingsPane findings;

  FileCommands(EditorWindow window, FindingsPane findings) {
    this.window = window;
    this.workspace = window.workspace();
    this.findings = findings;
    Commands commands = window.commands();
    window.addToMenu(FILE, commands.add("open", "Open \u2026", "ctrl O",
        "Choose another outline of the store", () -> window.editor().choose()));
    window.addSeparator(FILE);
    window.addToMenu(FILE, commands.add("save", "Save", "ctrl S",
        "Write the outline to its database",
        () -> workspace.dirty() && workspace.isEditable(), () -> save(() -> {})));
    window.addToMenu(FILE, commands.add("save-as", "Save As \u2026", "ctrl shift S",
        "Write the outline to another database as well", this::saveAs));
    window.addSeparator(FILE);
    window.addToMenu(FILE, commands.add("close", "Close", "ctrl W", "Close the window",
        window::close));
    window.addToMenu(OUTLINE, commands.add("verify", "Verify", "F7",
        "Look for errors in the outline", this::verify));
    window.addToMenu(OUTLINE, commands.add("restructure", "Restructure \u2026", null,
        "Bring the data of the database in line with the outline", workspace::isEditable,
        this::restructure));
    window.addToMenu(OUTLINE, commands.add("currency", "Derive Currency Outline \u2026", null,
        "Make the outline of a currency database", this::deriveCurrency));
    window.addToMenu(OUTLINE, commands.add("alias-tables", "Alias Tables \u2026", null,
        "Create, change, import and export alias tables",
        () -> new AliasTablesDialog(window.frame(), workspace).setVisible(true)));
  }

  /** Saves what was typed up to now; {@code then} follows success. */
  void save(Runnable then) {
    window.settle(() -> workspace.save(() -> {
      window.status("Saved " + workspace.name() + ".");
      then.run();
    }));
  }

  private void saveAs() {
    withDatabase("Save As", "Save", "Saving as", (application, database) -> {
      workspace.outline().database().saveAs(application, database);
      return "Saved as " + application + "." + database + ". This window goes on with "
          + workspace.name() + ".";
    });
  }

  private void deriveCurrency() {
    withDatabase("Derive Currency Outline", "Derive", "Deriving", (application, database) -> {
      workspace.outline().database().deriveCurrencyOutline(application, database);
      return "Derived the currency outline " + application + "." + database + ".";
    });
  }

  private interface Work {
    /** {@return the sentence that tells of it} */
    String on(String application, String database) throws Exception;
  }

  private void withDatabase(String title, String verb, String doing, Work work) {
    window.settle(() -> workspace.read(() -> workspace.store().databases(), known -> {
      String[] names = DatabasePrompt.ask(window.tree(), title, verb, known, true);
      if (names == null) {
        return;
      }
      if (names[0].equals(workspace.application()) && names[1].equals(workspace.database())) {
        window.say("That is the database of this window. Save it with Ctrl+S.");
        return;
      }
      Callable<String> task = () -> {
        createIfMissing(workspace.store(), known, names);
        return work.on(names[0], names[1]);
      };
      workspace.run(doing + " " + names[0] + "." + names[1], task, window::status);
    }));
  }

  private static void createIfMissing(Store store, List<StoredDatabase> known, String[] names) {
    if (known.stream().noneMatch(one -> one.application().equals(names[0])
        && one.database().equals(names[1]))) {
      store.create(names[0], names[1]);
    }
  }

  private void restructure() {
    window.settle(() -> {
      if (!workspace.dirty()) {
        startRestructure();
      } else if (window.confirm("The database is restructured to what is saved. Save now?",
          "Save and Restructure")) {
        workspace.save(this::startRestructure);
      }
    });
  }

  private void startRestructure() {
    long start = System.nanoTime();
    workspace.run("Restructuring", () -> {
      workspace.outline().database().restructure(1);
      return (System.nanoTime() - start) / 1_000_000;
    }, millis -> window.status(
        String.format("Restructured %s in %.1f s.", workspace.name(), millis / 1000.0)));
  }

  private void verify() {
    window.settle(() -> workspace.run("Verifying", () -> workspace.outline().verify(), found -> {
      findings.show(found);
      window.showPane(findings);
    }));
  }
}
