package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.defs.outline.HoldingBean;
import com.olvane.kep.olvane.standin.StoredDatabase;
import java.awt.Component;
import java.util.List;
import java.util.Optional;
import java.util.function.Predicate;
import java.util.regex.Pattern;
import java.util.stream.Stream;
import javax.swing.JComboBox;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.JTextField;
import javax.swing.text.JTextComponent;
import net.miginfocom.swing.MigLayout;

/** Asks for an application and a database, new ones or such as there are. */
final class DatabasePrompt {
  private static final int LIMIT = 30;
  private static final Predicate<String> NOT_A_NAME =
      Pattern.compile("^\\.|[/\\\\\\p{Cntrl}]").asPredicate();

  private final JTextComponent application;
  private final JTextField database = new JTextField();
  private final JLabel remark = new JLabel(" ");
  private final Prompt prompt;
  private final List<StoredDatabase> known;
  private final boolean replaces;

  /**
   * Prepares to ask.
   *
   * @param proposed an application to begin with, or null
   * @param replaces whether a database that exists may be named
   */
  DatabasePrompt(Component parent, String title, String verb, List<StoredDatabase> known,
      String proposed, boolean replaces) {
    this.known = known;
    this.replaces = replaces;
    JComboBox<String> applications = new JComboBox<>(
        known.stream().map(StoredDatabase::application).distinct().sorted()
            .toArray(String[]::new));
    applications.setEditable(true);
    applications.setSelectedItem(proposed);
    application = (JTextComponent) applications.getEditor().getEditorComponent();
    JPanel form = new JPanel(new MigLayout("insets 16 16 0 16, wrap 2", "[][300!,fill]"));
    Prompt.addField(form, "Application", applications);
    Prompt.addField(form, "Database", database);
    form.add(remark, "skip 1");
    prompt = new Prompt(parent, title, verb, form);
    Listen.onChange(database, this::check);
    Listen.onChange(application, this::check);
    application.selectAll();
    check();
  }

  private void check() {
    boolean tooLong = Stream.of(application(), database())
        .anyMatch(name -> HoldingBean.encodedLength(name) > LIMIT);
    String complaint = tooLong ? "A name has at most " + LIMIT + " bytes."
        : Stream.of(application(), database()).anyMatch(NOT_A_NAME)
            ? "A name has no / or \\, nor a dot in front."
        : there().isPresent() && !replaces ? "There is a database of this name." : null;
    remark.setText(complaint != null ? complaint
        : there().isPresent() ? "It exists and is replaced." : " ");
    remark.setForeground(complaint != null ? Theme.palette().error : Theme.palette().warning);
    prompt.allow(complaint == null && !application().isEmpty() && !database().isEmpty());
  }

  /** Asks; false when it was cancelled. */
  boolean ask() {
    return prompt.ask();
  }

  String application() {
    return application.getText();
  }

  String database() {
    return database.getText();
  }

  /** The database of this name, if there is one. */
  Optional<StoredDatabase> there() {
    return known.stream().filter(one -> one.application().equals(application())
        && one.database().equals(database())).findFirst();
  }
}
