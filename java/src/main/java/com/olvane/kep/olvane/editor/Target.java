package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Place;

/** Where a member is to go, named by a reference; {@link Place} for edits. */
final class Target {
  private enum Kind { FIRST_BELOW, LAST_BELOW, BEFORE, BEHIND }

  private final Kind kind;
  private final Ref member;

  private Target(Kind kind, Ref member) {
    this.kind = kind;
    this.member = member;
  }

  /** As the first child of a member; of null as the first dimension. */
  static Target firstBelow(Ref parent) {
    return new Target(Kind.FIRST_BELOW, parent);
  }

  /** As the last child of a member; of null as the last dimension. */
  static Target lastBelow(Ref parent) {
    return new Target(Kind.LAST_BELOW, parent);
  }

  static Target before(Ref sibling) {
    return new Target(Kind.BEFORE, sibling);
  }

  static Target behind(Ref sibling) {
    return new Target(Kind.BEHIND, sibling);
  }

  /** Where a member stands now. */
  static Target of(EditContext context, Member member) {
    Member now = context.outline().read(member, Details.NONE.place());
    Ref previous = Ref.toHandle(now.previousHandle());
    Ref parent = Ref.toHandle(now.parentHandle());
    Target target = previous != null ? behind(previous) : firstBelow(parent);
    // Entered into the table, so that it follows its member from here on.
    context.handle(target.member);
    return target;
  }

  /** The handle of the member that becomes the parent; 0 for a dimension. */
  int parent(EditContext context) {
    return kind == Kind.FIRST_BELOW || kind == Kind.LAST_BELOW
        ? context.handle(member)
        : context.member(member, Details.NONE.place()).parentHandle();
  }

  Place place(EditContext context) {
    Member known = member == null ? null : context.member(member);
    switch (kind) {
      case FIRST_BELOW:
        return known == null ? Place.firstDimension() : Place.firstBelow(known);
      case LAST_BELOW:
        return known == null ? Place.lastDimension() : Place.lastBelow(known);
      case BEFORE:
        return Place.before(known);
      default:
        return Place.behind(known);
    }
  }
}
