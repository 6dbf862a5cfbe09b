package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Member;

/** Gives a member another name. */
final class RenameEdit implements Edit {
  private final Ref member;
  private final String before;
  private final String after;
  private boolean again;

  RenameEdit(Member member, String name) {
    this.member = Ref.to(member);
    this.before = member.name();
    this.after = name;
  }

  @Override
  public String title() {
    return "Rename " + before + " to " + after;
  }

  private void rename(EditContext context, String name) {
    context.outline().rename(context.member(member), name);
    context.change().member(member.handle);
    // Whoever has typed the name may have gone on to another member by then.
    if (again) {
      context.change().select(member);
    }
    again = true;
  }

  @Override
  public void apply(EditContext context) {
    rename(context, after);
  }

  @Override
  public void revert(EditContext context) {
    rename(context, before);
  }
}
