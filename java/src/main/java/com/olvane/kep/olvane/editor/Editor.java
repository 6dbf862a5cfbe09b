package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.Store;
import com.olvane.kep.olvane.standin.StoredDatabase;
import java.awt.Component;
import java.time.Instant;
import java.time.ZoneId;
import java.time.format.DateTimeFormatter;
import java.time.format.FormatStyle;
import java.util.ArrayList;
import java.util.List;
import java.util.concurrent.Callable;
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
    inBackground(() -> new Opened(store.edit(application, database)), result -> {
      if (result.found == null) {
        show(new Workspace(store, result.outline, result.members()));
        opened.accept(true);
      } else {
        offer(result, parent, opened);
      }
    }, failure -> offerToRead(application, database, failure, parent, opened));
  }

  /** Does something with the store off the event thread, which then goes on with what came. */
  static <T> void inBackground(
      Callable<T> work, Consumer<T> then, Consumer<Exception> otherwise) {
    Thread thread = new Thread(() -> {
      try {
        T result = work.call();
        SwingUtilities.invokeLater(() -> then.accept(result));
      } catch (Exception e) {
        SwingUtilities.invokeLater(() -> otherwise.accept(e));
      }
    }, "store");
    thread.start();
  }

  private static void say(Component parent, Exception failure) {
    JOptionPane.showMessageDialog(
        parent, failure.getMessage(), TITLE, JOptionPane.WARNING_MESSAGE);
  }

  /** An outline that was opened, with what the store knows of it. */
  private final class Opened {
    final Outline outline;
    final StoredDatabase stored;
    /** Unsaved work on it; null where there is none. */
    final StoredDatabase found;

    Opened(Outline outline) {
      this.outline = outline;
      stored = stored(outline.applicationName(), outline.databaseName());
      found = outline.isEditable() ? work().found() : null;
    }

    UnsavedWork work() {
      return new UnsavedWork(store, outline.applicationName(), outline.databaseName());
    }

    long members() {
      return stored == null ? 0 : stored.members();
    }
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

  private void offer(Opened result, Component parent, Consumer<Boolean> opened) {
    Outline outline = result.outline;
    Object[] answers = {"Restore", "Discard", "Cancel"};
    int answer = JOptionPane.showOptionDialog(parent,
        "There is unsaved work on " + outline.applicationName() + "." + outline.databaseName()
            + " of " + time(result.found.saved()) + ".\n"
            + (result.stored != null && result.stored.saved().isAfter(result.found.saved())
                ? "The outline was saved since, " + time(result.stored.saved())
                    + "; what is restored knows nothing of that.\n" : "")
            + "Restore it to go on with it; the database keeps what is saved until you save.",
        TITLE, JOptionPane.DEFAULT_OPTION, JOptionPane.QUESTION_MESSAGE, null, answers,
        answers[0]);
    inBackground(() -> {
      UnsavedWork work = result.work();
      if (answer == 0) {
        return new Workspace(store, work.open(), outline, result.found.members());
      }
      if (answer == 1) {
        work.found();
        work.remove();
        return new Workspace(store, outline, result.members());
      }
      outline.close();
      return null;
    }, workspace -> {
      if (workspace != null) {
        show(workspace);
      }
      opened.accept(workspace != null);
    }, failure -> {
      outline.close();
      say(parent, failure);
      opened.accept(false);
    });
  }

  private static String time(Instant instant) {
    return DateTimeFormatter.ofLocalizedDateTime(FormatStyle.MEDIUM)
        .withZone(ZoneId.systemDefault()).format(instant);
  }

  private void offerToRead(String application, String database, Exception failure,
      Component parent, Consumer<Boolean> opened) {
    String object = application + "/" + database + "/" + database;
    inBackground(() -> store.locks().stream().filter(one -> one.object().equals(object))
        .findFirst(), lock -> {
      Object[] answers = {"Open to Read", "Cancel"};
      if (!lock.isPresent()) {
        say(parent, failure);
        opened.accept(false);
      } else if (JOptionPane.showOptionDialog(parent, application + "." + database
          + " is being edited by " + lock.get().user() + " since " + time(lock.get().since())
          + "\n(process " + lock.get().process() + " on " + lock.get().host()
          + "). You can read what was saved last.", TITLE, JOptionPane.DEFAULT_OPTION,
          JOptionPane.WARNING_MESSAGE, null, answers, answers[0]) == 0) {
        inBackground(() -> new Opened(store.browse(application, database)), result -> {
          show(new Workspace(store, result.outline, result.members()));
          opened.accept(true);
        }, second -> {
          say(parent, second);
          opened.accept(false);
        });
      } else {
        opened.accept(false);
      }
    }, second -> {
      say(parent, failure);
      opened.accept(false);
    });
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
