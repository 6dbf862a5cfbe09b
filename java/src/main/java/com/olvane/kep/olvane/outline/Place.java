package com.olvane.kep.olvane.outline;

import com.olvane.kep.olvane.api.jni.OutlineBulk;
import java.util.List;
import java.util.Objects;

/** Where a member is to go: among the dimensions, below a member, or beside one. */
public final class Place {
  private enum Kind { FIRST, LAST, BEFORE, BEHIND }

  private final Kind kind;
  private final Member member;

  private Place(Kind kind, Member member) {
    this.kind = kind;
    this.member = member;
  }

  /** {@return the place of the first dimension} */
  public static Place firstDimension() {
    return new Place(Kind.FIRST, null);
  }

  /** {@return the place behind the last dimension} */
  public static Place lastDimension() {
    return new Place(Kind.LAST, null);
  }

  /**
   * Names the place of a first child.
   *
   * @param parent the parent
   * @return the place
   */
  public static Place firstBelow(Member parent) {
    return new Place(Kind.FIRST, Objects.requireNonNull(parent));
  }

  /**
   * Names the place behind the last child.
   *
   * @param parent the parent
   * @return the place
   */
  public static Place lastBelow(Member parent) {
    return new Place(Kind.LAST, Objects.requireNonNull(parent));
  }

  /**
   * Names the place before a sibling.
   *
   * @param sibling the sibling
   * @return the place
   */
  public static Place before(Member sibling) {
    return new Place(Kind.BEFORE, Objects.requireNonNull(sibling));
  }

  /**
   * Names the place behind a sibling.
   *
   * @param sibling the sibling
   * @return the place
   */
  public static Place behind(Member sibling) {
    return new Place(Kind.BEHIND, Objects.requireNonNull(sibling));
  }

  /** A place as the native methods take it: below a parent (0: a dimension), behind a sibling. */
  static final class Resolved {
    final int parent;
    final int sibling;

    Resolved(int parent, int sibling) {
      this.parent = parent;
      this.sibling = sibling;
    }
  }

  /** Looks up what the outline knows of the place now. */
  Resolved resolve(Access access) {
    switch (kind) {
      case FIRST:
        return new Resolved(member == null ? 0 : member.handle(), 0);
      case LAST:
        return new Resolved(member == null ? 0 : member.handle(), lastChild(access));
      default:
        Member now =
            Reading.members(access, member.name(), new int[] {member.handle()},
                Details.NONE.place()).all().get(0);
        return new Resolved(
            now.parentHandle(), kind == Kind.BEHIND ? now.handle() : now.previousHandle());
    }
  }

  private int lastChild(Access access) {
    if (member == null) {
      List<Member> dimensions =
          Reading.children(access, null, OutlineBulk.FROM_FIRST, 0, Details.NONE).all();
      return dimensions.isEmpty() ? 0 : dimensions.get(dimensions.size() - 1).handle();
    }
    Member now =
        Reading.members(access, member.name(), new int[] {member.handle()}, Details.NONE)
            .all().get(0);
    if (!now.hasChildren()) {
      return 0;
    }
    List<Member> last =
        Reading.children(access, now, OutlineBulk.FROM_POSITION, (int) (now.childCount() - 1),
            Details.NONE).list(1);
    return last.isEmpty() ? 0 : last.get(0).handle();
  }
}
