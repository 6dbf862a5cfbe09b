package com.olvane.kep.olvane.editor;

import com.olvane.kep.olvane.outline.Details;
import com.olvane.kep.olvane.outline.Member;
import com.olvane.kep.olvane.outline.Place;
import java.util.function.Function;

/** Where a member is to go, named by a reference; {@link Place} for edits. */
final class Target {
  private final Ref member;
  private final boolean below;
  private final Function<Member, Place> place;

  private Target(Ref member, boolean below, Function<Member, Place> place) {
    this.member = member;
    this.below = below;
    this.place = place;
  }

  /** As the first child of a member; of null as the first dimension. */
  static Target firstBelow(Ref parent) {
    return new Target(parent, true,
        known -> known == null ? Place.firstDimension() : Place.firstBelow(known));
  }

  /** As the last child of a member; of null as the last dimension. */
  static Target lastBelow(Ref parent) {
    return new Target(parent, true,
        known -> known == null ? Place.lastDimension() : Place.lastBelow(known));
  }

  static Target before(Ref sibling) {
    return new Target(sibling, false, Place::before);
  }

  static Target behind(Ref sibling) {
    return new Target(sibling, false, Place::behind);
  }

  /** Where a member stands that was read with its place. */
  static Target of(EditContext context, Member member) {
    Ref previous = Ref.toHandle(member.previousHandle());
    Target target =
        previous != null ? behind(previous) : firstBelow(Ref.toHandle(member.parentHandle()));
    // Entered into the table, so that it follows its member from here on.
    context.handle(target.member);
    return target;
  }

  /** The handle of the member that becomes the parent; 0 for a dimension. */
  int parent(EditContext context) {
    return below ? context.handle(member)
        : context.member(member, Details.NONE.place()).parentHandle();
  }

  Place place(EditContext context) {
    return place.apply(member == null ? null : context.member(member));
  }
}
