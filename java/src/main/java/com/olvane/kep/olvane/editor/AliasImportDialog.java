package com.olvane.kep.olvane.editor;

import java.awt.Window;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.List;
import javax.swing.JButton;
import javax.swing.JCheckBox;
import javax.swing.JDialog;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.JScrollPane;
import javax.swing.JTable;
import javax.swing.JTextField;
import javax.swing.KeyStroke;
import javax.swing.Timer;
import javax.swing.table.DefaultTableModel;
import net.miginfocom.swing.MigLayout;

/** Shows what of an alias table file will apply and what won't, before anything is changed. */
final class AliasImportDialog extends JDialog {
  private static final long serialVersionUID = 1;
  private static final int MOST_SHOWN = 10_000;

  private final transient Workspace workspace;
  private final transient AliasFile file;
  private final JTextField table = new JTextField();
  private final JLabel summary = new JLabel(" ");
  private final JLabel note = new JLabel(" ");
  private final JCheckBox problems = new JCheckBox("Only what does not apply");
  private final JButton apply = new JButton("Import");
  private final DefaultTableModel model =
      new DefaultTableModel(new Object[] {"Line", "Member", "Alias", "What happens"}, 0);
  private final Timer pause;
  private String answer;

  private AliasImportDialog(Window owner, Workspace workspace, Path path, AliasFile file) {
    super(owner, "Import " + path.getFileName(), ModalityType.DOCUMENT_MODAL);
    this.workspace = workspace;
    this.file = file;
    JPanel form = new JPanel(new MigLayout("insets 12, fill, wrap 2", "[][grow,fill]",
        "[][][][][grow,fill][]"));
    JLabel label = new JLabel("Into the table");
    label.setLabelFor(table);
    table.setText(file.table);
    table.setName("Into the table");
    form.add(label);
    form.add(table);
    form.add(summary, "span, growx, wmin 0");
    form.add(note, "span, growx, wmin 0");
    form.add(problems, "span");
    problems.addActionListener(event -> showLines());
    JTable lines = new JTable(model);
    lines.setName("Lines");
    Theme.style(lines);
    lines.getColumnModel().getColumn(0).setMaxWidth(70);
    lines.getColumnModel().getColumn(3).setPreferredWidth(130);
    lines.setDefaultEditor(Object.class, null);
    form.add(new JScrollPane(lines), "span, grow, w 640, h 320");
    JButton cancel = new JButton("Cancel");
    form.add(NamePrompt.buttonRow(apply, cancel), "span, growx");
    apply.addActionListener(event -> {
      answer = table.getText();
      dispose();
    });
    cancel.addActionListener(event -> dispose());
    getRootPane().setDefaultButton(apply);
    getRootPane().registerKeyboardAction(event -> dispose(),
        KeyStroke.getKeyStroke("ESCAPE"), JPanel.WHEN_IN_FOCUSED_WINDOW);
    // The lines are judged anew when the name has been typed.
    pause = new Timer(250, event -> judge());
    pause.setRepeats(false);
    TextCommit.onChange(table, () -> {
      apply.setEnabled(false);
      pause.restart();
    });
    setContentPane(form);
    pack();
    setLocationRelativeTo(owner);
    judge();
  }

  private void judge() {
    apply.setEnabled(false);
    String into = table.getText();
    String reason = into.isEmpty() ? "The file names no table; give one."
        : TextCommit.atMost(AliasTablesDialog.NAME_LIMIT).apply(into);
    TextCommit.markRefused(table, summary, reason);
    summary.setVisible(true);
    if (reason != null) {
      return;
    }
    summary.setText("Looking up the members …");
    summary.setForeground(Theme.palette().faint);
    workspace.read(() -> {
      file.judge(workspace.outline(), into);
      return workspace.outline().aliasTables().names().contains(into);
    }, exists -> {
      if (into.equals(table.getText())) {
        showOutcome(exists);
      }
    });
  }

  private long count(AliasFile.Outcome outcome) {
    return file.lines.stream().filter(line -> line.outcome == outcome).count();
  }

  private void showOutcome(boolean exists) {
    List<String> counts = new ArrayList<>();
    for (AliasFile.Outcome outcome : AliasFile.Outcome.values()) {
      if (count(outcome) > 0) {
        counts.add(String.format("%,d %s", count(outcome), outcome.words));
      }
    }
    summary.setText(counts.isEmpty() ? "The file lists no aliases."
        : "Of its lines: " + String.join(", ", counts) + ".");
    note.setText(exists ? "The table is there; what the file does not name stays as it is."
        : "The table is not there yet, and is made.");
    summary.setForeground(Theme.palette().text);
    apply.setEnabled(file.lines.stream().anyMatch(line -> line.outcome.applies()));
    showLines();
  }

  private void showLines() {
    model.setRowCount(0);
    for (AliasFile.Line line : file.lines) {
      if (model.getRowCount() < MOST_SHOWN && !(problems.isSelected() && line.outcome.applies())) {
        model.addRow(new Object[] {line.number, line.member, line.alias, line.outcome.words});
      }
    }
  }

  /** Shows the dialog; the table to import into, or null when it was cancelled. */
  static String ask(Window owner, Workspace workspace, Path path, AliasFile file) {
    AliasImportDialog dialog = new AliasImportDialog(owner, workspace, path, file);
    dialog.setVisible(true);
    return dialog.answer;
  }
}
