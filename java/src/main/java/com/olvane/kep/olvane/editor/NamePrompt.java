package com.olvane.kep.olvane.editor;

import java.awt.Component;
import java.util.function.Function;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.JTextField;
import net.miginfocom.swing.MigLayout;

/** Asks for a name, and cannot be left with one that is refused but by cancelling. */
final class NamePrompt {
  private NamePrompt() {}

  /**
   * Asks; null when it was cancelled.
   *
   * @param verb what the button says
   * @param refusal gives the reason why a name is refused, or null
   */
  static String ask(Component parent, String title, String label, String initial, String verb,
      Function<String, String> refusal) {
    JTextField field = new JTextField(initial);
    field.setName(label);
    field.selectAll();
    JLabel complaint = new JLabel(" ");
    JLabel text = new JLabel(label);
    text.setLabelFor(field);
    JPanel form = new JPanel(new MigLayout("insets 16 16 0 16, wrap 1", "[320!,fill]"));
    form.add(text);
    form.add(field);
    form.add(complaint);
    Prompt prompt = new Prompt(parent, title, verb, form);
    Runnable check = () -> {
      String name = field.getText();
      String reason = name.isEmpty() ? null : refusal.apply(name);
      RowField.markRefused(field, complaint, reason);
      complaint.setVisible(true);
      prompt.allow(!name.isEmpty() && reason == null);
    };
    Listen.onChange(field, check);
    check.run();
    return prompt.ask() ? field.getText() : null;
  }
}
