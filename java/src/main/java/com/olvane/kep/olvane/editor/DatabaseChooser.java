package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.standin.StatusException;
import com.olvane.kep.olvane.standin.StoredDatabase;
import java.util.Collections;
import java.util.List;
import javax.swing.JButton;
import javax.swing.JComponent;
import javax.swing.JFrame;
import javax.swing.JLabel;
import javax.swing.JPanel;
import javax.swing.JScrollPane;
import javax.swing.KeyStroke;
import javax.swing.WindowConstants;
import net.miginfocom.swing.MigLayout;

/** The list of the store's databases, to open one or make a new one. */
final class DatabaseChooser {
  private final Editor editor;
  private final JFrame frame = new JFrame(Ask.TITLE);
  private List<StoredDatabase> databases = Collections.emptyList();
  private final Listing<StoredDatabase> listing = new Listing<StoredDatabase>("databases")
      .column("Application", 130, StoredDatabase::application)
      .column("Database", 130, StoredDatabase::database)
      .column("Members", 90, one -> String.format("%,d", one.members()))
      .column("Saved", 190, one -> one.size() == 0 ? "never" : Editor.time(one.saved()));
  private final JButton open = new JButton("Open");

  DatabaseChooser(Editor editor) {
    this.editor = editor;
    listing.onChoice(2, one -> open(one.application(), one.database()));
    listing.getSelectionModel().addListSelectionListener(
        event -> open.setEnabled(listing.chosen() != null));
    open.addActionListener(
        event -> open(listing.chosen().application(), listing.chosen().database()));
    open.setEnabled(false);
    JButton create = new JButton("New \u2026");
    create.addActionListener(event -> create());
    JPanel content = new JPanel(new MigLayout("insets 16, fill, wrap 1", "[560,grow,fill]",
        "[]8[320,grow,fill]12[]"));
    JLabel label = new JLabel("Choose the outline to edit"
        + (editor.where.isEmpty() ? "." : ", of the store " + editor.where));
    label.setToolTipText(editor.where);
    label.setLabelFor(listing);
    content.add(label, "wmin 0");
    content.add(new JScrollPane(listing));
    JButton cancel = new JButton("Cancel");
    cancel.addActionListener(event -> frame.dispose());
    content.add(Prompt.buttonRow(create, open, cancel));
    frame.getRootPane().registerKeyboardAction(event -> frame.dispose(),
        KeyStroke.getKeyStroke("ESCAPE"), JComponent.WHEN_IN_FOCUSED_WINDOW);
    frame.setContentPane(content);
    frame.getRootPane().setDefaultButton(open);
    frame.setDefaultCloseOperation(WindowConstants.DISPOSE_ON_CLOSE);
    frame.pack();
    frame.setLocationRelativeTo(null);
  }

  /** Shows the databases as they are now. */
  void show() {
    Editor.inBackground(editor.store::databases, found -> {
      databases = found;
      listing.show(found);
      if (!found.isEmpty()) {
        listing.choose(0);
      }
    }, failure -> Ask.say(frame, failure));
    frame.setVisible(true);
    listing.requestFocusInWindow();
  }

  private void open(String application, String database) {
    open.setEnabled(false);
    editor.open(application, database, frame, opened -> {
      open.setEnabled(true);
      if (opened) {
        frame.dispose();
      }
    });
  }

  private void create() {
    DatabasePrompt prompt =
        new DatabasePrompt(listing, "New Database", "Create", databases,
            listing.chosen() == null ? null : listing.chosen().application(), false);
    try {
      if (prompt.ask()) {
        editor.store.create(prompt.application(), prompt.database());
        open(prompt.application(), prompt.database());
      }
    } catch (StatusException e) {
      Ask.say(frame, e);
    }
  }
}
