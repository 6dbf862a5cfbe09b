package com.olvane.kep.olvane.editor;

import java.util.ArrayList;
import java.util.Arrays;
import java.util.LinkedList;
import java.util.List;
import java.util.function.BiConsumer;
import java.util.function.Consumer;
import java.util.function.Function;
import java.util.function.Supplier;

/**
 * A step of the history that can be undone and done again. It is applied and reverted in turns on
 * the work thread, and finds the outline as it left it.
 */
final class Edit {
  /** Does something wholly or, when it throws, not at all. */
  interface Step {
    /** {@return what takes it back} */
    Step run(EditContext context);
  }

  private final Supplier<String> title;
  private Step apply;
  private Step revert;

  Edit(String title, Step apply) {
    this(() -> title, apply);
  }

  /** Makes an edit whose title is known only when it was applied. */
  Edit(Supplier<String> title, Step apply) {
    this.title = title;
    this.apply = apply;
  }

  /** What it does, as the history shows it: "Rename Colas to Cola". */
  String title() {
    return title.get();
  }

  /** Carries it out, also again after {@link #revert}. */
  void apply(EditContext context) {
    revert = apply.run(context);
  }

  /** Takes it back. */
  void revert(EditContext context) {
    apply = revert.run(context);
  }

  /** Two edits that were applied one after the other, as one. */
  static Edit joined(String title, Edit first, Edit second) {
    Edit both = new Edit(title, null);
    both.revert = all(Arrays.asList(second.revert, first.revert));
    return both;
  }

  /** Several steps as one. */
  static Step all(List<Step> steps) {
    return context -> {
      LinkedList<Step> back = new LinkedList<>();
      try {
        for (Step step : steps) {
          if (steps.size() > 1) {
            context.progress(back.size(), steps.size());
          }
          back.addFirst(step.run(context));
        }
      } catch (RuntimeException | OutOfMemoryError e) {
        throw afterTakingBack(e, () -> back.forEach(step -> step.run(context)));
      }
      return all(new ArrayList<>(back));
    };
  }

  /** Takes back what was done before a failure, which is told whatever becomes of that. */
  private static RuntimeException afterTakingBack(Throwable failure, Runnable back) {
    try {
      back.run();
    } catch (RuntimeException notTakenBack) {
      failure.addSuppressed(notTakenBack);
    }
    return failure instanceof RuntimeException ? (RuntimeException) failure
        : new IllegalStateException("There is not enough memory for this.", failure);
  }

  /**
   * An edit that takes down a state, changes it, and takes it back by restoring the state.
   *
   * @param keep takes the state down; what it gives restores it, wholly or half changed as it is
   */
  static Edit restoring(String title, Function<EditContext, Consumer<EditContext>> keep,
      Consumer<EditContext> change) {
    return new Edit(title, restoring(keep, change));
  }

  private static Step restoring(
      Function<EditContext, Consumer<EditContext>> keep, Consumer<EditContext> change) {
    return context -> {
      Consumer<EditContext> restore = keep.apply(context);
      try {
        change.accept(context);
      } catch (RuntimeException | OutOfMemoryError e) {
        throw afterTakingBack(e, () -> restore.accept(context));
      }
      return again -> {
        restore.accept(again);
        return restoring(keep, change);
      };
    };
  }

  /** An edit that sets something to a value, and takes that back by setting what it was before. */
  static <T> Edit set(String title, Function<EditContext, T> read,
      BiConsumer<EditContext, T> write, T value) {
    return restoring(title, context -> {
      T before = read.apply(context);
      return again -> write.accept(again, before);
    }, context -> write.accept(context, value));
  }
}
