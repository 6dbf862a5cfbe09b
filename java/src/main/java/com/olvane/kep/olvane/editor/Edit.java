package com.olvane.kep.olvane.editor;

import java.util.ArrayList;
import java.util.List;

/**
 * A step that can be undone and done again. Both methods run on the work thread and do everything
 * or, when they throw, nothing. They are called in turns, beginning with {@link #apply}, and find
 * the outline as the other one left it.
 */
interface Edit {
  /** What it does, as the history shows it: "Rename Colas to Cola". */
  String title();

  /** Carries it out, also again after {@link #revert}. */
  void apply(EditContext context);

  /** Takes it back. */
  void revert(EditContext context);

  /** Several edits as one step. */
  final class Batch implements Edit {
    private final String title;
    private final List<Edit> edits;

    Batch(String title, List<? extends Edit> edits) {
      this.title = title;
      this.edits = new ArrayList<>(edits);
    }

    @Override
    public String title() {
      return title;
    }

    @Override
    public void apply(EditContext context) {
      int done = 0;
      try {
        for (Edit edit : edits) {
          context.progress(done, edits.size());
          edit.apply(context);
          done++;
        }
      } catch (RuntimeException e) {
        while (done > 0) {
          edits.get(--done).revert(context);
        }
        throw e;
      }
    }

    @Override
    public void revert(EditContext context) {
      int left = edits.size();
      try {
        while (left > 0) {
          edits.get(left - 1).revert(context);
          left--;
        }
      } catch (RuntimeException e) {
        while (left < edits.size()) {
          edits.get(left++).apply(context);
        }
        throw e;
      }
    }
  }
}
