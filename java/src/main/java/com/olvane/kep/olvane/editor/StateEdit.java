package com.olvane.kep.olvane.editor;

import java.util.function.Consumer;
import java.util.function.Function;

/**
 * An edit that takes down a state, changes it, and takes it back by restoring the state.
 *
 * @param <S> what is taken down
 */
final class StateEdit<S> implements Edit {
  /** Makes a state again. */
  interface Restore<S> {
    /** Restores what was taken down, wholly or half changed as it is. */
    void to(EditContext context, S state);
  }

  private final String title;
  private final Function<EditContext, S> state;
  private final Consumer<EditContext> change;
  private final Restore<S> restore;
  private final Consumer<OutlineChange> what;
  private S before;

  /**
   * Makes an edit.
   *
   * @param what tells what is changed by it
   */
  StateEdit(String title, Function<EditContext, S> state, Consumer<EditContext> change,
      Restore<S> restore, Consumer<OutlineChange> what) {
    this.title = title;
    this.state = state;
    this.change = change;
    this.restore = restore;
    this.what = what;
  }

  @Override
  public String title() {
    return title;
  }

  @Override
  public void apply(EditContext context) {
    before = state.apply(context);
    try {
      change.accept(context);
    } catch (RuntimeException e) {
      try {
        restore.to(context, before);
      } catch (RuntimeException notRestored) {
        e.addSuppressed(notRestored);
      }
      throw e;
    }
    what.accept(context.change());
  }

  @Override
  public void revert(EditContext context) {
    restore.to(context, before);
    what.accept(context.change());
  }
}
