package com.olvane.kep.olvane.editor;

import java.awt.BorderLayout;
import java.awt.Component;
import java.awt.FlowLayout;
import javax.swing.JButton;
import javax.swing.JComponent;
import javax.swing.JDialog;
import javax.swing.JPanel;
import javax.swing.KeyStroke;
import javax.swing.SwingUtilities;

/** A dialog with a button that does what it is for and one that cancels, as Escape does. */
final class Prompt {
  private final JDialog dialog;
  private final JButton ok;
  private boolean confirmed;

  /** Makes a dialog of a form; {@code verb} is what the button says. */
  Prompt(Component parent, String title, String verb, JComponent form) {
    dialog = new JDialog(
        SwingUtilities.getWindowAncestor(parent), title, JDialog.ModalityType.DOCUMENT_MODAL);
    ok = new JButton(verb);
    JButton cancel = new JButton("Cancel");
    ok.addActionListener(event -> {
      confirmed = true;
      dialog.dispose();
    });
    cancel.addActionListener(event -> dialog.dispose());
    dialog.getRootPane().registerKeyboardAction(event -> dialog.dispose(),
        KeyStroke.getKeyStroke("ESCAPE"), JComponent.WHEN_IN_FOCUSED_WINDOW);
    dialog.getRootPane().setDefaultButton(ok);
    dialog.add(form);
    dialog.add(buttonRow(ok, cancel), BorderLayout.SOUTH);
    dialog.pack();
    dialog.setLocationRelativeTo(parent);
  }

  /** {@return the buttons that close a dialog, at its end} */
  static JPanel buttonRow(JButton... buttons) {
    JPanel row = new JPanel(new FlowLayout(FlowLayout.TRAILING, 8, 8));
    for (JButton button : buttons) {
      row.add(button);
    }
    return row;
  }

  /** Says whether the form can be confirmed as it is. */
  void allow(boolean possible) {
    ok.setEnabled(possible);
  }

  /** Shows the dialog; whether it was confirmed. */
  boolean ask() {
    dialog.setVisible(true);
    return confirmed;
  }
}
