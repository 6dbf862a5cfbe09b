package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;

/** Deletes a member with everything below it, and brings it back whole. */
final class DeleteEdit implements Edit {
  private final Ref member;
  private final String title;
  private Target origin;
  private Snapshot snapshot;
  private Associations associations;
  private EditContext.Bound bound;

  DeleteEdit(Member member) {
    this.member = Ref.to(member);
    this.title = "Delete " + member.name();
  }

  @Override
  public String title() {
    return title;
  }

  @Override
  public void apply(EditContext context) {
    Member now = context.member(member, Details.NONE.place());
    origin = Target.of(context, now);
    snapshot = Snapshot.of(context, now);
    associations = Associations.of(context, now);
    bound = context.delete(now);
    context.change().children(now.parentHandle());
    if (now.isDimension()) {
      context.change().settings();
    }
    if (now.parentHandle() != 0) {
      context.change().select(Ref.toHandle(now.parentHandle()));
    }
  }

  @Override
  public void revert(EditContext context) {
    int parent = origin.parent(context);
    int[] handles = snapshot.restore(context, origin);
    context.rebind(bound, handles);
    associations.restore(context, handles);
    context.change().added(handles.length);
    context.change().children(parent);
    if (parent == 0) {
      context.change().settings();
    }
    context.change().select(member);
  }
}
