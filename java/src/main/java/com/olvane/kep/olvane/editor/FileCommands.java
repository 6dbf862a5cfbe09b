package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.standin.StoredDatabase;
import java.util.Optional;
import java.util.function.BiFunction;
import javax.swing.JMenu;

/** The commands on the whole outline and its database. */
final class FileCommands {
  private final EditorWindow window;
  private final Workspace workspace;

  FileCommands(EditorWindow window) {
    this.window = window;
    this.workspace = window.workspace;
    Commands commands = window.commands;
    JMenu file = commands.menu("File");
    commands.add(file, "Open \u2026", "ctrl O", "Choose another outline of the store",
        () -> window.editor.choose());
    file.addSeparator();
    commands.add(file, "Save", "ctrl S", "Write the outline to its database", this::save)
        .when(workspace::isEditable);
    commands.add(file, "Save As \u2026", "ctrl shift S",
        "Write the outline to another database as well", this::saveAs);
    file.addSeparator();
    commands.add(file, "Close", "ctrl W", "Close the window", window::close);
    JMenu outline = commands.menu("Outline");
    commands.add(outline, "Verify", "F7", "Look for errors in the outline", this::verify);
    commands.add(outline, "Restructure \u2026", null,
        "Bring the data of the database in line with the outline", this::restructure)
        .when(workspace::isEditable);
    commands.add(outline, "Derive Currency Outline \u2026", null,
        "Make the outline of a currency database", this::deriveCurrency);
    commands.add(outline, "Alias Tables \u2026", null,
        "Create, change, import and export alias tables",
        () -> AliasTablesDialog.show(window.frame.getRootPane(), workspace));
  }

  /** Saves what was typed up to now. */
  private void save() {
    window.settle(() -> {
      if (workspace.dirty()) {
        workspace.save(() -> window.status("Saved " + workspace.name() + "."));
      } else {
        window.status("There is nothing to save.");
      }
    });
  }

  private void saveAs() {
    withDatabase("Save As", "Save", "Saving as ", (application, database) -> {
      workspace.outline.database().saveAs(application, database);
      return "Saved as " + application + "." + database + ". This window goes on with "
          + workspace.name() + ".";
    });
  }

  private void deriveCurrency() {
    withDatabase("Derive Currency Outline", "Derive", "Deriving ", (application, database) -> {
      workspace.outline.database().deriveCurrencyOutline(application, database);
      return "Derived the currency outline " + application + "." + database + ".";
    });
  }

  /** Does something with another database, made if need be; {@code work} tells what it did. */
  private void withDatabase(
      String title, String verb, String doing, BiFunction<String, String, String> work) {
    window.settle(() -> workspace.read(() -> workspace.store.databases(), known -> {
      DatabasePrompt prompt = new DatabasePrompt(window.frame.getRootPane(), title, verb, known, true);
      if (!prompt.ask()) {
        return;
      }
      String application = prompt.application();
      String database = prompt.database();
      String name = application + "." + database;
      if (name.equals(workspace.name())) {
        Ask.say(window.frame, "That is the database of this window. Save it with Ctrl+S.");
        return;
      }
      Optional<StoredDatabase> there = prompt.there();
      if (there.isPresent() && !Ask.confirm(window.frame, String.format(
          "Replace the outline %s with its %,d members? That cannot be undone.", name,
          there.get().members()), "Replace")) {
        return;
      }
      workspace.run(doing + name, () -> {
        if (!there.isPresent()) {
          workspace.store.create(application, database);
        }
        return work.apply(application, database);
      }, window::status);
    }));
  }

  private void restructure() {
    window.settle(() -> {
      if (!workspace.dirty()) {
        startRestructure();
      } else if (Ask.confirm(window.frame,
          "The database is restructured to what is saved. Save now?", "Save and Restructure")) {
        workspace.save(this::startRestructure);
      }
    });
  }

  private void startRestructure() {
    long start = System.nanoTime();
    workspace.run("Restructuring", () -> {
      workspace.outline.database().restructure(1);
      return (System.nanoTime() - start) / 1e9;
    }, seconds -> window.status(
        String.format("Restructured %s in %.1f s.", workspace.name(), seconds)));
  }

  private void verify() {
    window.settle(() -> workspace.run(
        "Verifying", () -> workspace.outline.verify(), workspace.verified::tell));
  }
}
