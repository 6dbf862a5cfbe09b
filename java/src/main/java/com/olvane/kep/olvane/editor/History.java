package com.olvane.kep.olvane.editor;

import java.util.ArrayList;
import java.util.List;
import java.util.stream.Collectors;

/** The steps that were done and can be undone, and those that were undone and can be done again. */
final class History {
  private static final int NOWHERE = -1;

  private final List<Edit> edits = new ArrayList<>();
  /** The number of steps that are done; those behind them were undone. */
  volatile int done;
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
    } else {
      done--;
      add(Edit.joined(title, edits.get(done), edit));
    }
  }

  /** The step that would be undone; null when there is none. */
  synchronized Edit toUndo() {
    return done == 0 ? null : edits.get(done - 1);
  }

  /** The step that would be done again; null when there is none. */
  synchronized Edit toRedo() {
    return done == edits.size() ? null : edits.get(done);
  }

  /** Takes the step back that was done last, if there is one. */
  void undo(EditContext context) {
    Edit edit = toUndo();
    if (edit != null) {
      edit.revert(context);
      done--;
    }
  }

  /** Does the step again that was taken back last, if there is one. */
  void redo(EditContext context) {
    Edit edit = toRedo();
    if (edit != null) {
      edit.apply(context);
      done++;
    }
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
    return edits.stream().map(Edit::title).collect(Collectors.toList());
  }
}
