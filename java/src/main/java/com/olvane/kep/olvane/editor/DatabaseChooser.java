package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.standin.StatusException;
import com.olvane.kep.olvane.standin.StoredDatabase;
import java.awt.event.WindowAdapter;
import java.awt.event.WindowEvent;
import java.text.NumberFormat;
import java.time.ZoneId;
import java.time.format.DateTimeFormatter;
import java.time.format.FormatStyle;
import java.util.Arrays;
import java.util.Collections;
import java.util.List;
import javax.swing.JButton;
import javax.swing.JFrame;
import javax.swing.JLabel;
import javax.swing.JOptionPane;
import javax.swing.JPanel;
import javax.swing.JScrollPane;
import javax.swing.WindowConstants;
import net.miginfocom.swing.MigLayout;

/** The list of the store's databases, to open one or make a new one. */
final class DatabaseChooser {
  private final Editor editor;
  private final JFrame frame = new JFrame("Outline Editor");
  private List<StoredDatabase> databases = Collections.emptyList();
  private final Listing<StoredDatabase> listing = new Listing<>("databases",
      new String[] {"Application", "Database", "Members", "Saved"}, new int[] {130, 130, 90, 170},
      Arrays.asList(StoredDatabase::application, StoredDatabase::database,
          one -> NumberFormat.getIntegerInstance().format(one.members()),
          one -> one.size() == 0 ? "never"
              : DateTimeFormatter.ofLocalizedDateTime(FormatStyle.MEDIUM, FormatStyle.SHORT)
                  .withZone(ZoneId.systemDefault()).format(one.saved())));
  private final JButton open = new JButton("Open");

  DatabaseChooser(Editor editor) {
    this.editor = editor;
    listing.onChoice(2, one -> open(one.application(), one.database()));
    listing.getSelectionModel().addListSelectionListener(
        event -> open.setEnabled(listing.chosen() != null));
    open.addActionListener(event -> openChosen());
    open.setEnabled(false);
    JButton create = new JButton("New \u2026");
    create.addActionListener(event -> create());
    JPanel content = new JPanel(new MigLayout("insets 16, fill, wrap 1", "[560,grow,fill]",
        "[]8[320,grow,fill]12[]"));
    JLabel label = new JLabel("Choose the outline to edit.");
    label.setLabelFor(listing);
    content.add(label);
    content.add(new JScrollPane(listing));
    content.add(Prompt.buttonRow(create, open));
    frame.setContentPane(content);
    frame.getRootPane().setDefaultButton(open);
    frame.setDefaultCloseOperation(WindowConstants.HIDE_ON_CLOSE);
    frame.addWindowListener(new WindowAdapter() {
      @Override
      public void windowClosing(WindowEvent event) {
        frame.setVisible(false);
        editor.endWithoutWindows();
      }
    });
    frame.pack();
    frame.setLocationRelativeTo(null);
  }

  /** Shows the databases as they are now. */
  void show() {
    Editor.inBackground(editor.store()::databases, found -> {
      databases = found;
      listing.show(found);
      if (!found.isEmpty()) {
        listing.setRowSelectionInterval(0, 0);
      }
    }, failure -> JOptionPane.showMessageDialog(
        frame, failure.getMessage(), "Outline Editor", JOptionPane.WARNING_MESSAGE));
    frame.setVisible(true);
    listing.requestFocusInWindow();
  }

  boolean isShowing() {
    return frame.isShowing();
  }

  void dispose() {
    frame.dispose();
  }

  private void openChosen() {
    if (listing.chosen() != null) {
      open(listing.chosen().application(), listing.chosen().database());
    }
  }

  private void open(String application, String database) {
    open.setEnabled(false);
    editor.open(application, database, frame, opened -> {
      open.setEnabled(true);
      frame.setVisible(!opened);
    });
  }

  private void create() {
    String[] names =
        DatabasePrompt.ask(listing, "New Database", "Create", databases, false);
    if (names == null) {
      return;
    }
    try {
      editor.store().create(names[0], names[1]);
    } catch (StatusException e) {
      JOptionPane.showMessageDialog(
          frame, e.getMessage(), "Outline Editor", JOptionPane.WARNING_MESSAGE);
      return;
    }
    open(names[0], names[1]);
  }
}
