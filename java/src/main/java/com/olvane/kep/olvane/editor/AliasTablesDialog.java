package com.olvane.kep.olvane.editor;

import java.awt.Component;
import java.awt.Window;
import java.io.File;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;
import java.util.function.Consumer;
import java.util.function.Function;
import javax.swing.DefaultListCellRenderer;
import javax.swing.DefaultListModel;
import javax.swing.JButton;
import javax.swing.JDialog;
import javax.swing.JFileChooser;
import javax.swing.JList;
import javax.swing.JOptionPane;
import javax.swing.JPanel;
import javax.swing.JScrollPane;
import javax.swing.KeyStroke;
import javax.swing.ListSelectionModel;
import net.miginfocom.swing.MigLayout;

/** The alias tables of the outline, and all that is done with whole tables. */
final class AliasTablesDialog extends JDialog {
  private static final long serialVersionUID = 1;
  /** Bytes of the name of a table that an outline keeps. */
  static final int NAME_LIMIT = 30;

  private final transient Workspace workspace;
  private final DefaultListModel<String> model = new DefaultListModel<>();
  private final JList<String> list = new JList<>(model);
  private final transient List<JButton> onOne = new ArrayList<>();
  private final JButton delete;
  private final transient Consumer<OutlineChange> changed = change -> {
    if (change.aliasTablesChanged) {
      read();
    }
  };
  private String selectNext;
  private File folder;

  AliasTablesDialog(Window owner, Workspace workspace) {
    super(owner, "Alias tables", ModalityType.DOCUMENT_MODAL);
    this.workspace = workspace;
    JPanel form =
        new JPanel(new MigLayout("insets 12, fill", "[grow,fill]12[fill]", "[grow,fill]"));
    list.setName("Alias tables");
    list.setSelectionMode(ListSelectionModel.SINGLE_SELECTION);
    list.setFixedCellHeight(26);
    list.setCellRenderer(new DefaultListCellRenderer() {
      private static final long serialVersionUID = 1;

      @Override
      public Component getListCellRendererComponent(
          JList<?> of, Object value, int row, boolean selected, boolean focused) {
        String shown = row == 0 ? value + "   (the default table)" : value.toString();
        Component cell =
            super.getListCellRendererComponent(of, shown, row, selected, focused);
        setBorder(Theme.space(2, 8));
        return cell;
      }
    });
    list.addListSelectionListener(event -> enableButtons());
    form.add(new JScrollPane(list), "w 260, h 300, grow");
    JPanel buttons = new JPanel(new MigLayout("insets 0, wrap 1, fillx", "[grow,fill]"));
    addButton(buttons, "New…", false, table -> create());
    addButton(buttons, "Rename…", true, this::rename);
    addButton(buttons, "Copy…", true, this::copy);
    addButton(buttons, "Clear", true, this::clear);
    delete = addButton(buttons, "Delete", true, this::delete);
    addButton(buttons, "Import…", false, table -> importFile());
    addButton(buttons, "Export…", true, this::export);
    JButton close = new JButton("Close");
    close.addActionListener(event -> dispose());
    buttons.add(close, "pushy, aligny bottom");
    form.add(buttons, "growy");
    setContentPane(form);
    getRootPane().registerKeyboardAction(event -> dispose(),
        KeyStroke.getKeyStroke("ESCAPE"), JPanel.WHEN_IN_FOCUSED_WINDOW);
    pack();
    setLocationRelativeTo(owner);
    workspace.changed.hear(changed);
    read();
  }

  @Override
  public void dispose() {
    workspace.changed.forget(changed);
    super.dispose();
  }

  private JButton addButton(
      JPanel buttons, String text, boolean needsTable, Consumer<String> action) {
    JButton button = new JButton(text);
    button.setMnemonic(text.charAt(0));
    button.addActionListener(event -> action.accept(list.getSelectedValue()));
    buttons.add(button);
    boolean possible = workspace.isEditable() || text.startsWith("Export");
    button.setEnabled(possible);
    if (needsTable && possible) {
      onOne.add(button);
    }
    return button;
  }

