package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.standin.StoredDatabase;
import java.awt.Component;
import java.util.List;
import java.util.TreeSet;
import javax.swing.DefaultComboBoxModel;
import javax.swing.JComboBox;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.JTextField;
import javax.swing.text.JTextComponent;
import net.miginfocom.swing.MigLayout;

/** Asks for an application and a database, new ones or such as there are. */
final class DatabasePrompt {
  private static final int LIMIT = 30;

  private final JComboBox<String> applications = new JComboBox<>();
  private final JTextField database = new JTextField();
  private final JLabel remark = new JLabel(" ");
  private final Prompt prompt;
  private final List<StoredDatabase> known;
  private final boolean replaces;

  private DatabasePrompt(Component parent, String title, String verb, List<StoredDatabase> known,
      boolean replaces) {
    this.known = known;
    this.replaces = replaces;
    TreeSet<String> names = new TreeSet<>();
    known.forEach(one -> names.add(one.application()));
    applications.setModel(new DefaultComboBoxModel<>(names.toArray(new String[0])));
    applications.setEditable(true);
    applications.setName("application");
    database.setName("database");
    JPanel form = new JPanel(new MigLayout("insets 16 16 0 16, wrap 2", "[][300!,fill]"));
    label(form, "Application", applications);
    label(form, "Database", database);
    form.add(remark, "skip 1");
    prompt = new Prompt(parent, title, verb, form);
    Listen.onChange(database, this::check);
    Listen.onChange(applicationField(), this::check);
    check();
  }

  private static void label(JPanel form, String text, Component field) {
    JLabel label = new JLabel(text);
    label.setLabelFor(field);
    form.add(label);
    form.add(field);
  }

  private JTextComponent applicationField() {
    return (JTextComponent) applications.getEditor().getEditorComponent();
  }

  private void check() {
    String app = applicationField().getText();
    String db = database.getText();
    boolean exists = known.stream()
        .anyMatch(one -> one.application().equals(app) && one.database().equals(db));
    String complaint = tooLong(app) || tooLong(db) ? "A name has at most " + LIMIT + " bytes."
        : exists && !replaces ? "There is a database of this name." : null;
    remark.setText(complaint != null ? complaint
        : exists ? "It exists and is replaced." : " ");
    remark.setForeground(complaint != null ? Theme.palette().error : Theme.palette().warning);
    prompt.allow(complaint == null && !app.isEmpty() && !db.isEmpty());
  }

  private static boolean tooLong(String name) {
    return name.getBytes(java.nio.charset.StandardCharsets.UTF_8).length > LIMIT;
  }

  /**
   * Asks.
   *
   * @param replaces whether a database that exists may be named
   * @return application and database, null when it was cancelled
   */
  static String[] ask(Component parent, String title, String verb, List<StoredDatabase> known,
      boolean replaces) {
    DatabasePrompt asked = new DatabasePrompt(parent, title, verb, known, replaces);
    return asked.prompt.ask()
        ? new String[] {asked.applicationField().getText(), asked.database.getText()} : null;
  }
}
