package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.OutlineException;
import com.olvane.kep.olvane.outline.Store;
import com.olvane.kep.olvane.standin.StatusException;
import com.olvane.kep.olvane.standin.StoreLock;
import com.olvane.kep.olvane.standin.StoredDatabase;
import java.awt.Component;
import java.time.Instant;
import java.time.ZoneId;
import java.time.format.DateTimeFormatter;
import java.time.format.FormatStyle;
import java.util.ArrayList;
import java.util.List;
import java.util.function.Consumer;
import javax.swing.JOptionPane;
import javax.swing.SwingUtilities;

/** The running program: a store and its windows. It ends with the last of them. */
final class Editor {
  private static final String TITLE = "Outline Editor";

  private final Store store;
  private final UserSettings settings = UserSettings.read();
  private final List<EditorWindow> windows = new ArrayList<>();
  private DatabaseChooser chooser;

  Editor(Store store) {
    this.store = store;
    Theme.install("dark".equals(settings.text("theme", "light")) ? Palette.DARK : Palette.LIGHT);
  }

  Store store() {
    return store;
  }

  List<EditorWindow> windows() {
    return windows;
  }

  UserSettings settings() {
    return settings;
  }

  /** Shows the list of databases to choose from. */
  void choose() {
    if (chooser == null) {
      chooser = new DatabaseChooser(this);
    }
    chooser.show();
  }

  /** Opens a window on an outline; {@code opened} hears whether there is one. */
  void open(String application, String database, Component parent, Consumer<Boolean> opened) {
    for (EditorWindow window : windows) {
      if (window.workspace().name().equals(application + "." + database)) {
        window.frame().toFront();
        opened.accept(true);
        return;
      }
    }
    Thread opening = new Thread(() -> {
      try {
        Outline outline = store.edit(application, database);
        StoredDatabase found = new UnsavedWork(store, application, database).found();
        StoredDatabase stored = stored(application, database);
        SwingUtilities.invokeLater(() -> {
          if (found == null) {
            show(new Workspace(store, outline, stored == null ? 0 : stored.members()));
            opened.accept(true);
          } else {
            offer(outline, found, stored, parent, opened);
          }
        });
      } catch (OutlineException | StatusException | IllegalStateException e) {
        SwingUtilities.invokeLater(
            () -> offerToRead(application, database, e, parent, opened));
      }
    }, "opening");
    opening.start();
  }

  private StoredDatabase stored(String application, String database) {
    for (StoredDatabase one : store.databases()) {
      if (one.application().equals(application) && one.database().equals(database)) {
        return one;
      }
    }
    return null;
  }

  private void show(Workspace workspace) {
    EditorWindow window = new EditorWindow(this, workspace);
    windows.add(window);
    window.show();
  }

  // ---- What speaks against opening as usual ----

  private void offer(Outline outline, StoredDatabase found, StoredDatabase stored, Component parent,
      Consumer<Boolean> opened) {
    String name = outline.applicationName() + "." + outline.databaseName();
    Object[] answers = {"Restore", "Discard", "Cancel"};
    int answer = JOptionPane.showOptionDialog(parent,
        "There is unsaved work on " + name + " of " + time(found.saved()) + ".\n"
            + (stored != null && stored.saved().isAfter(found.saved())
                ? "The outline was saved since, " + time(stored.saved())
                    + "; what is restored knows nothing of that.\n" : "")
            + "Restore it to go on with it; the database keeps what is saved until you save.",
        TITLE, JOptionPane.DEFAULT_OPTION, JOptionPane.QUESTION_MESSAGE, null, answers,
        answers[0]);
    UnsavedWork work =
        new UnsavedWork(store, outline.applicationName(), outline.databaseName());
    try {
      if (answer == 0) {
        work.found();
        show(Workspace.ofFound(store, work.open(), outline, found.members()));
      } else if (answer == 1) {
        work.found();
        work.remove();
        show(new Workspace(store, outline, stored == null ? 0 : stored.members()));
      } else {
        outline.close();
      }
      opened.accept(answer == 0 || answer == 1);
    } catch (OutlineException | StatusException e) {
      outline.close();
      JOptionPane.showMessageDialog(parent, e.getMessage(), TITLE, JOptionPane.WARNING_MESSAGE);
      opened.accept(false);
    }
  }

  private static String time(Instant instant) {
    return DateTimeFormatter.ofLocalizedDateTime(FormatStyle.MEDIUM)
        .withZone(ZoneId.systemDefault()).format(instant);
  }

  private void offerToRead(String application, String database, RuntimeException failure,
      Component parent, Consumer<Boolean> opened) {
    StoreLock lock = lock(application, database);
    if (lock == null) {
      JOptionPane.showMessageDialog(
          parent, failure.getMessage(), TITLE, JOptionPane.WARNING_MESSAGE);
      opened.accept(false);
      return;
    }
    Object[] answers = {"Open to Read", "Cancel"};
    int answer = JOptionPane.showOptionDialog(parent, application + "." + database
            + " is being edited by " + lock.user() + " since " + time(lock.since()) + "\n(process "
            + lock.process() + " on " + lock.host() + "). You can read what was saved last.",
        TITLE, JOptionPane.DEFAULT_OPTION, JOptionPane.WARNING_MESSAGE, null, answers,
        answers[0]);
    if (answer != 0) {
      opened.accept(false);
      return;
    }
    try {
      StoredDatabase stored = stored(application, database);
      show(new Workspace(store, store.browse(application, database),
          stored == null ? 0 : stored.members()));
      opened.accept(true);
    } catch (OutlineException | StatusException e) {
      JOptionPane.showMessageDialog(parent, e.getMessage(), TITLE, JOptionPane.WARNING_MESSAGE);
      opened.accept(false);
    }
  }

  private StoreLock lock(String application, String database) {
    String object = application + "/" + database + "/" + database;
    return store.locks().stream().filter(one -> one.object().equals(object)).findFirst()
        .orElse(null);
  }

  /** A window was closed. */
  void closed(EditorWindow window) {
    windows.remove(window);
    settings.write();
    endWithoutWindows();
  }

  /** Ends the program when nothing is open any more. */
  void endWithoutWindows() {
    if (windows.isEmpty() && (chooser == null || !chooser.isShowing())) {
      if (chooser != null) {
        chooser.dispose();
      }
      store.close();
    }
  }
}
