package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;

/** Moves a member with everything below it. */
final class MoveEdit implements Edit {
  private final Ref member;
  private final String title;
  private final Target target;
  private Target origin;
  /** What a move to another dimension takes away; null for a move within one. */
  private Associations associations;

  MoveEdit(Member member, Target target) {
    this.member = Ref.to(member);
    this.title = "Move " + member.name();
    this.target = target;
  }

  @Override
  public String title() {
    return title;
  }

  @Override
  public void apply(EditContext context) {
    Member now = context.member(member, Details.NONE.place());
    origin = Target.of(context, now);
    int parent = target.parent(context);
    boolean leaves = parent != 0 && context.member(Ref.toHandle(parent)).dimensionHandle()
        != now.dimensionHandle();
    associations = leaves ? Associations.of(context, now) : null;
    context.outline().move(now, target.place(context));
    tell(context, now.parentHandle(), parent);
  }

  @Override
  public void revert(EditContext context) {
    Member now = context.member(member, Details.NONE.place());
    int parent = origin.parent(context);
    context.outline().move(now, origin.place(context));
    if (associations != null) {
      associations.restore(context, context.handlesOf(now));
    }
    tell(context, now.parentHandle(), parent);
  }

  private void tell(EditContext context, int from, int to) {
    context.change().children(from);
    context.change().children(to);
    context.change().select(member);
  }
}
