package com.olvane.kep.olvane.editor;

import java.awt.Component;
import java.nio.file.Path;
import java.util.Comparator;
import java.util.TreeMap;
import java.util.stream.Collectors;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.JScrollPane;
import javax.swing.JTextField;
import javax.swing.Timer;
import net.miginfocom.swing.MigLayout;

/** Shows what of an alias table file will apply and what won't, before anything is changed. */
final class AliasImportDialog {
  private static final int TYPING_MILLIS = 250;

  private final Workspace workspace;
  private final AliasFile file;
  private final JTextField table = new JTextField();
  private final JLabel summary = new JLabel(" ");
  private final Listing<AliasFile.Line> lines = new Listing<AliasFile.Line>("Lines")
      .column("Line", 60, line -> Integer.toString(line.number))
      .column("Member", 170, line -> line.member).column("Alias", 220, line -> line.alias)
      .column("What happens", 170, line -> line.outcome.words);
  private final Prompt prompt;

  private AliasImportDialog(Component owner, Workspace workspace, Path path, AliasFile file) {
    this.workspace = workspace;
    this.file = file;
    JPanel form = new JPanel(new MigLayout("insets 12 12 0 12, fill, wrap 2", "[][grow,fill]",
        "[][][grow,fill]"));
    table.setText(file.table);
    Prompt.addField(form, "Into the table", table);
    form.add(summary, "span, growx, wmin 0");
    form.add(new JScrollPane(lines), "span, grow, w 640, h 320");
    prompt = new Prompt(owner, "Import " + path.getFileName(), "Import", form);
    // The lines are judged anew when the name has been typed.
    Timer pause = new Timer(TYPING_MILLIS, event -> judge());
    pause.setRepeats(false);
    Listen.onChange(table, () -> {
      prompt.allow(false);
      pause.restart();
    });
    judge();
  }

  private void judge() {
    prompt.allow(false);
    String into = table.getText();
    String reason = into.isEmpty() ? "The file names no table; give one."
        : Row.atMost(AliasTablesDialog.NAME_LIMIT).apply(into);
    RowField.markRefused(table, summary, reason);
    summary.setVisible(true);
    if (reason != null) {
      return;
    }
    summary.setText("Looking up the members …");
    summary.setForeground(Theme.palette().faint);
    workspace.read(() -> {
      file.judge(workspace.outline, into);
      return workspace.outline.aliasTables().names().contains(into);
    }, exists -> {
      if (into.equals(table.getText())) {
        showOutcome(exists);
      }
    });
  }

  private void showOutcome(boolean exists) {
    String counts = file.lines.stream().collect(Collectors.groupingBy(
        line -> line.outcome, TreeMap::new, Collectors.counting())).entrySet().stream()
        .map(one -> String.format("%s: %,d", one.getKey().words, one.getValue()))
        .collect(Collectors.joining("; "));
    summary.setText(counts.isEmpty() ? "The file lists no aliases."
        : (exists ? "Of its lines: " : "A new table; of the lines: ") + counts + ".");
    summary.setForeground(Theme.palette().text);
    prompt.allow(file.lines.stream().anyMatch(line -> line.outcome.applies()));
    // What does not apply stands first.
    lines.show(file.lines.stream()
        .sorted(Comparator.comparing(line -> line.outcome.applies())).collect(Collectors.toList()));
  }

  /** Shows the dialog; the table to import into, or null when it was cancelled. */
  static String ask(Component owner, Workspace workspace, Path path, AliasFile file) {
    AliasImportDialog dialog = new AliasImportDialog(owner, workspace, path, file);
    return dialog.prompt.ask() ? dialog.table.getText() : null;
  }
}
