package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Outline;
import com.olvane.kep.olvane.outline.OutlineException;
import com.olvane.kep.olvane.outline.Store;
import com.olvane.kep.olvane.standin.StoreLock;
import com.olvane.kep.olvane.standin.StoredDatabase;
import java.awt.Component;
import java.time.Instant;
import java.time.ZoneId;
import java.time.format.DateTimeFormatter;
import java.time.format.FormatStyle;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.Optional;
import java.util.concurrent.Callable;
import java.util.function.Consumer;
import javax.swing.SwingUtilities;

/** The running program: a store and its windows. It ends when nothing is shown any more. */
final class Editor {
  final Store store;
  /** The store in words, for those who choose from it. */
  String where = "";
  final UserSettings settings = UserSettings.read();
  final List<EditorWindow> windows = new ArrayList<>();
  private DatabaseChooser chooser;

  Editor(Store store) {
    this.store = store;
    Theme.install("dark".equals(settings.text("theme", "light")) ? Palette.DARK : Palette.LIGHT);
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
      if (window.workspace.name().equals(application + "." + database)) {
        window.frame.toFront();
        opened.accept(true);
        return;
      }
    }
    Workspace workspace = new Workspace(store, application, database);
    workspace.open(new Opening(workspace, parent)::openOrSay);
    // Meanwhile the window is made.
    EditorWindow window = new EditorWindow(this, workspace);
    workspace.opened.hear(there -> {
      if (there) {
        windows.add(window);
        window.show();
      } else {
        window.frame.dispose();
      }
      opened.accept(there);
    });
  }

  /** Does something with the store off the event thread, which then goes on with what came. */
  static <T> void inBackground(
      Callable<T> work, Consumer<T> then, Consumer<Exception> otherwise) {
    new Thread(() -> {
      try {
        T result = work.call();
        SwingUtilities.invokeLater(() -> then.accept(result));
      } catch (Exception e) {
        SwingUtilities.invokeLater(() -> otherwise.accept(e));
      }
    }, "store").start();
  }

  /** A time as its reader's country writes it. */
  static String time(Instant instant) {
    return DateTimeFormatter.ofLocalizedDateTime(FormatStyle.MEDIUM)
        .withZone(ZoneId.systemDefault()).format(instant);
  }

  /** A window was closed. */
  void closed(EditorWindow window) {
    windows.remove(window);
    settings.write();
  }

  /** Opens an outline, and asks what to do where something speaks against opening as usual. */
  private final class Opening {
    private final Workspace workspace;
    private final Component parent;

    Opening(Workspace workspace, Component parent) {
      this.workspace = workspace;
      this.parent = parent;
    }

    /** Opens it, off the event thread, or says why it can't be; false where it is not open. */
    boolean openOrSay() throws Exception {
      try {
        return open();
      } catch (RuntimeException e) {
        Ask.fromElsewhere(parent, Ask.sentence(e), "OK");
        return false;
      }
    }

    private boolean open() throws Exception {
      Outline outline;
      try {
        outline = store.edit(workspace.application, workspace.database);
      } catch (OutlineException e) {
        return offerToRead(e);
      }
      try {
        Optional<StoredDatabase> found = workspace.unsaved.found();
        return found.isPresent() ? offerWork(outline, found.get()) : take(outline);
      } finally {
        if (workspace.outline == null) {
          outline.close();
        }
      }
    }

    private boolean take(Outline outline) {
      workspace.take(outline, outline);
      return true;
    }

    /** The answer to a question, which is asked on the event thread. */
    private String ask(String question, List<String> answers) throws Exception {
      int answer = Ask.fromElsewhere(parent, question, answers.toArray());
      return answer < 0 ? "Cancel" : answers.get(answer);
    }

    private boolean offerWork(Outline outline, StoredDatabase found) throws Exception {
      Instant saved = workspace.stored().map(StoredDatabase::saved).orElse(Instant.MIN);
      boolean savedSince = saved.isAfter(found.saved());
      // Enter takes the first, which loses nothing.
      String answer = ask(
          "There is unsaved work on " + workspace.name() + " of " + time(found.saved()) + ".\n"
              + (savedSince ? "The outline was saved since, " + time(saved)
                      + "; what is restored knows nothing of that.\n" : "")
              + "Restore it to go on with it; the database keeps what is saved until you save.",
          savedSince ? Arrays.asList("Cancel", "Restore", "Discard")
              : Arrays.asList("Restore", "Discard", "Cancel"));
      if (answer.equals("Restore")) {
        workspace.take(workspace.unsaved.open(), outline);
        return true;
      }
      if (answer.equals("Discard")) {
        workspace.unsaved.remove();
        return take(outline);
      }
      return false;
    }

    private boolean offerToRead(OutlineException failure) throws Exception {
      StoreLock lock = workspace.lock().orElseThrow(() -> failure);
      String answer = ask(workspace.name() + " is being edited by " + lock.user()
          + " since " + time(lock.since()) + "\n(process " + lock.process() + " on " + lock.host()
          + "). You can read what was saved last.", Arrays.asList("Open to Read", "Cancel"));
      return !answer.equals("Cancel")
          && take(store.browse(workspace.application, workspace.database));
    }
  }
}
