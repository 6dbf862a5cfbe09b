package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.api.jni.NativeLibrary;
import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.standin.StoredDatabase;
import java.awt.Component;
import java.util.ArrayList;
import java.util.List;
import java.util.Locale;
import java.util.Optional;
import java.util.function.BiFunction;
import java.util.stream.Collectors;
import java.util.stream.Stream;
import javax.swing.ButtonGroup;
import javax.swing.JMenu;
import javax.swing.JRadioButtonMenuItem;

/** The commands on the whole outline and its database, and those on what is shown of it. */
final class WindowCommands {
  private static final String ABOUT = "The outline editor of kepotl " + NativeLibrary.version()
      + ".\n\nTree: letters begin a search; the arrow keys move, open and close."
      + "\nFields: Enter or leaving one takes what was typed, Escape takes it back."
      + "\nTexts of several lines: Ctrl+Enter takes what was typed."
      + "\nFormula: Ctrl+Space completes a name."
      + "\nPicture: the arrow keys walk, Enter zooms in, Backspace zooms out.";
  private static final int LAST_GENERATION = 7;
  /** More members than these are not opened at once. */
  private static final int OPENED = 5000;

  private final EditorWindow window;
  private final Workspace workspace;
  private final OutlineTree tree;
  private final Commands commands;
  private final JMenu aliases = new JMenu("Aliases Shown");

  WindowCommands(EditorWindow window) {
    this.window = window;
    this.workspace = window.workspace;
    this.tree = window.tree;
    this.commands = window.commands;
    addFile(commands.menu("File"));
    addOutline(commands.menu("Outline"));
    addView(commands.menu("View"));
    commands.add(commands.menu("Help"), "About", "F1",
        "Tell the version, and keys that no menu shows", () -> Ask.say(window.frame, ABOUT));
  }

  private void addFile(JMenu file) {
    commands.add(file, "Open \u2026", "ctrl O", "Choose another outline of the store",
        () -> window.editor.choose());
    file.addSeparator();
    commands.add(file, "Save", "ctrl S", "Write the outline to its database", this::save)
        .when(workspace::isEditable);
    commands.add(file, "Save As \u2026", "ctrl shift S",
        "Write the outline to another database as well", this::saveAs);
    file.addSeparator();
    commands.add(file, "Close", "ctrl W", "Close the window", window::close);
  }

  private void addOutline(JMenu outline) {
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

  private void addView(JMenu view) {
    commands.add(view, "Jump to Selection", "ctrl J", "Bring the selected member into view",
        () -> tree.reveal(workspace.selection(), tree::requestFocusInWindow))
        .when(() -> !workspace.selection().isEmpty());
    JMenu expand = new JMenu("Expand to Generation");
    for (int generation = 2; generation <= LAST_GENERATION; generation++) {
      int last = generation;
      commands.add(expand, "Generation " + last, "ctrl " + last,
          "Open members until generation " + last + " is seen", () -> expand(last));
    }
    view.add(expand);
    commands.add(view, "Collapse All", "ctrl 1", "Close all members", tree::collapseAll);
    view.addSeparator();
    view.add(aliases);
    view.add(themes());
    workspace.changed.hear(change -> listAliasTables());
    listAliasTables();
  }

  // ---- Files ----

  /** Saves what was typed up to now. */
  private void save() {
    Component before = window.frame.getFocusOwner();
    window.settle(() -> {
      if (before != null && before.isShowing()) {
        before.requestFocusInWindow();
      }
      if (workspace.history.dirty()) {
        workspace.save(() -> window.status("Saved " + workspace.name() + "."));
      } else {
        window.status("There is nothing to save.");
      }
    });
  }

  /** A save has found that the lock is gone. */
  void offerLock() {
    int answer = Ask.choose(window.frame, workspace.name() + " is not locked for you any more: the"
        + " connection to its store broke, or somebody took the lock away. It is not saved; your"
        + " changes are still here.", "Take the Lock and Save", "Save As \u2026", "Cancel");
    if (answer == 0) {
      workspace.lockAgain(locked -> {
        if (locked) {
          save();
        } else if (Ask.confirm(window.frame, workspace.name() + " was saved by somebody else since"
            + " it was opened here. Save your outline to another database, and compare them.",
            "Save As \u2026")) {
          saveAs();
        }
      });
    } else if (answer == 1) {
      saveAs();
    }
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
      DatabasePrompt prompt =
          new DatabasePrompt(window.frame.getRootPane(), title, verb, known,
              workspace.application, true);
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
      if (!workspace.history.dirty()) {
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

  // ---- Expanding ----

  private void expand(int generation) {
    Outline outline = workspace.outline;
    workspace.read(() -> {
      List<Integer> toOpen = toOpen(outline, generation);
      return toOpen.size() > OPENED ? null
          : new PagedTreeModel.Reading(outline, tree.model.details, toOpen);
    }, read -> {
      if (read == null) {
        window.status("More than " + OPENED + " members would be opened;"
            + " choose a lower generation.");
      } else {
        read.addTo(tree.model).forEach(node -> tree.expandPath(node.path()));
      }
    });
  }

  /** The members to be opened, parents first; a few more than allowed when there are too many. */
  private static List<Integer> toOpen(Outline outline, int generation) {
    List<Member> found = new ArrayList<>(outline.dimensions());
    for (int i = 0; i < found.size() && found.size() <= OPENED; i++) {
      if (found.get(i).generation() + 1 < generation) {
        try (Stream<Member> children = outline.children(found.get(i), Details.NONE)) {
          children.filter(Member::hasChildren).limit(OPENED + 1).forEach(found::add);
        }
      }
    }
    return found.stream().map(Member::handle).collect(Collectors.toList());
  }

  // ---- Aliases and colours ----

  private void listAliasTables() {
    workspace.read(() -> workspace.outline.aliasTables().names(), names -> {
      aliases.removeAll();
      ButtonGroup group = new ButtonGroup();
      if (!names.contains(tree.aliasTable) && !tree.aliasTable.isEmpty()) {
        tree.setAliasTable(names.get(0));
      }
      addChoice(aliases, group, "None", tree.aliasTable.isEmpty(), () -> tree.setAliasTable(""));
      names.forEach(name -> addChoice(aliases, group, name, name.equals(tree.aliasTable),
          () -> tree.setAliasTable(name)));
    });
  }

  private JMenu themes() {
    JMenu themes = new JMenu("Colours");
    ButtonGroup group = new ButtonGroup();
    for (Palette palette : Palette.values()) {
      String name = palette == Palette.LIGHT ? "Light" : "Dark";
      addChoice(themes, group, name, Theme.palette() == palette, () -> {
        Theme.install(palette);
        window.editor.settings.put("theme", name.toLowerCase(Locale.ROOT));
        window.editor.settings.write();
      });
    }
    return themes;
  }

  private static void addChoice(
      JMenu menu, ButtonGroup group, String text, boolean chosen, Runnable choose) {
    JRadioButtonMenuItem item = new JRadioButtonMenuItem(text, chosen);
    item.addActionListener(event -> choose.run());
    group.add(item);
    menu.add(item);
  }
}