  private void enableButtons() {
    boolean one = list.getSelectedIndex() >= 0;
    onOne.forEach(button -> button.setEnabled(one));
    delete.setEnabled(list.getSelectedIndex() > 0 && workspace.isEditable());
    delete.setToolTipText(list.getSelectedIndex() == 0 ? "The default table stays" : null);
  }

  private void read() {
    workspace.read(() -> workspace.outline.aliasTables().names(), names -> {
      String selected = selectNext == null ? list.getSelectedValue() : selectNext;
      selectNext = null;
      model.clear();
      names.forEach(model::addElement);
      list.setSelectedIndex(Math.max(0, names.indexOf(selected)));
      enableButtons();
    });
  }

  private void edit(Edit edit, String select) {
    selectNext = select;
    workspace.edit(edit);
  }

  /** Refuses what is too long, or taken unless it is {@code allowed}. */
  private Function<String, String> refusal(String allowed) {
    return name -> model.contains(name) && !name.equals(allowed)
        ? "There is a table of this name." : Row.atMost(NAME_LIMIT).apply(name);
  }

  private void create() {
    String name = NamePrompt.ask(
        this, "New alias table", "Name of the table", "", "Create", refusal(null));
    if (name != null) {
      edit(AliasTableEdits.create(name), name);
    }
  }

  private void rename(String table) {
    String name = NamePrompt.ask(
        this, "Rename " + table, "New name of the table", table, "Rename", refusal(table));
    if (name != null && !name.equals(table)) {
      edit(AliasTableEdits.rename(table, name), name);
    }
  }

  private void copy(String table) {
    String name = NamePrompt.ask(this, "Copy " + table, "Name of the copy", "", "Copy",
        text -> text.equals(table) ? "This is the table itself."
            : Row.atMost(NAME_LIMIT).apply(text));
    if (name != null
        && (!model.contains(name) || confirm("Replace what is in " + name + "?", "Replace"))) {
      edit(AliasTableEdits.copy(table, name), name);
    }
  }

  private void clear(String table) {
    if (confirm("Remove all aliases from " + table + "?", "Clear")) {
      edit(AliasTableEdits.clear(table), table);
    }
  }

  private void delete(String table) {
    if (confirm("Delete " + table + " with all its aliases?", "Delete")) {
      edit(AliasTableEdits.delete(table), null);
    }
  }

  private boolean confirm(String question, String verb) {
    Object[] answers = {verb, "Cancel"};
    return JOptionPane.showOptionDialog(this, question + "\nIt can be undone.", "Alias tables",
        JOptionPane.DEFAULT_OPTION, JOptionPane.QUESTION_MESSAGE, null, answers, answers[0]) == 0;
  }

  private void importFile() {
    JFileChooser chooser = new JFileChooser(folder);
    chooser.setDialogTitle("Import an alias table");
    if (chooser.showOpenDialog(this) != JFileChooser.APPROVE_OPTION) {
      return;
    }
    folder = chooser.getCurrentDirectory();
    Path path = chooser.getSelectedFile().toPath();
    workspace.read(() -> AliasFile.read(path), file -> {
      String table = AliasImportDialog.ask(this, workspace, path, file);
      if (table != null) {
        edit(file.edit(table), table);
      }
    });
  }

  private void export(String table) {
    JFileChooser chooser = new JFileChooser(folder);
    chooser.setDialogTitle("Export " + table);
    chooser.setSelectedFile(new File(folder, table + ".alt"));
    if (chooser.showSaveDialog(this) != JFileChooser.APPROVE_OPTION) {
      return;
    }
    folder = chooser.getCurrentDirectory();
    File file = chooser.getSelectedFile();
    if (file.exists() && JOptionPane.showConfirmDialog(this, file + " exists. Replace it?",
        "Export " + table, JOptionPane.OK_CANCEL_OPTION) != JOptionPane.OK_OPTION) {
      return;
    }
    workspace.run("Exporting " + table, () -> {
      workspace.outline.aliasTables().exportTo(table, file.toPath());
      return null;
    }, nothing -> JOptionPane.showMessageDialog(this, table + " is now in " + file + ".",
        "Export " + table, JOptionPane.INFORMATION_MESSAGE));
  }
}
