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

    boolean isBehind() {
      return sibling != 0;
    }

    /** The member that the place is told by. */
    int reference() {
      return isBehind() ? sibling : parent;
    }
  }

  /** Looks up what the outline knows of the place now. */
  Resolved resolve(Access access) {
    if (kind == Kind.FIRST || kind == Kind.LAST) {
      int parent = member == null ? 0 : member.handle();
      return new Resolved(parent, kind == Kind.FIRST ? 0 : lastChild(access));
    }
    Member now = Reading.again(access, member.name(), member.handle(), Details.NONE.place());
    return new Resolved(
        now.parentHandle(), kind == Kind.BEHIND ? now.handle() : now.previousHandle());
  }

  private int lastChild(Access access) {
    int start = OutlineBulk.FROM_FIRST;
    int next = 0;
    if (member != null) {
      Member now = Reading.again(access, member.name(), member.handle(), Details.NONE);
      start = now.hasChildren() ? OutlineBulk.FROM_POSITION : start;
      next = (int) now.childCount() - 1;
    }
    List<Member> last = Reading.children(access, member, start, next, Details.NONE).all();
    return last.isEmpty() ? 0 : last.get(last.size() - 1).handle();
  }
}
