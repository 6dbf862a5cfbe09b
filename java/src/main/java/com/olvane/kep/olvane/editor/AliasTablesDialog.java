package com.olvane.kep.olvane.editor;

import java.awt.Component;
import java.io.File;
import java.util.ArrayList;
import java.util.Collections;
import java.util.List;
import java.util.function.Consumer;
import java.util.function.Function;
import javax.swing.JButton;
import javax.swing.JPanel;
import javax.swing.JScrollPane;
import net.miginfocom.swing.MigLayout;

/** The alias tables of the outline, and all that is done with whole tables. */
final class AliasTablesDialog {
  /** Bytes of the name of a table that an outline keeps. */
  static final int NAME_LIMIT = 30;
  private static final String TITLE = "Alias tables";

  private final Workspace workspace;
  private final JPanel form =
      new JPanel(new MigLayout("insets 12 12 0 12, fill", "[grow,fill]12[fill]", "[grow,fill]"));
  private final List<Runnable> enablers = new ArrayList<>();
  private List<String> names = Collections.emptyList();
  private final Listing<String> tables = new Listing<String>(TITLE)
      .column("Table", 200, table -> table)
      .column("", 100, table -> names.indexOf(table) == 0 ? "the default" : "");
  private String selectNext;

  private AliasTablesDialog(Workspace workspace) {
    this.workspace = workspace;
    form.add(new JScrollPane(tables), "w 300, h 300, grow");
    JPanel buttons = new JPanel(new MigLayout("insets 0, wrap 1, fillx", "[grow,fill]"));
    addButton(buttons, "New \u2026", -1, table -> create());
    addButton(buttons, "Rename \u2026", 0, this::rename);
    addButton(buttons, "Copy \u2026", 0, this::copy);
    addButton(buttons, "Clear", 0, table -> confirmed(
        "Remove all aliases from " + table + "?", "Clear", AliasTableEdits.clear(table), table));
    addButton(buttons, "Make Default", 1, table -> edit(AliasTableEdits.makeDefault(table), table));
    addButton(buttons, "Delete", 1, table -> confirmed("Delete " + table + " with all its aliases?",
        "Delete", AliasTableEdits.delete(table), null));
    addButton(buttons, "Import \u2026", -1, table -> importFile());
    addButton(buttons, "Export \u2026", 0, this::export);
    form.add(buttons, "aligny top");
    tables.getSelectionModel().addListSelectionListener(event -> enablers.forEach(Runnable::run));
    tables.onChoice(2, this::rename);
    read();
  }

  /** Shows the dialog until it is closed. */
  static void show(Component parent, Workspace workspace) {
    AliasTablesDialog dialog = new AliasTablesDialog(workspace);
    Consumer<Workspace> listener = change -> dialog.read();
    workspace.changed.hear(listener);
    Prompt.dialog(parent, TITLE, dialog.form, new JButton("Close")).setVisible(true);
    workspace.changed.forget(listener);
  }

  /** Adds a button that can be pressed from a row on; -1 for always. */
  private void addButton(JPanel buttons, String text, int least, Consumer<String> action) {
    JButton button = new JButton(text);
    button.setMnemonic(text.charAt(0));
    button.addActionListener(event -> action.accept(tables.chosen()));
    buttons.add(button);
    enablers.add(() -> button.setEnabled(tables.getSelectedRow() >= least
        && (workspace.isEditable() || text.startsWith("Export"))));
  }

  private void read() {
    workspace.read(() -> workspace.outline.aliasTables().names(), found -> {
      String selected = selectNext == null ? tables.chosen() : selectNext;
      selectNext = null;
      names = found;
      tables.show(found);
      int row = Math.max(0, found.indexOf(selected));
      tables.setRowSelectionInterval(row, row);
      enablers.forEach(Runnable::run);
    });
  }

  private void edit(Edit edit, String select) {
    selectNext = select;
    workspace.edit(edit);
  }

  private void confirmed(String question, String verb, Edit edit, String select) {
    if (Ask.confirm(form, question + "\nIt can be undone.", verb)) {
      edit(edit, select);
    }
  }

  /** Refuses what is too long, or taken unless it is {@code allowed}. */
  private Function<String, String> refusal(String allowed) {
    return name -> names.contains(name) && !name.equals(allowed)
        ? "There is a table of this name." : Row.atMost(NAME_LIMIT).apply(name);
  }

  private void create() {
    Prompt.name(form, "New alias table", "Name of the table", "", "Create", refusal(null),
        name -> edit(AliasTableEdits.create(name), name));
  }

  private void rename(String table) {
    Prompt.name(form, "Rename " + table, "New name of the table", table, "Rename", refusal(table),
        name -> {
          if (!name.equals(table)) {
            edit(AliasTableEdits.rename(table, name), name);
          }
        });
  }

  private void copy(String table) {
    Prompt.name(form, "Copy " + table, "Name of the copy", "", "Copy",
        name -> name.equals(table) ? "This is the table itself."
            : Row.atMost(NAME_LIMIT).apply(name), name -> {
          Edit copy = AliasTableEdits.copy(table, name);
          if (names.contains(name)) {
            confirmed("Replace what is in " + name + "?", "Replace", copy, name);
          } else {
            edit(copy, name);
          }
        });
  }

  private void importFile() {
    File chosen = Prompt.file(form, "Import an alias table", null, "alt");
    if (chosen != null) {
      workspace.read(() -> AliasFile.read(chosen.toPath()), file -> {
        String table = AliasImportDialog.ask(form, workspace, chosen.toPath(), file);
        if (table != null) {
          selectNext = table;
          workspace.edit(file.edit(table), () -> Ask.say(form, String.format(
              "Aliases imported into the table %s: %,d.", table,
              file.lines.stream().filter(line -> line.outcome.applies()).count())));
        }
      });
    }
  }

  private void export(String table) {
    String title = "Export " + table;
    File file = Prompt.file(form, title, table, "alt");
    if (file != null) {
      workspace.run("Exporting " + table, () -> {
        workspace.outline.aliasTables().exportTo(table, file.toPath());
        return file;
      }, written -> Ask.say(form, table + " is now in " + written + "."));
    }
  }
}
