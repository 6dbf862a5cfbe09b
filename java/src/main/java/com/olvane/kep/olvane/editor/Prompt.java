package com.olvane.kep.olvane.editor;

import java.awt.BorderLayout;
import java.awt.Component;
import java.awt.Container;
import java.awt.FlowLayout;
import java.io.File;
import java.util.Arrays;
import java.util.Locale;
import java.util.function.Consumer;
import java.util.function.Function;
import javax.swing.JButton;
import javax.swing.JComponent;
import javax.swing.JDialog;
import javax.swing.JFileChooser;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.JTextField;
import javax.swing.KeyStroke;
import javax.swing.SwingUtilities;
import javax.swing.filechooser.FileNameExtensionFilter;
import net.miginfocom.swing.MigLayout;

/**
 * Questions: a dialog with a button that does what it is for and one that cancels, as Escape does,
 * and the ones that are asked in several places.
 */
final class Prompt {
  private static File folder;

  private final JDialog dialog;
  private final JButton ok;
  private boolean confirmed;

  /** Makes a dialog of a form; {@code verb} is what the button says. */
  Prompt(Component parent, String title, String verb, JComponent form) {
    ok = new JButton(verb);
    ok.addActionListener(event -> confirmed = true);
    dialog = dialog(parent, title, form, ok, new JButton("Cancel"));
  }

  /** Makes a dialog with buttons that close it, the first of which Enter presses. */
  static JDialog dialog(Component parent, String title, JComponent form, JButton... buttons) {
    JDialog dialog = new JDialog(
        SwingUtilities.getWindowAncestor(parent), title, JDialog.ModalityType.DOCUMENT_MODAL);
    for (JButton button : buttons) {
      button.addActionListener(event -> dialog.dispose());
    }
    dialog.getRootPane().registerKeyboardAction(event -> dialog.dispose(),
        KeyStroke.getKeyStroke("ESCAPE"), JComponent.WHEN_IN_FOCUSED_WINDOW);
    dialog.getRootPane().setDefaultButton(buttons[0]);
    dialog.add(form);
    dialog.add(buttonRow(buttons), BorderLayout.SOUTH);
    dialog.pack();
    dialog.setLocationRelativeTo(parent);
    return dialog;
  }

  /** {@return the buttons that close a dialog, at its end} */
  static JPanel buttonRow(JButton... buttons) {
    JPanel row = new JPanel(new FlowLayout(FlowLayout.TRAILING, 8, 8));
    for (JButton button : buttons) {
      row.add(button);
    }
    return row;
  }

  /** Adds a field with its label to a form. */
  static void addField(Container form, String text, JComponent field) {
    JLabel label = new JLabel(text);
    label.setLabelFor(field);
    field.setName(text);
    form.add(label);
    form.add(field);
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

  // ---- What is asked in several places ----

  /**
   * Asks for a name, which cannot be one that is refused.
   *
   * @param verb what the button says
   * @param refusal gives the reason why a name is refused, or null
   * @param then takes the name
   */
  static void name(Component parent, String title, String label, String initial, String verb,
      Function<String, String> refusal, Consumer<String> then) {
    JTextField field = new JTextField(initial);
    field.selectAll();
    JLabel complaint = new JLabel(" ");
    JPanel form = new JPanel(new MigLayout("insets 16 16 0 16, wrap 1", "[320!,fill]"));
    addField(form, label, field);
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
    if (prompt.ask()) {
      then.accept(field.getText());
    }
  }

  /**
   * Asks for a file that can be read, or written.
   *
   * @param proposed the name proposed for a file to be written, without its type; null for reading
   * @param types the types it may have, as its name ends in them
   * @return the file; null when it was cancelled
   */
  static File file(Component parent, String title, String proposed, String... types) {
    JFileChooser chooser = new JFileChooser(folder);
    chooser.setDialogTitle(title);
    chooser.setAcceptAllFileFilterUsed(proposed == null);
    chooser.addPropertyChangeListener(JFileChooser.FILE_FILTER_CHANGED_PROPERTY, change -> {
      if (proposed != null) {
        chooser.setSelectedFile(new File(chooser.getCurrentDirectory(), proposed + type(chooser)));
      }
    });
    for (String type : types) {
      chooser.addChoosableFileFilter(
          new FileNameExtensionFilter(type.toUpperCase(Locale.ROOT) + " file", type));
    }
    if (proposed != null) {
      chooser.setFileFilter(chooser.getChoosableFileFilters()[0]);
    }
    int answer =
        proposed == null ? chooser.showOpenDialog(parent) : chooser.showSaveDialog(parent);
    if (answer != JFileChooser.APPROVE_OPTION) {
      return null;
    }
    folder = chooser.getCurrentDirectory();
    File file = chooser.getSelectedFile();
    if (proposed == null) {
      return toRead(parent, file);
    }
    String name = file.getName().toLowerCase(Locale.ROOT);
    boolean typed = Arrays.stream(types).anyMatch(type -> name.endsWith("." + type));
    return toWrite(parent, typed ? file : new File(file + type(chooser)));
  }

  private static String type(JFileChooser chooser) {
    return "." + ((FileNameExtensionFilter) chooser.getFileFilter()).getExtensions()[0];
  }

  private static File toRead(Component parent, File file) {
    if (file.isFile() && file.canRead()) {
      return file;
    }
    Ask.say(parent, "There is no file " + file + " that can be read.");
    return null;
  }

  private static File toWrite(Component parent, File file) {
    if (!file.getParentFile().canWrite()) {
      Ask.say(parent, "There is no folder " + file.getParent() + " that can be written to.");
      return null;
    }
    return !file.exists() || Ask.confirm(parent, file + " exists. Replace it?", "Replace")
        ? file : null;
  }
}
