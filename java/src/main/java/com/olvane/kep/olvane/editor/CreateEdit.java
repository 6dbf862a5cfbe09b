package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Changes;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.NewMember;
import java.util.Collections;

/** Makes one member with the defaults of its place. */
final class CreateEdit implements Edit {
  private final Target target;
  private final String proposed;
  private final Ref made = Ref.toCome();
  private String name;
  /** The references to the member that was taken back. */
  private EditContext.Bound bound;

  CreateEdit(Target target, String proposed) {
    this.target = target;
    this.proposed = proposed;
  }

  @Override
  public String title() {
    return "Create " + (name == null ? proposed : name);
  }

  @Override
  public void apply(EditContext context) {
    if (name == null) {
      name = freeName(context);
    }
    int parent = target.parent(context);
    int[] handles = context.outline().build(
        target.place(context), Collections.singletonList(new NewMember(name, new Changes())));
    if (bound == null) {
      context.bind(made, handles[0]);
    } else {
      context.rebind(bound, handles);
    }
    context.change().added(1);
    context.change().children(parent);
    context.change().select(made);
  }

  private String freeName(EditContext context) {
    String free = proposed;
    for (int number = 2; context.outline().find(free).isPresent(); number++) {
      free = proposed + " " + number;
    }
    return free;
  }

  @Override
  public void revert(EditContext context) {
    Member member = context.member(made);
    int parent = target.parent(context);
    bound = context.delete(member);
    context.change().children(parent);
    Ref beside = Ref.toHandle(parent);
    if (beside != null) {
      context.change().select(beside);
    }
  }
}
