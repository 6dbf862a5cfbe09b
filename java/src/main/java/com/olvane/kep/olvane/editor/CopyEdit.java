package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.CopyRun;
import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import java.util.stream.Stream;

/** Copies a member with everything below it, batch by batch. */
final class CopyEdit implements Edit {
  private final Ref source;
  private final String title;
  private final Target target;
  private final Ref copy = Ref.toCome();
  /** The references into the copy that was taken back. */
  private EditContext.Bound bound;

  CopyEdit(Member source, Target target) {
    this.source = Ref.to(source);
    this.title = "Copy " + source.name();
    this.target = target;
  }

  /** The copy, for what is to stand behind it. */
  Ref copy() {
    return copy;
  }

  @Override
  public String title() {
    return title;
  }

  @Override
  public void apply(EditContext context) {
    Member member = context.member(source);
    int parent = target.parent(context);
    requireOutside(context, member, parent);
    long total;
    try (Stream<Member> all = context.outline().subtree(member, Details.NONE)) {
      total = all.count();
    }
    CopyRun run = context.outline().copy(member, target.place(context));
    try {
      while (run.next()) {
        context.progress(run.copied(), total);
      }
    } catch (RuntimeException e) {
      run.cancel();
      throw e;
    }
    Member made = run.result();
    if (bound == null) {
      context.bind(copy, made.handle());
    } else {
      context.rebind(bound, context.handlesOf(made));
    }
    context.change().added(total);
    context.change().children(parent);
    context.change().select(copy);
  }

  /** A copy that grows into itself would have no end. */
  private static void requireOutside(EditContext context, Member source, int parent) {
    for (int at = parent; at != 0;) {
      if (at == source.handle()) {
        throw new IllegalArgumentException(
            source.name() + " cannot be copied below itself; choose a place outside of it.");
      }
      at = context.member(Ref.toHandle(at), Details.NONE.place()).parentHandle();
    }
  }

  @Override
  public void revert(EditContext context) {
    Member made = context.member(copy, Details.NONE.place());
    bound = context.delete(made);
    context.change().children(made.parentHandle());
    context.change().select(source);
  }
}
