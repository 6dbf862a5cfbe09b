package com.olvane.kep.olvane.editor;

import java.util.ArrayList;
import java.util.List;

/** The steps that were done and can be undone, and those that were undone and can be done again. */
final class History {
  private static final int NOWHERE = -1;

  private final List<Edit> edits = new ArrayList<>();
  private int done;
  private int saved;

  /** Enters a step that was done; those that were undone are forgotten. */
  synchronized void add(Edit edit) {
    if (saved > done) {
      saved = NOWHERE;
    }
    edits.subList(done, edits.size()).clear();
    edits.add(edit);
    done++;
  }

  /** Makes the step that was done last, and the one that came just now, one step of a new title. */
  synchronized void join(Edit edit, String title) {
    if (done == 0 || saved == done) {
      add(edit);
      return;
    }
    Edit last = edits.get(done - 1);
    List<Edit> both = new ArrayList<>();
    both.add(last);
    both.add(edit);
    done--;
    add(new Edit.Batch(title, both));
  }

  /** The step that would be undone; null when there is none. */
  synchronized Edit toUndo() {
    return done == 0 ? null : edits.get(done - 1);
  }

  /** The step that would be done again; null when there is none. */
  synchronized Edit toRedo() {
    return done == edits.size() ? null : edits.get(done);
  }

  /** The step of {@link #toUndo} was undone. */
  synchronized void undone() {
    done--;
  }

  /** The step of {@link #toRedo} was done again. */
  synchronized void redone() {
    done++;
  }

  /** The outline was saved as it is now. */
  synchronized void saved() {
    saved = done;
  }

  /** The outline differs from what is saved and will whatever is undone. */
  synchronized void neverSaved() {
    saved = NOWHERE;
  }

  /** Whether the outline differs from what is saved. */
  synchronized boolean dirty() {
    return saved != done;
  }

  /** The titles of all steps in order. */
  synchronized List<String> titles() {
    List<String> titles = new ArrayList<>();
    for (Edit edit : edits) {
      titles.add(edit.title());
    }
    return titles;
  }

  /** The number of steps that are done; those behind them were undone. */
  synchronized int position() {
    return done;
  }
}
