package com.olvane.kep.olvane.editor;

import javax.swing.Timer;

/** Keeps unsaved work aside after a pause in editing or typing, longer where that takes longer. */
final class AutoKeep {
  private static final int LEAST_PAUSE_MILLIS = 5_000;
  /** The pause is so many times as long as writing took. */
  private static final int PAUSE_BY_WRITING = 10;

  private final int leastPause = Integer.getInteger("editor.pause", LEAST_PAUSE_MILLIS);
  private final Workspace workspace;
  private final EditorWindow window;
  private final Timer pause = new Timer(leastPause, event -> keep());
  /** What was typed into last. */
  private RowField typing;

  AutoKeep(EditorWindow window) {
    this.window = window;
    this.workspace = window.workspace;
    pause.setRepeats(false);
    workspace.typing.hear(field -> {
      typing = field;
      pause.restart();
    });
    workspace.historyChanged.hear(history -> {
      if (history.dirty()) {
        pause.restart();
      } else {
        pause.stop();
        keep();
      }
    });
  }

  private void keep() {
    long start = System.nanoTime();
    Edit typed = typing == null ? null : workspace.preview(typing::offerTyped);
    workspace.keepAside(typed, failure -> {
      if (failure == null) {
        long millis = (System.nanoTime() - start) / 1_000_000;
        pause.setInitialDelay((int) Math.max(leastPause, PAUSE_BY_WRITING * millis));
      } else {
        window.status("Unsaved work cannot be kept aside: " + failure.getMessage());
      }
    });
  }

  /** Keeps nothing any more. */
  void stop() {
    pause.stop();
  }
}
