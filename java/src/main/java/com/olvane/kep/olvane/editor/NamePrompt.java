package com.olvane.kep.olvane.editor;

import java.awt.Component;
import java.awt.FlowLayout;
import java.util.function.Function;
import javax.swing.JButton;
import javax.swing.JDialog;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.JTextField;
import javax.swing.KeyStroke;
import javax.swing.SwingUtilities;
import net.miginfocom.swing.MigLayout;

/** Asks for a name, and cannot be left with one that is refused but by cancelling. */
final class NamePrompt {
  private final JTextField field;
  private final JLabel complaint = new JLabel(" ");
  private final JButton ok;
  private final Function<String, String> refusal;
  private final JDialog dialog;
  private String answer;

  private NamePrompt(Component parent, String title, String label, String initial, String verb,
      Function<String, String> refusal) {
    this.refusal = refusal;
    dialog = new JDialog(
        SwingUtilities.getWindowAncestor(parent), title, JDialog.ModalityType.DOCUMENT_MODAL);
    JPanel form = new JPanel(new MigLayout("insets 16, wrap 1", "[320!,fill]"));
    field = new JTextField(initial);
    field.setName(label);
    JLabel text = new JLabel(label);
    text.setLabelFor(field);
    form.add(text);
    form.add(field);
    form.add(complaint);
    ok = new JButton(verb);
    JButton cancel = new JButton("Cancel");
    form.add(buttonRow(ok, cancel), "gaptop 4");
    ok.addActionListener(event -> {
      answer = field.getText();
      dialog.dispose();
    });
    cancel.addActionListener(event -> dialog.dispose());
    dialog.getRootPane().registerKeyboardAction(event -> dialog.dispose(),
        KeyStroke.getKeyStroke("ESCAPE"), JPanel.WHEN_IN_FOCUSED_WINDOW);
    dialog.getRootPane().setDefaultButton(ok);
    TextCommit.onChange(field, this::check);
    field.selectAll();
    check();
    dialog.setContentPane(form);
    dialog.pack();
    dialog.setResizable(false);
    dialog.setLocationRelativeTo(parent);
  }

  /** {@return the buttons that close a dialog, at its end} */
  static JPanel buttonRow(JButton... buttons) {
    JPanel row = new JPanel(new FlowLayout(FlowLayout.TRAILING, 8, 0));
    for (JButton button : buttons) {
      row.add(button);
    }
    return row;
  }

  private void check() {
    String text = field.getText();
    String reason = text.isEmpty() ? null : refusal.apply(text);
    TextCommit.markRefused(field, complaint, reason);
    complaint.setVisible(true);
    ok.setEnabled(!text.isEmpty() && reason == null);
  }

  /**
   * Asks; null when it was cancelled.
   *
   * @param verb what the button says
   * @param refusal gives the reason why a name is refused, or null
   */
  static String ask(Component parent, String title, String label, String initial, String verb,
      Function<String, String> refusal) {
    NamePrompt prompt = new NamePrompt(parent, title, label, initial, verb, refusal);
    prompt.dialog.setVisible(true);
    return prompt.answer;
  }
}
