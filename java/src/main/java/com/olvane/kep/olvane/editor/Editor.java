package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Store;
import java.awt.Component;
import java.util.ArrayList;
import java.util.List;
import java.util.concurrent.Callable;
import java.util.function.Consumer;
import javax.swing.SwingUtilities;

/** The running program: a store and its windows. It ends when nothing is shown any more. */
final class Editor {
  final Store store;
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
    inBackground(new Opening(store, application, database, parent)::open, workspace -> {
      if (workspace != null) {
        EditorWindow window = new EditorWindow(this, workspace);
        windows.add(window);
        window.show();
      }
      opened.accept(workspace != null);
    }, failure -> {
      Ask.say(parent, failure);
      opened.accept(false);
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

  /** A window was closed. */
  void closed(EditorWindow window) {
    windows.remove(window);
    settings.write();
  }
}
